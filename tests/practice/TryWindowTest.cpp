// The window in which students find the forces: what they write with real keys, and what is said of it.
#include "practice/TryWindow.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>

#include "PracticeFixture.h"
#include "practice/AnswersTable.h"
#include "practice/TrussView.h"
#include "support/CutTexts.h"
#include "support/FindControl.h"
#include "support/LearnWindowFixture.h"

namespace {

class TryWindowTest : public LearnWindowFixture<TryWindow> {
 protected:
  TryWindowTest() : LearnWindowFixture({760, 600}) {}

  AnswersTable& Forces() { return FindControl<AnswersTable>(window_, "lstForces"); }
  QString Said() { return FindControl<QPlainTextEdit>(window_, "txtSaid").toPlainText(); }
  QString Verdict(int row) { return Forces().item(row, 2)->text(); }
  void Press(const char* button) {
    QTest::mouseClick(&FindControl<QPushButton>(window_, button), Qt::LeftButton);
  }

  // As on a keyboard: into whatever has the keys.
  void Type(const QString& text) {
    QTest::keyClicks(QApplication::focusWidget(), text);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QApplication::processEvents();  // the box is taken over a moment later
  }
};

// Rows: Ax, Ay, B, AB, AC, BC.
TEST_F(TryWindowTest, HasAnEmptyBoxForEachForce) {
  Show(RoundTriangle());
  ASSERT_EQ(Forces().rowCount(), 6);
  EXPECT_EQ(Forces().item(0, 0)->text(), QStringLiteral("Ax"));
  EXPECT_EQ(Forces().item(5, 0)->text(), QStringLiteral("BC"));
  for (int row = 0; row < 6; ++row) EXPECT_EQ(Forces().Value(row) + Verdict(row), QString());
  EXPECT_EQ(Said(), QStringLiteral("Joints (x, y):  A at (0, 0),  B at (6, 0),  C at (3, 4)."));
  EXPECT_TRUE(Forces().hasFocus());
}

TEST_F(TryWindowTest, JudgesWhatIsTypedFromBoxToBox) {
  Show(RoundTriangle());
  for (const char* value : {"0", "500", "5000", "375 T", "-625", "600"}) Type(QString::fromLatin1(value));
  for (int row = 0; row < 6; ++row)
    EXPECT_EQ(Verdict(row), QString()) << "nothing is said before it is asked for";
  Press("cmdJudge");
  EXPECT_EQ(Verdict(0), QStringLiteral("right"));
  EXPECT_EQ(Verdict(1), QStringLiteral("right"));
  EXPECT_EQ(Verdict(2), QStringLiteral("a power of ten off"));
  EXPECT_EQ(Verdict(3), QStringLiteral("right"));
  EXPECT_EQ(Verdict(4), QStringLiteral("right size, wrong sense"));
  EXPECT_EQ(Verdict(5), QStringLiteral("close, within 5 %"));
  EXPECT_TRUE(
      Said().startsWith(QStringLiteral("3 of 6 forces are right.\nYour reactions do not balance the whole "
                                       "truss: the vertical forces leave 4500 upward, the moments "
                                       "about joint A leave")));
  EXPECT_TRUE(Said().contains(QStringLiteral("The slip is at joint A: ")));
}

TEST_F(TryWindowTest, ForgetsAVerdictWhenItsValueChanges) {
  Show(RoundTriangle());
  Type(QStringLiteral("7"));
  Press("cmdJudge");
  EXPECT_EQ(Verdict(0), QStringLiteral("wrong"));
  Forces().setFocus();
  Forces().setCurrentCell(0, 1);
  Type(QStringLiteral("0"));
  EXPECT_EQ(Verdict(0), QString());
}

TEST_F(TryWindowTest, FollowsTheStudentsOwnNumbers) {
  Show(RoundTriangle());
  for (const char* value : {"0", "400", "600", "-450", "500", "750"}) Type(QString::fromLatin1(value));
  Press("cmdJudge");
  EXPECT_TRUE(Said().contains(QStringLiteral("Joint B is right with your B, AB and BC.")));
  EXPECT_TRUE(
      Said().contains(QStringLiteral("Your reactions do not balance the whole truss: the moments about joint "
                                     "A leave 600 anticlockwise.")));
}

TEST_F(TryWindowTest, SaysThatTensionIsCountedPositive) {
  Show(RoundTriangle());
  for (const char* value : {"0", "500", "500", "375", "-625", "-625"}) Type(QString::fromLatin1(value));
  Press("cmdJudge");
  EXPECT_TRUE(Said().contains(QStringLiteral("Every sense is reversed: you count tension as positive.")));
  EXPECT_TRUE(Said().contains(QStringLiteral("Joint A is right.")));
  EXPECT_FALSE(Said().contains(QStringLiteral("slip")));
}

TEST_F(TryWindowTest, SaysWhatIsNoForce) {
  Show(RoundTriangle());
  Forces().setCurrentCell(3, 1);
  Type(QStringLiteral("-5 T"));
  Type(QStringLiteral("<b>abc"));
  Press("cmdJudge");
  EXPECT_TRUE(Verdict(3).contains(QStringLiteral("has a sign and a letter")));
  EXPECT_TRUE(Verdict(4).contains(QStringLiteral("\"<b>abc\" is not a number")));
  EXPECT_TRUE(Said().startsWith(QStringLiteral("Write a value first")));
  Forces().setFocus();
  Forces().setCurrentCell(0, 1);
  Type(QStringLiteral("0"));
  Press("cmdJudge");
  EXPECT_TRUE(
      Said().startsWith(QStringLiteral("1 of 6 forces are right, 3 are still empty, 2 are no forces.")));
}

TEST_F(TryWindowTest, TabGoesOnToTheNextBoxAndKeepsWhatIsWritten) {
  Show(RoundTriangle());
  for (const char* value : {"0", "500"}) {
    QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(value));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QApplication::processEvents();
  }
  EXPECT_EQ(Forces().Value(0), QStringLiteral("0"));
  EXPECT_EQ(Forces().Value(1), QStringLiteral("500"));
  EXPECT_EQ(Forces().currentRow(), 2);
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("7"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
  QApplication::processEvents();
  EXPECT_EQ(Forces().Value(2), QStringLiteral("7"));
  EXPECT_EQ(Forces().currentRow(), 1);
}

TEST_F(TryWindowTest, SaysThatATrussHasNoForces) {
  Show(TrussBuilder().Member(0, 0, 4, 0, "a").Clamp(0, 0, "x", "y").Force(4, 0, 0, -1));
  EXPECT_TRUE(Said().startsWith(QStringLiteral("The equations have no solution: no forces hold this truss")));
  EXPECT_FALSE(FindControl<QPushButton>(window_, "cmdHint").isEnabled());
}

// What the reduced matrix says is rounded: it takes these for a unique solution and for a contradiction.
TEST_F(TryWindowTest, WhetherThereAreForcesIsDecidedExactly) {
  Show(TrussBuilder().Member(0, 0, 1, 3).Member(1, 3, 4, 12).Clamp(0, 0).Clamp(4, 12).Force(1, 3, 0, -1000));
  ASSERT_NE(analysis_->Reading.Code, Outcome::Inconsistent);
  EXPECT_TRUE(Said().startsWith(QStringLiteral("The equations have no solution: no forces hold this truss")));
  Show(TrussBuilder().Member(0, 0, 1, 3, "tie").Clamp(0, 0, "x", "y").Force(1, 3, 100, 300));
  ASSERT_EQ(analysis_->Reading.Code, Outcome::Inconsistent);
  EXPECT_TRUE(Said().startsWith(QStringLiteral("Joints (x, y)")));
  EXPECT_TRUE(FindControl<QPushButton>(window_, "cmdJudge").isEnabled());
}

TEST_F(TryWindowTest, SaysOfAJointThatOnlyChecksThatItIsNoSlipOfItsOwn) {
  Show(RoundTriangle());
  // AC is wrong; AB and BC follow from it rightly.
  for (const char* value : {"0", "500", "500", "-450", "750", "750"}) Type(QString::fromLatin1(value));
  Press("cmdJudge");
  EXPECT_TRUE(Said().contains(QStringLiteral("The slip is at joint A: ")));
  EXPECT_TRUE(
      Said().contains(QStringLiteral("does not balance either, but it only checks what came before.")));
}

TEST_F(TryWindowTest, HintsSayMoreEachTimeAndLightUpTheJoint) {
  Show(RoundTriangle());
  for (const char* value : {"0", "500", "500"}) Type(QString::fromLatin1(value));
  QSignalSpy chosen(&window_, &TryWindow::PlaceChosen);
  Press("cmdHint");
  EXPECT_EQ(Said(), QStringLiteral("Take joint A: there only AC and AB are to be found."));
  ASSERT_EQ(chosen.count(), 1);
  EXPECT_EQ(chosen[0][0].toFloat(), 0);
  EXPECT_TRUE(FindControl<TrussView>(window_, "picTruss").PointedAt());
  Press("cmdHint");
  EXPECT_EQ(Said().count(QLatin1Char('\n')), 1);
  Press("cmdHint");
  const QString all = Said();
  EXPECT_EQ(all.count(QLatin1Char('\n')), 2);
  EXPECT_FALSE(all.contains(QStringLiteral("625")));
  Press("cmdHint");
  EXPECT_EQ(Said(), all) << "there is no more";
  Forces().setFocus();
  Forces().setCurrentCell(3, 1);
  Type(QStringLiteral("-375"));
  Press("cmdHint");
  EXPECT_EQ(Said().count(QLatin1Char('\n')), 0) << "a new value, a new hint";
}

TEST_F(TryWindowTest, JudgesAlsoWhatIsStillBeingWritten) {
  Show(RoundTriangle());
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("0"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_J, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Verdict(0) == QStringLiteral("right"); }));
}

TEST_F(TryWindowTest, IsUsedByKeysAlone) {
  Show(RoundTriangle());
  for (const char* value : {"0", "500", "500", "375 T", "625 C", "625"}) Type(QString::fromLatin1(value));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("cmdJudge"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_TRUE(
      Said().startsWith(QStringLiteral("6 of 6 forces are right.\nYour reactions balance the whole truss.")));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_EQ(Said(), QStringLiteral("Nothing is left to be found by hand."));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_EQ(Forces().Value(3), QString());
  EXPECT_TRUE(Forces().hasFocus());
  QSignalSpy left(&window_, &TryWindow::PlaceLeft);
  QTest::keyClick(&window_, Qt::Key_Escape);
  EXPECT_FALSE(window_.isVisible());
  EXPECT_GE(left.count(), 1);
}

TEST_F(TryWindowTest, TakesWhatTheEquationsLeaveOpenByItsJoints) {
  // Two members on one another: only their sum is determined.
  Show(TrussBuilder()
           .Member(0, 0, 4, 0, "one")
           .Member(0, 0, 4, 0, "two")
           .Clamp(0, 0, "Ax", "Ay")
           .Roller(4, 0, "B")
           .Force(4, 0, 100, 0)
           .Joint(0, 0, "A")
           .Joint(4, 0, "C"));
  Forces().setCurrentCell(2, 1);
  for (const char* value : {"0", "-40", "-60"}) Type(QString::fromLatin1(value));
  Press("cmdJudge");
  EXPECT_EQ(Verdict(3), QStringLiteral("not determined; judged by its joints"));
  EXPECT_TRUE(Said().contains(QStringLiteral("Joint C is right.")));
}

TEST_F(TryWindowTest, EmptiesWhenTheTrussIsGone) {
  Show(RoundTriangle());
  Type(QStringLiteral("1"));
  window_.Clear();
  EXPECT_EQ(Forces().rowCount(), 0);
  EXPECT_FALSE(FindControl<QPushButton>(window_, "cmdJudge").isEnabled());
  Show(RoundTriangle());
  EXPECT_EQ(Forces().Value(0), QString()) << "nothing is kept";
}

TEST_F(TryWindowTest, SaysWhatEachBoxIsFor) {
  Show(RoundTriangle());
  const QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&Forces());
  EXPECT_EQ(table->text(QAccessible::Name), QStringLiteral("Your forces"));
  const QAccessibleInterface* window = QAccessible::queryAccessibleInterface(&window_);
  EXPECT_EQ(window->role(), QAccessible::Dialog);
  QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("7"));
  EXPECT_EQ(QApplication::focusWidget()->accessibleName(), QStringLiteral("Your value of Ax"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  QApplication::processEvents();
  Press("cmdJudge");
  EXPECT_EQ(Forces().item(0, 1)->data(Qt::AccessibleTextRole).toString(),
            QStringLiteral("Your value of Ax: 7, wrong"));
}

TEST_F(TryWindowTest, CutsNoTextInLargeLettersAndSmallWindows) {
  for (const float points : {10.0F, 16.0F}) {
    Show(RoundTriangle(), points, {460, 340});
    EXPECT_THAT(CutTexts::In(window_), testing::IsEmpty());
  }
}

}  // namespace
