#include "explanation/AdviceText.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

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
      const std::string before = !paragraphs.empty() ? "Otherwise "
                                 : Slips().empty()   ? ""
                                                     : "If the drawing is to stay as it is: ";
      const std::string these = additions.size() == 1 ? "this" : "each of these";
      paragraphs.push_back(Capital(before + these + ", added alone, stops ") +
                           (on_.Exact.Verdict.Mechanisms() == 1 ? "the motion" : "one motion") +
                           OthersOf(additions) + ": " + Joined(additions, "; ") + ".");
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
    AddMembersWithoutLength(paragraphs);
    return paragraphs;
  }

  // The members of a state of self-stress of two members between the same joints and nothing else.
  std::optional<std::pair<int, int>> Twins(const SelfStress& stress) const {
    if (stress.Forces.size() != 2) return std::nullopt;
    const std::pair<int, int> twins{stress.Forces[0].Unknown, stress.Forces[1].Unknown};
    const PlacedUnknown& first = on_.Graph.Unknowns[twins.first];
    const PlacedUnknown& second = on_.Graph.Unknowns[twins.second];
    // Two members that hold each other in balance alone lie between the same joints.
    if (!first.IsMember() || !second.IsMember()) return std::nullopt;
    return twins;
  }

  void AddTwins(std::vector<std::string>& paragraphs) const {
    for (const SelfStress& stress : on_.Exact.SelfStresses) {
      const auto twins = Twins(stress);
      if (!twins || paragraphs.size() >= static_cast<std::size_t>(MostAdvice)) continue;
      const PlacedUnknown& first = on_.Graph.Unknowns[twins->first];
      paragraphs.push_back(names_.Members({twins->first, twins->second}) + " lie on one another, from " +
                           names_.Joint(first.JointA) + " to " + names_.Joint(first.JointB) +
                           ".  If one was drawn twice, erase the other: that takes away one state of "
                           "self-stress, and nothing moves that did not move before.");
    }
  }

  void AddMembersWithoutLength(std::vector<std::string>& paragraphs) const {
    for (int k = 1; k <= on_.Graph.NumUnknowns(); ++k) {
      const PlacedUnknown& unknown = on_.Graph.Unknowns[k];
      if (!HasNoLength(unknown) || paragraphs.size() >= static_cast<std::size_t>(MostAdvice)) continue;
      paragraphs.push_back("Member " + names_.Member(k) + " begins and ends at " +
                           names_.JointInWords(unknown.JointA) +
                           ": it has no length, holds nothing and stands in no equation.  Erase it: that "
                           "takes away one state of self-stress and changes nothing else.");
    }
  }

  static bool HasNoLength(const PlacedUnknown& unknown) { return unknown.JointA == unknown.JointB; }

  std::set<int> ToldAsSlips() const {
    std::set<int> told;
    for (const SelfStress& stress : on_.Exact.SelfStresses) {
      if (const auto twins = Twins(stress)) told.insert({twins->first, twins->second});
      const int first = stress.Forces.front().Unknown;
      if (HasNoLength(on_.Graph.Unknowns[first])) told.insert(first);
    }
    return told;
  }

  // A truss that nothing holds, of which the verdict says that a clamp and a roller would hold it.
  void AddSupports(std::vector<std::string>& paragraphs) const {
    constexpr int ofARigidPiece = 3;
    if (!StartsWithClamp() || on_.Exact.Verdict.Mechanisms() != ofARigidPiece) return;
    paragraphs.push_back("For example " + ClampText() + " and " + AdditionText(on_.Together[2]) + ": " +
                         StopsText(ofARigidPiece) + ".");
  }

  std::string ClampText() const { return "a clamp at " + names_.JointInWords(on_.Together[0].JointA); }

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
      if (StartsWithClamp()) {
        set.erase(set.begin());
        set.front() = ClampText();
      }
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

  // What was told as a slip is not told again.
  std::vector<std::string> Removals() const {
    const std::set<int> slips = ToldAsSlips();
    std::vector<std::string> removals;
    for (const Advice* advice : Suggested(AdviceKind::Remove)) {
      if (!slips.contains(advice->Unknown)) removals.push_back(RemovalText(advice->Unknown));
    }
    if (removals.empty()) return {};
    const bool isOne = removals.size() == 1;
    return {(isOne ? "This, left out, lets" : "Each of these, left out alone, lets") +
            std::string(" nothing move that did not move before") + OthersOf(removals) + ": " +
            ListOf(removals) + (isOne ? ".  It is" : ".  They are") +
            " part of a self-stress.  A member is not superfluous because its force is 0: under another load "
            "it may be needed."};
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
