// Names on the drawing: what the mouse and the keyboard do with them.
#include <QHelpEvent>
#include <QToolTip>
#include <set>

#include "support/MainFormFixture.h"

namespace {

class MainFormNames : public MainFormTest {
 protected:
  void SetUp() override {
    Started();
    OpenInStep2(LoadedTriangle());
  }

  std::string MemberNames() const {
    return truss_.Name(truss_.Members[1].NameLabel1) + " " + truss_.Name(truss_.Members[1].NameLabel2);
  }

  QString ToolTipOver(LabelIndex label) {
    const QPoint point = PointOf(label);
    QHelpEvent event(QEvent::ToolTip, point, Canvas()->mapToGlobal(point));
    QApplication::sendEvent(Canvas(), &event);
    return QToolTip::text();
  }

  void PressOnCanvas(Qt::Key key) { QTest::keyClick(Canvas(), key); }
};

TEST_F(MainFormNames, AClickOffersTheNameAndTakesAnother) {
  const LabelIndex label = JointLabel("A");
  AnswerInputBox(QStringLiteral("Left foot"));
  ClickLabel(label);
  EXPECT_EQ(modalWindows_, 1);
  EXPECT_EQ(offeredName_, QStringLiteral("A"));
  EXPECT_EQ(truss_.Name(label), "Left foot");
}

TEST_F(MainFormNames, TheNewNameIsOnTheDrawing) {
  const LabelIndex label = truss_.Members[1].NameLabel1;
  const QImage before = Picture();
  const float width = Shapes().lblRodJoint[label].Width;
  AnswerInputBox(QStringLiteral("a longer name"));
  ClickLabel(label);
  EXPECT_GT(Shapes().lblRodJoint[label].Width, width);
  EXPECT_NE(Picture(), before);
}

TEST_F(MainFormNames, BothLabelsOfAMemberGetTheName) {
  AnswerInputBox(QStringLiteral("chord"));
  ClickLabel(truss_.Members[1].NameLabel1);
  EXPECT_EQ(MemberNames(), "chord chord");
}

TEST_F(MainFormNames, EscapeKeepsTheName) {
  AnswerInputBox(QStringLiteral("chord"), Qt::Key_Escape);
  ClickLabel(truss_.Members[1].NameLabel1);
  EXPECT_EQ(MemberNames(), "AB AB");
}

TEST_F(MainFormNames, AnEmptyBoxKeepsTheName) {
  InModalWindow([](QWidget& window) {
    auto* box = window.findChild<QLineEdit*>(QStringLiteral("txtInput"));
    QTest::keyClick(box, Qt::Key_Delete);
    EXPECT_TRUE(box->text().isEmpty());
    QTest::keyClick(box, Qt::Key_Return);
  });
  ClickLabel(truss_.Members[1].NameLabel1);
  EXPECT_EQ(MemberNames(), "AB AB");
}

TEST_F(MainFormNames, TheDialogOpensRightOfAndBelowTheLabel) {
  form_->move(20, 10);
  QApplication::processEvents();
  const LabelIndex label = JointLabel("A");
  const LabelPlace place = Shapes().lblRodJoint[label];
  AnswerInputBox(QStringLiteral("x"));
  ClickLabel(label);
  // 400 and 1200 twips are 26 and 80 pixels.
  EXPECT_NEAR(inputBoxCorner_.x(), 20 + place.Left + 400.0 / 15, 2);
  EXPECT_NEAR(inputBoxCorner_.y(), 10 + place.Top + 1200.0 / 15, 2);
}

TEST_F(MainFormNames, AClickIsAPressAndAReleaseOnTheSameLabel) {
  const QPoint on = PointOf(JointLabel("A"));
  QTest::mousePress(Canvas(), Qt::LeftButton, Qt::NoModifier, on);
  QTest::mouseRelease(Canvas(), Qt::LeftButton, Qt::NoModifier, QPoint(300, 100));
  QTest::mousePress(Canvas(), Qt::LeftButton, Qt::NoModifier, QPoint(300, 100));
  QTest::mouseRelease(Canvas(), Qt::LeftButton, Qt::NoModifier, on);
  QTest::mouseClick(Canvas(), Qt::RightButton, Qt::NoModifier, on);
  EXPECT_EQ(truss_.Name(JointLabel("A")), "A");
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(MainFormNames, InStep1LabelsDoNothing) {
  const QPoint on = PointOf(JointLabel("A"));
  Click("cmdPrev2");
  QTest::mouseClick(Canvas(), Qt::LeftButton, Qt::NoModifier, on);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  MoveMouse(on);
  EXPECT_NE(Canvas()->cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(MainFormNames, APointingHandShowsThatALabelCanBeClicked) {
  MoveMouse(PointOf(JointLabel("A")));
  EXPECT_EQ(Canvas()->cursor().shape(), Qt::PointingHandCursor);
  MoveMouse(QPoint(300, 100));
  EXPECT_EQ(Canvas()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(MainFormNames, TabReachesEveryLabelOnceAndThenLeaves) {
  Canvas()->setFocus();
  std::vector<LabelIndex> reached;
  for (int i = 0; i < 9; ++i) {
    PressOnCanvas(Qt::Key_Tab);
    reached.push_back(Canvas()->FocusLabel());
  }
  EXPECT_EQ(reached, (std::vector<LabelIndex>{1, 2, 3, 4, 6, 8, 10, 11, 12}))
      << "5, 7 and 9 are second labels";
  PressOnCanvas(Qt::Key_Tab);
  EXPECT_FALSE(Canvas()->hasFocus());
}

TEST_F(MainFormNames, ShiftTabGoesBackwards) {
  Canvas()->setFocus();
  QTest::keyClick(Canvas(), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(Canvas()->FocusLabel(), 12);
  QTest::keyClick(Canvas(), Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(Canvas()->FocusLabel(), 11);
}

TEST_F(MainFormNames, EnterOpensTheLabelThatTabReached) {
  Canvas()->setFocus();
  PressOnCanvas(Qt::Key_Tab);
  AnswerInputBox(QStringLiteral("R"));
  PressOnCanvas(Qt::Key_Return);
  EXPECT_EQ(truss_.Name(1), "R");
  EXPECT_EQ(Canvas()->FocusLabel(), 1) << "the next Tab goes on from there";
}

TEST_F(MainFormNames, TheLabelThatTabReachedIsFramed) {
  Canvas()->setFocus();
  const QImage before = Picture();
  PressOnCanvas(Qt::Key_Tab);
  EXPECT_NE(Picture(), before);
}

TEST_F(MainFormNames, TabPassesNamesOutsideTheCanvas) {
  truss_.Settings.XMax = 8;
  ResizeInside(567, 500);
  Canvas()->setFocus();
  std::set<LabelIndex> reached;
  for (int i = 0; i < 20 && Canvas()->hasFocus(); ++i) {
    PressOnCanvas(Qt::Key_Tab);
    reached.insert(Canvas()->FocusLabel());
  }
  EXPECT_FALSE(reached.contains(JointLabel("B")));
  EXPECT_TRUE(reached.contains(JointLabel("A")));
}

TEST_F(MainFormNames, AToolTipShowsTheFullNameAsItIsWritten) {
  const LabelIndex label = JointLabel("A");
  truss_.Labels[label].Caption = "<b>a & b</b>";
  EXPECT_THAT(ToolTipOver(label).toStdString(), testing::HasSubstr("&lt;b&gt;a &amp; b&lt;/b&gt;"));
  QToolTip::hideText();
}

TEST_F(MainFormNames, AutoNameAndClearNamesAreShownAtOnce) {
  Click("cmdAutoName(2)");
  EXPECT_EQ(MemberNames(), "[ ] [ ]");
  const QImage cleared = Picture();
  Click("cmdAutoName(1)");
  EXPECT_EQ(MemberNames(), "D D");
  EXPECT_NE(Picture(), cleared);
}

}  // namespace
