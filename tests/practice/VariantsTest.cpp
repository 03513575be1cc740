// One truss as an exercise for many.
#include "practice/Variants.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <set>

#include "PracticeFixture.h"
#include "document/JointList.h"
#include "document/TrussFile.h"
#include "practice/MirroredTruss.h"
#include "practice/OtherNames.h"
#include "practice/RoundLoads.h"
#include "practice/SeededNumbers.h"
#include "text/NumberText.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(SeededNumbers, AreThoseOfTheGeneratorWhereverItRuns) {
  // The first numbers for the seed 1234567, as its authors' own program gives them.
  SeededNumbers numbers(1234567);
  EXPECT_EQ(numbers.Next(), 6457827717110365317U);
  EXPECT_EQ(numbers.Next(), 3203168211198807973U);
  EXPECT_EQ(numbers.Next(), 9817491932198370423U);
}

TEST(SeededNumbers, AreSpreadEvenly) {
  SeededNumbers numbers(1);
  std::vector<int> counts(7);
  for (int i = 0; i < 7000; ++i) ++counts[static_cast<std::size_t>(numbers.Below(7))];
  for (const int count : counts) EXPECT_NEAR(count, 1000, 120);
  EXPECT_EQ(numbers.Below(1), 0);
}

std::string TextOf(Truss truss) { return TrussText(truss); }

// How many significant digits a load is written with.
std::size_t Digits(float load) { return DecimalDigits::Of(load).Digits.size(); }

TEST(RoundLoads, AreRoundAndBetweenHalfAndTwiceAsLarge) {
  SeededNumbers numbers(3);
  for (const float load : {1000.0F, -1000.0F, 750.0F, 0.3F, -9.81F, 4500.0F, 1e-30F, 2e30F}) {
    std::set<float> found;
    for (int i = 0; i < 200; ++i) {
      const RoundLoad other = RoundLoadLike({0, load}, 0, numbers);
      EXPECT_EQ(other.Fx, 0);
      EXPECT_GE(other.Fy / load, 0.499) << load;
      EXPECT_LE(other.Fy / load, 2.001) << load;
      EXPECT_LE(Digits(other.Fy), 3U) << load;
      found.insert(other.Fy);
    }
    EXPECT_GE(found.size(), 10U) << load;
  }
  EXPECT_EQ(RoundLoadLike({0, 0}, 0, numbers), RoundLoad());
}

TEST(RoundLoads, KeepTheirDirection) {
  SeededNumbers numbers(4);
  for (int i = 0; i < 50; ++i) {
    const RoundLoad other = RoundLoadLike({300, -400}, 0, numbers);
    EXPECT_EQ(other.Fx * -4, other.Fy * 3);
  }
}

TEST(RoundLoads, ThatWouldBeTooLargeStayAsTheyAre) {
  SeededNumbers numbers(4);
  for (int i = 0; i < 50; ++i) EXPECT_TRUE(std::isfinite(RoundLoadLike({3e38F, 0}, 0, numbers).Fx));
}

Truss Skew() {
  return TrussBuilder()
      .Member(0.1F, 0, 0.3F, 0.2F, "AC")
      .Member(0.1F, 0, 0.7F, 0, "AB")
      .Member(0.7F, 0, 0.3F, 0.2F, "BC")
      .Clamp(0.1F, 0, "Ax", "Ay", 3)
      .Roller(0.7F, 0, "B", 8)
      .Force(0.3F, 0.2F, 5, -3)
      .Joint(0.1F, 0, "A")
      .Joint(0.7F, 0, "B")
      .Joint(0.3F, 0.2F, "C");
}

TEST(MirroredTruss, ChangesLeftAndRightOnTheDecimals) {
  Truss truss = Skew();
  MirrorTruss(truss);
  EXPECT_EQ(truss.Members[1].X1, 0.7F);
  EXPECT_EQ(truss.Members[1].X2, 0.5F);
  EXPECT_EQ(truss.Members[1].Y2, 0.2F);
  EXPECT_EQ(truss.Supports[1].TypeIndex, 4);
  EXPECT_EQ(truss.Supports[2].TypeIndex, 7);
  EXPECT_EQ(truss.Forces[1].Fx, -5);
  EXPECT_EQ(truss.Forces[1].Fy, -3);
  EXPECT_TRUE(CheckJoints(truss));
  EXPECT_EQ(truss.NumJoints, 3) << "what met still meets";
  EXPECT_EQ(truss.Name(truss.Joints[1].NameLabel), "A");
  MirrorTruss(truss);
  EXPECT_EQ(TextOf(truss), TextOf(Skew())) << "seen twice it is as it was";
}

TEST(MirroredTruss, HasTheSameForces) {
  Truss truss = Skew();
  truss.Supports[2].TypeIndex = 5;
  const AskedTruss asked = Asked(truss);
  MirrorTruss(truss);
  const AskedTruss mirrored = Asked(truss);
  for (const char* name : {"AB", "AC", "BC", "Ay", "B"}) {
    EXPECT_NEAR(asked.Solutions[NumberOf(asked.Graph, name)].value(),
                mirrored.Solutions[NumberOf(mirrored.Graph, name)].value(), 1e-5)
        << name;
  }
  EXPECT_NEAR(asked.Solutions[NumberOf(asked.Graph, "Ax")].value(),
              -mirrored.Solutions[NumberOf(mirrored.Graph, "Ax")].value(), 1e-5);
}

std::multiset<std::string> Names(const TrussGraph& graph) {
  std::multiset<std::string> names;
  for (const PlacedJoint& joint : graph.Joints.First(graph.NumJoints())) names.insert("joint " + joint.Name);
  for (const PlacedUnknown& unknown : graph.Unknowns.First(graph.NumUnknowns())) names.insert(unknown.Name);
  return names;
}

TEST(OtherNames, AreGivenSoThatMembersAreCalledByTheirJoints) {
  std::set<std::string> namesOfTheTop;
  for (std::uint64_t seed = 0; seed < 40; ++seed) {
    Truss truss = RoundTriangle();
    GiveOtherNames(truss, seed);
    const TrussGraph graph = Asked(truss).Graph;
    for (const PlacedUnknown& unknown : graph.Unknowns.First(graph.NumUnknowns())) {
      const std::string& a = graph.Joints[unknown.JointA].Name;
      if (unknown.IsMember()) {
        const std::string& b = graph.Joints[unknown.JointB].Name;
        EXPECT_EQ(unknown.Name, std::min(a, b) + std::max(a, b));
      } else {
        EXPECT_EQ(unknown.Name.View().substr(0, 1), a);
      }
    }
    namesOfTheTop.insert(truss.Name(truss.Joints[3].NameLabel));
  }
  EXPECT_EQ(namesOfTheTop.size(), 3U) << "each of the three";
}

TEST(OtherNames, AreThoseOfOthersWhereMembersHaveNamesOfTheirOwn) {
  Truss truss = RoundTriangle();
  truss.Labels[truss.Members[1].NameLabel1].Caption = "foot";
  truss.Labels[truss.Members[1].NameLabel2].Caption = "foot";
  const std::multiset<std::string> before = Names(Asked(truss).Graph);
  bool isEverElsewhere = false;
  for (std::uint64_t seed = 0; seed < 20; ++seed) {
    Truss other = truss;
    GiveOtherNames(other, seed);
    EXPECT_EQ(Names(Asked(other).Graph), before);
    EXPECT_EQ(other.Name(other.Members[1].NameLabel1), other.Name(other.Members[1].NameLabel2));
    isEverElsewhere = isEverElsewhere || other.Name(other.Members[1].NameLabel1) != "foot";
  }
  EXPECT_TRUE(isEverElsewhere);
}

using Loads = std::vector<std::pair<float, float>>;
Loads LoadsOf(const Truss& truss) {
  Loads loads;
  for (const ForceRec& force : truss.ForcesInUse()) {
    if (force.Active) loads.emplace_back(force.Fx, force.Fy);
  }
  return loads;
}

std::vector<bool> ZeroMembers(const AskedTruss& asked) {
  std::vector<bool> zero;
  for (const char* name : {"AB", "AC", "BC", "BD", "CD"}) {
    const int k = NumberOf(asked.Graph, name);
    if (k != 0) zero.push_back(IsNoForce(asked.Solutions[k].value(), LargestOf(asked.Solutions)));
  }
  return zero;
}

// A square with its diagonal: BD and CD carry nothing as long as the load at B is straight down.
Truss SquareWithIdleCorner() {
  return TrussBuilder()
      .Member(0, 0, 4, 0, "AB")
      .Member(0, 0, 0, 4, "AC")
      .Member(4, 0, 0, 4, "BC")
      .Member(4, 0, 4, 4, "BD")
      .Member(0, 4, 4, 4, "CD")
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(0, 4, "C", 8)
      .Force(4, 0, 0, -1000)
      .Joint(0, 0, "A")
      .Joint(4, 0, "B")
      .Joint(0, 4, "C")
      .Joint(4, 4, "D");
}

TEST(Variants, HaveOtherLoadsAndTheSameMembersWithoutForce) {
  const Truss original = SquareWithIdleCorner();
  const Variants made = MakeVariants(original, {.NumVariants = 30, .Seed = 7});
  ASSERT_EQ(made.Why, "");
  ASSERT_EQ(made.All.size(), 30U);
  std::set<Loads> loads = {LoadsOf(original)};
  int number = 0;
  for (const Variant& variant : made.All) {
    EXPECT_EQ(variant.Number, ++number);
    EXPECT_TRUE(loads.insert(LoadsOf(variant.Document)).second) << "no two alike";
    const AskedTruss asked = Asked(variant.Document);
    EXPECT_EQ(ZeroMembers(asked), (std::vector<bool>{false, false, false, true, true}));
    EXPECT_EQ(WhyNotSolvable(variant.Document, variant.Analysis), "");
    EXPECT_EQ(variant.Document.Members[1].X2, 4) << "nothing else changes";
    EXPECT_EQ(variant.Document.Name(variant.Document.Members[1].NameLabel1), "AB");
  }
}

TEST(Variants, OfASeedAreTheSameHoweverManyAreMade) {
  const auto texts = [](int count, std::uint64_t seed, bool mirrors) {
    std::vector<std::string> all;
    for (const Variant& variant : MakeVariants(SquareWithIdleCorner(), {count, seed, mirrors, mirrors}).All)
      all.push_back(TextOf(variant.Document));
    return all;
  };
  for (const bool mirrors : {false, true}) {
    const std::vector<std::string> ten = texts(10, 42, mirrors);
    std::vector<std::string> thirty = texts(30, 42, mirrors);
    EXPECT_NE(ten, texts(10, 43, mirrors));
    thirty.resize(10);
    EXPECT_EQ(ten, thirty);
  }
}

TEST(Variants, HaveTheSameLoadsWithAndWithoutOtherNames) {
  const Variants plain = MakeVariants(SquareWithIdleCorner(), {.NumVariants = 8, .Seed = 5});
  const Variants renamed =
      MakeVariants(SquareWithIdleCorner(), {.NumVariants = 8, .Seed = 5, .Renames = true});
  for (std::size_t i = 0; i < 8; ++i)
    EXPECT_EQ(LoadsOf(plain.All[i].Document), LoadsOf(renamed.All[i].Document));
}

TEST(Variants, AreSeenInAMirrorNowAndThen) {
  int numMirrored = 0;
  for (const Variant& variant :
       MakeVariants(SquareWithIdleCorner(), {.NumVariants = 20, .Seed = 1, .Mirrors = true}).All)
    numMirrored += variant.Document.Members[1].X1 == 4 ? 1 : 0;
  EXPECT_GT(numMirrored, 3);
  EXPECT_LT(numMirrored, 17);
}

// A member under a load that points along it: its neighbours carry nothing in this one direction only.
TEST(Variants, KeepObliqueLoadsInTheirLine) {
  const Truss truss = TrussBuilder()
                          .Member(0, 0, 3, 4, "AC")
                          .Member(6, 0, 3, 4, "BC")
                          .Clamp(0, 0, "Ax", "Ay")
                          .Clamp(6, 0, "Bx", "By")
                          .Force(3, 4, -300, -400);
  const Variants made = MakeVariants(truss, {.NumVariants = 12, .Seed = 2});
  ASSERT_EQ(made.All.size(), 12U) << made.Why;
  for (const Variant& variant : made.All)
    EXPECT_EQ(variant.Document.Forces[1].Fx * 4, variant.Document.Forces[1].Fy * 3);
}

TEST(Variants, AreNotMadeOfWhatHasNoAnswer) {
  EXPECT_THAT(MakeVariants(TrussBuilder().Member(0, 0, 1, 0).Clamp(0, 0), {}).Why, HasSubstr("no load"));
  EXPECT_THAT(MakeVariants(TrussBuilder().Force(0, 0, 1, 0), {}).Why, HasSubstr("no unknown forces"));
  const Truss mechanism = TrussBuilder().Member(0, 0, 4, 0).Clamp(0, 0).Force(4, 0, 0, -1);
  EXPECT_THAT(MakeVariants(mechanism, {}).Why, HasSubstr("do not give every force"));
  const Truss undetermined =
      TrussBuilder().Member(0, 0, 4, 0).Member(0, 0, 4, 0).Clamp(0, 0).Roller(4, 0).Force(4, 0, 1, 0);
  EXPECT_THAT(MakeVariants(undetermined, {}).Why, HasSubstr("do not give every force"));
  // Between two clamps in line the rounded equations give huge forces where exactly there are none.
  const Truss hidden =
      TrussBuilder().Member(0, 0, 1, 3).Member(4, 12, 1, 3).Clamp(0, 0).Clamp(4, 12).Force(1, 3, 0, -1000);
  EXPECT_THAT(MakeVariants(hidden, {}).Why, HasSubstr("not unique, exactly"));
  Truss unnamed = RoundTriangle();
  unnamed.Labels[unnamed.Members[1].NameLabel1].Caption = UnnamedCaption;
  EXPECT_THAT(MakeVariants(unnamed, {}).Why, HasSubstr("not every force has a name"));
  unnamed.Labels[unnamed.Members[1].NameLabel1].Caption = "Ax";
  EXPECT_THAT(MakeVariants(unnamed, {}).Why, HasSubstr("two forces are called"));
  Truss tiny = RoundTriangle();
  tiny.Forces[1].Fy = -1e-12F;
  EXPECT_THAT(MakeVariants(tiny, {}).Why, HasSubstr("all forces of this truss are 0"));
}

// A bar between two loads that cancel each other; it carries nothing, and so do those of the variants.
Truss BalancedBar(float left, float right) {
  return TrussBuilder()
      .Member(0, 0, 4, 0, "AB")
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(4, 0, "B")
      .Force(4, 0, left, 0)
      .Force(4, 0, right, 0);
}

TEST(Variants, ScaleLoadsTogetherThatCancelEachOther) {
  const Variants made = MakeVariants(BalancedBar(-730, 730), {.NumVariants = 40, .Seed = 3});
  ASSERT_EQ(made.All.size(), 40U) << made.Why;
  for (const Variant& variant : made.All)
    EXPECT_EQ(variant.Document.Forces[1].Fx, -variant.Document.Forces[2].Fx);
}

TEST(Variants, AreEndedByTheUser) {
  double last = -1;
  const Variants made =
      MakeVariants(SquareWithIdleCorner(), {.NumVariants = 10, .Seed = 1}, [&last](double done) {
        EXPECT_GT(done, last);
        last = done;
        return done < 0.4;
      });
  EXPECT_EQ(made.All.size(), 4U);
  EXPECT_EQ(made.Why, "this was ended");
}

TEST(Variants, SayWhenThereAreNotAsMany) {
  const Variants made = MakeVariants(BalancedBar(-730, 730), {.NumVariants = MostVariants, .Seed = 1});
  EXPECT_FALSE(made.All.empty());
  EXPECT_LT(made.All.size(), static_cast<std::size_t>(MostVariants));
  EXPECT_THAT(made.Why, HasSubstr("only " + std::to_string(made.All.size()) + " variants could be found"));
}

}  // namespace
