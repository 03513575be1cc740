// The two conversions between components and magnitude with angle.
#include "canvas/Polar.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr int RadianMode = 1;

void ExpectPolar(double x, double y, double magnitude, double degrees) {
  SCOPED_TRACE(testing::Message() << "(" << x << ", " << y << ")");
  const PolarVector polar = RectangularToPolar(DegreeMode, x, y);
  EXPECT_DOUBLE_EQ(polar.Magnitude, magnitude);
  EXPECT_DOUBLE_EQ(polar.Angle, degrees);
}

}  // namespace

TEST(RectangularToPolar, OfNoVectorIsZero) { ExpectPolar(0, 0, 0, 0); }

TEST(RectangularToPolar, OnTheAxes) {
  ExpectPolar(3, 0, 3, 0);
  ExpectPolar(0, 7, 7, 90);
  ExpectPolar(-1, 0, 1, 180);
  ExpectPolar(0, -2, 2, -90);
}

TEST(RectangularToPolar, TakesMagnitudesOnAnAxisAsTheyAre) {
  // A square and a root would lose the first and overflow the second.
  EXPECT_EQ(RectangularToPolar(DegreeMode, 1e-200, 0).Magnitude, 1e-200);
  EXPECT_EQ(RectangularToPolar(DegreeMode, 0, -1e200).Magnitude, 1e200);
}

// Off the axes the angle is the arc tangent of the machine, so the constant of the half turn shows where the
// quadrant adds it.
TEST(RectangularToPolar, InTheFourQuadrants) {
  const double eighth = std::atan(1.0);
  const auto degrees = [](double radians) { return radians * 180 / 3.141592654; };
  ExpectPolar(1, 1, std::sqrt(2.0), degrees(eighth));
  ExpectPolar(-1, 1, std::sqrt(2.0), degrees(3.141592654 - eighth));
  ExpectPolar(-1, -1, std::sqrt(2.0), degrees(eighth - 3.141592654));
  ExpectPolar(1, -1, std::sqrt(2.0), degrees(-eighth));
}

TEST(RectangularToPolar, OfMinusOneMinusOneIsMinusHundredThirtyFiveDegreesAsASingle) {
  EXPECT_EQ(static_cast<float>(RectangularToPolar(DegreeMode, -1, -1).Angle), -135.0F);
}

TEST(RectangularToPolar, TakesANegativeZeroForNoHeight) { ExpectPolar(-1, -0.0, 1, 180); }

TEST(RectangularToPolar, GivesRadiansInAnyOtherMode) {
  for (const int mode : {0, 1, 3, -2}) {
    EXPECT_DOUBLE_EQ(RectangularToPolar(mode, -1, 0).Angle, 3.141592654);
    EXPECT_DOUBLE_EQ(RectangularToPolar(mode, 0, -2).Angle, -3.141592654 / 2);
    EXPECT_DOUBLE_EQ(RectangularToPolar(mode, 3, 4).Magnitude, 5);
  }
}

TEST(PolarToRectangular, TurnsByDegrees) {
  const RectangularVector vector = PolarToRectangular(DegreeMode, 10, 30);
  EXPECT_NEAR(vector.X, 5 * std::sqrt(3.0), 1e-8);
  EXPECT_NEAR(vector.Y, 5, 1e-8);
}

TEST(PolarToRectangular, UsesItsOwnHalfTurn) {
  EXPECT_EQ(PolarToRectangular(DegreeMode, 1, 180).Y, std::sin(3.141592654));
  EXPECT_LT(PolarToRectangular(DegreeMode, 1, 180).Y, 0);
}

TEST(PolarToRectangular, TakesRadiansInAnyOtherMode) {
  const RectangularVector vector = PolarToRectangular(RadianMode, 2, 0.5);
  EXPECT_EQ(vector.X, 2 * std::cos(0.5));
  EXPECT_EQ(vector.Y, 2 * std::sin(0.5));
}

TEST(PolarToRectangular, UndoesTheOtherConversion) {
  for (int x = -5; x <= 5; ++x) {
    for (int y = -5; y <= 5; ++y) {
      const PolarVector polar = RectangularToPolar(DegreeMode, x, y);
      const RectangularVector back = PolarToRectangular(DegreeMode, polar.Magnitude, polar.Angle);
      EXPECT_NEAR(back.X, x, 5e-9);
      EXPECT_NEAR(back.Y, y, 5e-9);
    }
  }
}
