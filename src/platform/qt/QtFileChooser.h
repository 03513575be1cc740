// Choosing a file with the dialog of the toolkit or, where there is one, of the desktop.
#pragma once

#include "platform/FileChooser.h"
#include "platform/MessageBox.h"

class QWidget;

/// A name typed for saving without an extension gets the one of the chosen filter ("*.*" has none).
class QtFileChooser final : public FileChooser {
 public:
  /// Both must outlive the chooser. `messages` asks before an existing file is chosen for saving.
  QtFileChooser(QWidget* parent, MessageBox& messages) : parent_(parent), messages_(messages) {}

  std::optional<std::string> ChooseForOpening(const FileChooserRequest& request) override;
  std::optional<std::string> ChooseForSaving(const FileChooserRequest& request) override;

 private:
  bool MayReplace(const std::string& path);

  QWidget* parent_;
  MessageBox& messages_;
};
