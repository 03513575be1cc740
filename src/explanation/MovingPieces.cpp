#include "explanation/MovingPieces.h"

#include <algorithm>
#include <cmath>
#include <map>

PieceFinder::PieceFinder(const TrussGraph& graph)
    : graph_(graph),
      unknownsAt_(UnknownsByJoint(graph)),
      at_(WrittenPlaces(graph)),
      moved_(graph.NumJoints()),
      differentAt_(graph.NumJoints()) {}

std::vector<MovingPiece> PieceFinder::Of(const Motion& motion) {
  for (const JointDisplacement& at : motion.Joints) moved_[at.Joint] = at;
  FindMembers(motion);
  JoinMembers();
  std::vector<MovingPiece> pieces;
  std::vector<PlaneMotion> pieceMoves;
  std::map<std::size_t, std::size_t> pieceOf;  // by the place of its first member
  for (std::size_t i = 0; i < members_.size(); ++i) {
    const auto [found, isNew] = pieceOf.try_emplace(FirstOfPiece(i), pieces.size());
    if (isNew) pieces.push_back({});
    pieces[found->second].Members.push_back(members_[i].Unknown);
    pieceMoves.resize(pieces.size(), members_[i].Moves);
  }
  for (std::size_t p = 0; p < pieces.size(); ++p) Describe(pieces[p], pieceMoves[p]);
  Forget(motion);
  return pieces;
}

void PieceFinder::FindMembers(const Motion& motion) {
  std::vector<int> unknowns;
  for (const JointDisplacement& at : motion.Joints) {
    for (const int k : unknownsAt_[at.Joint]) {
      const PlacedUnknown& unknown = graph_.Unknowns[k];
      if (unknown.IsMember() && unknown.JointA != unknown.JointB) unknowns.push_back(k);
    }
  }
  std::ranges::sort(unknowns);
  unknowns.erase(std::unique(unknowns.begin(), unknowns.end()), unknowns.end());
  originX_ = at_[motion.Joints.front().Joint].X;
  originY_ = at_[motion.Joints.front().Joint].Y;
  size_ = 0;
  for (const int k : unknowns) {
    for (const int joint : {graph_.Unknowns[k].JointA, graph_.Unknowns[k].JointB}) {
      size_ = std::max({size_, std::abs(at_[joint].X - originX_), std::abs(at_[joint].Y - originY_)});
    }
  }
  members_.clear();
  for (const int k : unknowns) members_.push_back({k, MotionOf(graph_.Unknowns[k]), members_.size()});
}

// Members that meet and move alike are in one piece.
void PieceFinder::JoinMembers() {
  for (std::size_t i = 0; i < members_.size(); ++i) {
    const PlacedUnknown& member = graph_.Unknowns[members_[i].Unknown];
    for (const int joint : {member.JointA, member.JointB}) {
      std::vector<std::size_t>& others = differentAt_[joint];
      const auto alike = std::ranges::find_if(
          others, [&](std::size_t other) { return AreEqual(members_[other].Moves, members_[i].Moves); });
      if (alike == others.end()) {
        others.push_back(i);
        continue;
      }
      const auto [first, second] = std::minmax({FirstOfPiece(*alike), FirstOfPiece(i)});
      members_[second].Next = first;
    }
  }
}

void PieceFinder::Forget(const Motion& motion) {
  for (const JointDisplacement& at : motion.Joints) moved_[at.Joint] = {};
  for (const MovingMember& member : members_) {
    const PlacedUnknown& unknown = graph_.Unknowns[member.Unknown];
    for (const int joint : {unknown.JointA, unknown.JointB}) differentAt_[joint].clear();
  }
}

std::size_t PieceFinder::FirstOfPiece(std::size_t member) {
  while (members_[member].Next != member) {
    members_[member].Next = members_[members_[member].Next].Next;
    member = members_[member].Next;
  }
  return member;
}

PieceFinder::PlaneMotion PieceFinder::MotionOf(const PlacedUnknown& member) const {
  const WrittenPlace& from = at_[member.JointA];
  const WrittenPlace& to = at_[member.JointB];
  const JointDisplacement& a = moved_[member.JointA];
  const JointDisplacement& b = moved_[member.JointB];
  const double x = to.X - from.X;
  const double y = to.Y - from.Y;
  PlaneMotion motion;
  motion.Rate = (x * (b.Dy - a.Dy) - y * (b.Dx - a.Dx)) / (x * x + y * y);
  motion.Ux = a.Dx + motion.Rate * (from.Y - originY_);
  motion.Uy = a.Dy - motion.Rate * (from.X - originX_);
  return motion;
}

// Displacements are at most 1, so a difference of 1e-9 on the drawing is none.
bool PieceFinder::AreEqual(const PlaneMotion& one, const PlaneMotion& other) const {
  return std::abs(one.Ux - other.Ux) < 1e-9 && std::abs(one.Uy - other.Uy) < 1e-9 &&
         std::abs(one.Rate - other.Rate) * size_ < 1e-9;
}

// A piece turns when its joints tell it from a piece that slides.
void PieceFinder::Describe(MovingPiece& piece, const PlaneMotion& motion) const {
  const WrittenPlace& from = at_[graph_.Unknowns[piece.Members.front()].JointA];
  double extent = 0;
  for (const int k : piece.Members) {
    for (const int joint : {graph_.Unknowns[k].JointA, graph_.Unknowns[k].JointB})
      extent = std::max({extent, std::abs(at_[joint].X - from.X), std::abs(at_[joint].Y - from.Y)});
  }
  piece.Dx = motion.Ux - motion.Rate * (from.Y - originY_);
  piece.Dy = motion.Uy + motion.Rate * (from.X - originX_);
  const double along = std::max(std::abs(piece.Dx), std::abs(piece.Dy));
  piece.Turns = std::abs(motion.Rate) * extent > LeastTurn * along;
  if (!piece.Turns) return;
  piece.Anticlockwise = motion.Rate > 0;
  piece.CentreX = originX_ - motion.Uy / motion.Rate;
  piece.CentreY = originY_ + motion.Ux / motion.Rate;
}
