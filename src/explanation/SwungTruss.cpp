#include "explanation/SwungTruss.h"

#include <algorithm>
#include <unordered_map>

#include "canvas/Paper.h"
#include "document/JointList.h"

namespace {

// World units by which the joint at a place moves.
class SwungJoints {
 public:
  SwungJoints(const TrussGraph& graph, const Motion& motion, double length) {
    for (const JointDisplacement& at : motion.Joints) {
      const PlacedJoint& joint = graph.Joints[at.Joint];
      of_.emplace(PositionKey(joint.X, joint.Y), Step{length * at.Dx, length * at.Dy});
    }
  }

  void Move(float& x, float& y) const {
    const auto found = of_.find(PositionKey(x, y));
    if (found == of_.end()) return;
    x = FiniteSingle(x + found->second.Dx);
    y = FiniteSingle(y + found->second.Dy);
  }

 private:
  struct Step {
    double Dx, Dy;
  };
  std::unordered_map<PositionKey, Step, PositionHash> of_;
};

}  // namespace

Truss Swung(const Truss& truss, const TrussGraph& graph, const Motion* motion, double swing) {
  Truss moved = truss;
  if (motion == nullptr) return moved;
  const double length = std::clamp(swing, -1.0, 1.0) * LargestSwing * ExtentOf(graph).Size();
  const SwungJoints displacements(graph, *motion, length);
  for (MemberRec& member : moved.MembersInUse()) {
    displacements.Move(member.X1, member.Y1);
    displacements.Move(member.X2, member.Y2);
  }
  for (SupportRec& support : moved.SupportsInUse()) displacements.Move(support.X, support.Y);
  for (ForceRec& force : moved.ForcesInUse()) displacements.Move(force.X, force.Y);
  for (JointRec& joint : moved.JointsInUse()) displacements.Move(joint.X, joint.Y);
  return moved;
}
