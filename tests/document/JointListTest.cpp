// Collecting joints, carrying their names over, and sorting them; last, against a plain quadratic form.
#include "document/JointList.h"

#include <bit>
#include <cmath>
#include <tuple>

#include "document/Labels.h"
#include "support/RandomTruss.h"
#include "support/TrussBuilder.h"

namespace {

using testing::ElementsAre;
using Position = std::pair<float, float>;

std::vector<Position> Positions(const Truss& truss) {
  std::vector<Position> positions;
  for (const JointRec& joint : truss.JointsInUse()) positions.emplace_back(joint.X, joint.Y);
  return positions;
}

std::vector<std::string> Names(const Truss& truss) {
  std::vector<std::string> names;
  for (const JointRec& joint : truss.JointsInUse()) names.push_back(truss.Name(joint.NameLabel));
  return names;
}

// A truss whose joints stand at x = 1, 2, ... with these names.
Truss Named(const std::vector<std::string>& names) {
  TrussBuilder builder;
  for (std::size_t i = 0; i < names.size(); ++i) {
    builder.Force(static_cast<float>(i + 1), 0, 1, 0).Joint(static_cast<float>(i + 1), 0, names[i]);
  }
  return builder;
}

// The joint list as its rules are told: scans within scans.
void PlainCheckJoints(Truss& truss) {
  const auto span = truss.JointsInUse();
  const std::vector<JointRec> old(span.begin(), span.end());
  std::vector<JointRec> joints;
  const auto onJointList = [&joints](float x, float y) {
    for (const JointRec& joint : joints) {
      if (joint.X == x && joint.Y == y) return;
    }
    joints.push_back(JointRec{x, y, 0});
  };
  for (const MemberRec& member : truss.MembersInUse()) {
    if (!member.Live) continue;
    onJointList(member.X1, member.Y1);
    onJointList(member.X2, member.Y2);
  }
  for (const SupportRec& support : truss.SupportsInUse()) {
    if (support.Live) onJointList(support.X, support.Y);
  }
  for (const ForceRec& force : truss.ForcesInUse()) {
    if (force.Active) onJointList(force.X, force.Y);
  }
  for (const JointRec& before : old) {
    bool found = false;
    for (JointRec& joint : joints) {
      if (found || joint.X != before.X || joint.Y != before.Y) continue;
      joint.NameLabel = before.NameLabel;
      found = true;
    }
    if (!found) truss.Labels[before.NameLabel].Tag = "del";
  }
  for (JointRec& joint : joints) {
    if (joint.NameLabel == 0) joint.NameLabel = CreateJointLabel(truss);
  }
  truss.NumJoints = static_cast<std::int16_t>(joints.size());
  truss.Joints.GrowTo(truss.NumJoints);
  for (int i = 1; i <= truss.NumJoints; ++i) truss.Joints[i] = joints[static_cast<std::size_t>(i - 1)];
}

// A straight insertion sort with bytes compared one by one.
void PlainSortJoints(Truss& truss) {
  const auto greater = [](const std::string& a, const std::string& b) {
    for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
      const int codeA = static_cast<unsigned char>(a[i]);
      const int codeB = static_cast<unsigned char>(b[i]);
      if (codeA != codeB) return codeA > codeB;
    }
    return a.size() > b.size();
  };
  for (int i = 2; i <= truss.NumJoints; ++i) {
    const JointRec held = truss.Joints[i];
    int j = i - 1;
    for (; j >= 1 && greater(truss.Name(truss.Joints[j].NameLabel), truss.Name(held.NameLabel)); --j) {
      truss.Joints[j + 1] = truss.Joints[j];
    }
    truss.Joints[j + 1] = held;
  }
}

// Position bits (so that -0 and 0 differ) and label of every joint.
std::vector<std::tuple<std::uint32_t, std::uint32_t, LabelIndex>> Records(const Truss& truss) {
  std::vector<std::tuple<std::uint32_t, std::uint32_t, LabelIndex>> records;
  for (const JointRec& joint : truss.JointsInUse()) {
    records.emplace_back(std::bit_cast<std::uint32_t>(joint.X), std::bit_cast<std::uint32_t>(joint.Y),
                         joint.NameLabel);
  }
  return records;
}

std::vector<std::string> Tags(const Truss& truss) {
  std::vector<std::string> tags;
  for (const NameLabel& label : truss.Labels.First(truss.NumLabels)) tags.push_back(label.Tag);
  return tags;
}

}  // namespace

TEST(CheckJoints, CollectsMemberEndsThenSupportsThenForces) {
  const Truss truss =
      TrussBuilder().Force(9, 9, 1, 0).Clamp(8, 8).Member(3, 0, 1, 0).Member(1, 0, 2, 5).Roller(3, 0);
  EXPECT_THAT(Positions(truss),
              ElementsAre(Position(3, 0), Position(1, 0), Position(2, 5), Position(8, 8), Position(9, 9)));
}

TEST(CheckJoints, TakesNoErasedElement) {
  const Truss truss = TrussBuilder()
                          .Member(0, 0, 1, 0)
                          .Member(0, 0, 2, 0)
                          .ThenErased()
                          .Clamp(3, 0)
                          .ThenErased()
                          .Force(4, 0, 1, 0)
                          .ThenErased();
  EXPECT_THAT(Positions(truss), ElementsAre(Position(0, 0), Position(1, 0)));
}

TEST(CheckJoints, MakesAJointOfASupportOrForceStandingApart) {
  const Truss truss = TrussBuilder().Member(0, 0, 1, 0).Roller(5, 5).Force(6, 6, 0, -1);
  EXPECT_EQ(truss.NumJoints, 4);
}

TEST(CheckJoints, KnowsNoTolerance) {
  const float next = std::nextafter(1.0F, 2.0F);
  const Truss truss = TrussBuilder().Member(0, 0, 1, 0).Member(next, 0, 0, 1);
  EXPECT_EQ(truss.NumJoints, 4);
}

TEST(CheckJoints, MinusZeroIsZero) {
  const Truss truss = TrussBuilder().Member(-0.0F, 0, 1, 0).Roller(0, -0.0F).Force(-0.0F, -0.0F, 1, 0);
  EXPECT_THAT(Positions(truss), ElementsAre(Position(0, 0), Position(1, 0)));
}

TEST(CheckJoints, GivesNewJointsTheNextLabelsUnnamedAndBold) {
  const Truss truss = TrussBuilder().Member(0, 0, 1, 0).Clamp(5, 5);
  EXPECT_EQ(truss.Joints[1].NameLabel, 5);  // behind two of the member and two of the clamp
  EXPECT_EQ(truss.Joints[3].NameLabel, 7);
  EXPECT_EQ(truss.NumLabels, 7);
  EXPECT_THAT(Names(truss), ElementsAre("[ ]", "[ ]", "[ ]"));
  EXPECT_TRUE(truss.Labels[5].Bold);
  EXPECT_EQ(truss.Labels[5].FontSize, 10);
}

TEST(CheckJoints, KeepsNamesByPositionWhenElementsChange) {
  Truss truss =
      TrussBuilder().Member(0, 0, 1, 0).Member(1, 0, 2, 0).Joint(0, 0, "a").Joint(1, 0, "b").Joint(2, 0, "c");
  SortJoints(truss);
  truss.Members[1].Live = false;
  ASSERT_TRUE(CheckJoints(truss));
  EXPECT_THAT(Positions(truss), ElementsAre(Position(1, 0), Position(2, 0)));
  EXPECT_THAT(Names(truss), ElementsAre("b", "c"));
}

TEST(CheckJoints, TagsTheLabelOfAJointThatIsGoneAndNeverUsesItAgain) {
  Truss truss = TrussBuilder().Member(0, 0, 1, 0).Member(1, 0, 2, 0).Joint(0, 0, "a");
  const LabelIndex gone = truss.Joints[1].NameLabel;
  truss.Members[1].Live = false;
  ASSERT_TRUE(CheckJoints(truss));
  EXPECT_EQ(truss.Labels[gone].Tag, "del");
  const std::int16_t before = truss.NumLabels;

  truss.Members[1].Live = true;
  ASSERT_TRUE(CheckJoints(truss));
  EXPECT_THAT(Names(truss), ElementsAre("[ ]", "[ ]", "[ ]"));
  EXPECT_EQ(truss.Joints[1].NameLabel, before + 1);
  EXPECT_EQ(truss.Labels[gone].Tag, "del");
}

TEST(CheckJoints, OfTwoOldJointsAtOnePositionTheLaterNameWins) {
  Truss truss = TrussBuilder().Member(0, 0, 1, 0).Joint(0, 0, "a").Joint(1, 0, "b");
  const LabelIndex first = truss.Joints[1].NameLabel;
  truss.Joints[2] = JointRec{0, 0, truss.Joints[2].NameLabel};
  ASSERT_TRUE(CheckJoints(truss));
  EXPECT_THAT(Names(truss), ElementsAre("b", "[ ]"));
  EXPECT_EQ(truss.Labels[first].Tag, "del");
}

TEST(CheckJoints, RefusesMoreJointsThan16BitEquationsAllow) {
  Truss truss;
  truss.NumForces = MaxJoints;
  truss.Forces.GrowTo(MaxJoints + 1);
  for (int i = 1; i <= MaxJoints + 1; ++i) {
    truss.Forces[i] = ForceRec{.X = static_cast<float>(i), .Active = true};
  }
  ASSERT_TRUE(CheckJoints(truss));
  EXPECT_EQ(truss.NumJoints, MaxJoints);

  ++truss.NumForces;
  EXPECT_FALSE(CheckJoints(truss));
  EXPECT_EQ(truss.NumJoints, MaxJoints);
  EXPECT_EQ(truss.NumLabels, MaxJoints);
}

TEST(CheckJoints, RefusesMoreLabelsThan16BitsCountAndChangesNothing) {
  Truss truss = TrussBuilder().Member(0, 0, 1, 0).Joint(0, 0, "a").Joint(1, 0, "b");
  truss.NumLabels = MaxCount;
  truss.Labels.GrowTo(MaxCount);
  // One joint is gone, so that its label is free, but there are two new ones.
  truss.Members[1].X1 = 7;
  truss.NumForces = 1;
  truss.Forces.GrowTo(1);
  truss.Forces[1] = ForceRec{.X = 9, .Active = true};
  EXPECT_FALSE(CheckJoints(truss));
  EXPECT_THAT(Positions(truss), ElementsAre(Position(0, 0), Position(1, 0)));
  EXPECT_THAT(Names(truss), ElementsAre("a", "b"));
  EXPECT_EQ(truss.Labels[truss.Joints[1].NameLabel].Tag, "");

  truss.NumLabels = MaxCount - 1;
  EXPECT_TRUE(CheckJoints(truss));
  EXPECT_EQ(truss.Joints[1].NameLabel, MaxCount);
}

TEST(SortJoints, OrdersByCharacterCode) {
  Truss truss = Named({"a", "B", "[ ]", "9", "10", "", "A", "\xE4", "Z", "ab"});
  SortJoints(truss);
  EXPECT_THAT(Names(truss), ElementsAre("", "10", "9", "A", "B", "Z", "[ ]", "a", "ab", "\xE4"));
}

TEST(SortJoints, KeepsTheOrderOfEqualNames) {
  Truss truss = Named({"b", "a", "b", "a", "b"});
  SortJoints(truss);
  EXPECT_THAT(Positions(truss),
              ElementsAre(Position(2, 0), Position(4, 0), Position(1, 0), Position(3, 0), Position(5, 0)));
}

TEST(SortJoints, MovesPositionAndLabelTogether) {
  Truss truss = Named({"b", "a"});
  const LabelIndex labelOfB = truss.Joints[1].NameLabel;
  SortJoints(truss);
  EXPECT_EQ(truss.Joints[2].NameLabel, labelOfB);
  EXPECT_EQ(truss.Joints[2].X, 1);
}

TEST(SortJoints, LeavesStaleRecordsAlone) {
  Truss truss = Named({"c", "b", "a"});
  truss.NumJoints = 2;
  SortJoints(truss);
  EXPECT_THAT(Names(truss), ElementsAre("b", "c"));
  EXPECT_EQ(truss.Joints[3].X, 3);
}

TEST(JointList, IsThatOfThePlainFormOnRandomTrusses) {
  constexpr std::uint32_t seed = 51;
  SCOPED_TRACE(seed);
  RandomTruss random(seed);
  for (int i = 0; i < 500; ++i) {
    Truss fast = random.Next();
    for (int edit = 0; edit < 3; ++edit) {
      random.Edit(fast);
      Truss plain = fast;
      ASSERT_TRUE(CheckJoints(fast));
      PlainCheckJoints(plain);
      ASSERT_EQ(Records(fast), Records(plain)) << "truss " << i;
      ASSERT_EQ(Tags(fast), Tags(plain)) << "truss " << i;
      for (int label = 1; label <= fast.NumLabels; ++label) {
        if (random.OneIn(3)) plain.Labels[label].Caption = fast.Labels[label].Caption = random.Name();
      }
      SortJoints(fast);
      PlainSortJoints(plain);
      ASSERT_EQ(Records(fast), Records(plain)) << "truss " << i;
    }
  }
}
