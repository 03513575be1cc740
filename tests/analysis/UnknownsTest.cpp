// Which forces are unknown, and in which order they stand.
#include "analysis/Unknowns.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

#include "GeneratedTrusses.h"
#include "support/TrussBuilder.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

EquationSystem Counted(const Truss& truss) {
  EquationSystem system;
  CountUnknowns(truss, system);
  return system;
}

std::vector<std::string> NamesOf(const EquationSystem& system) {
  std::vector<std::string> names;
  for (int k = 1; k <= system.UnknownList.Size(); ++k) names.push_back(system.UnknownList[k].Name);
  return names;
}

std::vector<LabelIndex> LabelsOf(const EquationSystem& system) {
  std::vector<LabelIndex> labels;
  for (int k = 1; k <= system.UnknownList.Size(); ++k) labels.push_back(system.UnknownList[k].Label);
  return labels;
}

Table<Unknown> UnknownsNamed(const std::vector<std::pair<LabelIndex, std::string>>& entries) {
  Table<Unknown> list(static_cast<int>(entries.size()));
  int k = 0;
  for (const auto& [label, name] : entries) list[++k] = Unknown{label, name};
  return list;
}

}  // namespace

TEST(Unknowns, ReactionsComeFirstAndEachGroupIsInNameOrder) {
  const Truss truss = TrussBuilder()
                          .Member(0, 0, 4, 0, "C")
                          .Member(4, 0, 2, 3, "A")
                          .Member(2, 3, 0, 0, "B")
                          .Roller(4, 0, "Z")
                          .Clamp(0, 0, "Y", "X");
  const EquationSystem system = Counted(truss);
  EXPECT_THAT(NamesOf(system), ElementsAre("X", "Y", "Z", "A", "B", "C"));
  EXPECT_EQ(system.NumReactionForces, 3);
  EXPECT_EQ(system.NumMemberForces, 3);
  EXPECT_EQ(system.NumUnknowns(), 6);
}

TEST(Unknowns, ATrussWithoutSupportsBeginsWithItsMembers) {
  const EquationSystem system = Counted(TrussBuilder().Member(0, 0, 1, 0, "b").Member(0, 0, 0, 1, "a"));
  EXPECT_EQ(system.NumReactionForces, 0);
  EXPECT_THAT(NamesOf(system), ElementsAre("a", "b"));
  EXPECT_EQ(ColumnMap(system.UnknownList).Column(system.UnknownList[1].Label), 1);
}

TEST(Unknowns, SupportsAloneGiveReactionsOnly) {
  const EquationSystem system = Counted(TrussBuilder().Clamp(0, 0, "Ax", "Ay"));
  EXPECT_EQ(system.NumMemberForces, 0);
  EXPECT_THAT(NamesOf(system), ElementsAre("Ax", "Ay"));
}

TEST(Unknowns, NothingIsUnknownInAnEmptyTruss) {
  const EquationSystem system = Counted(TrussBuilder().Force(1, 1, 0, -5));
  EXPECT_EQ(system.NumUnknowns(), 0);
  EXPECT_THAT(NamesOf(system), IsEmpty());
}

TEST(Unknowns, AllFourClampTypesGiveTwoReactionsAndAllFourRollerTypesOne) {
  for (std::int16_t type = 1; type <= 8; ++type) {
    const EquationSystem system = Counted(TrussBuilder().Clamp(0, 0, "p", "q", type));
    EXPECT_EQ(system.NumReactionForces, type <= 4 ? 2 : 1) << "type " << type;
    EXPECT_EQ(system.UnknownList.Size(), type <= 4 ? 2 : 1) << "type " << type;
  }
}

TEST(Unknowns, TheTwoComponentsOfAClampNeedNotStandTogether) {
  const EquationSystem system = Counted(TrussBuilder().Clamp(0, 0, "R1", "R3").Roller(4, 0, "R2"));
  EXPECT_THAT(NamesOf(system), ElementsAre("R1", "R2", "R3"));
}

TEST(Unknowns, UnnamedForcesKeepTheOrderInWhichTheyWereCollected) {
  const Truss truss = TrussBuilder().Roller(4, 0).Clamp(0, 0).Member(0, 0, 4, 0).Member(4, 0, 0, 3);
  EXPECT_THAT(
      LabelsOf(Counted(truss)),
      ElementsAre(truss.Supports[1].NameLabel1, truss.Supports[2].NameLabel1, truss.Supports[2].NameLabel2,
                  truss.Members[1].NameLabel1, truss.Members[2].NameLabel1));
}

TEST(Unknowns, ErasedElementsAreNotUnknown) {
  const EquationSystem system = Counted(TrussBuilder()
                                            .Member(0, 0, 4, 0, "gone")
                                            .ThenErased()
                                            .Member(0, 0, 0, 4, "stays")
                                            .Clamp(0, 0, "gx", "gy")
                                            .ThenErased()
                                            .Roller(4, 0, "r"));
  EXPECT_THAT(NamesOf(system), ElementsAre("r", "stays"));
  EXPECT_EQ(system.NumReactionForces, 1);
  EXPECT_EQ(system.NumMemberForces, 1);
}

TEST(Unknowns, NamesAreTakenWhenTheForcesAreCounted) {
  Truss truss = TrussBuilder().Member(0, 0, 1, 0, "before");
  const EquationSystem system = Counted(truss);
  truss.Labels[truss.Members[1].NameLabel1].Caption = "after";
  EXPECT_THAT(NamesOf(system), ElementsAre("before"));
}

TEST(Unknowns, CountingAgainStartsFromNothing) {
  EquationSystem system = Counted(TrussBuilder().Member(0, 0, 1, 0, "a").Clamp(0, 0, "x", "y"));
  CountUnknowns(TrussBuilder().Member(0, 0, 1, 0, "b"), system);
  EXPECT_THAT(NamesOf(system), ElementsAre("b"));
  EXPECT_EQ(system.NumReactionForces, 0);
  EXPECT_EQ(system.NumMemberForces, 1);
}

TEST(SortUnknowns, ComparesCharacterCodes) {
  Table<Unknown> list = UnknownsNamed({{1, "a"},
                                       {2, UnnamedCaption},
                                       {3, "\xC4"},
                                       {4, "9"},
                                       {5, "Z"},
                                       {6, "10"},
                                       {7, "ab"},
                                       {8, "B"},
                                       {9, ""},
                                       {10, "\x80"}});
  SortUnknowns(list, 1, list.Size());
  std::vector<std::string> names;
  for (int k = 1; k <= list.Size(); ++k) names.push_back(list[k].Name);
  EXPECT_THAT(names, ElementsAre("", "10", "9", "B", "Z", UnnamedCaption, "a", "ab", "\x80", "\xC4"));
}

TEST(SortUnknowns, CarriesTheLabelsAndKeepsEqualNamesInOrder) {
  Table<Unknown> list = UnknownsNamed({{5, "b"}, {1, "a"}, {9, "b"}, {3, "a"}, {7, "b"}});
  SortUnknowns(list, 1, 5);
  std::vector<LabelIndex> labels;
  for (int k = 1; k <= 5; ++k) labels.push_back(list[k].Label);
  EXPECT_THAT(labels, ElementsAre(1, 3, 5, 9, 7));
}

TEST(SortUnknowns, KeepsEqualNamesInOrderInLongListsToo) {
  Table<Unknown> list(400);
  for (int k = 1; k <= 400; ++k) list[k] = Unknown{static_cast<LabelIndex>(k), k % 2 == 0 ? "a" : "b"};
  SortUnknowns(list, 1, 400);
  for (int k = 1; k <= 200; ++k) {
    EXPECT_EQ(list[k].Label, 2 * k);
    EXPECT_EQ(list[200 + k].Label, 2 * k - 1);
  }
}

TEST(SortUnknowns, TouchesItsRangeOnly) {
  Table<Unknown> list = UnknownsNamed({{1, "z"}, {2, "y"}, {3, "x"}, {4, "w"}, {5, "a"}});
  SortUnknowns(list, 2, 4);
  std::vector<LabelIndex> labels;
  for (int k = 1; k <= 5; ++k) labels.push_back(list[k].Label);
  EXPECT_THAT(labels, ElementsAre(1, 4, 3, 2, 5));
}

TEST(ColumnMap, FindsTheFirstUnknownWithALabelAndZeroForNone) {
  const ColumnMap columns(UnknownsNamed({{7, "a"}, {3, "b"}, {7, "c"}}));
  EXPECT_EQ(columns.Column(7), 1);
  EXPECT_EQ(columns.Column(3), 2);
  EXPECT_EQ(columns.Column(5), 0);
  EXPECT_EQ(columns.Column(8), 0);
  EXPECT_EQ(columns.Column(32767), 0);
  EXPECT_EQ(ColumnMap(Table<Unknown>()).Column(1), 0);
}

namespace {

using Entries = std::vector<std::pair<LabelIndex, std::string>>;

bool NotAfter(const std::string& left, const std::string& right) {
  for (std::size_t i = 0; i < left.size() && i < right.size(); ++i) {
    const auto a = static_cast<unsigned char>(left[i]);
    const auto b = static_cast<unsigned char>(right[i]);
    if (a != b) return a < b;
  }
  return left.size() <= right.size();
}

// Straight insertion, as the order of equal names is defined by it.
void InsertionSort(Entries& entries, std::size_t first) {
  for (std::size_t i = first + 1; i < entries.size(); ++i) {
    const auto held = entries[i];
    std::size_t j = i;
    for (; j > first && !NotAfter(entries[j - 1].second, held.second); --j) entries[j] = entries[j - 1];
    entries[j] = held;
  }
}

Entries PlainUnknowns(const Truss& truss) {
  Entries entries;
  const auto add = [&](LabelIndex label) { entries.emplace_back(label, truss.Labels[label].Caption); };
  for (int i = 1; i <= truss.NumSupports; ++i) {
    if (!truss.Supports[i].Live) continue;
    add(truss.Supports[i].NameLabel1);
    if (truss.Supports[i].TypeIndex <= 4) add(truss.Supports[i].NameLabel2);
  }
  InsertionSort(entries, 0);
  const std::size_t numReactions = entries.size();
  for (int i = 1; i <= truss.NumMembers; ++i) {
    if (truss.Members[i].Live) add(truss.Members[i].NameLabel1);
  }
  InsertionSort(entries, numReactions);
  return entries;
}

}  // namespace

TEST(Unknowns, AreThoseOfThePlainRuleInRandomDocuments) {
  for (unsigned seed = 1; seed <= 500; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const Truss truss = RandomDocument(random);
    const EquationSystem system = Counted(truss);
    Entries found;
    for (int k = 1; k <= system.UnknownList.Size(); ++k) {
      found.emplace_back(system.UnknownList[k].Label, system.UnknownList[k].Name);
    }
    ASSERT_EQ(found, PlainUnknowns(truss));
    ASSERT_EQ(system.NumUnknowns(), system.UnknownList.Size());
  }
}
