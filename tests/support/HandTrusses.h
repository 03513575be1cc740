// Small trusses that the tests of the working look at, in logic and in windows.
#pragma once

#include "support/TrussBuilder.h"

/// A triangle on a clamp and a roller under a load of 1000 at its top.
inline TrussBuilder HandTriangle() {
  return TrussBuilder()
      .Member(0, 0, 8, 0, "AB")
      .Member(0, 0, 4, 4, "AC")
      .Member(8, 0, 4, 4, "BC")
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(8, 0, "B")
      .Joint(0, 0, "A")
      .Joint(8, 0, "B")
      .Joint(4, 4, "C")
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
