// Components of a plane vector against its magnitude and angle, as the value editor and pictures show them.
#pragma once

/// Angles are in degrees in the one mode and in radians in any other.
inline constexpr int DegreeMode = 2;

struct PolarVector {
  double Magnitude = 0;
  double Angle = 0;  ///< from the x axis, counter-clockwise
};

struct RectangularVector {
  double X = 0, Y = 0;
};

/// The angle lies in (-half turn, half turn]; the zero vector has magnitude 0 and angle 0.
PolarVector RectangularToPolar(int angleMode, double x, double y);

RectangularVector PolarToRectangular(int angleMode, double magnitude, double angle);
