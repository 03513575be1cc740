// Which members move as one piece.
#include "explanation/MovingPieces.h"

#include <algorithm>
#include <string>

#include "ExplanationFixture.h"
#include "explanation/ExactVerdict.h"
#include "explanation/MotionText.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;

// No single of these coordinates is the number that it says, and yet the three turn as one.
TEST(MovingPieces, DecimalsDoNotTakeAPieceApart) {
  for (const float unit : {0.1F, 0.3F, 0.7F}) {
    const TrussGraph graph = GraphOf(TrussBuilder()
                                         .Member(unit, unit, 12.3F, 0.7F, "a")
                                         .Member(12.3F, 0.7F, 3.3F, 4.1F, "b")
                                         .Member(3.3F, 4.1F, unit, unit, "c")
                                         .Member(3.3F, 4.1F, 7.7F, 9.9F, "d")
                                         .Member(12.3F, 0.7F, 7.7F, 9.9F, "e")
                                         .Clamp(unit, unit));
    const ExactReasons reasons = ReasonExactly(graph);
    ASSERT_THAT(reasons.Motions, SizeIs(1));
    PieceFinder finder(graph);
    EXPECT_THAT(finder.Of(reasons.Motions[0]), SizeIs(1)) << unit;
  }
}

// Two halves that meet at a joint late: the members between them come last.
TEST(MovingPieces, MembersMetLateJoinWhatWasBegunTwice) {
  const TrussGraph graph = GraphOf(TrussBuilder()
                                       .Member(0, 0, 2, 0, "a")
                                       .Member(4, 0, 6, 0, "b")
                                       .Member(2, 0, 4, 0, "c")
                                       .Member(0, 0, 3, 3, "d")
                                       .Member(2, 0, 3, 3, "e")
                                       .Member(4, 0, 3, 3, "f")
                                       .Member(6, 0, 3, 3, "g")
                                       .Clamp(3, 3));
  const ExactReasons reasons = ReasonExactly(graph);
  PieceFinder finder(graph);
  const std::vector<MovingPiece> pieces = finder.Of(reasons.Motions.front());
  ASSERT_THAT(pieces, SizeIs(1));
  EXPECT_THAT(pieces[0].Members, SizeIs(7));
  EXPECT_TRUE(std::ranges::is_sorted(pieces[0].Members));
}

TEST(MovingPieces, OneFinderTellsTheMotionsOfATrussOneAfterTheOther) {
  std::mt19937 random(21);
  int numPieces = 0;
  for (int i = 0; i < 200; ++i) {
    const TrussGraph graph = GraphOf(RandomSmallTruss(random, 8, 6));
    const ExactReasons reasons = ReasonExactly(graph);
    PieceFinder finder(graph);
    MotionTeller teller(graph, {});
    for (const Motion& motion : reasons.Motions) {
      const std::vector<MovingPiece> pieces = finder.Of(motion);
      const std::vector<MovingPiece> alone = PieceFinder(graph).Of(motion);
      ASSERT_EQ(pieces.size(), alone.size());
      for (std::size_t p = 0; p < pieces.size(); ++p) EXPECT_EQ(pieces[p].Members, alone[p].Members);
      EXPECT_EQ(teller.Text(motion), MotionText(graph, motion, {}));
      numPieces += static_cast<int>(pieces.size());
    }
  }
  EXPECT_GT(numPieces, 200);
}

// Posts on clamps, joined by a beam at their heads.
TrussGraph Comb(int numPosts) {
  TrussBuilder builder;
  for (int i = 0; i < numPosts; ++i) {
    const auto x = static_cast<float>(i);
    const std::string number = std::to_string(10 + i);  // in the order of their names
    builder.Clamp(x, 0).Member(x, 0, x, 2, "p" + number);
    if (i > 0) builder.Member(x - 1, 2, x, 2, "b" + number);
  }
  return GraphOf(builder);
}

std::string FirstMotionText(const TrussGraph& graph) {
  return MotionText(graph, ReasonExactly(graph).Motions.front(), {});
}

TEST(MotionText, OfManyPiecesItNamesTheLastOnesWhereTheyAreFew) {
  // Of each post it is said about which point it turns, of the beam where it slides to.
  EXPECT_THAT(FirstMotionText(Comb(11)), Not(HasSubstr("too")));
  EXPECT_THAT(FirstMotionText(Comb(11)), HasSubstr("Member p20 turns clockwise about the joint at (10, 0)."));
  EXPECT_THAT(FirstMotionText(Comb(12)), HasSubstr(".  Member p21 moves too.  "));
  EXPECT_THAT(FirstMotionText(Comb(14)), HasSubstr(".  Member p21, member p22 and member p23 move too.  "));
  EXPECT_THAT(FirstMotionText(Comb(36)), HasSubstr(".  25 further pieces (together 25 members) move too.  "));
}

TEST(MotionText, NamesAFurtherPieceOfSeveralMembersByAllOfThem) {
  // Eleven posts, and at last a triangle that stands on its foot.
  TrussBuilder builder;
  for (int i = 0; i < 12; ++i) {
    const auto x = static_cast<float>(i);
    builder.Clamp(x, 0).Member(x, 0, x, 2, "p" + std::to_string(10 + i));
    if (i > 0) builder.Member(x - 1, 2, x, 2, "b" + std::to_string(10 + i));
  }
  builder.Member(11, 0, 12, 1, "q").Member(11, 2, 12, 1, "r");
  EXPECT_THAT(FirstMotionText(GraphOf(builder)), HasSubstr(".  The piece of p21, q and r moves too.  "));
}

TEST(MotionText, OfAMotionThatGoesOnItDoesNotSayWhatTheLoadsDo) {
  const std::string text = FirstMotionText(Comb(2));
  EXPECT_THAT(text, HasSubstr("It moves on: no member and no support stops it."));
  EXPECT_THAT(text, Not(HasSubstr("nothing stops")));
}

// Two posts on clamps and a beam between their heads; the right one leans by `lean` for each of its height.
std::string TextOfBeam(double size, double lean) {
  const auto at = [size](double value) { return static_cast<float>(value * size); };
  return FirstMotionText(GraphOf(TrussBuilder()
                                     .Clamp(0, 0)
                                     .Clamp(at(4), 0)
                                     .Member(0, 0, 0, at(3), "left")
                                     .Member(at(4), 0, at(4 + 3 * lean), at(3), "right")
                                     .Member(0, at(3), at(4 + 3 * lean), at(3), "beam")));
}

TEST(MotionText, WhatTurnsAboutAPointVeryFarAwaySlides) {
  for (const double size : {0.01, 1.0, 1000.0}) {
    SCOPED_TRACE(size);
    // The beam turns about the point where the posts' lines meet: 4 / lean below.
    EXPECT_THAT(TextOfBeam(size, 0), HasSubstr("Member beam slides to the "));
    EXPECT_THAT(TextOfBeam(size, 1e-5), HasSubstr("Member beam slides to the "));
    EXPECT_THAT(TextOfBeam(size, -1e-5), HasSubstr("Member beam slides to the "));
    EXPECT_THAT(TextOfBeam(size, 1e-3), HasSubstr("Member beam turns "));
    EXPECT_THAT(TextOfBeam(size, 1), HasSubstr("Member beam turns "));
    EXPECT_THAT(TextOfBeam(size, 1e-5), HasSubstr("Member left turns "));
  }
}

// What counts is the extent of the piece that moves, not that of the drawing.
TEST(MovingPieces, AShortMemberThatTurnsAboutItsOwnEndTurns) {
  const TrussGraph graph = GraphOf(TrussBuilder()
                                       .Member(0, 0, 1000, 0, "long")
                                       .Clamp(0, 0)
                                       .Clamp(1000, 0)
                                       .Member(1000, 0, 1000, 0.01F, "tip"));
  const std::vector<MovingPiece> pieces = PieceFinder(graph).Of(ReasonExactly(graph).Motions.front());
  ASSERT_THAT(pieces, SizeIs(1));
  EXPECT_TRUE(pieces[0].Turns);
  EXPECT_EQ(pieces[0].CentreX, 1000);
}

TEST(MotionText, AWholeTrussTurnsThoughItsFirstPartIsTooSmallToTell) {
  const TrussGraph graph = GraphOf(TrussBuilder()
                                       .Member(1000, 1000, 1000.01F, 1000, "speck")
                                       .Member(0, 0, 4, 0)
                                       .Member(4, 0, 2, 3)
                                       .Member(2, 3, 0, 0)
                                       .Clamp(0, 0)
                                       .Joint(0, 0, "A"));
  EXPECT_THAT(FirstMotionText(graph), testing::StartsWith("The whole truss turns "));
  EXPECT_THAT(FirstMotionText(graph), HasSubstr(" about joint A."));
}

}  // namespace
