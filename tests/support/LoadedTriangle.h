// The truss that most tests of windows look at.
#pragma once

#include "support/TrussBuilder.h"

// Bars of a clamp and a roller at the foot, 16 wide and 8 high, with a load on the apex: 6 unknowns.
inline Truss LoadedTriangle() {
  return TrussBuilder()
      .Member(2, 2, 18, 2, "AB")
      .Member(2, 2, 10, 10, "AC")
      .Member(18, 2, 10, 10, "BC")
      .Clamp(2, 2, "Ax", "Ay")
      .Roller(18, 2, "By")
      .Force(10, 10, 0, -2000)
      .Joint(2, 2, "A")
      .Joint(18, 2, "B")
      .Joint(10, 10, "C");
}
