// The index rule in one place.
#include "document/Labels.h"

namespace {

bool HasRoom(const Truss& truss, int labels, int arrows) {
  return truss.NumLabels + labels <= MaxCount && truss.NumArrowLines + arrows * SegmentsPerArrow <= MaxCount;
}

LabelIndex NextLabel(Truss& truss) {
  ++truss.NumLabels;
  truss.Labels.GrowTo(truss.NumLabels);
  truss.Labels[truss.NumLabels] = NameLabel{};
  return truss.NumLabels;
}

// The index of the last of the arrow's segments.
std::int16_t NextArrow(Truss& truss) {
  for (int i = 0; i < SegmentsPerArrow; ++i) {
    ++truss.NumArrowLines;
    truss.ArrowLineTags.GrowTo(truss.NumArrowLines);
    truss.ArrowLineTags[truss.NumArrowLines].clear();
  }
  return truss.NumArrowLines;
}

void DeleteArrow(Truss& truss, int lastSegment) {
  for (int i = 0; i < SegmentsPerArrow; ++i) truss.ArrowLineTags[lastSegment - i] = DeletedTag;
}

}  // namespace

bool CreateMemberLabels(Truss& truss, int index) {
  if (!HasRoom(truss, 2, 2)) return false;
  MemberRec& member = truss.Members[index];
  member.NameLabel1 = NextLabel(truss);
  member.NameLabel2 = NextLabel(truss);
  member.ArrowLine1 = NextArrow(truss);
  member.ArrowLine2 = NextArrow(truss);
  return true;
}

bool CreateSupportLabels(Truss& truss, int index) {
  SupportRec& support = truss.Supports[index];
  const int components = support.IsClamp() ? 2 : 1;
  if (!HasRoom(truss, components, components)) return false;
  support.NameLabel1 = NextLabel(truss);
  support.NameLabel2 = support.IsClamp() ? NextLabel(truss) : LabelIndex{0};
  support.ArrowLine1 = NextArrow(truss);
  support.ArrowLine2 = support.IsClamp() ? NextArrow(truss) : std::int16_t{0};
  return true;
}

LabelIndex CreateJointLabel(Truss& truss) {
  if (!HasRoom(truss, 1, 0)) return 0;
  const LabelIndex label = NextLabel(truss);
  truss.Labels[label].FontSize = JointFontSize;
  truss.Labels[label].Bold = true;
  return label;
}

void DeleteMemberLabels(Truss& truss, int index) {
  const MemberRec& member = truss.Members[index];
  truss.Labels[member.NameLabel1].Tag = DeletedTag;
  truss.Labels[member.NameLabel2].Tag = DeletedTag;
  DeleteArrow(truss, member.ArrowLine1);
  DeleteArrow(truss, member.ArrowLine2);
}

void DeleteSupportLabels(Truss& truss, int index) {
  const SupportRec& support = truss.Supports[index];
  truss.Labels[support.NameLabel1].Tag = DeletedTag;
  DeleteArrow(truss, support.ArrowLine1);
  if (!support.IsClamp()) return;
  truss.Labels[support.NameLabel2].Tag = DeletedTag;
  DeleteArrow(truss, support.ArrowLine2);
}
