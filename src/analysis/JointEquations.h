// The two equilibrium equations of a joint as a student writes them: forces to the right = forces to the
// left, forces up = forces down. They are built from the drawing, not from the matrix, with the same sign
// conventions.
#pragma once

#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "analysis/CountedTruss.h"
#include "document/JointList.h"
#include "document/Truss.h"
#include "platform/NumberFormat.h"

struct JointEquationTexts {
  std::string X;  ///< "forces right = forces left"
  std::string Y;  ///< "forces up = forces down"
};

/// What is attached at each position, so that any number of joints can be reported on without searching the
/// tables again. The truss must outlive it and keep its shape; captions are read when they are needed.
class JointEquations {
 public:
  JointEquations(const Truss& truss, NumberFormat format);

  /// Terms come in the order members, supports, applied forces, each in table order.
  JointEquationTexts ReportOnJoint(const CountedJoint& joint) const;

 private:
  struct Attached {
    std::vector<std::pair<int, int>> MemberEnds;  // member, end
    std::vector<int> Supports;
    std::vector<int> Forces;
  };

  const Truss& truss_;
  NumberFormat format_;
  std::unordered_map<PositionKey, Attached, PositionHash> at_;
};
