// See the header.
#include "explanation/byjoint/HandPicture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "canvas/Arrow.h"
#include "canvas/Paper.h"
#include "document/Angles.h"
#include "explanation/Directions.h"
#include "explanation/DistinctNames.h"
#include "explanation/TrussExtent.h"
#include "explanation/byjoint/ForcesOnPart.h"
#include "platform/Palette.h"

namespace {

constexpr float GapAtJoint = 12;             // pixels, between a joint and the arrows at it
constexpr float ArrowOnPart = 34;            // of a part of the truss, whose joints stand close to each other
constexpr float BorderOfPart = 88;           // for the arrows and their texts
constexpr std::size_t MostNamesByHand = 60;  // of joints; more would cover everything
constexpr std::size_t MostTexts = 80;
constexpr float TextGap = 4;

bool Meet(const PixelRect& a, const PixelRect& b) {
  return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}

class PartPainter {
 public:
  PartPainter(const TrussGraph& graph, const HandSolution& solution, std::size_t index, const PixelRect& room,
              const ReportFormat& format, const TextMeasure& measure)
      : graph_(graph),
        step_(solution.Steps[index]),
        room_(room),
        measure_(measure),
        names_(graph, format),
        joints_(JointsOfStep(graph, step_)),
        forces_(ForcesOnPart(graph, solution, index, format)) {}

  HandPicture All() {
    if (step_.Joint != 0) {
      scale_ = 0;
      arrow_ = std::min(LongestJointArrow, 0.3F * std::min(room_.Width(), room_.Height()));
    } else {
      arrow_ = ArrowOnPart;
      MapPart();
      DrawMembers();
    }
    for (const int joint : joints_) picture_.Pins.push_back(At(joint));
    DrawPoints();
    for (const ForceOnPart& force : forces_) DrawForce(force);
    if (joints_.size() <= MostNamesByHand) {
      for (const int joint : joints_) DrawName(joint);
    }
    return std::move(picture_);
  }

 private:
  void MapPart() {
    const TrussExtent extent = ExtentOf(graph_);
    const double width = std::max(1.0F, room_.Width() - 2 * BorderOfPart);
    const double height = std::max(1.0F, room_.Height() - 2 * BorderOfPart);
    const double unit = std::max(extent.Width() / width, extent.Height() / height);
    scale_ = unit > 0 ? 1 / unit : 0;
    middleX_ = (extent.Left + extent.Right) / 2;
    middleY_ = (extent.Bottom + extent.Top) / 2;
  }

  PixelPoint Place(double x, double y) const {
    const double centreX = (room_.Left + room_.Right) / 2.0;
    const double centreY = (room_.Top + room_.Bottom) / 2.0;
    return {FiniteSingle(centreX + scale_ * (x - middleX_)), FiniteSingle(centreY - scale_ * (y - middleY_))};
  }

  PixelPoint At(int joint) const { return Place(graph_.Joints[joint].X, graph_.Joints[joint].Y); }

  bool IsInside(int joint) const { return std::ranges::binary_search(joints_, joint); }

  void DrawMembers() {
    for (const PlacedUnknown& unknown : graph_.Unknowns.First(graph_.NumUnknowns())) {
      if (!unknown.IsMember()) continue;
      const PixelPoint a = At(unknown.JointA);
      const PixelPoint b = At(unknown.JointB);
      const bool isInside = IsInside(unknown.JointA) && IsInside(unknown.JointB);
      (isInside ? picture_.Part : picture_.Others).push_back({a.X, a.Y, b.X, b.Y});
    }
  }

  void DrawPoints() {
    if (step_.Joint != 0) return;
    for (const BalanceEquation& equation : step_.Equations) {
      if (equation.Kind != BalanceKind::Moment) continue;
      const PixelPoint point = Place(equation.AtX, equation.AtY);
      if (std::ranges::count(picture_.Points, point) == 0) picture_.Points.push_back(point);
    }
  }

  // A member's arrow stands on its side of the joint. A load begins at its joint and a reaction ends there,
  // unless a force stands there already and the other side is free.
  std::pair<double, double> SideOf(const ForceOnPart& force) const {
    if (force.IsMember) return {force.SideX, force.SideY};
    const double usual = force.Role == ForceRole::Load ? 1 : -1;
    const double x = usual * force.X;
    const double y = usual * force.Y;
    return Crowding(force, x, y) > Crowding(force, -x, -y) ? std::pair(-x, -y) : std::pair(x, y);
  }

  // The cosine of the angle to the nearest member; 0.9 and less is free.
  double Crowding(const ForceOnPart& force, double x, double y) const {
    double nearest = 0.9;
    for (const ForceOnPart& other : forces_) {
      if (other.Joint == force.Joint && other.IsMember)
        nearest = std::max(nearest, x * other.SideX + y * other.SideY);
    }
    for (const auto& [joint, side] : sides_) {
      if (joint == force.Joint) nearest = std::max(nearest, x * side.X + y * side.Y);
    }
    return nearest;
  }

  void DrawForce(const ForceOnPart& force) {
    const std::pair<double, double> side = SideOf(force);
    const double x = side.first;
    const double y = side.second;
    sides_.push_back({force.Joint, {static_cast<float>(x), static_cast<float>(y)}});
    const PixelPoint joint = At(force.Joint);
    const auto along = [&](double distance) {
      return PixelPoint{FiniteSingle(joint.X + distance * x), FiniteSingle(joint.Y - distance * y)};
    };
    const PixelPoint inner = along(GapAtJoint);
    const PixelPoint outer = along(GapAtJoint + arrow_);
    const bool away = x * force.X + y * force.Y > 0;
    const PixelPoint from = away ? inner : outer;
    const PixelPoint to = away ? outer : inner;
    HandArrow arrow{.Unknown = force.Unknown, .Line = {from.X, from.Y, to.X, to.Y}};
    arrow.Role = force.Role == ForceRole::Found && force.Value == 0 ? ForceRole::Zero : force.Role;
    if (forces_.size() <= MostTexts) {
      arrow.Text = force.Text;
      arrow.TextBox =
          FreePlace(joint, x, -y, GapAtJoint + arrow_ + TextGap, measure_(TextFont{}, force.Text));
    }
    picture_.Arrows.push_back(std::move(arrow));
  }

  // Beyond the arrow, and as much farther out as it takes to stand clear of other texts.
  PixelRect FreePlace(PixelPoint joint, double x, double y, float distance, const TextExtent& extent) {
    PixelRect box;
    for (int attempt = 0; attempt < 12; ++attempt) {
      const double reach = distance + std::abs(x) * extent.Width / 2 + std::abs(y) * extent.Height / 2 +
                           static_cast<float>(attempt) * extent.Height / 2;
      box.Left = FiniteSingle(joint.X + reach * x - extent.Width / 2);
      box.Top = FiniteSingle(joint.Y + reach * y - extent.Height / 2);
      box.Right = box.Left + extent.Width;
      box.Bottom = box.Top + extent.Height;
      if (std::ranges::none_of(taken_, [&](const PixelRect& other) { return Meet(box, other); })) break;
    }
    taken_.push_back(box);
    return box;
  }

  // In the widest gap between the forces and members at the joint.
  void DrawName(int joint) {
    std::vector<double> angles;
    for (const auto& [at, side] : sides_) {
      if (at == joint) angles.push_back(std::atan2(double{side.Y}, double{side.X}));
    }
    for (const PlacedUnknown& unknown : graph_.Unknowns.First(graph_.NumUnknowns())) {
      if (!unknown.IsMember() || unknown.JointA == unknown.JointB) continue;
      if (unknown.JointA != joint && unknown.JointB != joint) continue;
      const PlacedJoint& here = graph_.Joints[joint];
      const PlacedJoint& far = graph_.Joints[unknown.JointA == joint ? unknown.JointB : unknown.JointA];
      angles.push_back(std::atan2(double{far.Y} - double{here.Y}, double{far.X} - double{here.X}));
    }
    std::ranges::sort(angles);
    double best = -HalfTurn / 4;
    double widest = 0;
    for (std::size_t i = 0; i < angles.size(); ++i) {
      const double next = i + 1 < angles.size() ? angles[i + 1] : angles.front() + 2 * HalfTurn;
      if (next - angles[i] <= widest) continue;
      widest = next - angles[i];
      best = (angles[i] + next) / 2;
    }
    const TextExtent extent = measure_(NameFont, names_.Joint(joint));
    const PixelRect box = FreePlace(At(joint), std::cos(best), -std::sin(best), 6, extent);
    picture_.Names.push_back({names_.Joint(joint), box});
  }

  static constexpr TextFont NameFont{.Points = 10, .Bold = true};

  struct Side {
    int Joint;
    PixelPoint Along;  // of length 1, y upward
  };

  const TrussGraph& graph_;
  const HandStep& step_;
  PixelRect room_;
  const TextMeasure& measure_;
  DistinctNames names_;
  std::vector<int> joints_;
  std::vector<ForceOnPart> forces_;
  double scale_ = 0, middleX_ = 0, middleY_ = 0;
  float arrow_ = 0;
  std::vector<Side> sides_;
  std::vector<PixelRect> taken_;
  HandPicture picture_;
};

// Found forces are blue and strong, loads red; what is 0 or open is grey and broken.
struct Look {
  std::int16_t Width;
  std::int16_t Colour;
};

Look LookOf(ForceRole role) {
  switch (role) {
    case ForceRole::Found:
      return {3, LightBlue};
    case ForceRole::Load:
      return {2, LightRed};
    case ForceRole::Zero:
    case ForceRole::Open:
      return {1, DarkGrey};
    case ForceRole::Known:
      break;
  }
  return {2, Black};
}

void DrawPartLines(Surface& surface, const std::vector<PixelLine>& lines, int width, int colour) {
  surface.SetLineWidth(width);
  surface.SetForeground(colour);
  for (const PixelLine& line : lines) DrawLine(surface, line);
}

void DrawBroken(Surface& surface, const PixelLine& line, double dash, double gap) {
  const double dx = double{line.X2} - double{line.X1};
  const double dy = double{line.Y2} - double{line.Y1};
  const double length = std::hypot(dx, dy);
  const int numDashes = length > 0 ? static_cast<int>(length / (dash + gap)) + 1 : 0;
  for (int i = 0; i < numDashes; ++i) {
    const double from = i * (dash + gap);
    const double to = std::min(length, from + dash);
    surface.Line(FiniteSingle(line.X1 + from / length * dx), FiniteSingle(line.Y1 + from / length * dy),
                 FiniteSingle(line.X1 + to / length * dx), FiniteSingle(line.Y1 + to / length * dy));
  }
}

void FillCircle(Surface& surface, PixelPoint centre, double radius, int colour) {
  std::array<PixelPoint, 16> corners;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const double angle = 2 * HalfTurn * static_cast<double>(i) / static_cast<double>(corners.size());
    corners[i] = {FiniteSingle(centre.X + radius * std::cos(angle)),
                  FiniteSingle(centre.Y + radius * std::sin(angle))};
  }
  surface.FillPolygon(corners, colour);
}

}  // namespace

HandPicture DrawHandStep(const TrussGraph& graph, const HandSolution& solution, std::size_t index,
                         const PixelRect& room, const ReportFormat& format, const TextMeasure& measure) {
  return PartPainter(graph, solution, index, room, format, measure).All();
}

void PaintHandPicture(Surface& surface, const HandPicture& picture) {
  DrawPartLines(surface, picture.Others, 1, LightGrey);
  DrawPartLines(surface, picture.Part, 2, Black);
  for (const PixelPoint& pin : picture.Pins) {
    FillCircle(surface, pin, 5, Black);
    FillCircle(surface, pin, 3, White);
  }
  for (const PixelPoint& point : picture.Points) FillCircle(surface, point, 5, LightBlue);
  for (const HandArrow& arrow : picture.Arrows) {
    const Look look = LookOf(arrow.Role);
    const bool isBroken = arrow.Role == ForceRole::Zero || arrow.Role == ForceRole::Open;
    if (isBroken) {
      surface.SetLineWidth(look.Width);
      surface.SetForeground(look.Colour);
      DrawBroken(surface, arrow.Line, arrow.Role == ForceRole::Zero ? 6 : 2, 4);
    } else {
      DrawArrow(surface, arrow.Line.X1, arrow.Line.Y1, arrow.Line.X2, arrow.Line.Y2, look.Width,
                LabelArrowSize + 2, look.Colour);
    }
  }
  surface.SetLineWidth(1);
  surface.SetFont(TextFont{});
  for (const HandArrow& arrow : picture.Arrows) {
    if (!arrow.Text.empty())
      surface.PrintTextWithRim(OntoPaper(arrow.TextBox.Left), OntoPaper(arrow.TextBox.Top), arrow.Text,
                               Black);
  }
  surface.SetFont({.Points = 10, .Bold = true});
  for (const HandPicture::Name& name : picture.Names)
    surface.PrintTextWithRim(OntoPaper(name.Box.Left), OntoPaper(name.Box.Top), name.Text, Black);
  surface.SetFont(TextFont{});
  surface.SetForeground(Black);
}

Picture PictureOfHandStep(const TrussGraph& graph, const HandSolution& solution, std::size_t index,
                          const ReportFormat& format, const TextMeasure& measure) {
  Picture picture(measure);
  const bool isJoint = solution.Steps[index].Joint != 0;
  const PixelRect room{0, 0, isJoint ? 300.0F : 560.0F, isJoint ? 240.0F : 320.0F};
  PaintHandPicture(picture, DrawHandStep(graph, solution, index, room, format, measure));
  picture.Crop(6);
  return picture;
}

std::string DescribeHandStep(const TrussGraph& graph, const HandSolution& solution, std::size_t index,
                             const ReportFormat& format) {
  const HandStep& step = solution.Steps[index];
  const DistinctNames names(graph, format);
  std::string text = step.Joint != 0 ? Capital(names.JointInWords(step.Joint)) + " alone"
                                     : "The part with " + names.Joints(JointsOfStep(graph, step));
  std::string separator = ", and what acts on it: ";
  for (const ForceOnPart& force : ForcesOnPart(graph, solution, index, format)) {
    text += separator + (force.Role == ForceRole::Load ? "a load of " : "") + force.Text;
    separator = ", ";
  }
  return text + '.';
}
