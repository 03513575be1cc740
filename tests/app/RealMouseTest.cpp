// What the hand does without meaning it, with real events on the real window: double clicks, drops beside the
// canvas, panels in the way, pins between pixels.
#include <cmath>

#include "document/JointList.h"
#include "support/RealMouse.h"

namespace {

using DoubleClicks = RealMouse;
using Drops = RealMouse;
using DraggedThings = RealMouse;
using Pins = RealMouse;

}  // namespace

TEST_F(DoubleClicks, PlaceOneSupport) {
  Start();
  ChooseTool(Tool::Clamp);
  DoubleClick(At(4, 4));
  EXPECT_EQ(truss_.NumSupports, 1);
  ChooseTool(Tool::Roller);
  DoubleClick(At(12, 4));
  EXPECT_EQ(truss_.NumSupports, 2);
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(DoubleClicks, EraseOneThing) {
  Start();
  Draw(TrussBuilder().Member(2, 2, 10, 2).Member(2, 2, 10, 2).Clamp(2, 8).Clamp(2, 8));
  ResizeInside(580, 561);
  ChooseTool(Tool::Erase);
  DoubleClick(At(6, 2));
  EXPECT_EQ(NumLiveMembers(truss_), 1);
  DoubleClick(At(2, 8));
  EXPECT_EQ(NumLiveSupports(truss_), 1);
}

TEST_F(DoubleClicks, TurnASupportOnce) {
  Start();
  ChooseTool(Tool::Roller);
  CalmClick(At(4, 4));
  ChooseTool(Tool::ReOrientation);
  DoubleClick(At(4, 4));
  EXPECT_EQ(truss_.Supports[1].TypeIndex, 6);
  for (const int type : {7, 8, 5}) {
    CalmClick(At(4, 4));
    EXPECT_EQ(truss_.Supports[1].TypeIndex, type);
  }
}

TEST_F(DoubleClicks, AreNotTwoQuickClicksInTwoPlaces) {
  Start();
  ChooseTool(Tool::Clamp);
  CalmClick(At(4, 4));
  QuickClick(At(12, 4));
  QuickClick(At(8, 8));
  EXPECT_EQ(truss_.NumSupports, 3);
}

TEST_F(Drops, OnTheToolPanelOrBesideTheWindowAreAbandoned) {
  Start();
  Draw(TrussBuilder().Member(2, 2, 10, 2).Force(10, 2, 0, 3000).Clamp(2, 2));
  ResizeInside(580, 561);
  const std::string before = TrussText(truss_);
  const auto expectNothingDropped = [&](Tool tool, QPoint from) {
    for (const QPoint to : {QPoint(300, 20), QPoint(20, 3), QPoint(-8, 200), QPoint(300, -40),
                            QPoint(300, Canvas()->height() + 3), QPoint(600, 200)}) {
      DragSlowly(from, to);
      EXPECT_EQ(TrussText(truss_), before)
          << ToolName(static_cast<int>(tool)) << " " << to.x() << " " << to.y();
    }
  };
  for (const Tool tool : {Tool::TrussMember, Tool::Force, Tool::Clamp, Tool::Roller}) {
    ChooseTool(tool);
    expectNothingDropped(tool, At(6, 6));
  }
  ChooseTool(Tool::Move);
  expectNothingDropped(Tool::Move, At(2, 2));
  CalmClick(At(9, 2));
  expectNothingDropped(Tool::Move, At(10, 2));
  ChooseTool(Tool::Move);
  CalmClick(At(10, 4));
  expectNothingDropped(Tool::Move, At(10, 5));

  // Just below the panel is canvas.
  DragSlowly(At(10, 5), QPoint(300, 50));
  EXPECT_NE(TrussText(truss_), before);
}

TEST_F(DraggedThings, ASupportIsSeenWhereItWillLand) {
  Start();
  ChooseTool(Tool::Clamp);
  CalmClick(At(4, 4));
  const QImage atHome = Picture();
  ChooseTool(Tool::Move);
  Rest();
  ButtonDown(At(4, 4) + QPoint(9, 5));
  MouseTo(Canvas(), At(8, 6) + QPoint(3, -4), Qt::LeftButton);
  const QImage dragged = Picture();
  ButtonUp(At(8, 6) + QPoint(3, -4));
  EXPECT_EQ(dragged, Picture());
  EXPECT_NE(dragged, atHome);
  EXPECT_EQ(truss_.Supports[1].X, 8);
  EXPECT_EQ(truss_.Supports[1].Y, 6);
}

TEST_F(DraggedThings, TheValuePanelStaysWhereTheUserHasPutIt) {
  Start();
  Draw(TrussBuilder().Member(2, 2, 10, 2).Member(2, 8, 10, 8));
  ResizeInside(580, 561);
  ChooseTool(Tool::NumericalValue);
  CalmClick(At(9, 2));
  QWidget* panel = Widget("frNewCoords(1)");
  ASSERT_TRUE(panel->isVisible());
  // By its frame, to a corner far from both members.
  const QPoint grab(3, 3);
  const QPoint corner(panel->parentWidget()->width() - panel->width() - 20, 120);
  const QPoint from = panel->pos();
  QTest::mousePress(panel, Qt::LeftButton, Qt::NoModifier, grab);
  QMouseEvent move(QEvent::MouseMove, QPointF(grab + corner - from),
                   panel->mapToGlobal(QPointF(grab + corner - from)), Qt::NoButton, Qt::LeftButton,
                   Qt::NoModifier);
  QApplication::sendEvent(panel, &move);
  QTest::mouseRelease(panel, Qt::LeftButton, Qt::NoModifier, grab);
  ASSERT_EQ(panel->pos(), corner);

  DragSlowly(At(10, 2), At(11, 4));
  EXPECT_EQ(truss_.Members[1].Y2, 4);
  EXPECT_TRUE(panel->isVisible());
  EXPECT_EQ(panel->pos(), corner);
  DragSlowly(At(2, 2), At(3, 3));  // the other end
  EXPECT_EQ(panel->pos(), corner);
  QTest::keyClick(Find<QLineEdit>("txtNewCoords1(1)"), Qt::Key_Escape);
  EXPECT_FALSE(panel->isVisible());
  CalmClick(At(7, 3.5F));  // the same member once more
  ASSERT_TRUE(panel->isVisible());
  EXPECT_EQ(panel->pos(), corner);
  CalmClick(At(7, 8));  // another member
  ASSERT_TRUE(panel->isVisible());
  EXPECT_NE(panel->pos(), corner);
}

TEST_F(DraggedThings, ANewTrussKnowsNoPlaceOfThePanel) {
  Start();
  const auto openOnAMember = [this] {
    ChooseTool(Tool::TrussMember);
    DragSlowly(At(2, 2), At(10, 2));
    ChooseTool(Tool::NumericalValue);
    CalmClick(At(9, 2));
    return Widget("frNewCoords(1)")->pos();
  };
  const QPoint place = openOnAMember();
  QWidget* panel = Widget("frNewCoords(1)");
  QTest::mousePress(panel, Qt::LeftButton, Qt::NoModifier, QPoint(3, 3));
  QMouseEvent move(QEvent::MouseMove, QPointF(23, 13), panel->mapToGlobal(QPointF(23, 13)), Qt::NoButton,
                   Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(panel, &move);
  QTest::mouseRelease(panel, Qt::LeftButton, Qt::NoModifier, QPoint(3, 3));
  ASSERT_NE(panel->pos(), place);
  messages_.Answers = {MessageAnswer::No};
  Trigger("mnuFileNew");
  EXPECT_EQ(openOnAMember(), place);
}

// Windows of other widths put the ends of members at other places between the pixels.
TEST_F(Pins, ThePaintedMiddleOfEveryPinPicksItsMember) {
  Start();
  for (int width = 566; width < 590; width += 3) {
    Draw(TrussBuilder().Member(2.3F, 2.7F, 9.1F, 3.9F).Member(12, 9, 11.4F, 3.3F));
    ResizeInside(width, 560);
    ChooseTool(Tool::Move);
    for (int member = 1; member <= 2; ++member) {
      const PixelLine rod = Shapes().Rod[member];
      for (const PixelPoint end : {rod.End1(), rod.End2()}) {
        const QPoint middle(static_cast<int>(std::lround(end.X)), static_cast<int>(std::lround(end.Y)));
        ASSERT_EQ(Pixel(middle.x(), middle.y()), QColor(Qt::white));  // inside the ring
        ChooseTool(Tool::Move);
        CalmClick(middle);
        ASSERT_TRUE(Shapes().MoveHandleB.Visible) << width << ": member " << member;
        EXPECT_FLOAT_EQ(Shapes().MoveHandleB.Left + MoveHandleBSize / 2, end.X);
        EXPECT_FLOAT_EQ(Shapes().MoveHandleB.Top + MoveHandleBSize / 2, end.Y);
        ChooseTool(Tool::Move);
      }
    }
  }
}
