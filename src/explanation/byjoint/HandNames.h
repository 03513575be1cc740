// Names that tell forces and joints apart also where the drawing's names do not.
#pragma once

#include <string>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "explanation/TrussGraph.h"

/// The names of a truss. Who has no name ("[ ]" or nothing), or shares it with another, is given with the
/// number that it has among the unknowns or the joints: "[ ]#4".
class HandNames {
 public:
  explicit HandNames(const TrussGraph& graph);

  const std::string& Force(int unknown) const { return forces_[unknown]; }
  const std::string& Joint(int joint) const { return joints_[joint]; }

  /// "AB, BC and CD".
  std::string Forces(const std::vector<int>& unknowns, std::size_t most = 12) const;

  /// "joint A", "joints A and B".
  std::string Joints(const std::vector<int>& joints, std::size_t most = 12) const;

  /// "joint A", or "the point (1.5, 2)" where no joint is.
  std::string Point(double x, double y, const ReportFormat& format) const;

 private:
  const TrussGraph& graph_;
  Table<std::string> forces_, joints_;
};
