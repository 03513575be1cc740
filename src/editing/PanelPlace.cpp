// Some likely places are tried in the order of preference.
#include "editing/PanelPlace.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace {

// Room for the larger handle, a pin or half an arrow head beside the object's line.
constexpr float Gap = 14;

// The stretch of a line, as fractions of its length.
struct Stretch {
  double From = 0, To = 1;
};

// Narrows the stretch to where start + t * step lies in [low, high].
bool Narrow(Stretch& stretch, double start, double step, double low, double high) {
  if (step == 0) return start >= low && start <= high;
  double from = (low - start) / step;
  double to = (high - start) / step;
  if (from > to) std::swap(from, to);
  stretch.From = std::max(stretch.From, from);
  stretch.To = std::min(stretch.To, to);
  return stretch.From <= stretch.To;
}

std::optional<PixelLine> PartInside(const PixelLine& line, const PixelBox& box) {
  const double stepX = double{line.X2} - double{line.X1};
  const double stepY = double{line.Y2} - double{line.Y1};
  Stretch inside;
  if (!Narrow(inside, line.X1, stepX, box.Left, box.Right())) return std::nullopt;
  if (!Narrow(inside, line.Y1, stepY, box.Top, box.Bottom())) return std::nullopt;
  const auto at = [](float start, double step, double t) { return static_cast<float>(start + t * step); };
  return PixelLine{at(line.X1, stepX, inside.From), at(line.Y1, stepY, inside.From),
                   at(line.X1, stepX, inside.To), at(line.Y1, stepY, inside.To)};
}

// What a panel would hide of the line, in pixels; 0 when it is clear of it.
float Hidden(const PixelLine& line, PixelPoint leftTop, PanelSize panel) {
  const float clearance = Gap - 1;
  const PixelBox around{leftTop.X - clearance, leftTop.Y - clearance, panel.Width + 2 * clearance,
                        panel.Height + 2 * clearance};
  const auto part = PartInside(line, around);
  return part ? 1 + std::hypot(part->X2 - part->X1, part->Y2 - part->Y1) : 0;
}

PixelBox BoxAround(const PixelLine& line) {
  return {std::min(line.X1, line.X2), std::min(line.Y1, line.Y2), std::abs(line.X2 - line.X1),
          std::abs(line.Y2 - line.Y1)};
}

PixelPoint NearestInside(PixelPoint point, const PixelBox& room) { return KeptInside(point, {}, room); }

// Right, left, below, above; in the corners beside a sloping line; in the corners of the room.
std::array<PixelPoint, 12> Places(const PixelBox& object, PanelSize panel, const PixelBox& room) {
  const float middleX = object.Left + (object.Width - panel.Width) / 2;
  const float middleY = object.Top + (object.Height - panel.Height) / 2;
  const float right = room.Right() - panel.Width;
  const float bottom = room.Bottom() - panel.Height;
  const float innerRight = object.Right() - panel.Width;
  const float innerBottom = object.Bottom() - panel.Height;
  return {{{object.Right() + Gap, middleY},
           {object.Left - Gap - panel.Width, middleY},
           {middleX, object.Bottom() + Gap},
           {middleX, object.Top - Gap - panel.Height},
           {innerRight, innerBottom},
           {innerRight, object.Top},
           {object.Left, innerBottom},
           {object.Left, object.Top},
           {right, room.Top},
           {room.Left, room.Top},
           {right, bottom},
           {room.Left, bottom}}};
}

}  // namespace

PixelPoint KeptInside(PixelPoint leftTop, PanelSize panel, const PixelBox& room) {
  const auto keep = [](float wanted, float size, float from, float to) {
    return std::max(from, std::min(wanted, to - size));
  };
  return {keep(leftTop.X, panel.Width, room.Left, room.Right()),
          keep(leftTop.Y, panel.Height, room.Top, room.Bottom())};
}

PixelPoint PanelPlace(const PixelLine& object, PanelSize panel, const PixelBox& room) {
  // Of an object that leaves the room only what can be seen matters.
  const auto onPaper = PartOnPaper(object);
  auto visible = onPaper ? PartInside(*onPaper, room) : std::nullopt;
  if (!visible) {
    const PixelPoint nearest = NearestInside({OntoPaper(object.X1), OntoPaper(object.Y1)}, room);
    visible = PixelLine{nearest.X, nearest.Y, nearest.X, nearest.Y};
  }
  PixelPoint best;
  std::optional<float> leastHidden;
  for (const PixelPoint& wanted : Places(BoxAround(*visible), panel, room)) {
    const PixelPoint place = KeptInside(wanted, panel, room);
    const float hidden = Hidden(*visible, place, panel);
    if (leastHidden && hidden >= *leastHidden) continue;
    best = place;
    leastHidden = hidden;
  }
  return best;
}

void PanelDrag::Begin(float x, float y) {
  isDragging_ = true;
  grabX_ = x;
  grabY_ = y;
}

PixelPoint PanelDrag::Place(PixelPoint pointer, PanelSize panel, const PixelBox& room) const {
  return KeptInside({pointer.X - grabX_, pointer.Y - grabY_}, panel, room);
}
