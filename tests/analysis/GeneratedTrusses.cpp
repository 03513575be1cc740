#include "GeneratedTrusses.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "support/TrussBuilder.h"

namespace {

// Both zeros, two neighbouring singles, decimals that are not exact, and a pair whose difference rounds.
const std::array<float, 10> Coordinates = {
    0, -0.0F, 1, std::nextafter(1.0F, 2.0F), 3.5F, 0.1F, 0.3F, -2, -1.0F, 16777216.0F};

const std::array<const char*, 12> Names = {"A",    "B", "b",  "AB", "10", "9", UnnamedCaption, UnnamedCaption,
                                           "\xC4", "0", "-z", "a b"};

struct Point {
  float X;
  float Y;
};

Point RandomPosition(std::mt19937& random) {
  const auto coordinate = [&] {
    return Coordinates[static_cast<std::size_t>(Pick(random, static_cast<int>(Coordinates.size())))];
  };
  const float x = coordinate();
  return Point{x, coordinate()};
}

std::string RandomName(std::mt19937& random) {
  return Names[static_cast<std::size_t>(Pick(random, static_cast<int>(Names.size())))];
}

bool OneIn(std::mt19937& random, int count) { return Pick(random, count) == 0; }

void NameJoints(Truss& truss, std::mt19937& random) {
  for (const JointRec& joint : truss.JointsInUse()) {
    truss.Labels[joint.NameLabel].Caption = RandomName(random);
  }
}

// A load in tenths, which are never half-way between two tenths.
float RandomLoad(std::mt19937& random) { return static_cast<float>(Pick(random, 4001) - 2000) / 10.0F; }

// The sine of the angle at `tip` in the triangle with the two other points; small for a flat triangle.
double SineAt(const Point& tip, const Point& a, const Point& b) {
  const double ax = double{a.X} - tip.X;
  const double ay = double{a.Y} - tip.Y;
  const double bx = double{b.X} - tip.X;
  const double by = double{b.Y} - tip.Y;
  const double sizes = std::hypot(ax, ay) * std::hypot(bx, by);
  return sizes == 0 ? 0 : std::abs(ax * by - ay * bx) / sizes;
}

Point RandomGridPoint(std::mt19937& random) {
  const auto coordinate = [&] { return static_cast<float>(Pick(random, 61) - 30) * 0.7F; };
  const float x = coordinate();
  return Point{x, coordinate()};
}

class SimpleTruss {
 public:
  explicit SimpleTruss(std::mt19937& random) : random_(random) {
    points_.push_back(RandomGridPoint(random));
    Point second = RandomGridPoint(random);
    while (std::abs(second.X - points_[0].X) < 2 || std::abs(second.Y - points_[0].Y) < 2) {
      second = RandomGridPoint(random);
    }
    points_.push_back(second);
    builder_.Member(points_[0].X, points_[0].Y, second.X, second.Y, RandomName(random));
  }

  void AddJoint() {
    for (;;) {
      const Point tip = RandomGridPoint(random_);
      const Point& a = Existing();
      const Point& b = Existing();
      if (SineAt(tip, a, b) < 0.25) continue;
      bool isNew = true;
      for (const Point& point : points_) isNew = isNew && (point.X != tip.X || point.Y != tip.Y);
      if (!isNew) continue;
      AddMember(tip, a);
      AddMember(tip, b);
      points_.push_back(tip);
      return;
    }
  }

  Truss WithSupportsAndLoads() {
    const auto clampType = static_cast<std::int16_t>(1 + Pick(random_, 4));
    const auto rollerType = static_cast<std::int16_t>(5 + Pick(random_, 4));
    builder_.Clamp(points_[0].X, points_[0].Y, RandomName(random_), RandomName(random_), clampType);
    builder_.Roller(points_[1].X, points_[1].Y, RandomName(random_), rollerType);
    const int numLoads = 1 + Pick(random_, 4);
    for (int i = 0; i < numLoads; ++i) {
      const Point& point = Existing();
      const float fx = RandomLoad(random_);
      builder_.Force(point.X, point.Y, fx, RandomLoad(random_));
    }
    Truss truss = builder_;
    NameJoints(truss, random_);
    return truss;
  }

 private:
  const Point& Existing() {
    return points_[static_cast<std::size_t>(Pick(random_, static_cast<int>(points_.size())))];
  }
  void AddMember(const Point& from, const Point& to) {
    if (OneIn(random_, 2)) {
      builder_.Member(from.X, from.Y, to.X, to.Y, RandomName(random_));
    } else {
      builder_.Member(to.X, to.Y, from.X, from.Y, RandomName(random_));
    }
  }

  std::mt19937& random_;
  std::vector<Point> points_;
  TrussBuilder builder_;
};

}  // namespace

int Pick(std::mt19937& random, int count) {
  return static_cast<int>(random() % static_cast<std::mt19937::result_type>(count));
}

Truss RandomDocument(std::mt19937& random) {
  TrussBuilder builder;
  const int numMembers = Pick(random, 15);
  const int numSupports = Pick(random, 6);
  const int numForces = Pick(random, 6);
  for (int i = 0; i < numMembers; ++i) {
    const Point end1 = RandomPosition(random);
    const Point end2 = OneIn(random, 8) ? end1 : RandomPosition(random);
    builder.Member(end1.X, end1.Y, end2.X, end2.Y, RandomName(random));
    if (OneIn(random, 6)) builder.ThenErased();
  }
  for (int i = 0; i < numSupports; ++i) {
    const Point point = RandomPosition(random);
    const auto type = static_cast<std::int16_t>(1 + Pick(random, LastSupportType));
    const std::string name = RandomName(random);
    builder.Clamp(point.X, point.Y, name, RandomName(random), type);
    if (OneIn(random, 6)) builder.ThenErased();
  }
  for (int i = 0; i < numForces; ++i) {
    const Point point = RandomPosition(random);
    const float fx = OneIn(random, 4) ? 0.0F : RandomLoad(random);
    builder.Force(point.X, point.Y, fx, OneIn(random, 4) ? 0.0F : RandomLoad(random));
    if (OneIn(random, 6)) builder.ThenErased();
  }
  Truss truss = builder;
  NameJoints(truss, random);
  return truss;
}

Truss RandomSimpleTruss(std::mt19937& random, int numJoints) {
  SimpleTruss truss(random);
  for (int j = 3; j <= numJoints; ++j) truss.AddJoint();
  return truss.WithSupportsAndLoads();
}
