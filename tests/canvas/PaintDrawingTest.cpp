// The lasting objects as they are painted, layer by layer.
#include "canvas/PaintDrawing.h"

#include <algorithm>

#include "CanvasFixture.h"
#include "platform/Palette.h"

namespace {

RecordingSurface Painted(const Canvas& canvas, const Truss& truss) {
  RecordingSurface paper;
  PaintDrawing(paper, canvas.Picture, truss);
  return paper;
}

}  // namespace

TEST(PaintDrawing, InStep1MembersPinsAndSupportsAreSeen) {
  Truss truss = Bare(TrussBuilder().Member(1, 2, 5.5F, 4).Clamp(1, 2));
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  const RecordingSurface paper = Painted(canvas, truss);
  EXPECT_EQ(paper.Lines[0], (DrawnLine{68, 230, 158, 190, RodLineWidth, 0}));
  EXPECT_EQ(paper.Fills.size(), 2U * 2 + 1 + 2);  // two pins, the clamp's triangle and its pin
  EXPECT_TRUE(paper.Texts.empty());
  // The first pin, in front of the clamp: a circle of 6 pixels round the member's end.
  for (const PixelPoint& corner : paper.Fills[3]) {
    EXPECT_NEAR(std::hypot(corner.X - 68, corner.Y - 230), 3, 1e-4);
  }
}

TEST(PaintDrawing, ErasedElementsAreGone) {
  Truss truss = Bare(TrussBuilder().Member(1, 2, 5, 4).ThenErased().Clamp(1, 2).ThenErased());
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  ShowLabels(canvas.Picture, truss);
  EXPECT_TRUE(Painted(canvas, truss).Order.empty());
}

TEST(PaintDrawing, AMemberThatIsStillBeingDrawnHasNoPins) {
  Truss truss = Bare(TrussBuilder().Member(1, 2, 5, 4));
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  canvas.Picture.Pin1.Resize(0);
  canvas.Picture.Pin2.Resize(0);
  EXPECT_EQ(Painted(canvas, truss).Lines.size(), 1U);
}

TEST(PaintDrawing, MembersThatMeetShareOnePin) {
  Truss truss = Bare(TrussBuilder().Member(0, 0, 10, 0).Member(10, 0, 5, 5).Member(5, 5, 0, 0));
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_EQ(Painted(canvas, truss).Fills.size(), 2U * 3);
}

TEST(PaintDrawing, NamesStandInFrontInTheirFontsOnWhite) {
  Truss truss = Bare(TrussBuilder().Member(0, 0, 10, 0, "AB").Joint(0, 0, "1").Joint(10, 0, "2"));
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  ShowLabels(canvas.Picture, truss);
  const RecordingSurface paper = Painted(canvas, truss);
  const TextFont plain{};
  const TextFont bold{.Points = 10, .Bold = true};
  EXPECT_EQ(paper.Texts[0], (DrawnText{142, 265, "AB", plain}));
  EXPECT_THAT(paper.Texts, testing::Contains(DrawnText{52, 272, "1", bold}));
  EXPECT_EQ(paper.Texts.back(), (DrawnText{252, 272, "2", bold}));
  EXPECT_EQ(paper.Fills.back(), (std::vector<PixelPoint>{{139, 265}, {157, 265}, {157, 275}, {139, 275}}));
  EXPECT_EQ(paper.FillColours.back(), 15);
  EXPECT_EQ(paper.Font, plain);
}

TEST(PaintDrawing, AJointsNameCoversMembersButNeitherPinNorSupport) {
  Truss truss = Bare(TrussBuilder().Member(0, 0, 10, 0).Clamp(0, 0).Joint(0, 0, "1"));
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  ShowLabels(canvas.Picture, truss);
  const RecordingSurface paper = Painted(canvas, truss);
  EXPECT_EQ(paper.Order[0], "line");  // the member
  EXPECT_EQ(paper.Order[1], "fill");
  EXPECT_EQ(paper.Fills[0], (std::vector<PixelPoint>{{61, 272}, {71, 272}, {71, 284}, {61, 284}}));
  EXPECT_EQ(paper.FillColours[0], 15);
  EXPECT_EQ(paper.FillColours[2], LightGrey);  // the clamp's triangle
}

TEST(PaintDrawing, TheLettersOfAJointsNameHaveAWhiteRim) {
  Truss truss = Bare(TrussBuilder().Member(0, 0, 10, 0, "AB").Joint(0, 0, "1"));
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  ShowLabels(canvas.Picture, truss);
  const RecordingSurface paper = Painted(canvas, truss);
  const auto times = [&paper](const char* name) {
    return std::ranges::count(paper.Texts, name, &DrawnText::Text);
  };
  EXPECT_EQ(times("1"), 13);
  EXPECT_EQ(times("AB"), 1);
  EXPECT_EQ(paper.Texts.back().Text, "[ ]");
  EXPECT_EQ(paper.Colour, 0);
}

TEST(PaintDrawing, AmongVeryManyJointsRimsWouldHelpNobody) {
  TrussBuilder builder;
  for (int i = 0; i < 301; ++i) builder.Roller(static_cast<float>(i), 0, "R");
  Truss truss = Bare(builder);
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  ShowLabels(canvas.Picture, truss);
  EXPECT_EQ(Painted(canvas, truss).Texts.size(), 2U * 301);
}

TEST(PaintDrawing, ArrowsStandBesideTheNames) {
  Truss truss = Bare(TrussBuilder().Member(0, 0, 10, 0));
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  const std::size_t before = Painted(canvas, truss).Lines.size();
  ShowLabels(canvas.Picture, truss);
  const RecordingSurface paper = Painted(canvas, truss);
  EXPECT_EQ(paper.Lines.size(), before + 8);
  EXPECT_NEAR(paper.Lines[before].X1, 108, 1e-4);
  EXPECT_NEAR(paper.Lines[before].X2, 68, 1e-4);
}

TEST(PaintDrawing, PinsStandInFrontOfForces) {
  Truss truss = Bare(TrussBuilder().Member(0, 0, 10, 0).Force(10, 0, 0, 3000));
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_THAT(Painted(canvas, truss).Order, testing::ElementsAre("line", "fill"));
}

TEST(PaintDrawing, HandlesStandInFrontOfAll) {
  Truss truss = Bare(TrussBuilder().Member(0, 0, 10, 0));
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  ShowLabels(canvas.Picture, truss);
  canvas.Picture.MoveHandleB = {.Left = 44, .Top = 266, .Visible = true};
  canvas.Picture.MoveHandleS = {.Left = 245, .Top = 267, .Visible = true};
  const RecordingSurface paper = Painted(canvas, truss);
  EXPECT_EQ(paper.Order.back(), "fill");
  const std::size_t count = paper.Fills.size();
  EXPECT_EQ(paper.Fills[count - 2], (std::vector<PixelPoint>{{44, 266}, {52, 266}, {52, 274}, {44, 274}}));
  EXPECT_EQ(paper.Fills[count - 1],
            (std::vector<PixelPoint>{{245, 267}, {251, 267}, {251, 273}, {245, 273}}));
}

TEST(PaintDrawing, LeavesBlackAndAWidthOfOne) {
  Truss truss = Bare(TrussBuilder().Member(0, 0, 10, 0).Roller(10, 0));
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  RecordingSurface paper = Painted(canvas, truss);
  EXPECT_EQ(paper.Colour, 0);
  EXPECT_EQ(paper.Width, 1);
}

TEST(PaintDrawing, FarMembersAreCutToThePaper) {
  Truss truss = Bare(TrussBuilder().Member(0, 0, 3e38F, 3e38F));
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_FALSE(Painted(canvas, truss).Lines.empty());
}
