#include "explanation/TrussGraph.h"

#include <numeric>
#include <unordered_map>

#include "analysis/Unknowns.h"
#include "document/JointList.h"
#include "document/SupportReactions.h"

namespace {

class JointFinder {
 public:
  explicit JointFinder(const Table<PlacedJoint>& joints) {
    for (int j = 1; j <= joints.Size(); ++j) at_.emplace(PositionKey(joints[j].X, joints[j].Y), j);
  }

  /// 0 when there is no joint.
  int At(float x, float y) const {
    const auto found = at_.find(PositionKey(x, y));
    return found == at_.end() ? 0 : found->second;
  }

 private:
  std::unordered_map<PositionKey, int, PositionHash> at_;
};

void PlaceReactions(const SupportRec& support, int joint, const ColumnMap& columns, TrussGraph& graph) {
  const auto place = [&](int component, LabelIndex label) {
    const ReactionDirection direction = DirectionOf(support.TypeIndex, component);
    graph.Unknowns[columns.Column(label)] = {
        .JointA = joint, .Along = direction.IsAlongX() ? Axis::X : Axis::Y, .Sign = direction.Sign()};
  };
  place(1, support.NameLabel1);
  if (support.IsClamp()) place(2, support.NameLabel2);
}

}  // namespace

TrussGraph GraphOf(const Truss& truss, const TrussAnalysis& analysis) {
  TrussGraph graph;
  const Table<CountedJoint>& counted = analysis.Counted.Joints;
  graph.Joints.Resize(counted.Size());
  for (int j = 1; j <= counted.Size(); ++j) graph.Joints[j] = {counted[j].X, counted[j].Y, counted[j].Name};
  const JointFinder joints(graph.Joints);
  const ColumnMap columns(analysis.System.UnknownList);
  graph.Unknowns.Resize(analysis.System.NumUnknowns());
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (support.Live) PlaceReactions(support, joints.At(support.X, support.Y), columns, graph);
  }
  for (const MemberRec& member : truss.MembersInUse()) {
    if (!member.Live) continue;
    graph.Unknowns[columns.Column(member.NameLabel1)] = {.JointA = joints.At(member.X1, member.Y1),
                                                         .JointB = joints.At(member.X2, member.Y2)};
  }
  for (int k = 1; k <= graph.NumUnknowns(); ++k) graph.Unknowns[k].Name = analysis.System.UnknownList[k].Name;
  for (const ForceRec& force : truss.ForcesInUse()) {
    if (force.Active) graph.Loads.push_back({joints.At(force.X, force.Y), force.Fx, force.Fy});
  }
  return graph;
}

TrussPieces PiecesOf(const TrussGraph& graph) {
  std::vector<int> parent(static_cast<std::size_t>(graph.NumJoints()) + 1);
  std::iota(parent.begin(), parent.end(), 0);
  const auto root = [&parent](int joint) {
    auto at = static_cast<std::size_t>(joint);
    while (parent[at] != static_cast<int>(at)) {
      parent[at] = parent[static_cast<std::size_t>(parent[at])];
      at = static_cast<std::size_t>(parent[at]);
    }
    return static_cast<int>(at);
  };
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = graph.Unknowns[k];
    if (unknown.IsMember()) parent[static_cast<std::size_t>(root(unknown.JointA))] = root(unknown.JointB);
  }
  TrussPieces pieces{Table<int>(graph.NumJoints()), 0};
  std::vector<int> pieceOfRoot(parent.size(), -1);
  for (int j = 1; j <= graph.NumJoints(); ++j) {
    int& piece = pieceOfRoot[static_cast<std::size_t>(root(j))];
    if (piece < 0) piece = pieces.Count++;
    pieces.OfJoint[j] = piece;
  }
  return pieces;
}

Table<std::vector<int>> UnknownsByJoint(const TrussGraph& graph) {
  Table<std::vector<int>> at(graph.NumJoints());
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const PlacedUnknown& unknown = graph.Unknowns[k];
    at[unknown.JointA].push_back(k);
    if (unknown.IsMember() && unknown.JointB != unknown.JointA) at[unknown.JointB].push_back(k);
  }
  return at;
}
