// What stands where in the picture of a step.
#include "explanation/byjoint/HandPicture.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "canvas/Paper.h"
#include "explanation/Directions.h"
#include "explanation/DistinctNames.h"
#include "explanation/byjoint/ArrowRoom.h"
#include "explanation/byjoint/CutLine.h"
#include "explanation/byjoint/ForcesOnPart.h"
#include "explanation/byjoint/HandLabels.h"

namespace {

constexpr float GapAtJoint = 12;       // pixels, between a joint and the arrows at it
constexpr float GapAtCut = 3;          // and between the line of a cut and those that end there
constexpr float ArrowOnPart = 34;      // of a part of the truss, whose joints stand close to each other
constexpr float BorderOfPart = 66;     // for the arrows and their texts
constexpr float LargestBorder = 0.3F;  // of a side of the room
constexpr double FarthestPoint = 2;    // sizes of the part; a point of moments farther away is not drawn

// A rectangle that grows around points, world coordinates.
struct Bounds {
  double Left = 0, Bottom = 0, Right = 0, Top = 0;
  bool IsEmpty = true;

  void Add(double x, double y) {
    Left = IsEmpty ? x : std::min(Left, x);
    Right = IsEmpty ? x : std::max(Right, x);
    Bottom = IsEmpty ? y : std::min(Bottom, y);
    Top = IsEmpty ? y : std::max(Top, y);
    IsEmpty = false;
  }
  double Size() const { return std::max(Right - Left, Top - Bottom); }
};

class PartPainter {
 public:
  PartPainter(const TrussGraph& graph, const HandSolution& solution, std::size_t index, const PixelRect& room,
              const ReportFormat& format, const TextMeasure& measure)
      : graph_(graph),
        step_(solution.Steps[index]),
        room_(room),
        format_(format),
        names_(graph, format, OddNames::InBrackets),
        joints_(JointsOfStep(graph, step_)),
        forces_(ForcesOnPart(graph, solution, index, format)),
        labels_(picture_, room, measure) {}

  HandPicture All() {
    if (step_.Joint != 0) {
      arrow_ = std::min(LongestJointArrow, 0.3F * std::min(room_.Width(), room_.Height()));
    } else {
      arrow_ = std::min(ArrowOnPart, 0.17F * std::min(room_.Width(), room_.Height()));
      MapPart();
      DrawMembers();
    }
    for (const int joint : joints_) picture_.Pins.push_back(At(joint));
    DrawPoints();
    CutMembers();
    DrawForces();
    PlaceTexts();
    return std::move(picture_);
  }

 private:
  // Where a section is cut, only the part is drawn, with what is cut off as far as it goes.
  bool IsCut() const { return step_.Kind == HandStepKind::Section && !step_.Cut.empty(); }

  void MapPart() {
    Bounds bounds;
    const auto add = [&](int joint) { bounds.Add(graph_.Joints[joint].X, graph_.Joints[joint].Y); };
    if (IsCut()) {
      for (const int joint : joints_) add(joint);
      for (const int k : step_.Cut) {
        add(graph_.Unknowns[k].JointA);
        add(graph_.Unknowns[k].JointB);
      }
    } else {
      for (int joint = 1; joint <= graph_.NumJoints(); ++joint) add(joint);
    }
    for (const BalanceEquation& equation : step_.Equations) {
      Bounds wider = bounds;
      wider.Add(equation.AtX, equation.AtY);
      const bool isNear = wider.Size() <= FarthestPoint * bounds.Size();
      if (equation.Kind == BalanceKind::Moment && isNear) bounds = wider;
    }
    const auto lengthIn = [](float side) {
      return std::max(1.0F, side - 2 * std::min(BorderOfPart, LargestBorder * side));
    };
    const double unit = std::max((bounds.Right - bounds.Left) / lengthIn(room_.Width()),
                                 (bounds.Top - bounds.Bottom) / lengthIn(room_.Height()));
    scale_ = unit > 0 ? 1 / unit : 0;
    middleX_ = (bounds.Left + bounds.Right) / 2;
    middleY_ = (bounds.Bottom + bounds.Top) / 2;
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
      const bool isInside = IsInside(unknown.JointA) && IsInside(unknown.JointB);
      if (!isInside && IsCut()) continue;
      const PixelPoint a = At(unknown.JointA);
      const PixelPoint b = At(unknown.JointB);
      (isInside ? picture_.Part : picture_.Others).push_back({a.X, a.Y, b.X, b.Y});
      if (isInside) {
        AddSide(unknown.JointA, a, b);
        AddSide(unknown.JointB, b, a);
      }
    }
  }

  void DrawPoints() {
    if (step_.Joint != 0) return;
    for (const BalanceEquation& equation : step_.Equations) {
      if (equation.Kind != BalanceKind::Moment) continue;
      const PixelPoint point = Place(equation.AtX, equation.AtY);
      const bool isInRoom =
          point.X >= room_.Left && point.X <= room_.Right && point.Y >= room_.Top && point.Y <= room_.Bottom;
      if (isInRoom && std::ranges::count(picture_.Points, point) == 0) picture_.Points.push_back(point);
    }
  }

  void CutMembers() {
    if (!IsCut()) return;
    std::vector<PixelLine> cut;
    for (const int k : step_.Cut) {
      const PlacedUnknown& member = graph_.Unknowns[k];
      const bool atA = IsInside(member.JointA);
      const PixelPoint inner = At(atA ? member.JointA : member.JointB);
      const PixelPoint outer = At(atA ? member.JointB : member.JointA);
      cut.push_back({inner.X, inner.Y, outer.X, outer.Y});
    }
    const CutLine line = DrawCut(picture_.Pins, cut);
    picture_.Cut = line.Lines;
    for (std::size_t i = 0; i < cut.size(); ++i) {
      const PixelPoint at = line.Crossings[i];
      picture_.Part.push_back({cut[i].X1, cut[i].Y1, at.X, at.Y});
      picture_.Others.push_back({at.X, at.Y, cut[i].X2, cut[i].Y2});
      cutAt_[step_.Cut[i]] = {at,
                              std::hypot(double{cut[i].X2} - double{at.X}, double{cut[i].Y2} - double{at.Y})};
    }
  }

  // A member's arrow stands on its side of the joint. A load begins at its joint and a reaction ends there,
  // unless something stands there already.
  ArrowStand StandOf(const ForceOnPart& force, double gap, double length) const {
    if (force.IsMember) return {{force.SideX, force.SideY}};
    const double usual = force.Role == ForceRole::Load ? 1 : -1;
    return arrows_.StandFor(force.Joint, {usual * force.X, usual * force.Y}, [&](const ArrowStand& stand) {
      return ArrowLine(force, At(force.Joint), stand, gap, length);
    });
  }

  static PixelLine ArrowLine(const ForceOnPart& force, PixelPoint from, const ArrowStand& stand, double gap,
                             double length) {
    const PixelVector& side = stand.Side;
    const auto along = [&](double distance) {
      return PixelPoint{FiniteSingle(from.X + distance * side.X - stand.Shift * side.Y),
                        FiniteSingle(from.Y - distance * side.Y - stand.Shift * side.X)};
    };
    const bool away = side.X * force.X + side.Y * force.Y > 0;
    const PixelPoint tail = along(away ? gap : gap + length);
    const PixelPoint head = along(away ? gap + length : gap);
    return {tail.X, tail.Y, head.X, head.Y};
  }

  void AddSide(int joint, PixelPoint from, PixelPoint to) {
    const double dx = double{to.X} - double{from.X};
    const double dy = double{from.Y} - double{to.Y};
    const double length = std::hypot(dx, dy);
    if (length == 0) return;
    sides_[joint].push_back({dx / length, dy / length});
    arrows_.Add(joint, {from.X, from.Y, to.X, to.Y});
  }

  // Members first, whose places are given; loads and reactions keep clear of them.
  void DrawForces() {
    picture_.Arrows.resize(forces_.size());
    for (const bool members : {true, false}) {
      for (std::size_t i = 0; i < forces_.size(); ++i) {
        if (forces_[i].IsMember == members) picture_.Arrows[i] = DrawForce(forces_[i]);
      }
    }
  }

  HandArrow DrawForce(const ForceOnPart& force) {
    PixelPoint from = At(force.Joint);
    double gap = GapAtJoint;
    double length = arrow_;
    if (const auto cut = cutAt_.find(force.Unknown); cut != cutAt_.end()) {
      from = cut->second.At;
      gap = GapAtCut;
      length = std::min(length, std::max(10.0, 0.8 * cut->second.Left));
      arrows_.Add(force.Joint, {At(force.Joint).X, At(force.Joint).Y, from.X, from.Y});
    }
    const ArrowStand stand = StandOf(force, gap, length);
    HandArrow arrow{.Unknown = force.Unknown, .Line = ArrowLine(force, from, stand, gap, length)};
    sides_[force.Joint].push_back(stand.Side);
    arrows_.Add(force.Joint, arrow.Line);
    arrow.Role = force.Role == ForceRole::Found && force.Value == 0 ? ForceRole::Zero : force.Role;
    arrow.HasHead =
        arrow.Role != ForceRole::Zero && (arrow.Role != ForceRole::Open || ShowsAssumedSenses(step_));
    return arrow;
  }

  void PlaceTexts() {
    labels_.KeepClear();
    if (forces_.size() <= MostHandTexts) {
      for (std::size_t i = 0; i < forces_.size(); ++i) {
        if (cutAt_.contains(forces_[i].Unknown)) {
          labels_.CutArrow(picture_.Arrows[i], forces_[i].Text);
        } else {
          labels_.Arrow(picture_.Arrows[i], forces_[i].Text, At(forces_[i].Joint));
        }
      }
    }
    if (joints_.size() <= MostHandNames) {
      for (const int joint : joints_) labels_.Name(names_.Joint(joint), At(joint), SidesAt(joint));
    }
    for (const BalanceEquation& equation : step_.Equations) {
      if (equation.Kind == BalanceKind::Moment) NamePoint(equation);
    }
  }

  // A joint of the part has its name already.
  void NamePoint(const BalanceEquation& equation) {
    const PixelPoint point = Place(equation.AtX, equation.AtY);
    if (std::ranges::count(picture_.Points, point) == 0 || std::ranges::count(picture_.Pins, point) != 0)
      return;
    for (int joint = 1; joint <= graph_.NumJoints(); ++joint) {
      if (At(joint) == point) return labels_.Name(names_.Joint(joint), point, SidesAt(joint));
    }
    labels_.Name(PairText(equation.AtX, equation.AtY, format_), point, {});
  }

  std::vector<PixelVector> SidesAt(int joint) const {
    const auto there = sides_.find(joint);
    return there == sides_.end() ? std::vector<PixelVector>{} : there->second;
  }

  struct CutPlace {
    PixelPoint At;
    double Left = 0;  // of the member, beyond the cut
  };

  const TrussGraph& graph_;
  const HandStep& step_;
  PixelRect room_;
  const ReportFormat& format_;
  DistinctNames names_;
  std::vector<int> joints_;
  std::vector<ForceOnPart> forces_;
  double scale_ = 0, middleX_ = 0, middleY_ = 0;
  float arrow_ = 0;
  std::map<int, std::vector<PixelVector>> sides_;  // taken, by joints; y upward
  ArrowRoom arrows_;
  std::map<int, CutPlace> cutAt_;  // by members
  HandPicture picture_;
  HandLabels labels_;
};

}  // namespace

HandPicture DrawHandStep(const TrussGraph& graph, const HandSolution& solution, std::size_t index,
                         const PixelRect& room, const ReportFormat& format, const TextMeasure& measure) {
  return PartPainter(graph, solution, index, room, format, measure).All();
}
