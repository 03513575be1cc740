// The generators of trusses, and their equations.
#include "support/TrussShapes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <random>

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
    shape.Joints.push_back(
        {static_cast<float>(below(100000)) / 100, static_cast<float>(below(100000)) / 100});
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
