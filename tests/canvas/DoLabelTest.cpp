// Names and arrows beside members, supports and joints. Plain texts are 6 by 10 pixels a character, bold ones
// 7 by 12.
#include "canvas/DoLabel.h"

#include "CanvasFixture.h"
#include "canvas/SupportPicture.h"
#include "document/JointList.h"

namespace {

LabelPlace At(float left, float top, float width, float height) {
  return {.Left = left, .Top = top, .Width = width, .Height = height};
}

void ExpectPlace(const LabelPlace& place, const LabelPlace& expected) {
  EXPECT_FLOAT_EQ(place.Left, expected.Left);
  EXPECT_FLOAT_EQ(place.Top, expected.Top);
  EXPECT_EQ(place.Width, expected.Width);
  EXPECT_EQ(place.Height, expected.Height);
  EXPECT_GT(place.Rank, 0);
}

void ExpectShaft(const Drawing& drawing, int lastSegment, float x1, float y1, float x2, float y2) {
  const PixelLine& shaft = drawing.ArLin[lastSegment - 3].Line;
  EXPECT_NEAR(shaft.X1, x1, 1e-4);
  EXPECT_NEAR(shaft.Y1, y1, 1e-4);
  EXPECT_NEAR(shaft.X2, x2, 1e-4);
  EXPECT_NEAR(shaft.Y2, y2, 1e-4);
}

// A drawing with one support whose picture's left is 200 and top 100.
Drawing OneSupport(Truss& truss) {
  Drawing drawing;
  FitTables(drawing, truss);
  drawing.Support[1] = {200, 100};
  EXPECT_TRUE(DoLabel(drawing, truss, RecordingSurface::Measure, LabelMode::Place, LabelClass::Support, 1));
  return drawing;
}

}  // namespace

TEST(DoLabel, MemberArrowsPointIntoThePins) {
  Truss truss = TrussBuilder().Member(0, 0, 10, 5, "AB");
  Drawing drawing;
  FitTables(drawing, truss);
  drawing.Rod[1] = {100, 200, 200, 150};
  EXPECT_TRUE(DoLabel(drawing, truss, RecordingSurface::Measure, LabelMode::Place, LabelClass::Member, 1));
  ExpectShaft(drawing, 4, 130, 185, 110, 195);
  ExpectShaft(drawing, 8, 170, 165, 190, 155);
  // The head near end 1, 10 long and 4 wide, against the direction (-2, 1) / sqrt(5).
  EXPECT_NEAR(drawing.ArLin[4].Line.X1, 110 + 8.94427 - 0.89443, 1e-3);
  EXPECT_NEAR(drawing.ArLin[4].Line.Y1, 195 - 4.47214 - 1.78885, 1e-3);
}

TEST(DoLabel, TheMembersNameIsCentredOnItsMiddle) {
  Truss truss = TrussBuilder().Member(0, 0, 10, 5, "ABC");
  Drawing drawing;
  FitTables(drawing, truss);
  drawing.Rod[1] = {100, 200, 200, 150};
  EXPECT_TRUE(DoLabel(drawing, truss, RecordingSurface::Measure, LabelMode::Place, LabelClass::Member, 1));
  ExpectPlace(drawing.lblRodJoint[1], At(138, 170, 24, 10));
  EXPECT_EQ(drawing.lblRodJoint[1].TextLeft, MemberNameMargin);
  EXPECT_EQ(drawing.lblRodJoint[2].Rank, 0);  // its second label has no place
}

TEST(DoLabel, AClampHasAnArrowFromTheLeftAndOneFromBelow) {
  for (std::int16_t type = 1; type <= 4; ++type) {
    Truss truss = TrussBuilder().Clamp(0, 0, "Ax", "Ayy", type);
    const Drawing drawing = OneSupport(truss);
    ExpectShaft(drawing, 4, 174, 121, 196, 121);
    ExpectShaft(drawing, 8, 221, 158, 221, 136);
    ExpectPlace(drawing.lblRodJoint[1], At(158, 116, 16, 10));
    ExpectPlace(drawing.lblRodJoint[2], At(210, 158, 22, 10));
  }
}

TEST(DoLabel, ARollersArrowShowsItsPush) {
  const auto roller = [](std::int16_t type) { return Truss(TrussBuilder().Roller(0, 0, "R", type)); };
  Truss up = roller(5);
  ExpectShaft(OneSupport(up), 4, 221, 158, 221, 136);
  ExpectPlace(OneSupport(up).lblRodJoint[1], At(215, 158, 12, 10));
  Truss down = roller(6);
  ExpectShaft(OneSupport(down), 4, 211, 74, 211, 96);
  ExpectPlace(OneSupport(down).lblRodJoint[1], At(205, 64, 12, 10));
  Truss left = roller(7);
  ExpectShaft(OneSupport(left), 4, 258, 121, 236, 121);
  ExpectPlace(OneSupport(left).lblRodJoint[1], At(258, 116, 12, 10));
  Truss right = roller(8);
  ExpectShaft(OneSupport(right), 4, 174, 121, 196, 121);
  ExpectPlace(OneSupport(right).lblRodJoint[1], At(162, 116, 12, 10));
}

TEST(DoLabel, CreatesTwoLabelsForAMemberOneForARoller) {
  Truss truss;
  Drawing drawing;
  truss.Members.Resize(1);
  truss.NumMembers = 1;
  EXPECT_TRUE(DoLabel(drawing, truss, RecordingSurface::Measure, LabelMode::Create, LabelClass::Member, 1));
  EXPECT_EQ(truss.Members[1].NameLabel1, 1);
  EXPECT_EQ(truss.Members[1].NameLabel2, 2);
  EXPECT_EQ(truss.Members[1].ArrowLine1, 4);
  EXPECT_EQ(truss.Members[1].ArrowLine2, 8);
  truss.Supports.Resize(1);
  truss.NumSupports = 1;
  truss.Supports[1].TypeIndex = 5;
  EXPECT_TRUE(DoLabel(drawing, truss, RecordingSurface::Measure, LabelMode::Create, LabelClass::Support, 1));
  EXPECT_EQ(truss.Supports[1].NameLabel1, 3);
  EXPECT_EQ(truss.Supports[1].ArrowLine1, 12);
  EXPECT_EQ(drawing.lblRodJoint.Size(), 3);
  EXPECT_EQ(drawing.ArLin.Size(), 12);
  for (int i = 1; i <= 3; ++i) EXPECT_FALSE(drawing.lblRodJoint[i].Visible);
}

TEST(DoLabel, RefusesToPassTheLargestCounterAndChangesNothing) {
  Truss truss;
  Drawing drawing;
  truss.Members.Resize(1);
  truss.NumMembers = 1;
  truss.NumLabels = MaxCount - 1;
  truss.Labels.Resize(truss.NumLabels);
  EXPECT_FALSE(DoLabel(drawing, truss, RecordingSurface::Measure, LabelMode::Create, LabelClass::Member, 1));
  EXPECT_EQ(truss.NumLabels, MaxCount - 1);
  EXPECT_EQ(drawing.lblRodJoint.Size(), 0);
}

TEST(DoLabel, RemovingHidesAndTagsNamesAndArrows) {
  Truss truss = Bare(TrussBuilder().Member(0, 0, 1, 0).Clamp(0, 0));
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  ShowLabels(canvas.Picture, truss);
  RemoveLabels(canvas.Picture, truss, LabelClass::Member, 1);
  for (int i = 1; i <= 2; ++i) EXPECT_EQ(truss.Labels[i].Tag, DeletedTag);
  for (int i = 1; i <= 8; ++i) {
    EXPECT_EQ(truss.ArrowLineTags[i], DeletedTag);
    EXPECT_FALSE(canvas.Picture.ArLin[i].Visible);
  }
  EXPECT_FALSE(canvas.Picture.lblRodJoint[1].Visible);
  EXPECT_TRUE(canvas.Picture.lblRodJoint[3].Visible);
  RemoveLabels(canvas.Picture, truss, LabelClass::Support, 1);
  for (int i = 3; i <= 4; ++i) {
    EXPECT_EQ(truss.Labels[i].Tag, DeletedTag);
    EXPECT_FALSE(canvas.Picture.lblRodJoint[i].Visible);
  }
  for (int i = 9; i <= 16; ++i) EXPECT_FALSE(canvas.Picture.ArLin[i].Visible);
}

TEST(DoLabel, RemovingARollersNameLeavesItsMeaninglessSecondAlone) {
  Truss truss = TrussBuilder().Roller(0, 0);
  truss.Supports[1].NameLabel2 = 30000;
  truss.Supports[1].ArrowLine2 = 30000;
  Drawing drawing;
  FitTables(drawing, truss);
  RemoveLabels(drawing, truss, LabelClass::Support, 1);
  EXPECT_EQ(truss.Labels[1].Tag, DeletedTag);
}

TEST(DoLabel, JointNamesHaveTheirTopLeftCornerAtTheJoint) {
  Truss truss = TrussBuilder().Member(2, 3, 10, 5).Joint(2, 3, "1").Joint(10, 5, "22");
  Drawing drawing;
  drawing.Mapping = EasyGraph();
  FitTables(drawing, truss);
  EXPECT_TRUE(RefreshJoints(drawing, truss, RecordingSurface::Measure));
  ExpectPlace(drawing.lblRodJoint[3], At(88, 210, 8 + JointNameInset, 12 + JointNameDrop));
  ExpectPlace(drawing.lblRodJoint[4], At(248, 170, 14 + JointNameInset, 12 + JointNameDrop));
}

TEST(DoLabel, AnEmptyNameHasAPlaceThatCanBeClicked) {
  Truss truss = TrussBuilder().Member(0, 0, 4, 0, "").Clamp(0, 0, "", "").Roller(4, 0, "").Joint(4, 0, "");
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  ShowLabels(canvas.Picture, truss);
  int visible = 0;
  for (int i = 1; i <= truss.NumLabels; ++i) {
    const LabelPlace& place = canvas.Picture.lblRodJoint[i];
    if (!place.Visible) continue;
    ++visible;
    EXPECT_GE(place.Width, LeastLabelSize) << i;
    EXPECT_GE(place.Height, LeastLabelSize) << i;
  }
  EXPECT_EQ(visible, 1 + 2 + 1 + 2);
  const LabelPlace& member = canvas.Picture.lblRodJoint[truss.Members[1].NameLabel1];
  EXPECT_EQ(LabelAt(canvas.Picture, 88, 270), truss.Members[1].NameLabel1);
  EXPECT_FLOAT_EQ(member.Left + member.Width / 2, 88) << "centred on the member's middle";
}

TEST(DoLabel, AShortNameStandsInTheMiddleOfItsPlace) {
  Truss truss = TrussBuilder().Roller(0, 0, "R", 6);
  const Drawing drawing = OneSupport(truss);
  EXPECT_EQ(drawing.lblRodJoint[1].TextLeft, ReactionNameMargin + 1);
  EXPECT_EQ(drawing.lblRodJoint[1].TextTop, 0);
}

TEST(DoLabel, TheLettersOfAJointsNameLeaveItsSupportUncovered) {
  for (std::int16_t type = 1; type <= LastSupportType; ++type) {
    Truss truss = TrussBuilder().Clamp(2, 3, "X", "Y", type).Joint(2, 3, "1");
    if (type > LastClampType) truss = TrussBuilder().Roller(2, 3, "Y", type).Joint(2, 3, "1");
    Canvas canvas;
    EXPECT_TRUE(canvas.Redraw(truss));
    const LabelPlace& place = canvas.Picture.lblRodJoint[truss.Joints[1].NameLabel];
    EXPECT_EQ(place.Left, 88) << "the place begins at the joint";
    EXPECT_EQ(place.Top, 210);
    const float left = place.TextLeft - RimWidth;
    const float top = place.TextTop;
    for (const PictureShape& shape : SupportPicture(type)) {
      if (shape.Kind == ShapeKind::Circle) continue;
      for (const PixelPoint& point : shape.Points) {
        EXPECT_FALSE(point.X - 16 > left && point.Y - 16 > top) << "type " << type;
      }
    }
    // Nor do they stand in the way of an arrow: to the right of the picture, 4 pixels high.
    if (type == 7) {
      EXPECT_GE(top, 5 + 2);
    }
  }
}

TEST(DoLabel, RefreshingJointsMakesTheLabelsThatAreMissing) {
  Truss truss = TrussBuilder().Member(2, 3, 10, 5);
  Drawing drawing;
  drawing.Mapping = EasyGraph();
  FitTables(drawing, truss);
  truss.Members[1].X2 = 8;
  EXPECT_TRUE(RefreshJoints(drawing, truss, RecordingSurface::Measure));
  EXPECT_EQ(truss.NumLabels, 5);
  EXPECT_EQ(truss.Labels[4].Tag, DeletedTag);
  ExpectPlace(drawing.lblRodJoint[5], At(208, 170, 21 + JointNameInset, 12 + JointNameDrop));
}

TEST(PlaceNames, MeasuresAnewAndLeavesShapesAndJointsWhereTheyAre) {
  Truss truss =
      TrussBuilder().Member(0, 0, 10, 5, "AB").Roller(10, 5, "R").Joint(0, 0, "z").Joint(10, 5, "a");
  Drawing drawing;
  drawing.Mapping.SetMapping(0, 200, 100, 0, 0, 20, 0, 10);
  FitTables(drawing, truss);
  drawing.Rod[1] = {0, 100, 100, 50};
  drawing.Support[1] = {84, 34};
  SortJoints(truss);
  PlaceNames(drawing, truss, RecordingSurface::Measure);
  ExpectPlace(drawing.lblRodJoint[truss.Members[1].NameLabel1], At(41, 70, 18, 10));

  truss.Labels[truss.Members[1].NameLabel1].Caption = "chord";
  truss.Labels[truss.Supports[1].NameLabel1].Caption = "foot";
  truss.Labels[truss.Joints[1].NameLabel].Caption = "apex";
  PlaceNames(drawing, truss, RecordingSurface::Measure);
  ExpectPlace(drawing.lblRodJoint[truss.Members[1].NameLabel1], At(32, 70, 36, 10));
  ExpectPlace(drawing.lblRodJoint[truss.Supports[1].NameLabel1], At(91, 92, 28, 10));
  ExpectPlace(drawing.lblRodJoint[truss.Joints[1].NameLabel], At(100, 50, 28 + 15, 12 + JointNameDrop));
  EXPECT_EQ(drawing.Rod[1].X2, 100);
  EXPECT_EQ(truss.Joints[1].X, 10) << "the joints keep their order";
}
