// A shape of any size as a truss: members m1, m2 ..., reactions Ax, Ay and B.
#pragma once

#include <string>

#include "support/TrussBuilder.h"
#include "support/TrussShapes.h"

inline Truss TrussOf(const TrussShape& shape) {
  const auto at = [&shape](int joint) { return shape.Joints[static_cast<std::size_t>(joint)]; };
  TrussBuilder builder;
  for (const auto& [from, to] : shape.Members) {
    const auto number = std::to_string(&from - &shape.Members.front().first + 1);
    builder.Member(at(from).X, at(from).Y, at(to).X, at(to).Y, "m" + number);
  }
  builder.Clamp(at(shape.ClampJoint).X, at(shape.ClampJoint).Y, "Ax", "Ay");
  builder.Roller(at(shape.RollerJoint).X, at(shape.RollerJoint).Y, "B");
  for (const TrussShape::Load& load : shape.Loads)
    builder.Force(at(load.AtJoint).X, at(load.AtJoint).Y, load.Fx, load.Fy);
  return builder;
}
