#include "editing/ElementPress.h"

#include "editing/Picking.h"
#include "editing/Supports.h"

namespace {

// Along a line: first its middle, which no other end is at, and then places to either side of it.
constexpr float LinePlaces[] = {0.5F, 0.35F, 0.65F, 0.2F, 0.8F, 0.1F, 0.9F};

// On a support's picture: its middle, and then what another one that stands beside it leaves free.
constexpr float PicturePlaces[] = {0.5F, 0.1F, 0.9F};

std::optional<PixelPoint> OnLine(const Truss& truss, const Drawing& drawing, Tool tool, const PixelLine& line,
                                 const Selection& wanted) {
  for (const float t : LinePlaces) {
    const PixelPoint place{line.X1 + t * (line.X2 - line.X1), line.Y1 + t * (line.Y2 - line.Y1)};
    if (ActsOnSupports(tool) && SupportAt(truss, drawing, place.X, place.Y) != 0) continue;
    const Selection hit = ObjectAt(truss, drawing, place.X, place.Y);
    if (hit.Type == wanted.Type && hit.Index == wanted.Index) return place;
  }
  return std::nullopt;
}

std::optional<PixelPoint> OnPicture(const Truss& truss, const Drawing& drawing, int support) {
  const PixelPoint corner = drawing.Support[support];
  for (const float right : PicturePlaces) {
    for (const float down : PicturePlaces) {
      const PixelPoint place{corner.X + right * SupportPictureSize, corner.Y + down * SupportPictureSize};
      if (SupportAt(truss, drawing, place.X, place.Y) == support) return place;
    }
  }
  return std::nullopt;
}

}  // namespace

std::optional<PixelPoint> PlaceToPress(const Truss& truss, const Drawing& drawing, Tool tool, bool dragging,
                                       const Element& element) {
  if (element.Kind == ElementKind::Joint) {
    if (!dragging && !IsDrawingTool(tool)) return std::nullopt;
    const JointRec& joint = truss.Joints[element.Index];
    return PixelPoint{drawing.Mapping.XPixel(joint.X), drawing.Mapping.YPixel(joint.Y)};
  }
  if (dragging) return std::nullopt;
  if (element.Kind == ElementKind::Support)
    return ActsOnSupports(tool) ? OnPicture(truss, drawing, element.Index) : std::nullopt;
  if (!ActsOnLines(tool)) return std::nullopt;
  if (element.Kind == ElementKind::Member)
    return OnLine(truss, drawing, tool, drawing.Rod[element.Index], {ObjectType::Member, element.Index, 0});
  if (element.Kind == ElementKind::Force)
    return OnLine(truss, drawing, tool, drawing.Force[element.Index], {ObjectType::Force, element.Index, 0});
  return std::nullopt;
}
