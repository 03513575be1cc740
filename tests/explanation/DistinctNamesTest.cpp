// What joints, members and reactions are called where names are missing or the same.
#include "explanation/DistinctNames.h"

#include <gmock/gmock.h>

#include <set>

#include "ExplanationFixture.h"
#include "analysis/Analysis.h"
#include "explanation/Explanation.h"
#include "explanation/ExplanationText.h"
#include "explanation/MotionChoices.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

int UnknownNamed(const TrussGraph& graph, const std::string& name) {
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    if (graph.Unknowns[k].Name == name) return k;
  }
  return 0;
}

int JointAt(const TrussGraph& graph, float x, float y) {
  for (int j = 1; j <= graph.NumJoints(); ++j) {
    if (graph.Joints[j].X == x && graph.Joints[j].Y == y) return j;
  }
  return 0;
}

std::string MemberBetween(const TrussGraph& graph, const DistinctNames& names, int a, int b) {
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = graph.Unknowns[k];
    if (unknown.IsMember() && std::minmax(unknown.JointA, unknown.JointB) == std::minmax(a, b))
      return names.Force(k);
  }
  return "";
}

// One joint named A, two named B, and one without a name.
TrussGraph PartlyNamed() {
  return GraphOf(TrussBuilder()
                     .Member(0, 0, 4, 0, "own")
                     .Member(4, 0, 8, 1, "twin")
                     .Member(0, 0, 8, 1, "twin")
                     .Member(8, 1, 4.5F, 3)
                     .Clamp(0, 0, "R", "R")
                     .Roller(4.5F, 3)
                     .Joint(0, 0, "A")
                     .Joint(4, 0, "B")
                     .Joint(8, 1, "B"));
}

TEST(DistinctNames, AJointWithoutANameOfItsOwnIsToldByItsPlace) {
  const TrussGraph graph = PartlyNamed();
  const DistinctNames names(graph, {});
  const int named = JointAt(graph, 0, 0);
  const int shared = JointAt(graph, 8, 1);
  const int nameless = JointAt(graph, 4.5F, 3);
  EXPECT_EQ(names.Joint(named), "A");
  EXPECT_EQ(names.Joint(shared), "B at (8, 1)");
  EXPECT_EQ(names.Joint(nameless), "(4.5, 3)");
  EXPECT_EQ(names.JointInWords(named), "joint A");
  EXPECT_EQ(names.JointInWords(shared), "joint B at (8, 1)");
  EXPECT_EQ(names.JointInWords(nameless), "the joint at (4.5, 3)");
  EXPECT_EQ(names.JointWithPlace(named), "joint A at (0, 0)");
  EXPECT_EQ(names.JointWithPlace(shared), "joint B at (8, 1)");
  EXPECT_EQ(names.JointWithPlace(nameless), "the joint at (4.5, 3)");
  EXPECT_EQ(names.Equation(named, Axis::X), "A - x");
  EXPECT_EQ(names.Equation(shared, Axis::Y), "B - y at (8, 1)");
  EXPECT_EQ(names.Equation(nameless, Axis::Y), "y at (4.5, 3)");
  EXPECT_EQ(names.Joints({named, nameless}), "joints A and (4.5, 3)");
  EXPECT_EQ(names.Joints({nameless}), "the joint at (4.5, 3)");
}

TEST(DistinctNames, AMemberWithoutANameOfItsOwnIsToldByItsEndsAndAReactionByItsJoint) {
  const TrussGraph graph = PartlyNamed();
  const DistinctNames names(graph, {});
  const int a = JointAt(graph, 0, 0);
  const int b = JointAt(graph, 8, 1);
  EXPECT_EQ(names.Force(UnknownNamed(graph, "own")), "own");
  EXPECT_EQ(MemberBetween(graph, names, a, b), "twin (A to B at (8, 1))");
  EXPECT_EQ(MemberBetween(graph, names, b, JointAt(graph, 4.5F, 3)), "member B at (8, 1) to (4.5, 3)");
  std::set<std::string> reactions;
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    if (!graph.Unknowns[k].IsMember()) reactions.insert(names.Force(k));
  }
  EXPECT_EQ(reactions,
            (std::set<std::string>{"R (along x at A)", "R (along y at A)", "y-reaction at (4.5, 3)"}));
}

TEST(DistinctNames, SentencesSayMemberOnlyOnce) {
  const TrussGraph graph = GraphOf(TrussBuilder().Member(0, 0, 4, 0).Member(4, 0, 8, 1, "m"));
  const DistinctNames names(graph, {});
  std::vector<int> both = {UnknownNamed(graph, "[ ]"), UnknownNamed(graph, "m")};
  EXPECT_EQ(names.Members(both), "Members (0, 0) to (4, 0) and m");
  EXPECT_EQ(names.Members({both[0]}), "Member (0, 0) to (4, 0)");
  EXPECT_EQ(names.ForcesAtStart(both), "Member (0, 0) to (4, 0) and m");
  EXPECT_EQ(names.ForcesAtStart({both[1]}), "m");
}

TEST(DistinctNames, MembersBetweenTheSameJointsAreNumbered) {
  const TrussGraph graph = GraphOf(TrussBuilder().Member(0, 0, 4, 0).Member(4, 0, 0, 0).Member(0, 0, 4, 0));
  const DistinctNames names(graph, {});
  EXPECT_EQ(std::set<std::string>({names.Force(1), names.Force(2), names.Force(3)}),
            (std::set<std::string>{"member (0, 0) to (4, 0) #1", "member (0, 0) to (4, 0) #2",
                                   "member (4, 0) to (0, 0)"}));
}

// However few figures the reports show.
TEST(DistinctNames, PlacesOfDifferentJointsAreWrittenDifferently) {
  const TrussGraph graph =
      GraphOf(TrussBuilder().Member(12.3456F, 0, 12.3457F, 0).Member(12.3457F, 0, 17.123456F, 0));
  for (const int figures : {1, 4, 6}) {
    const DistinctNames names(graph, {.SigFigs = figures, .Numbers = {","}});
    EXPECT_EQ(names.Joint(JointAt(graph, 12.3456F, 0)), "(12,3456; 0)");
    EXPECT_EQ(names.Joint(JointAt(graph, 12.3457F, 0)), "(12,3457; 0)");
    EXPECT_EQ(names.Joint(JointAt(graph, 17.123456F, 0)), figures == 6 ? "(17,1235; 0)" : "(17,12; 0)");
  }
}

TEST(DistinctNames, APointIsTheJointThatStandsThereWhateverTheSizeOfTheDrawing) {
  for (const float size : {1e-30F, 0.001F, 1.0F, 1e7F, 3e38F}) {
    const TrussGraph graph = GraphOf(TrussBuilder()
                                         .Member(size, 0, 0, size)
                                         .Member(0, size, -size, -size)
                                         .Joint(size, 0, "E")
                                         .Joint(0, size, "N")
                                         .Joint(-size, -size, "SW"));
    const DistinctNames names(graph, {});
    const double at = size;
    EXPECT_EQ(names.Point(at, 0), "joint E");
    EXPECT_EQ(names.Point(at * 1e-8, at * (1 - 1e-8)), "joint N");
    EXPECT_EQ(names.Point(-at * (1 + 1e-8), -at), "joint SW");
    EXPECT_THAT(names.Point(at * (1 + 1e-6), 0), HasSubstr("the point"));
    EXPECT_THAT(names.Point(at * (1 + 1.2e-7), 0), HasSubstr("the point")) << "beside E";
    EXPECT_THAT(names.Point(at, at * 1.2e-7), HasSubstr("the point")) << "above E";
    EXPECT_THAT(names.Point(at * 1e9, at), HasSubstr("the point"));
  }
}

// Every joint, member and support without a name: a parallelogram with one member twice, under a load.
Truss NamelessParallelogram(bool isLoaded) {
  TrussBuilder builder;
  builder.Member(0, 0, 1, 2).Member(4, 0, 5, 2).Member(1, 2, 5, 2).Member(1, 2, 5, 2).Clamp(0, 0).Clamp(4, 0);
  if (isLoaded) builder.Force(1, 2, 1000, 0);
  return builder;
}

TEST(DistinctNames, TheWholeExplanationTellsNamelessPartsApart) {
  for (const bool isLoaded : {true, false}) {
    Truss truss = NamelessParallelogram(isLoaded);
    const TrussAnalysis analysis = SolveTruss(truss);
    const Explanation explanation = ExplainTruss(truss, analysis);
    std::string text;
    for (const ExplanationSection& section : ExplanationText(explanation, {})) {
      for (const std::string& paragraph : section.Paragraphs) text += paragraph + '\n';
    }
    EXPECT_THAT(text, Not(HasSubstr("[ ]")));
    EXPECT_THAT(text, AllOf(HasSubstr("Joints move: (1, 2) to the right and down by"),
                            HasSubstr("Member (0, 0) to (1, 2) turns clockwise about the joint at (0, 0)."),
                            HasSubstr("a member between joints (1, 2) and (4, 0)"),
                            HasSubstr("Member (1, 2) to (5, 2) #1 and member (1, 2) to (5, 2) #2 hang")));
    EXPECT_EQ(text.find("times the equation x at (1, 2)") != std::string::npos, isLoaded);
    EXPECT_EQ(text.find("q((1, 2) to (5, 2) #1)") != std::string::npos, isLoaded);
    for (const MotionChoice& choice : MotionChoices(explanation.Graph, explanation.Exact, {})) {
      EXPECT_THAT(choice.Title, AllOf(HasSubstr("(1, 2)"), Not(HasSubstr("[ ]"))));
    }
  }
}

}  // namespace
