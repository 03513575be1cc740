// The equilibrium equations: direction ratios to the last bit, each cell of the matrix, and the whole matrix
// against plain scans of the tables.
#include "analysis/Equations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "GeneratedTrusses.h"
#include "analysis/Unknowns.h"
#include "document/JointList.h"
#include "support/TrussBuilder.h"

using ::testing::ElementsAre;
using ::testing::SizeIs;

namespace {

MemberRec MemberBetween(float x1, float y1, float x2, float y2) {
  return MemberRec{.X1 = x1, .Y1 = y1, .X2 = x2, .Y2 = y2, .Live = true};
}

using Rows = std::vector<std::vector<double>>;

template <class Number>
Rows RowsOf(const SparseMatrix<Number>& matrix) {
  Rows rows;
  for (int row = 1; row <= matrix.NumRows(); ++row) {
    rows.emplace_back();
    for (int column = 1; column <= matrix.NumColumns(); ++column) {
      rows.back().push_back(double{matrix(row, column)});
    }
  }
  return rows;
}

EquationSystem Assembled(Truss& truss) {
  EquationSystem system;
  CountUnknowns(truss, system);
  SortJoints(truss);
  LoadArrays(truss, CountTruss(truss).Joints, system);
  return system;
}

Rows EquationsOf(Truss truss) { return RowsOf(Assembled(truss).EquationMatrix); }

}  // namespace

TEST(DirectionRatios, PointFromTheOtherEndTowardsThisEnd) {
  const MemberRec member = MemberBetween(0, 0, 3, 4);
  EXPECT_EQ(Cosine(member, 1), -0.6F);
  EXPECT_EQ(Sine(member, 1), -0.8F);
  EXPECT_EQ(Cosine(member, 2), 0.6F);
  EXPECT_EQ(Sine(member, 2), 0.8F);
}

TEST(DirectionRatios, OfAxisParallelMembersAreExact) {
  const MemberRec vertical = MemberBetween(2, 7, 2, -0.1F);
  EXPECT_EQ(Cosine(vertical, 1), 0);
  EXPECT_EQ(Sine(vertical, 1), 1);
  EXPECT_EQ(Cosine(vertical, 2), 0);
  EXPECT_EQ(Sine(vertical, 2), -1);
}

TEST(DirectionRatios, DifferencesAreRoundedToSinglePrecision) {
  // The run is 16777217, which is no single: it becomes 16777216, and the member is exactly 4 : 3 : 5.
  // With the run unrounded the sine would be the next single below 0.6.
  const MemberRec member = MemberBetween(16777216.0F, 0, -1, -12582912.0F);
  EXPECT_EQ(SingleDifference(16777216.0F, -1), 16777216.0F);
  EXPECT_EQ(Cosine(member, 1), 0.8F);
  EXPECT_EQ(Sine(member, 1), 0.6F);
}

TEST(DirectionRatios, TheLengthIsRoundedToSinglePrecision) {
  // 1 / sqrt(17) is nearest to 0x1.f0b684p-3; divided by the rounded length it is one bit more.
  EXPECT_EQ(Cosine(MemberBetween(1, 4, 0, 0), 1), 0x1.f0b686p-3F);
}

TEST(DirectionRatios, SquaresAndTheirSumAreNotRounded) {
  // In singles the length would come out one bit longer and the ratio as 0x1.c9f25cp-2.
  EXPECT_EQ(Cosine(MemberBetween(0.1F, 0.2F, 0, 0), 1), 0x1.c9f25ep-2F);
}

TEST(DirectionRatios, OfAMemberWithoutLengthAreZero) {
  const MemberRec member = MemberBetween(2, 3, 2, 3);
  for (const int end : {1, 2}) {
    EXPECT_EQ(Cosine(member, end), 0);
    EXPECT_EQ(Sine(member, end), 0);
  }
  EXPECT_EQ(Cosine(MemberBetween(0.0F, 1, -0.0F, 1), 1), 0);
}

TEST(DirectionRatios, OfTheLongestMemberAreFinite) {
  const float largest = std::numeric_limits<float>::max();
  EXPECT_EQ(SingleDifference(largest, -largest), largest);
  EXPECT_EQ(Cosine(MemberBetween(largest, 0, -largest, 0), 1), 1);
  EXPECT_EQ(Cosine(MemberBetween(largest, 0, -largest, 0), 2), -1);
}

TEST(LoadArrays, AHorizontalMemberPushesOutwardsAtBothEnds) {
  EXPECT_EQ(EquationsOf(TrussBuilder().Member(0, 0, 4, 0, "AB").Joint(0, 0, "A").Joint(4, 0, "B")),
            (Rows{{-1, 0}, {0, 0}, {1, 0}, {0, 0}}));
}

TEST(LoadArrays, RowsComeInPairsInTheOrderOfJointNames) {
  const Truss truss =
      TrussBuilder().Member(0, 0, 3, 4, "m").Force(3, 4, 5, 7).Joint(0, 0, "Z").Joint(3, 4, "A");
  EXPECT_EQ(EquationsOf(truss),
            (Rows{{double{0.6F}, -5}, {double{0.8F}, -7}, {-double{0.6F}, 0}, {-double{0.8F}, 0}}));
}

TEST(LoadArrays, ColumnsAreReactionsThenMembersByName) {
  const Truss truss = TrussBuilder()
                          .Member(0, 0, 4, 0, "B")
                          .Member(0, 0, 0, 2, "A")
                          .Roller(0, 0, "R2")
                          .Roller(4, 0, "R1", 8)
                          .Joint(0, 0, "1")
                          .Joint(4, 0, "2")
                          .Joint(0, 2, "3");
  EXPECT_EQ(EquationsOf(truss), (Rows{{0, 0, 0, -1, 0},
                                      {0, 1, -1, 0, 0},
                                      {1, 0, 0, 1, 0},
                                      {0, 0, 0, 0, 0},
                                      {0, 0, 0, 0, 0},
                                      {0, 0, 1, 0, 0}}));
}

TEST(LoadArrays, AClampHasARightwardAndAnUpwardComponentWhateverItsOrientation) {
  for (std::int16_t type = 1; type <= 4; ++type) {
    EXPECT_EQ(EquationsOf(TrussBuilder().Clamp(0, 0, "x", "y", type)), (Rows{{1, 0, 0}, {0, 1, 0}}))
        << "type " << type;
  }
}

TEST(LoadArrays, ComponentsOfAClampFollowTheirLabelsNotTheirOrder) {
  EXPECT_EQ(EquationsOf(TrussBuilder().Clamp(0, 0, "b", "a")), (Rows{{0, 1, 0}, {1, 0, 0}}));
}

TEST(LoadArrays, ARollerActsUpDownLeftOrRightByItsType) {
  const auto equations = [](std::int16_t type) {
    return EquationsOf(TrussBuilder().Roller(0, 0, "r", type));
  };
  EXPECT_EQ(equations(5), (Rows{{0, 0}, {1, 0}}));
  EXPECT_EQ(equations(6), (Rows{{0, 0}, {-1, 0}}));
  EXPECT_EQ(equations(7), (Rows{{-1, 0}, {0, 0}}));
  EXPECT_EQ(equations(8), (Rows{{1, 0}, {0, 0}}));
}

TEST(LoadArrays, ForcesGoToTheRightHandSideWithReversedSignAndAddUp) {
  const Truss truss = TrussBuilder()
                          .Roller(0, 0, "r")
                          .Force(0, 0, 3, -10)
                          .Force(0, 0, 0.5F, 4)
                          .Force(0, 0, 100, 100)
                          .ThenErased();
  EXPECT_EQ(EquationsOf(truss), (Rows{{0, -3.5}, {1, 6}}));
}

TEST(LoadArrays, RightHandSidesAddUpInDoublePrecisionAndAreShownInSingle) {
  Truss truss = TrussBuilder().Roller(0, 0, "r").Force(0, 0, 0.1F, 0).Force(0, 0, 0.2F, 0);
  const EquationSystem system = Assembled(truss);
  const double sum = -double{0.1F} - double{0.2F};
  EXPECT_EQ(system.EquationMatrix(1, 2), sum);
  EXPECT_EQ(system.DisplayEquations(1, 2), static_cast<float>(sum));
  EXPECT_NE(double{system.DisplayEquations(1, 2)}, sum);
}

TEST(LoadArrays, AForceApartFromEverythingIsAJointWithRightHandSidesOnly) {
  const Truss truss =
      TrussBuilder().Clamp(0, 0, "x", "y").Force(9, 9, 5, -6).Joint(0, 0, "A").Joint(9, 9, "B");
  EXPECT_EQ(EquationsOf(truss), (Rows{{1, 0, 0}, {0, 1, 0}, {0, 0, -5}, {0, 0, 6}}));
}

TEST(LoadArrays, EndsThatDifferInTheLastBitAreTwoJoints) {
  const float almost = std::nextafter(4.0F, 5.0F);
  const Truss truss = TrussBuilder()
                          .Member(0, 0, 4, 0, "p")
                          .Member(almost, 0, 8, 0, "q")
                          .Joint(0, 0, "1")
                          .Joint(4, 0, "2")
                          .Joint(almost, 0, "3")
                          .Joint(8, 0, "4");
  EXPECT_EQ(truss.NumJoints, 4);
  const Rows rows = EquationsOf(truss);
  EXPECT_THAT(rows, SizeIs(8));
  EXPECT_THAT(rows[2], ElementsAre(1, 0, 0));
  EXPECT_THAT(rows[4], ElementsAre(0, -1, 0));
}

TEST(LoadArrays, BothZerosAreOneCoordinate) {
  const Truss truss = TrussBuilder().Member(0.0F, 0, 4, 0, "m").Roller(-0.0F, -0.0F, "r").Joint(4, 0, "z");
  EXPECT_EQ(truss.NumJoints, 2);
  EXPECT_EQ(EquationsOf(truss)[1], (std::vector<double>{1, 0, 0}));
}

TEST(LoadArrays, ErasedElementsHaveNoCells) {
  const Truss truss = TrussBuilder()
                          .Member(0, 0, 4, 0, "gone")
                          .ThenErased()
                          .Clamp(0, 0, "gx", "gy")
                          .ThenErased()
                          .Roller(0, 0, "r");
  EXPECT_EQ(EquationsOf(truss), (Rows{{0, 0}, {1, 0}}));
}

TEST(LoadArrays, AMemberWithoutLengthHasNoCells) {
  EXPECT_EQ(EquationsOf(TrussBuilder().Member(1, 1, 1, 1, "m").Roller(1, 1, "r")),
            (Rows{{0, 0, 0}, {1, 0, 0}}));
}

// A file can list fewer joints than there are.
TEST(LoadArrays, WhatStandsAtNoListedJointHasNoCells) {
  Truss truss = TrussBuilder().Member(0, 0, 3, 4, "m").Clamp(0, 0, "Ax", "Ay").Force(3, 4, 10, -20);
  EquationSystem system;
  CountUnknowns(truss, system);
  const auto equationsAt = [&](float x, float y) {
    Table<CountedJoint> joints(1);
    joints[1] = {x, y, 0, "J"};
    LoadArrays(truss, joints, system);
    return RowsOf(system.EquationMatrix);
  };
  EXPECT_EQ(equationsAt(0, 0), (Rows{{1, 0, -0.6F, 0}, {0, 1, -0.8F, 0}}));
  EXPECT_EQ(equationsAt(3, 4), (Rows{{0, 0, 0.6F, -10}, {0, 0, 0.8F, 20}}));
  EXPECT_EQ(equationsAt(9, 9), (Rows{{0, 0, 0, 0}, {0, 0, 0, 0}}));
}

TEST(LoadArrays, LoadingAgainStartsFromZeros) {
  Truss first = TrussBuilder().Member(0, 0, 4, 0).Clamp(0, 0).Force(4, 0, 1, 1);
  EquationSystem system = Assembled(first);
  Truss second = TrussBuilder().Roller(0, 0);
  CountUnknowns(second, system);
  LoadArrays(second, CountTruss(second).Joints, system);
  EXPECT_EQ(RowsOf(system.EquationMatrix), (Rows{{0, 0}, {1, 0}}));
  EXPECT_EQ(RowsOf(system.DisplayEquations), (Rows{{0, 0}, {1, 0}}));
}

namespace {

// The same ratios from the definition: which coordinate difference, over which length.
float PlainRatio(float numeratorFrom, float numeratorTo, const MemberRec& member) {
  const auto numerator = static_cast<float>(double{numeratorFrom} - double{numeratorTo});
  const double dy = static_cast<float>(double{member.Y1} - double{member.Y2});
  const double dx = static_cast<float>(double{member.X1} - double{member.X2});
  const auto length = static_cast<float>(std::sqrt(dy * dy + dx * dx));
  return length == 0 ? 0 : static_cast<float>(double{numerator} / double{length});
}

// A full array filled by scanning every table for every joint, and the unknowns for every cell.
class PlainAssembly {
 public:
  PlainAssembly(const Truss& truss, const Table<Unknown>& unknowns) : unknowns_(unknowns) {
    const auto numColumns = static_cast<std::size_t>(unknowns.Size()) + 1;
    Cells.assign(2 * static_cast<std::size_t>(truss.NumJoints), std::vector<double>(numColumns));
    for (int j = 1; j <= truss.NumJoints; ++j) LoadJoint(truss, j);
  }

  Rows Cells;

 private:
  double& At(int row, int column) {
    return Cells[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column - 1)];
  }
  int Column(LabelIndex label) const {
    for (int k = 1; k <= unknowns_.Size(); ++k) {
      if (unknowns_[k].Label == label) return k;
    }
    ADD_FAILURE() << "no column for label " << label;
    return 1;
  }

  void LoadJoint(const Truss& truss, int j) {
    const JointRec& joint = truss.Joints[j];
    const int x = 2 * j - 1;
    const int y = 2 * j;
    for (int i = 1; i <= truss.NumMembers; ++i) {
      const MemberRec& m = truss.Members[i];
      if (!m.Live) continue;
      if (m.X1 == joint.X && m.Y1 == joint.Y) {
        At(x, Column(m.NameLabel1)) = double{PlainRatio(m.X1, m.X2, m)};
        At(y, Column(m.NameLabel1)) = double{PlainRatio(m.Y1, m.Y2, m)};
      }
      if (m.X2 == joint.X && m.Y2 == joint.Y) {
        At(x, Column(m.NameLabel1)) = double{PlainRatio(m.X2, m.X1, m)};
        At(y, Column(m.NameLabel1)) = double{PlainRatio(m.Y2, m.Y1, m)};
      }
    }
    for (int i = 1; i <= truss.NumSupports; ++i) {
      const SupportRec& support = truss.Supports[i];
      if (!support.Live || support.X != joint.X || support.Y != joint.Y) continue;
      const int column = Column(support.NameLabel1);
      if (support.TypeIndex <= 4) {
        At(x, column) = 1;
        At(y, Column(support.NameLabel2)) = 1;
      }
      if (support.TypeIndex == 5) At(y, column) = 1;
      if (support.TypeIndex == 6) At(y, column) = -1;
      if (support.TypeIndex == 7) At(x, column) = -1;
      if (support.TypeIndex == 8) At(x, column) = 1;
    }
    const int last = unknowns_.Size() + 1;
    for (int i = 1; i <= truss.NumForces; ++i) {
      const ForceRec& force = truss.Forces[i];
      if (!force.Active || force.X != joint.X || force.Y != joint.Y) continue;
      At(x, last) -= double{force.Fx};
      At(y, last) -= double{force.Fy};
    }
  }

  const Table<Unknown>& unknowns_;
};

}  // namespace

TEST(LoadArrays, GivesTheMatrixOfPlainScansForRandomDocuments) {
  for (unsigned seed = 1; seed <= 500; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    Truss truss = RandomDocument(random);
    const EquationSystem system = Assembled(truss);
    const Rows plain = PlainAssembly(truss, system.UnknownList).Cells;
    ASSERT_EQ(RowsOf(system.EquationMatrix), plain);
    Rows shown = plain;
    for (std::vector<double>& row : shown) {
      for (double& cell : row) cell = double{static_cast<float>(cell)};
    }
    ASSERT_EQ(RowsOf(system.DisplayEquations), shown);
    ASSERT_EQ(system.EquationMatrix.NumColumns(), system.NumUnknowns() + 1);
  }
}
