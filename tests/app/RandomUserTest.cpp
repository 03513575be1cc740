// A user who does anything at all: random mouse, key, button and menu events on the real window, from a seed.
// After each hundred the document must be sane. ORVANE_RANDOM_EVENTS and ORVANE_RANDOM_SEED choose a longer
// run or repeat one.
#include <array>
#include <random>

#include "analysis/Analysis.h"
#include "analysis/Classification.h"
#include "document/JointList.h"
#include "support/WindowEditingFixture.h"

namespace {

class RandomUser : public WindowEditingFixture {
 protected:
  static unsigned Setting(const char* name, unsigned otherwise) {
    bool isNumber = false;
    const unsigned value = qEnvironmentVariable(name).toUInt(&isNumber);
    return isNumber ? value : otherwise;
  }

  int Below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random_); }

  // Mostly near points of a coarse grid, so that things meet; sometimes anywhere, even outside.
  QPoint SomePoint() {
    if (Below(8) == 0) return {Below(Canvas()->width() + 200) - 100, Below(Canvas()->height() + 200) - 100};
    const Graph& mapping = Shapes().Mapping;
    const auto x = mapping.PixelX1 + (mapping.PixelX2 - mapping.PixelX1) * static_cast<float>(Below(9)) / 8;
    const auto y = mapping.PixelY1 + (mapping.PixelY2 - mapping.PixelY1) * static_cast<float>(Below(7)) / 6;
    return {static_cast<int>(x) + Below(7) - 3, static_cast<int>(y) + Below(7) - 3};
  }

  void MouseEvent() {
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

  void KeyEvent() {
    static constexpr std::array keys = {
        Qt::Key_1,      Qt::Key_2,      Qt::Key_3,    Qt::Key_4,       Qt::Key_5,      Qt::Key_6,
        Qt::Key_7,      Qt::Key_8,      Qt::Key_Left, Qt::Key_Up,      Qt::Key_Down,   Qt::Key_Right,
        Qt::Key_Space,  Qt::Key_Return, Qt::Key_Tab,  Qt::Key_Backtab, Qt::Key_Escape, Qt::Key_9,
        Qt::Key_Period, Qt::Key_Minus,  Qt::Key_E};
    const Qt::Key key = keys.at(static_cast<std::size_t>(Below(static_cast<int>(keys.size()))));
    QWidget* target = QApplication::focusWidget();
    const bool onCanvas = target == nullptr || target->window() != form_.get() || Below(3) == 0;
    QTest::keyClick(onCanvas ? Canvas() : target, key, Below(6) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
  }

  void ButtonEvent() {
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
    const char* name = names.at(static_cast<std::size_t>(Below(static_cast<int>(names.size()))));
    auto* button = form_->findChild<QWidget*>(QString::fromLatin1(name));
    if (button != nullptr && button->isVisible()) QTest::mouseClick(button, Qt::LeftButton);
  }

  void MenuEvent() {
    static constexpr std::array names = {
        "mnuFileSave", "mnuFileSaveAs", "mnuFileOpen",  "mnuRecentFile(1)", "mnuRecentFile(2)",
        "mnuSettings", "mnuHelpAbout",  "mnuFilePrint", "mnuFileNew",       "mnuHelpProgram"};
    const char* name = names.at(static_cast<std::size_t>(Below(static_cast<int>(names.size()))));
    // A new truss now and then only, so that there is something to work on.
    if (std::string(name) == "mnuFileNew" && Below(4) != 0) return;
    chooser_.Choice = directory_ / ("random" + std::to_string(Below(3)) + ".trs");
    messages_.Answers = {Below(2) == 0 ? MessageAnswer::Yes : MessageAnswer::No};
    QAction* entry = Entry(name);
    if (entry->isEnabled() && entry->isVisible()) entry->trigger();
  }

  // A button or a key of the printable report, for its text or its window; the printer's own dialogs are not
  // for a test.
  void UsePrintableReport(QWidget& report) {
    static constexpr std::array buttons = {"cmdReportPrint", "cmdCopyToClipboard", "cmdReportClose",
                                           "cmdReportSaveAs"};
    static constexpr std::array keys = {Qt::Key_Down,  Qt::Key_End,    Qt::Key_PageDown, Qt::Key_Tab,
                                        Qt::Key_Space, Qt::Key_Escape, Qt::Key_A,        Qt::Key_C,
                                        Qt::Key_S,     Qt::Key_P,      Qt::Key_W};
    static constexpr std::array endings = {".rtf", ".pdf", ".odt", ".html", ""};
    chooser_.Choice = directory_ / ("report" + std::string(endings.at(static_cast<std::size_t>(Below(5)))));
    QWidget* target = report.focusWidget() != nullptr ? report.focusWidget() : &report;
    const Qt::Key key = keys.at(static_cast<std::size_t>(Below(static_cast<int>(keys.size()))));
    if (Below(8) == 0) {
      report.resize(Below(1200), Below(900));
    } else if (Below(3) == 0) {
      const char* name = buttons.at(static_cast<std::size_t>(Below(static_cast<int>(buttons.size()))));
      QTest::mouseClick(report.findChild<QWidget*>(QString::fromLatin1(name)), Qt::LeftButton);
    } else {
      QTest::keyClick(target, key, Below(2) == 0 ? Qt::ControlModifier : Qt::NoModifier);
    }
  }

  // Whatever dialog is open gets a few keys and is then closed.
  void AnswerDialog() {
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
    QTest::keyClicks(target, QString::fromLatin1(typed.at(static_cast<std::size_t>(Below(7)))));
    QTest::keyClick(target, Below(2) == 0 ? Qt::Key_Return : Qt::Key_Escape);
    if (QApplication::activeModalWidget() == dialog) QTest::keyClick(dialog, Qt::Key_Escape);
  }

  void AnyEvent() {
    const int kind = Below(100);
    if (kind < 60) {
      MouseEvent();
    } else if (kind < 78) {
      KeyEvent();
    } else if (kind < 94) {
      ButtonEvent();
    } else if (kind < 98) {
      MenuEvent();
    } else if (kind < 99) {
      ResizeInside(150 + Below(700), 150 + Below(600));
    } else {
      QApplication::processEvents();
    }
  }

  void CheckDocument() {
    const auto isLabel = [this](LabelIndex label) { return label >= 1 && label <= truss_.NumLabels; };
    const auto isArrow = [this](int line) { return line >= 4 && line <= truss_.NumArrowLines; };
    const bool drawing = QApplication::mouseButtons() != Qt::NoButton;
    for (const MemberRec& member : truss_.MembersInUse()) {
      if (!member.Live || member.NameLabel1 == 0) continue;  // erased, or still being drawn
      EXPECT_TRUE(drawing || member.X1 != member.X2 || member.Y1 != member.Y2);
      EXPECT_TRUE(isLabel(member.NameLabel1) && isLabel(member.NameLabel2));
      EXPECT_TRUE(isArrow(member.ArrowLine1) && isArrow(member.ArrowLine2));
    }
    for (const SupportRec& support : truss_.SupportsInUse()) {
      if (!support.Live) continue;
      EXPECT_TRUE(support.TypeIndex >= 1 && support.TypeIndex <= LastSupportType);
      EXPECT_TRUE(isLabel(support.NameLabel1) && (!support.IsClamp() || isLabel(support.NameLabel2)));
    }
    for (const JointRec& joint : truss_.JointsInUse()) EXPECT_TRUE(isLabel(joint.NameLabel));
  }

  // On a copy, with any drag of the window left alone.
  void CheckSavingAndAnalysis() {
    Truss copy = truss_;
    ASSERT_TRUE(CheckJoints(copy));
    AnalysisOf(copy);
    bool hasQuote = false;
    for (int i = 1; i <= copy.NumLabels; ++i) {
      hasQuote = hasQuote || copy.Labels[i].Caption.find('"') != std::string::npos;
    }
    if (hasQuote) return;  // a quote in a name does not survive a save
    const std::string written = TrussText(copy);
    Truss again;
    ASSERT_FALSE(ReadTrussText(again, CanvasBounds{}, written));
    const auto withoutSwitches = [](const std::string& text) { return text.substr(text.find("\r\n", 12)); };
    EXPECT_EQ(withoutSwitches(TrussText(again)), withoutSwitches(written));
  }

  // Seeds the run and says how it can be repeated. Returns the number of events.
  unsigned Begin(unsigned usualEvents) {
    const unsigned seed = Setting("ORVANE_RANDOM_SEED", 20261121);
    const unsigned events = Setting("ORVANE_RANDOM_EVENTS", usualEvents);
    std::printf("seed %u, %u events\n", seed, events);
    random_.seed(seed);
    return events;
  }

  void AnswerDialogs() {
    QObject::connect(&dialogs_, &QTimer::timeout, form_.get(), [this] { AnswerDialog(); });
    dialogs_.start(1);
  }

  static void AnalysisOf(Truss& truss) { SolveTruss(truss); }

  std::mt19937 random_;
  QTimer dialogs_;
};

TEST_F(RandomUser, NeverBreaksTheDocument) {
  const unsigned events = Begin(3000);
  for (int i = 0; i < 3; ++i) directory_.Put("random" + std::to_string(i) + ".trs", TrussText(truss_));
  Start();
  AnswerDialogs();
  for (unsigned i = 1; i <= events && !HasFailure(); ++i) {
    AnyEvent();
    if (i % 100 != 0) continue;
    SCOPED_TRACE("after event " + std::to_string(i));
    CheckDocument();
    Key(Qt::Key_Escape);  // a member that is still being drawn has no labels yet
    CheckSavingAndAnalysis();
  }
}

TEST_F(RandomUser, LeavesThePrintableReportInAnyWay) {
  const unsigned openings = Begin(3000) / 300;
  Start();
  OpenInStep3(LoadedTriangle());
  AnswerDialogs();
  for (unsigned i = 1; i <= openings && !HasFailure(); ++i) {
    messages_.Answers = {Below(2) == 0 ? MessageAnswer::Yes : MessageAnswer::No};
    Trigger("mnuFilePrint");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  }
}

}  // namespace
