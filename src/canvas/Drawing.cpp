// Visibility is decided from the elements that own labels and arrows, so that a label that was taken over by
// a new element never follows the erased one that had it before.
#include "canvas/Drawing.h"

#include <algorithm>

#include "document/Labels.h"

namespace {

void HideAllLabels(Drawing& drawing) {
  for (LabelPlace& label : drawing.lblRodJoint.First(drawing.lblRodJoint.Size())) label.Visible = false;
  for (ArrowSegment& segment : drawing.ArLin.First(drawing.ArLin.Size())) segment.Visible = false;
}

void ShowLabel(Drawing& drawing, const Truss& truss, LabelIndex label) {
  if (label < 1 || label > drawing.lblRodJoint.Size()) return;
  if (drawing.lblRodJoint[label].Rank == 0 || truss.Labels[label].Tag == DeletedTag) return;
  drawing.lblRodJoint[label].Visible = true;
}

void ShowArrow(Drawing& drawing, const Truss& truss, int lastSegment) {
  if (lastSegment < SegmentsPerArrow || lastSegment > drawing.ArLin.Size()) return;
  for (int segment = lastSegment - SegmentsPerArrow + 1; segment <= lastSegment; ++segment) {
    drawing.ArLin[segment].Visible = truss.ArrowLineTags[segment] != DeletedTag;
  }
}

bool IsWithin(PixelPoint point, PixelPoint topLeft, PixelPoint bottomRight) {
  return point.X >= topLeft.X && point.X <= bottomRight.X && point.Y >= topLeft.Y && point.Y <= bottomRight.Y;
}

}  // namespace

void FitTables(Drawing& drawing, const Truss& truss) {
  drawing.Rod.Resize(truss.NumMembers);
  drawing.Pin1.Resize(truss.NumMembers);
  drawing.Pin2.Resize(truss.NumMembers);
  drawing.Support.Resize(truss.NumSupports);
  drawing.Force.Resize(truss.NumForces);
  drawing.lblRodJoint.Resize(truss.NumLabels);
  drawing.ArLin.Resize(truss.NumArrowLines);
}

bool IsRodShown(const Drawing& drawing, const Truss& truss, int member) {
  return member <= drawing.Rod.Size() && truss.Members[member].Live && !drawing.Mapping.IsEmpty();
}

bool HasPins(const Drawing& drawing, int member) { return member <= drawing.Pin1.Size(); }

bool IsSupportShown(const Drawing& drawing, const Truss& truss, int support) {
  return support <= drawing.Support.Size() && truss.Supports[support].Live && !drawing.Mapping.IsEmpty();
}

bool IsForceShown(const Drawing& drawing, const Truss& truss, int force) {
  return force <= drawing.Force.Size() && truss.Forces[force].Active && !drawing.Mapping.IsEmpty();
}

void BringLabelToFront(Drawing& drawing, LabelIndex label) {
  drawing.lblRodJoint[label].Rank = ++drawing.FrontRank;
}

void ShowLabels(Drawing& drawing, const Truss& truss) {
  HideAllLabels(drawing);
  drawing.LabelsShown = true;
  if (drawing.Mapping.IsEmpty()) return;
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (!support.Live) continue;
    ShowLabel(drawing, truss, support.NameLabel1);
    ShowArrow(drawing, truss, support.ArrowLine1);
    if (!support.IsClamp()) continue;
    ShowLabel(drawing, truss, support.NameLabel2);
    ShowArrow(drawing, truss, support.ArrowLine2);
  }
  for (const MemberRec& member : truss.MembersInUse()) {
    if (!member.Live) continue;
    ShowLabel(drawing, truss, member.NameLabel1);
    ShowLabel(drawing, truss, member.NameLabel2);
    ShowArrow(drawing, truss, member.ArrowLine1);
    ShowArrow(drawing, truss, member.ArrowLine2);
  }
  for (const JointRec& joint : truss.JointsInUse()) ShowLabel(drawing, truss, joint.NameLabel);
}

void HideLabels(Drawing& drawing) {
  HideAllLabels(drawing);
  drawing.LabelsShown = false;
}

LabelIndex LabelAt(const Drawing& drawing, float x, float y) {
  int topmost = 0;
  std::int64_t rank = 0;
  for (int i = 1; i <= drawing.lblRodJoint.Size(); ++i) {
    const LabelPlace& label = drawing.lblRodJoint[i];
    if (!label.Visible || label.Rank <= rank) continue;
    if (x < label.Left || x >= label.Left + label.Width) continue;
    if (y < label.Top || y >= label.Top + label.Height) continue;
    topmost = i;
    rank = label.Rank;
  }
  return static_cast<LabelIndex>(topmost);
}

int NumLabelsOutside(const Drawing& drawing, PixelPoint topLeft, PixelPoint bottomRight) {
  const auto isOutside = [&](const LabelPlace& label) {
    const PixelPoint middle{label.Left + label.Width / 2, label.Top + label.Height / 2};
    return label.Visible && !IsWithin(middle, topLeft, bottomRight);
  };
  const auto labels = drawing.lblRodJoint.First(drawing.lblRodJoint.Size());
  return static_cast<int>(std::ranges::count_if(labels, isOutside));
}

bool IsTrussOutside(const Drawing& drawing, const Truss& truss, PixelPoint topLeft, PixelPoint bottomRight) {
  const auto isOutside = [&](PixelPoint point) { return !IsWithin(point, topLeft, bottomRight); };
  const auto reachesOut = [&](const PixelLine& line) {
    return isOutside(line.End1()) || isOutside(line.End2());
  };
  const auto drawn = [](const auto& table, int count) { return std::min<int>(count, table.Size()); };
  constexpr float half = SupportPictureSize / 2;
  for (int i = 1; i <= drawn(drawing.Rod, truss.NumMembers); ++i) {
    if (truss.Members[i].Live && reachesOut(drawing.Rod[i])) return true;
  }
  for (int i = 1; i <= drawn(drawing.Support, truss.NumSupports); ++i) {
    const PixelPoint picture = drawing.Support[i];
    if (truss.Supports[i].Live && isOutside({picture.X + half, picture.Y + half})) return true;
  }
  for (int i = 1; i <= drawn(drawing.Force, truss.NumForces); ++i) {
    if (truss.Forces[i].Active && reachesOut(drawing.Force[i])) return true;
  }
  return false;
}

void Deselect(Drawing& drawing) {
  drawing.OpenPanel = ValuePanel::None;
  drawing.MoveHandleB.Visible = false;
  drawing.MoveHandleS.Visible = false;
  drawing.SupportsEnabled = true;
}
