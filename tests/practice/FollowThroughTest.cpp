// A student's numbers judged by his own other numbers.
#include "practice/FollowThrough.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "PracticeFixture.h"
#include "explanation/byjoint/HandSolution.h"
#include "explanation/byjoint/HandSolutionFixture.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The triangle with a student's answers.
class Student {
 public:
  explicit Student(const std::map<std::string, double>& answers, Truss truss = RoundTriangle())
      : asked_(Asked(std::move(truss))),
        given_(ValuesOf(asked_.Graph, answers)),
        verdicts_(Judge(given_, asked_.Solutions)),
        followed_(Follow(asked_.Graph, given_, OrderByHand(asked_.Graph, SolveByHand(asked_.Graph)))) {}

  const FollowedJoint& At(const char* joint) const {
    return followed_.Joints[JointNamed(asked_.Graph, joint)];
  }
  const Followed& All() const { return followed_; }
  std::string Slip() const { return followed_.Slip == 0 ? "" : asked_.Graph.Joints[followed_.Slip].Name; }
  std::string TextOf(const char* joint) const {
    const ReportFormat format;
    return JointText(JointNamed(asked_.Graph, joint), followed_, asked_.Graph, verdicts_,
                     DistinctNames(asked_.Graph, format), format);
  }

 private:
  AskedTruss asked_;
  ForceValues given_;
  Table<Verdict> verdicts_;
  Followed followed_;
};

TEST(FollowThrough, RightAnswersBalanceEverywhere) {
  const Student student(RightAnswers());
  EXPECT_EQ(student.All().NumBalanced(), 3);
  EXPECT_EQ(student.All().NumJudged(), 3);
  EXPECT_EQ(student.Slip(), "");
  EXPECT_EQ(student.TextOf("C"), "Joint C is right.");
}

TEST(FollowThrough, OneSlipCostsOneJointWhenTheRestFollowsFromIt) {
  // At A the sine and the cosine were exchanged: AC should be 625. What follows at C and B follows rightly,
  // but for what is left at the end.
  const double ac = 500 / 0.6;
  const Student student(AnswersWith({{"AC", ac}, {"AB", -0.6 * ac}, {"BC", ac}}));
  EXPECT_EQ(student.At("A").What, JointVerdict::Slips);
  EXPECT_EQ(student.Slip(), "A");
  EXPECT_NEAR(student.At("A").OverX, 0, 1e-4);
  EXPECT_NEAR(student.At("A").OverY, 500 - 0.8 * ac, 1e-3);
  EXPECT_EQ(student.TextOf("A"), "The slip is at joint A: the vertical forces leave 166.7 downward.");
}

TEST(FollowThrough, AJointIsRightWithTheStudentsOwnValues) {
  // The reaction B is wrong; what follows from it at B is right with it.
  const Student student({{"B", 600}, {"BC", 750}, {"AB", -450}});
  EXPECT_EQ(student.At("B").What, JointVerdict::Balances);
  EXPECT_EQ(student.TextOf("B"), "Joint B is right with your B, AB and BC.");
  EXPECT_EQ(student.Slip(), "");
}

TEST(FollowThrough, AnEmptyBoxLeavesItsJointsOpen) {
  const Student student({{"AC", 625}, {"BC", 625}, {"Ax", 0}, {"Ay", 500}});
  EXPECT_EQ(student.At("C").What, JointVerdict::Balances);
  EXPECT_EQ(student.At("A").What, JointVerdict::Open);
  EXPECT_EQ(student.TextOf("A"), "Joint A cannot be judged yet: AB is missing.");
  EXPECT_EQ(student.TextOf("B"), "Joint B cannot be judged yet: B and AB are missing.");
  EXPECT_EQ(student.All().NumJudged(), 1);
  EXPECT_EQ(student.All().NumBalanced(), 1);
}

TEST(FollowThrough, BalancesWithinOnePercentOfTheLargestForceAtTheJoint) {
  // At C the load of 1000 is the largest force, and 1 % of it may be left over.
  const auto at = [](double bc) { return Student({{"AC", 625}, {"BC", bc}}).At("C").What; };
  EXPECT_EQ(at(625 + 9.99), JointVerdict::Balances);
  EXPECT_EQ(at(625 + 10.01), JointVerdict::Slips);
  EXPECT_EQ(at(625 - 10.01), JointVerdict::Slips);
}

TEST(FollowThrough, TellsBothDirectionsWhereBothAreLeft) {
  const Student student(AnswersWith({{"BC", 500}}));
  EXPECT_EQ(student.TextOf("C"),
            "Nor do the forces balance at joint C: the horizontal forces leave 75 to the right, and the "
            "vertical forces leave "
            "100 downward.");
}

TEST(FollowThrough, TheSlipIsTheFirstInTheOrderOfTheWorkingByHand) {
  const AskedTruss asked = Asked(RoundTriangle());
  const std::vector<int> order = OrderByHand(asked.Graph, SolveByHand(asked.Graph));
  EXPECT_THAT(order, testing::UnorderedElementsAre(1, 2, 3)) << "every joint once";
  // Nothing is right: the slip is at the first.
  const std::map<std::string, double> wrong{{"Ax", 9},  {"Ay", 9}, {"B", 9},
                                            {"AB", 99}, {"AC", 9}, {"BC", -9}};
  const Student student(wrong);
  EXPECT_EQ(student.All().Slip, order.front());
  EXPECT_EQ(Follow(asked.Graph, ValuesOf(asked.Graph, wrong), {3, 1, 2}).Slip, 3);
  EXPECT_THAT(student.TextOf(asked.Graph.Joints[order.back()].Name.String().c_str()),
              testing::StartsWith("Nor do the forces"));
}

TEST(FollowThrough, ReactionsPushAsTheirSupportsDo) {
  // The roller pushes to the left, against the load.
  const Truss truss = TrussBuilder()
                          .Member(0, 0, 4, 0, "AB")
                          .Clamp(0, 0, "Ax", "Ay")
                          .Roller(4, 0, "B", 7)
                          .Force(4, 0, 30, 0)
                          .Joint(0, 0, "A")
                          .Joint(4, 0, "B");
  const TrussGraph graph = Asked(truss).Graph;
  const auto at = [&](double ab, double b) {
    return Follow(graph, ValuesOf(graph, {{"AB", ab}, {"B", b}}), {1, 2}).Joints[JointNamed(graph, "B")].What;
  };
  EXPECT_EQ(at(0, 30), JointVerdict::Balances);
  EXPECT_EQ(at(-30, 0), JointVerdict::Balances) << "the member pulls";
  EXPECT_EQ(at(0, -30), JointVerdict::Slips);
}

TEST(FollowThrough, SolutionsBalanceEveryJointOfRandomTrusses) {
  std::mt19937 random(5);
  int numTried = 0;
  for (int i = 0; i < 60; ++i) {
    const AskedTruss asked = Asked(RandomSimpleTrussOn(random, 3 + i % 10));
    const bool isSolved = std::ranges::all_of(asked.Solutions.First(asked.Solutions.Size()),
                                              [](const auto& value) { return value.has_value(); });
    if (!isSolved) continue;
    ++numTried;
    const Followed followed =
        Follow(asked.Graph, asked.Solutions, OrderByHand(asked.Graph, SolveByHand(asked.Graph)));
    EXPECT_EQ(followed.NumBalanced(), asked.Graph.NumJoints()) << i;
    EXPECT_EQ(followed.Order.size(), static_cast<std::size_t>(asked.Graph.NumJoints()));
  }
  EXPECT_GT(numTried, 20);
}

}  // namespace
