// The two equations of a joint as text: every row of the sign tables, the look of numbers, and whole random
// documents against plain scans of the tables.
#include "analysis/JointEquations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "GeneratedTrusses.h"
#include "support/TrussBuilder.h"
#include "text/NumberText.h"

namespace {

// The texts of the joint at a position.
JointEquationTexts At(const Truss& truss, float x, float y, const std::string& separator = ".") {
  const Table<CountedJoint> joints = CountTruss(truss).Joints;
  for (const CountedJoint& joint : joints.First(joints.Size())) {
    if (joint.X == x && joint.Y == y) {
      return JointEquations(truss, NumberFormat{separator}).ReportOnJoint(joint);
    }
  }
  ADD_FAILURE() << "no joint at (" << x << ", " << y << ")";
  return {};
}

}  // namespace

TEST(JointEquations, AClampUnderADownwardForceOfTen) {
  const JointEquationTexts texts = At(TrussBuilder().Clamp(0, 0, "Ax", "Ay").Force(0, 0, 0, -10), 0, 0);
  EXPECT_EQ(texts.X, "Ax = 0");
  EXPECT_EQ(texts.Y, "Ay = 10.");
}

TEST(JointEquations, WhereNothingStandsNothingIsSummedUp) {
  const Truss truss = TrussBuilder().Member(0, 0, 4, 0, "m").Clamp(0, 0, "Ax", "Ay").Force(4, 0, 1, 2);
  for (const float x : {-4.0F, 0.5F, 4.5F}) {
    const JointEquationTexts texts = JointEquations(truss, NumberFormat{"."}).ReportOnJoint({x, 0, 0, "J"});
    EXPECT_EQ(texts.X, "0 = 0");
    EXPECT_EQ(texts.Y, "0 = 0");
  }
}

TEST(JointEquations, VerticalMembersAloneLeaveNothingSideways) {
  const JointEquationTexts texts =
      At(TrussBuilder().Member(0, 0, 0, 3, "up").Member(0, 0, 0, -2, "down").Force(0, 0, 0, 5), 0, 0);
  EXPECT_EQ(texts.X, "0 = 0");
  EXPECT_EQ(texts.Y, "down + 5. = up");
}

TEST(JointEquations, AMemberAtFortyFiveDegreesPushesOutwardsAtBothEnds) {
  const Truss truss = TrussBuilder().Member(1, 1, 0, 0, "m");
  EXPECT_EQ(At(truss, 1, 1).X, "m cos(45.0) = 0");
  EXPECT_EQ(At(truss, 1, 1).Y, "m sin(45.0) = 0");
  EXPECT_EQ(At(truss, 0, 0).X, "0 = m cos(45.0)");
  EXPECT_EQ(At(truss, 0, 0).Y, "0 = m sin(45.0)");
}

TEST(JointEquations, AHorizontalMemberStandsWithItsBareName) {
  const Truss truss = TrussBuilder().Member(0, 2, 5, 2, "m");
  EXPECT_EQ(At(truss, 0, 2).X, "0 = m");
  EXPECT_EQ(At(truss, 5, 2).X, "m = 0");
  EXPECT_EQ(At(truss, 0, 2).Y, "0 = 0");
  EXPECT_EQ(At(truss, 5, 2).Y, "0 = 0");
}

TEST(JointEquations, AVerticalMemberStandsWithItsBareName) {
  const Truss truss = TrussBuilder().Member(2, 0, 2, 5, "m");
  EXPECT_EQ(At(truss, 2, 0).Y, "0 = m");
  EXPECT_EQ(At(truss, 2, 5).Y, "m = 0");
  EXPECT_EQ(At(truss, 2, 0).X, "0 = 0");
}

TEST(JointEquations, TheAngleIsThatWithTheHorizontalInEveryQuadrant) {
  // 3 across and 4 high: 53.13 degrees.
  const auto texts = [](float x, float y) { return At(TrussBuilder().Member(0, 0, x, y, "m"), x, y); };
  EXPECT_EQ(texts(3, 4).X, "m cos(53.1) = 0");
  EXPECT_EQ(texts(3, 4).Y, "m sin(53.1) = 0");
  EXPECT_EQ(texts(-3, 4).X, "0 = m cos(53.1)");
  EXPECT_EQ(texts(-3, 4).Y, "m sin(53.1) = 0");
  EXPECT_EQ(texts(-3, -4).X, "0 = m cos(53.1)");
  EXPECT_EQ(texts(-3, -4).Y, "0 = m sin(53.1)");
  EXPECT_EQ(texts(3, -4).X, "m cos(53.1) = 0");
  EXPECT_EQ(texts(3, -4).Y, "0 = m sin(53.1)");
}

TEST(JointEquations, TheAngleAlwaysShowsOneDecimal) {
  EXPECT_EQ(At(TrussBuilder().Member(0, 0, 1000, 0.5F, "m"), 1000, 0.5F).X, "m cos(0.0) = 0");
  EXPECT_EQ(At(TrussBuilder().Member(0, 0, 0.5F, 1000, "m"), 0.5F, 1000).X, "m cos(90.0) = 0");
  EXPECT_EQ(At(TrussBuilder().Member(0, 0, 2, 1, "m"), 2, 1).X, "m cos(26.6) = 0");
}

TEST(JointEquations, AClampPushesRightAndUpWhateverItsOrientation) {
  for (std::int16_t type = 1; type <= 4; ++type) {
    const JointEquationTexts texts = At(TrussBuilder().Clamp(0, 0, "h", "v", type), 0, 0);
    EXPECT_EQ(texts.X, "h = 0") << "type " << type;
    EXPECT_EQ(texts.Y, "v = 0") << "type " << type;
  }
}

TEST(JointEquations, ARollerPushesUpDownLeftOrRightByItsType) {
  const auto texts = [](std::int16_t type) { return At(TrussBuilder().Roller(0, 0, "r", type), 0, 0); };
  EXPECT_EQ(texts(5).X, "0 = 0");
  EXPECT_EQ(texts(5).Y, "r = 0");
  EXPECT_EQ(texts(6).X, "0 = 0");
  EXPECT_EQ(texts(6).Y, "0 = r");
  EXPECT_EQ(texts(7).X, "0 = r");
  EXPECT_EQ(texts(7).Y, "0 = 0");
  EXPECT_EQ(texts(8).X, "r = 0");
  EXPECT_EQ(texts(8).Y, "0 = 0");
}

TEST(JointEquations, ForcesGoToTheSideTheyPointTo) {
  const JointEquationTexts texts =
      At(TrussBuilder().Force(1, 1, 3, -4).Force(1, 1, -12.5F, 0.5F).Force(1, 1, 7, 0), 1, 1);
  EXPECT_EQ(texts.X, "3. + 7. = 12.5");
  EXPECT_EQ(texts.Y, ".5 = 4.");
}

TEST(JointEquations, ForcesShowAtMostOneDecimalAndAlwaysTheirPoint) {
  const auto shown = [](float value) { return At(TrussBuilder().Force(0, 0, value, 0), 0, 0).X; };
  EXPECT_EQ(shown(12), "12. = 0");
  EXPECT_EQ(shown(0.5F), ".5 = 0");
  EXPECT_EQ(shown(0.25F), ".3 = 0");
  EXPECT_EQ(shown(-0.25F), "0 = .3");
  EXPECT_EQ(shown(99.96F), "100. = 0");
  EXPECT_EQ(shown(0.04F), ". = 0");
  EXPECT_EQ(shown(1.0E7F), "10000000. = 0");
}

TEST(JointEquations, AForceOfZeroAddsNothing) {
  const JointEquationTexts texts = At(TrussBuilder().Force(0, 0, 0, 0).Force(0, 0, -0.0F, 1), 0, 0);
  EXPECT_EQ(texts.X, "0 = 0");
  EXPECT_EQ(texts.Y, "1. = 0");
}

TEST(JointEquations, NumbersTakeTheLocalesSeparator) {
  const Truss truss = TrussBuilder().Member(1, 1, 0, 0, "m").Force(1, 1, -2, 0);
  EXPECT_EQ(At(truss, 1, 1, ",").X, "m cos(45,0) = 2,");
}

TEST(JointEquations, MembersComeFirstThenSupportsThenForcesInTheOrderOfTheirTables) {
  const Truss truss = TrussBuilder()
                          .Force(0, 0, 9, 0)
                          .Roller(0, 0, "r2", 8)
                          .Member(0, 0, -2, 0, "z")
                          .Roller(0, 0, "r1", 8)
                          .Member(-3, 0, 0, 0, "a")
                          .Force(0, 0, 8, 0);
  EXPECT_EQ(At(truss, 0, 0).X, "z + a + r2 + r1 + 9. + 8. = 0");
}

TEST(JointEquations, ErasedElementsAddNothing) {
  const Truss truss = TrussBuilder()
                          .Member(0, 0, -2, 0, "m")
                          .ThenErased()
                          .Roller(0, 0, "r", 8)
                          .ThenErased()
                          .Force(0, 0, 9, 0)
                          .ThenErased()
                          .Force(0, 0, 0, 4);
  EXPECT_EQ(At(truss, 0, 0).X, "0 = 0");
  EXPECT_EQ(At(truss, 0, 0).Y, "4. = 0");
}

TEST(JointEquations, AMemberWithoutLengthAddsNothing) {
  const JointEquationTexts texts = At(TrussBuilder().Member(1, 1, 1, 1, "dot"), 1, 1);
  EXPECT_EQ(texts.X, "0 = 0");
  EXPECT_EQ(texts.Y, "0 = 0");
}

TEST(JointEquations, OnlyExactPositionsMeet) {
  const Truss truss = TrussBuilder().Member(0, 0, 4, 0, "m").Roller(std::nextafter(4.0F, 5.0F), 0, "r");
  EXPECT_EQ(At(truss, 4, 0).X, "m = 0");
  EXPECT_EQ(At(truss, 4, 0).Y, "0 = 0");
}

TEST(JointEquations, ATermThatReadsZeroIsLeftOut) {
  // A member called "0" has no term where it would stand with its bare name.
  const Truss truss = TrussBuilder().Member(0, 0, 4, 0, "0").Member(4, 0, 5, 1, "0").Roller(4, 0, "0");
  EXPECT_EQ(At(truss, 4, 0).X, "0 = 0 cos(45.0)");
  EXPECT_EQ(At(truss, 4, 0).Y, "0 = 0 sin(45.0)");
  EXPECT_EQ(At(TrussBuilder().Member(0, 0, 4, 0, "0").Member(4, 0, 6, 0, "m"), 4, 0).X, "0 = m");
  EXPECT_EQ(At(TrussBuilder().Roller(4, 0, "0").Force(4, 0, 0, 1), 4, 0).Y, "0 + 1. = 0");
}

TEST(JointEquations, NamesAreThoseAtTheTimeOfTheReport) {
  Truss truss = TrussBuilder().Member(0, 0, 4, 0, "before");
  const CountedTruss counted = CountTruss(truss);
  const JointEquations equations(truss, NumberFormat{});
  truss.Labels[truss.Members[1].NameLabel1].Caption = "after";
  EXPECT_EQ(equations.ReportOnJoint(counted.Joints[1]).X, "0 = after");
}

namespace {

// The four sums of one joint, filled by scanning all tables.
class PlainReport {
 public:
  PlainReport(const Truss& truss, const JointRec& joint) : truss_(truss) {
    for (int i = 1; i <= truss.NumMembers; ++i) {
      const MemberRec& m = truss.Members[i];
      if (!m.Live) continue;
      if (m.X1 == joint.X && m.Y1 == joint.Y) AddEnd(m, m.X1 - m.X2, m.Y1 - m.Y2);
      if (m.X2 == joint.X && m.Y2 == joint.Y) AddEnd(m, m.X2 - m.X1, m.Y2 - m.Y1);
    }
    for (int i = 1; i <= truss.NumSupports; ++i) {
      const SupportRec& support = truss.Supports[i];
      if (!support.Live || support.X != joint.X || support.Y != joint.Y) continue;
      const std::string name = " + " + truss.Name(support.NameLabel1);
      if (support.TypeIndex <= 4 || support.TypeIndex == 8) xPositive_ += name;
      if (support.TypeIndex <= 4) yPositive_ += " + " + truss.Name(support.NameLabel2);
      if (support.TypeIndex == 5) yPositive_ += name;
      if (support.TypeIndex == 6) yNegative_ += name;
      if (support.TypeIndex == 7) xNegative_ += name;
    }
    for (int i = 1; i <= truss.NumForces; ++i) {
      const ForceRec& force = truss.Forces[i];
      if (!force.Active || force.X != joint.X || force.Y != joint.Y) continue;
      if (force.Fx > 0) xPositive_ += " + " + Tenths(force.Fx);
      if (force.Fx < 0) xNegative_ += " + " + Tenths(force.Fx);
      if (force.Fy > 0) yPositive_ += " + " + Tenths(force.Fy);
      if (force.Fy < 0) yNegative_ += " + " + Tenths(force.Fy);
    }
  }

  std::string X() const { return Finished(xPositive_) + " = " + Finished(xNegative_); }
  std::string Y() const { return Finished(yPositive_) + " = " + Finished(yNegative_); }

 private:
  // The term of a member end for axis 1 (x) or 2 (y), and the side it goes to, 1 (positive) or 2 (negative).
  static void AngleTerm(float dx, float dy, int axis, std::string& text, int& side) {
    const std::string angle =
        dx == 0 ? "" : FixedText(std::abs(std::atan(double{dy} / double{dx})) * 180 / 3.141592654, 1);
    if (axis == 1) {
      side = dx >= 0 ? 1 : 2;
      if (dx == 0) {
        text = "0";
      } else if (dy != 0) {
        text += " cos(" + angle + ")";
      }
    } else {
      side = dy >= 0 ? 1 : 2;
      if (dy == 0) {
        text = "0";
      } else if (dx != 0) {
        text += " sin(" + angle + ")";
      }
    }
  }

  void AddEnd(const MemberRec& member, float dx, float dy) {
    int side = 0;
    std::string text = truss_.Name(member.NameLabel1);
    AngleTerm(dx, dy, 1, text, side);
    if (text != "0") (side == 1 ? xPositive_ : xNegative_) += " + " + text;
    text = truss_.Name(member.NameLabel1);
    AngleTerm(dx, dy, 2, text, side);
    if (text != "0") (side == 1 ? yPositive_ : yNegative_) += " + " + text;
  }

  static std::string Tenths(float value) {
    const long tenths = std::lround(std::abs(double{value}) * 10);
    std::string text = tenths >= 10 ? std::to_string(tenths / 10) : "";
    text += '.';
    if (tenths % 10 != 0) text += std::to_string(tenths % 10);
    return text;
  }

  static std::string Finished(const std::string& terms) { return terms.empty() ? "0" : terms.substr(3); }

  const Truss& truss_;
  std::string xPositive_, xNegative_, yPositive_, yNegative_;
};

}  // namespace

TEST(JointEquations, AreThoseOfPlainScansInRandomDocuments) {
  for (unsigned seed = 1; seed <= 500; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const Truss truss = RandomDocument(random);
    const CountedTruss counted = CountTruss(truss);
    const JointEquations equations(truss, NumberFormat{});
    for (int j = 1; j <= truss.NumJoints; ++j) {
      const JointEquationTexts texts = equations.ReportOnJoint(counted.Joints[j]);
      const PlainReport plain(truss, truss.Joints[j]);
      ASSERT_EQ(texts.X, plain.X()) << "joint " << j;
      ASSERT_EQ(texts.Y, plain.Y()) << "joint " << j;
    }
  }
}
