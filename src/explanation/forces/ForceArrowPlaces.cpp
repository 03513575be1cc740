#include "explanation/forces/ForceArrowPlaces.h"

#include <algorithm>
#include <cmath>

namespace {

// Two directions closer than this (about 15 degrees) run into each other.
constexpr double CosineOfOneDirection = 0.966;

// From a joint to the near end of an arrow: clear of a support's picture, or of the pin.
constexpr double ClearOfSupport = 20, ClearOfPin = 6;

constexpr double LeastScale = 0.25;

struct Direction {
  double X = 0, Y = 0;

  Direction operator-() const { return {-X, -Y}; }
};

double Dot(const Direction& a, const Direction& b) { return a.X * b.X + a.Y * b.Y; }

class ArrowPlacer {
 public:
  ArrowPlacer(const TrussForces& forces, const Table<PixelPoint>& joints, const Table<PixelPoint>& grounds,
              double margin)
      : forces_(forces),
        joints_(joints),
        scale_(std::clamp((margin - ClearOfSupport) / LongestForceArrow, LeastScale, 1.0)) {
    taken_.Resize(joints.Size());
    for (const PlacedUnknown& unknown : forces.Graph.Unknowns.First(forces.Graph.NumUnknowns())) {
      if (unknown.IsMember()) TakeMember(unknown.JointA, unknown.JointB);
    }
    for (int k = 1; k <= forces.Graph.NumUnknowns(); ++k) {
      if (!forces.Graph.Unknowns[k].IsMember())
        largest_ = std::max(largest_, std::abs(forces.Unknowns[k].Value));
    }
    for (const PlacedLoad& load : forces.Graph.Loads)
      largest_ = std::max(largest_, std::hypot(double{load.Fx}, double{load.Fy}));
    PlaceReactions();
    for (int j = 1; j <= joints.Size(); ++j) {
      const PixelPoint ground = grounds[j];
      if (ground != PixelPoint{}) taken_[j].push_back({double{ground.X}, double{ground.Y}});
    }
    PlaceLoads();
  }

  std::vector<DrawnForce> Arrows;

 private:
  void TakeMember(int a, int b) {
    const double dx = double{joints_[b].X} - double{joints_[a].X};
    const double dy = double{joints_[b].Y} - double{joints_[a].Y};
    const double length = std::hypot(dx, dy);
    if (!(length > 0)) return;
    taken_[a].push_back({dx / length, dy / length});
    taken_[b].push_back({-dx / length, -dy / length});
  }

  bool IsTaken(int joint, const Direction& side) const {
    return std::ranges::any_of(
        taken_[joint], [&side](const Direction& other) { return Dot(side, other) > CosineOfOneDirection; });
  }

  double LengthOf(double magnitude) const {
    const double share = largest_ > 0 && std::isfinite(magnitude) ? magnitude / largest_ : 0;
    return scale_ * (ShortestForceArrow + share * (double{LongestForceArrow} - double{ShortestForceArrow}));
  }

  PixelPoint Beside(int joint, const Direction& side, double distance) const {
    const PixelPoint at = joints_[joint];
    return {OntoPaper(FiniteSingle(at.X + distance * side.X)),
            OntoPaper(FiniteSingle(at.Y + distance * side.Y))};
  }

  void Add(DrawnForce arrow, int joint, const Direction& side, PixelPoint from, PixelPoint to) {
    arrow.Line = {from.X, from.Y, to.X, to.Y};
    Arrows.push_back(arrow);
    taken_[joint].push_back(side);
  }

  void PlaceReactions() {
    for (int k = 1; k <= forces_.Graph.NumUnknowns(); ++k) {
      const PlacedUnknown& unknown = forces_.Graph.Unknowns[k];
      if (unknown.IsMember()) continue;
      const Direction positive =
          unknown.Along == Axis::X ? Direction{double(unknown.Sign), 0} : Direction{0, double(-unknown.Sign)};
      const int joint = unknown.JointA;
      const bool turned = IsTaken(joint, -positive) && !IsTaken(joint, positive);
      const Direction side = turned ? positive : -positive;
      const ForceFound& force = forces_.Unknowns[k];
      const PixelPoint nearEnd = Beside(joint, side, ClearOfSupport);
      const PixelPoint farEnd = Beside(joint, side, ClearOfSupport + LengthOf(std::abs(force.Value)));
      const bool pointsToJoint = (force.Sense == ForceSense::Pulling) == turned;
      Add({.What = ArrowOf::Reaction, .Number = k, .Sense = force.Sense, .Line = {}}, joint, side,
          pointsToJoint ? farEnd : nearEnd, pointsToJoint ? nearEnd : farEnd);
    }
  }

  void PlaceLoads() {
    for (std::size_t i = 0; i < forces_.Graph.Loads.size(); ++i) {
      const PlacedLoad& load = forces_.Graph.Loads[i];
      const double magnitude = std::hypot(double{load.Fx}, double{load.Fy});
      if (!(magnitude > 0)) continue;
      const Direction along{load.Fx / magnitude, -load.Fy / magnitude};
      const bool ends = IsTaken(load.Joint, along) && !IsTaken(load.Joint, -along);
      const double length = LengthOf(magnitude);
      const Direction side = ends ? -along : along;
      const PixelPoint nearEnd = Beside(load.Joint, side, ClearOfPin);
      const PixelPoint farEnd = Beside(load.Joint, side, ClearOfPin + length);
      Add({.What = ArrowOf::Load,
           .Number = static_cast<int>(i) + 1,
           .Sense = ForceSense::Pushing,
           .Line = {}},
          load.Joint, side, ends ? farEnd : nearEnd, ends ? nearEnd : farEnd);
    }
  }

  const TrussForces& forces_;
  const Table<PixelPoint>& joints_;
  Table<std::vector<Direction>> taken_;  // by joint, pixels
  double scale_;
  double largest_ = 0;
};

}  // namespace

std::vector<DrawnForce> PlaceArrows(const TrussForces& forces, const Table<PixelPoint>& joints,
                                    const Table<PixelPoint>& grounds, double margin) {
  return ArrowPlacer(forces, joints, grounds, margin).Arrows;
}
