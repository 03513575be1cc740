// Which joint of one drawing is which joint of another one, by their places.
#pragma once

#include <compare>
#include <vector>

#include "document/Table.h"
#include "explanation/TrussGraph.h"

/// A joint of the drawing is that joint of the key that is nearest and near enough in each direction; each
/// joint of the key is one joint of the drawing at most, the nearest.
class JointMatch {
 public:
  /// `nearX` and `nearY` are world units. The graphs must outlive it.
  JointMatch(const TrussGraph& key, const TrussGraph& drawn, double nearX, double nearY);

  /// The key's joint that a joint of the drawing is; 0: none.
  int OfDrawn(int joint) const { return ofDrawn_[joint]; }

  /// The nearest joint of the key, also when another joint of the drawing is that one; 0: none is near.
  int NearestTo(int joint) const { return nearest_[joint]; }

  /// Whether a joint of the drawing has the very place of the joint that it is.
  bool IsExact(int joint) const;

 private:
  struct Pair {
    double Distance;
    int Key, Drawn;
    friend auto operator<=>(const Pair&, const Pair&) = default;
  };
  std::vector<Pair> NearPairs(double nearX, double nearY) const;

  const TrussGraph& key_;
  const TrussGraph& drawn_;
  Table<int> ofDrawn_, nearest_;
};
