#include "explanation/EqualNames.h"

#include <functional>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "document/JointList.h"
#include "document/SupportReactions.h"

namespace {

class NameGroups {
 public:
  explicit NameGroups(bool areJoints) : areJoints_(areJoints) {}

  // `bearer` tells in words what has the name.
  void Add(const SharedText& name, std::function<std::string()> bearer, float x, float y) {
    if (name.empty() || name == UnnamedCaption) return;
    const auto [at, isNew] = groups_.emplace(name.View(), all_.size());
    if (isNew) all_.push_back({.Name = name, .X = x, .Y = y});
    Group& group = all_[at->second];
    group.Bearers.push_back(std::move(bearer));
    if (group.Bearers.size() == 2) std::tie(group.X, group.Y) = std::pair(x, y);
  }

  void TellInto(std::vector<EqualNames>& found) const {
    for (const Group& group : all_) {
      if (group.Bearers.size() < 2) continue;
      EqualNames equal{
          .Name = group.Name, .Bearers = {}, .AreJoints = areJoints_, .X = group.X, .Y = group.Y};
      for (const auto& bearer : group.Bearers) equal.Bearers.push_back(bearer());
      found.push_back(std::move(equal));
    }
  }

 private:
  struct Group {
    SharedText Name;
    std::vector<std::function<std::string()>> Bearers{};
    float X = 0, Y = 0;
  };

  bool areJoints_;
  std::vector<Group> all_;
  std::unordered_map<std::string_view, std::size_t> groups_;  // their letters stay in the truss
};

// Of a support, whose joint is called `joint`.
void AddReactions(const Truss& truss, const SupportRec& support, const SharedText& joint,
                  NameGroups& groups) {
  const auto add = [&](int component, LabelIndex label) {
    if (label == 0) return;  // the support is still being drawn
    const bool isAlongX = DirectionOf(support.TypeIndex, component).IsAlongX();
    groups.Add(
        truss.Name(label),
        [joint, isAlongX] { return "the reaction at " + joint + (isAlongX ? " along x" : " along y"); },
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
    joints.Add(
        joint.Name, [&names, j] { return "the joint at " + names.Place(j); }, joint.X, joint.Y);
  }
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (!support.Live) continue;
    const auto joint = jointAt.find(PositionKey(support.X, support.Y));
    if (joint != jointAt.end()) AddReactions(truss, support, names.Joint(joint->second), forces);
  }
  for (const PlacedUnknown& member : drawn.Unknowns.First(drawn.NumUnknowns())) {
    const PlacedJoint& a = drawn.Joints[member.JointA];
    const PlacedJoint& b = drawn.Joints[member.JointB];
    forces.Add(
        member.Name,
        [&names, &member] {
          return "the member from " + names.Joint(member.JointA) + " to " + names.Joint(member.JointB);
        },
        (a.X + b.X) / 2, (a.Y + b.Y) / 2);
  }
  std::vector<EqualNames> found;
  joints.TellInto(found);
  forces.TellInto(found);
  return found;
}
