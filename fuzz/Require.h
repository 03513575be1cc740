// What must hold whatever comes: otherwise the run ends, and the fuzzer keeps the input.
#pragma once

#include <cstdio>
#include <cstdlib>

inline void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}
