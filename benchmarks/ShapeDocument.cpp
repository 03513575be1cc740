#include "ShapeDocument.h"

#include <stdexcept>

#include "document/JointList.h"
#include "document/Labels.h"
#include "document/TrussFile.h"

namespace {

void Need(bool done) {
  if (!done) throw std::length_error("the shape does not fit into a document");
}

void AddSupport(Truss& truss, const TrussShape::Joint& at, std::int16_t type, const std::string& name) {
  truss.Supports.GrowTo(++truss.NumSupports);
  SupportRec& support = truss.Supports[truss.NumSupports];
  support = SupportRec{.TypeIndex = type, .X = at.X, .Y = at.Y, .Live = true};
  Need(CreateSupportLabels(truss, truss.NumSupports));
  truss.Labels[support.NameLabel1].Caption = name + "x";
  if (support.IsClamp()) truss.Labels[support.NameLabel2].Caption = name + "y";
}

void AddMember(Truss& truss, const TrussShape::Joint& from, const TrussShape::Joint& to) {
  truss.Members.GrowTo(++truss.NumMembers);
  MemberRec& member = truss.Members[truss.NumMembers];
  member = MemberRec{.X1 = from.X, .Y1 = from.Y, .X2 = to.X, .Y2 = to.Y, .Live = true};
  Need(CreateMemberLabels(truss, truss.NumMembers));
  const std::string name = std::to_string(truss.NumMembers) + "m";
  truss.Labels[member.NameLabel1].Caption = name;
  truss.Labels[member.NameLabel2].Caption = name;
}

}  // namespace

Truss DocumentOf(const TrussShape& shape) {
  const auto at = [&shape](int joint) { return shape.Joints[static_cast<std::size_t>(joint)]; };
  Truss truss;
  AddSupport(truss, at(shape.ClampJoint), 1, "A");
  AddSupport(truss, at(shape.RollerJoint), 5, "B");
  for (const auto& [from, to] : shape.Members) AddMember(truss, at(from), at(to));
  for (const TrussShape::Load& load : shape.Loads) {
    truss.Forces.GrowTo(++truss.NumForces);
    const TrussShape::Joint joint = at(load.AtJoint);
    truss.Forces[truss.NumForces] =
        ForceRec{.X = joint.X, .Y = joint.Y, .Fx = load.Fx, .Fy = load.Fy, .Active = true};
  }
  Need(CheckJoints(truss));
  for (int j = 1; j <= truss.NumJoints; ++j) {
    truss.Labels[truss.Joints[j].NameLabel].Caption = std::to_string(j);
  }
  return truss;
}

std::string FileTextOf(const TrussShape& shape) {
  Truss truss = DocumentOf(shape);
  return TrussText(truss);
}
