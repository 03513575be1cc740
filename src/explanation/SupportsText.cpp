#include "explanation/SupportsText.h"

#include <algorithm>
#include <vector>

#include "explanation/Directions.h"
#include "explanation/HoldingSet.h"
#include "explanation/RigidMotions.h"

namespace {

// Why no reaction stands against a motion of the whole truss.
std::string WhyNoneResists(const RigidMotion& motion, const DistinctNames& names) {
  if (motion.Turns) {
    return "the lines of all reactions pass through " + names.Point(motion.CentreX, motion.CentreY) +
           ", so that none of them has a moment about it";
  }
  return std::string("no reaction acts ") + (motion.Ux != 0 ? "sideways" : "up or down");
}

// Parts with members on which no reaction acts.
std::vector<std::vector<int>> PartsWithoutReaction(const TrussGraph& graph) {
  const TrussPieces pieces = PiecesOf(graph);
  std::vector<std::vector<int>> parts(static_cast<std::size_t>(pieces.Count));
  std::vector<char> isHeld(parts.size());
  const auto pieceOf = [&pieces](int joint) { return static_cast<std::size_t>(pieces.OfJoint[joint]); };
  for (int j = 1; j <= graph.NumJoints(); ++j) parts[pieceOf(j)].push_back(j);
  for (const PlacedUnknown& unknown : graph.Unknowns.First(graph.NumUnknowns())) {
    if (!unknown.IsMember()) isHeld[pieceOf(unknown.JointA)] = 1;
  }
  std::vector<std::vector<int>> without;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (isHeld[i] == 0 && parts[i].size() > 1) without.push_back(std::move(parts[i]));
  }
  return without;
}

}  // namespace

bool KeepsItsShape(const Explanation& explanation) {
  return std::ranges::all_of(explanation.Exact.Motions,
                             [](const Motion& motion) { return motion.Kind == MotionKind::Rigid; });
}

std::string NoSupportsText(const Explanation& explanation) {
  if (!HasNoSupports(explanation.Graph)) return {};
  const std::string text = "This truss has no supports at all: nothing holds it in its place.  ";
  // Three motions are those of a rigid piece, and a clamp and a roller stop just these.
  constexpr int ofARigidPiece = 3;
  const bool isOnePiece =
      KeepsItsShape(explanation) && explanation.Exact.Verdict.Mechanisms() == ofARigidPiece;
  return text + (isOnePiece
                     ? "It keeps its shape by itself, so a clamp and a roller would hold it: the roller "
                       "at another joint, and so that its line does not pass through the clamp."
                     : "A clamp and a roller alone would not hold it: it does not keep its shape either.");
}

std::string PartsWithoutSupportText(const Explanation& explanation, const DistinctNames& names) {
  if (HasNoSupports(explanation.Graph)) return {};
  constexpr std::size_t mostParts = 4;
  const std::vector<std::vector<int>> parts = PartsWithoutReaction(explanation.Graph);
  std::vector<std::string> told;
  for (const std::vector<int>& joints : parts) told.push_back("the part with " + names.Joints(joints, 12));
  if (told.empty()) return {};
  const bool one = told.size() == 1;
  return "The truss is in parts that no member joins.  " + Capital(ListOf(told, mostParts)) +
         (one ? " has no support: nothing holds it in its place."
              : " have no support: nothing holds them in their places.");
}

std::string TrianglesText(const Explanation& explanation, const DistinctNames& names) {
  std::string reasons;
  if (HasNoSupports(explanation.Graph)) {
    reasons = "no reaction holds it at all";
  } else {
    for (const RigidMotion& motion : RigidMotions(explanation.Graph))
      reasons += (reasons.empty() ? "" : "; ") + WhyNoneResists(motion, names);
  }
  return "The truss keeps its shape; it is its supports that let it move as a whole.  Counting's sentence "
         "\"If the truss consists only of triangles then this is guaranteed\" speaks of the shape, which "
         "triangles keep, and takes for granted that the supports hold it.  Here they do not: " +
         reasons + ".";
}
