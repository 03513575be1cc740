// Works the main window as a user does and photographs it on the way, at the scale of QT_SCALE_FACTOR.
#pragma once

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>

#include "app/MainForm.h"
#include "support/FakeFileChooser.h"
#include "support/FakeMessageBox.h"
#include "support/MemorySettingsStore.h"

class Photographer {
 public:
  explicit Photographer(QDir directory) : directory_(std::move(directory)) { form_.show(); }

 protected:
  static void Settle() { QTest::qWait(80); }

  static QString Named(const char* name) { return QString::fromLatin1(name); }

  // --- pictures

  /// The widget, or a part of it in its own pixels, as "name.png".
  void Take(QWidget& widget, const QString& name, const QRect& part = QRect(0, 0, -1, -1)) {
    Settle();
    const QString path = directory_.filePath(name + QStringLiteral(".png"));
    if (!widget.grab(part).save(path)) throw std::runtime_error("cannot write " + path.toStdString());
  }
  void Take(QWidget& widget, const char* name, const QRect& part = QRect(0, 0, -1, -1)) {
    Take(widget, Named(name), part);
  }

  void TakeMenu(const char* menuName, const char* name) {
    auto& menu = Find<QMenu>(menuName);
    menu.popup(form_.mapToGlobal(QPoint(0, form_.menuBar()->height())));
    Take(menu, name);
    menu.hide();
  }

  /// Photographs the modal window that an action opens, and closes it.
  void TakeModal(const char* action, const char* name) {
    AwaitModal([this, name](QWidget& dialog) {
      Take(dialog, name);
      dialog.close();
    });
    Trigger(action);
  }

  // --- what a user does

  void Click(const char* button) {
    Find<QAbstractButton>(button).click();
    Settle();
  }

  void Trigger(const char* action) {
    Find<QAction>(action).trigger();
    Settle();
  }

  void Open(std::string path) {
    chooser_.Choice = std::move(path);
    Trigger("mnuFileOpen");
  }

  /// Calls `use` for the modal window that opens next; it must close it.
  void AwaitModal(const std::function<void(QWidget&)>& use) {
    QTimer::singleShot(100, &form_, [use] { use(*QApplication::activeModalWidget()); });
  }

  /// A click on the left end of a name, which lies on the place that its label covers.
  void ClickLabel(LabelIndex label) {
    const LabelPlace& place = Canvas().Shown().lblRodJoint[label];
    const QPoint point(static_cast<int>(place.Left + place.Width / 2),
                       static_cast<int>(place.Top + place.Height / 2));
    QTest::mouseClick(&Canvas(), Qt::LeftButton, Qt::NoModifier, point);
  }

  // --- what there is

  template <class Object>
  Object& Find(const char* name) {
    auto* found = form_.findChild<Object*>(Named(name));
    if (found == nullptr) throw std::runtime_error(std::string("there is no ") + name);
    return *found;
  }

  CanvasWidget& Canvas() { return Find<CanvasWidget>("picDraw"); }

  static QWidget& WindowNamed(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == Named(name)) return *window;
    }
    throw std::runtime_error(std::string("there is no window ") + name);
  }

  static QWidget& ReportWindow() { return WindowNamed("Report"); }

  QDir directory_;
  Truss truss_;
  MemorySettingsStore store_;
  FakeMessageBox messages_;
  FakeFileChooser chooser_;
  MainForm form_{{truss_, store_, messages_, chooser_, NumberFormat{}, "."}};
};

/// An existing or new directory; throws when it cannot be made.
inline QDir DirectoryFor(const QString& path) {
  const QDir directory(path);
  if (!directory.mkpath(QStringLiteral("."))) {
    throw std::runtime_error("cannot make the directory " + path.toStdString());
  }
  return directory;
}
