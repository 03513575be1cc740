#include "practice/OtherNames.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "document/JointList.h"
#include "practice/SeededNumbers.h"

namespace {

std::vector<std::string> Shuffled(std::vector<std::string> names, SeededNumbers& numbers) {
  for (std::size_t i = names.size(); i > 1; --i)
    std::swap(names[i - 1], names[static_cast<std::size_t>(numbers.Below(static_cast<int>(i)))]);
  return names;
}

using NamesByPlace = std::unordered_map<PositionKey, std::string, PositionHash>;

NamesByPlace JointNames(const Truss& truss) {
  NamesByPlace names;
  for (const JointRec& joint : truss.JointsInUse())
    names.emplace(PositionKey(joint.X, joint.Y), truss.Name(joint.NameLabel).String());
  return names;
}

// The live members' and supports' names, in one order.
struct ForceLabels {
  std::vector<LabelIndex> Members, Reactions;
};

ForceLabels LabelsOf(const Truss& truss) {
  ForceLabels labels;
  for (const MemberRec& member : truss.MembersInUse()) {
    if (member.Live) labels.Members.push_back(member.NameLabel1);
  }
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (!support.Live) continue;
    labels.Reactions.push_back(support.NameLabel1);
    if (support.IsClamp()) labels.Reactions.push_back(support.NameLabel2);
  }
  return labels;
}

// What every force would be called if each joint had the name that `renamed` gives to its present one.
// Nothing when a force is not called by its joints.
class ByJoints {
 public:
  ByJoints(const Truss& truss, const std::map<std::string, std::string>& renamed)
      : truss_(truss), renamed_(renamed), at_(JointNames(truss)) {}

  std::optional<std::map<LabelIndex, std::string>> Names() const {
    std::map<LabelIndex, std::string> names;
    for (const MemberRec& member : truss_.MembersInUse()) {
      if (!member.Live) continue;
      const std::optional<std::string> name = OfMember(member);
      if (!name) return std::nullopt;
      names[member.NameLabel1] = *name;
    }
    for (const SupportRec& support : truss_.SupportsInUse()) {
      if (!support.Live) continue;
      for (const LabelIndex label :
           {support.NameLabel1, support.IsClamp() ? support.NameLabel2 : LabelIndex{0}}) {
        if (label == 0) continue;
        const std::optional<std::string> name = OfReaction(support, truss_.Name(label).String());
        if (!name) return std::nullopt;
        names[label] = *name;
      }
    }
    return names;
  }

 private:
  const std::string& NameAt(float x, float y) const { return at_.at(PositionKey(x, y)); }

  std::optional<std::string> OfMember(const MemberRec& member) const {
    const std::string& a = NameAt(member.X1, member.Y1);
    const std::string& b = NameAt(member.X2, member.Y2);
    const SharedText& name = truss_.Name(member.NameLabel1);
    if (name != a + b && name != b + a) return std::nullopt;
    const std::string& newA = renamed_.at(a);
    const std::string& newB = renamed_.at(b);
    return std::min(newA, newB) + std::max(newA, newB);
  }

  std::optional<std::string> OfReaction(const SupportRec& support, const std::string& name) const {
    const std::string& joint = NameAt(support.X, support.Y);
    if (!name.starts_with(joint)) return std::nullopt;
    return renamed_.at(joint) + name.substr(joint.size());
  }

  const Truss& truss_;
  const std::map<std::string, std::string>& renamed_;
  NamesByPlace at_;
};

void NameForce(Truss& truss, LabelIndex label, const SharedText& name) { truss.Labels[label].Caption = name; }

void ShuffleAmong(Truss& truss, const std::vector<LabelIndex>& labels, SeededNumbers& numbers) {
  std::vector<std::string> names;
  names.reserve(labels.size());
  for (const LabelIndex label : labels) names.push_back(truss.Name(label).String());
  names = Shuffled(std::move(names), numbers);
  for (std::size_t i = 0; i < labels.size(); ++i) NameForce(truss, labels[i], names[i]);
}

}  // namespace

void GiveOtherNames(Truss& truss, std::uint64_t seed) {
  SeededNumbers numbers(seed);
  std::vector<std::string> old;
  for (const JointRec& joint : truss.JointsInUse()) old.push_back(truss.Name(joint.NameLabel).String());
  const std::vector<std::string> shuffled = Shuffled(old, numbers);
  std::map<std::string, std::string> renamed;
  for (std::size_t i = 0; i < old.size(); ++i) renamed.emplace(old[i], shuffled[i]);

  const bool areDistinct = renamed.size() == old.size();
  std::optional<std::map<LabelIndex, std::string>> byJoints;
  if (areDistinct && !renamed.contains("")) byJoints = ByJoints(truss, renamed).Names();
  if (byJoints) {
    for (const auto& [label, name] : *byJoints) NameForce(truss, label, name);
  } else {
    const ForceLabels labels = LabelsOf(truss);
    ShuffleAmong(truss, labels.Members, numbers);
    ShuffleAmong(truss, labels.Reactions, numbers);
  }
  for (MemberRec& member : truss.MembersInUse()) {
    if (member.Live) NameForce(truss, member.NameLabel2, truss.Name(member.NameLabel1));
  }
  std::size_t next = 0;
  for (const JointRec& joint : truss.JointsInUse()) NameForce(truss, joint.NameLabel, shuffled[next++]);
}
