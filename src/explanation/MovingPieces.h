// The parts of a truss that keep their shape in a motion.
#pragma once

#include <cstddef>
#include <vector>

#include "explanation/Motions.h"
#include "explanation/RigidityMatrix.h"
#include "explanation/TrussGraph.h"

/// A piece that turns about a point farther away than ten thousand times its own extent is told as one that
/// slides: over the whole piece its displacements differ by less than a ten thousandth of themselves. That is
/// a hundredth of a pixel in a drawing that swings by a twentieth of a screen, and as much as directions or
/// coordinates of a few figures leave of a turn when the members were meant to be parallel.
inline constexpr double LeastTurn = 1e-4;

/// Members that move as one piece.
struct MovingPiece {
  std::vector<int> Members;         ///< unknowns, ascending
  bool Turns = false;               ///< else it slides; see LeastTurn
  double CentreX = 0, CentreY = 0;  ///< world coordinates, of a turn
  bool Anticlockwise = false;       ///< of a turn
  double Dx = 0, Dy = 0;            ///< of a joint of the piece: where a slide goes
};

/// Finds the pieces of one motion of a truss after the other. What all motions share is worked out once, so
/// that each costs no more than what moves in it: a truss may have as many motions as joints.
class PieceFinder {
 public:
  /// The graph must outlive it.
  explicit PieceFinder(const TrussGraph& graph);

  /// The pieces into which a motion parts the members that move, by their first members. Members that stand
  /// still are in none.
  std::vector<MovingPiece> Of(const Motion& motion);

 private:
  // A small motion of a plane: displacement of the origin and rate of turning.
  struct PlaneMotion {
    double Ux = 0, Uy = 0, Rate = 0;
  };
  // A member that moves; `Next` leads to another one of its piece, in the end to the piece's first.
  struct MovingMember {
    int Unknown;
    PlaneMotion Moves;
    std::size_t Next;
  };

  void FindMembers(const Motion& motion);
  void JoinMembers();
  void Forget(const Motion& motion);
  PlaneMotion MotionOf(const PlacedUnknown& member) const;
  bool AreEqual(const PlaneMotion& one, const PlaneMotion& other) const;
  void Describe(MovingPiece& piece, const PlaneMotion& motion) const;
  std::size_t FirstOfPiece(std::size_t member);

  const TrussGraph& graph_;
  Table<std::vector<int>> unknownsAt_;
  Table<WrittenPlace> at_;

  // Of the motion in hand.
  Table<JointDisplacement> moved_;               // joint 0: it stands still
  Table<std::vector<std::size_t>> differentAt_;  // by joint: members that move differently
  std::vector<MovingMember> members_;            // ascending
  double originX_ = 0, originY_ = 0;
  double size_ = 0;  // of what moves, world units
};
