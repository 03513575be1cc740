#include "explanation/MotionText.h"

#include <algorithm>
#include <cmath>

#include "explanation/Directions.h"
#include "explanation/MovingPieces.h"

namespace {

std::string TurnText(const TrussGraph& graph, const MovingPiece& piece, const ReportFormat& format) {
  return std::string(piece.Anticlockwise ? "anticlockwise" : "clockwise") + " about " +
         PointText(graph, piece.CentreX, piece.CentreY, format);
}

std::string NamesOf(const TrussGraph& graph, const std::vector<int>& unknowns) {
  std::vector<std::string> names;
  names.reserve(unknowns.size());
  for (const int k : unknowns) names.push_back(graph.Unknowns[k].Name);
  return ListOf(names);
}

std::string RigidText(const TrussGraph& graph, const Motion& motion, const std::vector<MovingPiece>& pieces,
                      const ReportFormat& format) {
  const JointDisplacement& first = motion.Joints.front();
  const bool slides = static_cast<int>(motion.Joints.size()) == graph.NumJoints() &&
                      std::ranges::all_of(motion.Joints, [&](const JointDisplacement& at) {
                        return std::abs(at.Dx - first.Dx) < 1e-9 && std::abs(at.Dy - first.Dy) < 1e-9;
                      });
  if (slides) return "The whole truss slides " + DirectionText(first.Dx, first.Dy) + ".";
  if (pieces.empty() || !pieces.front().Turns) return "The whole truss moves as one piece.";
  return "The whole truss turns " + TurnText(graph, pieces.front(), format) + ".";
}

std::string JointsText(const TrussGraph& graph, const Motion& motion, const ReportFormat& format) {
  std::vector<std::string> moves;
  for (const JointDisplacement& at : motion.Joints) {
    moves.push_back(graph.Joints[at.Joint].Name + " " + DirectionText(at.Dx, at.Dy) + " by " +
                    PairText(at.Dx, at.Dy, format));
  }
  const bool one = motion.Joints.size() == 1;
  return std::string(one ? "Joint " : "Joints move: ") + ListOf(moves, 8) +
         (one ? "; all others stand still." : ".");
}

std::string PieceText(const TrussGraph& graph, const MovingPiece& piece, const ReportFormat& format) {
  const bool one = piece.Members.size() == 1;
  const std::string members = (one ? "Member " : "Members ") + NamesOf(graph, piece.Members);
  const std::string together = one ? " " : " together as one piece ";
  if (piece.Turns) {
    return members + (one ? " turns" : " turn") + together + TurnText(graph, piece, format) + ".";
  }
  return members + (one ? " slides" : " slide") + together + DirectionText(piece.Dx, piece.Dy) + ".";
}

const char* ExtentText(MotionExtent extent) {
  switch (extent) {
    case MotionExtent::Tightens:
      return "It tightens after a tiny displacement: at second order a self-stress works against it.";
    case MotionExtent::MovesOn:
      return "It moves on: nothing stops it.";
    case MotionExtent::Small:
      break;
  }
  return "This holds for small displacements; whether it goes on is not decided here.";
}

}  // namespace

std::string MotionText(const TrussGraph& graph, const Motion& motion, const ReportFormat& format) {
  constexpr std::size_t mostPieces = 6;
  const std::vector<MovingPiece> pieces = PiecesThatMove(graph, motion);
  std::string text;
  if (motion.Kind == MotionKind::Rigid) {
    text = RigidText(graph, motion, pieces, format);
  } else {
    text = JointsText(graph, motion, format);
    for (std::size_t i = 0; i < std::min(pieces.size(), mostPieces); ++i) {
      text += "  " + PieceText(graph, pieces[i], format);
    }
    if (pieces.size() > mostPieces) {
      text += "  So do " + std::to_string(pieces.size() - mostPieces) + " further pieces.";
    }
  }
  text += std::string("  ") + ExtentText(motion.Extent);
  return text + (motion.Work > 0 ? "  The loads drive it: they do work on it."
                                 : "  The loads do no work on it, so they do not drive it.");
}

std::string SelfStressText(const TrussGraph& graph, const SelfStress& stress, const ReportFormat& format) {
  std::vector<int> unknowns;
  std::vector<std::string> values;
  for (const UnknownForce& force : stress.Forces) {
    unknowns.push_back(force.Unknown);
    values.push_back(FormatSigFigs(force.Value, format));
  }
  if (unknowns.size() == 1) {
    return graph.Unknowns[unknowns.front()].Name +
           " stands in no equation: it may have any value, whatever the others have.";
  }
  std::vector<std::string> pairs;
  for (std::size_t i = 0; i < unknowns.size(); ++i)
    pairs.push_back(graph.Unknowns[unknowns[i]].Name + " = " + values[i]);
  return NamesOf(graph, unknowns) + " hang together: forces in the proportions " + ListOf(pairs) +
         " (compression positive) are in balance without any load.";
}
