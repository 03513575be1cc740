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

TEST(MotionText, OfManyPiecesItSaysHowManyMoreMove) {
  // A comb: nine posts on clamps joined by a beam at their heads.
  TrussBuilder builder;
  for (int i = 0; i < 9; ++i) {
    const auto x = static_cast<float>(i);
    builder.Clamp(x, 0).Member(x, 0, x, 2);
    if (i > 0) builder.Member(x - 1, 2, x, 2);
  }
  const TrussGraph graph = GraphOf(builder);
  EXPECT_THAT(MotionText(graph, ReasonExactly(graph).Motions.front(), {}),
              HasSubstr("  4 further pieces move too."));
}

}  // namespace
