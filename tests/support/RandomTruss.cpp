// Only raw numbers of the engine are used: the library's distributions differ.
#include "support/RandomTruss.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>

#include "document/JointList.h"
#include "document/Labels.h"

float RandomTruss::AnySingle() {
  for (;;) {
    const float value = std::bit_cast<float>(static_cast<std::uint32_t>(engine_()));
    if (std::isfinite(value)) return value;
  }
}

float RandomTruss::Coordinate() {
  if (OneIn(10)) return AnySingle();
  constexpr std::array values = {0.0F, -0.0F, 1.0F, 2.0F, -2.5F, 0.1F, 1.25e-7F, -3e9F, 16777216.0F};
  return values[static_cast<std::size_t>(Below(static_cast<int>(values.size())))];
}

std::string RandomTruss::Name() {
  static const std::vector<std::string> odd = {"",
                                               ",",
                                               "a,b",
                                               " outer blanks ",
                                               "\t",
                                               "[ ]",
                                               "#TRUE#",
                                               "1.5",
                                               "two\r\nlines",
                                               "\n",
                                               "\r",
                                               "10",
                                               "9",
                                               "B",
                                               "a",
                                               "it's",
                                               "\x80\xFF",
                                               "\x96\xE4",
                                               std::string("nul\0nul", 7),
                                               "a rather longer name, with a comma",
                                               "-1e-5",
                                               "Orvane 5"};
  if (OneIn(2)) return odd[static_cast<std::size_t>(Below(static_cast<int>(odd.size())))];
  std::string name;
  for (int i = Below(4); i >= 0; --i) {
    const auto byte = static_cast<unsigned char>(Below(256));
    name += byte == '"' ? '\'' : static_cast<char>(byte);
  }
  return name;
}

void RandomTruss::AddMember(Truss& truss) {
  truss.Members.GrowTo(++truss.NumMembers);
  MemberRec& member = truss.Members[truss.NumMembers];
  member =
      MemberRec{.X1 = Coordinate(), .Y1 = Coordinate(), .X2 = Coordinate(), .Y2 = Coordinate(), .Live = true};
  ASSERT_TRUE(CreateMemberLabels(truss, truss.NumMembers));
  truss.Labels[member.NameLabel1].Caption = Name();
  truss.Labels[member.NameLabel2].Caption = Name();
}

void RandomTruss::AddSupport(Truss& truss) {
  truss.Supports.GrowTo(++truss.NumSupports);
  SupportRec& support = truss.Supports[truss.NumSupports];
  support = SupportRec{.TypeIndex = static_cast<std::int16_t>(1 + Below(8)),
                       .X = Coordinate(),
                       .Y = Coordinate(),
                       .Live = true};
  ASSERT_TRUE(CreateSupportLabels(truss, truss.NumSupports));
  truss.Labels[support.NameLabel1].Caption = Name();
  if (support.IsClamp()) truss.Labels[support.NameLabel2].Caption = Name();
}

void RandomTruss::AddForce(Truss& truss) {
  truss.Forces.GrowTo(++truss.NumForces);
  truss.Forces[truss.NumForces] =
      ForceRec{.X = Coordinate(), .Y = Coordinate(), .Fx = AnySingle(), .Fy = Coordinate(), .Active = true};
}

void RandomTruss::ChooseSettings(DocumentSettings& settings) {
  settings.SnapObject = OneIn(2);
  settings.SnapGrid = OneIn(2);
  settings.GridOn = OneIn(2);
  settings.RulersOn = OneIn(2);
  for (float* value : {&settings.XMin, &settings.XMax, &settings.GridX, &settings.YMin, &settings.GridY,
                       &settings.ForceScale}) {
    *value = Coordinate();
  }
  settings.SigFigs = static_cast<std::int16_t>(engine_() & 0xFFFFU);
  switch (Below(3)) {
    case 0:
      settings.HatchSpacing = static_cast<std::int16_t>(engine_() & 0xFFFFU);
      break;
    case 1:
      settings.HatchSpacing = AnySingle();
      break;
    default:
      settings.HatchSpacing = double{Coordinate()} / 3;
      break;
  }
}

void RandomTruss::Edit(Truss& truss) {
  for (MemberRec& member : truss.MembersInUse()) member.Live = member.Live && !OneIn(4);
  for (SupportRec& support : truss.SupportsInUse()) support.Live = support.Live && !OneIn(4);
  for (ForceRec& force : truss.ForcesInUse()) force.Active = force.Active && !OneIn(4);
  for (int i = Below(8); i > 0; --i) AddMember(truss);
  for (int i = Below(4); i > 0; --i) AddSupport(truss);
  for (int i = Below(4); i > 0; --i) AddForce(truss);
}

Truss RandomTruss::Next() {
  Truss truss;
  ChooseSettings(truss.Settings);
  if (OneIn(20)) return truss;
  Edit(truss);
  Edit(truss);
  EXPECT_TRUE(CheckJoints(truss));
  for (const JointRec& joint : truss.JointsInUse()) truss.Labels[joint.NameLabel].Caption = Name();
  return truss;
}
