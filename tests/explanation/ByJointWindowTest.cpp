// The window that solves joint by joint, by itself: its steps, its picture, and where the keys lead.
#include "explanation/byjoint/ByJointWindow.h"

#include "explanation/byjoint/HandView.h"
#include "support/CutTexts.h"
#include "support/FindControl.h"
#include "support/LearnWindowFixture.h"
#include "support/TrussBuilder.h"

namespace {

Truss KingPostByHand() {
  return TrussBuilder()
      .Member(0, 0, 4, 0, "AD")
      .Member(4, 0, 8, 0, "BD")
      .Member(0, 0, 4, 4, "AC")
      .Member(8, 0, 4, 4, "BC")
      .Member(4, 0, 4, 4, "CD")
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(8, 0, "B")
      .Joint(0, 0, "A")
      .Joint(8, 0, "B")
      .Joint(4, 4, "C")
      .Joint(4, 0, "D")
      .Force(4, 4, 0, -1000);
}

class ByJointWindowTest : public LearnWindowFixture<ByJointWindow> {
 protected:
  ByJointWindowTest() : LearnWindowFixture({700, 600}) {}

  QListWidget& Steps() { return FindControl<QListWidget>(window_, "lstSteps"); }
  QPushButton& Next() { return FindControl<QPushButton>(window_, "cmdNextStep"); }
  QPushButton& Back() { return FindControl<QPushButton>(window_, "cmdBack"); }
  QString Text() { return FindControl<QPlainTextEdit>(window_, "txtStep").toPlainText(); }
  HandView& Picture() { return FindControl<HandView>(window_, "picStep"); }
};

TEST_F(ByJointWindowTest, BeginsWithTheReactionsAndWhatIsAssumed) {
  Show(KingPostByHand());
  EXPECT_EQ(Steps().item(0)->text(), QStringLiteral("1.  Reactions"));
  EXPECT_EQ(Steps().item(1)->text(), QStringLiteral("2.  Nothing in CD"));
  EXPECT_EQ(Steps().item(Steps().count() - 1)->text(), QStringLiteral("What is found"));
  EXPECT_TRUE(Text().startsWith(QStringLiteral("Every member is assumed to push")));
  EXPECT_TRUE(Text().contains(QStringLiteral("The balance of the whole truss.")));
  EXPECT_FALSE(Back().isEnabled());
  EXPECT_TRUE(Steps().hasFocus());
  ASSERT_TRUE(Picture().Drawn());
  EXPECT_EQ(Picture().Drawn()->Part.size(), 5U);
}

TEST_F(ByJointWindowTest, SaysWhichSensesThePicturesArrowsShow) {
  Show(KingPostByHand());
  const QLabel& note = FindControl<QLabel>(window_, "lblArrows");
  EXPECT_TRUE(note.isVisible());
  EXPECT_TRUE(note.text().startsWith(QStringLiteral("The picture's arrows show the senses found")));
  // A triangle that hangs on three links in a larger one takes a cut.
  Show(TrussBuilder()
           .Member(0, 0, 12, 0)
           .Member(0, 0, 6, 10)
           .Member(12, 0, 6, 10)
           .Member(5, 2, 8, 3)
           .Member(8, 3, 6.5F, 5)
           .Member(6.5F, 5, 5, 2)
           .Member(0, 0, 5, 2)
           .Member(12, 0, 8, 3)
           .Member(6, 10, 6.5F, 5)
           .Clamp(0, 0)
           .Roller(12, 0)
           .Force(5, 2, 10, -20));
  for (int row = 0; row < Steps().count(); ++row) {
    Steps().setCurrentRow(row);
    const bool isSection = Steps().item(row)->text().contains(QStringLiteral("Section"));
    if (row + 1 < Steps().count()) {
      EXPECT_EQ(note.text().startsWith(QStringLiteral("The picture's arrows show the senses assumed")),
                isSection)
          << row;
    }
    if (isSection) {
      EXPECT_FALSE(Picture().Drawn()->Cut.empty());
    }
  }
  EXPECT_EQ(note.text(), QString()) << "beyond the steps";
}

TEST_F(ByJointWindowTest, NextAndBackGoFromStepToStepAndTellTheJoint) {
  Show(KingPostByHand());
  QSignalSpy chosen(&window_, &ByJointWindow::PlaceChosen);
  QTest::mouseClick(&Next(), Qt::LeftButton);
  ASSERT_EQ(chosen.count(), 1);
  EXPECT_EQ(chosen[0][0].toFloat(), 4);
  EXPECT_EQ(chosen[0][1].toFloat(), 0);
  EXPECT_TRUE(Text().startsWith(QStringLiteral("AD and BD lie in one line at joint D")));
  QTest::mouseClick(&Next(), Qt::LeftButton);
  EXPECT_EQ(Steps().currentItem()->text(), QStringLiteral("3.  Joint A"));
  EXPECT_EQ(chosen.last()[0].toFloat(), 0);
  EXPECT_EQ(FindControl<QLabel>(window_, "lblStep").text(),
            QStringLiteral("Step 3 of %1").arg(Steps().count() - 1));
  QTest::mouseClick(&Back(), Qt::LeftButton);
  EXPECT_EQ(Steps().currentRow(), 1);
}

TEST_F(ByJointWindowTest, GoesToTheEndAndBackWithKeysAlone) {
  Show(KingPostByHand());
  Next().setFocus();
  for (int i = 0; i < 40 && Next().isEnabled(); ++i) QTest::keyClick(&Next(), Qt::Key_Space);
  EXPECT_EQ(Steps().currentRow(), Steps().count() - 1);
  EXPECT_TRUE(Text().startsWith(QStringLiteral("Every force is found.")));
  EXPECT_FALSE(Picture().isVisible());
  EXPECT_TRUE(Back().hasFocus()) << "a button that is switched off does not keep the keys";
  QTest::keyClick(&Back(), Qt::Key_Space);
  EXPECT_TRUE(Picture().isVisible());
  Next().setFocus();
  QTest::keyClick(&Next(), Qt::Key_Space);
  EXPECT_EQ(Steps().currentRow(), Steps().count() - 1);
  QSignalSpy left(&window_, &ByJointWindow::PlaceLeft);
  QTest::keyClick(&window_, Qt::Key_Escape);
  EXPECT_FALSE(window_.isVisible());
  EXPECT_GE(left.count(), 1);
}

TEST_F(ByJointWindowTest, SaysWhatThePictureShows) {
  Show(KingPostByHand());
  Steps().setCurrentRow(2);
  const QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&Picture());
  EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Picture of the step"));
  EXPECT_TRUE(spoken->text(QAccessible::Description)
                  .startsWith(QStringLiteral("Joint A alone, and what acts on it: ")));
}

TEST_F(ByJointWindowTest, CopiesAllStepsAsText) {
  Show(KingPostByHand());
  QTest::mouseClick(&FindControl<QPushButton>(window_, "cmdCopy"), Qt::LeftButton);
  const QString copied = QApplication::clipboard()->text();
  EXPECT_EQ(copied, window_.CopiedText());
  EXPECT_TRUE(copied.contains(QStringLiteral("\n\n3.  Joint A\nSought:  ")));
  EXPECT_TRUE(copied.contains(QStringLiteral("Every force is found.")));
}

TEST_F(ByJointWindowTest, EmptiesWhenTheTrussIsGone) {
  Show(KingPostByHand());
  window_.Clear();
  EXPECT_EQ(Steps().count(), 0);
  EXPECT_EQ(Text(), QString());
  EXPECT_FALSE(Next().isEnabled());
  EXPECT_FALSE(Picture().Drawn());
}

TEST_F(ByJointWindowTest, CutsNoTextInLargeLettersAndSmallWindows) {
  for (const float points : {10.0F, 16.0F}) {
    Show(KingPostByHand(), points, {460, 320});
    for (int row = 0; row < Steps().count(); ++row) {
      Steps().setCurrentRow(row);
      EXPECT_THAT(CutTexts::In(window_), testing::IsEmpty());
    }
  }
}

}  // namespace
