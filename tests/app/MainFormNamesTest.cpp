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

TEST_F(MainFormNames, NamingReordersNoJoints) {
  // Step 3 sorts the joints by name; the members were drawn in another order.
  OpenInStep3(TrussBuilder()
                  .Member(2, 2, 18, 2, "m")
                  .Member(18, 2, 10, 10, "n")
                  .Joint(2, 2, "C")
                  .Joint(18, 2, "B")
                  .Joint(10, 10, "A"));
  Click("cmdPrev3");
  const auto places = [this] {
    std::vector<float> xs;
    for (const JointRec& joint : truss_.JointsInUse()) xs.push_back(joint.X);
    return xs;
  };
  const std::vector<float> sorted = {10, 18, 2};
  EXPECT_EQ(places(), sorted);
  AnswerInputBox(QStringLiteral("Z"));
  ClickLabel(JointLabel("A"));
  EXPECT_EQ(places(), sorted) << "only Step 3 and saving put joints in the order of their names";
  for (const char* button : {"cmdAutoName(2)", "cmdAutoName(1)", "cmdAutoName(1)"}) {
    Click(button);
    EXPECT_EQ(places(), sorted) << button;
  }
  for (int joint = 1; joint <= 3; ++joint) {
    EXPECT_EQ(truss_.Name(truss_.Joints[joint].NameLabel), std::to_string(joint));
  }
}

TEST_F(MainFormNames, TheNoteOnANameThatBreaksTheFileEndsWithANewName) {
  const auto isTold = [this] {
    return Status().contains(QStringLiteral("cannot be read back from the file"));
  };
  Started();
  OpenInStep2(LoadedTriangle());
  const LabelIndex label = JointLabel(truss_.Name(truss_.Joints[1].NameLabel));
  AnswerInputBox(QStringLiteral("a\"b"));
  ClickLabel(label);
  EXPECT_FALSE(isTold());
  Trigger("mnuFileSave");
  EXPECT_TRUE(isTold());
  AnswerInputBox(QStringLiteral("c\"d"));
  ClickLabel(label);
  EXPECT_TRUE(isTold()) << "the new one is no better";
  Click("cmdAutoName(1)");
  EXPECT_FALSE(isTold());
}

TEST_F(MainFormNames, NamingAsksNothingAboutTheGridAgain) {
  Truss dense = LoadedTriangle();
  dense.Settings.GridX = 0.01F;
  OpenInStep2(dense);
  ASSERT_FALSE(messages_.Shown.empty());
  messages_.Shown.clear();
  Click("cmdAutoName(1)");
  Click("cmdAutoName(2)");
  AnswerInputBox(QStringLiteral("chord"));
  ClickLabel(truss_.Members[1].NameLabel1);
  EXPECT_EQ(MemberNames(), "chord chord");
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(MainFormNames, NamingPaintsGridAndRulersNoSecondTime) {
  const qint64 painted = Canvas()->Backing().cacheKey();
  Click("cmdAutoName(2)");
  AnswerInputBox(QStringLiteral("chord"));
  ClickLabel(truss_.Members[1].NameLabel1);
  EXPECT_EQ(Canvas()->Backing().cacheKey(), painted);
}

TEST_F(MainFormNames, NewNamesAreMeasuredAndPlacedAgain) {
  const LabelIndex member = truss_.Members[1].NameLabel1;
  const LabelIndex joint = JointLabel("A");
  truss_.Labels[joint].Caption = "a very long name";
  const LabelPlace before = Shapes().lblRodJoint[member];
  Click("cmdAutoName(2)");
  const LabelPlace& place = Shapes().lblRodJoint[member];
  EXPECT_NE(place.Width, before.Width);
  EXPECT_NEAR(place.Left + place.Width / 2, before.Left + before.Width / 2, 1) << "still in the middle";
  Click("cmdAutoName(1)");
  const float narrow = Shapes().lblRodJoint[joint].Width;
  AnswerInputBox(QStringLiteral("left foot"));
  ClickLabel(joint);
  EXPECT_GT(Shapes().lblRodJoint[joint].Width, narrow);
}

TEST_F(MainFormNames, AutoNameAndClearNamesAreShownAtOnce) {
  Click("cmdAutoName(2)");
  EXPECT_EQ(MemberNames(), "[ ] [ ]");
  const QImage cleared = Picture();
  Click("cmdAutoName(1)");
  EXPECT_EQ(MemberNames(), "D D");
  EXPECT_NE(Picture(), cleared);
}

// A key or a screen reader presses a button for a moment, and in that moment the step may be left.
TEST_F(MainFormNames, AreNotClearedByAPressThatEndsInTheNextStep) {
  const std::string before = MemberNames();
  Find<QPushButton>("cmdAutoName(2)")->animateClick();
  Click("cmdNext2");
  ASSERT_TRUE(Find<QPushButton>("cmdPrev3")->isVisible());
  QTest::qWait(200);
  EXPECT_EQ(MemberNames(), before);
}

}  // namespace
