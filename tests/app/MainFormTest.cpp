// The main window as it starts, its way through the steps, and what is enabled where.
#include <QScreen>

#include "support/MainFormFixture.h"

namespace {

const QString Step1Text = QStringLiteral(" Step 1: Design the truss. ");
const QString Step2Text = QStringLiteral(
    " Step 2: Name the member and support forces and joints by clicking on them.  Unamed ones are marked [ "
    "] ");
const QString Step3Text = QStringLiteral(
    " Step 3: View and print the reports.  Click on a joint to see the x and y equations for that joint. ");

void PressKeys(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(&window, key, modifiers);
  QApplication::processEvents();
}

// --- start-up

TEST_F(MainFormTest, StartsWithTheInstructionsAndNothingToBeDoneBeforeThem) {
  Shown();
  EXPECT_TRUE(Widget("frInstruct1")->isVisible());
  EXPECT_FALSE(FileMenu()->menuAction()->isEnabled());
  EXPECT_FALSE(Entry("mnuSettings")->isEnabled());
  EXPECT_TRUE(Find<QMenu>("mnuHelp")->menuAction()->isEnabled());
  EXPECT_FALSE(Widget("cmdNext1")->isEnabled());
  EXPECT_EQ(form_->windowTitle(), QStringLiteral("Orvane - [untitled]"));
  EXPECT_EQ(Status(), Step1Text);
  EXPECT_EQ(Status(2), QString());
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(MainFormTest, StartsAtTheTopOfTheScreensMiddle) {
  Shown();
  EXPECT_EQ(form_->width(), 566);
  const QRect screen = form_->screen()->availableGeometry();
  EXPECT_EQ(form_->x(), (screen.width() - 566) / 2);
  EXPECT_EQ(form_->y(), screen.height() / 20);
  EXPECT_LE(form_->frameGeometry().bottom(), screen.bottom());
}

TEST_F(MainFormTest, CommandsHaveNoShortcutBehindTheInstructions) {
  Shown();
  PressKeys(*form_, Qt::Key_O, Qt::ControlModifier);
  PressKeys(*form_, Qt::Key_Right, Qt::AltModifier);
  EXPECT_TRUE(chooser_.Opened.empty());
  EXPECT_EQ(Status(), Step1Text);
}

TEST_F(MainFormTest, ClosingTheInstructionsOpensTheMenus) {
  Started();
  EXPECT_FALSE(Widget("frInstruct1")->isVisible());
  EXPECT_TRUE(FileMenu()->menuAction()->isEnabled());
  EXPECT_TRUE(Entry("mnuSettings")->isEnabled());
  EXPECT_TRUE(Widget("cmdNext1")->isEnabled());
  EXPECT_EQ(Status(), Step1Text);
  EXPECT_TRUE(Canvas()->hasFocus());
}

TEST_F(MainFormTest, AFileOnTheCommandLineOpensWithoutTheInstructions) {
  Truss triangle = LoadedTriangle();
  const std::string path = directory_.Put("start.trs", TrussText(triangle));
  Shown().OpenAtStart(path, false);
  EXPECT_FALSE(Widget("frInstruct1")->isVisible());
  EXPECT_TRUE(FileMenu()->menuAction()->isEnabled());
  EXPECT_EQ(form_->windowTitle().toStdString(), "Orvane - " + path);
  EXPECT_EQ(truss_.NumMembers, 3);
  EXPECT_EQ(Caption("mnuRecentFile(1)").toStdString(), path);
  EXPECT_EQ(truss_.Name(truss_.Members[1].NameLabel1), "AB");
}

TEST_F(MainFormTest, AFileOnTheCommandLineCanBeNamedAtOnce) {
  Truss triangle = LoadedTriangle();
  Shown().OpenAtStart(directory_.Put("start.trs", TrussText(triangle)), true);
  EXPECT_EQ(truss_.Name(truss_.Supports[1].NameLabel1), "A");
  EXPECT_EQ(truss_.Name(truss_.Members[1].NameLabel1), "D");
  EXPECT_EQ(truss_.Name(truss_.Joints[3].NameLabel), "3");
}

TEST_F(MainFormTest, AFileOnTheCommandLineThatIsNotThereIsReportedInTheStatusBar) {
  Shown().OpenAtStart(directory_ / "none.trs", false);
  EXPECT_THAT(Status().toStdString(),
              testing::StartsWith(" Nothing was read from none.trs: there is no such"));
  EXPECT_FALSE(Widget("frInstruct1")->isVisible());
}

// --- the steps

TEST_F(MainFormTest, OnlyThePanelOfTheStepIsShown) {
  Started();
  const auto shown = [this] {
    return std::vector{Widget("picToolBox")->isVisible(), Widget("picStep2")->isVisible(),
                       Widget("picStep3")->isVisible()};
  };
  EXPECT_EQ(shown(), (std::vector{true, false, false}));
  Click("cmdNext1");
  EXPECT_EQ(shown(), (std::vector{false, true, false}));
  EXPECT_EQ(Status(), Step2Text);
  Click("cmdNext2");
  EXPECT_EQ(shown(), (std::vector{false, false, true}));
  EXPECT_EQ(Status(), Step3Text);
  Click("cmdPrev3");
  EXPECT_EQ(shown(), (std::vector{false, true, false}));
  EXPECT_EQ(Status(), Step2Text);
  Click("cmdPrev2");
  EXPECT_EQ(shown(), (std::vector{true, false, false}));
  EXPECT_EQ(Status(), Step1Text);
}

TEST_F(MainFormTest, AltAndTheArrowKeysWalkThroughTheSteps) {
  Started();
  PressKeys(*form_, Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(Status(), Step2Text);
  PressKeys(*form_, Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(Status(), Step3Text);
  form_->activateWindow();
  PressKeys(*form_, Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(Status(), Step3Text) << "there is no Step 4";
  PressKeys(*form_, Qt::Key_Left, Qt::AltModifier);
  PressKeys(*form_, Qt::Key_Left, Qt::AltModifier);
  PressKeys(*form_, Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Status(), Step1Text);
}

TEST_F(MainFormTest, AnEmptyTrussGoesThroughAllStepsWithoutAMatrix) {
  Started();
  Click("cmdNext1");
  Click("cmdAutoName(1)");
  Click("cmdAutoName(2)");
  Click("cmdNext2");
  EXPECT_TRUE(Report()->isVisible()) << "the Counting report is shown all the same";
  for (const char* button :
       {"cmdReportCounting", "cmdReportSystemEqs", "cmdReportRREF", "cmdReportSolutions"}) {
    Click(button);
  }
  QTest::mouseClick(Canvas(), Qt::LeftButton, Qt::NoModifier, QPoint(200, 200));
  Click("cmdPrev3");
  Click("cmdPrev2");
  EXPECT_EQ(Status(), Step1Text);
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(MainFormTest, AForceAloneLeavesNothingUnknown) {
  Started();
  OpenInStep3(TrussBuilder().Force(3, 3, 0, -100).Joint(3, 3, "A"));
  EXPECT_TRUE(Report()->isVisible());
  ClickLabel(JointLabel("A"));
  EXPECT_EQ(Find<QLineEdit>("txtYEqn")->text(), QStringLiteral("0 = 100."));
}

TEST_F(MainFormTest, NamesAndArrowsAreOnTheDrawingFromStep2On) {
  Started();
  OpenTruss(LoadedTriangle());
  EXPECT_EQ(NumVisibleLabels() + NumVisibleArrowLines(), 0);
  Click("cmdNext1");
  EXPECT_EQ(NumVisibleLabels(), 3 + 3 + 3) << "reactions, members, joints";
  EXPECT_EQ(NumVisibleArrowLines(), 4 * (3 + 2 * 3));
  Click("cmdNext2");
  EXPECT_EQ(NumVisibleLabels(), 9);
  Click("cmdPrev3");
  Click("cmdPrev2");
  EXPECT_EQ(NumVisibleLabels() + NumVisibleArrowLines(), 0);
  Click("cmdNext1");
  EXPECT_EQ(NumVisibleLabels(), 9);
}

TEST_F(MainFormTest, WhatIsErasedStaysHiddenInEveryStep) {
  Started();
  Draw(TrussBuilder().Member(2, 2, 18, 2).Member(2, 2, 10, 10).ThenErased().Roller(2, 2).ThenErased());
  Click("cmdNext1");
  EXPECT_EQ(NumVisibleLabels(), 1 + 2) << "a member and its two joints";
  Click("cmdPrev2");
  Click("cmdNext1");
  EXPECT_EQ(NumVisibleLabels(), 3);
}

TEST_F(MainFormTest, AToolStaysSelectedUntilStep2) {
  Started();
  auto* tool = Find<QToolButton>("imgTool(3)");
  QTest::mouseClick(tool, Qt::LeftButton);
  EXPECT_TRUE(tool->isChecked());
  Click("cmdNext1");
  Click("cmdPrev2");
  EXPECT_FALSE(tool->isChecked());
}

TEST_F(MainFormTest, AToolUnderTheMouseExplainsItself) {
  Started();
  QTest::mouseMove(Find<QToolButton>("imgTool(1)"), QPoint(10, 10));
  QTest::mouseMove(Find<QToolButton>("imgTool(2)"), QPoint(10, 10));
  EXPECT_EQ(Status().toStdString(), ToolHint(2));
}

// --- help

TEST_F(MainFormTest, TheAboutBoxOpensAndCloses) {
  Started();
  InModalWindow([](QWidget& window) {
    EXPECT_EQ(window.objectName(), QStringLiteral("AboutForm"));
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);
  });
  Trigger("mnuHelpAbout");
  EXPECT_EQ(modalWindows_, 1);
}

// --- access keys

TEST_F(MainFormTest, EveryMenuEntryAndButtonHasAnAccessKey) {
  Started();
  Click("cmdNext1");
  for (const QAction* entry : form_->findChildren<QAction*>()) {
    const bool isNamed = entry->objectName().startsWith(QStringLiteral("mnu"));
    if (!isNamed || entry->isSeparator() || entry->objectName().startsWith(QStringLiteral("mnuRecent")))
      continue;
    EXPECT_TRUE(entry->text().contains(u'&')) << entry->text().toStdString();
  }
  for (const char* panel : {"picToolBox", "picStep2", "picStep3"}) {
    for (const QPushButton* button : Widget(panel)->findChildren<QPushButton*>()) {
      EXPECT_FALSE(button->shortcut().isEmpty()) << button->text().toStdString();
    }
  }
}

}  // namespace
