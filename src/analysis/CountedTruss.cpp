#include "analysis/CountedTruss.h"

#include <algorithm>
#include <utility>

namespace {

template <class Record>
void Append(Table<Record>& table, Record record) {
  table.Resize(table.Size() + 1);
  table[table.Size()] = std::move(record);
}

}  // namespace

CountedTruss CountTruss(const Truss& truss) {
  CountedTruss counted;
  for (const JointRec& joint : truss.JointsInUse()) {
    Append(counted.Joints, CountedJoint{joint.X, joint.Y, joint.NameLabel, truss.Name(joint.NameLabel)});
  }
  for (const MemberRec& member : truss.MembersInUse()) {
    if (member.Live) Append(counted.MemberForces, truss.Name(member.NameLabel1));
  }
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (!support.Live) continue;
    Append(counted.ReactionForces, truss.Name(support.NameLabel1));
    if (support.IsClamp()) Append(counted.ReactionForces, truss.Name(support.NameLabel2));
  }
  return counted;
}

const CountedJoint* JointWithLabel(const CountedTruss& counted, LabelIndex label) {
  const auto joints = counted.Joints.First(counted.Joints.Size());
  const auto found = std::ranges::find(joints, label, &CountedJoint::Label);
  return found == joints.end() ? nullptr : &*found;
}
