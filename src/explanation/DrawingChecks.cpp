#include "explanation/DrawingChecks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <set>
#include <tuple>
#include <unordered_map>

#include "canvas/DoLabel.h"
#include "document/JointList.h"
#include "explanation/Directions.h"
#include "explanation/DistinctNames.h"
#include "explanation/DrawnGraph.h"
#include "explanation/EqualNames.h"
#include "explanation/RigidityMatrix.h"
#include "explanation/TrussExtent.h"

namespace {

class Checker {
 public:
  Checker(const Truss& truss, const DrawnWhere& where, const ReportFormat& format)
      : truss_(truss),
        where_(where),
        format_(format),
        graph_(DrawnGraph(truss)),
        names_(graph_, format, OddNames::InBrackets),
        near_(truss.Settings, where, ExtentOf(graph_).Size()) {
    for (int j = 1; j <= truss.NumJoints; ++j) {
      jointAt_.emplace(PositionKey(truss.Joints[j].X, truss.Joints[j].Y), j);
    }
    numMembersAt_.resize(static_cast<std::size_t>(truss.NumJoints) + 1);
    for (const PlacedUnknown& member : graph_.Unknowns.First(graph_.NumUnknowns())) {
      ++numMembersAt_[static_cast<std::size_t>(member.JointA)];
      if (member.JointA != member.JointB) ++numMembersAt_[static_cast<std::size_t>(member.JointB)];
    }
  }

  std::vector<DrawingCheck> All() {
    FindNearEnds();
    numPairsTold_ = 0;
    FindMembersThroughJoints();
    numPairsTold_ = 0;
    FindCoincidentMembers();
    numPairsTold_ = 0;
    FindMembersWithoutLength();
    FindCoincidentSupports();
    FindWhatIsApart();
    FindSingleMemberJoints();
    FindReactionsOutside();
    FindNamesGivenTwice();
    return std::move(checks_);
  }

 private:
  void Tell(CheckKind kind, float x, float y, const std::string& text) {
    checks_.push_back({kind, x, y, text});
  }

  // For kinds of which there may be one for every pair. Returns false when there are enough of them.
  bool TellPair(CheckKind kind, float x, float y, const std::string& text) {
    if (numPairsTold_ == MostPairs) {
      checks_.back().Text += "  There are more of this kind.";
      return false;
    }
    ++numPairsTold_;
    Tell(kind, x, y, text);
    return true;
  }

  int JointAt(float x, float y) const {
    const auto found = jointAt_.find(PositionKey(x, y));
    return found == jointAt_.end() ? 0 : found->second;
  }
  std::string At(float x, float y) const { return " at " + PairText(x, y, format_); }

  void FindNearEnds() {
    near_.ForEachPair(graph_.Joints, [this](int first, int second) {
      const PlacedJoint& joint = graph_.Joints[second];
      return TellPair(CheckKind::NearEnds, joint.X, joint.Y,
                      "Joints " + names_.WithPlace(first) + " and " + names_.WithPlace(second) +
                          " nearly meet, but they are two joints.");
    });
  }

  MemberLine LineOf(int member) const {
    return {graph_.Joints[graph_.Unknowns[member].JointA], graph_.Joints[graph_.Unknowns[member].JointB]};
  }

  void FindMembersThroughJoints() {
    for (int k = 1; k <= graph_.NumUnknowns(); ++k) {
      const MemberLine line = LineOf(k);
      for (int j = 1; j <= graph_.NumJoints(); ++j) {
        const PlacedJoint& joint = graph_.Joints[j];
        if (!near_.PassesThrough(line, joint)) continue;
        if (!TellPair(CheckKind::ThroughJoint, joint.X, joint.Y,
                      "Member " + names_.Member(k) + " passes through " + names_.JointWithPlace(j) +
                          ", where it does not end: it is not connected there."))
          return;
      }
    }
  }

  // Members on one line, by where they begin on it: each is compared with those that have not ended yet.
  void FindCoincidentMembers() {
    struct Piece {
      double From, To;
      int Member;
    };
    std::map<std::tuple<long long, long long, long long>, std::vector<Piece>> lines;
    const double unit = near_.Thousandth() > 0 ? near_.Thousandth() / 1000 : 1e-9;
    for (int k = 1; k <= graph_.NumUnknowns(); ++k) {
      const PlacedJoint& a = graph_.Joints[graph_.Unknowns[k].JointA];
      const PlacedJoint& b = graph_.Joints[graph_.Unknowns[k].JointB];
      double x = double{b.X} - double{a.X};
      double y = double{b.Y} - double{a.Y};
      const double length = std::sqrt(x * x + y * y);
      if (length == 0) continue;
      if (x < 0 || (x == 0 && y < 0)) std::tie(x, y) = std::pair(-x, -y);
      x /= length;
      y /= length;
      const double offset = double{a.X} * y - double{a.Y} * x;
      if (!(std::abs(offset / unit) < 9e17)) continue;
      const double from = double{a.X} * x + double{a.Y} * y;
      const double to = double{b.X} * x + double{b.Y} * y;
      lines[{std::llround(x * 1e6), std::llround(y * 1e6), std::llround(offset / unit)}].push_back(
          {std::min(from, to), std::max(from, to), k});
    }
    std::vector<std::pair<int, int>> pairs;
    for (auto& [line, pieces] : lines) {
      std::ranges::sort(pieces, {}, [](const Piece& piece) { return std::pair(piece.From, piece.Member); });
      for (std::size_t i = 0; i < pieces.size(); ++i) {
        for (std::size_t k = i + 1; k < pieces.size() && pieces[k].From < pieces[i].To - unit; ++k) {
          if (pairs.size() > static_cast<std::size_t>(MostPairs)) break;
          pairs.push_back(std::minmax({pieces[i].Member, pieces[k].Member}));
        }
      }
    }
    std::ranges::sort(pairs);
    for (const auto& [first, second] : pairs) {
      const PlacedJoint& end = SharedPlace(first, second, unit);
      if (!TellPair(CheckKind::CoincidentMembers, end.X, end.Y,
                    "Member " + names_.Member(first) + " and member " + names_.Member(second) +
                        " lie on one another" + Stretch(first, second) + "."))
        return;
    }
  }

  // From where to where two members on one line share it: of their four ends the two in the middle.
  std::string Stretch(int first, int second) const {
    const MemberLine line = LineOf(first);
    std::array<const PlacedJoint*, 4> ends{};
    std::size_t at = 0;
    for (const int member : {first, second}) {
      for (const int joint : {graph_.Unknowns[member].JointA, graph_.Unknowns[member].JointB})
        ends[at++] = &graph_.Joints[joint];
    }
    std::ranges::stable_sort(ends, {}, [&line](const PlacedJoint* joint) { return line.See(*joint).Along; });
    return " from " + PairText(ends[1]->X, ends[1]->Y, format_) + " to " +
           PairText(ends[2]->X, ends[2]->Y, format_);
  }

  // An end of one of two members on one line that lies on the part they share.
  const PlacedJoint& SharedPlace(int first, int second, double unit) const {
    for (const auto& [member, other] : {std::pair(second, first), std::pair(first, second)}) {
      const MemberLine line = LineOf(other);
      for (const int joint : {graph_.Unknowns[member].JointA, graph_.Unknowns[member].JointB}) {
        const double along = line.See(graph_.Joints[joint]).Along;
        if (along > -unit && along < line.Length() + unit) return graph_.Joints[joint];
      }
    }
    return graph_.Joints[graph_.Unknowns[second].JointA];
  }

  void FindMembersWithoutLength() {
    for (int k = 1; k <= graph_.NumUnknowns(); ++k) {
      const int joint = graph_.Unknowns[k].JointA;
      if (joint != graph_.Unknowns[k].JointB) continue;
      if (!TellPair(CheckKind::NoLength, graph_.Joints[joint].X, graph_.Joints[joint].Y,
                    "Member " + names_.Member(k) + " begins and ends at " + names_.JointWithPlace(joint) +
                        ": it has no length and holds nothing."))
        return;
    }
  }

  void FindCoincidentSupports() {
    std::set<std::pair<float, float>> places;
    for (const SupportRec& support : truss_.SupportsInUse()) {
      if (!support.Live || places.insert({support.X, support.Y}).second) continue;
      Tell(CheckKind::CoincidentSupports, support.X, support.Y,
           "More than one support stands at " + names_.JointWithPlace(JointAt(support.X, support.Y)) + ".");
    }
  }

  bool HasMember(float x, float y) const {
    return numMembersAt_[static_cast<std::size_t>(JointAt(x, y))] > 0;
  }

  // What stands in the middle of a member seems to touch it.
  std::string ApartText(int joint, const std::string& text) const {
    for (int k = 1; k <= graph_.NumUnknowns(); ++k) {
      if (!near_.PassesThrough(LineOf(k), graph_.Joints[joint])) continue;
      return " is drawn on member " + names_.Member(k) +
             ", but not at an end of it: forces and supports work only where members end.";
    }
    return text;
  }

  void FindWhatIsApart() {
    for (const SupportRec& support : truss_.SupportsInUse()) {
      if (!support.Live || HasMember(support.X, support.Y)) continue;
      Tell(CheckKind::Apart, support.X, support.Y,
           std::string("The ") + (support.IsClamp() ? "clamp" : "roller") + At(support.X, support.Y) +
               ApartText(JointAt(support.X, support.Y), " touches no member."));
    }
    for (const ForceRec& force : truss_.ForcesInUse()) {
      if (!force.Active || HasMember(force.X, force.Y)) continue;
      Tell(CheckKind::Apart, force.X, force.Y,
           "The force " + PairText(force.Fx, force.Fy, format_) + At(force.X, force.Y) +
               ApartText(JointAt(force.X, force.Y), " acts on no member."));
    }
  }

  void FindSingleMemberJoints() {
    std::set<int> supported;
    for (const SupportRec& support : truss_.SupportsInUse()) {
      if (support.Live) supported.insert(JointAt(support.X, support.Y));
    }
    for (int j = 1; j <= truss_.NumJoints; ++j) {
      if (numMembersAt_[static_cast<std::size_t>(j)] != 1 || supported.contains(j)) continue;
      Tell(CheckKind::SingleMemberJoint, truss_.Joints[j].X, truss_.Joints[j].Y,
           Capital(names_.JointWithPlace(j)) +
               " has one member and no support: only a load along the member can be in balance there.");
    }
  }

  void FindReactionsOutside() {
    Graph graph;
    const CanvasBounds& bounds = where_.Bounds;
    graph.SetMapping(bounds.PixL, bounds.PixR, bounds.PixB, bounds.PixT, truss_.Settings.XMin,
                     truss_.Settings.XMax, truss_.Settings.YMin, truss_.View.YMax);
    if (graph.IsEmpty()) return;
    for (const SupportRec& support : truss_.SupportsInUse()) {
      if (!support.Live) continue;
      const std::vector<PixelLine> arrows =
          ReactionArrows(graph.XPixel(support.X), graph.YPixel(support.Y), support.TypeIndex);
      const bool outside = std::ranges::any_of(arrows, [&](const PixelLine& arrow) {
        return !IsOnCanvas(arrow.X1, arrow.Y1) || !IsOnCanvas(arrow.X2, arrow.Y2);
      });
      if (!outside) continue;
      Tell(CheckKind::OutsideDrawing, support.X, support.Y,
           std::string("A reaction of the ") + (support.IsClamp() ? "clamp" : "roller") +
               At(support.X, support.Y) +
               " is drawn outside the canvas; larger ranges in Settings bring it into sight.");
    }
  }

  void FindNamesGivenTwice() {
    constexpr std::size_t mostTold = 6;
    for (const EqualNames& equal : FindEqualNames(truss_, graph_, names_)) {
      Tell(CheckKind::EqualNames, equal.X, equal.Y,
           Capital(ListOf(equal.Bearers, mostTold)) + (equal.Bearers.size() == 2 ? " are both" : " are all") +
               " called " + equal.Name + ": in the tables " + (equal.AreJoints ? "their equations" : "they") +
               " cannot be told apart.");
    }
  }

  bool IsOnCanvas(float x, float y) const {
    return x >= 0 && y >= 0 && x <= where_.CanvasWidth && y <= where_.CanvasHeight;
  }

  const Truss& truss_;
  DrawnWhere where_;
  const ReportFormat& format_;
  TrussGraph graph_;  // of joints and members
  DistinctNames names_;
  NearPlaces near_;
  std::unordered_map<PositionKey, int, PositionHash> jointAt_;
  std::vector<int> numMembersAt_;  // by joint
  std::vector<DrawingCheck> checks_;
  int numPairsTold_ = 0;  // of the kind in hand
};

}  // namespace

const char* KindWord(CheckKind kind) {
  switch (kind) {
    case CheckKind::NearEnds:
      return "near-ends";
    case CheckKind::ThroughJoint:
      return "through-joint";
    case CheckKind::CoincidentMembers:
      return "coincident-members";
    case CheckKind::CoincidentSupports:
      return "coincident-supports";
    case CheckKind::Apart:
      return "apart";
    case CheckKind::SingleMemberJoint:
      return "single-member-joint";
    case CheckKind::OutsideDrawing:
      return "outside-drawing";
    case CheckKind::NoLength:
    case CheckKind::EqualNames:
      break;
  }
  return nullptr;
}

std::vector<DrawingCheck> CheckDrawing(const Truss& truss, const DrawnWhere& where,
                                       const ReportFormat& format) {
  return Checker(truss, where, format).All();
}
