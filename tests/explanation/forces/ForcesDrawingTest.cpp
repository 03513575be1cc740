// Where lines, arrows and texts of the forces stand on a drawing.
#include "explanation/forces/ForcesDrawing.h"

#include <gmock/gmock.h>

#include "ForcesFixture.h"
#include "canvas/PixelBoxes.h"
#include "explanation/forces/ForceArrowPlaces.h"
#include "explanation/forces/ForcesPicture.h"

namespace {

using testing::IsEmpty;
using testing::SizeIs;

constexpr PixelRect Room{0, 0, 640, 420};

const ForceLabel* LabelOfUnknown(const ForcesDrawing& drawing, int unknown) {
  for (const ForceLabel& label : drawing.Labels) {
    const bool isOfUnknown = label.What == LabelOf::Member || label.What == LabelOf::Reaction;
    if (isOfUnknown && label.Number == unknown) return &label;
  }
  return nullptr;
}

const DrawnForce& ArrowIn(const ForcesDrawing& drawing, ArrowOf what, int number) {
  const auto found = std::ranges::find_if(
      drawing.Arrows, [&](const DrawnForce& arrow) { return arrow.What == what && arrow.Number == number; });
  if (found == drawing.Arrows.end()) throw std::runtime_error("no arrow");
  return *found;
}

double LengthOf(const PixelLine& line) { return std::hypot(line.X2 - line.X1, line.Y2 - line.Y1); }

TEST(ForcesDrawing, TheLargerTheForceTheWiderTheLine) {
  const SolvedForces truss = LoadedTriangleForces();
  const ForcesDrawing drawing = truss.Drawn();
  ASSERT_THAT(drawing.Members, SizeIs(3));
  EXPECT_EQ(drawing.Members[1].Width, 8) << "the largest";
  EXPECT_EQ(drawing.Members[0].Width, 6) << "2 + 6 * 0.7071";
}

TEST(ForcesDrawing, EveryTextHasItsPlaceBesideItsMember) {
  const SolvedForces truss = LoadedTriangleForces();
  const ForcesDrawing drawing = truss.Drawn();
  EXPECT_EQ(drawing.NumLeftOut, 0);
  for (const DrawnMember& member : drawing.Members) {
    const ForceLabel* label = LabelOfUnknown(drawing, member.Unknown);
    ASSERT_NE(label, nullptr);
    EXPECT_FALSE(label->Leader);
    EXPECT_TRUE(RunsThrough(member.Line, label->Box, member.Width / 2.0 + 8)) << "not far from it";
  }
}

TEST(ForcesDrawing, WhereOnlyTheMagnitudeHasRoomItStandsAlone) {
  const SolvedForces truss(TrussOf(RandomSimpleTruss(40, 3)));
  int numAlone = 0;
  for (const float width : {120.0F, 160.0F, 200.0F, 240.0F, 300.0F, 400.0F, 500.0F}) {
    for (const ForceLabel& label : truss.Drawn({0, 0, width, width * 0.7F}).Labels) {
      if (label.What != LabelOf::Member) continue;
      const std::vector<std::string>& all = truss.Forces.Unknowns[label.Number].Lines;
      EXPECT_EQ(label.Lines.front(), all.front());
      numAlone += label.Lines.size() < all.size() ? 1 : 0;
    }
  }
  EXPECT_GT(numAlone, 0);
}

TEST(ForcesDrawing, ATextAwayFromItsMemberHasALeaderToTheMiddle) {
  // A short bar between two long ones.
  const SolvedForces truss(TrussBuilder()
                               .Member(0, 0, 8, 0, "a")
                               .Member(0, 0.2F, 8, 0.2F, "b")
                               .Member(4, 0, 4, 0.2F, "c")
                               .Member(0, 0, 0, 0.2F, "d")
                               .Member(8, 0, 8, 0.2F, "e")
                               .Clamp(0, 0, "x", "y")
                               .Roller(8, 0, "r"));
  const ForcesDrawing drawing = truss.Drawn();
  const int c = truss.Unknown("c");
  const ForceLabel* label = LabelOfUnknown(drawing, c);
  ASSERT_NE(label, nullptr);
  ASSERT_TRUE(label->Leader);
  const auto member = std::ranges::find(drawing.Members, c, &DrawnMember::Unknown);
  EXPECT_NEAR(label->Leader->X2, (member->Line.X1 + member->Line.X2) / 2, 0.01);
  EXPECT_NEAR(label->Leader->Y2, (member->Line.Y1 + member->Line.Y2) / 2, 0.01);
  const PixelRect& box = label->Box;
  EXPECT_TRUE(label->Leader->X1 == box.Left || label->Leader->X1 == box.Right ||
              label->Leader->Y1 == box.Top || label->Leader->Y1 == box.Bottom);
}

TEST(ForcesDrawing, ANarrowRoomLeavesTextsOutAndAZoomBringsThemBack) {
  const SolvedForces truss = LoadedTriangleForces();
  EXPECT_GT(truss.Drawn({0, 0, 70, 50}).NumLeftOut, 0);
  EXPECT_EQ(truss.Drawn({0, 0, 70, 50}, 12).NumLeftOut, 0);
}

TEST(ForcesDrawing, NothingIsCoveredOnAnyExample) {
  int numLabels = 0;
  for (const auto& [name, truss] : ExampleTrusses()) {
    const SolvedForces solved(truss);
    for (const PixelRect& room : {Room, PixelRect{0, 0, 400, 300}, PixelRect{0, 0, 1200, 700}}) {
      const ForcesDrawing drawing = solved.Drawn(room);
      EXPECT_EQ(NumOverlaps(drawing), 0) << name << " in " << room.Width();
      numLabels += static_cast<int>(drawing.Labels.size());
    }
    EXPECT_EQ(solved.Drawn({0, 0, 1200, 700}).NumLeftOut, 0) << name;
  }
  EXPECT_GT(numLabels, 1500);
}

TEST(ForcesDrawing, NothingIsCoveredOnTrussesOfAnyShape) {
  std::mt19937 random(12);
  int numLabels = 0;
  int numLeftOut = 0;
  for (int i = 0; i < 300; ++i) {
    const SolvedForces truss(RandomSmallTruss(random, 8, 6));
    if (truss.Forces.Graph.NumUnknowns() == 0) continue;
    const ForcesDrawing drawing = truss.Drawn(Room, 1 + i % 3);
    EXPECT_EQ(NumOverlaps(drawing), 0) << i;
    numLabels += static_cast<int>(drawing.Labels.size());
    numLeftOut += drawing.NumLeftOut;
  }
  EXPECT_GT(numLabels, 2500);
  EXPECT_LT(numLeftOut, numLabels / 20);
  for (unsigned seed = 1; seed <= 12; ++seed) {
    const SolvedForces truss(TrussOf(RandomSimpleTruss(40, seed)));
    EXPECT_EQ(NumOverlaps(truss.Drawn()), 0) << seed;
  }
}

// Thousands of texts cannot all stand on one screen: the more of them the larger the drawing is.
TEST(ForcesDrawing, OnALargeStripTextsAppearWithTheZoom) {
  const SolvedForces truss(TrussOf(WarrenStrip(1000)));
  int fewer = -1;
  for (const double zoom : {1.0, 20.0, 60.0, 150.0}) {
    const ForcesDrawing drawing = truss.Drawn(Room, zoom);
    const auto numMembers = std::ranges::count(drawing.Labels, LabelOf::Member, &ForceLabel::What);
    EXPECT_GT(static_cast<int>(numMembers), fewer) << zoom;
    EXPECT_EQ(NumOverlaps(drawing), 0) << zoom;
    fewer = static_cast<int>(numMembers);
  }
  EXPECT_EQ(truss.Drawn(Room, LargestZoom(truss.Forces, Room)).NumLeftOut, 0);
}

TEST(ForcesDrawing, WhereNotAllTextsHaveRoomTheLargestForcesHaveTheirs) {
  const SolvedForces truss(TrussOf(WarrenStrip(120)));
  const ForcesDrawing drawing = truss.Drawn(Room);
  ASSERT_GT(drawing.NumLeftOut, 0);
  double least = truss.Forces.Largest;
  int largest = 0;
  for (const DrawnMember& member : drawing.Members) {
    const double magnitude = std::abs(truss.Forces.Unknowns[member.Unknown].Value);
    if (LabelOfUnknown(drawing, member.Unknown) != nullptr) least = std::min(least, magnitude);
    if (magnitude == truss.Forces.Largest) largest = member.Unknown;
  }
  EXPECT_NE(LabelOfUnknown(drawing, largest), nullptr);
}

TEST(ForcesDrawing, TextsStayInsideTheArea) {
  for (const auto& [name, truss] : ExampleTrusses()) {
    const ForcesDrawing drawing = SolvedForces(truss).Drawn();
    EXPECT_EQ(drawing.Area, Room);
    for (const ForceLabel& label : drawing.Labels) {
      EXPECT_GE(label.Box.Left, 0) << name;
      EXPECT_GE(label.Box.Top, 0) << name;
      EXPECT_LE(label.Box.Right, 640) << name;
      EXPECT_LE(label.Box.Bottom, 420) << name;
    }
  }
}

TEST(ForcesDrawing, AnArrowPointsTheWayTheForceActs) {
  const SolvedForces truss = LoadedTriangleForces();
  const ForcesDrawing drawing = truss.Drawn();
  const PixelLine& load = ArrowIn(drawing, ArrowOf::Load, 1).Line;
  EXPECT_GT(load.Y2, load.Y1) << "down";
  EXPECT_EQ(load.X1, load.X2);
  const PixelLine& reaction = ArrowIn(drawing, ArrowOf::Reaction, truss.Unknown("Ay")).Line;
  EXPECT_LT(reaction.Y2, reaction.Y1) << "up";
  EXPECT_GT(reaction.Y2, drawing.Pins[0].Y) << "from below, to the support";
}

TEST(ForcesDrawing, AReactionThatPullsPointsAwayFromItsJoint) {
  const SolvedForces truss(
      TrussBuilder().Member(0, 0, 4, 0, "m").Clamp(0, 0, "x", "y").Roller(4, 0, "r").Force(4, 0, 0, 7));
  const ForcesDrawing drawing = truss.Drawn();
  const PixelLine& reaction = ArrowIn(drawing, ArrowOf::Reaction, truss.Unknown("r")).Line;
  EXPECT_GT(reaction.Y2, reaction.Y1) << "down, below the roller";
  EXPECT_GT(reaction.Y1, drawing.Pins[0].Y);
}

TEST(ForcesDrawing, TheLargestLoadOrReactionHasTheLongestArrow) {
  const SolvedForces truss = LoadedTriangleForces();
  const ForcesDrawing drawing = truss.Drawn();
  EXPECT_NEAR(LengthOf(ArrowIn(drawing, ArrowOf::Load, 1).Line), LongestForceArrow, 0.01);
  EXPECT_NEAR(LengthOf(ArrowIn(drawing, ArrowOf::Reaction, truss.Unknown("Ay")).Line),
              (ShortestForceArrow + LongestForceArrow) / 2, 0.01);
  EXPECT_NEAR(LengthOf(ArrowIn(drawing, ArrowOf::Reaction, truss.Unknown("Ax")).Line), ShortestForceArrow,
              0.01)
      << "a stub";
}

// In a low window they ran under the legend.
TEST(ForcesDrawing, ArrowsStayOnTheDrawing) {
  int numArrows = 0;
  for (const auto& [name, truss] : ExampleTrusses()) {
    const SolvedForces solved(truss);
    for (const PixelRect& room :
         {Room, PixelRect{0, 0, 480, 340}, PixelRect{0, 0, 330, 270}, PixelRect{0, 0, 400, 180}}) {
      for (const double zoom : {1.0, 1.5}) {
        const ForcesDrawing drawing = solved.Drawn(room, zoom);
        const PixelRect area = Widened(drawing.Area, 1);
        for (const DrawnForce& arrow : drawing.Arrows) {
          for (const PixelPoint& end : {arrow.Line.End1(), arrow.Line.End2()}) {
            EXPECT_TRUE(end.X >= area.Left && end.X <= area.Right && end.Y >= area.Top &&
                        end.Y <= area.Bottom)
                << name << " in " << room.Width() << " by " << room.Height();
          }
          ++numArrows;
        }
      }
    }
  }
  EXPECT_GT(numArrows, 500);
}

// A line and an arrow that lie on each other could not be told apart.
TEST(ForcesDrawing, ALoadAlongAMemberComesFromTheOtherSide) {
  const SolvedForces truss(
      TrussBuilder().Member(0, 0, 4, 0, "m").Clamp(0, 0, "x", "y").Roller(4, 0, "r").Force(4, 0, -50, 0));
  const ForcesDrawing drawing = truss.Drawn();
  const PixelLine& load = ArrowIn(drawing, ArrowOf::Load, 1).Line;
  const float joint = drawing.Members[0].Line.X2;
  EXPECT_GT(load.X1, joint);
  EXPECT_GT(load.X2, joint) << "its tip is at the joint";
  EXPECT_LT(load.X2, load.X1) << "and it still points to the left";
}

TEST(ForcesDrawing, AReactionAlongAMemberStandsOnTheOtherSide) {
  const SolvedForces truss(
      TrussBuilder().Member(0, 0, -4, 0, "m").Clamp(0, 0, "x", "y").Roller(-4, 0, "r").Force(-4, 0, -50, 0));
  const ForcesDrawing drawing = truss.Drawn();
  const PixelLine& reaction = ArrowIn(drawing, ArrowOf::Reaction, truss.Unknown("x")).Line;
  const float joint = drawing.Members[0].Line.X1;
  EXPECT_GT(reaction.X1, joint);
  EXPECT_GT(reaction.X2, reaction.X1) << "to the right, against the load";
}

TEST(ForcesDrawing, ALoadOnASupportKeepsClearOfItsGroundAndReaction) {
  const SolvedForces truss(
      TrussBuilder().Member(0, 0, 4, 0, "m").Clamp(0, 0, "x", "y").Roller(4, 0, "r").Force(4, 0, 0, -50));
  const ForcesDrawing drawing = truss.Drawn();
  const PixelLine& load = ArrowIn(drawing, ArrowOf::Load, 1).Line;
  EXPECT_LT(load.Y2, drawing.Members[0].Line.Y2) << "it stands above the joint";
}

// Between two members on one line there is no side that is free, nor is any side of a supported joint whose
// load is small: the arrow is as long as it is said to be, and all of it is beside the pin.
TEST(ForcesDrawing, NoPinHidesAnythingOfALoad) {
  const SolvedForces truss(TrussBuilder()
                               .Member(0, 0, 4, 0)
                               .Member(4, 0, 8, 0)
                               .Clamp(0, 0)
                               .Clamp(8, 0)
                               .Force(4, 0, 1, 0)
                               .Force(8, 0, 0, 1000));
  const ForcesDrawing drawing = truss.Drawn();
  for (const int number : {1, 2}) {
    const PixelLine& load = ArrowIn(drawing, ArrowOf::Load, number).Line;
    EXPECT_GE(LengthOf(load), ShortestForceArrow - 1e-3F);
    for (const PixelPoint& pin : drawing.Pins) {
      EXPECT_GT(std::hypot(load.X1 - pin.X, load.Y1 - pin.Y), PinSize / 2);
      EXPECT_GT(std::hypot(load.X2 - pin.X, load.Y2 - pin.Y), PinSize / 2);
    }
  }
}

TEST(ForcesDrawing, ALoadOfZeroHasNoArrow) {
  const SolvedForces truss(
      TrussBuilder().Member(0, 0, 4, 0, "m").Clamp(0, 0, "x", "y").Roller(4, 0, "r").Force(4, 0, 0, 0));
  for (const DrawnForce& arrow : truss.Drawn().Arrows) EXPECT_EQ(arrow.What, ArrowOf::Reaction);
}

TEST(ForcesDrawing, WhatIsAtAPointIsFound) {
  const SolvedForces truss = LoadedTriangleForces();
  const ForcesDrawing drawing = truss.Drawn();
  const PixelLine& line = drawing.Members[0].Line;
  const PixelPoint middle{(line.X1 + line.X2) / 2, (line.Y1 + line.Y2) / 2};
  const int ab = truss.Unknown("AB");
  EXPECT_EQ(UnknownAt(drawing, middle, 5), ab);
  EXPECT_EQ(UnknownAt(drawing, {middle.X, middle.Y - 7}, 5), ab) << "half its width, and the reach";
  EXPECT_EQ(UnknownAt(drawing, {middle.X, middle.Y - 20}, 5), 0);
  const PixelRect& box = LabelOfUnknown(drawing, ab)->Box;
  EXPECT_EQ(UnknownAt(drawing, {box.Left + 1, box.Bottom - 1}, 5), ab);
  const DrawnForce& reaction = ArrowIn(drawing, ArrowOf::Reaction, truss.Unknown("Ay"));
  EXPECT_EQ(UnknownAt(drawing, reaction.Line.End1(), 5), truss.Unknown("Ay"));
  EXPECT_EQ(PlaceOf(drawing, truss.Forces, ab),
            (PixelRect{std::min(line.X1, line.X2), line.Y1, std::max(line.X1, line.X2), line.Y1}));
  EXPECT_EQ(PlaceOf(drawing, truss.Forces, 0), std::nullopt);
}

// Coordinates from a file may be anything.
TEST(ForcesDrawing, DrawsAnythingThatAFileCanHold) {
  for (const float size : {1e-30F, 1e-3F, 1e7F, 3e38F}) {
    for (const float at : {0.0F, 1.0F, 1e7F, -3e38F}) {
      const SolvedForces truss(TrussBuilder()
                                   .Member(at, 0, size, size, "m")
                                   .Member(at, 0, at, 0, "n")
                                   .Clamp(at, 0, "x", "y")
                                   .Force(size, size, 3e38F, -3e38F));
      for (const double zoom : {1.0, LargestZoom(truss.Forces, Room)}) {
        const ForcesDrawing drawing = truss.Drawn(Room, zoom);
        EXPECT_THAT(drawing.Members, SizeIs(2));
        for (const DrawnMember& member : drawing.Members) {
          for (const float pixel : {member.Line.X1, member.Line.Y1, member.Line.X2, member.Line.Y2})
            EXPECT_TRUE(std::isfinite(pixel));
        }
      }
      EXPECT_NE(ForcesPicture(truss.Scene(), RecordingSurface::Measure).Frame(), PixelRect{});
    }
  }
}

TEST(ForcesDrawing, AnEmptyRoomHasNoTexts) {
  const ForcesDrawing drawing = LoadedTriangleForces().Drawn({0, 0, 0, 0});
  EXPECT_THAT(drawing.Labels, IsEmpty());
}

TEST(ForcesDrawing, ThePlaceOfAForceIsThatOfItsMemberOrArrow) {
  const SolvedForces truss = LoadedTriangleForces();
  const ForcesDrawing drawing = truss.Drawn();
  const auto boxOf = [](const PixelLine& line) {
    return PixelRect{std::min(line.X1, line.X2), std::min(line.Y1, line.Y2), std::max(line.X1, line.X2),
                     std::max(line.Y1, line.Y2)};
  };
  for (const DrawnMember& member : drawing.Members)
    EXPECT_EQ(PlaceOf(drawing, truss.Forces, member.Unknown), boxOf(member.Line));
  int numReactions = 0;
  for (const DrawnForce& arrow : drawing.Arrows) {
    if (arrow.What != ArrowOf::Reaction) continue;
    ++numReactions;
    EXPECT_EQ(PlaceOf(drawing, truss.Forces, arrow.Number), boxOf(arrow.Line));
  }
  EXPECT_GE(numReactions, 2);
  for (const int none : {-1, 0, truss.Forces.Graph.NumUnknowns() + 1})
    EXPECT_EQ(PlaceOf(drawing, truss.Forces, none), std::nullopt);
  ForcesDrawing empty = drawing;
  empty.Members.clear();
  empty.Arrows.clear();
  for (int k = 1; k <= truss.Forces.Graph.NumUnknowns(); ++k)
    EXPECT_EQ(PlaceOf(empty, truss.Forces, k), std::nullopt) << "it is not drawn";
}

}  // namespace
