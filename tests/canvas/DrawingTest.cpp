// What is shown in which step, and what lies under a pixel.
#include "canvas/Drawing.h"

#include "CanvasFixture.h"
#include "canvas/DoLabel.h"

namespace {

Truss Triangle() {
  return Bare(
      TrussBuilder().Member(0, 0, 10, 0).Member(10, 0, 5, 5).Member(5, 5, 0, 0).Clamp(0, 0).Roller(10, 0));
}

int NumVisibleLabels(const Drawing& drawing) {
  int count = 0;
  for (int i = 1; i <= drawing.lblRodJoint.Size(); ++i) count += drawing.lblRodJoint[i].Visible ? 1 : 0;
  return count;
}

int NumVisibleSegments(const Drawing& drawing) {
  int count = 0;
  for (int i = 1; i <= drawing.ArLin.Size(); ++i) count += drawing.ArLin[i].Visible ? 1 : 0;
  return count;
}

LabelPlace Box(float left, float top, std::int64_t rank) {
  return {.Left = left, .Top = top, .Width = 20, .Height = 10, .Visible = true, .Rank = rank};
}

}  // namespace

TEST(Drawing, InStep1NoNameAndNoArrowIsShown) {
  Truss truss = Triangle();
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_EQ(NumVisibleLabels(canvas.Picture), 0);
  EXPECT_EQ(NumVisibleSegments(canvas.Picture), 0);
}

TEST(Drawing, LaterEveryElementShowsItsNamesAndArrows) {
  Truss truss = Triangle();
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  ShowLabels(canvas.Picture, truss);
  EXPECT_EQ(NumVisibleLabels(canvas.Picture), 3 + 2 + 1 + 3);
  EXPECT_EQ(NumVisibleSegments(canvas.Picture), 4 * (3 * 2 + 2 + 1));
}

TEST(Drawing, ARedrawKeepsNamesShownOrHidden) {
  Truss truss = Triangle();
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  ShowLabels(canvas.Picture, truss);
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_EQ(NumVisibleLabels(canvas.Picture), 9);
  HideLabels(canvas.Picture);
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_EQ(NumVisibleLabels(canvas.Picture), 0);
}

TEST(Drawing, ErasedElementsShowNothing) {
  Truss truss = Bare(TrussBuilder()
                         .Member(0, 0, 10, 0)
                         .Member(10, 0, 5, 5)
                         .ThenErased()
                         .Clamp(0, 0)
                         .ThenErased()
                         .Roller(10, 0)
                         .ThenErased());
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  ShowLabels(canvas.Picture, truss);
  EXPECT_EQ(NumVisibleLabels(canvas.Picture), 1 + 2);
  EXPECT_EQ(NumVisibleSegments(canvas.Picture), 8);
  EXPECT_TRUE(IsRodShown(canvas.Picture, truss, 1));
  EXPECT_FALSE(IsRodShown(canvas.Picture, truss, 2));
  EXPECT_FALSE(IsSupportShown(canvas.Picture, truss, 1));
}

TEST(Drawing, WhatIsTaggedAsDeletedIsNotShown) {
  Truss truss = Triangle();
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  truss.Labels[1].Tag = DeletedTag;
  truss.ArrowLineTags[2] = DeletedTag;
  ShowLabels(canvas.Picture, truss);
  EXPECT_FALSE(canvas.Picture.lblRodJoint[1].Visible);
  EXPECT_FALSE(canvas.Picture.ArLin[2].Visible);
  EXPECT_TRUE(canvas.Picture.ArLin[1].Visible);
}

TEST(Drawing, ALabelTakenOverStaysWithItsNewElement) {
  Truss truss = Bare(TrussBuilder().Member(0, 0, 2, 0).Member(4, 4, 8, 4).ThenErased());
  // Member 1 now carries what the erased member 2 had.
  const MemberRec old = truss.Members[2];
  truss.Members[1].NameLabel1 = old.NameLabel1;
  truss.Members[1].ArrowLine1 = old.ArrowLine1;
  truss.Labels[old.NameLabel1].Tag.clear();
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  ShowLabels(canvas.Picture, truss);
  EXPECT_EQ(canvas.Picture.lblRodJoint[old.NameLabel1].Left, 48 + 20 - 9 - MemberNameMargin);
  EXPECT_TRUE(canvas.Picture.lblRodJoint[old.NameLabel1].Visible);
}

TEST(Drawing, AfterResetAllNothingIsLeft) {
  Truss truss = Triangle();
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  ShowLabels(canvas.Picture, truss);
  ResetAll(truss);
  HideLabels(canvas.Picture);
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_EQ(canvas.Picture.Rod.Size(), 0);
  EXPECT_EQ(canvas.Picture.Support.Size(), 0);
  EXPECT_EQ(canvas.Picture.lblRodJoint.Size(), 0);
  EXPECT_EQ(canvas.Picture.ArLin.Size(), 0);
}

TEST(Drawing, OnAnEmptyRangeNothingIsShown) {
  Truss truss = Triangle();
  truss.Settings.XMax = 0;
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  ShowLabels(canvas.Picture, truss);
  EXPECT_EQ(NumVisibleLabels(canvas.Picture), 0);
  EXPECT_FALSE(IsRodShown(canvas.Picture, truss, 1));
  EXPECT_FALSE(IsSupportShown(canvas.Picture, truss, 1));
}

TEST(Drawing, TheTopmostLabelIsFound) {
  Drawing drawing;
  drawing.lblRodJoint.Resize(3);
  drawing.lblRodJoint[1] = Box(0, 0, 3);
  drawing.lblRodJoint[2] = Box(10, 0, 1);
  drawing.lblRodJoint[3] = Box(10, 0, 2);
  EXPECT_EQ(LabelAt(drawing, 5, 5), 1);
  EXPECT_EQ(LabelAt(drawing, 15, 5), 1);
  EXPECT_EQ(LabelAt(drawing, 25, 5), 3);
  drawing.lblRodJoint[1].Visible = false;
  EXPECT_EQ(LabelAt(drawing, 5, 5), 0);
  EXPECT_EQ(LabelAt(drawing, 15, 5), 3);
  BringLabelToFront(drawing, 2);
  EXPECT_GT(drawing.lblRodJoint[2].Rank, 0);
}

TEST(Drawing, ALabelCoversItsLeftAndTopEdgeOnly) {
  Drawing drawing;
  drawing.lblRodJoint.Resize(1);
  drawing.lblRodJoint[1] = Box(10, 40, 1);
  EXPECT_EQ(LabelAt(drawing, 10, 40), 1);
  EXPECT_EQ(LabelAt(drawing, 29.5F, 49.5F), 1);
  EXPECT_EQ(LabelAt(drawing, 30, 45), 0);
  EXPECT_EQ(LabelAt(drawing, 15, 50), 0);
  EXPECT_EQ(LabelAt(drawing, 9.9F, 45), 0);
}

TEST(Drawing, JointNamesStandInFrontOfMembersAndTheseInFrontOfSupports) {
  Truss truss = Triangle();
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  const auto rank = [&](LabelIndex label) { return canvas.Picture.lblRodJoint[label].Rank; };
  EXPECT_LT(rank(truss.Supports[1].NameLabel1), rank(truss.Supports[1].NameLabel2));
  EXPECT_LT(rank(truss.Supports[2].NameLabel1), rank(truss.Members[1].NameLabel1));
  EXPECT_LT(rank(truss.Members[1].NameLabel1), rank(truss.Members[3].NameLabel1));
  EXPECT_LT(rank(truss.Members[3].NameLabel1), rank(truss.Joints[1].NameLabel));
}

TEST(Drawing, FindsALabelAmongTenThousand) {
  Drawing drawing;
  drawing.lblRodJoint.Resize(10'000);
  for (int i = 1; i <= 10'000; ++i) drawing.lblRodJoint[i] = Box(static_cast<float>(i), 0, i);
  EXPECT_EQ(LabelAt(drawing, 5000, 5), 5000);
}

TEST(Drawing, ALabelIsOutsideWhenItsMiddleIs) {
  Drawing drawing;
  drawing.lblRodJoint.Resize(1);
  const auto numOutside = [&](float left, float top) {
    drawing.lblRodJoint[1] = Box(left, top, 1);  // 20 by 10 pixels
    return NumLabelsOutside(drawing, {0, 50}, {200, 150});
  };
  EXPECT_EQ(numOutside(50, 80), 0);
  EXPECT_EQ(numOutside(-10, 80), 0);
  EXPECT_EQ(numOutside(-10.5F, 80), 1);
  EXPECT_EQ(numOutside(190.5F, 80), 1);
  EXPECT_EQ(numOutside(50, 44), 1);
  EXPECT_EQ(numOutside(50, 145), 0);
  EXPECT_EQ(numOutside(50, 146), 1);
  EXPECT_EQ(numOutside(3e38F, 3e38F), 1);
  drawing.lblRodJoint[1].Visible = false;
  EXPECT_EQ(NumLabelsOutside(drawing, {0, 50}, {200, 150}), 0);
}
