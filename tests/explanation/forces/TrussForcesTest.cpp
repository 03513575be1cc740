// Which members push and which pull, and the texts that say so.
#include "explanation/forces/TrussForces.h"

#include <gmock/gmock.h>

#include "ForcesFixture.h"
#include "explanation/forces/ForcesText.h"
#include "support/HandTrusses.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(TrussForces, AMemberInCompressionPushesAndOneInTensionPulls) {
  const SolvedForces truss = LoadedTriangleForces();
  EXPECT_EQ(truss.Force("AC").Sense, ForceSense::Pushing);
  EXPECT_EQ(truss.Force("BC").Sense, ForceSense::Pushing);
  EXPECT_EQ(truss.Force("AB").Sense, ForceSense::Pulling);
  EXPECT_NEAR(truss.Force("AB").Value, -500, 1e-3);
  EXPECT_NEAR(truss.Forces.Largest, 1000 / std::sqrt(2.0), 1e-3);
}

TEST(TrussForces, ANameThatReadsLikeMoreStandsInBracketsBesideItsValue) {
  const SolvedForces truss(
      TrussBuilder().Member(0, 0, 0, 4, "So x = 5").Clamp(0, 0, "x", "12").Force(0, 4, 0, -7));
  EXPECT_THAT(truss.Force("So x = 5").Lines, ElementsAre("[So x = 5] 7 C", "(7)"));
  EXPECT_THAT(truss.Force("12").Lines, ElementsAre("[12] 7"));
  EXPECT_THAT(truss.Force("x").Lines, ElementsAre("x 0"));
}

TEST(TrussForces, TheMagnitudeWithItsLetterComesFirstAndTheProgramsNumberSecond) {
  const SolvedForces truss = LoadedTriangleForces();
  EXPECT_THAT(truss.Force("AC").Lines, ElementsAre("AC 707.1 C", "(707.1)"));
  EXPECT_THAT(truss.Force("AB").Lines, ElementsAre("AB 500 T",
                                                   "(\x96"
                                                   "500)"));
}

TEST(TrussForces, WithoutANameThereIsTheNumberAlone) {
  const SolvedForces truss(
      TrussBuilder().Member(0, 0, 4, 0).Clamp(0, 0).Roller(4, 0, "r", 6).Force(4, 0, 8, 0));
  EXPECT_THAT(truss.Forces.Unknowns[4].Lines, ElementsAre("8 T",
                                                          "(\x96"
                                                          "8)"));
}

TEST(TrussForces, HaveTheDocumentsFiguresAndTheLocalesSeparator) {
  const SolvedForces triangle = LoadedTriangleForces();
  const SolvedForces truss(triangle.Document, {.SigFigs = 6, .Numbers = {","}});
  EXPECT_THAT(truss.Force("AC").Lines, ElementsAre("AC 707,107 C", "(707,107)"));
}

// An arrow shows which way a reaction acts; only where that is not the way its sign counts it needs a number.
TEST(TrussForces, AReactionHasItsProgramsNumberOnlyWhenItIsNegative) {
  const SolvedForces truss(TrussBuilder()
                               .Member(0, 0, 4, 0, "AB")
                               .Clamp(0, 0, "Ax", "Ay")
                               .Roller(4, 0, "By")
                               .Force(4, 0, 30, -20));
  EXPECT_THAT(truss.Force("Ax").Lines, ElementsAre("Ax 30",
                                                   "(\x96"
                                                   "30)"));
  EXPECT_THAT(truss.Force("Ay").Lines, ElementsAre("Ay 0"));
  EXPECT_THAT(truss.Force("By").Lines, ElementsAre("By 20"));
}

// Zero is what the solutions show as 0, neither more nor less.
TEST(TrussForces, WhatTheSolutionsShowAsZeroIsZero) {
  const auto hung = [](float load) {
    return SolvedForces(TrussBuilder()
                            .Member(0, 0, 4, 0, "m")
                            .Clamp(0, 0, "x", "y")
                            .Roller(4, 0, "r")
                            .Force(4, 0, load, 0)
                            .Force(4, 0, 0, -1E6F));
  };
  EXPECT_EQ(hung(9E-9F).Force("m").Sense, ForceSense::Zero);
  EXPECT_EQ(hung(9E-9F).Force("m").Value, 0);
  EXPECT_THAT(hung(9E-9F).Force("m").Lines, ElementsAre("m 0"));
  EXPECT_EQ(hung(2E-8F).Force("m").Sense, ForceSense::Pulling);
  EXPECT_EQ(hung(-2E-8F).Force("m").Sense, ForceSense::Pushing);
}

TEST(TrussForces, WhatTheEquationsLeaveOpenIsUndetermined) {
  const SolvedForces truss = CrossedSquareForces();
  EXPECT_EQ(truss.Force("d1").Sense, ForceSense::Undetermined);
  EXPECT_THAT(truss.Force("d1").Lines, ElementsAre("d1 ?"));
  EXPECT_THAT(truss.Force("r").Lines, ElementsAre("r 100"));
  EXPECT_THAT(RemarksOn(truss.Forces), ElementsAre(HasSubstr("undetermined")));
}

TEST(TrussForces, WithoutASolutionNoForceIsShown) {
  const SolvedForces truss = SwayingSquareForces();
  ASSERT_FALSE(truss.Forces.HasSolution());
  for (const ForceFound& force : truss.Forces.Unknowns.First(truss.Forces.Unknowns.Size())) {
    EXPECT_EQ(force.Sense, ForceSense::Undetermined);
    EXPECT_EQ(force.Value, 0);
  }
  EXPECT_THAT(RemarksOn(truss.Forces), ElementsAre(HasSubstr("no solution")));
}

TEST(TrussForces, SayWhenExactlyThereIsASolutionOrNone) {
  // A rope along its load, whose reduced matrix ends with a remnant of rounding.
  const SolvedForces rope(TrussBuilder().Member(0, 0, 1, 3, "m").Clamp(0, 0, "x", "y").Force(1, 3, 100, 300));
  ASSERT_FALSE(rope.Forces.HasSolution());
  EXPECT_THAT(RemarksOn(rope.Forces), ElementsAre(HasSubstr("exactly, these loads are in balance")));
  // A joint on the line of its clamps, which rounding puts beside it.
  const SolvedForces line(
      TrussBuilder().Member(0, 0, 1, 3).Member(1, 3, 4, 12).Clamp(0, 0).Clamp(4, 12).Force(1, 3, 0, -1000));
  ASSERT_TRUE(line.Forces.HasSolution());
  EXPECT_THAT(RemarksOn(line.Forces), Contains(HasSubstr("Exactly, there is no solution")));
}

// On a circle exactly: a mechanism, and not only nearly one.
TEST(TrussForces, OfAMechanismItIsNotSaidThatItIsNearlyOne) {
  const std::vector<std::string> remarks = RemarksOn(SolvedForces(HandHexagon(5)).Forces);
  EXPECT_THAT(remarks, Contains(HasSubstr("none of them holds")));
  EXPECT_THAT(remarks, Contains(HasSubstr("largest load: the truss is a mechanism, and a remnant of rounding "
                                          "was divided by.")));
  for (const std::string& remark : remarks)
    EXPECT_THAT(remark, testing::Not(HasSubstr("nearly a mechanism")));
}

TEST(TrussForces, NumbersOfABalancedArchAreNotDetermined) {
  EXPECT_THAT(
      RemarksOn(SolvedForces(SlopingArch(100, 300)).Forces),
      Contains(HasSubstr("leave some of these forces open: their numbers come from a remnant of rounding "
                         "and are not determined.")));
  for (const std::string& remark : RemarksOn(SolvedForces(SlopingArch(300, -100)).Forces))
    EXPECT_THAT(remark, testing::Not(HasSubstr("not determined")));
}

// As of coordinates and loads that were rounded to seven figures.
TEST(TrussForces, WhatBalancesWithinTheFiguresIsNotCalledARemnant) {
  TrussForces forces = LoadedTriangleForces().Forces;
  forces.Exact = Outcome::Inconsistent;
  EXPECT_THAT(RemarksOn(forces),
              ElementsAre(HasSubstr("within the figures of the drawing these forces balance the loads")));
  forces.HoldsNoNumber = true;
  EXPECT_THAT(RemarksOn(forces), ElementsAre(HasSubstr("none of them holds")));
}

TEST(TrussForces, OfARedundantSystemHoldForTheseLoadsOnly) {
  const SolvedForces truss(TrussBuilder().Member(0, 0, 0, 4, "m").Clamp(0, 0, "x", "y").Force(0, 4, 0, -5));
  EXPECT_THAT(truss.Force("m").Lines, ElementsAre("m 5 C", "(5)"));
  EXPECT_THAT(RemarksOn(truss.Forces), ElementsAre(HasSubstr("these loads only")));
  EXPECT_THAT(RemarksOn(LoadedTriangleForces().Forces), IsEmpty());
}

TEST(TrussForces, ATinyForceBesideALargeOneIsSaidToBeUnsure) {
  const auto remarks = [](float load) {
    return RemarksOn(SolvedForces(TrussBuilder()
                                      .Member(0, 0, 4, 0, "m")
                                      .Clamp(0, 0, "x", "y")
                                      .Roller(4, 0, "r")
                                      .Force(4, 0, load, 0)
                                      .Force(4, 0, 0, -1000))
                         .Forces);
  };
  EXPECT_THAT(remarks(0.0009F), ElementsAre(HasSubstr("remnants of rounding")));
  EXPECT_THAT(remarks(0.0011F), IsEmpty());
}

TEST(TrussForces, ForcesFarLargerThanTheLoadsAreSaidToBeOdd) {
  const auto remarks = [](float height) {
    return RemarksOn(SolvedForces(TrussBuilder()
                                      .Member(0, 0, 4, height, "a")
                                      .Member(8, 0, 4, height, "b")
                                      .Clamp(0, 0, "x", "y")
                                      .Clamp(8, 0, "u", "v")
                                      .Force(4, height, 0, -10))
                         .Forces);
  };
  EXPECT_THAT(remarks(0.001F), ElementsAre(HasSubstr("the truss is nearly a mechanism.")));
  EXPECT_THAT(remarks(0.01F), IsEmpty());
}

TEST(ForceRows, SayWhereAForceActsAndWhichWay) {
  const SolvedForces truss = LoadedTriangleForces();
  const std::vector<ForceRow> rows = ForceRows(truss.Forces, {});
  ASSERT_EQ(rows.size(), 6U);
  EXPECT_EQ(rows[0].Where, "reaction at A, positive to the right");
  EXPECT_EQ(rows[0].Force, "0");
  EXPECT_EQ(rows[1].Force, "500 up");
  EXPECT_EQ(rows[1].Number, "500");
  EXPECT_EQ(rows[3].Name, "AB");
  EXPECT_EQ(rows[3].Where, "member from A to B");
  EXPECT_EQ(rows[3].Force, "500 T");
  EXPECT_EQ(rows[3].Number,
            "\x96"
            "500");
}

TEST(ForceRows, AReactionThatIsNegativeActsTheOtherWay) {
  const SolvedForces truss(
      TrussBuilder().Member(0, 0, 4, 0, "m").Clamp(0, 0, "x", "y").Roller(4, 0, "r", 6).Force(4, 0, 0, -7));
  const std::vector<ForceRow> rows = ForceRows(truss.Forces, {});
  EXPECT_EQ(rows[0].Name, "r");
  EXPECT_EQ(rows[0].Where, "reaction at (4, 0), positive down");
  EXPECT_EQ(rows[0].Force, "7 up");
  EXPECT_EQ(rows[0].Number,
            "\x96"
            "7");
}

TEST(DescribeForces, CountsTheMembersAndTellsTheirForces) {
  EXPECT_EQ(
      DescribeForces(LoadedTriangleForces().Forces, {}),
      "Drawing of the truss with its forces: 2 members in compression and 1 member in tension. AB 500 T, AC "
      "707.1 C and BC 707.1 C.");
  EXPECT_THAT(
      DescribeForces(SwayingSquareForces().Forces, {}),
      testing::AllOf(testing::StartsWith("Drawing of the truss, without forces. There is no solution: "),
                     testing::Not(HasSubstr("undetermined")), testing::Not(HasSubstr("s1"))));
}

TEST(RemarksOn, DoNotSayThatTheEquationsLeaveOpenWhatOnlyRoundingHides) {
  const auto panel = [](float left, float right, float height) {
    return RemarksOn(SolvedForces(TrussBuilder()
                                      .Member(0, 0, 8, 0)
                                      .Member(8, 0, right, height)
                                      .Member(right, height, left, height)
                                      .Member(0, 0, left, height)
                                      .Member(0, 0, right, height)
                                      .Member(8, 0, left, height)
                                      .Clamp(0, 0, "Ax", "Ay")
                                      .Clamp(8, 0, "Bx", "By")
                                      .Force(right, height, 0, -1000))
                         .Forces);
  };
  EXPECT_THAT(panel(0, 8, 8),
              ElementsAre("Forces with \"?\" are undetermined: the equations leave them open."));
  EXPECT_THAT(panel(1, 6, 3),
              ElementsAre("Forces with \"?\" are undetermined by the reduced matrix; exactly, "
                          "the equations leave not all of them open.  See \"Why this "
                          "conclusion\"."));
}

TEST(RoomText, SaysHowManyNumbersHaveNoRoom) {
  EXPECT_EQ(RoomText(0, 19), "Every number has its place. Drag to move, click a force to find it.");
  EXPECT_EQ(RoomText(1, 19), "1 of 19 numbers has no room at this size: zoom in to see it.");
  EXPECT_EQ(RoomText(2, 19), "2 of 19 numbers have no room at this size: zoom in to see them.");
  EXPECT_EQ(RoomText(1, 1), "1 of 1 number has no room at this size: zoom in to see it.");
}

// What is undetermined has values without end; without a solution there is none.
TEST(WordForUnknown, IsAnotherWhereThereIsNoSolution) {
  const SolvedForces open = CrossedSquareForces();
  EXPECT_STREQ(WordForUnknown(open.Forces), "undetermined");
  EXPECT_EQ(ForceRows(open.Forces, {})[static_cast<std::size_t>(open.Unknown("d1") - 1)].Number,
            "undetermined");
  const SolvedForces none = SwayingSquareForces();
  EXPECT_STREQ(WordForUnknown(none.Forces), "no solution");
  for (const ForceRow& row : ForceRows(none.Forces, {})) EXPECT_EQ(row.Number, "no solution");
  // A rope that hangs straight: only by a remnant of rounding has the reduced matrix no solution.
  const SolvedForces rope(
      TrussBuilder().Member(0, 0, 1, 3, "AB").Clamp(0, 0, "Ax", "Ay").Force(1, 3, 100, 300));
  EXPECT_STREQ(WordForUnknown(rope.Forces), "not found");
}

// Six joints on a circle but for the first, which stands a little off it: nearly a mechanism.
TrussBuilder NearlyCriticalHexagon(float x) {
  return TrussBuilder()
      .Member(x, 0, 3, 4)
      .Member(x, 0, -5, 0)
      .Member(x, 0, 0, -5)
      .Member(-3, 4, 3, 4)
      .Member(-3, 4, -5, 0)
      .Member(-3, 4, 0, -5)
      .Member(-4, -3, 3, 4)
      .Member(-4, -3, -5, 0)
      .Member(-4, -3, 0, -5)
      .Clamp(-4, -3)
      .Roller(0, -5)
      .Force(-3, 4, 0, -1000);
}

TEST(RemarksOnForces, SayHowFewFiguresAreSureWhereNotAllThatAreShownAre) {
  const auto remarks = [](float x, int figures) {
    std::string text;
    for (const std::string& remark :
         RemarksOn(SolvedForces(NearlyCriticalHexagon(x), {.SigFigs = figures, .Numbers = {}}).Forces))
      text += remark + '\n';
    return text;
  };
  EXPECT_THAT(remarks(5.005F, 6),
              HasSubstr("figures of these forces are sure, because directions are rounded.  See \"Why this"));
  EXPECT_THAT(remarks(5.00001F, 4), HasSubstr("Only the first "));
  EXPECT_EQ(remarks(5.5F, 4).find("sure"), std::string::npos) << "all that are shown are";
  EXPECT_EQ(remarks(5.5F, 2).find("sure"), std::string::npos);
}

}  // namespace
