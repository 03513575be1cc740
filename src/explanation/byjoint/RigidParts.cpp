#include "explanation/byjoint/RigidParts.h"

#include <algorithm>

namespace {

class PartGrower {
 public:
  explicit PartGrower(const TrussBalance& balance)
      : balance_(balance),
        isTaken_(balance.Graph().NumUnknowns()),
        partOf_(balance.Graph().NumJoints()),
        heldBy_(balance.Graph().NumJoints()),
        heldIn_(balance.Graph().NumJoints()) {}

  std::vector<std::vector<int>> All() {
    std::vector<std::vector<int>> parts;
    for (int k = 1; k <= isTaken_.Size(); ++k) {
      const PlacedUnknown& member = balance_.Graph().Unknowns[k];
      if (!member.IsMember() || !balance_.Acts(k) || isTaken_[k] != 0) continue;
      std::vector<int> part = GrowFrom(member.JointA, member.JointB);
      if (part.size() < 3) continue;
      std::ranges::sort(part);
      parts.push_back(std::move(part));
    }
    return parts;
  }

 private:
  std::vector<int> GrowFrom(int a, int b) {
    ++number_;
    part_ = {a, b};
    partOf_[a] = partOf_[b] = number_;
    for (std::size_t i = 0; i < part_.size(); ++i) Hold(part_[i]);
    return part_;
  }

  // The joint's members hold their other ends; who is held twice, out of line, joins the part.
  void Hold(int joint) {
    for (const int k : balance_.ActingAt(joint)) {
      const PlacedUnknown& member = balance_.Graph().Unknowns[k];
      if (!member.IsMember()) continue;
      const int far = member.JointA == joint ? member.JointB : member.JointA;
      if (partOf_[far] == number_) {
        isTaken_[k] = 1;
      } else if (heldIn_[far] != number_) {
        heldIn_[far] = number_;
        heldBy_[far] = k;
      } else if (!balance_.AreParallel(heldBy_[far], k)) {
        partOf_[far] = number_;
        part_.push_back(far);
        isTaken_[k] = 1;
      }
    }
  }

  const TrussBalance& balance_;
  Table<char> isTaken_;
  Table<int> partOf_;  // the number of the last part that a joint joined
  Table<int> heldBy_;  // the first member by which the part numbered heldIn_ holds a joint
  Table<int> heldIn_;
  std::vector<int> part_;
  int number_ = 0;
};

}  // namespace

std::vector<std::vector<int>> RigidParts(const TrussBalance& balance) { return PartGrower(balance).All(); }
