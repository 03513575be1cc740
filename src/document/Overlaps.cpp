// One pass over each table, with a map from the place to where its count stands.
#include "document/Overlaps.h"

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <utility>

#include "document/JointList.h"

namespace {

struct EndsHash {
  std::size_t operator()(const std::pair<PositionKey, PositionKey>& ends) const {
    const PositionHash hash;
    return hash(ends.first) * 31 + hash(ends.second);
  }
};

// The ends in an order that does not depend on which is the first.
std::pair<PositionKey, PositionKey> EndsOf(const MemberRec& member) {
  const PositionKey end1(member.X1, member.Y1);
  const PositionKey end2(member.X2, member.Y2);
  return end1.Bits <= end2.Bits ? std::pair(end1, end2) : std::pair(end2, end1);
}

template <class Overlap>
void KeepThoseOfSeveral(std::vector<Overlap>& overlaps) {
  std::erase_if(overlaps, [](const Overlap& overlap) { return overlap.Count < 2; });
}

std::vector<SupportOverlap> SupportsByPlace(const Truss& truss) {
  std::vector<SupportOverlap> places;
  std::unordered_map<PositionKey, std::size_t, PositionHash> indexOf;
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (!support.Live) continue;
    const auto [known, isNew] = indexOf.emplace(PositionKey(support.X, support.Y), places.size());
    if (isNew) places.push_back({.X = support.X, .Y = support.Y});
    ++places[known->second].Count;
  }
  return places;
}

std::vector<MemberOverlap> MembersByEnds(const Truss& truss) {
  std::vector<MemberOverlap> pairs;
  std::unordered_map<std::pair<PositionKey, PositionKey>, std::size_t, EndsHash> indexOf;
  for (int i = 1; i <= truss.NumMembers; ++i) {
    if (!truss.Members[i].Live) continue;
    const auto [known, isNew] = indexOf.emplace(EndsOf(truss.Members[i]), pairs.size());
    if (isNew) pairs.push_back({.FirstMember = i});
    ++pairs[known->second].Count;
  }
  return pairs;
}

}  // namespace

Overlaps FindOverlaps(const Truss& truss) {
  Overlaps overlaps{.Supports = SupportsByPlace(truss), .Members = MembersByEnds(truss)};
  KeepThoseOfSeveral(overlaps.Supports);
  KeepThoseOfSeveral(overlaps.Members);
  return overlaps;
}
