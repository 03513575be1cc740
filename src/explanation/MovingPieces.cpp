#include "explanation/MovingPieces.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "explanation/RigidityMatrix.h"

namespace {

std::size_t At(int index) { return static_cast<std::size_t>(index); }

// A small motion of a plane: velocity at the origin and rate of turning.
struct PlaneMotion {
  double Ux = 0, Uy = 0, Rate = 0;
};

class PieceFinder {
 public:
  PieceFinder(const TrussGraph& graph, const Motion& motion)
      : graph_(graph), moved_(DisplacementsByColumn(graph, motion)) {
    const PlacedJoint& first = graph.Joints[motion.Joints.front().Joint];
    originX_ = first.X;
    originY_ = first.Y;
    for (int k = 1; k <= graph.NumUnknowns(); ++k) {
      const PlacedUnknown& member = graph.Unknowns[k];
      if (!member.IsMember() || !Moves(member)) continue;
      for (const int joint : {member.JointA, member.JointB}) {
        size_ = std::max(
            {size_, std::abs(graph.Joints[joint].X - originX_), std::abs(graph.Joints[joint].Y - originY_)});
      }
    }
  }

  std::vector<MovingPiece> All() {
    std::vector<PlaneMotion> motions;
    std::vector<MovingPiece> pieces;
    std::multimap<int, std::size_t> piecesAt;  // by joint
    for (int k = 1; k <= graph_.NumUnknowns(); ++k) {
      const PlacedUnknown& member = graph_.Unknowns[k];
      if (!member.IsMember() || member.JointA == member.JointB || !Moves(member)) continue;
      const PlaneMotion motion = MotionOf(member);
      std::size_t piece = pieces.size();
      for (const int joint : {member.JointA, member.JointB}) {
        const auto [begin, end] = piecesAt.equal_range(joint);
        for (auto it = begin; it != end && piece == pieces.size(); ++it) {
          if (AreEqual(motions[it->second], motion)) piece = it->second;
        }
      }
      if (piece == pieces.size()) {
        motions.push_back(motion);
        pieces.push_back(PieceOf(motion));
      }
      pieces[piece].Members.push_back(k);
      piecesAt.emplace(member.JointA, piece);
      piecesAt.emplace(member.JointB, piece);
    }
    return Merged(std::move(pieces), motions);
  }

 private:
  double Moved(int joint, Axis axis) const { return moved_[At(ColumnOf(joint, axis))]; }
  bool Moves(int joint) const { return Moved(joint, Axis::X) != 0 || Moved(joint, Axis::Y) != 0; }
  bool Moves(const PlacedUnknown& member) const { return Moves(member.JointA) || Moves(member.JointB); }

  PlaneMotion MotionOf(const PlacedUnknown& member) const {
    const PlacedJoint& a = graph_.Joints[member.JointA];
    const PlacedJoint& b = graph_.Joints[member.JointB];
    const double x = double{b.X} - double{a.X};
    const double y = double{b.Y} - double{a.Y};
    const double dx = Moved(member.JointB, Axis::X) - Moved(member.JointA, Axis::X);
    const double dy = Moved(member.JointB, Axis::Y) - Moved(member.JointA, Axis::Y);
    PlaneMotion motion;
    motion.Rate = (x * dy - y * dx) / (x * x + y * y);
    motion.Ux = Moved(member.JointA, Axis::X) + motion.Rate * (a.Y - originY_);
    motion.Uy = Moved(member.JointA, Axis::Y) - motion.Rate * (a.X - originX_);
    return motion;
  }

  // Displacements are at most 1, so a difference of 1e-9 on the drawing is none.
  bool AreEqual(const PlaneMotion& one, const PlaneMotion& other) const {
    return std::abs(one.Ux - other.Ux) < 1e-9 && std::abs(one.Uy - other.Uy) < 1e-9 &&
           std::abs(one.Rate - other.Rate) * size_ < 1e-9;
  }

  MovingPiece PieceOf(const PlaneMotion& motion) const {
    MovingPiece piece;
    piece.Turns = std::abs(motion.Rate) * size_ > 1e-9;
    piece.Anticlockwise = motion.Rate > 0;
    piece.CentreX = piece.Turns ? originX_ - motion.Uy / motion.Rate : 0;
    piece.CentreY = piece.Turns ? originY_ + motion.Ux / motion.Rate : 0;
    piece.Dx = motion.Ux;
    piece.Dy = motion.Uy;
    return piece;
  }

  // Members met in an unlucky order have started a piece twice: pieces that share a joint and a motion are
  // one.
  std::vector<MovingPiece> Merged(std::vector<MovingPiece> pieces,
                                  const std::vector<PlaneMotion>& motions) const {
    for (bool changed = true; changed;) {
      changed = false;
      std::map<int, std::vector<std::size_t>> at;
      for (std::size_t p = 0; p < pieces.size(); ++p) {
        for (const int k : pieces[p].Members) {
          for (const int joint : {graph_.Unknowns[k].JointA, graph_.Unknowns[k].JointB})
            at[joint].push_back(p);
        }
      }
      for (const auto& [joint, numbers] : at) {
        for (const std::size_t p : numbers) {
          const std::size_t first = numbers.front();
          if (p == first || pieces[p].Members.empty() || pieces[first].Members.empty()) continue;
          if (!AreEqual(motions[first], motions[p])) continue;
          pieces[first].Members.insert(pieces[first].Members.end(), pieces[p].Members.begin(),
                                       pieces[p].Members.end());
          pieces[p].Members.clear();
          changed = true;
        }
      }
    }
    std::erase_if(pieces, [](const MovingPiece& piece) { return piece.Members.empty(); });
    for (MovingPiece& piece : pieces) std::ranges::sort(piece.Members);
    std::ranges::sort(pieces, {}, [](const MovingPiece& piece) { return piece.Members.front(); });
    return pieces;
  }

  const TrussGraph& graph_;
  std::vector<double> moved_;
  double originX_ = 0, originY_ = 0;
  double size_ = 0;  // of what moves, world units
};

}  // namespace

std::vector<MovingPiece> PiecesThatMove(const TrussGraph& graph, const Motion& motion) {
  return PieceFinder(graph, motion).All();
}
