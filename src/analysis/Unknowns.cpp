#include "analysis/Unknowns.h"

#include <algorithm>

namespace {

void Append(const Truss& truss, Table<Unknown>& unknownList, LabelIndex label) {
  unknownList.Resize(unknownList.Size() + 1);
  unknownList[unknownList.Size()] = Unknown{label, truss.Name(label)};
}

}  // namespace

void CountUnknowns(const Truss& truss, EquationSystem& system) {
  system.NumReactionForces = 0;
  system.NumMemberForces = 0;
  system.UnknownList.Resize(0);

  for (const SupportRec& support : truss.SupportsInUse()) {
    if (!support.Live) continue;
    Append(truss, system.UnknownList, support.NameLabel1);
    ++system.NumReactionForces;
    if (!support.IsClamp()) continue;
    Append(truss, system.UnknownList, support.NameLabel2);
    ++system.NumReactionForces;
  }
  SortUnknowns(system.UnknownList, 1, system.NumReactionForces);

  for (const MemberRec& member : truss.MembersInUse()) {
    if (!member.Live) continue;
    Append(truss, system.UnknownList, member.NameLabel1);
    ++system.NumMemberForces;
  }
  SortUnknowns(system.UnknownList, system.NumReactionForces + 1, system.NumUnknowns());
}

void SortUnknowns(Table<Unknown>& unknownList, int first, int last) {
  if (last <= first) return;
  const auto entries = unknownList.First(last).subspan(static_cast<std::size_t>(first - 1));
  std::ranges::stable_sort(entries, {}, &Unknown::Name);
}

ColumnMap::ColumnMap(const Table<Unknown>& unknownList) {
  for (int k = 1; k <= unknownList.Size(); ++k) {
    const auto label = static_cast<std::size_t>(unknownList[k].Label);
    if (label >= columnOf_.size()) columnOf_.resize(label + 1);
    if (columnOf_[label] == 0) columnOf_[label] = static_cast<std::int16_t>(k);
  }
}

std::int16_t ColumnMap::Column(LabelIndex label) const {
  const auto index = static_cast<std::size_t>(label);
  return index < columnOf_.size() ? columnOf_[index] : std::int16_t{0};
}
