// All three rules are one: where everything that acts on a joint lies in one line, but for one member, the
// sum across that line leaves this member alone.
#include "explanation/byjoint/ZeroForces.h"

#include <algorithm>
#include <vector>

namespace {

struct Attached {
  std::vector<int> Members;    // sought
  std::vector<int> Reactions;  // sought
  std::vector<int> Zeros;      // members that are known to carry nothing
  ExactVector Load;            // with the reactions that are known
  bool HasOthers = false;      // a member that is known to carry something
};

Attached AttachedTo(const TrussBalance& balance, int joint) {
  Attached attached;
  attached.Load = balance.LoadAt(joint);
  for (const int k : balance.ActingAt(joint)) {
    const bool isMember = balance.Graph().Unknowns[k].IsMember();
    if (balance.IsKnown(k)) {
      if (!isMember) continue;
      if (balance.IsKnownZero(k)) {
        attached.Zeros.push_back(k);
      } else {
        attached.HasOthers = true;
      }
    } else {
      (isMember ? attached.Members : attached.Reactions).push_back(k);
    }
  }
  return attached;
}

// Whether a joint's members but for one lie in one line, and reactions and loads too.
bool OthersAreInLine(const TrussBalance& balance, const Attached& attached, int member) {
  int line = 0;
  const auto fits = [&](int k) {
    if (k == member) return true;
    if (line == 0) line = k;
    return balance.AreParallel(line, k);
  };
  if (!std::ranges::all_of(attached.Members, fits) || !std::ranges::all_of(attached.Reactions, fits) ||
      line == 0)
    return false;
  return AreInLine(attached.Load, balance.Direction(line)) && !balance.AreParallel(line, member);
}

}  // namespace

std::optional<HandStep> ZeroForcesAt(TrussBalance& balance, int joint) {
  const Attached attached = AttachedTo(balance, joint);
  if (attached.HasOthers || attached.Members.empty()) return std::nullopt;
  const bool isLoaded = !attached.Load.IsZero() || !attached.Reactions.empty();
  HandStep step{.Kind = HandStepKind::ZeroForce, .Joint = joint};
  step.LeftOut = attached.Zeros;
  if (attached.Members.size() == 1) {
    if (isLoaded) return std::nullopt;
    step.Solved = {{attached.Members.front(), 0}};
  } else {
    for (const int member : attached.Members) {
      if (OthersAreInLine(balance, attached, member)) step.Solved.push_back({member, 0});
    }
    if (step.Solved.empty()) return std::nullopt;
    const bool both = step.Solved.size() == attached.Members.size();
    step.Rule = both ? ZeroRule::TwoOutOfLine : isLoaded ? ZeroRule::LoadAlongOne : ZeroRule::ThirdOfThree;
    for (const int k : attached.Members) {
      if (!both && k != step.Solved.front().Unknown) step.InLine.push_back(k);
    }
  }
  for (const UnknownForce& force : step.Solved) balance.Learn(force.Unknown, {});
  return step;
}
