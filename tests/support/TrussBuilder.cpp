#include "support/TrussBuilder.h"

#include <gtest/gtest.h>

#include "document/JointList.h"
#include "document/Labels.h"

TrussBuilder& TrussBuilder::Member(float x1, float y1, float x2, float y2, const std::string& name) {
  truss_.Members.GrowTo(++truss_.NumMembers);
  MemberRec& member = truss_.Members[truss_.NumMembers];
  member = MemberRec{.X1 = x1, .Y1 = y1, .X2 = x2, .Y2 = y2, .Live = true};
  EXPECT_TRUE(CreateMemberLabels(truss_, truss_.NumMembers));
  truss_.Labels[member.NameLabel1].Caption = name;
  truss_.Labels[member.NameLabel2].Caption = name;
  last_ = Kind::Member;
  return *this;
}

TrussBuilder& TrussBuilder::Clamp(float x, float y, const std::string& xName, const std::string& yName,
                                  std::int16_t type) {
  truss_.Supports.GrowTo(++truss_.NumSupports);
  SupportRec& support = truss_.Supports[truss_.NumSupports];
  support = SupportRec{.TypeIndex = type, .X = x, .Y = y, .Live = true};
  EXPECT_TRUE(CreateSupportLabels(truss_, truss_.NumSupports));
  truss_.Labels[support.NameLabel1].Caption = xName;
  if (support.IsClamp()) truss_.Labels[support.NameLabel2].Caption = yName;
  last_ = Kind::Support;
  return *this;
}

TrussBuilder& TrussBuilder::Roller(float x, float y, const std::string& name, std::int16_t type) {
  return Clamp(x, y, name, "", type);
}

TrussBuilder& TrussBuilder::Force(float x, float y, float fx, float fy) {
  truss_.Forces.GrowTo(++truss_.NumForces);
  truss_.Forces[truss_.NumForces] = ForceRec{.X = x, .Y = y, .Fx = fx, .Fy = fy, .Active = true};
  last_ = Kind::Force;
  return *this;
}

TrussBuilder& TrussBuilder::Joint(float x, float y, const std::string& name) {
  jointNames_.push_back({{x, y}, name});
  return *this;
}

TrussBuilder& TrussBuilder::ThenErased() {
  switch (last_) {
    case Kind::Member:
      truss_.Members[truss_.NumMembers].Live = false;
      DeleteMemberLabels(truss_, truss_.NumMembers);
      break;
    case Kind::Support:
      truss_.Supports[truss_.NumSupports].Live = false;
      DeleteSupportLabels(truss_, truss_.NumSupports);
      break;
    case Kind::Force:
      truss_.Forces[truss_.NumForces].Active = false;
      break;
    case Kind::None:
      ADD_FAILURE() << "nothing to erase";
      break;
  }
  return *this;
}

TrussBuilder::operator Truss() const {
  Truss truss = truss_;
  EXPECT_TRUE(CheckJoints(truss));
  for (const auto& [position, name] : jointNames_) {
    bool found = false;
    for (const JointRec& joint : truss.JointsInUse()) {
      if (joint.X != position.first || joint.Y != position.second) continue;
      truss.Labels[joint.NameLabel].Caption = name;
      found = true;
    }
    EXPECT_TRUE(found) << "no joint at (" << position.first << ", " << position.second << ")";
  }
  return truss;
}
