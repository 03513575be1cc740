// What the solutions say of one element.
#include "explanation/forces/ForceWords.h"

#include "ForcesFixture.h"

namespace {

std::string Said(const SolvedForces& solved, ElementKind kind, int index, const ReportFormat& format = {}) {
  return ForceWords(solved.Document, solved.Analysis, format).Of({kind, index});
}

}  // namespace

TEST(ForceWords, MembersAreInTensionOrCompression) {
  const SolvedForces solved = LoadedTriangleForces();
  EXPECT_EQ(Said(solved, ElementKind::Member, 1), "tension 500");
  EXPECT_EQ(Said(solved, ElementKind::Member, 2), "compression 707.1");
  EXPECT_EQ(Said(solved, ElementKind::Member, 2, {.SigFigs = 6, .Numbers = {","}}), "compression 707,107");
}

TEST(ForceWords, ReactionsHaveTheirDirection) {
  const SolvedForces solved = LoadedTriangleForces();
  EXPECT_EQ(Said(solved, ElementKind::Support, 1), "Ax 0, Ay 500 up");
  EXPECT_EQ(Said(solved, ElementKind::Support, 2), "By 500 up");
}

TEST(ForceWords, AReactionAgainstItsDirectionTellsWhereItActs) {
  const SolvedForces solved(TrussBuilder()
                                .Member(0, 0, 2, 2, "AC")
                                .Member(4, 0, 2, 2, "BC")
                                .Member(0, 0, 4, 0, "AB")
                                .Clamp(0, 0)
                                .Roller(4, 0, "B", 6)
                                .Force(2, 2, 300, -1000));
  EXPECT_EQ(Said(solved, ElementKind::Support, 1), "x 300 left, y 350 up");
  EXPECT_EQ(Said(solved, ElementKind::Support, 2), "B 650 up");
}

TEST(ForceWords, AMemberWithoutForceHasForceZero) {
  const SolvedForces solved(TrussBuilder()
                                .Member(0, 0, 4, 0, "AB")
                                .Member(0, 0, 2, 2, "AC")
                                .Member(4, 0, 2, 2, "BC")
                                .Clamp(0, 0, "Ax", "Ay")
                                .Roller(4, 0, "By")
                                .Force(4, 0, 0, -1000));
  EXPECT_EQ(Said(solved, ElementKind::Member, 1), "force 0");
}

TEST(ForceWords, WhatTheEquationsLeaveOpenIsUndetermined) {
  const SolvedForces solved(
      TrussBuilder().Member(0, 0, 4, 0, "AB").Clamp(0, 0, "Ax", "Ay").Clamp(4, 0, "Bx", "By"));
  EXPECT_EQ(Said(solved, ElementKind::Member, 1), "undetermined");
  EXPECT_EQ(Said(solved, ElementKind::Support, 2), "Bx undetermined, By 0");
}

TEST(ForceWords, WithoutASolutionNothingHasAValue) {
  const SolvedForces solved(
      TrussBuilder().Member(0, 0, 4, 0, "AB").Roller(0, 0, "A").Roller(4, 0, "B").Force(4, 0, 100, 0));
  EXPECT_EQ(Said(solved, ElementKind::Member, 1), "no value");
  EXPECT_EQ(Said(solved, ElementKind::Support, 1), "A no value");
}

TEST(ForceWords, ElsewhereThereIsNothingToSay) {
  const SolvedForces solved = LoadedTriangleForces();
  for (const ElementKind kind : {ElementKind::Joint, ElementKind::Force, ElementKind::Label})
    EXPECT_EQ(Said(solved, kind, 1), "");
}
