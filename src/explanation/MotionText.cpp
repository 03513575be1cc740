#include "explanation/MotionText.h"

#include <algorithm>
#include <cmath>

#include "explanation/Directions.h"
#include "text/Sentence.h"

namespace {

const char* ExtentText(MotionExtent extent) {
  switch (extent) {
    case MotionExtent::Tightens:
      return "It tightens after a tiny displacement: at second order (with the square of the displacement) "
             "members do change their lengths, and a self-stress works against that.";
    case MotionExtent::MovesOn:
      return "It moves on: no member and no support stops it.";
    case MotionExtent::Small:
      break;
  }
  return "This holds for small displacements; whether it goes on is not decided here.";
}

}  // namespace

MotionTeller::MotionTeller(const TrussGraph& graph, const ReportFormat& format)
    : graph_(graph), format_(format), pieces_(graph), names_(graph, format, OddNames::InBrackets) {}

std::string MotionTeller::Displacements(const Motion& motion) const {
  const auto by = [this](const JointDisplacement& at) {
    return ' ' + DirectionText(at.Dx, at.Dy) + " by " + PairText(at.Dx, at.Dy, format_);
  };
  if (motion.Joints.size() == 1) {
    const JointDisplacement& at = motion.Joints.front();
    return Capital(names_.JointInWords(at.Joint)) + by(at) + "; all others stand still.";
  }
  std::vector<std::string> moves;
  for (const JointDisplacement& at : motion.Joints) moves.push_back(names_.Joint(at.Joint) + by(at));
  return "Joints move: " + ListOf(moves, 8) + '.';
}

std::string MotionTeller::InOneLine(const Motion& motion) const {
  std::vector<int> joints;
  const JointDisplacement* most = nullptr;
  const auto size = [](const JointDisplacement& at) { return std::hypot(at.Dx, at.Dy); };
  for (const JointDisplacement& at : motion.Joints) {
    joints.push_back(at.Joint);
    if (most == nullptr || size(at) > size(*most) * (1 + 1e-9)) most = &at;
  }
  if (most == nullptr) return "no joint moves";
  constexpr std::size_t mostNames = 4;
  const std::string direction = DirectionText(most->Dx, most->Dy);
  const std::string text = names_.Joints(joints, mostNames);
  if (joints.size() == 1) return text + " moves " + direction;
  return text + " move (" + names_.Joint(most->Joint) + ' ' + direction + ')';
}

std::string MotionTeller::TurnText(const MovingPiece& piece) const {
  return std::string(piece.Anticlockwise ? "anticlockwise" : "clockwise") + " about " +
         names_.Point(piece.CentreX, piece.CentreY);
}

std::string MotionTeller::RigidText(const Motion& motion, const std::vector<MovingPiece>& pieces) const {
  const JointDisplacement& first = motion.Joints.front();
  const bool slides = static_cast<int>(motion.Joints.size()) == graph_.NumJoints() &&
                      std::ranges::all_of(motion.Joints, [&](const JointDisplacement& at) {
                        return std::abs(at.Dx - first.Dx) < 1e-9 && std::abs(at.Dy - first.Dy) < 1e-9;
                      });
  if (slides) return "The whole truss slides " + DirectionText(first.Dx, first.Dy) + ".";
  // A part that stands apart may be too small to tell.
  const auto turning = std::ranges::find_if(pieces, &MovingPiece::Turns);
  if (turning == pieces.end()) return "The whole truss moves as one piece.";
  return "The whole truss turns " + TurnText(*turning) + ".";
}

std::string MotionTeller::PieceText(const MovingPiece& piece) const {
  const bool one = piece.Members.size() == 1;
  const std::string members = names_.Members(piece.Members);
  const std::string together = one ? " " : " together as one piece ";
  if (piece.Turns) return members + (one ? " turns" : " turn") + together + TurnText(piece) + ".";
  return members + (one ? " slides" : " slide") + together + DirectionText(piece.Dx, piece.Dy) + ".";
}

// Of pieces that are not told each by itself: what they are, or how many where that would be a long list.
std::string MotionTeller::FurtherText(std::span<const MovingPiece> pieces) const {
  constexpr std::size_t fewMembers = 12;
  std::size_t numMembers = 0;
  std::vector<std::string> names;
  for (const MovingPiece& piece : pieces) {
    numMembers += piece.Members.size();
    names.push_back(piece.Members.size() == 1 ? "member " + names_.Member(piece.Members.front())
                                              : "the piece of " + names_.Forces(piece.Members));
  }
  const std::string moves = pieces.size() == 1 ? " moves too" : " move too";
  if (numMembers <= fewMembers) return AsSentence(ListOf(names, fewMembers) + moves);
  return Counted(static_cast<int>(pieces.size()), "further piece", "further pieces") + " (together " +
         std::to_string(numMembers) + " members)" + moves + ".";
}

std::string MotionTeller::Text(const Motion& motion) {
  constexpr std::size_t mostPieces = 12;
  const std::vector<MovingPiece> pieces = pieces_.Of(motion);
  std::string text;
  if (motion.Kind == MotionKind::Rigid) {
    text = RigidText(motion, pieces);
  } else {
    text = Displacements(motion);
    for (std::size_t i = 0; i < std::min(pieces.size(), mostPieces); ++i) text += "  " + PieceText(pieces[i]);
    if (pieces.size() > mostPieces) text += "  " + FurtherText(std::span(pieces).subspan(mostPieces));
  }
  text += std::string("  ") + ExtentText(motion.Extent);
  return text + (motion.Work > 0 ? "  The loads drive it: they do work on it."
                                 : "  The loads do no work on it, so they do not drive it.");
}

// Which way a reaction acts: the sign alone tells that only to who remembers its support's direction.
std::string MotionTeller::SenseText(const UnknownForce& force) const {
  const PlacedUnknown& unknown = graph_.Unknowns[force.Unknown];
  if (unknown.IsMember()) return {};
  if (force.Value > 0) return " (" + DirectionOfReaction(unknown, 1) + ')';
  return " (" + FormatSigFigs(-force.Value, format_) + ' ' + DirectionOfReaction(unknown, -1) + ')';
}

std::string MotionTeller::Text(const SelfStress& stress) const {
  std::vector<int> unknowns;
  std::vector<std::string> pairs;
  for (const UnknownForce& force : stress.Forces) {
    unknowns.push_back(force.Unknown);
    pairs.push_back(names_.Force(force.Unknown) + " = " + FormatSigFigs(force.Value, format_) +
                    SenseText(force));
  }
  const std::string who = names_.ForcesAtStart(unknowns);
  const bool anyMember =
      std::ranges::any_of(unknowns, [this](int k) { return graph_.Unknowns[k].IsMember(); });
  if (unknowns.size() == 1)
    return who + " stands in no equation: it may have any value, whatever the others have.";
  return who + " hang together: forces in the proportions " + ListOf(pairs) +
         (anyMember ? " (compression positive)" : "") + " are in balance without any load.";
}

std::string MotionText(const TrussGraph& graph, const Motion& motion, const ReportFormat& format) {
  return MotionTeller(graph, format).Text(motion);
}

std::string SelfStressText(const TrussGraph& graph, const SelfStress& stress, const ReportFormat& format) {
  return MotionTeller(graph, format).Text(stress);
}
