#include "canvas/DrawnElements.h"

#include <algorithm>

#include "canvas/PickedLine.h"
#include "canvas/PixelBoxes.h"

namespace {

int CountOf(const Drawing& drawing, const Truss& truss, ElementKind kind) {
  switch (kind) {
    case ElementKind::Member:
      return truss.NumMembers;
    case ElementKind::Joint:
      return truss.NumJoints;
    case ElementKind::Support:
      return truss.NumSupports;
    case ElementKind::Force:
      return truss.NumForces;
    case ElementKind::Label:
      break;
  }
  return std::min<int>(drawing.lblRodJoint.Size(), truss.NumLabels);
}

PixelRect BoxOfLine(const PixelLine& line) {
  return Widened({std::min(line.X1, line.X2), std::min(line.Y1, line.Y2), std::max(line.X1, line.X2),
                  std::max(line.Y1, line.Y2)},
                 PinSize / 2);
}

PixelRect BoxOfJoint(const Graph& mapping, const JointRec& joint) {
  const float x = mapping.XPixel(joint.X);
  const float y = mapping.YPixel(joint.Y);
  return Widened({x, y, x, y}, PinSize / 2);
}

PixelRect BoxOfElement(const Drawing& drawing, const Truss& truss, const Element& element) {
  switch (element.Kind) {
    case ElementKind::Member:
      return BoxOfLine(drawing.Rod[element.Index]);
    case ElementKind::Joint:
      return BoxOfJoint(drawing.Mapping, truss.Joints[element.Index]);
    case ElementKind::Support: {
      const PixelPoint corner = drawing.Support[element.Index];
      return {corner.X, corner.Y, corner.X + SupportPictureSize, corner.Y + SupportPictureSize};
    }
    case ElementKind::Force:
      return BoxOfLine(drawing.Force[element.Index]);
    case ElementKind::Label:
      break;
  }
  const LabelPlace& place = drawing.lblRodJoint[element.Index];
  return {place.Left, place.Top, place.Left + place.Width, place.Top + place.Height};
}

bool IsAt(const Drawing& drawing, const Truss& truss, const Element& element, float x, float y) {
  if (element.Kind == ElementKind::Member) return FractionAt(drawing.Rod[element.Index], x, y).has_value();
  if (element.Kind == ElementKind::Force) return FractionAt(drawing.Force[element.Index], x, y).has_value();
  const PixelRect box = BoxOfElement(drawing, truss, element);
  return x >= box.Left && x < box.Right && y >= box.Top && y < box.Bottom;
}

}  // namespace

bool IsShown(const Drawing& drawing, const Truss& truss, const Element& element) {
  const int index = element.Index;
  if (index < 1 || index > CountOf(drawing, truss, element.Kind) || drawing.Mapping.IsEmpty()) return false;
  switch (element.Kind) {
    case ElementKind::Member:
      return IsRodShown(drawing, truss, index) && HasPins(drawing, index);
    case ElementKind::Joint:
      return true;
    case ElementKind::Support:
      return IsSupportShown(drawing, truss, index);
    case ElementKind::Force:
      return IsForceShown(drawing, truss, index);
    case ElementKind::Label:
      break;
  }
  return drawing.lblRodJoint[index].Visible;
}

std::vector<Element> ShownElements(const Drawing& drawing, const Truss& truss) {
  std::vector<Element> shown;
  for (const ElementKind kind : {ElementKind::Member, ElementKind::Joint, ElementKind::Support,
                                 ElementKind::Force, ElementKind::Label}) {
    const int count = CountOf(drawing, truss, kind);
    for (int i = 1; i <= count; ++i) {
      if (IsShown(drawing, truss, {kind, i})) shown.push_back({kind, i});
    }
  }
  return shown;
}

std::optional<PixelRect> BoxOf(const Drawing& drawing, const Truss& truss, const Element& element) {
  if (!IsShown(drawing, truss, element)) return std::nullopt;
  const PixelRect box = BoxOfElement(drawing, truss, element);
  return PixelRect{OntoPaper(box.Left), OntoPaper(box.Top), OntoPaper(box.Right), OntoPaper(box.Bottom)};
}

std::optional<Element> ElementAt(const Drawing& drawing, const Truss& truss, float x, float y) {
  if (const LabelIndex label = LabelAt(drawing, x, y)) return Element{ElementKind::Label, label};
  for (const ElementKind kind :
       {ElementKind::Joint, ElementKind::Support, ElementKind::Force, ElementKind::Member}) {
    for (int i = CountOf(drawing, truss, kind); i >= 1; --i) {
      const Element element{kind, i};
      if (IsShown(drawing, truss, element) && IsAt(drawing, truss, element, x, y)) return element;
    }
  }
  return std::nullopt;
}
