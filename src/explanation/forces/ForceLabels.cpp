// Each text tries one place after the other, the best first, and takes the first that is free. So no text
// ever covers anything, and the order in which they choose decides who goes without.
#include "explanation/forces/ForceLabels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <numeric>

#include "canvas/Arrow.h"
#include "canvas/Drawing.h"
#include "canvas/PixelBoxes.h"
#include "canvas/SupportPicture.h"
#include "document/Truss.h"
#include "explanation/forces/TextPlacer.h"

namespace {

// Pixels between a text and what it is beside, and around everything that it must not touch.
constexpr float Gap = 3, Air = TextPlacer::Air;

// An arrow is kept clear of as wide as its head is; its tip too.
constexpr float WidthOfArrow = 0.4F * ForceHeadLength + 2 * Air;

// A leader to a joint ends clear of its pin, pixels.
constexpr double LeaderClearOfPin = 7;

// Where along a member its text may stand without a leader, the middle first.
constexpr std::array ShareOfMember = {0.5, 0.42, 0.58, 0.34, 0.66, 0.26, 0.74};

// In a drawing with more members than this the shortest ones (pixels) have no text of their own.
constexpr int ManyMembers = 200;
constexpr double LeastLength = 24;

// The half of a support's picture in which there is something.
PixelRect BoxOf(const DrawnSupport& support) {
  constexpr float half = SupportPictureSize / 2, wide = half - 2, pin = 4;
  const auto [x, y] = support.Centre;
  switch (GroundSideOf(support.Type)) {
    case GroundSide::Left:
      return {x - half, y - wide, x + pin, y + wide};
    case GroundSide::Above:
      return {x - wide, y - half, x + wide, y + pin};
    case GroundSide::Right:
      return {x - pin, y - wide, x + half, y + wide};
    case GroundSide::Below:
      break;
  }
  return {x - wide, y - pin, x + wide, y + half};
}

class LabelPlacer {
 public:
  LabelPlacer(ForcesDrawing& drawing, const ForcesScene& scene, const TextMeasure& measure)
      : drawing_(drawing),
        forces_(scene.Forces),
        measure_(measure),
        points_(scene.Points),
        placer_(drawing.Area) {
    LabelRoom& room = placer_.Room();
    for (const DrawnMember& member : drawing.Members)
      room.AddLine(member.Line, static_cast<float>(member.Width) + 2 * Air);
    for (const PixelPoint& pin : drawing.Pins)
      room.AddBox(Widened({pin.X, pin.Y, pin.X, pin.Y}, PinSize / 2 + Air));
    for (const DrawnSupport& support : drawing.Supports) room.AddBox(BoxOf(support));
    for (const DrawnForce& arrow : drawing.Arrows) {
      room.AddArrow(arrow.Line, WidthOfArrow);
    }
  }

  void Joint(int number, const std::string& name, PixelPoint at) {
    if (name.empty() || name == UnnamedCaption) return;
    ForceLabel label = Label(LabelOf::Joint, number, {name}, {.Points = points_ + 2, .Bold = true});
    // First to the lower right, as on the canvas.
    for (const double distance : {0.0, 4.0, 9.0, 15.0}) {
      for (const double turn : {0.25, -0.25, 0.75, -0.75, 0.0, 1.0, 0.5, -0.5}) {
        if (Takes(label, placer_.Beyond({at.X, at.Y}, Towards(turn * std::numbers::pi),
                                        PinSize / 2 + Gap + distance, extent_)))
          return;
      }
    }
    TakesOrLeaves(label, placer_.WithLeader({at.X, at.Y}, {1, 1}, LeaderClearOfPin, extent_));
  }

  void Arrow(const DrawnForce& arrow, PixelPoint joint) {
    const bool isLoad = arrow.What == ArrowOf::Load;
    const std::vector<std::string> lines =
        isLoad ? std::vector{forces_.Loads[static_cast<std::size_t>(arrow.Number - 1)]}
               : forces_.Unknowns[arrow.Number].Lines;
    ForceLabel label =
        Label(isLoad ? LabelOf::Load : LabelOf::Reaction, arrow.Number, lines, {.Points = points_});
    TakesOrLeaves(label, placer_.ByArrow(arrow.Line, joint, WidthOfArrow, extent_));
  }

  // Where there is no room for the signed number below it, the magnitude stands alone.
  void Member(const DrawnMember& member, bool isOneOfMany) {
    const PixelLine& line = member.Line;
    const double length = std::hypot(double{line.X2} - double{line.X1}, double{line.Y2} - double{line.Y1});
    const std::vector<std::string>& lines = forces_.Unknowns[member.Unknown].Lines;
    const bool isTooShort = isOneOfMany && length < LeastLength;
    if (!isTooShort &&
        (MemberTakes(member, lines) || (lines.size() > 1 && MemberTakes(member, {lines.front()}))))
      return;
    ++drawing_.NumLeftOut;
  }

 private:
  bool MemberTakes(const DrawnMember& member, const std::vector<std::string>& lines) {
    ForceLabel label = Label(LabelOf::Member, member.Unknown, lines, {.Points = points_, .Bold = true});
    const PixelLine& line = member.Line;
    const PixelVector along{double{line.X2} - double{line.X1}, double{line.Y2} - double{line.Y1}};
    const double length = std::hypot(along.X, along.Y);
    const PixelVector normal = Outwards(line, length);
    for (const double share : ShareOfMember) {
      const PixelVector at{line.X1 + share * along.X, line.Y1 + share * along.Y};
      for (const PixelVector& side : {normal, PixelVector{-normal.X, -normal.Y}}) {
        const double clear = member.Width / 2.0 + 2 * Air;
        const double distance = ReachOf(extent_, side) + clear * (std::abs(side.X) + std::abs(side.Y));
        const PixelVector middle{at.X + distance * side.X, at.Y + distance * side.Y};
        if (Takes(label, placer_.At(BoxAround(middle, extent_)))) return true;
      }
    }
    return Takes(label,
                 placer_.WithLeader({line.X1 + along.X / 2, line.Y1 + along.Y / 2}, normal, 0, extent_));
  }

  // Across a member, away from the middle of the drawing, where fewer members are.
  PixelVector Outwards(const PixelLine& line, double length) const {
    if (!(length > 0)) return {0, -1};
    const PixelVector across{(double{line.Y2} - double{line.Y1}) / length,
                             (double{line.X1} - double{line.X2}) / length};
    const double x =
        (double{line.X1} + double{line.X2} - double{drawing_.Area.Left} - double{drawing_.Area.Right});
    const double y =
        (double{line.Y1} + double{line.Y2} - double{drawing_.Area.Top} - double{drawing_.Area.Bottom});
    const double outwards = across.X * x + across.Y * y;
    return outwards < 0 ? PixelVector{-across.X, -across.Y} : across;
  }

  ForceLabel Label(LabelOf what, int number, const std::vector<std::string>& lines, const TextFont& font) {
    ForceLabel label{.What = what, .Number = number, .Lines = lines, .Font = font, .Box = {}, .Leader = {}};
    extent_ = {};
    for (std::size_t i = 0; i < lines.size(); ++i) {
      const TextExtent line = measure_({.Points = font.Points, .Bold = font.Bold && i == 0}, lines[i]);
      extent_ = {std::max(extent_.Width, line.Width), extent_.Height + line.Height};
    }
    return label;
  }

  bool Takes(ForceLabel& label, const std::optional<TextPlace>& place) {
    if (!place) return false;
    label.Box = place->Box;
    label.Leader = place->Leader;
    drawing_.Labels.push_back(std::move(label));
    return true;
  }

  void TakesOrLeaves(ForceLabel& label, const std::optional<TextPlace>& place) {
    if (!Takes(label, place)) ++drawing_.NumLeftOut;
  }

  ForcesDrawing& drawing_;
  const TrussForces& forces_;
  const TextMeasure& measure_;
  float points_;
  TextPlacer placer_;
  TextExtent extent_;  // of the label that is being placed
};

}  // namespace

void PlaceForceLabels(ForcesDrawing& drawing, const ForcesScene& scene, const Table<PixelPoint>& joints,
                      const TextMeasure& measure) {
  const TrussForces& forces = scene.Forces;
  LabelPlacer placer(drawing, scene, measure);
  if (!drawing.Pins.empty()) {
    for (int j = 1; j <= joints.Size(); ++j) placer.Joint(j, forces.Graph.Joints[j].Name, joints[j]);
  }
  for (const DrawnForce& arrow : drawing.Arrows) {
    const int joint = arrow.What == ArrowOf::Load
                          ? forces.Graph.Loads[static_cast<std::size_t>(arrow.Number - 1)].Joint
                          : forces.Graph.Unknowns[arrow.Number].JointA;
    placer.Arrow(arrow, joints[joint]);
  }
  std::vector<std::size_t> order(drawing.Members.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, std::ranges::greater(), [&](std::size_t i) {
    return std::abs(forces.Unknowns[drawing.Members[i].Unknown].Value);
  });
  const bool areMany = order.size() > ManyMembers;
  for (const std::size_t i : order) placer.Member(drawing.Members[i], areMany);
}
