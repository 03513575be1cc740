// The way through the three steps, and what each change does to the truss.
#include "app/Steps.h"

#include "app/StepTexts.h"
#include "document/JointList.h"
#include "support/TrussBuilder.h"

namespace {

// A triangle on a clamp and a roller: 3 members, 3 reaction components, 3 joints.
Truss NumberedTriangle() {
  return TrussBuilder()
      .Member(0, 0, 4, 0, "C")
      .Member(0, 0, 2, 3, "A")
      .Member(4, 0, 2, 3, "B")
      .Clamp(0, 0, "X", "Y")
      .Roller(4, 0, "R")
      .Force(2, 3, 0, -1000)
      .Joint(0, 0, "3")
      .Joint(4, 0, "1")
      .Joint(2, 3, "2");
}

TEST(Steps, BeginsInStep1) {
  const Steps steps;
  EXPECT_EQ(steps.Current(), 1);
  EXPECT_FALSE(steps.NamesAreShown());
  EXPECT_EQ(steps.StatusText(), "");
}

TEST(Steps, TheStatusBarSaysWhatToDoInEachStep) {
  Truss truss = NumberedTriangle();
  Steps steps;
  steps.Next1(truss);
  EXPECT_EQ(steps.StatusText(),
            " Step 2: Name the member and support forces and joints by clicking on them.  Unamed ones are"
            " marked [ ] ");
  steps.Next2(truss);
  EXPECT_EQ(steps.StatusText(),
            " Step 3: View and print the reports.  Click on a joint to see the x and y equations for that"
            " joint. ");
  steps.Prev3();
  EXPECT_EQ(steps.StatusText(), Step2StatusText);
  steps.Prev2();
  EXPECT_EQ(steps.StatusText(), " Step 1: Design the truss. ");
}

TEST(Steps, Next1BringsTheJointListUpToDate) {
  Truss truss = NumberedTriangle();
  truss.Members[3].X2 = 5;  // B no longer meets A, so there is one joint more
  Steps steps;
  EXPECT_TRUE(steps.Next1(truss));
  EXPECT_EQ(steps.Current(), 2);
  EXPECT_EQ(truss.NumJoints, 4);
}

TEST(Steps, NamesAndArrowsAreOnTheDrawingFromStep2On) {
  Truss truss = NumberedTriangle();
  Steps steps;
  steps.Next1(truss);
  EXPECT_TRUE(steps.NamesAreShown());
  steps.Next2(truss);
  EXPECT_TRUE(steps.NamesAreShown());
  steps.Prev3();
  EXPECT_TRUE(steps.NamesAreShown());
  steps.Prev2();
  EXPECT_FALSE(steps.NamesAreShown());
}

TEST(Steps, Next1IsRefusedWhenTheJointsCannotBeNumbered) {
  TrussBuilder builder;
  Truss truss = builder;
  truss.NumForces = MaxJoints + 1;
  truss.Forces.GrowTo(truss.NumForces);
  for (int i = 1; i <= truss.NumForces; ++i) {
    truss.Forces[i] = ForceRec{.X = static_cast<float>(i), .Fx = 1, .Active = true};
  }
  Steps steps;
  EXPECT_FALSE(steps.Next1(truss));
  EXPECT_EQ(steps.Current(), 1);
  EXPECT_EQ(steps.StatusText(), " Step 2 is not possible: the truss has too many joints for 16-bit numbers ");
  EXPECT_EQ(truss.NumJoints, 0);
}

TEST(Steps, Next2AnalysesTheTruss) {
  Truss truss = NumberedTriangle();
  Steps steps;
  steps.Next1(truss);
  EXPECT_TRUE(steps.Next2(truss));
  EXPECT_EQ(steps.Current(), 3);
  ASSERT_TRUE(steps.Analysis());
  EXPECT_EQ(steps.Analysis()->System.NumReactionForces, 3);
  EXPECT_EQ(steps.Analysis()->System.NumMemberForces, 3);
  EXPECT_EQ(steps.Analysis()->Reading.Code, Outcome::Neither);
  EXPECT_EQ(truss.Name(truss.Joints[1].NameLabel), "1") << "joints are sorted by name";
  // The load stands midway between the supports, so the roller carries half of it; it is the first unknown.
  EXPECT_EQ(steps.Analysis()->System.UnknownList[1].Name, "R");
  EXPECT_NEAR(steps.Analysis()->Reading.Values[1].value(), 500, 1e-9);
}

TEST(Steps, Next2WithoutUnknownsBuildsNoMatrixAndGoesToStep3) {
  Truss truss;
  Steps steps;
  EXPECT_TRUE(steps.Next1(truss));
  EXPECT_TRUE(steps.Next2(truss));
  EXPECT_EQ(steps.Current(), 3);
  EXPECT_EQ(steps.Analysis()->System.NumUnknowns(), 0);
  EXPECT_EQ(steps.Analysis()->System.EquationMatrix.NumRows(), 0);
  EXPECT_EQ(steps.Analysis()->System.DisplayEquations.NumRows(), 0);
}

TEST(Steps, ForcesAloneGiveJointsButNoMatrix) {
  Truss truss = TrussBuilder().Force(1, 1, 10, 0);
  Steps steps;
  steps.Next1(truss);
  EXPECT_EQ(truss.NumJoints, 1);
  EXPECT_TRUE(steps.Next2(truss));
  EXPECT_EQ(steps.Analysis()->System.EquationMatrix.NumRows(), 0);
}

TEST(Steps, AButtonOfAnotherStepDoesNothing) {
  Truss truss = NumberedTriangle();
  Steps steps;
  EXPECT_FALSE(steps.Prev2());
  EXPECT_FALSE(steps.Next2(truss));
  EXPECT_FALSE(steps.Prev3());
  EXPECT_EQ(steps.Current(), 1);
  EXPECT_FALSE(steps.Analysis());

  steps.Next1(truss);
  EXPECT_FALSE(steps.Next1(truss));
  EXPECT_FALSE(steps.Prev3());
  EXPECT_EQ(steps.Current(), 2);

  steps.Next2(truss);
  EXPECT_FALSE(steps.Next1(truss));
  EXPECT_FALSE(steps.Next2(truss));
  EXPECT_FALSE(steps.Prev2());
  EXPECT_EQ(steps.Current(), 3);
}

TEST(Steps, GoingBackAndForthKeepsTheNamesOfTheJoints) {
  Truss truss = NumberedTriangle();
  Steps steps;
  steps.Next1(truss);
  steps.Prev2();
  steps.Next1(truss);
  EXPECT_EQ(truss.NumJoints, 3);
  EXPECT_EQ(truss.Name(truss.Joints[1].NameLabel), "3");
}

TEST(Steps, GoingForwardAgainLeavesTheNamesOfErasedElementsTaggedAsDeleted) {
  Truss truss = TrussBuilder().Member(0, 0, 4, 0, "A").Member(0, 0, 2, 3, "B").ThenErased();
  const LabelIndex erased = truss.Members[2].NameLabel1;
  Steps steps;
  steps.Next1(truss);
  steps.Prev2();
  steps.Next1(truss);
  EXPECT_EQ(truss.Labels[erased].Tag, DeletedTag);
  EXPECT_EQ(truss.Labels[truss.Members[1].NameLabel1].Tag, "");
}

TEST(Steps, RestartLeadsToStep1FromAnywhere) {
  Truss truss = NumberedTriangle();
  Steps steps;
  steps.Next1(truss);
  steps.Next2(truss);
  steps.Restart();
  EXPECT_EQ(steps.Current(), 1);
  EXPECT_EQ(steps.StatusText(), "");
  EXPECT_FALSE(steps.Analysis());
}

TEST(Steps, AReportThatIsStillOpenKeepsItsAnalysis) {
  Truss truss = NumberedTriangle();
  Steps steps;
  steps.Next1(truss);
  steps.Next2(truss);
  const auto shown = steps.Analysis();
  steps.Prev3();
  EXPECT_EQ(steps.Analysis(), shown);
  steps.Next2(truss);
  EXPECT_NE(steps.Analysis(), shown);
  EXPECT_EQ(shown->System.NumMemberForces, 3);
}

}  // namespace
