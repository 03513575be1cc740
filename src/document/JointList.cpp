// Positions are matched through a hash map; the result is that of scanning the list for each of them.
#include "document/JointList.h"

#include <algorithm>
#include <bit>
#include <optional>
#include <unordered_map>
#include <vector>

#include "document/Labels.h"

PositionKey::PositionKey(float x, float y) {
  const auto bits = [](float coordinate) {
    return std::bit_cast<std::uint32_t>(coordinate == 0 ? 0.0F : coordinate);
  };
  Bits = (std::uint64_t{bits(x)} << 32U) | bits(y);
}

std::size_t PositionHash::operator()(const PositionKey& key) const {
  // Coordinates on a grid differ in few bits; multiplying and folding spreads them.
  const std::uint64_t product = key.Bits * 0x9E3779B97F4A7C15ULL;
  return static_cast<std::size_t>(product ^ (product >> 29U));
}

namespace {

struct CollectedJoints {
  std::vector<JointRec> Joints;
  std::unordered_map<PositionKey, std::size_t, PositionHash> IndexOf;

  void Add(float x, float y) {
    if (IndexOf.emplace(PositionKey(x, y), Joints.size()).second) Joints.push_back(JointRec{x, y, 0});
  }
};

CollectedJoints CountJoints(const Truss& truss) {
  CollectedJoints collected;
  for (const MemberRec& member : truss.MembersInUse()) {
    if (!member.Live) continue;
    collected.Add(member.X1, member.Y1);
    collected.Add(member.X2, member.Y2);
  }
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (support.Live) collected.Add(support.X, support.Y);
  }
  for (const ForceRec& force : truss.ForcesInUse()) {
    if (force.Active) collected.Add(force.X, force.Y);
  }
  return collected;
}

}  // namespace

bool CheckJoints(Truss& truss) {
  CollectedJoints collected = CountJoints(truss);
  if (collected.Joints.size() > static_cast<std::size_t>(MaxJoints)) return false;

  std::vector<LabelIndex> goneLabels;
  for (const JointRec& old : truss.JointsInUse()) {
    const auto found = collected.IndexOf.find(PositionKey(old.X, old.Y));
    if (found == collected.IndexOf.end()) {
      goneLabels.push_back(old.NameLabel);
      continue;
    }
    // Only a file can list one position twice; the later name wins, and the earlier label then names nothing.
    LabelIndex& label = collected.Joints[found->second].NameLabel;
    if (label != 0) goneLabels.push_back(label);
    label = old.NameLabel;
  }

  const auto needed = std::ranges::count(collected.Joints, LabelIndex{0}, &JointRec::NameLabel);
  const int numGone = static_cast<int>(goneLabels.size());
  if (truss.NumLabels + needed > MaxCount && NumFreeLabels(truss) + numGone < needed) return false;

  for (const LabelIndex label : goneLabels) truss.Labels[label].Tag = DeletedTag;
  CreateJointLabels(truss, collected.Joints);
  truss.NumJoints = static_cast<std::int16_t>(collected.Joints.size());
  truss.Joints.GrowTo(truss.NumJoints);
  std::ranges::copy(collected.Joints, truss.JointsInUse().begin());
  return true;
}

void SortJoints(Truss& truss) {
  std::ranges::stable_sort(truss.JointsInUse(), {},
                           [&truss](const JointRec& joint) { return truss.Name(joint.NameLabel).View(); });
}
