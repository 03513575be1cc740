#include "explanation/AdviceText.h"

#include <algorithm>

#include "explanation/Directions.h"
#include "explanation/HoldingSet.h"

namespace {

class AdviceTeller {
 public:
  AdviceTeller(const Explanation& explanation, const DistinctNames& names)
      : on_(explanation), names_(names) {}

  std::vector<const Advice*> Suggested(AdviceKind kind) const {
    std::vector<const Advice*> found;
    for (const Advice& advice : on_.Suggestions) {
      if (advice.Kind == kind) found.push_back(&advice);
    }
    return found;
  }

  std::vector<std::string> Help() const {
    std::vector<std::string> paragraphs;
    AddSupports(paragraphs);
    std::vector<std::string> turns;
    for (const Advice* turn : Suggested(AdviceKind::TurnRoller))
      turns.push_back("the one at " + names_.JointInWords(turn->JointA) + ", so that it " + HoldText(*turn));
    if (!turns.empty()) {
      const std::string one = turns.size() == 1 ? "a roller" : "one of the rollers";
      const bool isEnough = on_.Exact.Verdict.Mechanisms() == 1;
      paragraphs.push_back((isEnough ? "It is enough to turn " : "Turn ") + one + ": " +
                           Joined(turns, "; or ") + ".  " + Capital(StopsText(1)) + ".");
    }
    AddClamps(paragraphs);
    std::vector<std::string> additions;
    for (const Advice& advice : on_.Suggestions) {
      if (advice.IsAddition()) additions.push_back(AdditionText(advice));
    }
    if (!additions.empty()) {
      const std::string each = !paragraphs.empty() ? "Otherwise each"
                               : Slips().empty()   ? "Each"
                                                   : "If the drawing is to stay as it is: each";
      paragraphs.push_back(each + " of these, added alone, stops one motion" + OthersOf(additions) + ": " +
                           Joined(additions, "; ") + ".");
      AddNumberNeeded(paragraphs);
    }
    return paragraphs;
  }

  std::vector<std::string> Slips() const {
    std::vector<std::string> paragraphs;
    AddMoves(paragraphs);
    for (const Advice* split : Suggested(AdviceKind::SplitMember)) paragraphs.push_back(SplitText(*split));
    for (const Advice* join : Suggested(AdviceKind::JoinEnds)) {
      paragraphs.push_back("Joints " + names_.WithPlace(join->JointA) + " and " +
                           names_.WithPlace(join->JointB) +
                           " nearly meet.  Draw them to one place: " + StopsText(join->Stops) + ".");
    }
    AddTwins(paragraphs);
    return paragraphs;
  }

  // A state of self-stress of two members between the same joints and nothing else.
  void AddTwins(std::vector<std::string>& paragraphs) const {
    for (const SelfStress& stress : on_.Exact.SelfStresses) {
      if (stress.Forces.size() != 2 || paragraphs.size() >= static_cast<std::size_t>(MostAdvice)) continue;
      const int k = stress.Forces[0].Unknown;
      const PlacedUnknown& first = on_.Graph.Unknowns[k];
      const PlacedUnknown& second = on_.Graph.Unknowns[stress.Forces[1].Unknown];
      if (!first.IsMember() || !second.IsMember() ||
          std::minmax(first.JointA, first.JointB) != std::minmax(second.JointA, second.JointB))
        continue;
      paragraphs.push_back(names_.Members({k, stress.Forces[1].Unknown}) + " lie on one another, from " +
                           names_.Joint(first.JointA) + " to " + names_.Joint(first.JointB) +
                           ".  If one was drawn twice, erase the other: that takes away one state of "
                           "self-stress, and nothing moves that did not move before.");
    }
  }

  // A truss that nothing holds needs supports before anything else.
  void AddSupports(std::vector<std::string>& paragraphs) const {
    if (!HasNoSupports(on_.Graph)) return;
    std::string text = "This truss has no supports.";
    if (StartsWithClamp()) {
      text += "  A clamp at " + names_.JointInWords(on_.Together[0].JointA) + " and " +
              AdditionText(on_.Together[2]) + " would hold it: " + StopsText(3) + ".";
    }
    paragraphs.push_back(text);
  }

  bool StartsWithClamp() const {
    return HasNoSupports(on_.Graph) && on_.Together.size() >= 3 &&
           on_.Together[0].Kind == AdviceKind::AddRoller && on_.Together[1].Kind == AdviceKind::AddRoller &&
           on_.Together[0].JointA == on_.Together[1].JointA && on_.Together[2].Kind == AdviceKind::AddRoller;
  }

  void AddMoves(std::vector<std::string>& paragraphs) const {
    for (const Advice* move : Suggested(AdviceKind::MoveForce)) {
      paragraphs.push_back("The force at " + names_.WithPlace(move->JointA) +
                           " acts on no member.  Move the force to a joint where members end: " +
                           StopsText(move->Stops) + ".");
    }
  }

  std::string SplitText(const Advice& split) const {
    const PlacedUnknown& member = on_.Graph.Unknowns[split.Unknown];
    std::vector<std::string> passed;
    std::vector<std::string> parts;
    int last = member.JointA;
    for (const int joint : split.Through) {
      passed.push_back(names_.WithPlace(joint));
      parts.push_back(names_.Joint(last) + " to " + names_.Joint(joint));
      last = joint;
    }
    parts.push_back(names_.Joint(last) + " to " + names_.Joint(member.JointB));
    const bool isOne = passed.size() == 1;
    return "Member " + names_.Member(split.Unknown) + " passes " + (isOne ? "joint " : "joints ") +
           ListOf(passed) + " without ending there.  Draw it as " +
           (isOne ? "two" : std::to_string(parts.size())) + " members that end there, " + ListOf(parts) +
           ": " + StopsText(split.Stops) + ".";
  }

  void AddClamps(std::vector<std::string>& paragraphs) const {
    std::vector<std::string> clamps;
    for (const Advice* clamp : Suggested(AdviceKind::ClampForRoller))
      clamps.push_back((clamps.empty() ? "the roller at " : "of the one at ") +
                       names_.JointInWords(clamp->JointA));
    if (clamps.empty()) return;
    paragraphs.push_back("Put a clamp in place of " + Joined(clamps, ", or ") + ": " + StopsText(1) + ".");
  }

  // With several motions no single addition is enough.
  void AddNumberNeeded(std::vector<std::string>& paragraphs) const {
    const int motions = on_.Exact.Verdict.Mechanisms();
    if (motions < 2 || !Suggested(AdviceKind::MoveForce).empty()) return;
    std::string text = "With " + std::to_string(motions) + " motions it takes " + std::to_string(motions) +
                       " of them or more to hold it.";
    if (StartsWithClamp()) text += "  A clamp counts as two rollers.";
    if (!on_.Together.empty() && !(StartsWithClamp() && motions == 3)) {
      std::vector<std::string> set;
      for (const Advice& advice : on_.Together) set.push_back(AdditionText(advice));
      text += "  Together these are enough: " + Joined(set, "; ") + ".";
    }
    paragraphs.push_back(text);
  }

  std::string AdditionText(const Advice& advice) const {
    if (advice.Kind == AdviceKind::AddMember)
      return "a member between " + names_.Joints({advice.JointA, advice.JointB});
    return "a roller at " + names_.JointInWords(advice.JointA) + " that " + HoldText(advice) +
           (IsSupported(on_.Graph, advice.JointA) ? " (a clamp in place of its roller)" : "");
  }

  static std::string HoldText(const Advice& roller) {
    return std::string("holds it ") + (roller.Along == Axis::X ? "sideways" : "up and down");
  }

  std::string StopsText(int stops) const {
    const int all = on_.Exact.Verdict.Mechanisms();
    if (stops == all) return "then nothing can move any more";
    return "that stops " + (stops == 1 ? "one" : std::to_string(stops)) + " of the " + std::to_string(all) +
           " motions";
  }

  std::vector<std::string> Removals() const {
    std::vector<std::string> removals;
    for (const Advice* advice : Suggested(AdviceKind::Remove))
      removals.push_back(RemovalText(advice->Unknown));
    if (removals.empty()) return {};
    return {"Each of these, left out alone, lets nothing move that did not move before" + OthersOf(removals) +
            ": " + ListOf(removals) +
            ".  They are part of a self-stress.  A member is not superfluous because its force is 0: "
            "under another load it may be needed."};
  }

  // A clamp without one of its reactions is a roller, and a roller without its own is nothing.
  std::string RemovalText(int k) const {
    const PlacedUnknown& unknown = on_.Graph.Unknowns[k];
    if (unknown.IsMember()) return names_.Force(k);
    const std::string joint = names_.JointInWords(unknown.JointA);
    return names_.ReactionInWords(k) + (IsSupported(on_.Graph, unknown.JointA, k)
                                            ? " (a roller is enough at " + joint + ")"
                                            : " (the roller at " + joint + ")");
  }

  // The search ends when it has enough.
  static std::string OthersOf(const std::vector<std::string>& found) {
    return found.size() < static_cast<std::size_t>(MostAdvice) ? "" : " (there may be others)";
  }

  static std::string Joined(const std::vector<std::string>& items, const std::string& between) {
    std::string text;
    for (const std::string& item : items) text += (text.empty() ? "" : between) + item;
    return text;
  }

  const Explanation& on_;
  const DistinctNames& names_;
};

}  // namespace

std::vector<std::string> WhatMayBeASlip(const Explanation& explanation, const DistinctNames& names) {
  return AdviceTeller(explanation, names).Slips();
}

std::vector<std::string> WhatWouldHelp(const Explanation& explanation, const DistinctNames& names) {
  return AdviceTeller(explanation, names).Help();
}

std::vector<std::string> WhatMayBeLeftOut(const Explanation& explanation, const DistinctNames& names) {
  return AdviceTeller(explanation, names).Removals();
}
