// The menu Learn in the main window: where it stands, what it offers in which step, and that its windows
// never show another truss than the one on the canvas.
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <sstream>

#include "app/ExplanationReport.h"
#include "explanation/ChecksWindow.h"
#include "explanation/MotionView.h"
#include "explanation/WhyWindow.h"
#include "explanation/byjoint/ByJointWindow.h"
#include "explanation/forces/ForcesWindow.h"
#include "explanation/steps/StepsWindow.h"
#include "naming/Naming.h"
#include "platform/qt/QtText.h"
#include "practice/ExerciseWindow.h"
#include "practice/TryWindow.h"
#include "support/LoadedTriangle.h"
#include "support/MainFormFixture.h"

namespace {

Truss Parallelogram() {
  return TrussBuilder()
      .Member(2, 2, 3, 6, "AC")
      .Member(10, 2, 11, 6, "BD")
      .Member(3, 6, 11, 6, "CD")
      .Clamp(2, 2, "Ax", "Ay")
      .Clamp(10, 2, "Bx", "By")
      .Force(3, 6, 1000, 0)
      .Joint(2, 2, "A")
      .Joint(10, 2, "B")
      .Joint(3, 6, "C")
      .Joint(11, 6, "D");
}

// Two ends that nearly meet.
Truss NearJoints() {
  return TrussBuilder().Member(2, 2, 10, 2).Member(10.02F, 2, 10, 8).Clamp(2, 2).Roller(10, 8);
}

class MainFormLearn : public MainFormTest {
 protected:
  template <class Window>
  static Window* WindowOf() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (auto* found = qobject_cast<Window*>(window)) return found;
    }
    ADD_FAILURE() << "there is no such window";
    return nullptr;
  }
  static WhyWindow& Why() { return *WindowOf<WhyWindow>(); }
  static ChecksWindow& Checks() { return *WindowOf<ChecksWindow>(); }
  static QString WhyText() { return Why().findChild<QPlainTextEdit*>()->toPlainText(); }
  static QListWidget& List() { return *Checks().findChild<QListWidget*>(); }

  // Keys go where the user is.
  static void Press(QWidget& window, Qt::Key key) {
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::keyClick(window.focusWidget() != nullptr ? window.focusWidget() : &window, key);
  }

  QMenu* LearnMenuOf() const { return Find<QMenu>("mnuLearn"); }

  // The texts of the menu bar without their marks.
  QStringList MenuBar() const {
    QStringList texts;
    for (const QAction* action : form_->menuBar()->actions()) texts.append(action->text().remove(u'&'));
    return texts;
  }

  QString ReportOnWhy() {
    const TrussAnalysis analysis = SolveTruss(truss_);
    std::ostringstream report;
    WriteWhy(report, ExplainTruss(truss_, analysis), {truss_.Settings.SigFigs, {}});
    return QString::fromStdString(report.str());
  }
};

TEST_F(MainFormLearn, StandsBetweenSettingsAndHelp) {
  Started();
  EXPECT_EQ(MenuBar(), (QStringList{QStringLiteral("File"), QStringLiteral("Settings"),
                                    QStringLiteral("Learn"), QStringLiteral("Help")}));
  QStringList entries;
  for (const QAction* action : LearnMenuOf()->actions()) entries.append(action->text().remove(u'&'));
  EXPECT_EQ(entries,
            (QStringList{QStringLiteral("Try it yourself"), QStringLiteral("Why this conclusion"),
                         QStringLiteral("Forces on the truss"), QStringLiteral("Elimination, step by step"),
                         QStringLiteral("Joint by joint"), QStringLiteral("Exercise sheets"),
                         QStringLiteral("Check the drawing")}));
}

// The status bar would paint a second text over the one that stands there.
TEST_F(MainFormLearn, TheMenuSaysItsTextOnceInTheStatusBar) {
  Started();
  OpenInStep3(Parallelogram());
  LearnMenuOf()->popup(form_->mapToGlobal(QPoint(40, 20)));
  for (const QAction* entry : LearnMenuOf()->actions()) {
    QTest::keyClick(LearnMenuOf(), Qt::Key_Down);
    EXPECT_EQ(entry->statusTip(), QString());
    EXPECT_EQ(form_->statusBar()->currentMessage(), QString());
  }
  EXPECT_TRUE(Status(1).contains(QStringLiteral("Learn"), Qt::CaseInsensitive));
  LearnMenuOf()->close();
}

TEST_F(MainFormLearn, ExplainsInStep3OnlyAndChecksInEveryStep) {
  Started();
  OpenTruss(Parallelogram());
  EXPECT_FALSE(Entry("mnuLearnWhy")->isEnabled());
  EXPECT_TRUE(Entry("mnuLearnWhy")->toolTip().contains(QStringLiteral("only in Step 3")));
  EXPECT_TRUE(Entry("mnuLearnCheck")->isEnabled());
  Click("cmdNext1");
  EXPECT_FALSE(Entry("mnuLearnWhy")->isEnabled());
  EXPECT_TRUE(Entry("mnuLearnCheck")->isEnabled());
  Click("cmdNext2");
  EXPECT_TRUE(Entry("mnuLearnWhy")->isEnabled());
  EXPECT_FALSE(Entry("mnuLearnWhy")->toolTip().contains(QStringLiteral("only")));
  EXPECT_TRUE(Entry("mnuLearnCheck")->isEnabled());
  Click("cmdPrev3");
  EXPECT_FALSE(Entry("mnuLearnWhy")->isEnabled());
}

TEST_F(MainFormLearn, TheStepsOfTheEliminationAreThoseOfTheTrussInStep3) {
  Started();
  OpenInStep3(Parallelogram());
  Entry("mnuLearnSteps")->trigger();
  const auto& window = *WindowOf<StepsWindow>();
  EXPECT_TRUE(window.isVisible());
  const auto& list = *window.findChild<QListView*>(QStringLiteral("lstSteps"));
  const auto& matrix = *window.findChild<QTableView*>();
  EXPECT_GT(list.model()->rowCount(), 10);
  EXPECT_EQ(matrix.model()->rowCount(), 2 * truss_.NumJoints);
  Click("cmdPrev3");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(list.model()->rowCount(), 0) << "the window forgets a truss that may change";
  EXPECT_EQ(matrix.model()->rowCount(), 0);
}

TEST_F(MainFormLearn, JointByJointLightsUpTheJointOnTheDrawing) {
  Started();
  OpenInStep3(Parallelogram());
  Entry("mnuLearnByJoint")->trigger();
  auto& window = *WindowOf<ByJointWindow>();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  auto& next = *window.findChild<QPushButton*>(QStringLiteral("cmdNextStep"));
  const auto& steps = *window.findChild<QListWidget*>();
  const CanvasWidget& canvas = *Canvas();
  while (next.isEnabled() && !steps.currentItem()->text().contains(QStringLiteral("Joint")))
    QTest::mouseClick(&next, Qt::LeftButton);
  ASSERT_TRUE(steps.currentItem()->text().contains(QStringLiteral("Joint")));
  EXPECT_TRUE(canvas.PointedAt());
  Press(window, Qt::Key_Escape);
  EXPECT_FALSE(canvas.PointedAt());
  Click("cmdPrev3");
  EXPECT_EQ(steps.count(), 0) << "the window forgets a truss that may change";
}

// Seen with the names of its forces and joints; the ring is drawn around them.
TEST_F(MainFormLearn, TheRingAroundAJointLeavesItsNameToBeRead) {
  Started();
  OpenInStep3(LoadedTriangle());
  CanvasWidget& canvas = *Canvas();
  const Truss truss = LoadedTriangle();
  for (const JointRec& joint : truss.Joints.First(3)) {
    canvas.PointAt(std::nullopt);
    const QImage plain = canvas.grab().toImage();
    canvas.PointAt(PixelPoint{joint.X, joint.Y});
    const QImage ringed = canvas.grab().toImage();
    EXPECT_NE(plain, ringed);
    int numLabels = 0;
    const Drawing& drawing = canvas.Shown();
    for (const LabelPlace& label : drawing.lblRodJoint.First(drawing.lblRodJoint.Size())) {
      if (!label.Visible) continue;
      ++numLabels;
      const QRect box =
          QRectF(double{label.Left}, double{label.Top}, double{label.Width}, double{label.Height})
              .toAlignedRect();
      EXPECT_EQ(plain.copy(box), ringed.copy(box));
    }
    EXPECT_GE(numLabels, 3);
  }
}

TEST_F(MainFormLearn, AHintLightsUpTheJointOnTheDrawing) {
  Started();
  OpenInStep3(LoadedTriangle());
  Entry("mnuLearnTry")->trigger();
  auto& window = *WindowOf<TryWindow>();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  for (const char* value : {"0", "1000", "1000"}) {
    QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(value));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QApplication::processEvents();
  }
  QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("cmdHint")), Qt::LeftButton);
  EXPECT_TRUE(Canvas()->PointedAt());
  Press(window, Qt::Key_Escape);
  EXPECT_FALSE(Canvas()->PointedAt());
  Entry("mnuLearnTry")->trigger();
  Click("cmdPrev3");
  EXPECT_FALSE(window.isVisible()) << "the truss may change";
}

TEST_F(MainFormLearn, ExerciseSheetsAreMadeOfTheTrussInStep3) {
  Started();
  OpenInStep3(LoadedTriangle());
  Entry("mnuLearnExercise")->trigger();
  auto& window = *WindowOf<ExerciseWindow>();
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.Set().All.size() == 10; }));
}

TEST_F(MainFormLearn, HasNothingToExplainWithoutUnknownForces) {
  Started();
  OpenInStep3(TrussBuilder().Force(3, 3, 100, 0));
  EXPECT_FALSE(Entry("mnuLearnWhy")->isEnabled());
  EXPECT_TRUE(Entry("mnuLearnWhy")->toolTip().contains(QStringLiteral("unknown force")));
}

TEST_F(MainFormLearn, TheOpenMenuSaysInTheStatusBarWhyAnEntryIsNotOffered) {
  Started();
  const QString before = Status();
  LearnMenuOf()->popup(form_->mapToGlobal(QPoint(0, 30)));
  EXPECT_TRUE(Status().contains(QStringLiteral("only in Step 3"))) << Status().toStdString();
  LearnMenuOf()->hide();
  EXPECT_EQ(Status(), before);
}

// A letter that a button of the step has too would open neither.
TEST_F(MainFormLearn, ItsLetterIsThatOfNoButtonOfTheStep) {
  Started();
  OpenTruss(Parallelogram());
  const auto expectFree = [this](int step) {
    const QKeySequence letter = QKeySequence::mnemonic(LearnMenuOf()->title());
    ASSERT_FALSE(letter.isEmpty());
    for (const QAbstractButton* button : form_->findChildren<QAbstractButton*>()) {
      if (!button->isVisible()) continue;
      EXPECT_NE(QKeySequence::mnemonic(button->text()), letter) << step;
    }
    for (const QAction* action : form_->menuBar()->actions()) {
      if (action == LearnMenuOf()->menuAction()) continue;
      EXPECT_NE(QKeySequence::mnemonic(action->text()), letter) << step;
    }
  };
  expectFree(1);
  Click("cmdNext1");
  expectFree(2);
  Click("cmdNext2");
  expectFree(3);
}

TEST_F(MainFormLearn, ShowsTheExplanationOfTheTruss) {
  Started();
  OpenInStep3(Parallelogram());
  Trigger("mnuLearnWhy");
  ASSERT_TRUE(Why().isVisible());
  EXPECT_EQ(WhyText() + QLatin1Char('\n'), ReportOnWhy());
  EXPECT_EQ(Why().findChild<QComboBox*>()->currentText(), QStringLiteral("Motion 1: C and D move"));
  Press(Why(), Qt::Key_Escape);
  EXPECT_FALSE(Why().isVisible());
  Trigger("mnuLearnWhy");
  EXPECT_TRUE(Why().isVisible()) << "as often as one likes";
}

TEST_F(MainFormLearn, ShowsTheForcesOfTheSolutionsInStep3) {
  Started();
  OpenTruss(LoadedTriangle());
  EXPECT_FALSE(Entry("mnuLearnForces")->isEnabled());
  OpenInStep3(LoadedTriangle());
  Trigger("mnuLearnForces");
  auto* window = WindowOf<ForcesWindow>();
  ASSERT_TRUE(window->isVisible());
  const auto* list = window->findChild<QTableWidget*>();
  ASSERT_EQ(list->rowCount(), truss_.NumMembers + 3);
  const TrussAnalysis analysis = SolveTruss(truss_);
  for (int k = 1; k <= list->rowCount(); ++k) {
    EXPECT_EQ(list->item(k - 1, 0)->text().toStdString(), analysis.System.UnknownList[k].Name);
    EXPECT_EQ(FromQt(list->item(k - 1, 3)->text()), TableNumber(*analysis.Reading.Values[k], {}));
  }
  Click("cmdPrev3");
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(list->rowCount(), 0);
}

// A window costs its controls; who asks for none pays for none.
TEST_F(MainFormLearn, MakesAWindowWhenItIsFirstAskedForAndKeepsIt) {
  const auto numWindows = [] {
    return std::ranges::count_if(QApplication::topLevelWidgets(),
                                 [](QWidget* window) { return qobject_cast<WhyWindow*>(window) != nullptr; });
  };
  Started();
  OpenInStep3(Parallelogram());
  EXPECT_EQ(numWindows(), 0);
  Trigger("mnuLearnWhy");
  EXPECT_EQ(numWindows(), 1);
  const WhyWindow* made = &Why();
  Why().close();
  Trigger("mnuLearnWhy");
  EXPECT_EQ(numWindows(), 1);
  EXPECT_EQ(&Why(), made);
}

TEST_F(MainFormLearn, AnExplanationNeverOutlivesItsStep) {
  Started();
  OpenInStep3(Parallelogram());
  Trigger("mnuLearnWhy");
  Click("cmdPrev3");
  EXPECT_FALSE(Why().isVisible());
  EXPECT_EQ(WhyText(), QString());
  Trigger("mnuLearnWhy");
  EXPECT_FALSE(Why().isVisible());
  Rename(truss_, truss_.Members[1].NameLabel1, "renamed");
  Click("cmdNext2");
  EXPECT_FALSE(Why().isVisible());
  Trigger("mnuLearnWhy");
  EXPECT_TRUE(WhyText().contains(QStringLiteral("renamed")));
}

TEST_F(MainFormLearn, ANewTrussClosesTheExplanationOfTheOld) {
  Started();
  OpenInStep3(Parallelogram());
  Trigger("mnuLearnWhy");
  Trigger("mnuFileNew");
  EXPECT_FALSE(Why().isVisible());
  EXPECT_EQ(WhyText(), QString());
  EXPECT_FALSE(Why().findChild<MotionView*>()->Drawn().has_value());
  OpenInStep3(LoadedTriangle());
  Trigger("mnuLearnWhy");
  EXPECT_EQ(WhyText() + QLatin1Char('\n'), ReportOnWhy());
}

TEST_F(MainFormLearn, OpensBesideTheOtherWindowsOnTheScreen) {
  Started();
  OpenInStep3(Parallelogram());
  for (const char* entry : {"mnuLearnWhy", "mnuLearnCheck"}) Trigger(entry);
  for (const QWidget* window : {static_cast<QWidget*>(&Why()), static_cast<QWidget*>(&Checks())}) {
    EXPECT_TRUE(window->screen()->availableGeometry().contains(window->frameGeometry()));
    EXPECT_NE(window->frameGeometry().topLeft(), Report()->frameGeometry().topLeft());
  }
  EXPECT_NE(Why().frameGeometry().topLeft(), Checks().frameGeometry().topLeft());
}

TEST_F(MainFormLearn, AllItsWindowsOpenWholeAndLargeEnoughToBeRead) {
  Started();
  OpenInStep3(Parallelogram());
  for (const char* entry : {"mnuLearnWhy", "mnuLearnCheck", "mnuLearnForces", "mnuLearnByJoint"}) {
    SCOPED_TRACE(entry);
    const auto shown = [] {
      QWidgetList windows = QApplication::topLevelWidgets();
      windows.removeIf([](const QWidget* window) { return !window->isVisible(); });
      return windows;
    };
    const QWidgetList before = shown();
    Trigger(entry);
    QWidgetList opened = shown();
    opened.removeIf([&](QWidget* window) { return before.contains(window); });
    ASSERT_EQ(opened.size(), 1);
    const QWidget* window = opened.first();
    const QRect screen = window->screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(window->frameGeometry()));
    EXPECT_GE(window->height(), entry == std::string("mnuLearnCheck") ? 170 : 300);
    EXPECT_GE(window->width(), 300);
  }
}

// In the order in which they are asked for, none hides another.
TEST_F(MainFormLearn, TheSecondWindowLeavesTheTitleOfTheFirstFree) {
  Started();
  OpenInStep3(Parallelogram());
  for (const auto& [first, second] :
       {std::pair("mnuLearnWhy", "mnuLearnCheck"), std::pair("mnuLearnCheck", "mnuLearnWhy")}) {
    Trigger(first);
    Trigger(second);
    const QRect why = Why().frameGeometry();
    const QRect checks = Checks().frameGeometry();
    const QRect& above = first == std::string("mnuLearnWhy") ? why : checks;
    const QRect& later = first == std::string("mnuLearnWhy") ? checks : why;
    EXPECT_FALSE(later.contains(above.topLeft())) << first;
    Why().close();
    Checks().close();
  }
}

TEST_F(MainFormLearn, AWindowStaysWhereTheUserHasPutIt) {
  Started();
  OpenInStep3(Parallelogram());
  Trigger("mnuLearnWhy");
  const QRect chosen(13, 27, 555, 505);
  Why().setGeometry(chosen);
  Why().close();
  Trigger("mnuLearnWhy");
  EXPECT_EQ(Why().geometry(), chosen);
}

TEST_F(MainFormLearn, TheChecksAreThoseOfTheDrawingAsItIsNow) {
  Started();
  OpenTruss(NearJoints());
  Trigger("mnuLearnCheck");
  ASSERT_TRUE(Checks().isVisible());
  ASSERT_GE(List().count(), 1);
  EXPECT_TRUE(List().item(0)->text().contains(QStringLiteral("nearly meet")));
  Trigger("mnuFileNew");
  EXPECT_TRUE(QTest::qWaitFor([] { return List().count() == 0; }));
  EXPECT_EQ(Checks().findChild<QLabel*>()->text(), QStringLiteral("Nothing was found."));
  Draw(NearJoints());
  ResizeInside(600, 520);  // draws it
  EXPECT_TRUE(QTest::qWaitFor([] { return List().count() > 0; }));
}

// What is drawn with the mouse while the list is open.
TEST_F(MainFormLearn, TheChecksFollowTheMouse) {
  Started();
  Trigger("mnuLearnCheck");
  EXPECT_EQ(List().count(), 0);
  QTest::mouseClick(Find<QToolButton>("imgTool(1)"), Qt::LeftButton);
  const QPoint from(150, 200);
  const QPoint to(250, 300);
  QTest::mousePress(Canvas(), Qt::LeftButton, Qt::NoModifier, from);
  QMouseEvent move(QEvent::MouseMove, QPointF(to), Canvas()->mapToGlobal(QPointF(to)), Qt::NoButton,
                   Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(Canvas(), &move);
  QTest::mouseRelease(Canvas(), Qt::LeftButton, Qt::NoModifier, to);
  ASSERT_EQ(truss_.NumMembers, 1);
  EXPECT_TRUE(QTest::qWaitFor([] { return List().count() == 2; })) << "two ends with one member each";
}

TEST_F(MainFormLearn, PointsAtTheFindingThatIsChosenAndChangesNothing) {
  Started();
  OpenTruss(NearJoints());
  const std::string before = TrussText(truss_);
  const QImage plain = Picture();
  Trigger("mnuLearnCheck");
  EXPECT_FALSE(Canvas()->PointedAt().has_value());
  List().setFocus();
  QTest::keyClick(&List(), Qt::Key_Home);
  ASSERT_TRUE(Canvas()->PointedAt().has_value());
  EXPECT_NEAR(Canvas()->PointedAt()->X, 10, 0.03);
  EXPECT_NE(Picture(), plain);
  EXPECT_EQ(TrussText(truss_), before);
  Press(Checks(), Qt::Key_Escape);
  EXPECT_FALSE(Canvas()->PointedAt().has_value());
  EXPECT_EQ(Picture(), plain);
}

TEST_F(MainFormLearn, BothWindowsCloseWithTheMainWindow) {
  Started();
  OpenInStep3(Parallelogram());
  Trigger("mnuLearnWhy");
  Trigger("mnuLearnCheck");
  form_->close();
  EXPECT_FALSE(Why().isVisible());
  EXPECT_FALSE(Checks().isVisible());
}

TEST_F(MainFormLearn, ADrawingOfTheLargestFontFitsANotebook) {
  Started();
  truss_.Settings.ReportFontSize = 16;
  OpenInStep3(Parallelogram());
  Trigger("mnuLearnWhy");
  EXPECT_LE(Why().minimumSizeHint().width(), 392);
  EXPECT_LE(Why().minimumSizeHint().height(), 500);
}

}  // namespace
