// How many inputs a test of many that are alike takes.
#pragma once

#include <cstdlib>
#include <string_view>

/// Continuous integration, which says so by CI=true, has time for all; otherwise `usually` as many.
inline int HowMany(int all, int usually) {
  const char* ci = std::getenv("CI");
  return ci != nullptr && std::string_view(ci) == "true" ? all : usually;
}
