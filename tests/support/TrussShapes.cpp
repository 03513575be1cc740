// The generators of trusses, and their equations.
#include "support/TrussShapes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <map>
#include <numbers>
#include <numeric>
#include <random>
#include <set>

namespace {

int NumJointsFor(int numUnknowns) { return std::max(numUnknowns / 2, 3); }

void AddLoads(TrussShape& shape) {
  const int numJoints = static_cast<int>(shape.Joints.size());
  for (int joint = 2; joint < numJoints; joint += 8) {
    const auto direction = static_cast<float>(joint % 3 - 1);
    shape.Loads.push_back({joint, direction, -10 - static_cast<float>(joint % 5)});
  }
}

/// The nearly square grid that has `numJoints` joints, the last row perhaps shorter; joints row by row.
int AddGridJoints(TrussShape& shape, int numJoints) {
  const int width = static_cast<int>(std::ceil(std::sqrt(static_cast<double>(numJoints))));
  for (int joint = 0; joint < numJoints; ++joint) {
    shape.Joints.push_back({static_cast<float>(joint % width), static_cast<float>(joint / width)});
  }
  return width;
}

template <class Random>
TrussShape::Joint JointAnywhere(Random& random) {
  const auto below = [&random](unsigned bound) { return static_cast<float>(random() % bound); };
  const float x = below(100000) / 100;
  return {x, below(100000) / 100};
}

struct Triangle {
  std::array<int, 3> Joints;
};

// Whether a point lies inside the circle through the corners.
bool IsInCircle(const TrussShape::Joint& at, const TrussShape::Joint& a, const TrussShape::Joint& b,
                const TrussShape::Joint& c) {
  const auto from = [&at](const TrussShape::Joint& joint) {
    const double x = static_cast<double>(joint.X) - static_cast<double>(at.X);
    const double y = static_cast<double>(joint.Y) - static_cast<double>(at.Y);
    return std::array{x, y, x * x + y * y};
  };
  const auto p = from(a);
  const auto q = from(b);
  const auto r = from(c);
  const double circle = p[0] * (q[1] * r[2] - r[1] * q[2]) - p[1] * (q[0] * r[2] - r[0] * q[2]) +
                        p[2] * (q[0] * r[1] - r[0] * q[1]);
  const double turn = (q[0] - p[0]) * (r[1] - p[1]) - (q[1] - p[1]) * (r[0] - p[0]);
  return circle * turn > 0;
}

// Joint after joint: the triangles whose circles it lies in go, and their outline is joined to it. The last
// three joints are the corners of one triangle around all.
std::vector<Triangle> Triangulation(const std::vector<TrussShape::Joint>& joints) {
  const int outer = static_cast<int>(joints.size()) - 3;
  std::vector<Triangle> triangles{{{outer, outer + 1, outer + 2}}};
  const auto at = [&joints](int joint) { return joints[static_cast<std::size_t>(joint)]; };
  for (int joint = 0; joint < outer; ++joint) {
    std::map<std::pair<int, int>, int> sides;  // how many of the triangles that go have it
    std::erase_if(triangles, [&](const Triangle& triangle) {
      const auto& [a, b, c] = triangle.Joints;
      if (!IsInCircle(at(joint), at(a), at(b), at(c))) return false;
      for (const auto& [one, other] : {std::pair{a, b}, {b, c}, {c, a}}) ++sides[std::minmax({one, other})];
      return true;
    });
    for (const auto& [side, times] : sides) {
      if (times == 1) triangles.push_back({{side.first, side.second, joint}});
    }
  }
  return triangles;
}

}  // namespace

TrussShape WarrenStrip(int numUnknowns) {
  TrussShape shape;
  const int numJoints = NumJointsFor(numUnknowns);
  for (int joint = 0; joint < numJoints; ++joint) {
    const float y = joint % 2 == 0 ? 0.0F : std::sqrt(3.0F);
    shape.Joints.push_back({static_cast<float>(joint), y});
    if (joint >= 1) shape.Members.emplace_back(joint - 1, joint);
    if (joint >= 2) shape.Members.emplace_back(joint - 2, joint);
  }
  shape.RollerJoint = (numJoints - 1) / 2 * 2;
  AddLoads(shape);
  return shape;
}

TrussShape RandomSimpleTruss(int numUnknowns, unsigned seed) {
  TrussShape shape;
  std::mt19937 random(seed);
  const auto below = [&random](int bound) {
    return static_cast<int>(random() % static_cast<unsigned>(bound));
  };
  const int numJoints = NumJointsFor(numUnknowns);
  for (int joint = 0; joint < numJoints; ++joint) {
    shape.Joints.push_back(JointAnywhere(random));
    if (joint == 0) continue;
    const int first = below(joint);
    shape.Members.emplace_back(first, joint);
    if (joint == 1) continue;
    const int second = (first + 1 + below(joint - 1)) % joint;
    shape.Members.emplace_back(second, joint);
  }
  AddLoads(shape);
  return shape;
}

TrussShape TriangulatedGrid(int numUnknowns) {
  TrussShape shape;
  const int numJoints = NumJointsFor(numUnknowns);
  const int width = AddGridJoints(shape, numJoints);
  for (int joint = 1; joint < numJoints; ++joint) {
    if (joint % width > 0) shape.Members.emplace_back(joint - 1, joint);
    if (joint >= width) shape.Members.emplace_back(joint - width, joint);
    if (joint % width > 0 && joint >= width) shape.Members.emplace_back(joint - width - 1, joint);
  }
  const auto numMembers = static_cast<std::size_t>(2 * numJoints - 3);
  if (shape.Members.size() > numMembers) shape.Members.resize(numMembers);
  AddLoads(shape);
  return shape;
}

TrussShape BracedGrid(int numUnknowns) {
  TrussShape shape;
  const int numJoints = NumJointsFor(numUnknowns);
  const int width = AddGridJoints(shape, numJoints);
  for (int joint = 1; joint < numJoints; ++joint) {
    const int column = joint % width;
    if (column > 0) shape.Members.emplace_back(joint - 1, joint);
    if (joint >= width) shape.Members.emplace_back(joint - width, joint);
    // Diagonals in the first row and in the first column of cells keep every other cell square.
    if (column > 0 && joint >= width && (column == 1 || joint < 2 * width)) {
      shape.Members.emplace_back(joint - width - 1, joint);
    }
  }
  // A last row of a single joint hangs by one member.
  if (shape.NumUnknowns() < shape.NumEquations())
    shape.Members.emplace_back(numJoints - 1, numJoints - width);
  AddLoads(shape);
  return shape;
}

TrussShape DelaunayTruss(int numUnknowns, unsigned seed) {
  TrussShape shape;
  std::mt19937 random(seed);
  const int numJoints = std::max(numUnknowns / 3, 3);
  for (int joint = 0; joint < numJoints; ++joint) shape.Joints.push_back(JointAnywhere(random));
  std::vector<TrussShape::Joint> joints = shape.Joints;
  joints.insert(joints.end(), {{-1e5F, -1e5F}, {1e5F, -1e5F}, {0, 1e5F}});
  std::set<std::pair<int, int>> members;
  for (const Triangle& triangle : Triangulation(joints)) {
    const auto& [a, b, c] = triangle.Joints;
    for (const auto& [one, other] : {std::pair{a, b}, {b, c}, {c, a}}) {
      if (std::max(one, other) < numJoints) members.insert(std::minmax({one, other}));
    }
  }
  shape.Members.assign(members.begin(), members.end());
  AddLoads(shape);
  return shape;
}

TrussShape TwoTours(int numUnknowns, unsigned seed) {
  TrussShape shape;
  std::mt19937 random(seed);
  const int numJoints = std::max(numUnknowns / 2, 5);
  for (int joint = 0; joint < numJoints; ++joint) shape.Joints.push_back(JointAnywhere(random));
  std::vector<int> tour(static_cast<std::size_t>(numJoints));
  std::iota(tour.begin(), tour.end(), 0);
  std::set<std::pair<int, int>> members;
  for (int time = 0; time < 2; ++time) {
    for (std::size_t i = tour.size() - 1; i > 0; --i) std::swap(tour[i], tour[random() % (i + 1)]);
    for (std::size_t i = 0; i < tour.size(); ++i)
      members.insert(std::minmax({tour[i], tour[(i + 1) % tour.size()]}));
  }
  shape.Members.assign(members.begin(), members.end());
  // As many as make the numbers of unknowns and equations equal.
  shape.Members.resize(std::min(shape.Members.size(), static_cast<std::size_t>(2 * numJoints - 3)));
  AddLoads(shape);
  return shape;
}

TrussShape CompleteTruss(int numUnknowns) {
  TrussShape shape;
  int numJoints = 3;
  while ((numJoints + 1) * numJoints / 2 + 3 <= numUnknowns) ++numJoints;
  for (int joint = 0; joint < numJoints; ++joint) {
    const double angle = 2 * std::numbers::pi * joint / numJoints;
    shape.Joints.push_back(
        {static_cast<float>(1000 * std::cos(angle)), static_cast<float>(1000 * std::sin(angle))});
    for (int other = 0; other < joint; ++other) shape.Members.emplace_back(other, joint);
  }
  AddLoads(shape);
  return shape;
}

TrussShape GappedStrip(int numUnknowns) {
  TrussShape shape = WarrenStrip(numUnknowns);
  std::size_t number = 0;
  std::erase_if(shape.Members, [&number](const auto&) { return ++number % 4 == 0; });
  return shape;
}

const std::vector<NamedShape>& AllShapes() {
  static const std::vector<NamedShape> shapes = {
      {"Warren strip", WarrenStrip},
      {"random simple truss", [](int numUnknowns) { return RandomSimpleTruss(numUnknowns, 1); }},
      {"triangulated grid", TriangulatedGrid},
      {"braced grid", BracedGrid},
      {"Delaunay triangulation", [](int numUnknowns) { return DelaunayTruss(numUnknowns, 1); }},
      {"two random tours", [](int numUnknowns) { return TwoTours(numUnknowns, 1); }},
      {"complete", CompleteTruss},
      {"strip with gaps", GappedStrip}};
  return shapes;
}

SparseMatrix<double> EquationsOf(const TrussShape& shape) {
  const int numEquations = shape.NumEquations();
  const int rightHandSide = shape.NumUnknowns() + 1;
  std::vector<std::map<int, double>> rows(static_cast<std::size_t>(numEquations) + 1);
  const auto cell = [&rows](int joint, int axis, int column) -> double& {
    return rows[static_cast<std::size_t>(2 * joint + 1 + axis)][column];
  };
  cell(shape.ClampJoint, 0, 1) = 1;
  cell(shape.ClampJoint, 1, 2) = 1;
  cell(shape.RollerJoint, 1, 3) = 1;
  int column = 4;
  for (const auto& [from, to] : shape.Members) {
    const TrussShape::Joint& start = shape.Joints[static_cast<std::size_t>(from)];
    const TrussShape::Joint& end = shape.Joints[static_cast<std::size_t>(to)];
    const double dx = static_cast<double>(start.X) - static_cast<double>(end.X);
    const double dy = static_cast<double>(start.Y) - static_cast<double>(end.Y);
    const double length = std::sqrt(dx * dx + dy * dy);
    for (int axis = 0; axis < 2; ++axis) {
      const double share = (axis == 0 ? dx : dy) / length;
      if (share == 0) continue;
      cell(from, axis, column) = share;
      cell(to, axis, column) = -share;
    }
    ++column;
  }
  for (const TrussShape::Load& load : shape.Loads) {
    if (load.Fx != 0) cell(load.AtJoint, 0, rightHandSide) = -static_cast<double>(load.Fx);
    if (load.Fy != 0) cell(load.AtJoint, 1, rightHandSide) = -static_cast<double>(load.Fy);
  }
  SparseMatrix<double> equations(numEquations, rightHandSide);
  for (int row = 1; row <= numEquations; ++row) {
    std::vector<SparseMatrix<double>::Entry> entries;
    for (const auto& [at, value] : rows[static_cast<std::size_t>(row)]) entries.push_back({at, value});
    equations.SetRow(row, std::move(entries));
  }
  return equations;
}
