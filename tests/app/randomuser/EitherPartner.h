// Message boxes and file choosers that are sometimes the real ones, which a random user works with the mouse
// and keys, and sometimes those that answer by themselves.
#pragma once

#include <QObject>
#include <QUrl>

#include "platform/qt/QtFileChooser.h"
#include "platform/qt/QtMessageBox.h"
#include "support/FakeFileChooser.h"
#include "support/FakeMessageBox.h"

class EitherMessageBox final : public MessageBox {
 public:
  explicit EitherMessageBox(FakeMessageBox& fake) : fake_(fake) {}

  MessageAnswer Show(const Message& message) override {
    return IsReal ? real_.Show(message) : fake_.Show(message);
  }

  bool IsReal = false;

 private:
  FakeMessageBox& fake_;
  QtMessageBox real_;
};

class EitherFileChooser final : public FileChooser {
 public:
  explicit EitherFileChooser(FakeFileChooser& fake) : fake_(fake) {}

  std::optional<std::string> ChooseForOpening(const FileChooserRequest& request) override {
    return IsReal ? real_.ChooseForOpening(request) : fake_.ChooseForOpening(request);
  }
  std::optional<std::string> ChooseForSaving(const FileChooserRequest& request) override {
    return IsReal ? real_.ChooseForSaving(request) : fake_.ChooseForSaving(request);
  }

  bool IsReal = false;

 private:
  FakeFileChooser& fake_;
  QtFileChooser real_;
};

/// Stands in for the desktop's browser and mail program, which a link of the help may call.
class NoBrowser final : public QObject {
  Q_OBJECT

 public Q_SLOTS:
  void Open(const QUrl& /*address*/) {}
};
