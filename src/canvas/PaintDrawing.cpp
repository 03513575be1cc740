// One procedure for each layer, from back to front.
#include "canvas/PaintDrawing.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "canvas/ForceArrows.h"
#include "canvas/SupportPicture.h"

namespace {

using RectangleCorners = std::array<PixelPoint, 4>;

RectangleCorners Rectangle(float left, float top, float width, float height) {
  const float x1 = OntoPaper(left);
  const float y1 = OntoPaper(top);
  const float x2 = OntoPaper(left + width);
  const float y2 = OntoPaper(top + height);
  return {{{x1, y1}, {x2, y1}, {x2, y2}, {x1, y2}}};
}

// Whether a label, by its index, names a joint.
using JointLabels = std::vector<bool>;

JointLabels FindJointLabels(const Drawing& drawing, const Truss& truss) {
  JointLabels isOfJoint(static_cast<std::size_t>(drawing.lblRodJoint.Size()) + 1);
  for (const JointRec& joint : truss.JointsInUse()) {
    const auto label = static_cast<std::size_t>(joint.NameLabel);
    if (label < isOfJoint.size()) isOfJoint[label] = true;
  }
  return isOfJoint;
}

void PaintLabelPaper(Surface& surface, const LabelPlace& place) {
  surface.FillPolygon(Rectangle(place.Left, place.Top, place.Width, place.Height), White);
}

// A joint's name covers its members, but neither its pin nor its support, on which it stands.
void PaintJointPapers(Surface& surface, const Drawing& drawing, const JointLabels& isOfJoint) {
  for (int i = 1; i <= drawing.lblRodJoint.Size(); ++i) {
    const LabelPlace& place = drawing.lblRodJoint[i];
    if (!place.Visible || !isOfJoint[static_cast<std::size_t>(i)]) continue;
    // Members that run along the name's left or top edge keep their whole width.
    constexpr float leastInset = RodLineWidth;
    const float left = std::max(leastInset, place.TextLeft - RimWidth);
    const float top = std::max(leastInset, place.TextTop);
    surface.FillPolygon(Rectangle(place.Left + left, place.Top + top, place.Width - left, place.Height - top),
                        White);
  }
}

void PaintRods(Surface& surface, const Drawing& drawing, const Truss& truss) {
  surface.SetLineWidth(RodLineWidth);
  for (int i = 1; i <= truss.NumMembers; ++i) {
    if (IsRodShown(drawing, truss, i)) DrawLine(surface, drawing.Rod[i]);
  }
  surface.SetLineWidth(MemberWidthUnderForce);
  for (const PixelLine& part : MemberPartsUnderForces(drawing, truss)) DrawLine(surface, part);
  surface.SetLineWidth(1);
}

// All pins look the same, and several members meet at most joints: one pin a place is enough.
void PaintPins(Surface& surface, const Drawing& drawing, const Truss& truss) {
  std::vector<PixelPoint> places;
  for (int i = 1; i <= truss.NumMembers; ++i) {
    if (!IsRodShown(drawing, truss, i) || !HasPins(drawing, i)) continue;
    places.push_back(drawing.Pin1[i]);
    places.push_back(drawing.Pin2[i]);
  }
  std::ranges::sort(places, {}, [](const PixelPoint& place) { return std::pair(place.X, place.Y); });
  places.erase(std::unique(places.begin(), places.end()), places.end());

  constexpr float radius = PinSize / 2;
  for (const PixelPoint& place : places) {
    PaintCircle(surface, OntoPaper(place.X + radius), OntoPaper(place.Y + radius), radius, White);
  }
}

void PaintSupports(Surface& surface, const Drawing& drawing, const Truss& truss) {
  for (int i = 1; i <= truss.NumSupports; ++i) {
    if (!IsSupportShown(drawing, truss, i)) continue;
    PaintSupportPicture(surface, truss.Supports[i].TypeIndex, drawing.Support[i].X, drawing.Support[i].Y);
  }
}

void PaintArrows(Surface& surface, const Drawing& drawing) {
  for (const ArrowSegment& segment : drawing.ArLin.First(drawing.ArLin.Size())) {
    if (segment.Visible) DrawLine(surface, segment.Line);
  }
}

void PaintForceName(Surface& surface, const LabelPlace& place, const NameLabel& name) {
  PaintLabelPaper(surface, place);
  surface.SetFont({.Points = name.FontSize, .Bold = name.Bold});
  surface.PrintText(OntoPaper(place.Left + place.TextLeft), OntoPaper(place.Top + place.TextTop),
                    name.Caption);
}

void PaintJointName(Surface& surface, const LabelPlace& place, const NameLabel& name, bool withRim) {
  const float left = OntoPaper(place.Left + place.TextLeft);
  const float top = OntoPaper(place.Top + place.TextTop);
  surface.SetFont({.Points = name.FontSize, .Bold = name.Bold});
  if (withRim) {
    surface.PrintTextWithRim(left, top, name.Caption, Black);
  } else {
    surface.PrintText(left, top, name.Caption);
  }
}

void PaintLabels(Surface& surface, const Drawing& drawing, const Truss& truss, const JointLabels& isOfJoint) {
  std::vector<int> visible;
  for (int i = 1; i <= drawing.lblRodJoint.Size(); ++i) {
    if (drawing.lblRodJoint[i].Visible) visible.push_back(i);
  }
  std::ranges::sort(visible, {}, [&drawing](int i) { return drawing.lblRodJoint[i].Rank; });
  const bool withRims = truss.NumJoints <= MostRims;
  for (const int i : visible) {
    const LabelPlace& place = drawing.lblRodJoint[i];
    if (isOfJoint[static_cast<std::size_t>(i)]) {
      PaintJointName(surface, place, truss.Labels[i], withRims);
    } else {
      PaintForceName(surface, place, truss.Labels[i]);
    }
  }
  surface.SetFont(TextFont{});
}

void PaintHandle(Surface& surface, const MoveHandle& handle, float size) {
  if (handle.Visible) surface.FillPolygon(Rectangle(handle.Left, handle.Top, size, size), Black);
}

}  // namespace

void PaintDrawing(Surface& surface, const Drawing& drawing, const Truss& truss) {
  surface.SetForeground(Black);
  PaintRods(surface, drawing, truss);
  const JointLabels isOfJoint = FindJointLabels(drawing, truss);
  PaintJointPapers(surface, drawing, isOfJoint);
  PaintSupports(surface, drawing, truss);
  DrawForcesOverMembers(surface, drawing, truss);
  PaintPins(surface, drawing, truss);
  PaintArrows(surface, drawing);
  PaintLabels(surface, drawing, truss, isOfJoint);
  PaintHandle(surface, drawing.MoveHandleB, MoveHandleBSize);
  PaintHandle(surface, drawing.MoveHandleS, MoveHandleSSize);
}
