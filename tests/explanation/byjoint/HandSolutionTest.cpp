#include "explanation/byjoint/HandSolution.h"

#include "HandSolutionFixture.h"
#include "explanation/ExactVerdict.h"
#include "explanation/byjoint/JointBalance.h"
#include "explanation/byjoint/TrussBalance.h"
#include "support/HowMany.h"
#include "support/RandomTruss.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<HandStepKind> KindsOf(const HandSolution& solution) {
  std::vector<HandStepKind> kinds;
  for (const HandStep& step : solution.Steps) kinds.push_back(step.Kind);
  return kinds;
}

TEST(HandSolution, BeginsWithTheReactionsAndEndsWithACheck) {
  const TrussGraph graph = GraphOf(HandTriangle());
  const HandSolution solution = SolveByHand(graph);
  EXPECT_THAT(KindsOf(solution), ElementsAre(HandStepKind::Reactions, HandStepKind::Joint,
                                             HandStepKind::Joint, HandStepKind::Joint));
  EXPECT_EQ(solution.Steps[0].Solved.size(), 3U);
  EXPECT_EQ(solution.Steps[0].Equations[0].Kind, BalanceKind::Moment);
  EXPECT_EQ(solution.Steps[1].Joint, 1);
  EXPECT_EQ(solution.Steps[2].Joint, 2);
  const HandStep& last = solution.Steps[3];
  EXPECT_EQ(last.Joint, 3);
  EXPECT_THAT(last.Solved, IsEmpty());
  EXPECT_EQ(last.Equations.size(), 2U);
  for (const BalanceEquation& equation : last.Equations) EXPECT_EQ(equation.Use, BalanceUse::Holds);
  ExpectEquationsHold(solution);
  EXPECT_NEAR(ByName(graph, solution).at("AC"), 500 * std::sqrt(2.0), 1e-9);
  EXPECT_NEAR(ByName(graph, solution).at("AB"), -500, 1e-9);
}

TEST(HandSolution, MomentsAreTakenAboutTheSupportWithTheMostReactions) {
  const HandSolution solution = SolveByHand(GraphOf(TrussBuilder()
                                                        .Member(0, 0, 6, 0)
                                                        .Member(0, 0, 6, 8)
                                                        .Member(6, 0, 6, 8)
                                                        .Roller(0, 0)
                                                        .Clamp(6, 8)
                                                        .Force(6, 0, 5, 0)));
  const BalanceEquation& moment = solution.Steps.front().Equations.front();
  ASSERT_EQ(moment.Kind, BalanceKind::Moment);
  EXPECT_EQ(moment.AtX, 6);
  EXPECT_EQ(moment.AtY, 8);
}

TEST(HandSolution, ReactionsThatMeetWhereNoJointIsAreFoundAboutThatPoint) {
  // Upright rollers at (0, 0) and (4, 0), a level one at (2, 3).
  const TrussGraph graph = GraphOf(TrussBuilder()
                                       .Member(0, 0, 4, 0, "a")
                                       .Member(0, 0, 2, 3, "b")
                                       .Member(4, 0, 2, 3, "c")
                                       .Roller(0, 0, "l")
                                       .Roller(4, 0, "r")
                                       .Roller(2, 3, "s", 8)
                                       .Force(2, 3, -30, -40));
  const HandSolution solution = SolveByHand(graph);
  EXPECT_EQ(solution.Steps.front().Solved.size(), 3U);
  EXPECT_NEAR(ByName(graph, solution).at("s"), 30, 1e-9);
  EXPECT_NEAR(ByName(graph, solution).at("l"), 20, 1e-9);
  EXPECT_NEAR(ByName(graph, solution).at("r"), 20, 1e-9);
}

TEST(HandSolution, AgreesWithTheSolutionsOfEveryExample) {
  int numCompared = 0;
  WithEachExample([&](Truss& truss) {
    const TrussAnalysis analysis = SolveTruss(truss);
    const TrussGraph graph = GraphOf(truss, analysis);
    const HandSolution solution = SolveByHand(graph);
    const ExactVerdict verdict = JudgeExactly(graph);
    EXPECT_EQ(solution.Contradicts(), verdict.Code() == Outcome::Inconsistent);
    ExpectEquationsHold(solution);
    if (solution.Contradicts()) return;
    EXPECT_EQ(Found(solution), verdict.Determined);
    ExpectJointsInBalance(graph, solution);
    if (analysis.Reading.Code != verdict.Code()) return;
    for (int k = 1; k <= graph.NumUnknowns(); ++k) {
      if (!solution.Values[k] || !analysis.Reading.Values[k]) continue;
      EXPECT_NEAR(*solution.Values[k], *analysis.Reading.Values[k], 0.01) << graph.Unknowns[k].Name;
      ++numCompared;
    }
  });
  EXPECT_GT(numCompared, 200);
}

TEST(HandSolution, SolvesEverySimpleTrussWithoutTheMatrix) {
  std::mt19937 random(12);
  for (int i = 0; i < 1000; ++i) {
    SCOPED_TRACE(i);
    Truss truss = RandomSimpleTrussOn(random, 3 + i % 12);
    const TrussGraph graph = GraphOf(truss);
    const HandSolution solution = SolveByHand(graph);
    EXPECT_EQ(CountSteps(solution, HandStepKind::Together), 0);
    EXPECT_EQ(static_cast<int>(Found(solution).size()), graph.NumUnknowns());
    EXPECT_FALSE(solution.Contradicts());
    for (const HandStep& step : solution.Steps) {
      if (step.Kind == HandStepKind::Joint || step.Kind == HandStepKind::Section) {
        EXPECT_LE(step.Solved.size(), step.Kind == HandStepKind::Joint ? 2U : 1U);
      }
    }
    ExpectEquationsHold(solution);
    ExpectJointsInBalance(graph, solution);
    if (HasFailure()) break;
  }
}

TEST(HandSolution, FindsWhatIsDeterminedAndContradictsWhatHasNoSolution) {
  std::mt19937 random(7);
  int numContradictions = 0;
  int numOpen = 0;
  int numTogether = 0;
  for (int i = 0; i < HowMany(4000, 2000); ++i) {
    SCOPED_TRACE(i);
    const TrussGraph graph = GraphOf(RandomSmallTruss(random, 8, 6));
    if (graph.NumUnknowns() == 0) continue;
    const ExactVerdict verdict = JudgeExactly(graph);
    const HandSolution solution = SolveByHand(graph);
    EXPECT_EQ(solution.Contradicts(), verdict.Code() == Outcome::Inconsistent);
    ExpectEquationsHold(solution);
    if (!solution.Contradicts()) {
      EXPECT_EQ(Found(solution), verdict.Determined);
      ExpectJointsInBalance(graph, solution);
    }
    numContradictions += solution.Contradicts() ? 1 : 0;
    numOpen += verdict.SelfStresses() > 0 ? 1 : 0;
    numTogether += CountSteps(solution, HandStepKind::Together);
    if (HasFailure()) break;
  }
  EXPECT_GT(numContradictions, 100);
  EXPECT_GT(numOpen, 100);
  EXPECT_GT(numTogether, 4);
}

// A girder of three triangles on a clamp at its left end, under a load at its right top.
TrussBuilder HandGirder() {
  return TrussBuilder()
      .Member(0, 0, 4, 0, "AB")
      .Member(4, 0, 8, 0, "BC")
      .Member(0, 0, 2, 3, "AD")
      .Member(4, 0, 2, 3, "BD")
      .Member(4, 0, 6, 3, "BE")
      .Member(8, 0, 6, 3, "CE")
      .Member(2, 3, 6, 3, "DE")
      .Clamp(0, 0, "Ax", "Ay")
      .Force(6, 3, 300, -1000);
}

// Where some forces stay open, one equation of a joint can still give one: no cut and no pair of equations.
TEST(HandSolution, TakesWhatOneEquationOfAJointGives) {
  for (const TrussBuilder& truss :
       {HandGirder().Clamp(8, 0, "Cx", "Cy"), HandGirder().Roller(8, 0, "C").Member(0, 0, 8, 0, "AC"),
        HandGirder().Roller(8, 0, "C").Member(2, 3, 6, 3, "DE2")}) {
    const TrussGraph graph = GraphOf(truss);
    const HandSolution solution = SolveByHand(graph);
    EXPECT_EQ(Found(solution), JudgeExactly(graph).Determined);
    EXPECT_EQ(CountSteps(solution, HandStepKind::Section), 0);
    for (const HandStep& step : solution.Steps) {
      for (const BalanceEquation& equation : step.Equations)
        EXPECT_NE(equation.Use, BalanceUse::SolvesTogether);
    }
  }
}

// Before each cut and each pair of equations: no joint, and no connected part as a whole, has a sum along x
// or y in which one force alone is sought.
class OneEquationFirst {
 public:
  explicit OneEquationFirst(const TrussGraph& graph) : graph_(graph), isKnown_(graph.NumUnknowns()) {}

  int NumLookedAt() const { return numLookedAt_; }

  void Check(const HandSolution& solution) {
    for (const HandStep& step : solution.Steps) {
      const bool isPair = !step.Equations.empty() && step.Equations.front().Use == BalanceUse::SolvesTogether;
      if (isPair || step.Kind == HandStepKind::Section || step.Kind == HandStepKind::Together) {
        ExpectNothingSimpler();
        ++numLookedAt_;
      }
      for (const UnknownForce& force : step.Solved) isKnown_[force.Unknown] = 1;
    }
  }

 private:
  // The size of what a unit of the only force sought has along the axis; 0 where there are more or none.
  double OnlyOne(const std::vector<int>& unknowns, Axis axis) const {
    double only = 0;
    for (const int k : unknowns) {
      const double part = isKnown_[k] != 0 ? 0 : Along(k, axis);
      if (part == 0) continue;
      if (only != 0) return 0;
      only = part;
    }
    return only;
  }

  double Along(int k, Axis axis) const {
    const PlacedUnknown& unknown = graph_.Unknowns[k];
    if (!unknown.IsMember()) return unknown.Along == axis && unknown.Sign != 0 ? 1 : 0;
    const PlacedJoint& a = graph_.Joints[unknown.JointA];
    const PlacedJoint& b = graph_.Joints[unknown.JointB];
    const double dx = WrittenDifference(a.X, b.X);
    const double dy = WrittenDifference(a.Y, b.Y);
    return std::abs(axis == Axis::X ? dx : dy) / std::max(1e-30, std::hypot(dx, dy));
  }

  void ExpectNothingSimpler() const {
    const Table<std::vector<int>> unknowns = UnknownsByJoint(graph_);
    const TrussPieces pieces = PiecesOf(graph_);
    std::vector<std::vector<int>> reactions(static_cast<std::size_t>(pieces.Count));
    for (int k = 1; k <= graph_.NumUnknowns(); ++k) {
      const PlacedUnknown& unknown = graph_.Unknowns[k];
      if (!unknown.IsMember())
        reactions[static_cast<std::size_t>(pieces.OfJoint[unknown.JointA])].push_back(k);
    }
    for (const Axis axis : {Axis::X, Axis::Y}) {
      for (int j = 1; j <= graph_.NumJoints(); ++j)
        EXPECT_LT(OnlyOne(unknowns[j], axis), NearlyVanishing) << graph_.Joints[j].Name;
      for (const std::vector<int>& piece : reactions) EXPECT_EQ(OnlyOne(piece, axis), 0);
    }
  }

  const TrussGraph& graph_;
  Table<char> isKnown_;
  int numLookedAt_ = 0;
};

TEST(HandSolution, PrefersOneEquationToACutAndToAPair) {
  int numLookedAt = 0;
  const auto look = [&numLookedAt](const TrussGraph& graph) {
    const HandSolution solution = SolveByHand(graph);
    if (solution.Contradicts()) return;
    OneEquationFirst first(graph);
    first.Check(solution);
    numLookedAt += first.NumLookedAt();
  };
  WithEachExample([&](const Truss& truss) { look(GraphOf(truss)); });
  std::mt19937 random(15);
  for (int i = 0; i < 600 && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(i);
    look(GraphOf(RandomSmallTruss(random, 8, 6)));
    look(GraphOf(RandomSimpleTrussOn(random, 3 + i % 12)));
  }
  EXPECT_GT(numLookedAt, 500);
}

// The thrust of a three-hinged arch: cut at the crown for one side, the sum of the whole for the other.
TEST(HandSolution, GoesBackToTheWholeTrussWhenAReactionIsFound) {
  const TrussGraph graph = GraphOf(TrussBuilder()
                                       .Member(0, 0, 2, 4, "a")
                                       .Member(0, 0, 4, 3, "b")
                                       .Member(2, 4, 4, 3, "c")
                                       .Member(2, 4, 6, 6, "d")
                                       .Member(4, 3, 6, 6, "e")
                                       .Member(12, 0, 10, 4, "f")
                                       .Member(12, 0, 8, 3, "g")
                                       .Member(10, 4, 8, 3, "h")
                                       .Member(10, 4, 6, 6, "i")
                                       .Member(8, 3, 6, 6, "j")
                                       .Clamp(0, 0, "Ax", "Ay")
                                       .Clamp(12, 0, "Bx", "By")
                                       .Force(2, 4, 9, -30));
  const HandSolution solution = SolveByHand(graph);
  ASSERT_GE(solution.Steps.size(), 3U);
  EXPECT_EQ(solution.Steps[1].Kind, HandStepKind::Section);
  const HandStep& again = solution.Steps[2];
  EXPECT_EQ(again.Kind, HandStepKind::Reactions);
  ASSERT_EQ(again.Equations.size(), 1U);
  EXPECT_EQ(again.Equations.front().Kind, BalanceKind::X);
  EXPECT_EQ(static_cast<int>(Found(solution).size()), graph.NumUnknowns());
  ExpectEquationsHold(solution);
  ExpectJointsInBalance(graph, solution);
}

// Where each pair of a thousand supports was a point to take moments about, this took hours.
TEST(HandSolution, ManySupportsAreNoManyPointsForMoments) {
  TrussBuilder star;
  constexpr int numTips = 1000;
  for (int i = 1; i <= numTips; ++i) {
    const auto x = static_cast<float>(i);
    const auto y = static_cast<float>(i * i % 997 + 1);
    star.Member(0, 0, x, y).Clamp(x, y);
  }
  const HandSolution solution = SolveByHand(GraphOf(star));
  EXPECT_TRUE(Found(solution).empty());
  EXPECT_FALSE(solution.Contradicts());
}

TEST(HandSolution, HasAnAnswerForEveryDocument) {
  RandomTruss documents(3);
  for (int i = 0; i < 500; ++i) {
    Truss truss = documents.Next();
    const TrussAnalysis analysis = SolveTruss(truss);
    const TrussGraph graph = GraphOf(truss, analysis);
    if (graph.NumUnknowns() == 0) continue;
    const HandSolution solution = SolveByHand(graph);
    EXPECT_EQ(solution.Contradicts(), JudgeExactly(graph).Code() == Outcome::Inconsistent);
  }
}

TEST(HandSolution, ContradictsWhereTheEquationsDo) {
  // The square without a diagonal folds under a load from the side; the joint whose equation is false is
  // told.
  const TrussGraph graph = GraphOf(TrussBuilder()
                                       .Member(0, 0, 4, 0)
                                       .Member(4, 0, 4, 4)
                                       .Member(4, 4, 0, 4)
                                       .Member(0, 4, 0, 0)
                                       .Clamp(0, 0)
                                       .Roller(4, 0)
                                       .Force(4, 4, 1000, 0));
  const HandSolution solution = SolveByHand(graph);
  const HandStep& last = solution.Steps.back();
  ASSERT_TRUE(last.Contradicts);
  EXPECT_EQ(last.Kind, HandStepKind::Joint);
  EXPECT_EQ(last.Equations.front().Use, BalanceUse::Contradicts);
}

TEST(HandSolution, APartThatContradictsItselfLeavesTheOthersAlone) {
  const TrussGraph graph = GraphOf(HandTriangle().Force(20, 20, 0, -1));
  const HandSolution solution = SolveByHand(graph);
  EXPECT_TRUE(solution.Contradicts());
  EXPECT_EQ(Found(solution).size(), 6U);
}

// It is found first, at the joint across whose only member the load pulls.
TEST(HandSolution, APartThatContradictsItselfFirstLeavesTheOthersAlone) {
  const TrussGraph graph = GraphOf(HandTriangle()
                                       .Member(20, 20, 24, 20, "0")
                                       .Clamp(20, 20, "0x", "0y")
                                       .Joint(20, 20, "0a")
                                       .Joint(24, 20, "0b")
                                       .Force(24, 20, 0, -1));
  const HandSolution solution = SolveByHand(graph);
  EXPECT_TRUE(solution.Contradicts());
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    if (!graph.Unknowns[k].Name.View().starts_with('0')) {
      EXPECT_TRUE(solution.Values[k].has_value()) << graph.Unknowns[k].Name;
    }
  }
}

// Whatever the rounding of their directions is.
TEST(SolvableShare, IsNothingForTwoMembersInLine) {
  for (int x = 1; x <= 12; ++x) {
    for (int y = 1; y <= 12; ++y) {
      const auto dx = static_cast<float>(x), dy = static_cast<float>(y);
      const TrussGraph graph = GraphOf(TrussBuilder()
                                           .Member(0, 0, dx, dy)
                                           .Member(dx, dy, 4 * dx, 4 * dy)
                                           .Joint(dx, dy, "")
                                           .Joint(0, 0, "a")
                                           .Joint(4 * dx, 4 * dy, "b"));
      EXPECT_EQ(SolvableShare(TrussBalance(graph), 1), 0) << x << ", " << y;
    }
  }
}

TEST(HandSolution, GoesAroundWhatIsUndetermined) {
  // The second panel has two diagonals; the first one, the loaded post and the reactions are determined.
  const TrussGraph graph = GraphOf(TrussBuilder()
                                       .Member(0, 0, 4, 0, "b1")
                                       .Member(4, 0, 8, 0, "b2")
                                       .Member(0, 0, 4, 3, "d1")
                                       .Member(4, 0, 4, 3, "post")
                                       .Member(4, 3, 8, 3, "top")
                                       .Member(8, 0, 8, 3, "end")
                                       .Member(4, 0, 8, 3, "x1")
                                       .Member(4, 3, 8, 0, "x2")
                                       .Clamp(0, 0, "Ax", "Ay")
                                       .Roller(8, 0, "B")
                                       .Force(4, 0, 0, -100));
  const HandSolution solution = SolveByHand(graph);
  const std::map<std::string, double> values = ByName(graph, solution);
  EXPECT_EQ(values.size(), 5U);
  EXPECT_NEAR(values.at("B"), 50, 1e-9);
  EXPECT_NEAR(values.at("d1"), 50 * 5.0 / 3, 1e-9);
  EXPECT_NEAR(values.at("b1"), -50 * 4.0 / 3, 1e-9);
}

// Two members in one place and two reactions in one line all meet in the clamp at (0, 0), but the point where
// two of them meet is rounded, and lies a little beside it.
TEST(HandSolution, ALineThroughThePointOfAMomentIsNotFoundFromIt) {
  const ToldByHand told(TrussBuilder()
                            .Clamp(0, 0, "A", "B", 2)
                            .Clamp(0, 4, "C", "D")
                            .Roller(0, 4, "E")
                            .Member(5, 1, 7, 6, "F")
                            .Member(7, 6, 0, 0, "G")
                            .Member(0, 0, 7, 6, "H")
                            .Member(7, 6, 0, 4, "I")
                            .Member(5, 1, 0, 4, "J")
                            .Force(7, 6, 1, 1)
                            .Joint(5, 1, "1")
                            .Joint(7, 6, "2")
                            .Joint(0, 0, "3")
                            .Joint(0, 4, "4"));
  ExpectEquationsHold(told.Solution);
  const std::vector<int> determined = JudgeExactly(told.Graph).Determined;
  int numSolved = 0;
  for (const HandStep& step : told.Solution.Steps) {
    for (const UnknownForce& solved : step.Solved) {
      EXPECT_TRUE(std::ranges::binary_search(determined, solved.Unknown))
          << told.Graph.Unknowns[solved.Unknown].Name;
      ++numSolved;
    }
  }
  EXPECT_GE(numSolved, 4) << "C, F, I and J, at least";
}

TEST(HandSolution, AMemberOfNoLengthHasNoValue) {
  const TrussGraph graph = GraphOf(HandTriangle().Member(4, 4, 4, 4, "dot"));
  const HandSolution solution = SolveByHand(graph);
  EXPECT_EQ(Found(solution).size(), 6U);
  EXPECT_FALSE(ByName(graph, solution).contains("dot"));
}

TEST(HandSolution, DoesNotDivideByNearlyNothingWhenItCanWait) {
  // At joint (4, 3) two members meet that are nearly in one line; from the other side their forces follow
  // from large angles.
  const TrussGraph graph = GraphOf(TrussBuilder()
                                       .Member(0, 0, 4, 0.001F, "flat1")
                                       .Member(4, 0.001F, 8, 0, "flat2")
                                       .Member(0, 0, 4, -4, "a")
                                       .Member(8, 0, 4, -4, "b")
                                       .Clamp(0, 0, "Ax", "Ay")
                                       .Clamp(8, 0, "Bx", "By")
                                       .Joint(4, 0.001F, "0")
                                       .Force(4, -4, 0, -100)
                                       .Force(4, 0.001F, 7, 0));
  const HandSolution solution = SolveByHand(graph);
  // The joint that comes first by name waits for the other.
  std::vector<int> order;
  for (const HandStep& step : solution.Steps) {
    if (step.Kind == HandStepKind::Joint) order.push_back(step.Joint);
  }
  ASSERT_GE(order.size(), 2U);
  EXPECT_NE(order[0], 1);
  ExpectJointsInBalance(graph, solution);
}

}  // namespace
