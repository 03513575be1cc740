#include "explanation/DrawnGraph.h"

#include <unordered_map>

#include "document/JointList.h"

TrussGraph DrawnGraph(const Truss& truss) {
  TrussGraph graph;
  graph.Joints.Resize(truss.NumJoints);
  std::unordered_map<PositionKey, int, PositionHash> jointAt;
  for (int j = 1; j <= truss.NumJoints; ++j) {
    const JointRec& joint = truss.Joints[j];
    graph.Joints[j] = {joint.X, joint.Y, joint.NameLabel == 0 ? SharedText() : truss.Name(joint.NameLabel)};
    jointAt.emplace(PositionKey(joint.X, joint.Y), j);
  }
  for (const MemberRec& member : truss.MembersInUse()) {
    const auto a = jointAt.find(PositionKey(member.X1, member.Y1));
    const auto b = jointAt.find(PositionKey(member.X2, member.Y2));
    if (!member.Live || member.NameLabel1 == 0 || a == jointAt.end() || b == jointAt.end()) continue;
    graph.Unknowns.Resize(graph.NumUnknowns() + 1);
    graph.Unknowns[graph.NumUnknowns()] = {
        .JointA = a->second, .JointB = b->second, .Name = truss.Name(member.NameLabel1)};
  }
  return graph;
}
