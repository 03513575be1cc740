#include "explanation/byjoint/Sections.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "explanation/byjoint/Bridges.h"
#include "explanation/byjoint/RigidParts.h"

namespace {

constexpr int Ground = 0;

// Members that a search looks at before it takes the best cut that it has found.
constexpr std::int64_t MostForOne = 400'000;

// The point where two lines meet that are not parallel.
PlanePoint MeetingPoint(const TrussBalance& balance, int unknown, int other) {
  const TrussGraph& graph = balance.Graph();
  const PlanePoint& a = balance.At(graph.Unknowns[unknown].JointA);
  const PlanePoint& b = balance.At(graph.Unknowns[other].JointA);
  const ExactVector& d = balance.Direction(unknown);
  const ExactVector& e = balance.Direction(other);
  const double ux = balance.UnitX(unknown);
  const double uy = balance.UnitY(unknown);
  const double vx = balance.UnitX(other);
  const double vy = balance.UnitY(other);
  const double share = ((b.X - a.X) * vy - (b.Y - a.Y) * vx) / (ux * vy - uy * vx);
  return {a.Exact + Cross(b.Exact - a.Exact, e) / Cross(d, e) * d, a.X + share * ux, a.Y + share * uy};
}

// Of the nodes in the order of a bridge finder: those from First to End, or those from From to To without
// them.
struct Side {
  int Size = 0;
  BridgeFinder::Bridge Bridge;
  bool IsInner = true;
};

std::vector<int> JointsOf(const Side& side, const std::vector<int>& order) {
  const auto at = [&order](int index) { return order.begin() + index; };
  std::vector<int> joints;
  if (side.IsInner) {
    joints.assign(at(side.Bridge.First), at(side.Bridge.End));
  } else {
    joints.assign(at(side.Bridge.From), at(side.Bridge.First));
    joints.insert(joints.end(), at(side.Bridge.End), at(side.Bridge.To));
  }
  std::ranges::sort(joints);
  return joints;
}

// The smaller side of a bridge, or the one without the ground, which comes first in its order.
Side SmallerSide(const BridgeFinder::Bridge& bridge, const std::vector<int>& order) {
  const int inner = bridge.End - bridge.First;
  const int outer = bridge.To - bridge.From - inner;
  const bool isInner = inner <= outer || order[static_cast<std::size_t>(bridge.From)] == Ground;
  return {isInner ? inner : outer, bridge, isInner};
}

}  // namespace

// Joints are nodes by their numbers; the ground is node 0.
struct SectionSearch::CutGraph {
  CutGraph(int numJoints, std::vector<GraphEdge> edges, std::vector<int> unknowns)
      : Finder(numJoints + 1, std::move(edges)), UnknownOf(std::move(unknowns)), Out(UnknownOf.size()) {}

  BridgeFinder Finder;
  std::vector<int> UnknownOf;
  std::vector<char> Out;
};

bool SectionSearch::IsSought(int unknown) const {
  const PlacedUnknown& placed = balance_.Graph().Unknowns[unknown];
  return balance_.Acts(unknown) && !balance_.IsKnown(unknown) && isOut_[placed.JointA] == 0;
}

void SectionSearch::Spend(std::size_t members) {
  left_ -= static_cast<std::int64_t>(members);
  leftForThis_ -= static_cast<std::int64_t>(members);
}

std::optional<SectionCut> SectionSearch::Find(double leastShare) {
  leastShare_ = leastShare;
  seeksFalse_ = false;
  SearchAll();
  if (!best_) AroundParts();
  return best_;
}

std::optional<SectionCut> SectionSearch::FindFalse() {
  seeksFalse_ = true;
  SearchAll();
  return best_;
}

void SectionSearch::SearchAll() {
  best_.reset();
  leftForThis_ = MostForOne;
  // With all members the parts are such as hang together; without those that are known there are more cuts.
  for (const bool withKnown : {true, false}) {
    if (best_) break;
    CutGraph graph = GraphWith(withKnown);
    Search(graph);
  }
}

SectionSearch::CutGraph SectionSearch::GraphWith(bool known) const {
  const TrussGraph& graph = balance_.Graph();
  std::vector<GraphEdge> edges;
  std::vector<int> unknowns;
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const PlacedUnknown& placed = graph.Unknowns[k];
    const bool isIn = known && placed.IsMember() && balance_.Acts(k) && isOut_[placed.JointA] == 0;
    if (!isIn && !IsSought(k)) continue;
    edges.push_back({placed.JointA, placed.IsMember() ? placed.JointB : Ground});
    unknowns.push_back(k);
  }
  return {graph.NumJoints(), std::move(edges), std::move(unknowns)};
}

void SectionSearch::Search(CutGraph& graph) {
  if (!seeksFalse_) Single(graph);
  for (int j = 1; j <= balance_.Graph().NumJoints() && MayGoOn(); ++j) {
    if (isOut_[j] == 0 && balance_.NumSoughtAt(j) > 0) AboutJoint(graph, j);
  }
  // Directions by their slopes; upright ones have none.
  std::map<std::pair<std::uint64_t, std::uint64_t>, std::vector<int>> byDirection;
  for (const int k : graph.UnknownOf) {
    const ExactVector& line = balance_.Direction(k);
    const ExactNumber slope = line.X.IsZero() ? ExactNumber{~std::uint64_t{0}, 0} : line.Y / line.X;
    byDirection[{slope.First, slope.Second}].push_back(k);
  }
  for (const auto& [slope, parallel] : byDirection) {
    if (!MayGoOn()) break;
    if (std::ranges::count_if(parallel, [this](int k) { return IsSought(k); }) >= 2)
      AcrossDirection(graph, parallel);
  }
}

void SectionSearch::AboutJoint(CutGraph& graph, int joint) {
  const PlanePoint& point = balance_.At(joint);
  for (std::size_t i = 0; i < graph.UnknownOf.size(); ++i)
    graph.Out[i] = balance_.PassesThrough(graph.UnknownOf[i], point) ? 1 : 0;
  TakeBridges(
      graph, [&](int k) { return balance_.ArmShare(k, point); },
      [&](int) { return TrussBalance::About(point); });
}

void SectionSearch::AcrossDirection(CutGraph& graph, const std::vector<int>& parallel) {
  std::ranges::fill(graph.Out, 0);
  // Both lists ascend.
  std::size_t next = 0;
  for (std::size_t i = 0; i < graph.UnknownOf.size() && next < parallel.size(); ++i) {
    if (graph.UnknownOf[i] != parallel[next]) continue;
    graph.Out[i] = 1;
    ++next;
  }
  const int line = parallel.front();
  TakeBridges(
      graph, [&](int k) { return balance_.Sine(k, line); }, [&](int) { return balance_.Across(line); });
}

// A member that holds two parts together all alone.
void SectionSearch::Single(CutGraph& graph) {
  std::ranges::fill(graph.Out, 0);
  TakeBridges(
      graph, [](int) { return 1.0; },
      [&](int k) {
        const bool isFlat = std::abs(balance_.UnitX(k)) > std::abs(balance_.UnitY(k));
        return Measure{.Kind = isFlat ? BalanceKind::X : BalanceKind::Y};
      });
}

// Offers the bridges that are sought forces, each with the smaller part on a side without the ground.
template <class Share, class MakeMeasure>
void SectionSearch::TakeBridges(CutGraph& graph, const Share& share, const MakeMeasure& measure) {
  Spend(graph.Finder.Size());
  const std::vector<BridgeFinder::Bridge>& bridges = graph.Finder.Find(graph.Out);
  if (seeksFalse_) return TakeFalseParts(graph, measure);
  for (const BridgeFinder::Bridge& bridge : bridges) {
    const int k = graph.UnknownOf[static_cast<std::size_t>(bridge.Edge)];
    if (!IsSought(k) || share(k) < leastShare_ || share(k) == 0) continue;
    if (!MayGoOn()) return;
    const Side side = SmallerSide(bridge, graph.Finder.Order());
    if (side.Size >= 2) Offer(JointsOf(side, graph.Finder.Order()), measure(k), k);
  }
}

template <class MakeMeasure>
void SectionSearch::TakeFalseParts(const CutGraph& graph, const MakeMeasure& measure) {
  const std::vector<int>& order = graph.Finder.Order();
  for (const BridgeFinder::Part& part : graph.Finder.Parts()) {
    if (part.To - part.From < 2 || order[static_cast<std::size_t>(part.From)] == Ground) continue;
    if (!MayGoOn()) return;
    std::vector<int> joints(order.begin() + part.From, order.begin() + part.To);
    std::ranges::sort(joints);
    const Balance sum = balance_.BalanceOf(joints, measure(0));
    if (sum.Sought.empty() && !sum.Rest.IsZero()) Offer(std::move(joints), measure(0), 0);
  }
}

void SectionSearch::Offer(std::vector<int> joints, const Measure& measure, int unknown) {
  const int numCut = NumCut(joints);
  if (best_ && best_->NumCut <= numCut) return;
  best_ = SectionCut{std::move(joints), measure, unknown, numCut};
}

int SectionSearch::NumCut(const std::vector<int>& joints) {
  int count = 0;
  for (const int joint : joints) {
    Spend(balance_.ActingAt(joint).size());
    for (const int k : balance_.ActingAt(joint)) {
      const PlacedUnknown& placed = balance_.Graph().Unknowns[k];
      const int far = placed.JointA == joint ? placed.JointB : placed.JointA;
      if (placed.IsMember() && !std::ranges::binary_search(joints, far)) ++count;
    }
  }
  return count;
}

void SectionSearch::AroundParts() {
  Spend(static_cast<std::size_t>(balance_.Graph().NumUnknowns()));
  for (const std::vector<int>& part : RigidParts(balance_)) {
    if (!MayGoOn()) return;
    Spend(4 * part.size());
    if (isOut_[part.front()] == 0) AroundPart(part);
  }
}

void SectionSearch::AroundPart(const std::vector<int>& joints) {
  const Balance all = balance_.BalanceOf(joints, {.Kind = BalanceKind::X});
  std::vector<int> lines = all.PutAside;
  for (const Balance::SoughtForce& sought : all.Sought) lines.push_back(sought.Unknown);
  if (lines.size() < 3) return;
  // Where all lines but one pass through a point, two of the first three do.
  for (const auto& [one, two] : {std::pair(0, 1), std::pair(0, 2), std::pair(1, 2)}) {
    const int k = lines[static_cast<std::size_t>(one)];
    const int l = lines[static_cast<std::size_t>(two)];
    const bool parallel = balance_.AreParallel(k, l);
    const Measure measure = parallel ? balance_.Across(k) : TrussBalance::About(MeetingPoint(balance_, k, l));
    // Asked of the equation itself: the point is rounded, and so may lie beside a line that passes through
    // it.
    const Balance about = balance_.BalanceOf(joints, measure);
    if (about.Sought.size() != 1) continue;
    const int left = about.Sought.front().Unknown;
    const double share = parallel ? balance_.Sine(k, left) : balance_.ArmShare(left, measure.At);
    if (share >= leastShare_ && share > 0) Offer(joints, measure, left);
  }
}
