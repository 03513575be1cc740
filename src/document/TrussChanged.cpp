// Walks the file in the current layout, element by element, and stops at the first difference.
#include "document/TrussChanged.h"

#include "document/FieldReader.h"
#include "document/JointList.h"
#include "document/TrussFile.h"
#include "platform/FileBytes.h"

namespace {

bool SameSupport(FieldReader& fields, const Truss& truss, const SupportRec& support) {
  return fields.NextSingle() == support.X && fields.NextSingle() == support.Y &&
         fields.NextInteger() == support.TypeIndex && fields.NextField() == truss.Name(support.NameLabel1) &&
         (!support.IsClamp() || fields.NextField() == truss.Name(support.NameLabel2));
}

bool SameMember(FieldReader& fields, const Truss& truss, const MemberRec& member) {
  return fields.NextSingle() == member.X1 && fields.NextSingle() == member.Y1 &&
         fields.NextSingle() == member.X2 && fields.NextSingle() == member.Y2 &&
         fields.NextField() == truss.Name(member.NameLabel1) &&
         fields.NextField() == truss.Name(member.NameLabel2);
}

bool SameForce(FieldReader& fields, const ForceRec& force) {
  return fields.NextSingle() == force.X && fields.NextSingle() == force.Y &&
         fields.NextSingle() == force.Fx && fields.NextSingle() == force.Fy;
}

bool SameJoint(FieldReader& fields, const Truss& truss, const JointRec& joint) {
  return fields.NextSingle() == joint.X && fields.NextSingle() == joint.Y &&
         fields.NextField() == truss.Name(joint.NameLabel);
}

bool SameAsFile(FieldReader& fields, Truss& truss) {
  fields.RestOfLine();
  for (int i = 1; i <= NumSettingsFields; ++i) fields.NextField();

  if (fields.NextInteger() != NumLiveSupports(truss)) return false;
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (support.Live && !SameSupport(fields, truss, support)) return false;
  }
  if (fields.NextInteger() != NumLiveMembers(truss)) return false;
  for (const MemberRec& member : truss.MembersInUse()) {
    if (member.Live && !SameMember(fields, truss, member)) return false;
  }
  if (fields.NextInteger() != NumActiveForces(truss)) return false;
  for (const ForceRec& force : truss.ForcesInUse()) {
    if (force.Active && !SameForce(fields, force)) return false;
  }
  SortJoints(truss);
  if (fields.NextInteger() != truss.NumJoints) return false;
  for (const JointRec& joint : truss.JointsInUse()) {
    if (!SameJoint(fields, truss, joint)) return false;
  }
  return true;
}

}  // namespace

bool TrussChanged(Truss& truss) {
  if (NumLiveSupports(truss) == 0 && NumLiveMembers(truss) == 0 && NumActiveForces(truss) == 0) return false;
  if (truss.FileName.empty()) return true;
  FileBytes file = ReadWholeFile(truss.FileName);
  if (!file.Problem.empty()) return true;
  FieldReader fields(std::make_shared<const std::string>(std::move(file.Bytes)));
  try {
    return !SameAsFile(fields, truss);
  } catch (const ReadError&) {
    return true;
  }
}
