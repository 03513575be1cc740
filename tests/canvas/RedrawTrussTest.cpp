// The whole redraw: its order, every line of it, and what it does with a truss that cannot be drawn.
#include "canvas/RedrawTruss.h"

#include <limits>

#include "CanvasFixture.h"
#include "canvas/ForceArrows.h"

namespace {

Truss WithRulersAndGrid() { return TrussBuilder().Member(0, 0, 4, 3).Clamp(0, 0).Force(4, 3, 0, -1000); }

std::vector<DrawnLine> Coloured(const RecordingSurface& paper, int colour) {
  std::vector<DrawnLine> lines;
  for (const DrawnLine& line : paper.Lines) {
    if (line.Colour == colour) lines.push_back(line);
  }
  return lines;
}

// A message box that notes how much had been drawn when it was shown.
struct LateMessages : MessageBox {
  explicit LateMessages(const RecordingSurface& paper) : Paper(paper) {}
  MessageAnswer Show(const Message&) override {
    Order = Paper.Order;
    return MessageAnswer::Ok;
  }
  const RecordingSurface& Paper;
  std::vector<std::string> Order;
};

}  // namespace

TEST(RedrawTruss, ClearsThenRulersThenGridThenForces) {
  Truss truss = WithRulersAndGrid();
  truss.Settings.GridX = 10;
  truss.Settings.GridY = 5;
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  const auto& order = canvas.Paper.Order;
  ASSERT_GE(order.size(), 4U);
  EXPECT_EQ(order[0], "clear");
  EXPECT_EQ(order[1], "line");
  EXPECT_EQ(order[2], "text");
  EXPECT_EQ(order[order.size() - 3], "text");  // the last ruler's caption
  EXPECT_EQ(order[order.size() - 2], "dot");   // over the rulers
  EXPECT_EQ(order[order.size() - 1], "line");  // the force
  EXPECT_EQ(canvas.Paper.Lines.back().Colour, 12);
}

TEST(RedrawTruss, RulersAndGridCanBeSwitchedOff) {
  Truss truss = Bare(TrussBuilder());
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_THAT(canvas.Paper.Order, testing::ElementsAre("clear"));
  truss.Settings.RulersOn = true;
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_TRUE(canvas.Paper.Dots.empty());
  EXPECT_FALSE(canvas.Paper.Lines.empty());
}

TEST(RedrawTruss, AnArrowLeavesBlackInkForTheNextGrid) {
  Truss truss = WithRulersAndGrid();
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_EQ(canvas.Paper.Colour, 0);
  EXPECT_EQ(canvas.Paper.Width, 1);
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_THAT(canvas.Paper.DotColours, testing::Each(0));
  EXPECT_EQ(canvas.Paper.Dots.size(), 2U * 40 * 20);
}

TEST(RedrawTruss, AGridTooDenseIsToldOnceAndTheRedrawGoesOn) {
  Truss truss = WithRulersAndGrid();
  truss.Settings.GridX = 0.01F;
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_EQ(canvas.Messages.Shown.size(), 1U);
  EXPECT_FALSE(Coloured(canvas.Paper, 12).empty());
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_EQ(canvas.Messages.Shown.size(), 2U);
}

TEST(RedrawTruss, TheMessageComesAfterTheRulers) {
  Truss truss = WithRulersAndGrid();
  truss.Settings.GridX = 0.01F;
  truss.View = DeriveView(truss.Settings, EasyBounds);
  Canvas canvas;
  LateMessages messages(canvas.Paper);
  EXPECT_TRUE(RedrawTruss(truss, canvas.Picture, canvas.Paper, canvas.Context, messages));
  EXPECT_EQ(messages.Order.back(), "text");
  EXPECT_EQ(canvas.Paper.Order.back(), "line");
}

TEST(RedrawTruss, HidesPanelAndHandlesAndEnablesSupports) {
  Truss truss = Bare(TrussBuilder());
  Canvas canvas;
  canvas.Picture.OpenPanel = ValuePanel::Force;
  canvas.Picture.MoveHandleB.Visible = true;
  canvas.Picture.MoveHandleS.Visible = true;
  canvas.Picture.SupportsEnabled = false;
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_EQ(canvas.Picture.OpenPanel, ValuePanel::None);
  EXPECT_FALSE(canvas.Picture.MoveHandleB.Visible);
  EXPECT_FALSE(canvas.Picture.MoveHandleS.Visible);
  EXPECT_TRUE(canvas.Picture.SupportsEnabled);
}

TEST(RedrawTruss, MapsTheSettingsToTheBounds) {
  Truss truss = Bare(TrussBuilder());
  truss.Settings.XMin = -1;
  truss.Settings.XMax = 9;
  truss.Settings.YMin = 2;
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  const Graph& graph = canvas.Picture.Mapping;
  EXPECT_EQ(graph.XPixel(-1), 48);
  EXPECT_EQ(graph.XPixel(9), 448);
  EXPECT_EQ(graph.YPixel(2), 270);
  EXPECT_EQ(graph.YPixel(7), 70);
}

TEST(RedrawTruss, PlacesSupportsRodsAndPins) {
  Truss truss = Bare(TrussBuilder().Member(1, 2, 5.5F, 4).Clamp(1, 2).Roller(10, 0));
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_EQ(canvas.Picture.Support[1], (PixelPoint{68 - 16, 230 - 16}));
  EXPECT_EQ(canvas.Picture.Support[2], (PixelPoint{248 - 16, 270 - 16}));
  EXPECT_EQ(canvas.Picture.Rod[1], (PixelLine{68, 230, 158, 190}));
  EXPECT_EQ(canvas.Picture.Pin1[1], (PixelPoint{65, 227}));
  EXPECT_EQ(canvas.Picture.Pin2[1], (PixelPoint{155, 187}));
}

TEST(RedrawTruss, AForceIsAnArrowInRulerUnits) {
  Truss truss = Bare(TrussBuilder().Force(5, 5, 3000, 0));
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_THAT(canvas.Paper.Lines,
              testing::ElementsAre(DrawnLine{148, 170, 208, 170, 2, 12},
                                   testing::Field(&DrawnLine::X2, testing::FloatEq(196)),
                                   testing::Field(&DrawnLine::Y2, testing::FloatNear(167.6F, 1e-4F)),
                                   testing::Field(&DrawnLine::X2, 208)));
  const ForceRec& force = truss.Forces[1];
  EXPECT_EQ(force.PixX1, 148);
  EXPECT_EQ(force.PixY1, 170);
  EXPECT_EQ(force.PixX2, 208);
  EXPECT_EQ(force.PixY2, 170);
}

TEST(RedrawTruss, AForceUpPointsUpThePage) {
  Truss truss = Bare(TrussBuilder().Force(5, 5, 0, 2000));
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_EQ(canvas.Paper.Lines[0], (DrawnLine{148, 170, 148, 130, 2, 12}));
}

TEST(RedrawTruss, AForceOfNothingDrawsNoArrow) {
  Truss truss = Bare(TrussBuilder().Force(5, 5, 0, 0));
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_TRUE(canvas.Paper.Lines.empty());
}

TEST(RedrawTruss, AnErasedForceIsNotDrawnAndKeepsItsPlace) {
  Truss truss = Bare(TrussBuilder().Force(5, 5, 1000, 0).ThenErased());
  truss.Forces[1].PixX1 = 77;
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_TRUE(canvas.Paper.Lines.empty());
  EXPECT_EQ(truss.Forces[1].PixX1, 77);
}

TEST(RedrawTruss, WithoutAForceScaleThereAreNoArrows) {
  Truss truss = Bare(TrussBuilder().Force(5, 5, 1000, 0));
  truss.Settings.ForceScale = 0;
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_TRUE(canvas.Paper.Lines.empty());
  EXPECT_EQ(truss.Forces[1].PixX2, truss.Forces[1].PixX1);
}

TEST(RedrawTruss, EndsWithTheJoints) {
  Truss truss = Bare(TrussBuilder().Member(0, 0, 4, 3));
  truss.Members[1].X2 = 6;
  Canvas canvas;
  EXPECT_TRUE(canvas.Redraw(truss));
  EXPECT_EQ(truss.NumJoints, 2);
  EXPECT_EQ(truss.Joints[2].X, 6);
  const LabelPlace& place = canvas.Picture.lblRodJoint[truss.Joints[2].NameLabel];
  EXPECT_EQ(place.Left, 168);
  EXPECT_EQ(place.Top, 210);
  EXPECT_GT(place.Rank, 0);
}

TEST(RedrawTruss, SaysWhenTheJointsAreTooMany) {
  Truss truss = Bare(TrussBuilder().Member(0, 0, 4, 3));
  truss.NumForces = MaxJoints;
  truss.Forces.GrowTo(MaxJoints);
  for (int i = 1; i <= MaxJoints; ++i) {
    truss.Forces[i] = {.X = static_cast<float>(i), .Y = 9, .Fx = 1000, .Active = true};
  }
  Canvas canvas;
  EXPECT_FALSE(canvas.Redraw(truss));
  EXPECT_EQ(truss.NumJoints, 2);                         // as before
  EXPECT_EQ(canvas.Paper.Lines.size(), 4U * MaxJoints);  // all is drawn
  EXPECT_GT(canvas.Picture.lblRodJoint[truss.Joints[1].NameLabel].Rank, 0);
}

TEST(RedrawTruss, NoSettingBringsAnythingButFiniteNumbersToThePaper) {
  const float values[] = {0.0F, -1.0F, 1e-38F, -1e-38F, 3e38F, -3e38F, 0.7F};
  for (const float a : values) {
    for (const float b : values) {
      Truss truss = TrussBuilder().Member(-3e38F, 3e38F, a, b).Roller(b, a).Force(a, b, b, 3e38F);
      truss.Settings.XMin = a;
      truss.Settings.XMax = b;
      truss.Settings.YMin = b;
      truss.Settings.HatchSpacing = a;
      truss.Settings.GridX = b;
      truss.Settings.GridY = a;
      truss.Settings.ForceScale = a;
      Canvas canvas;
      EXPECT_TRUE(canvas.Redraw(truss));  // the recording surface refuses numbers that are not sane
      EXPECT_LE(canvas.Messages.Shown.size(), 1U);
      EXPECT_LE(canvas.Paper.Lines.size(), 10'000U);
    }
  }
}

TEST(RedrawTruss, TheSameStepsDrawOnAnotherSurfaceWithoutTouchingTheTruss) {
  const Truss truss = TrussBuilder().Member(0, 0, 4, 3).Force(4, 3, 1000, 0);
  Drawing drawing;
  drawing.Mapping.SetMapping(0, 200, 100, 0, 0, 20, 0, 10);
  FitTables(drawing, truss);
  PlaceObjects(drawing, truss);
  RecordingSurface paper;
  DrawForces(paper, drawing, truss);
  EXPECT_EQ(drawing.Rod[1], (PixelLine{0, 100, 40, 70}));
  EXPECT_EQ(paper.Lines[0], (DrawnLine{40, 70, 50, 70, 2, 12}));
}
