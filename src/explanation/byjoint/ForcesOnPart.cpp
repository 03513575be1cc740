#include "explanation/byjoint/ForcesOnPart.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "analysis/TellingNumber.h"
#include "explanation/DistinctNames.h"
#include "explanation/Length.h"
#include "explanation/RigidityMatrix.h"

namespace {

class Collector {
 public:
  Collector(const TrussGraph& graph, const HandSolution& solution, std::size_t index,
            const ReportFormat& format)
      : graph_(graph),
        format_(format),
        names_(graph, format, OddNames::InBrackets),
        asAssumed_(ShowsAssumedSenses(solution.Steps[index])),
        roles_(graph.NumUnknowns()),
        values_(graph.NumUnknowns()) {
    for (int k = 1; k <= graph.NumUnknowns(); ++k) roles_[k] = ForceRole::Open;
    for (std::size_t i = 0; i <= index; ++i) {
      for (const UnknownForce& force : solution.Steps[i].Solved) {
        values_[force.Unknown] = force.Value;
        roles_[force.Unknown] = i == index         ? ForceRole::Found
                                : force.Value == 0 ? ForceRole::Zero
                                                   : ForceRole::Known;
      }
    }
  }

  std::vector<ForceOnPart> On(const std::vector<int>& joints) {
    for (int k = 1; k <= graph_.NumUnknowns(); ++k) {
      const PlacedUnknown& unknown = graph_.Unknowns[k];
      const auto isInside = [&](int joint) { return std::ranges::binary_search(joints, joint); };
      if (!unknown.IsMember()) {
        if (isInside(unknown.JointA)) AddReaction(k);
      } else if (unknown.JointA != unknown.JointB && isInside(unknown.JointA) != isInside(unknown.JointB)) {
        const bool atA = isInside(unknown.JointA);
        AddMember(k, atA ? unknown.JointA : unknown.JointB, atA ? unknown.JointB : unknown.JointA);
      }
    }
    for (const PlacedLoad& load : graph_.Loads) {
      if (std::ranges::binary_search(joints, load.Joint)) AddLoad(load);
    }
    std::ranges::stable_sort(forces_, {}, &ForceOnPart::Joint);
    return std::move(forces_);
  }

 private:
  std::string Number(double value) const { return NumberNot0(value, format_); }

  std::string ValueText(const ForceOnPart& force) const {
    if (force.Role == ForceRole::Open) return "?";
    return Number(asAssumed_ ? force.Value : std::abs(force.Value));
  }

  void AddMember(int k, int joint, int far) {
    const double dx = WrittenDifference(graph_.Joints[far].X, graph_.Joints[joint].X);
    const double dy = WrittenDifference(graph_.Joints[far].Y, graph_.Joints[joint].Y);
    const double length = LengthOf(dx, dy);
    ForceOnPart force{
        .Unknown = k, .Joint = joint, .IsMember = true, .SideX = dx / length, .SideY = dy / length};
    force.Value = values_[k];
    force.Role = roles_[k];
    const double sign = force.Value < 0 && !asAssumed_ ? 1 : -1;
    force.X = sign * force.SideX;
    force.Y = sign * force.SideY;
    const std::string magnitude = Number(std::abs(force.Value));
    force.Text = names_.Member(k) + ' ' + ValueText(force);
    if (force.Role != ForceRole::Open && !asAssumed_ && magnitude != "0")
      force.Text += force.Value < 0 ? " T" : " C";
    forces_.push_back(std::move(force));
  }

  void AddReaction(int k) {
    const PlacedUnknown& unknown = graph_.Unknowns[k];
    ForceOnPart force{.Unknown = k, .Joint = unknown.JointA};
    force.Value = values_[k];
    force.Role = roles_[k];
    const bool isTurned = force.Value < 0 && !asAssumed_;
    (unknown.Along == Axis::X ? force.X : force.Y) = (isTurned ? -1 : 1) * unknown.Sign;
    force.Text = names_.Force(k) + " " + ValueText(force);
    // The number of the solutions too, where the arrow is turned round.
    if (isTurned) force.Text += " (" + Number(force.Value) + ')';
    forces_.push_back(std::move(force));
  }

  void AddLoad(const PlacedLoad& load) {
    const double fx = WrittenDifference(load.Fx, 0);
    const double fy = WrittenDifference(load.Fy, 0);
    const double size = LengthOf(fx, fy);
    if (size == 0) return;
    ForceOnPart force{.Joint = load.Joint, .X = fx / size, .Y = fy / size};
    force.Value = size;
    force.Role = ForceRole::Load;
    force.Text = Number(size);
    forces_.push_back(std::move(force));
  }

  const TrussGraph& graph_;
  const ReportFormat& format_;
  DistinctNames names_;
  bool asAssumed_;
  Table<ForceRole> roles_;
  Table<double> values_;
  std::vector<ForceOnPart> forces_;
};

}  // namespace

std::vector<int> JointsOfStep(const TrussGraph& graph, const HandStep& step) {
  if (step.Joint != 0) return {step.Joint};
  if (!step.Joints.empty()) return step.Joints;
  std::vector<int> all(static_cast<std::size_t>(graph.NumJoints()));
  std::iota(all.begin(), all.end(), 1);
  return all;
}

std::vector<ForceOnPart> ForcesOnPart(const TrussGraph& graph, const HandSolution& solution,
                                      std::size_t index, const ReportFormat& format) {
  return Collector(graph, solution, index, format).On(JointsOfStep(graph, solution.Steps[index]));
}
