// What a random user does on the drawing, with keys, buttons and menus, and in the dialogs that open.
#include <array>
#include <cstdlib>

#include "RandomUser.h"

unsigned RandomUser::Begin(unsigned usualEvents) {
  const auto setting = [](const char* name, unsigned otherwise) {
    bool isNumber = false;
    const unsigned value = qEnvironmentVariable(name).toUInt(&isNumber);
    return isNumber ? value : otherwise;
  };
  const unsigned seed = setting("ORVANE_RANDOM_SEED", 20261121);
  const unsigned events = setting("ORVANE_RANDOM_EVENTS", usualEvents);
  std::printf("seed %u, %u events\n", seed, events);
  random_.seed(seed);
  PutFiles();
  return events;
}

void RandomUser::AnswerDialogs() {
  QObject::connect(&dialogs_, &QTimer::timeout, form_.get(), [this] { AnswerDialog(); });
  dialogs_.start(1);
}

void RandomUser::AnyEvent() {
  const int kind = Below(1000);
  if (InStep3() && kind < 40) {
    WindowEvent(*form_);  // a redraw must not change what Step 3 says
  } else if (kind < 560) {
    MouseEvent();
  } else if (kind < 720) {
    KeyEvent();
  } else if (kind < 870) {
    ButtonEvent();
  } else if (kind < 895) {
    MenuEvent();
  } else if (kind < 925) {
    ReportWindowEvent();
  } else if (kind < 960) {
    DoubleClick();
  } else if (kind < 970) {
    DropFiles();
  } else if (kind < 980) {
    SaveToFailingDisk();
  } else if (kind < 990) {
    WindowEvent(*form_);
  } else {
    QApplication::processEvents();
  }
}

void RandomUser::GiveUpDrawing() {
  QTest::mouseClick(Canvas(), Qt::RightButton, Qt::NoModifier, Canvas()->rect().center());
}

// Mostly near points of a coarse grid, so that things meet; sometimes anywhere, even outside.
QPoint RandomUser::SomePoint() {
  if (Below(8) == 0) return {Below(Canvas()->width() + 200) - 100, Below(Canvas()->height() + 200) - 100};
  const Graph& mapping = Shapes().Mapping;
  const auto x = mapping.PixelX1 + (mapping.PixelX2 - mapping.PixelX1) * static_cast<float>(Below(9)) / 8;
  const auto y = mapping.PixelY1 + (mapping.PixelY2 - mapping.PixelY1) * static_cast<float>(Below(7)) / 6;
  return {static_cast<int>(x) + Below(7) - 3, static_cast<int>(y) + Below(7) - 3};
}

void RandomUser::MouseEvent() {
  const QPoint point = SomePoint();
  const Qt::MouseButton button = Below(10) == 0 ? Qt::RightButton : Qt::LeftButton;
  switch (Below(5)) {
    case 0:
      Drag(SomePoint(), point);
      break;
    case 1:
      QTest::mousePress(Canvas(), button, Qt::NoModifier, point);
      break;
    case 2:
      QTest::mouseRelease(Canvas(), button, Qt::NoModifier, point);
      break;
    case 3:
      DragOver(point);
      break;
    default:
      MoveMouse(point);
      break;
  }
}

void RandomUser::KeyEvent() {
  static constexpr std::array keys = {
      Qt::Key_1,      Qt::Key_2,      Qt::Key_3,    Qt::Key_4,       Qt::Key_5,      Qt::Key_6,
      Qt::Key_7,      Qt::Key_8,      Qt::Key_Left, Qt::Key_Up,      Qt::Key_Down,   Qt::Key_Right,
      Qt::Key_Space,  Qt::Key_Return, Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Escape, Qt::Key_9,
      Qt::Key_Period, Qt::Key_Minus,  Qt::Key_E};
  const Qt::Key key = OneOf(keys);
  QWidget* target = QApplication::focusWidget();
  const bool onCanvas = target == nullptr || target->window() != form_.get() || Below(3) == 0;
  QTest::keyClick(onCanvas ? Canvas() : target, key, Below(6) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
}

void RandomUser::ButtonEvent() {
  static constexpr std::array names = {"imgTool(1)",        "imgTool(2)",
                                       "imgTool(3)",        "imgTool(4)",
                                       "imgTool(5)",        "imgTool(6)",
                                       "imgTool(7)",        "imgTool(8)",
                                       "cmdNext1",          "cmdPrev2",
                                       "cmdNext2",          "cmdPrev3",
                                       "cmdAutoName(1)",    "cmdAutoName(2)",
                                       "cmdReportCounting", "cmdReportSystemEqs",
                                       "cmdReportRREF",     "cmdReportSolutions",
                                       "cmdNewCoordsOK(1)", "cmdNewCoordsCancel(1)",
                                       "cmdNewCoordsOK(2)", "cmdNewCoordsCancel(2)",
                                       "cmdOKJointReport"};
  QList<QWidget*> shown;
  for (const char* name : names) {
    auto* button = form_->findChild<QWidget*>(QString::fromLatin1(name));
    if (button != nullptr && button->isVisible()) shown.append(button);
  }
  if (!shown.isEmpty()) QTest::mouseClick(OneOf(shown), Qt::LeftButton);
}

void RandomUser::MenuEvent() {
  static constexpr std::array names = {
      "mnuFileSave",      "mnuFileSaveAs",   "mnuFileOpen",  "mnuRecentFile(1)",
      "mnuRecentFile(2)", "mnuSettings",     "mnuHelpAbout", "mnuFilePrint",
      "mnuFileNew",       "mnuHelpProgram",  "mnuLearnWhy",  "mnuLearnForces",
      "mnuLearnSteps",    "mnuLearnByJoint", "mnuLearnTry",  "mnuLearnCheck"};
  const char* name = OneOf(names);
  // Now and then only: a new truss, so that there is something to work on, and the printable report, whose
  // files take longest and which has a test of its own.
  if ((std::string(name) == "mnuFileNew" || std::string(name) == "mnuFilePrint") && Below(4) != 0) return;
  chooser_.Choice = RandomFile(Below(3));
  messages_.Answers = {YesOrNo(), YesOrNo()};
  QAction* entry = Entry(name);
  if (entry->isEnabled() && entry->isVisible()) entry->trigger();
  UseLearning();
}

// A button or a key of the printable report, for its text or its window; the printer's own dialogs are not
// for a test.
void RandomUser::UsePrintableReport(QWidget& report) {
  static constexpr std::array buttons = {"cmdReportPrint", "cmdCopyToClipboard", "cmdReportClose",
                                         "cmdReportSaveAs"};
  static constexpr std::array keys = {Qt::Key_Down,  Qt::Key_End,    Qt::Key_PageDown, Qt::Key_Tab,
                                      Qt::Key_Space, Qt::Key_Escape, Qt::Key_A,        Qt::Key_C,
                                      Qt::Key_S,     Qt::Key_P,      Qt::Key_W};
  static constexpr std::array endings = {".rtf", ".pdf", ".odt", ".html", ""};
  chooser_.Choice = directory_ / ("report" + std::string(OneOf(endings)));
  QWidget* target = report.focusWidget() != nullptr ? report.focusWidget() : &report;
  const Qt::Key key = OneOf(keys);
  if (Below(8) == 0) {
    report.resize(Below(1200), Below(900));
  } else if (Below(3) == 0) {
    const char* name = OneOf(buttons);
    QTest::mouseClick(report.findChild<QWidget*>(QString::fromLatin1(name)), Qt::LeftButton);
  } else {
    QTest::keyClick(target, key, Below(2) == 0 ? Qt::ControlModifier : Qt::NoModifier);
  }
}

// Whatever dialog is open gets a few keys and is then closed.
void RandomUser::AnswerDialog() {
  // In a narrow window a button opens the rest of the menu bar, and waits for a choice.
  if (QWidget* popup = QApplication::activePopupWidget()) {
    popup->close();
    return;
  }
  QWidget* dialog = QApplication::activeModalWidget();
  if (dialog == nullptr) return;
  if (dialog->objectName() == QStringLiteral("frmReport")) {
    // Later, because it may open a dialog in turn, which this function must be free to answer.
    QTimer::singleShot(0, dialog, [this, dialog] { UsePrintableReport(*dialog); });
    return;
  }
  if (dialog->objectName() == QStringLiteral("printPreview")) {
    dialog->close();
    return;
  }
  QWidget* target = dialog->focusWidget() != nullptr ? dialog->focusWidget() : dialog;
  static constexpr std::array typed = {"7", "A1", "-3", "1e3", "", "0", "x,y\"z"};
  QTest::keyClicks(target, QString::fromLatin1(OneOf(typed)));
  QTest::keyClick(target, Below(2) == 0 ? Qt::Key_Return : Qt::Key_Escape);
  if (QApplication::activeModalWidget() == dialog) QTest::keyClick(dialog, Qt::Key_Escape);
}
