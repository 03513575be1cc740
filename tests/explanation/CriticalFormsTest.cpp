// Trusses whose shape, not whose number of members, lets them move: joints on lines, circles and other
// conics, members whose lines meet in one point. They are judged by what geometry knows of them, or by
// elimination in whole numbers.
#include <array>
#include <functional>
#include <set>

#include "ExplanationFixture.h"
#include "ReasonsThatHold.h"
#include "support/WholeNumberRank.h"

namespace {

// Coordinates that are whole numbers.
using WholePlaces = std::vector<std::pair<int, int>>;

// In units of 1 / parts, as it would be typed: a tenth is the single nearest to 0.1.
Places InPartsOf(int parts, const WholePlaces& at) {
  Places places;
  for (const auto& [x, y] : at) {
    places.emplace_back(static_cast<float>(static_cast<double>(x) / parts),
                        static_cast<float>(static_cast<double>(y) / parts));
  }
  return places;
}

// Some of the places, each once.
WholePlaces SomeOf(std::mt19937& random, WholePlaces all, int count) {
  for (std::size_t i = 0; i < all.size(); ++i) {
    std::swap(all[i], all[i + static_cast<std::size_t>(Below(random, static_cast<int>(all.size() - i)))]);
  }
  all.resize(static_cast<std::size_t>(count));
  return all;
}

// What a drawing in parts of a unit says of itself is what the same drawing in whole units says, in whole
// numbers. The loads are alike, so that the right-hand sides have the same ranks.
void ExpectWholeNumbersToAgree(std::mt19937& random, const WholePlaces& at, int parts) {
  std::mt19937 same = random;
  const TrussGraph graph = GraphOf(JoinedAtRandom(random, InPartsOf(parts, at)));
  const TrussGraph whole = GraphOf(JoinedAtRandom(same, InPartsOf(1, at)));
  if (graph.NumUnknowns() == 0) return;
  const ExactReasons reasons = ReasonExactly(graph);
  EXPECT_EQ(reasons.Verdict.Rank, WholeNumbers::Rank(WholeNumbers::Equations(whole, false)));
  EXPECT_EQ(reasons.Verdict.AugmentedRank, WholeNumbers::Rank(WholeNumbers::Equations(whole, true)));
  ExpectReasonsToHold(graph, reasons);
}

TEST(CriticalForms, JointsOnTwoLinesAgreeWithWholeNumbers) {
  std::mt19937 random(11);
  for (int i = 0; i < 500 && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(i);
    const int dx = 1 + Below(random, 2);
    const int dy = Below(random, 3);
    WholePlaces onLines;
    for (int k = 0; k < 4; ++k) {
      onLines.emplace_back(k * dx, k * dy);
      onLines.emplace_back(k, 7 - k);
    }
    const WholePlaces some = SomeOf(random, onLines, 3 + Below(random, 4));
    if (std::set<std::pair<int, int>>(some.begin(), some.end()).size() != some.size()) continue;
    ExpectWholeNumbersToAgree(random, some, 1);
  }
}

// The circle of radius 5 about the origin.
const WholePlaces OnCircle = {{5, 0},  {4, 3},   {3, 4},   {0, 5},  {-3, 4}, {-4, 3},
                              {-5, 0}, {-4, -3}, {-3, -4}, {0, -5}, {3, -4}, {4, -3}};

TEST(CriticalForms, JointsOnACircleAgreeWithWholeNumbers) {
  std::mt19937 random(12);
  for (int i = 0; i < 500 && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(i);
    ExpectWholeNumbersToAgree(random, SomeOf(random, OnCircle, 3 + Below(random, 4)), 1);
  }
}

TEST(CriticalForms, DecimalGridsAgreeWithWholeNumbers) {
  std::mt19937 random(13);
  WholePlaces grid;
  for (int x = 0; x < 5; ++x) {
    for (int y = 0; y < 5; ++y) grid.emplace_back(x, y);
  }
  for (int i = 0; i < 1000 && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE(i);
    const WholePlaces& from = i % 3 == 0 ? OnCircle : grid;
    ExpectWholeNumbersToAgree(random, SomeOf(random, from, 2 + Below(random, 5)), i % 2 == 0 ? 10 : 8);
  }
}

// --- two groups of three joints, each joined to each of the other group

TrussGraph TwoGroupsOfThree(const WholePlaces& six, const std::array<int, 3>& first, int parts = 1) {
  const Places at = InPartsOf(parts, six);
  TrussBuilder builder;
  for (const int a : first) {
    for (int b = 0; b < 6; ++b) {
      if (std::ranges::count(first, b) > 0) continue;
      const auto [x1, y1] = at[static_cast<std::size_t>(a)];
      const auto [x2, y2] = at[static_cast<std::size_t>(b)];
      builder.Member(x1, y1, x2, y2);
    }
  }
  builder.Clamp(at[0].first, at[0].second).Roller(at[1].first, at[1].second);
  return GraphOf(builder);
}

// Every way to part six joints into two groups of three.
void ForEachGrouping(const std::function<void(const std::array<int, 3>&)>& visit) {
  for (int b = 1; b < 6; ++b) {
    for (int c = b + 1; c < 6; ++c) visit({0, b, c});
  }
}

// No two of them, first and second, above each other: the roller must not turn about the clamp.
const std::vector<WholePlaces> Conics = {
    {{5, 0}, {-3, 4}, {-4, -3}, {3, 4}, {-5, 0}, {0, -5}},   // circle
    {{-2, 4}, {-1, 1}, {0, 0}, {1, 1}, {2, 4}, {3, 9}},      // parabola
    {{1, 3}, {5, 1}, {4, 2}, {-1, 3}, {-5, -1}, {4, -2}},    // ellipse x^2 + 3 y^2 = 28
    {{1, 12}, {2, 6}, {3, 4}, {-1, -12}, {4, 3}, {-6, -2}},  // hyperbola x y = 12
};

TEST(CriticalForms, SixJointsOnAConicGiveWayHoweverTheyAreGrouped) {
  for (std::size_t conic = 0; conic < Conics.size(); ++conic) {
    ForEachGrouping([&](const std::array<int, 3>& group) {
      SCOPED_TRACE(testing::Message() << "conic " << conic << ", group 0 " << group[1] << ' ' << group[2]);
      for (const int parts : {1, 8, 10}) {
        const TrussGraph graph = TwoGroupsOfThree(Conics[conic], group, parts);
        const ExactReasons reasons = ReasonExactly(graph);
        EXPECT_EQ(reasons.Verdict.Mechanisms(), 1);
        EXPECT_EQ(reasons.Verdict.SelfStresses(), 1);
        ExpectReasonsToHold(graph, reasons);
      }
    });
  }
}

TEST(CriticalForms, AJointBesideTheConicMakesThemStand) {
  for (WholePlaces six : Conics) {
    for (auto& [x, y] : six) {
      x *= 1000;
      y *= 1000;
    }
    six[5].second += 1;
    ForEachGrouping([&](const std::array<int, 3>& group) {
      const ExactVerdict verdict = JudgeExactly(TwoGroupsOfThree(six, group));
      EXPECT_EQ(verdict.Mechanisms(), 0);
      EXPECT_EQ(verdict.SelfStresses(), 0);
    });
  }
}

// --- two triangles joined by three members

using Triangle = std::array<std::pair<int, int>, 3>;

TrussGraph TwoTriangles(const Triangle& held, const Triangle& other) {
  TrussBuilder builder;
  const auto member = [&builder](std::pair<int, int> from, std::pair<int, int> to) {
    builder.Member(static_cast<float>(from.first), static_cast<float>(from.second),
                   static_cast<float>(to.first), static_cast<float>(to.second));
  };
  for (std::size_t i = 0; i < 3; ++i) {
    member(held[i], held[(i + 1) % 3]);
    member(other[i], other[(i + 1) % 3]);
    member(held[i], other[i]);
  }
  builder.Clamp(static_cast<float>(held[0].first), static_cast<float>(held[0].second))
      .Roller(static_cast<float>(held[1].first), static_cast<float>(held[1].second));
  return GraphOf(builder);
}

constexpr Triangle Inner = {{{2, 1}, {-1, 2}, {-1, -3}}};

TEST(CriticalForms, TwoTrianglesJoinedByMembersThroughOnePointGiveWay) {
  for (int a = 2; a <= 4; ++a) {
    for (int b = -2; b <= 4; ++b) {
      for (int c = 2; c <= 4; ++c) {
        if (b == 0 || b == 1) continue;
        SCOPED_TRACE(testing::Message() << a << ", " << b << ", " << c);
        Triangle outer = Inner;
        const std::array<int, 3> times = {a, b, c};
        for (std::size_t i = 0; i < 3; ++i) {
          outer[i].first *= times[i];
          outer[i].second *= times[i];
        }
        const bool isFlat = (outer[1].first - outer[0].first) * (outer[2].second - outer[0].second) ==
                            (outer[2].first - outer[0].first) * (outer[1].second - outer[0].second);
        if (isFlat) continue;
        const TrussGraph graph = TwoTriangles(Inner, outer);
        const ExactReasons reasons = ReasonExactly(graph);
        EXPECT_EQ(reasons.Verdict.Mechanisms(), 1);
        EXPECT_EQ(reasons.Verdict.SelfStresses(), 1);
        ExpectReasonsToHold(graph, reasons);
        outer[0].first += 1;  // beside the point
        EXPECT_EQ(JudgeExactly(TwoTriangles(Inner, outer)).Mechanisms(), 0);
      }
    }
  }
}

TEST(CriticalForms, TwoTrianglesJoinedByParallelMembersGiveWay) {
  for (const Triangle& lengths : {Triangle{{{5, 2}, {5, 2}, {5, 2}}}, Triangle{{{5, 2}, {10, 4}, {15, 6}}}}) {
    Triangle other = Inner;
    for (std::size_t i = 0; i < 3; ++i) {
      other[i].first += lengths[i].first;
      other[i].second += lengths[i].second;
    }
    const ExactReasons reasons = ReasonExactly(TwoTriangles(Inner, other));
    ASSERT_EQ(reasons.Verdict.Mechanisms(), 1);
    const bool areEqual = lengths[0] == lengths[1];
    EXPECT_EQ(reasons.Motions[0].Extent == MotionExtent::Tightens, !areEqual);
  }
}

}  // namespace
