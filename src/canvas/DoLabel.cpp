// An arrow beside a name shows the positive direction of the force that the name stands for.
#include "canvas/DoLabel.h"

#include <algorithm>
#include <unordered_map>

#include "canvas/Arrow.h"
#include "canvas/SupportPicture.h"
#include "document/JointList.h"
#include "document/Labels.h"

namespace {

// The side of a support's picture on which an arrow stands. It points at the picture; that of a roller points
// in the direction in which the roller pushes, so it stands on the side of the ground.
using ArrowSide = GroundSide;

// Pixels from a support picture's left and top: where an arrow starts and ends.
struct ArrowOffsets {
  float FromX, FromY, HeadX, HeadY;
};

ArrowOffsets OffsetsOf(ArrowSide side) {
  switch (side) {
    case ArrowSide::Left:
      return {-26, 21, -4, 21};
    case ArrowSide::Below:
      return {21, 58, 21, 36};
    case ArrowSide::Above:
      return {11, -26, 11, -4};
    case ArrowSide::Right:
      break;
  }
  return {58, 21, 36, 21};
}

TextExtent ExtentOf(const Truss& truss, LabelIndex label, const TextMeasure& measure) {
  const NameLabel& name = truss.Labels[label];
  return measure({.Points = name.FontSize, .Bold = name.Bold}, name.Caption);
}

// A label's size, and where its letters stand in it.
struct LabelBox {
  float Width, Height, TextLeft, TextTop;
};

// The letters in the middle of a box with this margin on both sides.
LabelBox BoxAround(const TextExtent& extent, float margin) {
  const float width = std::max(extent.Width, LeastLabelSize);
  return {.Width = width + 2 * margin,
          .Height = std::max(extent.Height, LeastLabelSize),
          .TextLeft = margin + (width - extent.Width) / 2,
          .TextTop = 0};
}

// The letters begin at `inset`.
LabelBox BoxFrom(PixelPoint inset, const TextExtent& extent) {
  return {.Width = inset.X + std::max(extent.Width, LeastLabelSize),
          .Height = inset.Y + std::max(extent.Height, LeastLabelSize),
          .TextLeft = inset.X,
          .TextTop = inset.Y};
}

void PlaceLabel(Drawing& drawing, LabelIndex label, double left, double top, const LabelBox& box) {
  LabelPlace& place = drawing.lblRodJoint[label];
  place.Left = FiniteSingle(left);
  place.Top = FiniteSingle(top);
  place.Width = box.Width;
  place.Height = box.Height;
  place.TextLeft = box.TextLeft;
  place.TextTop = box.TextTop;
  BringLabelToFront(drawing, label);
}

void PlaceReaction(Drawing& drawing, const Truss& truss, const TextMeasure& measure, PixelPoint picture,
                   ArrowSide side, std::int16_t arrowLine, LabelIndex label) {
  const ArrowOffsets offset = OffsetsOf(side);
  const float x = picture.X + offset.FromX;
  const float y = picture.Y + offset.FromY;
  ArrowControl(drawing, arrowLine, x, y, picture.X + offset.HeadX, picture.Y + offset.HeadY, LabelArrowSize);

  // The name stands behind the arrow's tail, in line with it.
  const LabelBox box = BoxAround(ExtentOf(truss, label, measure), ReactionNameMargin);
  switch (side) {
    case ArrowSide::Left:
      PlaceLabel(drawing, label, x - box.Width, y - box.Height / 2, box);
      break;
    case ArrowSide::Right:
      PlaceLabel(drawing, label, x, y - box.Height / 2, box);
      break;
    case ArrowSide::Above:
      PlaceLabel(drawing, label, x - box.Width / 2, y - box.Height, box);
      break;
    case ArrowSide::Below:
      PlaceLabel(drawing, label, x - box.Width / 2, y, box);
      break;
  }
}

void PlaceSupportLabels(Drawing& drawing, const Truss& truss, const TextMeasure& measure, int index) {
  const SupportRec& support = truss.Supports[index];
  const PixelPoint picture = drawing.Support[index];
  if (support.IsClamp()) {
    PlaceReaction(drawing, truss, measure, picture, ArrowSide::Left, support.ArrowLine1, support.NameLabel1);
    PlaceReaction(drawing, truss, measure, picture, ArrowSide::Below, support.ArrowLine2, support.NameLabel2);
  } else {
    PlaceReaction(drawing, truss, measure, picture, GroundSideOf(support.TypeIndex), support.ArrowLine1,
                  support.NameLabel1);
  }
}

// The point that divides the line: `weight1` of end 1 and `weight2` of end 2.
PixelPoint Weighted(const PixelLine& line, double weight1, double weight2) {
  return {FiniteSingle(weight1 * line.X1 + weight2 * line.X2),
          FiniteSingle(weight1 * line.Y1 + weight2 * line.Y2)};
}

// A positive member force is compression: its arrows point into the pins.
void PlaceMemberLabels(Drawing& drawing, const Truss& truss, const TextMeasure& measure, int index) {
  const MemberRec& member = truss.Members[index];
  const PixelLine rod = drawing.Rod[index];
  const PixelPoint tail1 = Weighted(rod, 0.7, 0.3);
  const PixelPoint head1 = Weighted(rod, 0.9, 0.1);
  const PixelPoint tail2 = Weighted(rod, 0.3, 0.7);
  const PixelPoint head2 = Weighted(rod, 0.1, 0.9);
  ArrowControl(drawing, member.ArrowLine1, tail1.X, tail1.Y, head1.X, head1.Y, LabelArrowSize);
  ArrowControl(drawing, member.ArrowLine2, tail2.X, tail2.Y, head2.X, head2.Y, LabelArrowSize);

  // One name is enough for both arrows. The second label shows the same name wherever it is asked for, and
  // has no place on the drawing.
  const PixelPoint middle = Weighted(rod, 0.5, 0.5);
  const LabelBox box = BoxAround(ExtentOf(truss, member.NameLabel1, measure), MemberNameMargin);
  PlaceLabel(drawing, member.NameLabel1, double{middle.X} - box.Width / 2, double{middle.Y} - box.Height / 2,
             box);
}

// How far a support's picture reaches from its centre into the quarter in which a joint's name begins: to the
// right and downward. Its pin is that of the joint.
PixelPoint ReachToName(std::int16_t type) {
  constexpr float centre = SupportPictureSize / 2;
  PixelPoint reach;
  for (const PictureShape& shape : SupportPicture(type)) {
    if (shape.Kind == ShapeKind::Circle) continue;
    for (const PixelPoint& point : shape.Points) {
      if (point.X <= centre || point.Y <= centre) continue;
      reach = {std::max(reach.X, point.X - centre), std::max(reach.Y, point.Y - centre)};
    }
  }
  return reach;
}

// Where the letters of a joint's name begin beside a support: to the right of its picture, or below it where
// the arrow stands on the right.
PixelPoint InsetBeside(const SupportRec& support) {
  const PixelPoint reach = ReachToName(support.TypeIndex);
  const bool arrowOnTheRight = !support.IsClamp() && GroundSideOf(support.TypeIndex) == ArrowSide::Right;
  if (arrowOnTheRight) return {JointNameInset, reach.Y};
  return {std::max(JointNameInset, reach.X + RimWidth + 1), JointNameDrop};
}

using Insets = std::unordered_map<PositionKey, PixelPoint, PositionHash>;

Insets InsetsBesideSupports(const Truss& truss) {
  Insets insets;
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (!support.Live) continue;
    const PixelPoint needed = InsetBeside(support);
    PixelPoint& inset = insets[PositionKey(support.X, support.Y)];
    inset = {std::max(inset.X, needed.X), std::max(inset.Y, needed.Y)};
  }
  return insets;
}

void FitLabelTables(Drawing& drawing, const Truss& truss) {
  drawing.lblRodJoint.GrowTo(truss.NumLabels);
  drawing.ArLin.GrowTo(truss.NumArrowLines);
}

// What is created in a place that an erased element had before starts hidden, like any other.
void ResetLabel(Drawing& drawing, LabelIndex label) { drawing.lblRodJoint[label] = LabelPlace{}; }

void ResetArrow(Drawing& drawing, int lastSegment) {
  for (int i = 0; i < SegmentsPerArrow; ++i) drawing.ArLin[lastSegment - i] = ArrowSegment{};
}

void HideArrow(Drawing& drawing, int lastSegment) {
  for (int i = 0; i < SegmentsPerArrow; ++i) drawing.ArLin[lastSegment - i].Visible = false;
}

// Calls `label` and `arrow` for those that the element has.
template <class LabelAction, class ArrowAction>
void ForEachOf(const Truss& truss, LabelClass labelClass, int index, LabelAction label, ArrowAction arrow) {
  const auto both = [&](const auto& element, bool isPair) {
    label(element.NameLabel1);
    arrow(element.ArrowLine1);
    if (!isPair) return;
    label(element.NameLabel2);
    arrow(element.ArrowLine2);
  };
  if (labelClass == LabelClass::Member) {
    both(truss.Members[index], true);
  } else {
    both(truss.Supports[index], truss.Supports[index].IsClamp());
  }
}

bool CreateLabels(Drawing& drawing, Truss& truss, LabelClass labelClass, int index) {
  const bool created =
      labelClass == LabelClass::Member ? CreateMemberLabels(truss, index) : CreateSupportLabels(truss, index);
  if (!created) return false;
  FitLabelTables(drawing, truss);
  ForEachOf(
      truss, labelClass, index, [&](LabelIndex label) { ResetLabel(drawing, label); },
      [&](int lastSegment) { ResetArrow(drawing, lastSegment); });
  return true;
}

}  // namespace

bool DoLabel(Drawing& drawing, Truss& truss, const TextMeasure& measure, LabelMode mode,
             LabelClass labelClass, int index) {
  if (mode == LabelMode::Create) return CreateLabels(drawing, truss, labelClass, index);
  if (labelClass == LabelClass::Member) {
    PlaceMemberLabels(drawing, truss, measure, index);
  } else {
    PlaceSupportLabels(drawing, truss, measure, index);
  }
  return true;
}

void RemoveLabels(Drawing& drawing, Truss& truss, LabelClass labelClass, int index) {
  if (labelClass == LabelClass::Member) {
    DeleteMemberLabels(truss, index);
  } else {
    DeleteSupportLabels(truss, index);
  }
  FitLabelTables(drawing, truss);
  ForEachOf(
      truss, labelClass, index, [&](LabelIndex label) { drawing.lblRodJoint[label].Visible = false; },
      [&](int lastSegment) { HideArrow(drawing, lastSegment); });
}

void PlaceElementLabels(Drawing& drawing, const Truss& truss, const TextMeasure& measure) {
  // An element that is still being drawn lives, but has no labels yet.
  const auto hasLabels = [](const auto& record) { return record.Live && record.NameLabel1 != 0; };
  for (int i = 1; i <= truss.NumSupports; ++i) {
    if (hasLabels(truss.Supports[i])) PlaceSupportLabels(drawing, truss, measure, i);
  }
  for (int i = 1; i <= truss.NumMembers; ++i) {
    if (hasLabels(truss.Members[i])) PlaceMemberLabels(drawing, truss, measure, i);
  }
}

void PlaceJointLabels(Drawing& drawing, const Truss& truss, const TextMeasure& measure) {
  FitLabelTables(drawing, truss);
  const Insets insets = InsetsBesideSupports(truss);
  for (const JointRec& joint : truss.JointsInUse()) {
    const auto found = insets.find(PositionKey(joint.X, joint.Y));
    const PixelPoint inset =
        found == insets.end() ? PixelPoint{JointNameInset, JointNameDrop} : found->second;
    PlaceLabel(drawing, joint.NameLabel, drawing.Mapping.XPixel(joint.X), drawing.Mapping.YPixel(joint.Y),
               BoxFrom(inset, ExtentOf(truss, joint.NameLabel, measure)));
  }
}

void PlaceNames(Drawing& drawing, const Truss& truss, const TextMeasure& measure) {
  PlaceElementLabels(drawing, truss, measure);
  PlaceJointLabels(drawing, truss, measure);
}

bool RefreshJoints(Drawing& drawing, Truss& truss, const TextMeasure& measure) {
  const bool refreshed = CheckJoints(truss);
  PlaceJointLabels(drawing, truss, measure);
  return refreshed;
}

std::vector<PixelLine> ReactionArrows(float x, float y, std::int16_t type) {
  std::vector<PixelLine> arrows;
  const float left = x - SupportPictureSize / 2;
  const float top = y - SupportPictureSize / 2;
  const auto add = [&](ArrowSide side) {
    const ArrowOffsets offset = OffsetsOf(side);
    arrows.push_back({left + offset.FromX, top + offset.FromY, left + offset.HeadX, top + offset.HeadY});
  };
  if (type > LastClampType) {
    add(GroundSideOf(type));
  } else {
    add(ArrowSide::Left);
    add(ArrowSide::Below);
  }
  return arrows;
}
