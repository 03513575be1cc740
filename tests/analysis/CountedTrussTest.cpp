// What is counted, in which order, and that it stays as it was counted.
#include "analysis/CountedTruss.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "analysis/Analysis.h"
#include "document/JointList.h"
#include "support/TrussBuilder.h"

using ::testing::ElementsAre;

namespace {

std::vector<std::string> Texts(const Table<SharedText>& names) {
  const auto all = names.First(names.Size());
  return {all.begin(), all.end()};
}

std::vector<std::string> JointNames(const CountedTruss& counted) {
  std::vector<std::string> names;
  for (const CountedJoint& joint : counted.Joints.First(counted.Joints.Size())) names.push_back(joint.Name);
  return names;
}

TrussBuilder Bracket() {
  return TrussBuilder()
      .Member(0, 0, 8, 0, "z")
      .Member(0, 0, 4, 3, "gone")
      .ThenErased()
      .Member(8, 0, 4, 3, "a")
      .Roller(8, 0, "r")
      .Clamp(0, 0, "y", "x")
      .Roller(4, 3, "gone too")
      .ThenErased()
      .Force(4, 3, 0, -600)
      .Joint(0, 0, "C")
      .Joint(8, 0, "B")
      .Joint(4, 3, "A");
}

}  // namespace

TEST(CountTruss, ForcesComeAsTheyWereDrawnWithoutWhatIsErased) {
  const CountedTruss counted = CountTruss(Bracket());
  EXPECT_THAT(Texts(counted.MemberForces), ElementsAre("z", "a"));
  EXPECT_THAT(Texts(counted.ReactionForces), ElementsAre("r", "y", "x"));
  EXPECT_EQ(counted.NumUnknowns(), 5);
  EXPECT_EQ(counted.NumEquations(), 6);
}

TEST(CountTruss, JointsComeInTheOrderOfTheirList) {
  Truss truss = Bracket();
  EXPECT_THAT(JointNames(CountTruss(truss)), ElementsAre("C", "B", "A"));
  SortJoints(truss);
  const CountedTruss counted = CountTruss(truss);
  EXPECT_THAT(JointNames(counted), ElementsAre("A", "B", "C"));
  EXPECT_EQ(counted.Joints[1].X, 4);
  EXPECT_EQ(counted.Joints[1].Y, 3);
  EXPECT_EQ(counted.Joints[1].Label, truss.Joints[1].NameLabel);
}

TEST(CountTruss, AForceAloneIsAJointAndNoUnknown) {
  const CountedTruss counted = CountTruss(TrussBuilder().Force(1, 2, 3, 4).Joint(1, 2, "J"));
  EXPECT_THAT(JointNames(counted), ElementsAre("J"));
  EXPECT_EQ(counted.NumUnknowns(), 0);
}

TEST(JointWithLabel, IsFoundAmongJointsOnly) {
  const Truss truss = Bracket();
  const CountedTruss counted = CountTruss(truss);
  EXPECT_EQ(JointWithLabel(counted, truss.Joints[2].NameLabel), &counted.Joints[2]);
  EXPECT_EQ(JointWithLabel(counted, truss.Members[1].NameLabel1), nullptr);
  EXPECT_EQ(JointWithLabel(CountedTruss{}, 0), nullptr);
}

TEST(SolveTruss, CountsTheJointsInTheOrderOfTheRowsForGood) {
  Truss truss = Bracket();
  const TrussAnalysis analysis = SolveTruss(truss);
  // As a redraw does it: the joint list is collected anew.
  ASSERT_TRUE(CheckJoints(truss));
  ASSERT_EQ(truss.Name(truss.Joints[1].NameLabel), "C");
  EXPECT_THAT(JointNames(analysis.Counted), ElementsAre("A", "B", "C"));
  // The load stands in the rows of A.
  const SparseMatrix<float>& equations = analysis.System.DisplayEquations;
  EXPECT_EQ(equations(2, equations.NumColumns()), 600);
  EXPECT_EQ(equations.NumRows(), analysis.Counted.NumEquations());
  EXPECT_EQ(analysis.System.NumUnknowns(), analysis.Counted.NumUnknowns());
}

TEST(SolveTruss, CountsTheSameAgain) {
  Truss truss = Bracket();
  const CountedTruss counted = SolveTruss(truss).Counted;
  ASSERT_TRUE(CheckJoints(truss));
  EXPECT_EQ(SolveTruss(truss).Counted, counted);
}
