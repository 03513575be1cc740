#include "explanation/EqualNames.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "document/JointList.h"
#include "document/SupportReactions.h"

namespace {

class NameGroups {
 public:
  explicit NameGroups(bool areJoints) : areJoints_(areJoints) {}

  void Add(const SharedText& name, std::string bearer, float x, float y) {
    if (name.empty() || name == UnnamedCaption) return;
    const auto [at, isNew] = groups_.emplace(name.View(), all_.size());
    if (isNew)
      all_.push_back({.Name = name.String(), .Bearers = {}, .AreJoints = areJoints_, .X = x, .Y = y});
    EqualNames& group = all_[at->second];
    group.Bearers.push_back(std::move(bearer));
    if (group.Bearers.size() == 2) std::tie(group.X, group.Y) = std::pair(x, y);
  }

  void MoveInto(std::vector<EqualNames>& found) {
    std::ranges::copy_if(all_, std::back_inserter(found),
                         [](const EqualNames& group) { return group.Bearers.size() > 1; });
  }

 private:
  bool areJoints_;
  std::vector<EqualNames> all_;
  std::unordered_map<std::string_view, std::size_t> groups_;  // their letters stay in the truss
};

// Of a support, whose joint is called `joint`.
void AddReactions(const Truss& truss, const SupportRec& support, const std::string& joint,
                  NameGroups& groups) {
  const auto add = [&](int component, LabelIndex label) {
    if (label == 0) return;  // the support is still being drawn
    const bool isAlongX = DirectionOf(support.TypeIndex, component).IsAlongX();
    groups.Add(truss.Name(label), "the reaction at " + joint + (isAlongX ? " along x" : " along y"),
               support.X, support.Y);
  };
  add(1, support.NameLabel1);
  if (support.IsClamp()) add(2, support.NameLabel2);
}

}  // namespace

std::vector<EqualNames> FindEqualNames(const Truss& truss, const TrussGraph& drawn,
                                       const DistinctNames& names) {
  NameGroups joints(true);
  NameGroups forces(false);
  std::unordered_map<PositionKey, int, PositionHash> jointAt;
  for (int j = 1; j <= drawn.NumJoints(); ++j) {
    const PlacedJoint& joint = drawn.Joints[j];
    jointAt.emplace(PositionKey(joint.X, joint.Y), j);
    joints.Add(joint.Name, "the joint at " + names.Place(j), joint.X, joint.Y);
  }
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (!support.Live) continue;
    const auto joint = jointAt.find(PositionKey(support.X, support.Y));
    if (joint != jointAt.end()) AddReactions(truss, support, names.Joint(joint->second), forces);
  }
  for (const PlacedUnknown& member : drawn.Unknowns.First(drawn.NumUnknowns())) {
    const PlacedJoint& a = drawn.Joints[member.JointA];
    const PlacedJoint& b = drawn.Joints[member.JointB];
    forces.Add(member.Name,
               "the member from " + names.Joint(member.JointA) + " to " + names.Joint(member.JointB),
               (a.X + b.X) / 2, (a.Y + b.Y) / 2);
  }
  std::vector<EqualNames> found;
  joints.MoveInto(found);
  forces.MoveInto(found);
  return found;
}
