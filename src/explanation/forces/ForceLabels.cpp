// Each text tries one place after the other, the best first, and takes the first that is free. So no text
// ever covers anything, and the order in which they choose decides who goes without.
#include "explanation/forces/ForceLabels.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "canvas/Arrow.h"
#include "canvas/Drawing.h"
#include "canvas/PixelBoxes.h"
#include "canvas/SupportPicture.h"
#include "document/Truss.h"
#include "explanation/forces/TextPlacer.h"

namespace {

constexpr float Air = TextPlacer::Air;

// An arrow is kept clear of as wide as its head is; its tip too.
constexpr float WidthOfArrow = 0.4F * ForceHeadLength + 2 * Air;

// In a drawing with more members than this the shortest ones (pixels) have no text of their own.
constexpr int ManyMembers = 200;
constexpr double LeastLength = 24;

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
    for (const DrawnSupport& support : drawing.Supports)
      room.AddBox(SupportPictureBox(support.Type, support.Centre));
    for (const DrawnForce& arrow : drawing.Arrows) {
      room.AddArrow(arrow.Line, WidthOfArrow);
    }
  }

  void Joint(int number, const std::string& name, PixelPoint at) {
    if (name.empty() || name == UnnamedCaption) return;
    ForceLabel label = Label(LabelOf::Joint, number, {name}, {.Points = points_ + 2, .Bold = true});
    TakesOrLeaves(label, placer_.ByJoint(at, extent_));
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
    return Takes(label, placer_.ByMember(member.Line, member.Width, extent_));
  }

  ForceLabel Label(LabelOf what, int number, const std::vector<std::string>& lines, const TextFont& font) {
    ForceLabel label{.What = what, .Number = number, .Lines = lines, .Font = font, .Box = {}, .Leader = {}};
    extent_ = ExtentOfLines(label, measure_);
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
    for (int j = 1; j <= joints.Size(); ++j) placer.Joint(j, forces.Graph.Joints[j].Name.String(), joints[j]);
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

TextExtent ExtentOfLines(const ForceLabel& label, const TextMeasure& measure) {
  TextExtent extent{};
  for (std::size_t i = 0; i < label.Lines.size(); ++i) {
    const TextExtent line =
        measure({.Points = label.Font.Points, .Bold = label.Font.Bold && i == 0}, label.Lines[i]);
    extent = {std::max(extent.Width, line.Width), extent.Height + line.Height};
  }
  return extent;
}
