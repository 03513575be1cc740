// Trusses for the tests of explanations, as graphs.
#pragma once

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "analysis/Analysis.h"
#include "explanation/TrussGraph.h"
#include "support/TrussBuilder.h"

inline TrussGraph GraphOf(Truss truss) {
  const TrussAnalysis analysis = SolveTruss(truss);
  return GraphOf(truss, analysis);
}

using Places = std::vector<std::pair<float, float>>;

/// 0 .. count - 1, the same on every machine for the same seed.
inline int Below(std::mt19937& random, int count) {
  return static_cast<int>(random() % static_cast<unsigned>(count));
}

/// Joints at these places, joined at random, with supports of all types and whole loads.
inline Truss JoinedAtRandom(std::mt19937& random, const Places& at) {
  const auto below = [&random](int count) { return Below(random, count); };
  const int numJoints = static_cast<int>(at.size());
  TrussBuilder builder;
  const int density = 1 + below(3);
  for (int a = 0; a < numJoints; ++a) {
    for (int b = a + 1; b < numJoints; ++b) {
      if (below(4) >= density) continue;
      const auto [x1, y1] = at[static_cast<std::size_t>(a)];
      const auto [x2, y2] = at[static_cast<std::size_t>(b)];
      builder.Member(x1, y1, x2, y2);
    }
  }
  for (int i = below(4); i > 0; --i) {
    const auto [x, y] = at[static_cast<std::size_t>(below(numJoints))];
    const auto type = static_cast<std::int16_t>(1 + below(8));
    if (type > 4) {
      builder.Roller(x, y, "r", type);
    } else {
      builder.Clamp(x, y, "cx", "cy", type);
    }
  }
  for (int i = below(3); i > 0; --i) {
    const auto [x, y] = at[static_cast<std::size_t>(below(numJoints))];
    builder.Force(x, y, static_cast<float>(below(9) - 4), static_cast<float>(below(9) - 4));
  }
  return builder;
}

/// Few joints on a small grid of whole numbers (so that three often stand on a line, four on a circle).
inline Truss RandomSmallTruss(std::mt19937& random, int mostJoints, int gridSize) {
  Places at;
  const int numJoints = 2 + Below(random, mostJoints - 1);
  while (static_cast<int>(at.size()) < numJoints) {
    const int x = Below(random, gridSize);
    const int y = Below(random, gridSize);
    const auto place = std::pair(static_cast<float>(x), static_cast<float>(y));
    if (std::find(at.begin(), at.end(), place) == at.end()) at.push_back(place);
  }
  return JoinedAtRandom(random, at);
}

/// Two members that lean on each other, 4 apart, under 1000: the lower, the more their directions matter.
inline Truss LowArch(double height) {
  const auto y = static_cast<float>(height);
  return TrussBuilder()
      .Member(0, 0, 2, y, "left")
      .Member(2, y, 4, 0, "right")
      .Clamp(0, 0, "Ax", "Ay")
      .Clamp(4, 0, "Bx", "By")
      .Force(2, y, 0, -1000);
}

/// Its forces by hand.
inline std::map<std::string, double> ForcesOfLowArch(double height) {
  const double thrust = 1000 / height;
  const double push = thrust * std::hypot(2, height) / 2;
  return {{"left", push}, {"right", push}, {"Ax", thrust}, {"Ay", 500}, {"Bx", -thrust}, {"By", 500}};
}
