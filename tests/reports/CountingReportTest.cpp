// The Counting report, word for word.
#include "reports/CountingReport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "document/JointList.h"
#include "support/TrussBuilder.h"

using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

namespace {

CountingReport ReportOn(Truss truss) {
  SortJoints(truss);
  return ReportCounting(CountTruss(truss));
}

TrussBuilder CountedTriangle() {
  return TrussBuilder()
      .Member(8, 0, 4, 3, "BC")
      .Member(0, 0, 8, 0, "AB")
      .Member(0, 0, 4, 3, "AC")
      .Roller(8, 0, "B")
      .Clamp(0, 0, "Ax", "Ay")
      .Joint(8, 0, "B")
      .Joint(0, 0, "A")
      .Joint(4, 3, "C");
}

constexpr const char* EqualCount =
    "There are the same number of equations as unknowns.\r\n\r\nThis means that there is a unique solution "
    "(implying a stable truss) as long as the equations are neither redundant nor inconsistent.  If the "
    "truss "
    "consists only of triangles then this is guaranteed but in all other cases it must be checked.  This can "
    "be "
    "done by using Gaussian elimination to put the system of equations into RREF form.";

constexpr const char* MoreEquationsCount =
    "There are more equations than unknowns so the system is overdetermined.  Some applied forces will cause "
    "the system to be redundant but others will cause it to be inconsistent.  Inconsistency implies that the "
    "original assumption that the forces sum to zero at each joint is incorrect and this in turn implies "
    "that "
    "the truss is unstable.";

constexpr const char* FewerEquationsCount =
    "There are less equations than unknowns so the system is undetermined and a unique solution cannot be "
    "found.  We need more equations (for example equations describing how the members behave under stress).";

}  // namespace

TEST(CountingReport, OfATriangle) {
  // Members and reactions are listed as they were drawn, joints by name.
  EXPECT_EQ(
      ReportOn(CountedTriangle()).Text(),
      std::string("The forces:  This truss contains 6 unknown forces:\r\n"
                  "\r\n"
                  "- the 3 member force(s), labelled BC, AB, AC, \r\n"
                  "(A positive value for a member force means that the member is under compression so the "
                  "member force is directed INTO the pins at its ends.)\r\n"
                  "\r\n"
                  "- the 3 reaction force(s), labelled B, Ax, Ay, \r\n"
                  "(Reaction forces are due to clamp or roller supports.  Positive values mean that they "
                  "act into a pin in the direction shown.)\r\n"
                  "\r\n"
                  "The equations:  The values of these unknown forces can be found by solving a system of "
                  "equations.\r\n"
                  "Assuming the truss is in equilibrium, each joint of the truss contributes 2 equations "
                  "to the system.\r\n"
                  "One equation expresses the fact that the x components of the forces on that joint "
                  "cancel.\r\n"
                  "The other equation expresses the fact that the y components cancel.\r\n"
                  "\r\n"
                  "This truss contains 3 joints, labelled A, B, C.  Thus there are 6 equations.\r\n"
                  "\r\n"
                  "The count:  ") +
          EqualCount);
}

TEST(CountingReport, KeepsItsThreeParagraphs) {
  const CountingReport report = ReportOn(CountedTriangle());
  EXPECT_EQ(report.Text(), "The forces:  " + report.Forces + "The equations:  " + report.Equations +
                               "The count:  " + report.Count);
  EXPECT_THAT(report.Forces, StartsWith("This truss contains 6 unknown forces:"));
  EXPECT_THAT(report.Equations, StartsWith("The values of these unknown forces"));
}

TEST(CountingReport, IsEmptyWithoutUnknowns) {
  const CountingReport report = ReportOn(TrussBuilder().Force(0, 0, 1, 1));
  EXPECT_EQ(report.Text(), "");
  EXPECT_EQ(report.Forces, "");
  EXPECT_EQ(report.Equations, "");
  EXPECT_EQ(report.Count, "");
}

TEST(CountingReport, OneUnknownIsAForceAndTwoAreForces) {
  EXPECT_THAT(ReportOn(TrussBuilder().Roller(0, 0, "r")).Forces,
              StartsWith("This truss contains 1 unknown force:\r\n\r\n"));
  EXPECT_THAT(ReportOn(TrussBuilder().Clamp(0, 0, "x", "y")).Forces,
              StartsWith("This truss contains 2 unknown forces:\r\n\r\n"));
}

TEST(CountingReport, WithoutMembersSpeaksOfReactionsOnly) {
  EXPECT_EQ(
      ReportOn(TrussBuilder().Roller(0, 0, "r")).Forces,
      "This truss contains 1 unknown force:\r\n\r\n"
      "- the 1 reaction force(s), labelled r, \r\n"
      "(Reaction forces are due to clamp or roller supports.  Positive values mean that they act into a "
      "pin in the direction shown.)\r\n\r\n");
}

TEST(CountingReport, WithoutSupportsSpeaksOfMembersOnly) {
  EXPECT_EQ(ReportOn(TrussBuilder().Member(0, 0, 1, 0, "m")).Forces,
            "This truss contains 1 unknown force:\r\n\r\n"
            "- the 1 member force(s), labelled m, \r\n"
            "(A positive value for a member force means that the member is under compression so the member "
            "force is directed INTO the pins at its ends.)\r\n\r\n");
}

TEST(CountingReport, AClampGivesTwoNamesAndARollerOne) {
  for (std::int16_t type = 1; type <= 8; ++type) {
    const std::string forces = ReportOn(TrussBuilder().Clamp(0, 0, "p", "q", type)).Forces;
    EXPECT_THAT(forces, HasSubstr(type <= 4 ? "- the 2 reaction force(s), labelled p, q, \r\n"
                                            : "- the 1 reaction force(s), labelled p, \r\n"))
        << "type " << type;
  }
}

TEST(CountingReport, ListsAreInTheOrderOfDrawingWithoutTheErased) {
  const CountingReport report = ReportOn(TrussBuilder()
                                             .Member(0, 0, 1, 0, "z")
                                             .Member(0, 0, 2, 0, "gone")
                                             .ThenErased()
                                             .Member(0, 0, 3, 0, "a")
                                             .Roller(0, 0, "y")
                                             .Clamp(1, 0, "gx", "gy")
                                             .ThenErased()
                                             .Roller(3, 0, "b"));
  EXPECT_THAT(report.Forces, HasSubstr("- the 2 member force(s), labelled z, a, \r\n"));
  EXPECT_THAT(report.Forces, HasSubstr("- the 2 reaction force(s), labelled y, b, \r\n"));
}

TEST(CountingReport, OneJointHasASentenceOfItsOwn) {
  EXPECT_THAT(ReportOn(TrussBuilder().Clamp(0, 0).Joint(0, 0, "P")).Equations,
              HasSubstr("cancel.\r\n\r\nThis truss contains 1 joint, labelled P.  Thus there are 2 "
                        "equations.\r\n\r\n"));
}

TEST(CountingReport, TwoJointsAreListed) {
  EXPECT_THAT(ReportOn(TrussBuilder().Member(0, 0, 1, 0).Joint(0, 0, "b").Joint(1, 0, "a")).Equations,
              HasSubstr("This truss contains 2 joints, labelled a, b.  Thus there are 4 equations.\r\n\r\n"));
}

TEST(CountingReport, TheCountComparesEquationsWithUnknowns) {
  EXPECT_EQ(ReportOn(TrussBuilder().Clamp(0, 0)).Count, EqualCount);
  EXPECT_EQ(ReportOn(TrussBuilder().Roller(0, 0)).Count, MoreEquationsCount);
  EXPECT_EQ(ReportOn(TrussBuilder().Clamp(0, 0).Roller(0, 0)).Count, FewerEquationsCount);
}

TEST(CountingReport, AMinusInANameStaysAMinus) {
  const std::string text = ReportOn(TrussBuilder().Roller(0, 0, "-r").Joint(0, 0, "-j")).Text();
  EXPECT_THAT(text, HasSubstr("labelled -r, "));
  EXPECT_THAT(text, HasSubstr("labelled -j."));
  EXPECT_THAT(text, Not(HasSubstr("\x96")));
}

TEST(CountingReport, HasItsCaption) {
  EXPECT_STREQ(CountingCaption,
               "Report - Counting the number of unknown forces and the number of determining equations");
}
