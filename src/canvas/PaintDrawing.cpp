// One procedure for each layer, from back to front.
#include "canvas/PaintDrawing.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "canvas/SupportPicture.h"
#include "document/JointList.h"

namespace {

using RectangleCorners = std::array<PixelPoint, 4>;

RectangleCorners Rectangle(float left, float top, float width, float height) {
  const float x1 = OntoPaper(left);
  const float y1 = OntoPaper(top);
  const float x2 = OntoPaper(left + width);
  const float y2 = OntoPaper(top + height);
  return {{{x1, y1}, {x2, y1}, {x2, y2}, {x1, y2}}};
}

enum class Names { AForce, AJoint, ASupportedJoint };

// What a label names, by its index.
using LabelKinds = std::vector<Names>;

LabelKinds FindKinds(const Drawing& drawing, const Truss& truss) {
  LabelKinds kinds(static_cast<std::size_t>(drawing.lblRodJoint.Size()) + 1);
  std::unordered_set<PositionKey, PositionHash> supported;
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (support.Live) supported.insert(PositionKey(support.X, support.Y));
  }
  for (const JointRec& joint : truss.JointsInUse()) {
    const auto label = static_cast<std::size_t>(joint.NameLabel);
    if (label >= kinds.size()) continue;
    kinds[label] = supported.contains(PositionKey(joint.X, joint.Y)) ? Names::ASupportedJoint : Names::AJoint;
  }
  return kinds;
}

void PaintLabelPaper(Surface& surface, const LabelPlace& place) {
  surface.FillPolygon(Rectangle(place.Left, place.Top, place.Width, place.Height), White);
}

// A joint's name covers its members, but neither its pin nor its support, on which it stands.
void PaintJointPapers(Surface& surface, const Drawing& drawing, const LabelKinds& kinds) {
  for (int i = 1; i <= drawing.lblRodJoint.Size(); ++i) {
    const LabelPlace& place = drawing.lblRodJoint[i];
    // Members that run along the name's left or top edge keep their whole width.
    constexpr float inset = RodLineWidth;
    const bool isOfJoint = kinds[static_cast<std::size_t>(i)] != Names::AForce;
    if (!place.Visible || !isOfJoint || place.Width <= inset) continue;
    surface.FillPolygon(
        Rectangle(place.Left + inset, place.Top + inset, place.Width - inset, place.Height - inset), White);
  }
}

void PaintRods(Surface& surface, const Drawing& drawing, const Truss& truss) {
  surface.SetLineWidth(RodLineWidth);
  for (int i = 1; i <= truss.NumMembers; ++i) {
    if (IsRodShown(drawing, truss, i)) DrawLine(surface, drawing.Rod[i]);
  }
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
  const auto doubled = std::ranges::unique(places);
  places.erase(doubled.begin(), doubled.end());

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

// A rim of white around the letters, which stand on the picture of a support.
void PaintHalo(Surface& surface, float left, float top, const std::string& name) {
  static constexpr PixelPoint ring[] = {{-2, 0}, {2, 0}, {0, -2},  {0, 2},  {-2, -1}, {-2, 1},
                                        {2, -1}, {2, 1}, {-1, -2}, {1, -2}, {-1, 2},  {1, 2}};
  surface.SetForeground(White);
  for (const PixelPoint& step : ring) surface.PrintText(left + step.X, top + step.Y, name);
  surface.SetForeground(Black);
}

void PaintName(Surface& surface, const LabelPlace& place, const NameLabel& name, Names kind) {
  surface.SetFont({.Points = name.FontSize, .Bold = name.Bold});
  const float left = OntoPaper(kind == Names::AForce ? place.Left : place.Left + JointNameInset);
  const float top = OntoPaper(place.Top);
  if (kind == Names::ASupportedJoint) PaintHalo(surface, left, top, name.Caption);
  surface.PrintText(left, top, name.Caption);
}

void PaintLabels(Surface& surface, const Drawing& drawing, const Truss& truss, const LabelKinds& kinds) {
  std::vector<int> visible;
  for (int i = 1; i <= drawing.lblRodJoint.Size(); ++i) {
    if (drawing.lblRodJoint[i].Visible) visible.push_back(i);
  }
  std::ranges::sort(visible, {}, [&drawing](int i) { return drawing.lblRodJoint[i].Rank; });
  for (const int i : visible) {
    const LabelPlace& place = drawing.lblRodJoint[i];
    const Names kind = kinds[static_cast<std::size_t>(i)];
    if (kind == Names::AForce) PaintLabelPaper(surface, place);
    PaintName(surface, place, truss.Labels[i], kind);
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
  const LabelKinds kinds = FindKinds(drawing, truss);
  PaintJointPapers(surface, drawing, kinds);
  PaintPins(surface, drawing, truss);
  PaintSupports(surface, drawing, truss);
  PaintArrows(surface, drawing);
  PaintLabels(surface, drawing, truss, kinds);
  PaintHandle(surface, drawing.MoveHandleB, MoveHandleBSize);
  PaintHandle(surface, drawing.MoveHandleS, MoveHandleSSize);
}
