// Which forces can be chosen, which then follow, and what is determined all the same.
#include "explanation/OpenForces.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

#include "ExplanationFixture.h"
#include "explanation/Explanation.h"
#include "explanation/ExplanationText.h"
#include "explanation/RigidityMatrix.h"

namespace {

using testing::HasSubstr;
using testing::Not;

// Without some of the unknowns; `numbers` are those that the others had.
TrussGraph Without(const TrussGraph& graph, const std::set<int>& unknowns, std::vector<int>& numbers) {
  TrussGraph rest = graph;
  rest.Unknowns.Resize(0);
  numbers.clear();
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    if (unknowns.contains(k)) continue;
    rest.Unknowns.Resize(rest.NumUnknowns() + 1);
    rest.Unknowns[rest.NumUnknowns()] = graph.Unknowns[k];
    numbers.push_back(k);
  }
  return rest;
}

std::set<int> DependentOn(const OpenForces& open, int free) {
  std::set<int> unknowns;
  for (const DependentForce& force : open.Dependent) {
    if (std::ranges::binary_search(force.On, free)) unknowns.insert(force.Unknown);
  }
  return unknowns;
}

// States of self-stress that share all their forces with others.
void AddMembersOnOthers(std::mt19937& random, TrussGraph& graph) {
  const int numUnknowns = graph.NumUnknowns();
  for (int k = 1; k <= numUnknowns; ++k) {
    if (!graph.Unknowns[k].IsMember()) continue;
    for (int i = Below(random, 4); i > 0; --i) {
      graph.Unknowns.Resize(graph.NumUnknowns() + 1);
      graph.Unknowns[graph.NumUnknowns()] = graph.Unknowns[k];
    }
  }
}

TEST(OpenForces, AMemberIsFreeRatherThanAReaction) {
  const TrussGraph graph =
      GraphOf(TrussBuilder().Member(0, 0, 4, 0, "AB").Clamp(0, 0, "Ax", "Ay").Clamp(4, 0, "Bx", "By"));
  const OpenForces open = ReasonExactly(graph).Open;
  ASSERT_EQ(open.Free.size(), 1U);
  EXPECT_EQ(graph.Unknowns[open.Free[0]].Name, "AB");
}

// Three vectors of which each shares both its forces: none has one of its own before another is taken out.
TEST(OpenForces, AFreeForceIsTakenOutOfTheOtherVectors) {
  const TrussGraph graph =
      GraphOf(TrussBuilder().Member(0, 0, 3, 4, "a").Member(0, 0, 3, 0, "b").Member(3, 0, 3, 4, "c"));
  const std::vector<ModularRow> vectors = {{{0, 1}, {1, 1}}, {{1, 1}, {2, 1}}, {{0, 1}, {2, 1}}};
  const OpenForces open = OpenForcesOf<FirstField>(graph, vectors);
  EXPECT_THAT(open.Free, testing::ElementsAre(1, 2, 3));
  EXPECT_TRUE(open.Dependent.empty());
}

TEST(OpenForces, WithAllFreeOnesButOneFixedJustTheOnesThatDependOnItAreOpen) {
  std::mt19937 random(77);
  int numFree = 0;
  for (int i = 0; i < 600; ++i) {
    TrussGraph graph = GraphOf(RandomSmallTruss(random, 8, 5));
    if (graph.NumUnknowns() == 0) continue;
    if (i % 3 == 0) AddMembersOnOthers(random, graph);
    const ExactReasons reasons = ReasonExactly(graph);
    const OpenForces& open = reasons.Open;
    ASSERT_EQ(static_cast<int>(open.Free.size()), reasons.Verdict.SelfStresses()) << "truss " << i;
    ASSERT_EQ(open.Free.size() + open.Dependent.size() + reasons.Verdict.Determined.size(),
              static_cast<std::size_t>(graph.NumUnknowns()));
    std::vector<int> numbers;
    const std::set<int> all(open.Free.begin(), open.Free.end());
    EXPECT_EQ(JudgeExactly(Without(graph, all, numbers)).Rank, reasons.Verdict.Rank) << "truss " << i;
    for (const int free : open.Free) {
      ++numFree;
      std::set<int> others = all;
      others.erase(free);
      const ExactVerdict verdict = JudgeExactly(Without(graph, others, numbers));
      std::set<int> varying = {numbers.begin(), numbers.end()};
      for (const int k : verdict.Determined) varying.erase(numbers[static_cast<std::size_t>(k - 1)]);
      varying.erase(free);
      EXPECT_EQ(varying, DependentOn(open, free)) << "truss " << i << ", free " << free;
    }
  }
  EXPECT_GT(numFree, 400);
}

TEST(OpenForces, ASolutionWithTheFreeOnesAt0Balances) {
  std::mt19937 random(78);
  int numSolved = 0;
  for (int i = 0; i < 600; ++i) {
    const TrussGraph graph = GraphOf(RandomSmallTruss(random, 8, 5));
    if (graph.NumUnknowns() == 0) continue;
    const ExactReasons reasons = ReasonExactly(graph);
    if (reasons.Verdict.Code() == Outcome::Inconsistent || LargestLoad(graph) == 0) continue;
    ++numSolved;
    const Table<double> forces = ForcesWithFreeAt0(graph, reasons.Open.Free, reasons.Verdict.Rank);
    for (const int free : reasons.Open.Free) EXPECT_EQ(forces[free], 0);
    std::vector<double> left = LoadVector(graph);
    const SparseMatrix<double> rigidity = RigidityRows(graph);
    double size = 0;
    for (int k = 1; k <= graph.NumUnknowns(); ++k) {
      size = std::max(size, std::abs(forces[k]));
      for (const auto& [column, value] : rigidity.Row(k))
        left[static_cast<std::size_t>(column - 1)] += forces[k] * value;
    }
    for (const double force : left) EXPECT_LE(std::abs(force), 1e-9 * (size + LargestLoad(graph))) << i;
  }
  EXPECT_GT(numSolved, 30);
}

// A square with both diagonals between two clamps, with a panel beside it that hangs by three members.
TrussBuilder BracedSquare() {
  return TrussBuilder()
      .Member(0, 0, 4, 0, "AB")
      .Member(0, 0, 0, 3, "AD")
      .Member(4, 0, 4, 3, "BC")
      .Member(0, 3, 4, 3, "CD")
      .Member(0, 0, 4, 3, "AC")
      .Member(4, 0, 0, 3, "BD")
      .Clamp(0, 0, "Ax", "Ay")
      .Clamp(4, 0, "Bx", "By");
}

std::string ToldOf(Truss truss) {
  const TrussAnalysis analysis = SolveTruss(truss);
  std::string text;
  for (const ExplanationSection& section : ExplanationText(ExplainTruss(truss, analysis), {})) {
    for (const std::string& paragraph : section.Paragraphs) text += paragraph + '\n';
  }
  return text;
}

TEST(OpenForces, AreToldWithWhatEachDependsOnAndTheOthersWithTheirValues) {
  const std::string text = ToldOf(BracedSquare().Force(0, 3, 300, 0));
  EXPECT_THAT(text, HasSubstr("Determined whatever the others are: Ay = -225 and By = 225.  Left open by the "
                              "equations: Ax, Bx, AB, AC, AD, BC, BD and CD."));
  EXPECT_THAT(text,
              HasSubstr("2 forces can be chosen freely, for example Ax and AC.  The others then follow: "
                        "Bx depends on Ax; AB depends on Ax and AC; AD, BC, BD and CD depend on AC.  "));
}

TEST(OpenForces, AreNotToldWhereNoForcesBalanceTheLoads) {
  const std::string text = ToldOf(BracedSquare().Member(4, 3, 8, 3, "out").Force(8, 3, 0, -10));
  EXPECT_THAT(text, HasSubstr("No forces balance these loads"));
  EXPECT_THAT(text, Not(HasSubstr("chosen freely")));
  EXPECT_THAT(text, Not(HasSubstr("Determined whatever")));
}

TEST(OpenForces, ManyAreToldInGroupsOfWhichNotAllAreNamed) {
  TrussBuilder builder;
  for (int i = 0; i < 20; ++i) {
    const auto x = static_cast<float>(3 * i);
    const std::string number = std::to_string(i);
    builder.Member(x, 0, x + 1, 0, "m" + number);
    builder.Member(x, 0, x + 1, 0, "n" + number);
    builder.Clamp(x, 0, "x" + number, "y" + number).Roller(x + 1, 0, "z" + number);
  }
  const std::string text = ToldOf(builder);
  EXPECT_THAT(text, HasSubstr("20 forces can be chosen freely, for example "));
  EXPECT_THAT(text, HasSubstr("n0 depends on m0; n1 depends on m1; "));
  EXPECT_THAT(text, HasSubstr("; and so on for 8 more forces.  Which values"));
}

}  // namespace
