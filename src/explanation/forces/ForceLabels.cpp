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
#include "explanation/forces/LabelRoom.h"

namespace {

// Pixels between a text and what it is beside, and around everything that it must not touch.
constexpr float Gap = 3, Air = 1.5F;

// An arrow is kept clear of as wide as its head is; its tip too.
constexpr float WidthOfArrow = 0.4F * ForceHeadLength + 2 * Air;

// Where along a member its text may stand without a leader, the middle first.
constexpr std::array ShareOfMember = {0.5, 0.42, 0.58, 0.34, 0.66, 0.26, 0.74};

// How far away from it a text may stand with one, pixels.
constexpr std::array LeaderLengths = {12.0, 22.0, 34.0, 48.0, 64.0, 82.0, 102.0, 124.0, 150.0};
constexpr int NumDirections = 16;

// In a drawing with more members than this the shortest ones (pixels) have no text of their own.
constexpr int ManyMembers = 200;
constexpr double LeastLength = 24;

// When that many places have been tried, texts without room beside their member are left out.
constexpr int MostPlacesTried = 40'000;

struct Vector {
  double X = 0, Y = 0;
};

PixelRect Around(const Vector& centre, const TextExtent& extent) {
  return {FiniteSingle(centre.X - extent.Width / 2.0), FiniteSingle(centre.Y - extent.Height / 2.0),
          FiniteSingle(centre.X + extent.Width / 2.0), FiniteSingle(centre.Y + extent.Height / 2.0)};
}

// How far a text's box reaches from its middle in a direction.
double ReachOf(const TextExtent& extent, const Vector& direction) {
  return (std::abs(direction.X) * extent.Width + std::abs(direction.Y) * extent.Height) / 2;
}

Vector Towards(double turn) { return {std::cos(turn), std::sin(turn)}; }

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
        room_(drawing.Area) {
    for (const DrawnMember& member : drawing.Members)
      room_.AddLine(member.Line, static_cast<float>(member.Width) + 2 * Air);
    for (const PixelPoint& pin : drawing.Pins)
      room_.AddBox(Widened({pin.X, pin.Y, pin.X, pin.Y}, PinSize / 2 + Air));
    for (const DrawnSupport& support : drawing.Supports) room_.AddBox(BoxOf(support));
    for (const DrawnForce& arrow : drawing.Arrows) {
      room_.AddArrow(arrow.Line, WidthOfArrow);
    }
  }

  void Joint(int number, const std::string& name, PixelPoint at) {
    if (name.empty() || name == UnnamedCaption) return;
    ForceLabel label = Label(LabelOf::Joint, number, {name}, {.Points = points_ + 2, .Bold = true});
    // First to the lower right, as on the canvas.
    for (const double distance : {0.0, 4.0, 9.0, 15.0}) {
      for (const double turn : {0.25, -0.25, 0.75, -0.75, 0.0, 1.0, 0.5, -0.5}) {
        if (Tries(label,
                  Beyond({at.X, at.Y}, Towards(turn * std::numbers::pi), PinSize / 2 + Gap + distance))) {
          return;
        }
      }
    }
    WithLeader(std::move(label), {at.X, at.Y}, {1, 1});
  }

  void Arrow(const DrawnForce& arrow, PixelPoint joint) {
    const bool isLoad = arrow.What == ArrowOf::Load;
    const std::vector<std::string> lines =
        isLoad ? std::vector{forces_.Loads[static_cast<std::size_t>(arrow.Number - 1)]}
               : forces_.Unknowns[arrow.Number].Lines;
    ForceLabel label =
        Label(isLoad ? LabelOf::Load : LabelOf::Reaction, arrow.Number, lines, {.Points = points_});
    const PixelLine& line = arrow.Line;
    const bool tipIsFar = Distance(line.End2(), joint) > Distance(line.End1(), joint);
    const PixelPoint far = tipIsFar ? line.End2() : line.End1();
    const PixelPoint near = tipIsFar ? line.End1() : line.End2();
    const double length = std::max(1.0, Distance(far, near));
    const Vector out{(double{far.X} - double{near.X}) / length, (double{far.Y} - double{near.Y}) / length};
    const Vector aside{-out.Y, out.X};
    constexpr double clear = WidthOfArrow / 2 + 1;
    if (Tries(label, Beyond({far.X, far.Y}, out, clear))) return;
    for (const double share : {0.75, 0.45}) {
      const Vector at{far.X + (share - 1) * length * out.X, far.Y + (share - 1) * length * out.Y};
      for (const Vector& side : {aside, Vector{-aside.X, -aside.Y}}) {
        if (Tries(label, Beyond(at, side, clear))) return;
      }
    }
    WithLeader(std::move(label), {far.X, far.Y}, out);
  }

  void Member(const DrawnMember& member, bool isOneOfMany) {
    ForceLabel label = Label(LabelOf::Member, member.Unknown, forces_.Unknowns[member.Unknown].Lines,
                             {.Points = points_, .Bold = true});
    const PixelLine& line = member.Line;
    const Vector along{double{line.X2} - double{line.X1}, double{line.Y2} - double{line.Y1}};
    const double length = std::hypot(along.X, along.Y);
    if (isOneOfMany && length < LeastLength) {
      ++drawing_.NumLeftOut;
      return;
    }
    const Vector normal = Outwards(line, length);
    for (const double share : ShareOfMember) {
      const Vector at{line.X1 + share * along.X, line.Y1 + share * along.Y};
      for (const Vector& side : {normal, Vector{-normal.X, -normal.Y}}) {
        const double clear = member.Width / 2.0 + 2 * Air;
        const double distance = ReachOf(extent_, side) + clear * (std::abs(side.X) + std::abs(side.Y));
        if (Tries(label, Around({at.X + distance * side.X, at.Y + distance * side.Y}, extent_))) return;
      }
    }
    WithLeader(std::move(label), {line.X1 + along.X / 2, line.Y1 + along.Y / 2}, normal);
  }

 private:
  static double Distance(PixelPoint a, PixelPoint b) {
    return std::hypot(double{a.X} - double{b.X}, double{a.Y} - double{b.Y});
  }

  // A box of the label's size beyond a point in a direction, clear of it.
  PixelRect Beyond(const Vector& at, const Vector& direction, double distance) const {
    // Far enough that the box clears the point on one axis at least.
    const double x = std::abs(direction.X);
    const double y = std::abs(direction.Y);
    const double halfWidth = extent_.Width / 2.0;
    const double halfHeight = extent_.Height / 2.0;
    const double clear = x * halfHeight > y * halfWidth ? halfWidth / x : halfHeight / y;
    return Around({at.X + (distance + clear) * direction.X, at.Y + (distance + clear) * direction.Y},
                  extent_);
  }

  // Across a member, away from the middle of the drawing, where fewer members are.
  Vector Outwards(const PixelLine& line, double length) const {
    if (!(length > 0)) return {0, -1};
    const Vector across{(double{line.Y2} - double{line.Y1}) / length,
                        (double{line.X1} - double{line.X2}) / length};
    const double x =
        (double{line.X1} + double{line.X2} - double{drawing_.Area.Left} - double{drawing_.Area.Right});
    const double y =
        (double{line.Y1} + double{line.Y2} - double{drawing_.Area.Top} - double{drawing_.Area.Bottom});
    const double outwards = across.X * x + across.Y * y;
    return outwards < 0 ? Vector{-across.X, -across.Y} : across;
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

  bool Tries(ForceLabel& label, const PixelRect& box) {
    ++numTries_;
    if (!room_.IsFree(box)) return false;
    Take(label, box);
    return true;
  }

  void Take(ForceLabel& label, const PixelRect& box) {
    label.Box = box;
    room_.AddBox(Widened(box, Air));
    drawing_.Labels.push_back(std::move(label));
  }

  void WithLeader(ForceLabel label, const Vector& at, const Vector& first) {
    const double firstTurn = std::atan2(first.Y, first.X);
    for (const double distance : LeaderLengths) {
      for (int i = 0; i < NumDirections; ++i) {
        if (numTries_ > MostPlacesTried) break;
        ++numTries_;
        // To both sides of the first direction in turn.
        const int step = (i + 1) / 2 * (i % 2 == 0 ? 1 : -1);
        const Vector direction = Towards(firstTurn + step * 2 * std::numbers::pi / NumDirections);
        const double away = distance + ReachOf(extent_, direction);
        const PixelRect box = Around({at.X + away * direction.X, at.Y + away * direction.Y}, extent_);
        if (!room_.IsFree(box)) continue;
        const PixelLine leader{std::clamp(FiniteSingle(at.X), box.Left, box.Right),
                               std::clamp(FiniteSingle(at.Y), box.Top, box.Bottom), FiniteSingle(at.X),
                               FiniteSingle(at.Y)};
        if (!room_.IsClear(ClearOfEnd(leader, label.What))) continue;
        label.Leader = ClearOfEnd(leader, label.What);
        room_.AddArrow(*label.Leader, 1 + 2 * Air);
        Take(label, box);
        return;
      }
    }
    ++drawing_.NumLeftOut;
  }

  // A leader ends on a member, but clear of a pin or the end of an arrow.
  static PixelLine ClearOfEnd(const PixelLine& leader, LabelOf what) {
    if (what == LabelOf::Member) return leader;
    constexpr double clear = 7;
    const double dx = double{leader.X2} - double{leader.X1};
    const double dy = double{leader.Y2} - double{leader.Y1};
    const double length = std::hypot(dx, dy);
    const double share = length > clear ? 1 - clear / length : 0;
    return {leader.X1, leader.Y1, FiniteSingle(leader.X1 + share * dx), FiniteSingle(leader.Y1 + share * dy)};
  }

  ForcesDrawing& drawing_;
  const TrussForces& forces_;
  const TextMeasure& measure_;
  float points_;
  LabelRoom room_;
  TextExtent extent_;  // of the label that is being placed
  int numTries_ = 0;
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
