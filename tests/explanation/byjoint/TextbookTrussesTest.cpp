// Problems of textbooks by their geometry, with the answers that are printed there: magnitude, and C or T.
#include "HandSolutionFixture.h"

namespace {

struct Printed {
  std::string Name;
  double Value;           // compression positive; of a reaction in the direction of its arrow
  double Rounding = 0.5;  // half a unit of the last figure that is printed
};

class Textbook : public testing::Test {
 protected:
  void Expect(Truss truss, const std::vector<Printed>& answers) {
    const TrussAnalysis analysis = SolveTruss(truss);
    const TrussGraph graph = GraphOf(truss, analysis);
    const HandSolution solution = SolveByHand(graph);
    EXPECT_EQ(CountSteps(solution, HandStepKind::Together), 0);
    ExpectEquationsHold(solution);
    ExpectJointsInBalance(graph, solution);
    const std::map<std::string, double> values = ByName(graph, solution);
    EXPECT_EQ(values.size(), static_cast<std::size_t>(graph.NumUnknowns()));
    for (const Printed& answer : answers) {
      ASSERT_TRUE(values.contains(answer.Name)) << answer.Name;
      EXPECT_NEAR(values.at(answer.Name), answer.Value, answer.Rounding) << answer.Name;
    }
  }
};

TEST_F(Textbook, ARightTrianglePushedAtItsTop) {
  Expect(TrussBuilder()
             .Member(0, 0, 0, 2, "AB")
             .Member(0, 2, 2, 0, "BC")
             .Member(0, 0, 2, 0, "AC")
             .Clamp(0, 0, "Ax", "Ay")
             .Roller(2, 0, "Cy")
             .Force(0, 2, 500, 0),
         {{"BC", 707.1, 0.05},
          {"AB", -500, 1e-9},
          {"AC", -500, 1e-9},
          {"Ax", -500, 1e-9},
          {"Ay", -500, 1e-9},
          {"Cy", 500, 1e-9}});
}

TEST_F(Textbook, FiveMembersUnderALoadFromAboveAndOneFromTheSide) {
  Expect(TrussBuilder()
             .Member(0, 0, 3, 4, "AB")
             .Member(0, 0, 6, 0, "AD")
             .Member(3, 4, 6, 0, "BD")
             .Member(3, 4, 6, 4, "BC")
             .Member(6, 0, 6, 4, "CD")
             .Roller(0, 0, "Ay")
             .Clamp(6, 4, "Cx", "Cy")
             .Force(3, 4, 0, -400)
             .Force(6, 0, 600, 0),
         {{"Ay", 600, 1e-9},
          {"Cx", -600, 1e-9},
          {"Cy", -200, 1e-9},
          {"AB", 750, 1e-9},
          {"AD", -450, 1e-9},
          {"BD", -250, 1e-9},
          {"CD", 200, 1e-9},
          {"BC", 600, 1e-9}});
}

TEST_F(Textbook, ACantileverOfEquilateralTrianglesHungFromACable) {
  constexpr float height = 4.330127F;
  Expect(TrussBuilder()
             .Member(0, 0, 5, 0, "AC")
             .Member(5, 0, 10, 0, "CE")
             .Member(0, 0, 2.5F, height, "AB")
             .Member(2.5F, height, 5, 0, "BC")
             .Member(2.5F, height, 7.5F, height, "BD")
             .Member(7.5F, height, 5, 0, "CD")
             .Member(7.5F, height, 10, 0, "DE")
             .Member(7.5F, height, 11.830127F, 6.830127F, "T")
             .Clamp(10, 0, "Ex", "Ey")
             .Clamp(11.830127F, 6.830127F, "Fx", "Fy")
             .Force(0, 0, 0, -30)
             .Force(5, 0, 0, -20),
         {{"T", -80, 0.5},
          {"Ex", -69.3, 0.05},
          {"Ey", 10, 0.05},
          {"AB", -34.6, 0.05},
          {"AC", 17.32, 0.005},
          {"BC", 34.6, 0.05},
          {"BD", -34.6, 0.05},
          {"CD", -57.7, 0.05},
          {"CE", 63.5, 0.05},
          {"DE", 11.55, 0.005}});
}

TEST_F(Textbook, ThreeTrianglesBetweenParallelChords) {
  Expect(TrussBuilder()
             .Member(0, 8, 12, 8, "AB")
             .Member(12, 8, 24, 8, "BC")
             .Member(0, 8, 6, 0, "AD")
             .Member(6, 0, 12, 8, "BD")
             .Member(6, 0, 18, 0, "DE")
             .Member(12, 8, 18, 0, "BE")
             .Member(18, 0, 24, 8, "CE")
             .Clamp(24, 8, "Cx", "Cy")
             .Roller(18, 0, "E")
             .Force(0, 8, 0, -2000)
             .Force(12, 8, 0, -1000),
         {{"E", 10000, 1e-6},
          {"Cx", 0, 1e-9},
          {"Cy", -7000, 1e-6},
          {"AB", -1500, 1e-6},
          {"AD", 2500, 1e-6},
          {"BD", -2500, 1e-6},
          {"DE", 3000, 1e-6},
          {"BE", 3750, 1e-6},
          {"BC", -5250, 1e-6},
          {"CE", 8750, 1e-6}});
}

TEST_F(Textbook, ARoofWithLoadsOnBothChords) {
  TrussBuilder truss;  // three times as large, so that the rafters are exactly straight
  const std::vector<std::pair<float, float>> bottom = {{0, 0},  {15, 0}, {30, 0}, {45, 0},
                                                       {60, 0}, {75, 0}, {90, 0}};
  const std::vector<std::pair<float, float>> top = {{0, 0},   {15, 8}, {30, 16}, {45, 24},
                                                    {60, 16}, {75, 8}, {90, 0}};
  const auto member = [&truss](std::pair<float, float> a, std::pair<float, float> b,
                               const std::string& name) {
    truss.Member(a.first, a.second, b.first, b.second, name);
  };
  const std::vector<std::string> lower = {"AC", "CE", "EG", "GI", "IK", "KL"};
  const std::vector<std::string> upper = {"AB", "BD", "DF", "FH", "HJ", "JL"};
  for (std::size_t i = 0; i < 6; ++i) {
    member(bottom[i], bottom[i + 1], lower[i]);
    member(top[i], top[i + 1], upper[i]);
    if (i > 0) member(bottom[i], top[i], "post" + std::to_string(i));
  }
  member(top[1], bottom[2], "BE");
  member(top[2], bottom[3], "DG");
  member(bottom[3], top[4], "GH");
  member(bottom[4], top[5], "IJ");
  truss.Clamp(0, 0, "Ax", "Ay").Roller(90, 0, "L");
  for (std::size_t i = 1; i < 6; ++i) truss.Force(top[i].first, top[i].second, 0, -1);
  for (std::size_t i = 1; i < 4; ++i) truss.Force(bottom[i].first, 0, 0, -5);
  Expect(truss, {{"Ay", 12.5, 1e-9},
                 {"L", 7.5, 1e-9},
                 {"FH", 13.82, 0.0076},  // printed from a rounded angle
                 {"GH", 1.371, 0.0005},
                 {"GI", -13.13, 0.0051}});
}

TEST_F(Textbook, AGirderOfThreePanelsCutInTheMiddle) {
  Expect(TrussBuilder()
             .Member(0, 0, 4, 0, "AB")
             .Member(4, 0, 8, 0, "BC")
             .Member(8, 0, 12, 0, "CD")
             .Member(0, 0, 4, 3, "AG")
             .Member(4, 0, 4, 3, "BG")
             .Member(4, 3, 8, 0, "GC")
             .Member(4, 3, 8, 3, "GE")
             .Member(8, 0, 8, 3, "CE")
             .Member(8, 3, 12, 0, "DE")
             .Clamp(0, 0, "Ax", "Ay")
             .Roller(12, 0, "D")
             .Force(8, 0, 0, -1200)
             .Force(8, 3, 400, 0),
         {{"Ax", -400, 1e-9},
          {"Ay", 300, 1e-9},
          {"D", 900, 1e-9},
          {"GE", 800, 1e-9},
          {"GC", -500, 1e-9},
          {"BC", -800, 1e-9}});
}

TrussBuilder WallTruss(float fromAbove, float fromTheSide) {
  return TrussBuilder()
      .Member(0, 0, 2, 0, "DA")
      .Member(0, 1.5F, 2, 1.5F, "CB")
      .Member(2, 0, 2, 1.5F, "CD")
      .Member(2, 0, 0, 1.5F, "DB")
      .Clamp(0, 0, "Ax", "Ay")
      .Clamp(0, 1.5F, "Bx", "By")
      .Force(2, 1.5F, 0, -fromAbove)
      .Force(2, 0, -fromTheSide, 0);
}

TEST_F(Textbook, AWallTrussUnderSmallLoads) {
  Expect(WallTruss(20, 10), {{"CB", 0, 0}, {"CD", 20, 0.05}, {"DB", -33.3, 0.05}, {"DA", 36.7, 0.05}});
}

TEST_F(Textbook, AWallTrussUnderLargeLoads) {
  Expect(WallTruss(45, 30), {{"CB", 0, 0}, {"CD", 45, 0.05}, {"DB", -75, 0.05}, {"DA", 90, 0.05}});
}

TEST_F(Textbook, AGirderWithABrokenTopChord) {
  Expect(TrussBuilder()
             .Member(0, 0, 4, 0, "AB")
             .Member(4, 0, 8, 0, "BC")
             .Member(8, 0, 12, 0, "CD")
             .Member(12, 0, 16, 0, "DE")
             .Member(0, 0, 4, 4, "AH")
             .Member(4, 4, 8, 6, "HG")
             .Member(8, 6, 12, 4, "GF")
             .Member(12, 4, 16, 0, "FE")
             .Member(4, 0, 4, 4, "BH")
             .Member(8, 0, 8, 6, "CG")
             .Member(12, 0, 12, 4, "DF")
             .Member(4, 4, 8, 0, "CH")
             .Member(8, 0, 12, 4, "CF")
             .Clamp(0, 0, "Ax", "Ay")
             .Roller(16, 0, "Ey")
             .Force(8, 0, 0, -5)
             .Force(12, 0, 0, -3),
         {{"Ey", 4.75, 0.005}, {"CF", 0.589, 0.0005}});
}

TEST_F(Textbook, AHouseRoofWithAPostUnderItsRidge) {
  constexpr float low = 1.1547005F, ridge = 2.309401F;
  Expect(TrussBuilder()
             .Member(0, 0, 2, low, "AF")
             .Member(2, low, 4, ridge, "EF")
             .Member(4, ridge, 6, low, "ED")
             .Member(6, low, 8, 0, "DC")
             .Member(0, 0, 4, 0, "AB")
             .Member(4, 0, 8, 0, "BC")
             .Member(2, low, 4, 0, "FB")
             .Member(6, low, 4, 0, "DB")
             .Member(4, ridge, 4, 0, "EB")
             .Clamp(0, 0, "Ax", "Ay")
             .Roller(8, 0, "C")
             .Force(0, 0, 0, -1000)
             .Force(2, low, 0, -3000)
             .Force(4, ridge, 0, -1000)
             .Force(6, low, 0, -1000),
         {{"Ay", 4000, 1e-6}, {"C", 2000, 1e-6}, {"ED", 3000, 0.5}, {"EB", -2000, 0.5}});
}

}  // namespace
