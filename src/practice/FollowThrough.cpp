#include "practice/FollowThrough.h"

#include <algorithm>
#include <cmath>

#include "explanation/Directions.h"

namespace {

// The forces on each joint, with the student's values.
class Sums {
 public:
  Sums(const TrussGraph& graph, const ForceValues& given)
      : joints_(graph.NumJoints()), largest_(graph.NumJoints()) {
    for (int k = 1; k <= graph.NumUnknowns(); ++k) AddUnknown(graph, k, given[k]);
    for (const PlacedLoad& load : graph.Loads) Add(load.Joint, load.Fx, load.Fy);
  }

  Table<FollowedJoint> Judged() {
    for (int j = 1; j <= joints_.Size(); ++j) {
      FollowedJoint& joint = joints_[j];
      if (!joint.Missing.empty()) continue;
      const bool balances = std::hypot(joint.OverX, joint.OverY) <= BalancedWithin * largest_[j];
      joint.What = balances ? JointVerdict::Balances : JointVerdict::Slips;
    }
    return std::move(joints_);
  }

 private:
  void Add(int joint, double x, double y) {
    joints_[joint].OverX += x;
    joints_[joint].OverY += y;
    largest_[joint] = std::max(largest_[joint], std::hypot(x, y));
  }

  void AddUnknown(const TrussGraph& graph, int k, const std::optional<double>& value) {
    const PlacedUnknown& unknown = graph.Unknowns[k];
    if (!value) {
      joints_[unknown.JointA].Missing.push_back(k);
      if (unknown.IsMember() && unknown.JointB != unknown.JointA)
        joints_[unknown.JointB].Missing.push_back(k);
    } else if (unknown.IsMember()) {
      const PlacedJoint& a = graph.Joints[unknown.JointA];
      const PlacedJoint& b = graph.Joints[unknown.JointB];
      const double dx = static_cast<double>(a.X) - b.X;
      const double dy = static_cast<double>(a.Y) - b.Y;
      const double length = std::hypot(dx, dy);
      if (length == 0) return;
      // A member that pushes does so away from its other end.
      Add(unknown.JointA, *value * dx / length, *value * dy / length);
      Add(unknown.JointB, -*value * dx / length, -*value * dy / length);
    } else if (unknown.Along == Axis::X) {
      Add(unknown.JointA, unknown.Sign * *value, 0);
    } else {
      Add(unknown.JointA, 0, unknown.Sign * *value);
    }
  }

  Table<FollowedJoint> joints_;
  Table<double> largest_;
};

// "the vertical forces leave 250 upward"
std::string LeftOver(const char* which, double over, const char* positive, const char* negative,
                     const ReportFormat& format) {
  return std::string("the ") + which + " forces leave " + FormatSigFigs(std::abs(over), format) + ' ' +
         (over > 0 ? positive : negative);
}

std::string SlipText(const FollowedJoint& joint, const ReportFormat& format) {
  // A component that is small beside the other one is not what went wrong.
  const double worth = BalancedWithin * std::hypot(joint.OverX, joint.OverY);
  std::string text;
  if (std::abs(joint.OverX) > worth)
    text = LeftOver("horizontal", joint.OverX, "to the right", "to the left", format);
  if (std::abs(joint.OverY) > worth) {
    text += text.empty() ? "" : ", and ";
    text += LeftOver("vertical", joint.OverY, "upward", "downward", format);
  }
  return text;
}

bool ActsAt(const PlacedUnknown& unknown, int joint) {
  return unknown.JointA == joint || unknown.JointB == joint;
}

// The values at the joint that are not those of the solutions.
std::vector<int> OwnValuesAt(int joint, const TrussGraph& graph, const Table<Verdict>& verdicts) {
  std::vector<int> own;
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const bool isRight = verdicts[k] == Verdict::Right || verdicts[k] == Verdict::Empty;
    if (!isRight && ActsAt(graph.Unknowns[k], joint)) own.push_back(k);
  }
  return own;
}

}  // namespace

int Followed::NumBalanced() const {
  return static_cast<int>(
      std::ranges::count(Joints.First(Joints.Size()), JointVerdict::Balances, &FollowedJoint::What));
}

int Followed::NumJudged() const {
  return Joints.Size() - static_cast<int>(std::ranges::count(Joints.First(Joints.Size()), JointVerdict::Open,
                                                             &FollowedJoint::What));
}

std::vector<int> OrderByHand(const TrussGraph& graph, const HandSolution& solution) {
  std::vector<int> order;
  Table<char> isIn(graph.NumJoints());
  const auto take = [&](int joint) {
    if (joint == 0 || isIn[joint] != 0) return;
    isIn[joint] = 1;
    order.push_back(joint);
  };
  for (const HandStep& step : solution.Steps) {
    if (step.Kind == HandStepKind::Joint || step.Kind == HandStepKind::ZeroForce) take(step.Joint);
  }
  for (int j = 1; j <= graph.NumJoints(); ++j) take(j);
  return order;
}

Followed Follow(const TrussGraph& graph, const ForceValues& given, const std::vector<int>& order) {
  Followed followed{Sums(graph, given).Judged(), order};
  const auto slip =
      std::ranges::find(order, JointVerdict::Slips, [&](int joint) { return followed.Joints[joint].What; });
  if (slip != order.end()) followed.Slip = *slip;
  return followed;
}

Table<char> ChecksThatFail(const Followed& followed, const HandSolution& solution) {
  Table<char> xChecks(followed.Joints.Size()), yChecks(followed.Joints.Size());
  for (const HandStep& step : solution.Steps) {
    if (step.Kind != HandStepKind::Joint) continue;
    for (const BalanceEquation& equation : step.Equations) {
      if (equation.Use != BalanceUse::Holds) continue;
      if (equation.Kind == BalanceKind::X) xChecks[step.Joint] = 1;
      if (equation.Kind == BalanceKind::Y) yChecks[step.Joint] = 1;
    }
  }
  Table<char> fails(followed.Joints.Size());
  for (int j = 1; j <= fails.Size(); ++j) {
    const FollowedJoint& joint = followed.Joints[j];
    if (joint.What != JointVerdict::Slips) continue;
    const double worth = BalancedWithin * std::hypot(joint.OverX, joint.OverY);
    const bool xIsFine = std::abs(joint.OverX) <= worth || xChecks[j] != 0;
    const bool yIsFine = std::abs(joint.OverY) <= worth || yChecks[j] != 0;
    fails[j] = xIsFine && yIsFine ? 1 : 0;
  }
  return fails;
}

std::string JointText(int joint, const Followed& followed, const TrussGraph& graph,
                      const Table<Verdict>& verdicts, const DistinctNames& names,
                      const ReportFormat& format) {
  const FollowedJoint& judged = followed.Joints[joint];
  switch (judged.What) {
    case JointVerdict::Open:
      return Capital(names.JointInWords(joint)) + " cannot be judged yet: " + names.Forces(judged.Missing) +
             (judged.Missing.size() == 1 ? " is missing." : " are missing.");
    case JointVerdict::Balances: {
      const std::vector<int> own = OwnValuesAt(joint, graph, verdicts);
      return Capital(names.JointInWords(joint)) + " is right" +
             (own.empty() ? "." : " with your " + names.Forces(own) + '.');
    }
    case JointVerdict::Slips:
      break;
  }
  return (joint == followed.Slip ? "The slip is at " : "Nor do the forces balance at ") +
         names.JointInWords(joint) + ": " + SlipText(judged, format) + '.';
}
