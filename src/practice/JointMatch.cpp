#include "practice/JointMatch.h"

#include <algorithm>
#include <cmath>
#include <map>

JointMatch::JointMatch(const TrussGraph& key, const TrussGraph& drawn, double nearX, double nearY)
    : key_(key), drawn_(drawn), ofDrawn_(drawn.NumJoints()), nearest_(drawn.NumJoints()) {
  std::vector<Pair> pairs = NearPairs(nearX, nearY);
  std::ranges::sort(pairs);
  Table<char> isTaken(key.NumJoints());
  for (const Pair& pair : pairs) {
    if (nearest_[pair.Drawn] == 0) nearest_[pair.Drawn] = pair.Key;
    if (ofDrawn_[pair.Drawn] != 0 || isTaken[pair.Key] != 0) continue;
    ofDrawn_[pair.Drawn] = pair.Key;
    isTaken[pair.Key] = 1;
  }
}

bool JointMatch::IsExact(int joint) const {
  const PlacedJoint& a = drawn_.Joints[joint];
  const PlacedJoint& b = key_.Joints[ofDrawn_[joint]];
  return a.X == b.X && a.Y == b.Y;
}

// Joints of the key by their x, so that only those nearby are looked at.
std::vector<JointMatch::Pair> JointMatch::NearPairs(double nearX, double nearY) const {
  // Places are singles; what is a tenth in decimals may be a little more in them.
  const auto widened = [](double near) { return near * (1 + 1e-5); };
  nearX = widened(nearX);
  nearY = widened(nearY);
  std::multimap<double, int> byX;
  for (int j = 1; j <= key_.NumJoints(); ++j) byX.emplace(key_.Joints[j].X, j);
  std::vector<Pair> pairs;
  for (int j = 1; j <= drawn_.NumJoints(); ++j) {
    const double x = drawn_.Joints[j].X;
    const double y = drawn_.Joints[j].Y;
    const auto last = byX.upper_bound(x + nearX);
    for (auto found = byX.lower_bound(x - nearX); found != last; ++found) {
      const double dx = found->first - x;
      const double dy = static_cast<double>(key_.Joints[found->second].Y) - y;
      if (std::abs(dy) <= nearY) pairs.push_back({std::hypot(dx, dy), found->second, j});
    }
  }
  return pairs;
}
