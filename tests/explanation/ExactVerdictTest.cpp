#include "explanation/ExactVerdict.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "ExplanationFixture.h"
#include "ReasonsThatHold.h"
#include "support/HowMany.h"
#include "support/WholeNumberRank.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TrussGraph, ItsEquationsAreThoseOfTheReports) {
  std::mt19937 random(6);
  for (int i = 0; i < 300; ++i) {
    Truss truss = RandomSmallTruss(random, 6, 5);
    const TrussAnalysis analysis = SolveTruss(truss);
    if (analysis.System.NumUnknowns() == 0) continue;
    const TrussGraph graph = GraphOf(truss, analysis);
    const SparseMatrix<float>& equations = analysis.System.DisplayEquations;
    const SparseMatrix<double> rigidity = RigidityRows(graph);
    const std::vector<double> loads = LoadVector(graph);
    for (int row = 1; row <= graph.NumEquations(); ++row) {
      for (int k = 1; k <= graph.NumUnknowns(); ++k) {
        ASSERT_NEAR(rigidity(k, row), equations(row, k), 1e-6) << "truss " << i;
      }
      ASSERT_EQ(-loads[static_cast<std::size_t>(row - 1)], equations(row, graph.NumUnknowns() + 1));
    }
  }
}

// A hanging rope: a clamp, a member, a load along it.
TrussGraph Tie(float x, float y) {
  return GraphOf(TrussBuilder().Member(0, 0, x, y).Clamp(0, 0).Force(x, y, 100 * x, 100 * y));
}

TEST(ExactVerdict, ATieUnderALoadAlongItHoldsInEveryDirection) {
  for (int x = 1; x <= 9; ++x) {
    for (int y = 1; y <= 9; ++y) {
      const ExactVerdict verdict = JudgeExactly(Tie(static_cast<float>(x), static_cast<float>(y)));
      EXPECT_EQ(verdict.Code(), Outcome::Redundant) << x << ", " << y;
      EXPECT_EQ(verdict.Mechanisms(), 1);
      EXPECT_EQ(verdict.SelfStresses(), 0);
    }
  }
}

TEST(ExactVerdict, ALoadOnATieThatIsALittleAsideIsContradicted) {
  const auto graph = GraphOf(TrussBuilder().Member(0, 0, 1, 3).Clamp(0, 0).Force(1, 3, 100, 300.0001F));
  EXPECT_EQ(JudgeExactly(graph).Code(), Outcome::Inconsistent);
}

TEST(ExactVerdict, AJointBetweenTwoClampsOnOneLineGivesWay) {
  int numCases = 0;
  for (int X = 1; X <= 12; ++X) {
    for (int Y = 1; Y <= 12; ++Y) {
      for (int x = 1; x < X; ++x) {
        for (int y = 1; y < Y; ++y) {
          const auto fx = [](int whole) { return static_cast<float>(whole); };
          const auto graph = GraphOf(TrussBuilder()
                                         .Member(0, 0, fx(x), fx(y))
                                         .Member(fx(x), fx(y), fx(X), fx(Y))
                                         .Clamp(0, 0)
                                         .Clamp(fx(X), fx(Y))
                                         .Force(fx(x), fx(y), 0, -1000));
          const bool onOneLine = x * Y == y * X;
          const ExactVerdict verdict = JudgeExactly(graph);
          ASSERT_EQ(verdict.Mechanisms(), onOneLine ? 1 : 0);
          ASSERT_EQ(verdict.SelfStresses(), onOneLine ? 1 : 0);
          ASSERT_EQ(verdict.Code(), onOneLine ? Outcome::Inconsistent : Outcome::Neither);
          numCases += onOneLine ? 1 : 0;
        }
      }
    }
  }
  EXPECT_GT(numCases, 100);
}

TEST(ExactVerdict, DecimalsAreTheNumbersThatTheySay) {
  // 0.1 + 0.2 is 0.3 here, though no single of them is.
  const auto graph = GraphOf(TrussBuilder()
                                 .Member(0.1F, 0.1F, 0.2F, 0.2F)
                                 .Member(0.2F, 0.2F, 0.3F, 0.3F)
                                 .Clamp(0.1F, 0.1F)
                                 .Clamp(0.3F, 0.3F));
  EXPECT_EQ(JudgeExactly(graph).Mechanisms(), 1);
  // Also where one has more decimals than the other.
  const auto finer =
      GraphOf(TrussBuilder().Member(0, 0, 0.75F, 1.5F).Member(0.75F, 1.5F, 1, 2).Clamp(0, 0).Clamp(1, 2));
  EXPECT_EQ(JudgeExactly(finer).Mechanisms(), 1);
}

TEST(ExactVerdict, ElementsThatStandApartAndMembersOnOneAnotherHaveAnAnswer) {
  // A load in the air; two members on one another; a member of no length.
  const auto graph = GraphOf(TrussBuilder()
                                 .Member(0, 0, 4, 0, "a")
                                 .Member(4, 0, 0, 0, "a")
                                 .Member(4, 0, 4, 0, "dot")
                                 .Clamp(0, 0, "x", "y")
                                 .Roller(4, 0, "r")
                                 .Force(9, 9, 0, -1));
  const ExactVerdict verdict = JudgeExactly(graph);
  EXPECT_EQ(verdict.Mechanisms(), 2);    // the joint in the air
  EXPECT_EQ(verdict.SelfStresses(), 2);  // the pair, and the dot
  EXPECT_EQ(verdict.Code(), Outcome::Inconsistent);
  EXPECT_THAT(verdict.Determined, ElementsAre(1, 2, 3));  // the reactions
}

TEST(ExactVerdict, TheWordSaysUndeterminedAlsoWhenItIsRedundant) {
  const auto word = [](const TrussGraph& graph) { return std::string(VerdictWord(JudgeExactly(graph))); };
  EXPECT_EQ(word(Tie(1, 3)), "redundant");
  EXPECT_EQ(word(GraphOf(TrussBuilder().Member(0, 0, 1, 3).Clamp(0, 0).Clamp(1, 3))), "undetermined");
  EXPECT_EQ(word(GraphOf(TrussBuilder().Member(0, 0, 2, 0).Member(2, 0, 4, 0).Clamp(0, 0).Clamp(4, 0))),
            "undetermined");
  EXPECT_EQ(word(GraphOf(TrussBuilder().Member(0, 0, 1, 3).Clamp(0, 0).Force(1, 3, 1, 0))), "no solution");
  EXPECT_EQ(word(GraphOf(TrussBuilder().Member(0, 0, 4, 0).Clamp(0, 0).Roller(4, 0).Force(4, 0, 1, 0))),
            "unique");
}

TEST(ExactReasons, ThousandsOfSmallTrussesAgreeWithWholeNumbers) {
  std::mt19937 random(1);
  for (int i = 0; i < HowMany(10000, 3000); ++i) {
    const TrussGraph graph = GraphOf(RandomSmallTruss(random, 6, 4 + i % 3));
    if (graph.NumUnknowns() == 0) continue;
    const ExactReasons reasons = ReasonExactly(graph);
    ASSERT_EQ(reasons.Verdict.Rank, WholeNumbers::Rank(WholeNumbers::Equations(graph, false))) << i;
    ASSERT_EQ(reasons.Verdict.AugmentedRank, WholeNumbers::Rank(WholeNumbers::Equations(graph, true))) << i;
    ExpectReasonsToHold(graph, reasons);
    if (HasFailure()) FAIL() << "truss " << i;
  }
}

TEST(ExactReasons, LargerTrussesHoldWhatTheySay) {
  std::mt19937 random(2);
  for (int i = 0; i < 300; ++i) {
    const TrussGraph graph = GraphOf(RandomSmallTruss(random, 25, 9));
    ExpectReasonsToHold(graph, ReasonExactly(graph));
    if (HasFailure()) FAIL() << "truss " << i;
  }
}

std::set<int> JointsOf(const Motion& motion) {
  std::set<int> joints;
  for (const JointDisplacement& at : motion.Joints) joints.insert(at.Joint);
  return joints;
}

// 0 -- 1 -- 2 -- ...: as many panels without diagonals, one beside the other.
TrussBuilder FreePanels(int numPanels) {
  TrussBuilder builder;
  for (int i = 0; i <= numPanels; ++i) {
    const auto x = static_cast<float>(i);
    builder.Member(x, 0, x, 1);
    if (i < numPanels) builder.Member(x, 0, x + 1, 0).Member(x, 1, x + 1, 1);
  }
  return builder;
}

// The same on a clamp and a clamp.
Truss OpenPanels(int numPanels) {
  return FreePanels(numPanels).Clamp(0, 0).Clamp(static_cast<float>(numPanels), 0);
}

TEST(ExactReasons, MotionsAreLocal) {
  const TrussGraph graph = GraphOf(OpenPanels(4));
  const ExactReasons reasons = ReasonExactly(graph);
  ExpectReasonsToHold(graph, reasons);
  // Inner posts go up and down one by one; the top chord slides as a whole.
  for (const Motion& motion : reasons.Motions) {
    const std::size_t size = JointsOf(motion).size();
    EXPECT_TRUE(size == 2 || size == 5) << size;
  }
}

// Each panel gives way; so many motions are not looked through for small ones, and those of the whole truss
// take the place of as many of them.
TEST(ExactReasons, ALargeTrussThatNothingHoldsMovesAsAWholeAndOtherwise) {
  constexpr int numPanels = 80;
  const TrussGraph graph = GraphOf(FreePanels(numPanels));
  const ExactReasons reasons = ReasonExactly(graph);
  ASSERT_EQ(reasons.Motions.size(), std::size_t{numPanels + 3});
  for (std::size_t i = 0; i < reasons.Motions.size(); ++i)
    EXPECT_EQ(reasons.Motions[i].Kind, i < 3 ? MotionKind::Rigid : MotionKind::Internal) << i;
  ExpectReasonsToHold(graph, reasons);
}

TEST(ExactReasons, ASmallerMotionIsNeverHiddenInALargerOne) {
  // No motion's joints contain those of another one that is independent of it, but where it must be so.
  std::mt19937 random(3);
  for (int i = 0; i < 300; ++i) {
    const TrussGraph graph = GraphOf(RandomSmallTruss(random, 9, 5));
    const ExactReasons reasons = ReasonExactly(graph);
    for (std::size_t a = 0; a < reasons.Motions.size(); ++a) {
      if (reasons.Motions[a].Kind == MotionKind::Rigid) continue;
      for (std::size_t b = a + 1; b < reasons.Motions.size(); ++b) {
        const auto large = JointsOf(reasons.Motions[a]);
        const auto small = JointsOf(reasons.Motions[b]);
        const bool contains = std::includes(large.begin(), large.end(), small.begin(), small.end());
        EXPECT_FALSE(contains && small.size() < large.size()) << "truss " << i << ": " << a << ", " << b;
      }
    }
  }
}

TEST(ExactReasons, TheWholeTrussComesFirst) {
  const auto triangle = TrussBuilder().Member(0, 0, 4, 0).Member(4, 0, 2, 2).Member(2, 2, 0, 0);
  const ExactReasons free = ReasonExactly(GraphOf(triangle));
  EXPECT_EQ(free.Motions.size(), 3U);
  for (const Motion& motion : free.Motions) EXPECT_EQ(motion.Kind, MotionKind::Rigid);
  const ExactReasons upward =
      ReasonExactly(GraphOf(TrussBuilder(triangle).Roller(0, 0, "a", 8).Roller(2, 2, "b", 7)));
  ASSERT_EQ(upward.Motions.size(), 1U);
  EXPECT_EQ(upward.Motions[0].Kind, MotionKind::Rigid);
  const auto parallel = GraphOf(TrussBuilder(triangle).Roller(0, 0).Roller(4, 0).Roller(2, 2));
  const ExactReasons slides = ReasonExactly(parallel);
  ASSERT_EQ(slides.Motions.size(), 1U);
  EXPECT_EQ(slides.Motions[0].Kind, MotionKind::Rigid);
  EXPECT_EQ(slides.Motions[0].Extent, MotionExtent::MovesOn);
  const ExactReasons turns = ReasonExactly(GraphOf(TrussBuilder(triangle).Clamp(0, 0).Roller(4, 0, "r", 8)));
  ASSERT_EQ(turns.Motions.size(), 1U);
  EXPECT_EQ(turns.Motions[0].Kind, MotionKind::Rigid);
  EXPECT_EQ(JointsOf(turns.Motions[0]).size(), 2U);  // all but the clamp
  EXPECT_EQ(turns.Motions[0].Extent, MotionExtent::Tightens);
}

TEST(ExactReasons, AStraightLineTightensAndAParallelogramMovesOn) {
  const auto line = GraphOf(TrussBuilder().Member(0, 0, 2, 0).Member(2, 0, 4, 0).Clamp(0, 0).Clamp(4, 0));
  ASSERT_EQ(ReasonExactly(line).Motions.size(), 1U);
  EXPECT_EQ(ReasonExactly(line).Motions[0].Extent, MotionExtent::Tightens);
  const auto parallelogram = GraphOf(
      TrussBuilder().Member(0, 0, 1, 2).Member(4, 0, 5, 2).Member(1, 2, 5, 2).Clamp(0, 0).Clamp(4, 0));
  ASSERT_EQ(ReasonExactly(parallelogram).Motions.size(), 1U);
  EXPECT_EQ(ReasonExactly(parallelogram).Motions[0].Extent, MotionExtent::MovesOn);
}

TEST(ExactReasons, SixJointsOnACircleInTwoGroupsOfThreeGiveWay) {
  // Whole points on the circle of radius 5.
  const std::vector<std::pair<float, float>> at = {{5, 0}, {-3, 4}, {-4, -3}, {3, 4}, {-5, 0}, {0, -5}};
  TrussBuilder builder;
  for (std::size_t a = 0; a < 3; ++a) {
    for (std::size_t b = 3; b < 6; ++b) builder.Member(at[a].first, at[a].second, at[b].first, at[b].second);
  }
  builder.Clamp(5, 0).Roller(-3, 4);
  const TrussGraph graph = GraphOf(builder);
  const ExactReasons reasons = ReasonExactly(graph);
  EXPECT_EQ(reasons.Verdict.Mechanisms(), 1);
  EXPECT_EQ(reasons.Verdict.SelfStresses(), 1);
  ExpectReasonsToHold(graph, reasons);
  EXPECT_EQ(reasons.Motions[0].Extent, MotionExtent::Tightens);
}

TEST(ExactReasons, ATrussOfManyPiecesIsTakenApart) {
  TrussBuilder builder;
  for (int i = 0; i < 1000; ++i) {
    const auto y = static_cast<float>(i);
    builder.Member(0, y, 1, y + 0.5F);
  }
  const TrussGraph graph = GraphOf(builder);
  const ExactReasons reasons = ReasonExactly(graph);
  EXPECT_EQ(reasons.Motions.size(), 3000U);
  const SparseMatrix<double> rigidity = RigidityRows(graph);
  for (const Motion& motion : reasons.Motions) EXPECT_LT(LargestLengthening(graph, rigidity, motion), 1e-9);
}

// What is left of a sum beside the terms that should cancel.
double Remainder(const std::vector<double>& terms) {
  double sum = 0;
  double size = 0;
  for (const double term : terms) {
    sum += term;
    size += std::abs(term);
  }
  return size == 0 ? 0 : std::abs(sum) / size;
}

// Independent vectors by elimination in long doubles, with rows and columns brought to one size before, so
// that what is small counts as much as what is large.
int ScaledRank(std::vector<std::vector<long double>> rows) {
  const std::size_t numColumns = rows.empty() ? 0 : rows.front().size();
  for (int round = 0; round < 20; ++round) {
    for (std::vector<long double>& row : rows) {
      long double largest = 0;
      for (const long double value : row) largest = std::max(largest, std::abs(value));
      for (long double& value : row) value /= largest;
    }
    for (std::size_t c = 0; c < numColumns; ++c) {
      long double largest = 0;
      for (const std::vector<long double>& row : rows) largest = std::max(largest, std::abs(row[c]));
      if (largest == 0) continue;
      for (std::vector<long double>& row : rows) row[c] /= largest;
    }
  }
  int rank = 0;
  for (std::size_t done = 0; done < rows.size(); ++done) {
    std::size_t row = done;
    std::size_t column = 0;
    for (std::size_t r = done; r < rows.size(); ++r) {
      for (std::size_t c = 0; c < numColumns; ++c) {
        if (std::abs(rows[r][c]) > std::abs(rows[row][column])) std::tie(row, column) = std::pair(r, c);
      }
    }
    if (std::abs(rows[row][column]) < 1e-12L) break;
    std::swap(rows[row], rows[done]);
    ++rank;
    for (std::size_t r = done + 1; r < rows.size(); ++r) {
      const long double factor = rows[r][column] / rows[done][column];
      for (std::size_t c = 0; c < numColumns; ++c) rows[r][c] -= factor * rows[done][c];
      rows[r][column] = 0;
    }
  }
  return rank;
}

// From a thousandth to ten million: members of very different lengths meet at nearly the same angle.
Truss TrussOfAllSizes(std::mt19937& random) {
  std::uniform_real_distribution<double> power(-3, 7);
  Places at;
  const int numJoints = 4 + Below(random, 6);
  for (int j = 0; j < numJoints; ++j)
    at.emplace_back(static_cast<float>(std::pow(10, power(random))),
                    static_cast<float>(std::pow(10, power(random))));
  return JoinedAtRandom(random, at);
}

TEST(ExactReasons, AreIndependentAndInBalanceWhateverTheSizesOfTheDrawing) {
  std::mt19937 random(31);
  int numStates = 0;
  int numMotions = 0;
  for (int i = 0; i < 400; ++i) {
    const TrussGraph graph = GraphOf(TrussOfAllSizes(random));
    if (graph.NumUnknowns() == 0) continue;
    const ExactReasons reasons = ReasonExactly(graph);
    ASSERT_EQ(static_cast<int>(reasons.Motions.size()), reasons.Verdict.Mechanisms());
    ASSERT_EQ(static_cast<int>(reasons.SelfStresses.size()), reasons.Verdict.SelfStresses());
    const SparseMatrix<double> rigidity = RigidityRows(graph);
    std::vector<std::vector<long double>> stresses;
    for (const SelfStress& stress : reasons.SelfStresses) {
      stresses.emplace_back(static_cast<std::size_t>(graph.NumUnknowns()));
      std::vector<std::vector<double>> terms(static_cast<std::size_t>(graph.NumEquations()));
      for (const UnknownForce& force : stress.Forces) {
        stresses.back()[static_cast<std::size_t>(force.Unknown - 1)] = force.Value;
        for (const auto& [column, value] : rigidity.Row(force.Unknown))
          terms[static_cast<std::size_t>(column - 1)].push_back(force.Value * value);
      }
      for (const std::vector<double>& equation : terms) ASSERT_LT(Remainder(equation), 1e-9) << "truss " << i;
    }
    std::vector<std::vector<long double>> motions;
    for (const Motion& motion : reasons.Motions) {
      const std::vector<double> moved = DisplacementsByColumn(graph, motion);
      motions.emplace_back(moved.begin(), moved.end());
      for (int k = 1; k <= graph.NumUnknowns(); ++k) {
        std::vector<double> terms;
        for (const auto& [column, value] : rigidity.Row(k))
          terms.push_back(value * moved[static_cast<std::size_t>(column - 1)]);
        ASSERT_LT(Remainder(terms), 1e-9) << "truss " << i;
      }
    }
    EXPECT_EQ(ScaledRank(stresses), reasons.Verdict.SelfStresses()) << "truss " << i;
    EXPECT_EQ(ScaledRank(motions), reasons.Verdict.Mechanisms()) << "truss " << i;
    numStates += reasons.Verdict.SelfStresses();
    numMotions += reasons.Verdict.Mechanisms();
  }
  EXPECT_GT(numStates, 500);
  EXPECT_GT(numMotions, 500);
}

TEST(ExactReasons, WorkIsThatOfTheLoadsAsTheyAreWritten) {
  // 0.1 to the right on a bar that slides: no single is a tenth.
  const ExactReasons reasons = ReasonExactly(
      GraphOf(TrussBuilder().Member(0, 0, 4, 0).Roller(0, 0).Roller(4, 0).Force(4, 0, 0.1F, 0)));
  ASSERT_EQ(reasons.Motions.size(), 1U);
  EXPECT_EQ(reasons.Motions[0].Work, 0.1);
}

}  // namespace
