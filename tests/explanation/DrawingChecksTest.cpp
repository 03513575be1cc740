#include "explanation/DrawingChecks.h"

#include <algorithm>
#include <utility>

#include "document/DocumentSettings.h"
#include "support/TrussBuilder.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<DrawingCheck> Check(Truss truss, float snap = 0) {
  const CanvasBounds bounds;
  truss.View = DeriveView(truss.Settings, bounds);
  return CheckDrawing(truss, {.Bounds = bounds, .SnapX = snap, .SnapY = snap}, {});
}

auto Found(CheckKind kind, const std::string& text) {
  return AllOf(Field(&DrawingCheck::Kind, kind), Field(&DrawingCheck::Text, HasSubstr(text)));
}

// A triangle well inside the drawing, with nothing to complain about.
TrussBuilder Sound() {
  return TrussBuilder()
      .Member(4, 4, 8, 4, "AB")
      .Member(8, 4, 6, 6, "BC")
      .Member(6, 6, 4, 4, "CA")
      .Clamp(4, 4, "Ax", "Ay")
      .Roller(8, 4, "B")
      .Force(6, 6, 0, -1000)
      .Joint(4, 4, "A")
      .Joint(8, 4, "B")
      .Joint(6, 6, "C");
}

TEST(DrawingChecks, ASoundTrussHasNone) { EXPECT_THAT(Check(Sound()), IsEmpty()); }

// A file can say so. No member passes through its own end, however that is rounded.
TEST(DrawingChecks, ASoundTrussHasNoneInADrawingWithoutExtentEither) {
  for (int x = 1; x <= 12; ++x) {
    for (int y = 1; y <= 12; ++y) {
      const auto dx = static_cast<float>(x), dy = static_cast<float>(y);
      Truss truss = TrussBuilder()
                        .Member(0, 0, dx, dy, "AC")
                        .Member(20, 0, dx, dy, "BC")
                        .Clamp(0, 0)
                        .Clamp(20, 0)
                        .Force(dx, dy, 0, -1);
      truss.Settings.XMin = truss.Settings.XMax = -4;
      for (const DrawingCheck& check : Check(truss))
        EXPECT_THAT(check.Text, testing::Not(HasSubstr("passes through"))) << x << ", " << y;
    }
  }
}

TEST(DrawingChecks, EndsThatNearlyMeetAreTwoJoints) {
  // The drawing is 20 wide: 0.02 is a thousandth of it.
  const auto apart = [](float gap) {
    return Sound().Member(8 + gap, 4, 9, 6, "X").Member(9, 6, 6, 6, "Y").Joint(8 + gap, 4, "D");
  };
  EXPECT_THAT(Check(apart(0.02F)),
              ElementsAre(Found(CheckKind::NearEnds, "Joints B at (8, 4) and D at (8.02, 4)"),
                          Found(CheckKind::SingleMemberJoint, "Joint D")));
  EXPECT_THAT(Check(apart(0.03F)), ElementsAre(Found(CheckKind::SingleMemberJoint, "Joint D")));
  EXPECT_THAT(Check(apart(0.3F), 0.43F),
              ElementsAre(Found(CheckKind::NearEnds, "D"), Found(CheckKind::SingleMemberJoint, "Joint D")));
  EXPECT_THAT(Check(apart(0.5F), 0.43F), ElementsAre(Found(CheckKind::SingleMemberJoint, "Joint D")));
}

// All of it lies within the mouse's reach, and none of it is meant to be one joint.
TEST(DrawingChecks, ATinyDrawingIsMeasuredByItsOwnSize) {
  for (const float size : {1.0F, 0.1F, 0.01F, 0.001F}) {
    SCOPED_TRACE(size);
    const auto triangle = TrussBuilder()
                              .Member(4, 4, 4 + 4 * size, 4, "AB")
                              .Member(4 + 4 * size, 4, 4 + 2 * size, 4 + 2 * size, "BC")
                              .Member(4 + 2 * size, 4 + 2 * size, 4, 4, "CA")
                              .Clamp(4, 4, "Ax", "Ay")
                              .Roller(4 + 4 * size, 4, "B");
    EXPECT_THAT(Check(triangle, 0.43F), IsEmpty());
    // A slip of a fiftieth of it.
    const float beside = 4 + 4.08F * size;
    EXPECT_THAT(
        Check(TrussBuilder(triangle)
                  .Member(beside, 4, beside, 4 + 2 * size, "l")
                  .Member(beside, 4 + 2 * size, 4 + 2 * size, 4 + 2 * size, "t"),
              0.43F),
        ElementsAre(Found(CheckKind::NearEnds, "nearly meet"), Found(CheckKind::SingleMemberJoint, "")));
  }
}

TEST(DrawingChecks, WhatHasNoNameIsToldByItsPlace) {
  const auto checks = Check(TrussBuilder()
                                .Member(4, 4, 8, 4)
                                .Member(8, 4, 6, 6)
                                .Member(6, 6, 4, 4)
                                .Member(6, 4, 6, 6)
                                .Member(8.02F, 4, 10, 6)
                                .Clamp(4, 4)
                                .Roller(4, 4));
  EXPECT_THAT(
      checks,
      ElementsAre(
          Found(CheckKind::NearEnds, "Joints (8, 4) and (8.02, 4) nearly meet"),
          Found(CheckKind::ThroughJoint, "Member (4, 4) to (8, 4) passes through the joint at (6, 4), "),
          Found(CheckKind::CoincidentSupports, "More than one support stands at the joint at (4, 4)."),
          Found(CheckKind::SingleMemberJoint, "The joint at (6, 4) has one member"),
          Found(CheckKind::SingleMemberJoint, "The joint at (8.02, 4) has one member"),
          Found(CheckKind::SingleMemberJoint, "The joint at (10, 6) has one member")));
}

TEST(DrawingChecks, WhatStandsInTheMiddleOfAMemberIsNotAtItsEnd) {
  const auto checks = Check(Sound().Force(6, 4, 0, -5).Roller(5, 4));
  EXPECT_THAT(checks,
              testing::Contains(Found(CheckKind::Apart,
                                      "The force (0, -5) at (6, 4) is drawn on member AB, but not at an "
                                      "end of it: forces and supports work only where members end.")));
  EXPECT_THAT(checks,
              testing::Contains(
                  Found(CheckKind::Apart, "The roller at (5, 4) is drawn on member AB, but not at an end")));
}

TEST(DrawingChecks, MembersOnOneAnotherAreToldWhereTheyLieOnOneAnother) {
  const auto chord = [](float from, float to) {
    std::vector<std::pair<float, float>> places;
    for (const DrawingCheck& check : Check(
             TrussBuilder().Member(0, 0, 4, 0, "AB").Member(4, 0, 8, 0, "BC").Member(from, 0, to, 0, "AC"))) {
      if (check.Kind == CheckKind::CoincidentMembers) places.emplace_back(check.X, check.Y);
    }
    return places;
  };
  EXPECT_THAT(chord(0, 8), ElementsAre(std::pair(0.0F, 0.0F), std::pair(8.0F, 0.0F)));
  EXPECT_THAT(chord(8, 0), ElementsAre(std::pair(0.0F, 0.0F), std::pair(8.0F, 0.0F)));
  EXPECT_THAT(chord(-2, 6), ElementsAre(std::pair(0.0F, 0.0F), std::pair(6.0F, 0.0F)));
}

TEST(DrawingChecks, AJointWithOneMemberNeedsASupport) {
  const auto leg = Sound().Member(6, 6, 6, 8, "leg").Joint(6, 8, "foot");
  EXPECT_THAT(Check(leg),
              ElementsAre(Found(CheckKind::SingleMemberJoint, "Joint foot at (6, 8) has one member")));
  EXPECT_THAT(Check(TrussBuilder(leg).Roller(6, 8, "R")), IsEmpty());
}

TEST(DrawingChecks, AMemberThroughAJointIsNotConnectedThere) {
  const auto truss = Sound().Member(6, 4, 6, 6, "post").Joint(6, 4, "foot");
  EXPECT_THAT(Check(truss),
              ElementsAre(Found(CheckKind::ThroughJoint, "Member AB passes through joint foot at (6, 4)"),
                          Found(CheckKind::SingleMemberJoint, "Joint foot")));
}

TEST(DrawingChecks, MembersOnOneAnotherAreFoundAlsoWhenTheyOverlapInPart) {
  EXPECT_THAT(Check(Sound().Member(8, 4, 4, 4, "twin")),
              ElementsAre(Found(CheckKind::CoincidentMembers,
                                "Member AB and member twin lie on one another from (4, 4) to (8, 4).")));
  EXPECT_THAT(
      Check(Sound().Member(6, 4, 10, 4, "long").Member(10, 4, 6, 6, "stay")),
      testing::Contains(Found(CheckKind::CoincidentMembers,
                              "Member AB and member long lie on one another from (6, 4) to (8, 4).")));
  EXPECT_THAT(
      Check(Sound().Member(7, 4, 5, 4, "inside")),
      testing::Contains(Found(CheckKind::CoincidentMembers,
                              "Member AB and member inside lie on one another from (5, 4) to (7, 4).")));
  EXPECT_THAT(Check(Sound().Member(8, 4, 10, 4, "on").Member(10, 4, 6, 6, "stay")), IsEmpty())
      << "members in line that meet at their ends";
  EXPECT_THAT(Check(Sound().Member(4, 5, 8, 5, "beside").Member(4, 5, 4, 4, "l").Member(8, 5, 8, 4, "r")),
              testing::Not(testing::Contains(Field(&DrawingCheck::Kind, CheckKind::CoincidentMembers))));
}

TEST(DrawingChecks, TwoSupportsAtOnePlace) {
  EXPECT_THAT(Check(Sound().Roller(8, 4, "B2", 8)),
              ElementsAre(Found(CheckKind::CoincidentSupports, "joint B at (8, 4)")));
}

TEST(DrawingChecks, WhatTouchesNoMemberStandsApart) {
  EXPECT_THAT(Check(Sound().Clamp(12, 8, "u", "v").Force(10, 9, 0, -5)),
              ElementsAre(Found(CheckKind::Apart, "The clamp at (12, 8) touches no member."),
                          Found(CheckKind::Apart, "The force (0, -5) at (10, 9) acts on no member.")));
  EXPECT_THAT(Check(Sound().Clamp(12, 8, "u", "v").ThenErased()), IsEmpty())
      << "what is erased is not looked at";
}

TEST(DrawingChecks, AReactionOutsideTheCanvasIsTold) {
  // The reaction of a roller that pushes up stands below it.
  EXPECT_THAT(Check(Sound().Member(6, 6, 6, 0, "leg").Roller(6, 0, "R")),
              testing::Contains(Found(CheckKind::OutsideDrawing, "A reaction of the roller at (6, 0)")));
  EXPECT_THAT(Check(Sound().Member(6, 6, 6, 2, "leg").Roller(6, 2, "R")),
              testing::Not(testing::Contains(Field(&DrawingCheck::Kind, CheckKind::OutsideDrawing))));
}

// Arrows point at the support, from the side from which it pushes.
TEST(DrawingChecks, AReactionMayLeaveTheCanvasOnEachOfItsSides) {
  const CanvasBounds bounds{.PixL = 0, .PixR = 400, .PixT = 0, .PixB = 400};
  const auto isOutside = [&](float x, float y, std::int16_t type) {
    Truss truss = TrussBuilder().Member(10, 10, x, y).Roller(x, y, "R", type);
    truss.Settings.XMin = truss.Settings.YMin = 0;
    truss.Settings.XMax = 20;
    truss.View = DeriveView(truss.Settings, bounds);
    const auto checks = CheckDrawing(truss, {.Bounds = bounds, .CanvasWidth = 400, .CanvasHeight = 400}, {});
    return std::ranges::count(checks, CheckKind::OutsideDrawing, &DrawingCheck::Kind) == 1;
  };
  struct Side {
    float X, Y;
    std::int16_t FromThere;
  };
  for (const Side& side : {Side{10, 0, 5}, {10, 20, 6}, {20, 10, 7}, {0, 10, 8}}) {
    EXPECT_TRUE(isOutside(side.X, side.Y, side.FromThere)) << side.X << ", " << side.Y;
    EXPECT_FALSE(isOutside(10, 5, side.FromThere));
  }
}

TEST(DrawingChecks, AnErasedForceIsNotApart) {
  EXPECT_THAT(Check(Sound().Force(15, 9, 1, 0)),
              testing::Contains(Found(CheckKind::Apart, "acts on no member")));
  EXPECT_THAT(Check(Sound().Force(15, 9, 1, 0).ThenErased()), IsEmpty());
}

TEST(DrawingChecks, ProgramsKnowTheKindsByWords) {
  for (const auto& [kind, word] :
       {std::pair(CheckKind::NearEnds, "near-ends"), std::pair(CheckKind::ThroughJoint, "through-joint"),
        std::pair(CheckKind::CoincidentMembers, "coincident-members"),
        std::pair(CheckKind::CoincidentSupports, "coincident-supports"), std::pair(CheckKind::Apart, "apart"),
        std::pair(CheckKind::SingleMemberJoint, "single-member-joint")}) {
    EXPECT_STREQ(KindWord(kind), word);
  }
}

TEST(DrawingChecks, TheLargestDocumentIsCheckedInTime) {
  TrussBuilder builder;
  for (int i = 0; i < 2000; ++i) {
    const auto x = static_cast<float>(i % 50) / 4;
    const auto y = static_cast<float>(i / 50) / 4;
    builder.Member(x, y, x + 0.25F, y).Member(x, y, x, y + 0.25F);
  }
  EXPECT_FALSE(Check(builder).empty());  // the outermost joints have one member
}

TEST(DrawingChecks, NamesGivenTwiceAreTold) {
  EXPECT_THAT(
      Check(Sound().Member(6, 6, 6, 8, "AB").Joint(6, 8, "A").Roller(6, 8, "Ax").Roller(4, 8, "B", 8)),
      testing::IsSupersetOf(
          {Found(CheckKind::EqualNames,
                 "The joint at (4, 4) and the joint at (6, 8) are both called A: in the tables their "
                 "equations cannot be told apart."),
           Found(CheckKind::EqualNames,
                 "The reaction at A at (4, 4) along x and the reaction at A at (6, 8) along y are both "
                 "called Ax: in the tables they cannot be told apart."),
           Found(
               CheckKind::EqualNames,
               "The member from A at (4, 4) to B and the member from C to A at (6, 8) are both called AB")}));
  // A reaction that is called as a member is.
  const auto mixed = Check(Sound().Member(6, 6, 6, 8, "B").Clamp(6, 8));
  ASSERT_THAT(mixed, ElementsAre(Found(CheckKind::EqualNames,
                                       "The reaction at B along y and the member from C to "
                                       "(6, 8) are both called B: in the tables they")));
  EXPECT_EQ(mixed[0].X, 6);
  EXPECT_EQ(mixed[0].Y, 7) << "the second of them";
  EXPECT_THAT(Check(Sound().Member(6, 6, 6, 8, "CA").Roller(6, 8, "CA").Clamp(6, 8, "CA", "CA")),
              testing::Contains(Found(CheckKind::EqualNames, " are all called CA: ")));
  EXPECT_THAT(Check(Sound().Member(6, 6, 6, 8).Member(6, 8, 4, 4).Clamp(6, 8)), IsEmpty())
      << "a joint is called as its support is, and many have no name";
  EXPECT_THAT(Check(Sound().Member(6, 6, 6, 8, "AB").ThenErased()), IsEmpty());
}

TEST(DrawingChecks, OnlyPeopleAreToldOfEqualNames) {
  EXPECT_EQ(KindWord(CheckKind::EqualNames), nullptr);
  EXPECT_STREQ(KindWord(CheckKind::OutsideDrawing), "outside-drawing");
}

int NumOfKind(const std::vector<DrawingCheck>& checks, CheckKind kind) {
  return static_cast<int>(std::ranges::count(checks, kind, &DrawingCheck::Kind));
}

TEST(DrawingChecks, FindsMembersWithoutLength) {
  const std::vector<DrawingCheck> checks =
      Check(TrussBuilder().Member(4, 4, 8, 4).Member(8, 4, 8, 4, "dot").Joint(8, 4, "B"));
  ASSERT_EQ(NumOfKind(checks, CheckKind::NoLength), 1);
  const auto found = std::ranges::find(checks, CheckKind::NoLength, &DrawingCheck::Kind);
  EXPECT_EQ(found->Text,
            "Member dot begins and ends at joint B at (8, 4): it has no length and holds nothing.");
  EXPECT_EQ(found->X, 8);
  EXPECT_EQ(KindWord(CheckKind::NoLength), nullptr) << "of this, programs are told by other words";
}

// Of n at one place there are n (n - 1) / 2 pairs, which nobody reads.
TEST(DrawingChecks, OfVeryManyPairsOnlyTheFirstAreTold) {
  TrussBuilder near;
  TrussBuilder equal;
  TrussBuilder through;
  for (int i = 0; i < 60; ++i) {
    const float at = 4 + 0.0001F * static_cast<float>(i);
    near.Member(8, 8, at, 4);
    equal.Member(4, 4, 8, 4);
    through.Member(4, 4 + 0.0001F * static_cast<float>(i), 12, 4 - 0.0001F * static_cast<float>(i));
    through.Member(5 + 0.1F * static_cast<float>(i), 4, 5 + 0.1F * static_cast<float>(i), 8);
  }
  for (const auto& [truss, kind] : {std::pair<Truss, CheckKind>(near, CheckKind::NearEnds),
                                    std::pair<Truss, CheckKind>(equal, CheckKind::CoincidentMembers),
                                    std::pair<Truss, CheckKind>(through, CheckKind::ThroughJoint)}) {
    const std::vector<DrawingCheck> checks = Check(truss);
    EXPECT_EQ(NumOfKind(checks, kind), MostPairs);
    const auto last =
        std::ranges::find_if(checks.rbegin(), checks.rend(),
                             [wanted = kind](const DrawingCheck& check) { return check.Kind == wanted; });
    EXPECT_THAT(last->Text, HasSubstr("There are more of this kind."));
    EXPECT_EQ(std::ranges::count_if(checks,
                                    [](const DrawingCheck& check) {
                                      return check.Text.find("There are more") != std::string::npos;
                                    }),
              NumOfKind(checks, CheckKind::NearEnds) == MostPairs && kind != CheckKind::NearEnds ? 2 : 1);
  }
}

TEST(DrawingChecks, OfAsManyPairsAsAreToldNoneIsLeftOut) {
  TrussBuilder truss;
  for (int i = 0; i < 14; ++i) truss.Member(4, 4, 8, 4);  // 91 pairs
  const std::vector<DrawingCheck> checks = Check(truss);
  EXPECT_EQ(NumOfKind(checks, CheckKind::CoincidentMembers), 91);
  for (const DrawingCheck& check : checks) EXPECT_EQ(check.Text.find("There are more"), std::string::npos);
}

TEST(DrawingChecks, PassOverAMemberThatIsStillBeingDrawn) {
  Truss truss = TrussBuilder().Member(0, 0, 4, 0, "a").Clamp(0, 0).Roller(4, 0);
  const std::size_t numBefore = Check(truss).size();
  for (const float end : {0.01F, 4.0F, 7.0F}) {
    Truss drawn = truss;
    drawn.Members.GrowTo(++drawn.NumMembers);
    drawn.Members[drawn.NumMembers] = {.X1 = 0, .Y1 = 0, .X2 = end, .Y2 = 0, .Live = true};
    EXPECT_EQ(Check(drawn).size(), numBefore) << end;
  }
}

}  // namespace
