// Motions and states of self-stress in words.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "explanation/DistinctNames.h"
#include "explanation/Motions.h"
#include "explanation/MovingPieces.h"
#include "explanation/TrussGraph.h"

/// Tells the motions and the states of self-stress of a truss, one after the other.
class MotionTeller {
 public:
  /// Both must outlive it.
  MotionTeller(const TrussGraph& graph, const ReportFormat& format);

  /// Which joints move and where to, which members turn or slide as one piece, what becomes of it, and
  /// whether the loads drive it. A single-byte text of a few sentences.
  std::string Text(const Motion& motion);

  /// Only which joints move, in one line, with the way of one that moves most: "joints C, D and E move (D up
  /// and to the left)".
  std::string InOneLine(const Motion& motion) const;

  /// Each joint that moves with its direction and its displacement, of more than eight the first ones: a
  /// sentence.
  std::string Displacements(const Motion& motion) const;

  /// Which unknowns hang together, and in what proportions; of reactions also which way they act.
  std::string Text(const SelfStress& stress) const;

 private:
  std::string RigidText(const Motion& motion, const std::vector<MovingPiece>& pieces) const;
  std::string PieceText(const MovingPiece& piece) const;
  std::string FurtherText(std::span<const MovingPiece> pieces) const;
  std::string TurnText(const MovingPiece& piece) const;
  std::string SenseText(const UnknownForce& force) const;

  const TrussGraph& graph_;
  ReportFormat format_;
  PieceFinder pieces_;
  DistinctNames names_;
};

/// The text of a single motion.
std::string MotionText(const TrussGraph& graph, const Motion& motion, const ReportFormat& format);

/// The text of a single state.
std::string SelfStressText(const TrussGraph& graph, const SelfStress& stress, const ReportFormat& format);
