// What each element of the truss is called in words.
#include "document/ElementWords.h"

#include <gtest/gtest.h>

#include "document/Labels.h"
#include "support/TrussBuilder.h"

namespace {

Truss ToldTriangle() {
  return TrussBuilder()
      .Member(0, 0, 3, 0, "AB")
      .Member(3, 0, 3, 4)
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(3, 0, "B")
      .Force(3, 4, 0, -1000)
      .Joint(0, 0, "A");
}

std::string ToldOf(const Truss& truss, ElementKind kind, int index) {
  return InWords(truss, {kind, index}, ".");
}

int ToldJoint(const Truss& truss, float x, float y) {
  for (int j = 1; j <= truss.NumJoints; ++j) {
    if (truss.Joints[j].X == x && truss.Joints[j].Y == y) return j;
  }
  ADD_FAILURE() << "no joint at " << x << ", " << y;
  return 1;
}

}  // namespace

TEST(ElementWords, AMemberIsToldByItsNameAndItsEnds) {
  const Truss truss = ToldTriangle();
  EXPECT_EQ(ToldOf(truss, ElementKind::Member, 1), "member AB from (0, 0) to (3, 0)");
  EXPECT_EQ(ToldOf(truss, ElementKind::Member, 2), "member from (3, 0) to (3, 4)");
}

TEST(ElementWords, AnEmptyNameIsNone) {
  Truss truss = ToldTriangle();
  truss.Labels[truss.Members[1].NameLabel1].Caption = "";
  EXPECT_EQ(ToldOf(truss, ElementKind::Member, 1), "member from (0, 0) to (3, 0)");
}

TEST(ElementWords, AJointIsToldByItsNameAndPlace) {
  const Truss truss = ToldTriangle();
  EXPECT_EQ(ToldOf(truss, ElementKind::Joint, ToldJoint(truss, 0, 0)), "joint A at (0, 0)");
  EXPECT_EQ(ToldOf(truss, ElementKind::Joint, ToldJoint(truss, 3, 4)), "joint at (3, 4)");
}

TEST(ElementWords, AJointWithoutALabelIsToldByItsPlace) {
  Truss truss = ToldTriangle();
  truss.Joints[2].NameLabel = 0;
  const JointRec& joint = truss.Joints[2];
  EXPECT_EQ(ToldOf(truss, ElementKind::Joint, 2), "joint at " + PointInWords(joint.X, joint.Y, "."));
}

TEST(ElementWords, ASupportIsToldWithTheNamesOfItsForces) {
  const Truss truss = TrussBuilder()
                          .Clamp(0, 0, "Ax", "Ay")
                          .Clamp(1, 0, UnnamedCaption, "By")
                          .Clamp(2, 0, "Cx")
                          .Clamp(3, 0)
                          .Roller(4, 0, "D")
                          .Roller(5, 0);
  EXPECT_EQ(ToldOf(truss, ElementKind::Support, 1), "clamp at (0, 0), forces Ax and Ay");
  EXPECT_EQ(ToldOf(truss, ElementKind::Support, 2), "clamp at (1, 0), forces one without a name and By");
  EXPECT_EQ(ToldOf(truss, ElementKind::Support, 3), "clamp at (2, 0), forces Cx and one without a name");
  EXPECT_EQ(ToldOf(truss, ElementKind::Support, 4), "clamp at (3, 0), forces not named yet");
  EXPECT_EQ(ToldOf(truss, ElementKind::Support, 5), "roller at (4, 0), force D");
  EXPECT_EQ(ToldOf(truss, ElementKind::Support, 6), "roller at (5, 0), force not named yet");
}

TEST(ElementWords, TheComponentsOfAForceAreToldWithDirectionsInsteadOfSigns) {
  const Truss truss =
      TrussBuilder().Force(3, 4, 0, -1000).Force(3, 4, -2.5F, 0).Force(-1, 4, 7, 12).Force(0, 0, 1e20F, -1);
  EXPECT_EQ(ToldOf(truss, ElementKind::Force, 1), "force at (3, 4), 0 right, 1000 down");
  EXPECT_EQ(ToldOf(truss, ElementKind::Force, 2), "force at (3, 4), 2.5 left, 0 up");
  EXPECT_EQ(ToldOf(truss, ElementKind::Force, 3), "force at (-1, 4), 7 right, 12 up");
  EXPECT_EQ(ToldOf(truss, ElementKind::Force, 4), "force at (0, 0), 1E+20 right, 1 down");
}

TEST(ElementWords, ALabelTellsWhatItNames) {
  const Truss truss = ToldTriangle();
  const auto label = [&](LabelIndex index) { return ToldOf(truss, ElementKind::Label, index); };
  EXPECT_EQ(label(truss.Members[1].NameLabel1), "name AB of the member from (0, 0) to (3, 0)");
  EXPECT_EQ(label(truss.Members[1].NameLabel2), "name AB of the member from (0, 0) to (3, 0)");
  EXPECT_EQ(label(truss.Members[2].NameLabel1), "no name yet: member from (3, 0) to (3, 4)");
  EXPECT_EQ(label(truss.Supports[1].NameLabel1), "name Ax of the x-reaction of the clamp at (0, 0)");
  EXPECT_EQ(label(truss.Supports[1].NameLabel2), "name Ay of the y-reaction of the clamp at (0, 0)");
  EXPECT_EQ(label(truss.Supports[2].NameLabel1), "name B of the y-reaction of the roller at (3, 0)");
  EXPECT_EQ(label(truss.Joints[ToldJoint(truss, 0, 0)].NameLabel), "name A of the joint at (0, 0)");
}

TEST(ElementWords, ARollerThatPushesSidewaysHasAnXReaction) {
  const Truss truss = TrussBuilder().Roller(4, 0, "B", 7);
  EXPECT_EQ(ToldOf(truss, ElementKind::Label, truss.Supports[1].NameLabel1),
            "name B of the x-reaction of the roller at (4, 0)");
}

TEST(ElementWords, ALabelOfWhatWasErasedNamesNothing) {
  const Truss truss =
      TrussBuilder().Member(0, 0, 3, 0, "AB").ThenErased().Clamp(1, 1, "Ax", "Ay").ThenErased();
  EXPECT_EQ(ToldOf(truss, ElementKind::Label, truss.Members[1].NameLabel1), "");
  EXPECT_EQ(ToldOf(truss, ElementKind::Label, truss.Supports[1].NameLabel2), "");
}

TEST(ElementWords, ALabelOfEachJointTellsThatJoint) {
  const Truss truss = TrussBuilder().Member(0, 0, 3, 4).Joint(0, 0, "A").Joint(3, 4, "B");
  for (int j = 1; j <= 2; ++j) {
    EXPECT_EQ(ToldOf(truss, ElementKind::Label, truss.Joints[j].NameLabel),
              truss.Joints[j].X == 0 ? "name A of the joint at (0, 0)" : "name B of the joint at (3, 4)");
  }
}

TEST(ElementWords, NumbersAreThoseOfTheValueEditor) {
  EXPECT_EQ(PointInWords(1.0F / 3, -0.1F, "."), "(0.3333333, -0.1)");
  EXPECT_EQ(PointInWords(-0.0F, 2e9F, "."), "(0, 2E+9)");
}

TEST(ElementWords, ADecimalCommaIsToldFromTheCommaBetweenCoordinates) {
  const Truss truss = TrussBuilder().Member(0.5F, 0, 3, 0.25F, "AB").Force(0, 0, 1.5F, 0);
  EXPECT_EQ(InWords(truss, {ElementKind::Member, 1}, ","), "member AB from (0,5; 0) to (3; 0,25)");
  EXPECT_EQ(InWords(truss, {ElementKind::Force, 1}, ","), "force at (0; 0), 1,5 right, 0 up");
}

TEST(ElementWords, OfAJointItIsToldWhatMeetsThere) {
  const Truss truss = TrussBuilder()
                          .Member(0, 0, 3, 0)
                          .Member(3, 0, 3, 4)
                          .Member(3, 4, 0, 0)
                          .Member(0, 0, 5, 5)
                          .ThenErased()
                          .Clamp(0, 0)
                          .Roller(0, 0)
                          .ThenErased()
                          .Roller(3, 0)
                          .Force(3, 4, 0, -1)
                          .Force(3, 4, 1, 0)
                          .Force(3, 4, 1, 1)
                          .ThenErased()
                          .Clamp(9, 9);
  const auto around = [&](float x, float y) {
    return MoreInWords(truss, {ElementKind::Joint, ToldJoint(truss, x, y)});
  };
  EXPECT_EQ(around(0, 0), "2 members, a clamp");
  EXPECT_EQ(around(3, 0), "2 members, a roller");
  EXPECT_EQ(around(3, 4), "2 members, 2 forces");
  EXPECT_EQ(around(9, 9), "a clamp");
}

TEST(ElementWords, OfASupportItIsToldHowItHolds) {
  TrussBuilder builder;
  builder.Clamp(0, 0, "x", "y", 3);
  for (std::int16_t type = 5; type <= 8; ++type) builder.Roller(type, 0, "B", type);
  const Truss truss = builder;
  const auto holds = [&](int support) { return MoreInWords(truss, {ElementKind::Support, support}); };
  EXPECT_EQ(holds(1), "holds both ways");
  EXPECT_EQ(holds(2), "pushes up");
  EXPECT_EQ(holds(3), "pushes down");
  EXPECT_EQ(holds(4), "pushes left");
  EXPECT_EQ(holds(5), "pushes right");
  EXPECT_EQ(MoreInWords(ToldTriangle(), {ElementKind::Member, 1}), "");
}

TEST(AllInWords, CountsWhatIsThere) {
  EXPECT_EQ(AllInWords(TrussBuilder()), "nothing drawn yet");
  Truss truss = TrussBuilder()
                    .Member(0, 0, 4, 0)
                    .Member(4, 0, 4, 3)
                    .Clamp(0, 0, "Ax", "Ay")
                    .Roller(4, 0, "B")
                    .Force(4, 3, 0, -2)
                    .Force(4, 3, 1, 0);
  EXPECT_EQ(AllInWords(truss), "2 members, a clamp, a roller, 2 forces");
  truss.Members[1].Live = false;
  truss.Supports[1].Live = false;
  truss.Forces[2].Active = false;
  EXPECT_EQ(AllInWords(truss), "a member, a roller, a force");
}
