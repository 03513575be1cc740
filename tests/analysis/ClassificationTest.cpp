// Reading a reduced matrix, on matrices written by hand.
#include "analysis/Classification.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <vector>

#include "ReducedSystem.h"

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::Eq;

namespace {

constexpr std::optional<double> Undetermined;

struct Reading {
  Outcome Code;
  std::vector<std::optional<double>> Values;
};

Reading Read(const std::vector<std::vector<double>>& rows,
             const std::vector<std::int16_t>& columnOrder = {}) {
  const Classification classification = ClassifyRREF(ReducedSystem(rows, columnOrder));
  Reading reading{classification.Code, {}};
  for (int k = 1; k <= classification.Values.Size(); ++k) reading.Values.push_back(classification.Values[k]);
  return reading;
}

}  // namespace

TEST(ClassifyRREF, TheIdentityDeterminesEveryUnknown) {
  const Reading reading = Read({{1, 0, 0, 5}, {0, 1, 0, 0}, {0, 0, 1, -2.5}});
  EXPECT_EQ(reading.Code, Outcome::Neither);
  EXPECT_THAT(reading.Values, ElementsAre(5, 0, -2.5));
}

TEST(ClassifyRREF, ARowOfZerosWithZeroRightHandSideIsRedundant) {
  const Reading reading = Read({{1, 0, 5}, {0, 1, 6}, {0, 0, 0}});
  EXPECT_EQ(reading.Code, Outcome::Redundant);
  EXPECT_THAT(reading.Values, ElementsAre(5, 6));
}

TEST(ClassifyRREF, ARedundantRowDoesNotStopTheReading) {
  const Reading reading = Read({{0, 0, 0}, {1, 0, 5}, {0, 0, 0}, {0, 1, 6}});
  EXPECT_EQ(reading.Code, Outcome::Redundant);
  EXPECT_THAT(reading.Values, ElementsAre(5, 6));
}

TEST(ClassifyRREF, ARowOfZerosWithARightHandSideIsInconsistentAndEndsTheReading) {
  const Reading reading = Read({{1, 0, 5}, {0, 0, 1e-300}, {0, 1, 6}});
  EXPECT_EQ(reading.Code, Outcome::Inconsistent);
  EXPECT_THAT(reading.Values, ElementsAre(5, Undetermined));
}

TEST(ClassifyRREF, InconsistencyOutweighsRedundancyOnEitherSideOfIt) {
  EXPECT_EQ(Read({{1, 5}, {0, 0}, {0, 3}}).Code, Outcome::Inconsistent);
  EXPECT_EQ(Read({{1, 5}, {0, -3}, {0, 0}}).Code, Outcome::Inconsistent);
}

TEST(ClassifyRREF, ANegativeZeroIsZero) {
  EquationSystem system = ReducedSystem({{1, 5}, {0, 0}});
  system.EquationMatrix.Set(2, 1, -0.0);
  system.EquationMatrix.Set(2, 2, -0.0);
  EXPECT_EQ(ClassifyRREF(system).Code, Outcome::Redundant);
}

TEST(ClassifyRREF, ARowThatTiesUnknownsDeterminesNoneOfThem) {
  const Reading reading = Read({{1, 0, 2, 5}, {0, 1, 0, 6}});
  EXPECT_EQ(reading.Code, Outcome::Neither);
  EXPECT_THAT(reading.Values, ElementsAre(Undetermined, 6, Undetermined));
  EXPECT_THAT(Read({{1, 1, 5}}).Values, Each(Undetermined));
  EXPECT_THAT(Read({{1, 1, 1, 5}}).Values, Each(Undetermined));
  EXPECT_THAT(Read({{0.5, 0.5, 5}}).Values, Each(Undetermined));
}

TEST(ClassifyRREF, ATiedUnknownCanBeDeterminedByAnotherRow) {
  EXPECT_THAT(Read({{1, 1, 5}, {0, 1, 6}}).Values, ElementsAre(Undetermined, 6));
}

TEST(ClassifyRREF, ALoneCoefficientThatIsNotExactlyOneDeterminesNothing) {
  for (const double coefficient : {2.0, -1.0, std::nextafter(1.0, 2.0), std::nextafter(1.0, 0.0)}) {
    const Reading reading = Read({{coefficient, 0, 5}});
    EXPECT_THAT(reading.Values, Each(Undetermined)) << coefficient;
    EXPECT_EQ(reading.Code, Outcome::Neither) << coefficient;
  }
}

TEST(ClassifyRREF, AOneBesideATinyCoefficientDeterminesNothing) {
  EXPECT_THAT(Read({{1, 1e-300, 5}}).Values, Each(Undetermined));
}

TEST(ClassifyRREF, ValuesGoToTheUnknownThatTheColumnOrderNames) {
  const Reading reading = Read({{1, 0, 0, 7, 0}, {0, 1, 0, 0, 20}, {0, 0, 1, 0, 30}}, {3, 4, 1, 2});
  EXPECT_THAT(reading.Values, ElementsAre(30, Undetermined, Undetermined, 20));
}

TEST(ClassifyRREF, OneUnknownCanBeDeterminedRedundantOrContradicted) {
  EXPECT_THAT(Read({{1, 4}}).Values, ElementsAre(4));
  EXPECT_EQ(Read({{0, 0}}).Code, Outcome::Redundant);
  EXPECT_EQ(Read({{0, 4}}).Code, Outcome::Inconsistent);
  EXPECT_THAT(Read({{0, 4}}).Values, ElementsAre(Undetermined));
}

TEST(ClassifyRREF, AnEmptySystemIsNeither) {
  const Classification classification = ClassifyRREF(EquationSystem{});
  EXPECT_EQ(classification.Code, Outcome::Neither);
  EXPECT_EQ(classification.Values.Size(), 0);
}

TEST(Conclusions, TheOutcomeCodesAre0And1And2) {
  EXPECT_EQ(static_cast<int>(Outcome::Neither), 0);
  EXPECT_EQ(static_cast<int>(Outcome::Redundant), 1);
  EXPECT_EQ(static_cast<int>(Outcome::Inconsistent), 2);
}

TEST(Conclusions, EachOutcomeHasItsSentences) {
  EXPECT_STREQ(
      ConclusionText(Outcome::Inconsistent),
      "There is NO SOLUTION for this inconsistent system of equations.  This system of equations was derived "
      "assuming that the forces are in balance at each joint.  This assumption must be incorrect which "
      "implies "
      "that the truss is unstable and will move.");
  EXPECT_STREQ(
      ConclusionText(Outcome::Redundant),
      "This is a redundant system of equations.  This implies that the truss is in equilibrium (static) "
      "for these applied forces but not for others.");
  EXPECT_STREQ(ConclusionText(Outcome::Neither), "");
}
