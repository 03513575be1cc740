// Trusses that no joint opens: made of simple ones, and such as need the matrix.
#include "explanation/byjoint/Sections.h"

#include <set>

#include "HandSolutionFixture.h"
#include "explanation/byjoint/Bridges.h"
#include "explanation/byjoint/ForcesOnPart.h"
#include "explanation/byjoint/RigidParts.h"

namespace {

using testing::ElementsAre;

const HandStep* FirstOf(const HandSolution& solution, HandStepKind kind) {
  const auto found = std::ranges::find(solution.Steps, kind, &HandStep::Kind);
  return found == solution.Steps.end() ? nullptr : &*found;
}

// Half of a large Fink roof, mirrored for the other half: struts at right angles to the rafter, which stands
// at 3 : 4, meet the ties that run to the foot, to the ridge and to the other half.
struct Fink {
  Truss Drawn;
  TrussGraph Graph;
  HandSolution Solution;
};

Fink LargeFink() {
  TrussBuilder truss;
  const auto half = [&truss](float side, const std::string& mark) {
    const auto member = [&](float x1, float y1, float x2, float y2, const std::string& name) {
      truss.Member(side * x1, y1, side * x2, y2, name + mark);
    };
    // Rafter joints at quarters of its length; distances from the middle.
    member(-16, 0, -12, 3, "r1");
    member(-12, 3, -8, 6, "r2");
    member(-8, 6, -4, 9, "r3");
    member(-4, 9, 0, 12, "r4");
    member(-16, 0, -9.75F, 0, "t1");
    member(-9.75F, 0, -3.5F, 0, "t2");
    member(-3.5F, 0, -1.75F, 6, "h1");
    member(-1.75F, 6, 0, 12, "h2");
    member(-12, 3, -9.75F, 0, "s1");
    member(-8, 6, -3.5F, 0, "s2");
    member(-4, 9, -1.75F, 6, "s3");
    member(-8, 6, -9.75F, 0, "d1");
    member(-8, 6, -1.75F, 6, "d2");
  };
  half(1, "l");
  half(-1, "r");
  truss.Member(-3.5F, 0, 3.5F, 0, "tie").Clamp(-16, 0, "Ax", "Ay").Roller(16, 0, "B");
  for (const auto& [x, y] : {std::pair(-12.0F, 3.0F),
                             {-8.0F, 6.0F},
                             {-4.0F, 9.0F},
                             {0.0F, 12.0F},
                             {4.0F, 9.0F},
                             {8.0F, 6.0F},
                             {12.0F, 3.0F}})
    truss.Force(x, y, 0, -8);
  Fink fink;
  fink.Drawn = truss;
  fink.Graph = GraphOf(fink.Drawn);
  fink.Solution = SolveByHand(fink.Graph);
  return fink;
}

TEST(Sections, OpenAFinkRoofByItsTieWithMomentsAboutTheRidge) {
  const Fink fink = LargeFink();
  const HandStep* section = FirstOf(fink.Solution, HandStepKind::Section);
  ASSERT_NE(section, nullptr);
  ASSERT_EQ(section->Solved.size(), 1U);
  EXPECT_EQ(fink.Graph.Unknowns[section->Solved.front().Unknown].Name, "tie");
  EXPECT_EQ(section->Equations.front().Kind, BalanceKind::Moment);
  EXPECT_NEAR(section->Equations.front().AtX, 0, 1e-12);
  EXPECT_NEAR(section->Equations.front().AtY, 12, 1e-12);
  // Reaction 28 at 16 less three loads of 8 at 12, 8 and 4, over the height.
  EXPECT_NEAR(section->Solved.front().Value, -(28 * 16 - 8 * 24) / 12.0, 1e-9);
  EXPECT_EQ(CountSteps(fink.Solution, HandStepKind::Together), 0);
  EXPECT_EQ(static_cast<int>(Found(fink.Solution).size()), fink.Graph.NumUnknowns());
  ExpectEquationsHold(fink.Solution);
  ExpectJointsInBalance(fink.Graph, fink.Solution);
}

// The tie pulls; its arrow still shows that it was assumed to push, and its number is negative.
TEST(Sections, AnArrowKeepsTheSenseAssumed) {
  const Fink fink = LargeFink();
  const HandStep* section = FirstOf(fink.Solution, HandStepKind::Section);
  ASSERT_NE(section, nullptr);
  const auto index = static_cast<std::size_t>(section - fink.Solution.Steps.data());
  const std::vector<ForceOnPart> forces = ForcesOnPart(fink.Graph, fink.Solution, index, {});
  const auto tie = std::ranges::find(forces, section->Solved.front().Unknown,
                                     [](const ForceOnPart& force) { return force.Unknown; });
  ASSERT_NE(tie, forces.end());
  EXPECT_LT(tie->Value, 0);
  EXPECT_NEAR(tie->X * tie->SideX + tie->Y * tie->SideY, -1, 1e-9);
}

// A large triangle with a small one inside, which hangs on a link at each corner: three members or more at
// each joint, and no joint that two of the links share. On its side, x and y change places.
struct Corner {
  float X, Y;
};
enum class Stands { Upright, OnItsSide };

TrussGraph TriangleInATriangle(Corner first, Corner second, Corner third, Stands stands = Stands::Upright) {
  const bool turned = stands == Stands::OnItsSide;
  const Corner left{0, 0}, right{12, 0}, top{6, 10};
  TrussBuilder truss;
  const auto member = [&](Corner a, Corner b, const char* name) {
    if (turned) {
      truss.Member(a.Y, a.X, b.Y, b.X, name);
    } else {
      truss.Member(a.X, a.Y, b.X, b.Y, name);
    }
  };
  const auto force = [&](Corner at, float fx, float fy) {
    if (turned) {
      truss.Force(at.Y, at.X, fy, fx);
    } else {
      truss.Force(at.X, at.Y, fx, fy);
    }
  };
  member(left, right, "a");
  member(left, top, "b");
  member(right, top, "c");
  member(first, second, "d");
  member(second, third, "e");
  member(third, first, "f");
  member(left, first, "l1");
  member(right, second, "l2");
  member(top, third, "l3");
  force(top, 0, -60);
  force(first, 10, 0);
  force(third, 0, -20);
  constexpr std::int16_t level = 7;
  truss.Clamp(0, 0, "Ax", "Ay");
  return GraphOf(turned ? truss.Roller(0, 12, "B", level) : truss.Roller(12, 0, "B"));
}

void ExpectOneSectionThroughTheLinks(const TrussGraph& graph, BalanceKind kind) {
  const HandSolution solution = SolveByHand(graph);
  const HandStep* section = FirstOf(solution, HandStepKind::Section);
  ASSERT_NE(section, nullptr);
  EXPECT_EQ(section->Joints.size(), 3U);
  EXPECT_EQ(section->Cut.size(), 3U);
  EXPECT_EQ(section->PutAside.size(), 2U);
  EXPECT_EQ(section->Solved.size(), 1U);
  EXPECT_EQ(section->Equations.front().Kind, kind);
  EXPECT_EQ(CountSteps(solution, HandStepKind::Together), 0);
  EXPECT_EQ(static_cast<int>(Found(solution).size()), graph.NumUnknowns());
  ExpectEquationsHold(solution);
  ExpectJointsInBalance(graph, solution);
}

TEST(Sections, CutThreeLinksWhereverTheirLinesMeet) {
  ExpectOneSectionThroughTheLinks(TriangleInATriangle({5, 2}, {8, 3}, {6.5F, 5}), BalanceKind::Moment);
}

TEST(Sections, TakeTheSumAcrossLinksThatAreParallel) {
  // l1 and l2 stand at 3 : 4; then upright; then level.
  ExpectOneSectionThroughTheLinks(TriangleInATriangle({3, 4}, {13.5F, 2}, {6, 5}), BalanceKind::Across);
  ExpectOneSectionThroughTheLinks(TriangleInATriangle({0, 2}, {12, 3}, {7, 5}), BalanceKind::X);
  ExpectOneSectionThroughTheLinks(TriangleInATriangle({0, 2}, {12, 3}, {7, 5}, Stands::OnItsSide),
                                  BalanceKind::Y);
}

// The wheel of a hexagon: six joints, each joined to its neighbours and to the one opposite.
TrussGraph Hexagon() {
  const std::vector<std::pair<float, float>> at = {{0, 0}, {5, -1}, {9, 3}, {8, 8}, {3, 9}, {-2, 5}};
  TrussBuilder truss;
  for (std::size_t i = 0; i < 6; ++i) {
    const auto [x1, y1] = at[i];
    const auto [x2, y2] = at[(i + 1) % 6];
    truss.Member(x1, y1, x2, y2, "side" + std::to_string(i));
    if (i < 3) truss.Member(x1, y1, at[i + 3].first, at[i + 3].second, "spoke" + std::to_string(i));
  }
  return GraphOf(truss.Clamp(0, 0, "Ax", "Ay").Roller(9, 3, "B").Force(8, 8, 10, -70));
}

TEST(Sections, AHexagonWithItsThreeDiagonalsNeedsTheMatrix) {
  const TrussGraph graph = Hexagon();
  const HandSolution solution = SolveByHand(graph);
  const HandStep* together = FirstOf(solution, HandStepKind::Together);
  ASSERT_NE(together, nullptr);
  EXPECT_EQ(together->Unknowns.size(), 9U);
  EXPECT_EQ(together->Joints.size(), 6U);
  EXPECT_EQ(together->Solved.size(), 9U);
  EXPECT_EQ(CountSteps(solution, HandStepKind::Section), 0);
  ExpectJointsInBalance(graph, solution);
}

TEST(Sections, ShowAPanelWithoutADiagonalByTheSumAcrossItsChords) {
  // Braced panels on both sides, and nothing in the middle one that takes its shear.
  TrussBuilder truss;
  for (int i = 0; i < 5; ++i) {
    const auto x = static_cast<float>(4 * i);
    truss.Member(x, 0, x + 4, 0, "bottom" + std::to_string(i))
        .Member(x, 3, x + 4, 3, "top" + std::to_string(i));
    truss.Member(x, 0, x, 3);
    if (i != 2) truss.Member(x, 0, x + 4, 3).Member(x, 3, x + 4, 0);
  }
  const TrussGraph graph =
      GraphOf(truss.Member(20, 0, 20, 3).Clamp(0, 0, "Ax", "Ay").Roller(20, 0, "B").Force(4, 0, 0, -100));
  const HandSolution solution = SolveByHand(graph);
  const HandStep& last = solution.Steps.back();
  ASSERT_TRUE(last.Contradicts);
  ASSERT_EQ(last.Kind, HandStepKind::Section);
  EXPECT_EQ(last.Equations.front().Kind, BalanceKind::Y);
  ASSERT_EQ(last.Cut.size(), 2U);
  EXPECT_EQ(graph.Unknowns[last.Cut[0]].Name, "bottom2");
  EXPECT_EQ(graph.Unknowns[last.Cut[1]].Name, "top2");
}

TEST(Sections, TheThreeHingedArchIsCutAtItsCrown) {
  const TrussGraph graph = GraphOf(TrussBuilder()
                                       .Member(0, 0, 0, 3, "a")
                                       .Member(0, 3, 3, 4, "b")
                                       .Member(0, 0, 3, 4, "c")
                                       .Member(0, 3, 6, 6, "d")
                                       .Member(3, 4, 6, 6, "e")
                                       .Member(12, 0, 12, 3, "f")
                                       .Member(12, 3, 9, 4, "g")
                                       .Member(12, 0, 9, 4, "h")
                                       .Member(12, 3, 6, 6, "i")
                                       .Member(9, 4, 6, 6, "j")
                                       .Clamp(0, 0, "Ax", "Ay")
                                       .Clamp(12, 0, "Bx", "By")
                                       .Force(0, 3, 9, 0));
  const HandSolution solution = SolveByHand(graph);
  EXPECT_EQ(static_cast<int>(Found(solution).size()), graph.NumUnknowns());
  ExpectEquationsHold(solution);
  ExpectJointsInBalance(graph, solution);
}

TEST(Bridges, AreTheEdgesWhoseRemovalPartsTheGraph) {
  // A triangle 0 1 2, a bridge 2-3, two parallel edges 3-4.
  BridgeFinder finder(5, {{0, 1}, {1, 2}, {2, 0}, {2, 3}, {3, 4}, {4, 3}});
  const auto& bridges = finder.Find(std::vector<char>(6));
  ASSERT_EQ(bridges.size(), 1U);
  EXPECT_EQ(bridges.front().Edge, 3);
  EXPECT_EQ(bridges.front().End - bridges.front().First, 2);
  // Without one of the parallel edges the other is a bridge, too; without an edge of the triangle its others.
  EXPECT_EQ(finder.Find({0, 0, 0, 0, 1, 0}).size(), 2U);
  EXPECT_EQ(finder.Find({1, 0, 0, 0, 0, 0}).size(), 3U);
}

TEST(Bridges, AreTheSameAsByTryingEachEdge) {
  std::mt19937 random(5);
  for (int i = 0; i < 300; ++i) {
    const int numNodes = 2 + static_cast<int>(random() % 8);
    std::vector<GraphEdge> edges;
    for (int e = static_cast<int>(random() % 14); e > 0; --e)
      edges.push_back({static_cast<int>(random() % static_cast<unsigned>(numNodes)),
                       static_cast<int>(random() % static_cast<unsigned>(numNodes))});
    std::erase_if(edges, [](const GraphEdge& edge) { return edge.A == edge.B; });
    const auto reachable = [&](std::size_t without) {
      std::vector<int> root(static_cast<std::size_t>(numNodes));
      for (int n = 0; n < numNodes; ++n) root[static_cast<std::size_t>(n)] = n;
      for (int round = 0; round < numNodes; ++round) {
        for (std::size_t e = 0; e < edges.size(); ++e) {
          if (e == without) continue;
          int& a = root[static_cast<std::size_t>(edges[e].A)];
          int& b = root[static_cast<std::size_t>(edges[e].B)];
          a = b = std::min(a, b);
        }
      }
      return std::set<int>(root.begin(), root.end()).size();
    };
    std::set<int> expected;
    for (std::size_t e = 0; e < edges.size(); ++e) {
      if (reachable(e) > reachable(edges.size())) expected.insert(static_cast<int>(e));
    }
    BridgeFinder finder(numNodes, edges);
    std::set<int> found;
    for (const BridgeFinder::Bridge& bridge : finder.Find(std::vector<char>(edges.size())))
      found.insert(bridge.Edge);
    EXPECT_EQ(found, expected);
  }
}

TEST(RigidParts, GrowByJointsThatAreHeldTwice) {
  const TrussGraph graph = GraphOf(TrussBuilder()
                                       .Member(0, 0, 4, 0)
                                       .Member(4, 0, 4, 6)
                                       .Member(0, 0, 4, 6)
                                       .Member(4, 0, 9, 1)
                                       .Member(4, 6, 9, 1)
                                       .Member(9, 1, 20, 1)
                                       .Joint(0, 0, "A")
                                       .Joint(4, 0, "B")
                                       .Joint(4, 6, "C")
                                       .Joint(9, 1, "D")
                                       .Joint(20, 1, "E"));
  const TrussBalance balance(graph);
  EXPECT_THAT(RigidParts(balance), ElementsAre(ElementsAre(1, 2, 3, 4)));
}

}  // namespace
