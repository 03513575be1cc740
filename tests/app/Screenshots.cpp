// Takes pictures of every window on its way through the three steps, so that people can look at them:
//   orvane_screenshots DIRECTORY TRUSS light|dark
// The scale comes from QT_SCALE_FACTOR. It proves nothing by itself and is no test.
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStyleFactory>
#include <QTest>
#include <QTimer>
#include <iostream>

#include "app/MainForm.h"
#include "support/FakeFileChooser.h"
#include "support/FakeMessageBox.h"
#include "support/MemorySettingsStore.h"

namespace {

QPalette DarkPalette() {
  QPalette dark;
  const QColor window(0x2b, 0x2b, 0x2e);
  const QColor text(0xe8, 0xe8, 0xe8);
  dark.setColor(QPalette::Window, window);
  dark.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x20));
  dark.setColor(QPalette::AlternateBase, window);
  dark.setColor(QPalette::Button, QColor(0x3a, 0x3a, 0x3e));
  dark.setColor(QPalette::ToolTipBase, window);
  dark.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb7));
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
    dark.setColor(role, text);
    dark.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
  }
  dark.setColor(QPalette::HighlightedText, Qt::white);
  dark.setColor(QPalette::PlaceholderText, QColor(0x90, 0x90, 0x90));
  return dark;
}

class Photographer {
 public:
  Photographer(QDir directory, std::string truss) : directory_(std::move(directory)) {
    chooser_.Choice = std::move(truss);
  }

  void Run() {
    form_.show();
    Settle();
    Take(form_, "1-instructions");
    Click("cmdOKInstruct1");
    Take(form_, "2-step1-empty");
    Trigger("mnuFileOpen");
    Take(form_, "3-step1");
    TakeMenu("mnuFile", "4-file-menu");
    TakeModal("mnuSettings", "5-settings");
    TakeModal("mnuHelpAbout", "6-about");
    Click("cmdNext1");
    Take(form_, "7-step2");
    ClickLabel(truss_.Joints[1].NameLabel, "8-name");
    Click("cmdNext2");
    Take(form_, "9-step3");
    int number = 0;
    for (const char* button :
         {"cmdReportCounting", "cmdReportSystemEqs", "cmdReportRREF", "cmdReportSolutions"}) {
      Click(button);
      Take(*ReportWindow(), QStringLiteral("10-report%1").arg(++number));
    }
    ReportWindow()->hide();
    ClickLabel(truss_.Joints[2].NameLabel, nullptr);
    Take(form_, "11-joint");
    form_.resize(900, 700);
    Settle();
    Take(form_, "12-larger");
  }

 private:
  static void Settle() { QTest::qWait(80); }

  void Take(QWidget& widget, const QString& name) {
    Settle();
    const QString path = directory_.filePath(name + QStringLiteral(".png"));
    if (!widget.grab().save(path)) throw std::runtime_error("cannot write " + path.toStdString());
  }
  void Take(QWidget& widget, const char* name) { Take(widget, QString::fromLatin1(name)); }

  void Click(const char* button) {
    form_.findChild<QPushButton*>(QString::fromLatin1(button))->click();
    Settle();
  }

  void Trigger(const char* action) {
    form_.findChild<QAction*>(QString::fromLatin1(action))->trigger();
    Settle();
  }

  void TakeMenu(const char* menuName, const char* name) {
    auto* menu = form_.findChild<QMenu*>(QString::fromLatin1(menuName));
    menu->popup(form_.mapToGlobal(QPoint(0, form_.menuBar()->height())));
    Take(*menu, name);
    menu->hide();
  }

  // Photographs the modal window that opens next, and closes it.
  void AwaitModal(const char* name) {
    QTimer::singleShot(100, &form_, [this, name] {
      QWidget* dialog = QApplication::activeModalWidget();
      Take(*dialog, name);
      dialog->close();
    });
  }

  void TakeModal(const char* action, const char* name) {
    AwaitModal(name);
    Trigger(action);
  }

  // The label's middle is on the canvas at the place that a click on the caption's left end hits.
  void ClickLabel(LabelIndex label, const char* modalName) {
    if (modalName != nullptr) AwaitModal(modalName);
    auto* picDraw = form_.findChild<CanvasWidget*>(QStringLiteral("picDraw"));
    const LabelPlace& place = picDraw->Shown().lblRodJoint[label];
    const QPoint point(static_cast<int>(place.Left + place.Width / 2),
                       static_cast<int>(place.Top + place.Height / 2));
    QTest::mouseClick(picDraw, Qt::LeftButton, Qt::NoModifier, point);
  }

  static QWidget* ReportWindow() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == QStringLiteral("Report")) return window;
    }
    throw std::runtime_error("no report window");
  }

  QDir directory_;
  Truss truss_;
  MemorySettingsStore store_;
  FakeMessageBox messages_;
  FakeFileChooser chooser_;
  MainForm form_{{truss_, store_, messages_, chooser_, NumberFormat{}, "."}};
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() != 4) {
    std::cerr << "usage: orvane_screenshots DIRECTORY TRUSS light|dark\n";
    return 2;
  }
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  if (arguments[3] == QStringLiteral("dark")) QApplication::setPalette(DarkPalette());
  const QDir directory(arguments[1]);
  if (!directory.mkpath(QStringLiteral("."))) {
    std::cerr << "cannot make the directory " << arguments[1].toStdString() << '\n';
    return 1;
  }
  try {
    Photographer(directory, arguments[2].toStdString()).Run();
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
