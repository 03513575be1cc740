#include "explanation/Motions.h"

#include "explanation/RigidityMatrix.h"

std::vector<double> DisplacementsByColumn(const TrussGraph& graph, const Motion& motion) {
  std::vector<double> displacements(static_cast<std::size_t>(graph.NumEquations()));
  for (const JointDisplacement& at : motion.Joints) {
    displacements[static_cast<std::size_t>(ColumnOf(at.Joint, Axis::X))] = at.Dx;
    displacements[static_cast<std::size_t>(ColumnOf(at.Joint, Axis::Y))] = at.Dy;
  }
  return displacements;
}

void TurnWithLoads(Motion& motion) {
  const JointDisplacement& first = motion.Joints.front();
  const bool againstCustom = first.Dx < 0 || (first.Dx == 0 && first.Dy < 0);
  const bool turn = motion.Work < 0 || (motion.Work == 0 && againstCustom);
  if (!turn) return;
  motion.Work = motion.Work == 0 ? 0 : -motion.Work;
  for (JointDisplacement& at : motion.Joints) {
    at.Dx = at.Dx == 0 ? 0 : -at.Dx;
    at.Dy = at.Dy == 0 ? 0 : -at.Dy;
  }
}
