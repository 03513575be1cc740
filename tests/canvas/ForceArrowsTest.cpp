// Where forces run along members, and what is painted there. 20 pixels to the unit, the origin at (48, 270).
#include "canvas/ForceArrows.h"

#include <gmock/gmock.h>

#include "CanvasFixture.h"
#include "canvas/Arrow.h"
#include "canvas/PaintDrawing.h"
#include "platform/Palette.h"

namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::SizeIs;

Drawing Placed(const Truss& truss) {
  Drawing drawing;
  drawing.Mapping = EasyGraph();
  PlaceElements(drawing, truss, RecordingSurface::Measure);
  return drawing;
}

std::vector<PixelLine> PartsUnderForces(const Truss& truss) {
  return MemberPartsUnderForces(Placed(truss), truss);
}

// A force of one unit is 20 pixels long, and its head 12.
constexpr float Unit = 1000;

}  // namespace

TEST(MemberPartsUnderForces, AForceAlongAMemberLeavesItsTubeUpToTheHead) {
  const Truss truss = TrussBuilder().Member(0, 0, 10, 0).Force(0, 0, 5 * Unit, 0);
  EXPECT_THAT(PartsUnderForces(truss), testing::ElementsAre(PixelLine{52, 270, 132, 270}));
}

TEST(MemberPartsUnderForces, TheMembersEndsMayBeInEitherOrder) {
  const Truss truss = TrussBuilder().Member(10, 0, 0, 0).Force(0, 0, 5 * Unit, 0);
  EXPECT_THAT(PartsUnderForces(truss), testing::ElementsAre(PixelLine{132, 270, 52, 270}));
}

TEST(MemberPartsUnderForces, ALongForceRunsAlongSeveralMembersOfAChord) {
  const Truss truss =
      TrussBuilder().Member(2, 1, 4, 2).Member(4, 2, 6, 3).Member(6, 3, 8, 4).Force(2, 1, 4 * Unit, 2 * Unit);
  EXPECT_THAT(PartsUnderForces(truss), SizeIs(2));
}

TEST(MemberPartsUnderForces, AMemberMayLieWhollyUnderAForce) {
  const Truss truss = TrussBuilder().Member(3, 1, 4, 1).Force(2, 1, 6 * Unit, 0);
  EXPECT_THAT(PartsUnderForces(truss), testing::ElementsAre(PixelLine{112, 250, 124, 250}));
}

TEST(MemberPartsUnderForces, AForceAtAnAngleIsToldByEyeAnyway) {
  EXPECT_THAT(PartsUnderForces(TrussBuilder().Member(0, 0, 10, 0).Force(0, 0, 5 * Unit, Unit)), IsEmpty());
  EXPECT_THAT(PartsUnderForces(TrussBuilder().Member(0, 0, 10, 0).Force(5, 0, 0, -3 * Unit)), IsEmpty());
  EXPECT_THAT(PartsUnderForces(TrussBuilder().Member(0, 0, 10, 0).Force(0, 1, 5 * Unit, 0)), IsEmpty());
}

TEST(MemberPartsUnderForces, AForceAwayFromTheMemberDoesNotTouchIt) {
  EXPECT_THAT(PartsUnderForces(TrussBuilder().Member(2, 0, 10, 0).Force(2, 0, -2 * Unit, 0)), IsEmpty());
}

TEST(MemberPartsUnderForces, AForceThatIsAllHeadNeedsNoTube) {
  EXPECT_THAT(PartsUnderForces(TrussBuilder().Member(0, 0, 10, 0).Force(0, 0, 0.5F * Unit, 0)), IsEmpty());
}

TEST(MemberPartsUnderForces, ErasedForcesAndMembersAreLeftOut) {
  EXPECT_THAT(PartsUnderForces(TrussBuilder().Member(0, 0, 10, 0).ThenErased().Force(0, 0, 5 * Unit, 0)),
              IsEmpty());
  EXPECT_THAT(PartsUnderForces(TrussBuilder().Member(0, 0, 10, 0).Force(0, 0, 5 * Unit, 0).ThenErased()),
              IsEmpty());
}

TEST(MemberPartsUnderForces, NumbersWithoutMeasureAreTaken) {
  const float far = 3e38F;
  PartsUnderForces(TrussBuilder().Member(0, 0, far, far).Force(0, 0, far, far));
  PartsUnderForces(TrussBuilder().Member(1, 1, 1, 1).Force(1, 1, far, 0));
  PartsUnderForces(TrussBuilder().Member(-far, 0, far, 0).Force(-far, 0, far, 0));
}

TEST(MemberPartsUnderForces, OfACrowdNothingIsCompared) {
  TrussBuilder builder;
  for (int i = 0; i < 600; ++i) {
    builder.Member(0, static_cast<float>(i), 10, static_cast<float>(i));
    builder.Force(0, static_cast<float>(i), 5 * Unit, 0);
  }
  EXPECT_THAT(PartsUnderForces(builder), IsEmpty());
}

TEST(DrawForcesOverMembers, PaintsEachArrowInRedOnItsWhiteRim) {
  const Truss truss = TrussBuilder().Force(2, 2, 3 * Unit, 0);
  RecordingSurface paper;
  DrawForcesOverMembers(paper, Placed(truss), truss);
  ASSERT_THAT(paper.Lines, SizeIs(8));
  EXPECT_EQ(paper.Lines[0], (DrawnLine{88, 230, 148, 230, ForceLineWidth + 2, White}));
  EXPECT_EQ(paper.Lines[4], (DrawnLine{88, 230, 148, 230, ForceLineWidth, ForceColour}));
  EXPECT_EQ(paper.Colour, Black);
  EXPECT_EQ(paper.Width, 1);
}

TEST(DrawForcesOverMembers, AmongVeryManyForcesRimsWouldHelpNobody) {
  TrussBuilder builder;
  for (int i = 0; i <= MostRims; ++i) builder.Force(static_cast<float>(i), 2, Unit, 0);
  const Truss truss = builder;
  RecordingSurface paper;
  DrawForcesOverMembers(paper, Placed(truss), truss);
  EXPECT_THAT(paper.Lines, SizeIs(4 * (MostRims + 1)));
}

TEST(PaintDrawing, AForceAlongAMemberIsPaintedOverItInsideATube) {
  const Truss truss = TrussBuilder().Member(0, 0, 10, 0).Force(0, 0, 5 * Unit, 0);
  RecordingSurface paper;
  PaintDrawing(paper, Placed(truss), truss);
  EXPECT_EQ(paper.Lines[0], (DrawnLine{48, 270, 248, 270, RodLineWidth, Black}));
  EXPECT_EQ(paper.Lines[1], (DrawnLine{52, 270, 132, 270, MemberWidthUnderForce, Black}));
  EXPECT_EQ(paper.Lines[2].Colour, White);
  EXPECT_EQ(paper.Lines[6], (DrawnLine{48, 270, 148, 270, ForceLineWidth, ForceColour}));
}

TEST(PaintDrawing, AForceStaysWhereItWasDrawnLastWhileItsHeadIsDragged) {
  Truss truss = TrussBuilder().Force(0, 0, 5 * Unit, 0);
  const Drawing drawing = Placed(truss);
  truss.Forces[1].Fx = 0;
  truss.Forces[1].Fy = Unit;
  RecordingSurface paper;
  PaintDrawing(paper, drawing, truss);
  EXPECT_THAT(paper.Lines, Contains(DrawnLine{48, 270, 148, 270, ForceLineWidth, ForceColour}));
}

TEST(PaintDrawing, AForceThatIsBeingDrawnHasNoArrowYet) {
  Truss truss = TrussBuilder().Force(0, 0, Unit, 0);
  const Drawing drawing = Placed(truss);
  truss.Forces.GrowTo(2);
  truss.NumForces = 2;
  truss.Forces[2] = {.X = 1, .Y = 1, .Fx = Unit, .Fy = Unit, .Active = true};
  RecordingSurface paper;
  PaintDrawing(paper, drawing, truss);
  EXPECT_THAT(paper.Lines, SizeIs(8));
}
