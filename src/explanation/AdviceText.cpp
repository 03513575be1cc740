#include "explanation/AdviceText.h"

#include "explanation/Directions.h"

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
    for (const Advice* join : Suggested(AdviceKind::JoinEnds)) {
      paragraphs.push_back("Joints " + names_.WithPlace(join->JointA) + " and " +
                           names_.WithPlace(join->JointB) +
                           " nearly meet.  Draw them to one place: " + StopsText(join->Stops) + ".");
    }
    std::vector<std::string> turns;
    for (const Advice* turn : Suggested(AdviceKind::TurnRoller))
      turns.push_back("the one at " + names_.JointInWords(turn->JointA) + ", so that it " + HoldText(*turn));
    if (!turns.empty()) {
      const std::string one = turns.size() == 1 ? "a roller" : "one of the rollers";
      const bool isEnough = on_.Exact.Verdict.Mechanisms() == 1;
      paragraphs.push_back((isEnough ? "It is enough to turn " : "Turn ") + one + ": " +
                           Joined(turns, "; or ") + ".  " + Capital(StopsText(1)) + ".");
    }
    std::vector<std::string> additions;
    for (const Advice* roller : Suggested(AdviceKind::AddRoller)) {
      additions.push_back(
          "a roller at " + names_.JointInWords(roller->JointA) + " that " + HoldText(*roller) +
          (IsSupported(on_.Graph, roller->JointA) ? " (a clamp in place of its roller)" : ""));
    }
    for (const Advice* member : Suggested(AdviceKind::AddMember))
      additions.push_back("a member between " + names_.Joints({member->JointA, member->JointB}));
    if (!additions.empty()) {
      const std::string each = paragraphs.empty() ? "Each" : "Otherwise each";
      paragraphs.push_back(each + " of these, added alone, stops one motion" + OthersOf(additions) + ": " +
                           Joined(additions, "; ") + ".");
    }
    return paragraphs;
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

std::vector<std::string> WhatWouldHelp(const Explanation& explanation, const DistinctNames& names) {
  return AdviceTeller(explanation, names).Help();
}

std::vector<std::string> WhatMayBeLeftOut(const Explanation& explanation, const DistinctNames& names) {
  return AdviceTeller(explanation, names).Removals();
}
