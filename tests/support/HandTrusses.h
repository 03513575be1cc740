// Small trusses that the tests of the working look at, in logic and in windows.
#pragma once

#include <cmath>
#include <string>

#include "support/TrussBuilder.h"

/// What the parts of a triangle are called.
struct TriangleNames {
  std::string AB = "AB", AC = "AC", BC = "BC";
  std::string Ax = "Ax", Ay = "Ay", AtB = "B";
  std::string A = "A", B = "B", C = "C";
};

/// A triangle on a clamp and a roller under a load of 1000 at its top.
inline TrussBuilder HandTriangle(const TriangleNames& names = {}) {
  return TrussBuilder()
      .Member(0, 0, 8, 0, names.AB)
      .Member(0, 0, 4, 4, names.AC)
      .Member(8, 0, 4, 4, names.BC)
      .Clamp(0, 0, names.Ax, names.Ay)
      .Roller(8, 0, names.AtB)
      .Joint(0, 0, names.A)
      .Joint(8, 0, names.B)
      .Joint(4, 4, names.C)
      .Force(4, 4, 0, -1000);
}

/// The same with a post under its top that stands on the chord, `foot` from the clamp; no load acts there.
inline TrussBuilder KingPost(float foot = 4) {
  return TrussBuilder()
      .Member(0, 0, foot, 0, "AD")
      .Member(foot, 0, 8, 0, "BD")
      .Member(0, 0, 4, 4, "AC")
      .Member(8, 0, 4, 4, "BC")
      .Member(foot, 0, 4, 4, "CD")
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(8, 0, "B")
      .Joint(0, 0, "A")
      .Joint(8, 0, "B")
      .Joint(4, 4, "C")
      .Joint(foot, 0, "D")
      .Force(4, 4, 0, -1000);
}

/// Six joints on a circle but for A, which is `a` from the middle; at 5 they are in their critical form:
/// movable, which only numbers that are not rounded show.
inline TrussBuilder HandHexagon(float a) {
  return TrussBuilder()
      .Member(a, 0, 3, 4, "AD")
      .Member(a, 0, -5, 0, "AE")
      .Member(a, 0, 0, -5, "AF")
      .Member(-3, 4, 3, 4, "BD")
      .Member(-3, 4, -5, 0, "BE")
      .Member(-3, 4, 0, -5, "BF")
      .Member(-4, -3, 3, 4, "CD")
      .Member(-4, -3, -5, 0, "CE")
      .Member(-4, -3, 0, -5, "CF")
      .Clamp(-4, -3, "Cx", "Cy")
      .Roller(0, -5, "F")
      .Joint(a, 0, "A")
      .Joint(-3, 4, "B")
      .Joint(-4, -3, "C")
      .Joint(3, 4, "D")
      .Joint(-5, 0, "E")
      .Joint(0, -5, "F")
      .Force(-3, 4, 0, -1000);
}

/// Two members between two clamps, in one line that slopes as 3 to 1, with a load on the joint between them.
/// Along the line they can take it, in many ways; across it not at all. Rounded, their directions are not
/// quite the same, and the reduced matrix shows numbers.
inline TrussBuilder SlopingArch(float fx, float fy) {
  return TrussBuilder()
      .Member(0, 0, 1, 3, "AC")
      .Member(1, 3, 4, 12, "BC")
      .Clamp(0, 0, "Ax", "Ay")
      .Clamp(4, 12, "Bx", "By")
      .Joint(0, 0, "A")
      .Joint(4, 12, "B")
      .Joint(1, 3, "C")
      .Force(1, 3, fx, fy);
}

/// A rope of length 5 at 37 degrees with a load along it, typed in polar form.
inline TrussBuilder PolarTie() {
  const auto x = static_cast<float>(5 * std::cos(37 * 3.141592654 / 180));
  const auto y = static_cast<float>(5 * std::sin(37 * 3.141592654 / 180));
  return TrussBuilder().Member(0, 0, x, y, "AB").Clamp(0, 0, "Ax", "Ay").Force(x, y, 200 * x, 200 * y);
}

/// The braced panel on two clamps: moments about them give Ay and By, whatever its slopes are.
inline TrussBuilder LeaningPanel(float left, float right, float height) {
  return TrussBuilder()
      .Member(0, 0, 8, 0, "AB")
      .Member(8, 0, right, height, "BC")
      .Member(right, height, left, height, "CD")
      .Member(0, 0, left, height, "AD")
      .Member(0, 0, right, height, "AC")
      .Member(8, 0, left, height, "BD")
      .Clamp(0, 0, "Ax", "Ay")
      .Clamp(8, 0, "Bx", "By")
      .Force(right, height, 0, -1000);
}
