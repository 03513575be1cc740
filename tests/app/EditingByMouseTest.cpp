// Every tool of Step 1 in the real window: draw, move, type values, turn, erase.
#include <cmath>

#include <QAbstractItemView>

#include "document/JointList.h"
#include "naming/Naming.h"
#include "support/WindowEditingFixture.h"

namespace {

using EditingByMouse = WindowEditingFixture;

TEST_F(EditingByMouse, TheMemberToolDrawsBetweenGridPoints) {
  Start();
  ChooseTool(Tool::TrussMember);
  Drag(At(2, 2) + QPoint(3, -4), At(6, 4) + QPoint(-2, 3));
  ASSERT_EQ(truss_.NumMembers, 1);
  EXPECT_EQ(truss_.Members[1].X1, 2);
  EXPECT_EQ(truss_.Members[1].Y1, 2);
  EXPECT_EQ(truss_.Members[1].X2, 6);
  EXPECT_EQ(truss_.Members[1].Y2, 4);
  EXPECT_EQ(truss_.NumJoints, 2);
}

TEST_F(EditingByMouse, AClickWithTheMemberToolDrawsNothing) {
  Start();
  ChooseTool(Tool::TrussMember);
  ClickAt(At(2, 2));
  EXPECT_EQ(truss_.NumMembers, 0);
  EXPECT_TRUE(messages_.Shown.empty());
}

TEST_F(EditingByMouse, TheReadOutShowsWhereAClickWouldLand) {
  Start();
  ChooseTool(Tool::TrussMember);
  MoveMouse(At(1.5F, 2) + QPoint(2, 2));
  EXPECT_EQ(Status(2), QStringLiteral(" (1.50, 2.00) "));
}

TEST_F(EditingByMouse, SupportsArePlacedTurnedDraggedAndErased) {
  Start();
  ChooseTool(Tool::Clamp);
  ClickAt(At(4, 4));
  ChooseTool(Tool::Roller);
  ClickAt(At(12, 4));
  ASSERT_EQ(truss_.NumSupports, 2);
  EXPECT_EQ(truss_.Supports[1].TypeIndex, 1);
  EXPECT_EQ(truss_.Supports[2].TypeIndex, 5);

  ChooseTool(Tool::ReOrientation);
  for (int i = 0; i < 4; ++i) ClickAt(At(12, 4));
  EXPECT_EQ(truss_.Supports[2].TypeIndex, 5);
  ClickAt(At(4, 4));
  EXPECT_EQ(truss_.Supports[1].TypeIndex, 2);

  ChooseTool(Tool::Move);
  Drag(At(4, 4), At(6, 8));
  EXPECT_EQ(truss_.Supports[1].X, 6);
  EXPECT_EQ(truss_.Supports[1].Y, 8);

  ChooseTool(Tool::Erase);
  ClickAt(At(6, 8));
  EXPECT_EQ(NumLiveSupports(truss_), 1);
  EXPECT_EQ(truss_.NumSupports, 2);
}

TEST_F(EditingByMouse, AForceIsDraggedFromItsJointAndItsRubberBandLeavesNoTrace) {
  Start();
  ChooseTool(Tool::TrussMember);
  DrawMember(2, 2, 10, 2);
  ChooseTool(Tool::Force);
  const QImage before = Canvas()->Backing().copy();
  Press(At(10, 2));
  DragOver(At(10, 5));
  DragOver(At(13, 5));
  EXPECT_NE(Canvas()->Backing(), before);
  DragOver(At(10, 2));
  Release(At(10, 2));
  EXPECT_EQ(Canvas()->Backing(), before);
  EXPECT_EQ(truss_.NumForces, 0);

  Drag(At(10, 2), At(11, 4));
  ASSERT_EQ(truss_.NumForces, 1);
  EXPECT_EQ(truss_.Forces[1].Fx, 1000);
  EXPECT_EQ(truss_.Forces[1].Fy, 2000);
}

TEST_F(EditingByMouse, AMemberEndIsMovedByItsHandle) {
  Start();
  ChooseTool(Tool::TrussMember);
  DrawMember(2, 2, 10, 2);
  ChooseTool(Tool::Move);
  ClickAt(At(9, 2));
  EXPECT_TRUE(Shapes().MoveHandleB.Visible);
  Drag(At(10, 2), At(10, 6));
  EXPECT_EQ(truss_.Members[1].X2, 10);
  EXPECT_EQ(truss_.Members[1].Y2, 6);
}

TEST_F(EditingByMouse, AnEndDraggedOntoItsOtherEndErasesTheMember) {
  Start();
  ChooseTool(Tool::TrussMember);
  DrawMember(2, 2, 10, 2);
  ChooseTool(Tool::Move);
  ClickAt(At(9, 2));
  Drag(At(10, 2), At(2, 2));
  EXPECT_EQ(NumLiveMembers(truss_), 0);
  EXPECT_EQ(truss_.NumJoints, 0);
}

TEST_F(EditingByMouse, ValuesAreTypedForAMember) {
  Start();
  ChooseTool(Tool::TrussMember);
  DrawMember(2, 2, 10, 2);
  ChooseTool(Tool::NumericalValue);
  ClickAt(At(9, 2));
  QWidget* frame = Widget("frNewCoords(1)");
  ASSERT_TRUE(frame->isVisible());
  auto* first = Find<QLineEdit>("txtNewCoords1(1)");
  auto* second = Find<QLineEdit>("txtNewCoords2(1)");
  EXPECT_EQ(first->text(), QStringLiteral("10"));
  first->setFocus();
  QTest::keyClicks(first, QStringLiteral("7.25"));
  second->setFocus();
  QTest::keyClicks(second, QStringLiteral("3"));
  QTest::keyClick(second, Qt::Key_Return);
  EXPECT_FALSE(frame->isVisible());
  EXPECT_EQ(truss_.Members[1].X2, 7.25F);
  EXPECT_EQ(truss_.Members[1].Y2, 3);
}

TEST_F(EditingByMouse, EraseTakesAMemberOutOfEverything) {
  Start();
  ChooseTool(Tool::TrussMember);
  DrawMember(2, 2, 10, 2);
  DrawMember(10, 2, 6, 8);
  ChooseTool(Tool::Erase);
  ClickAt(At(4, 2));
  EXPECT_EQ(NumLiveMembers(truss_), 1);
  Click("cmdNext1");
  EXPECT_EQ(truss_.NumJoints, 2);
  EXPECT_EQ(NumVisibleLabels(), 3);
}

TEST_F(EditingByMouse, EscapeASecondButtonAndALostFocusAbandonADrag) {
  Start();
  ChooseTool(Tool::TrussMember);
  const auto abandon = {std::function<void()>([this] { Key(Qt::Key_Escape); }), std::function<void()>([this] {
                          QTest::mousePress(Canvas(), Qt::RightButton, Qt::NoModifier, At(5, 5));
                          QTest::mouseRelease(Canvas(), Qt::RightButton, Qt::NoModifier, At(5, 5));
                        }),
                        std::function<void()>([this] { Widget("cmdNext1")->setFocus(); }),
                        std::function<void()>([this] { ResizeInside(600, 560); })};
  for (const auto& act : abandon) {
    Canvas()->setFocus();
    Press(At(2, 2));
    DragOver(At(5, 5));
    act();
    DragOver(At(6, 5));
    Release(At(6, 5));
    EXPECT_EQ(truss_.NumMembers, 0);
  }
}

TEST_F(EditingByMouse, EveryToolWorksFromTheKeyboard) {
  Start();
  Canvas()->setFocus();
  Key(Qt::Key_1);
  EXPECT_EQ(Status(), QString::fromLatin1(ToolHint(1)));
  Key(Qt::Key_Right);
  Key(Qt::Key_Space);
  for (int i = 0; i < 4; ++i) Key(Qt::Key_Right);
  Key(Qt::Key_Return);
  ASSERT_EQ(truss_.NumMembers, 1);
  EXPECT_EQ(truss_.Members[1].X2 - truss_.Members[1].X1, 4 * truss_.Settings.GridX);
  EXPECT_EQ(truss_.Members[1].Y2, truss_.Members[1].Y1);
  Key(Qt::Key_2);
  Key(Qt::Key_Space);
  ASSERT_EQ(truss_.NumSupports, 1);
  EXPECT_EQ(truss_.Supports[1].X, truss_.Members[1].X2);
  Key(Qt::Key_4);
  Key(Qt::Key_Space);
  Key(Qt::Key_Up);
  Key(Qt::Key_Up);
  Key(Qt::Key_Space);
  ASSERT_EQ(truss_.NumForces, 1);
  EXPECT_EQ(truss_.Forces[1].Fx, 0);
  EXPECT_EQ(truss_.Forces[1].Fy, 1000);
}

// A Pratt bridge drawn from nothing is the truss of the example file, with the same forces.
TEST_F(EditingByMouse, ARecordedSessionDrawsThePrattBridge) {
  Start();
  Truss pratt;
  ASSERT_FALSE(ReadTruss(pratt, CanvasBounds{}, std::string(ORVANE_EXAMPLES_DIR) + "/pratt.trs"));
  truss_.Settings = pratt.Settings;
  ResizeInside(724, 600);  // 26 units take 624 pixels: every grid point lies on a whole one
  ChooseTool(Tool::Clamp);
  ClickAt(At(0, 0));
  ChooseTool(Tool::Roller);
  ClickAt(At(18, 0));
  ChooseTool(Tool::TrussMember);
  for (const MemberRec& member : pratt.MembersInUse()) DrawMember(member.X1, member.Y1, member.X2, member.Y2);
  ChooseTool(Tool::Force);
  for (const ForceRec& force : pratt.ForcesInUse()) {
    Drag(At(force.X, force.Y), At(force.X, force.Y - 2));  // two units are 1000
  }

  ASSERT_TRUE(CheckJoints(pratt));
  AutoName(pratt);
  Click("cmdNext1");
  Click("cmdAutoName(1)");
  EXPECT_EQ(TrussText(truss_), TrussText(pratt));
  Click("cmdNext2");
  Click("cmdReportSolutions");
  auto* grid = Report()->findChild<QAbstractItemView*>(QStringLiteral("EqnGrid"));
  ASSERT_NE(grid, nullptr);
  // By hand: each support carries half of 5000, the inclined end posts 2500 * 5 / 4.
  const auto value = [grid](const QString& name) {
    for (int row = 0; row < grid->model()->rowCount(); ++row) {
      if (grid->model()->headerData(row, Qt::Vertical).toString() == name ||
          grid->model()->index(row, 0).data().toString() == name) {
        return grid->model()->index(row, grid->model()->columnCount() - 1).data().toString();
      }
    }
    return QString();
  };
  EXPECT_EQ(value(QStringLiteral("C")), QStringLiteral("2500"));  // the roller
  EXPECT_EQ(value(QStringLiteral("J")), QStringLiteral("3125"));  // the seventh member: the left end post
}

}  // namespace
