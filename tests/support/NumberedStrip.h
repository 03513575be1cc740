// A truss whose joints are sorted in another order than that in which they are found.
#pragma once

#include "support/TrussBuilder.h"

// A strip of five panels. Its twelve joints, when they are numbered, are not sorted as they were drawn: "10"
// comes before "2".
inline Truss NumberedStrip() {
  TrussBuilder builder;
  for (int i = 0; i < 5; ++i) {
    const float x = 1 + 3 * static_cast<float>(i);
    builder.Member(x, 1, x + 3, 1).Member(x, 5, x + 3, 5).Member(x, 1, x, 5).Member(x, 5, x + 3, 1);
  }
  return builder.Member(16, 1, 16, 5).Clamp(1, 1).Roller(16, 1).Force(16, 5, 100, -700).Force(4, 1, 0, -50);
}
