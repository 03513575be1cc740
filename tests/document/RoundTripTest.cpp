// Writing and reading again: the document comes back, but for the four switches, which change places.
#include <tuple>

#include "document/TrussFile.h"
#include "support/RandomTruss.h"

namespace {

// What a file holds of a truss, apart from the switches.
struct Contents {
  std::vector<float> Settings;
  double HatchSpacing = 0;
  std::int16_t SigFigs = 0;
  std::vector<std::tuple<float, float, int, std::string, std::string>> Supports;
  std::vector<std::tuple<float, float, float, float, std::string, std::string>> Members;
  std::vector<std::tuple<float, float, float, float>> Forces;
  std::vector<std::tuple<float, float, std::string>> Joints;

  explicit Contents(const Truss& truss) {
    const DocumentSettings& s = truss.Settings;
    Settings = {s.XMin, s.XMax, s.GridX, s.YMin, s.GridY, s.ForceScale};
    HatchSpacing = ValueOf(s.HatchSpacing);
    SigFigs = s.SigFigs;
    for (const SupportRec& r : truss.SupportsInUse()) {
      if (!r.Live) continue;
      Supports.emplace_back(r.X, r.Y, r.TypeIndex, truss.Name(r.NameLabel1),
                            r.IsClamp() ? truss.Name(r.NameLabel2) : "");
    }
    for (const MemberRec& r : truss.MembersInUse()) {
      if (!r.Live) continue;
      Members.emplace_back(r.X1, r.Y1, r.X2, r.Y2, truss.Name(r.NameLabel1), truss.Name(r.NameLabel2));
    }
    for (const ForceRec& r : truss.ForcesInUse()) {
      if (r.Active) Forces.emplace_back(r.X, r.Y, r.Fx, r.Fy);
    }
    for (const JointRec& r : truss.JointsInUse()) Joints.emplace_back(r.X, r.Y, truss.Name(r.NameLabel));
  }
};

void ExpectSameContents(const Contents& a, const Contents& b) {
  EXPECT_EQ(a.Settings, b.Settings);
  EXPECT_EQ(a.SigFigs, b.SigFigs);
  EXPECT_EQ(a.Supports, b.Supports);
  EXPECT_EQ(a.Members, b.Members);
  EXPECT_EQ(a.Forces, b.Forces);
  EXPECT_EQ(a.Joints, b.Joints);
}

Truss Read(const std::string& text) {
  Truss truss;
  const auto error = ReadTrussText(truss, CanvasBounds{}, text);
  EXPECT_EQ(error, std::nullopt) << error->Text();
  return truss;
}

std::string WithoutSwitches(const std::string& text) {
  const std::size_t second = text.find("\r\n") + 2;
  return text.substr(0, second) + text.substr(text.find("\r\n", second));
}

std::vector<bool> Switches(const DocumentSettings& s) {
  return {s.GridOn, s.RulersOn, s.SnapGrid, s.SnapObject};
}

}  // namespace

TEST(RoundTrip, ARandomTrussComesBackButForItsSwitches) {
  constexpr std::uint32_t seed = 1202;
  SCOPED_TRACE("seed " + std::to_string(seed));
  RandomTruss random(seed);
  int numElements = 0;
  for (int i = 0; i < 600 && !testing::Test::HasFailure(); ++i) {
    SCOPED_TRACE("truss " + std::to_string(i));
    Truss first = random.Next();
    const std::string firstText = TrussText(first);
    Truss second = Read(firstText);
    ExpectSameContents(Contents(first), Contents(second));
    numElements += second.NumMembers + second.NumSupports + second.NumForces;

    const std::string secondText = TrussText(second);
    Truss third = Read(secondText);
    ExpectSameContents(Contents(second), Contents(third));
    EXPECT_EQ(Contents(second).HatchSpacing, Contents(third).HatchSpacing);
    EXPECT_EQ(WithoutSwitches(TrussText(third)), WithoutSwitches(secondText));
  }
  EXPECT_GT(numElements, 5000);
}

TEST(RoundTrip, TheHatchSpacingKeepsItsTextAndWithItItsValue) {
  const auto reread = [](const TaggedNumber& spacing) {
    Truss truss;
    truss.Settings.HatchSpacing = spacing;
    return Read(TrussText(truss)).Settings.HatchSpacing;
  };
  EXPECT_EQ(reread(std::int16_t{-7}), TaggedNumber(std::int16_t{-7}));
  EXPECT_EQ(reread(2.5), TaggedNumber(2.5));
  EXPECT_EQ(reread(1.0 / 3), TaggedNumber(1.0 / 3));
  // The file does not tell a single from a double: a single comes back as the number that it showed.
  EXPECT_EQ(reread(0.1F), TaggedNumber(0.1));
  EXPECT_EQ(reread(2.0F), TaggedNumber(std::int16_t{2}));
  EXPECT_EQ(reread(5e9F), TaggedNumber(5e9));

  constexpr std::uint32_t seed = 1203;
  SCOPED_TRACE("seed " + std::to_string(seed));
  RandomTruss random(seed);
  for (int i = 0; i < 1000; ++i) {
    const float spacing = random.AnySingle();
    EXPECT_EQ(static_cast<float>(ValueOf(reread(spacing))), spacing);
  }
}

TEST(RoundTrip, EachSwitchMovesToAnotherPlace) {
  for (int bits = 0; bits < 16; ++bits) {
    Truss truss;
    truss.Settings.GridOn = (bits & 1) != 0;
    truss.Settings.RulersOn = (bits & 2) != 0;
    truss.Settings.SnapGrid = (bits & 4) != 0;
    truss.Settings.SnapObject = (bits & 8) != 0;
    const DocumentSettings reread = Read(TrussText(truss)).Settings;
    EXPECT_EQ(reread.SnapObject, truss.Settings.GridOn);
    EXPECT_EQ(reread.SnapGrid, truss.Settings.RulersOn);
    EXPECT_EQ(reread.GridOn, truss.Settings.SnapGrid);
    EXPECT_EQ(reread.RulersOn, truss.Settings.SnapObject);
  }
}

TEST(RoundTrip, GridOnAndSnapToObjectOffReopenAsSnapToObjectOnAndRulersOff) {
  Truss truss;
  truss.Settings.GridOn = true;
  truss.Settings.SnapObject = false;
  const DocumentSettings reread = Read(TrussText(truss)).Settings;
  EXPECT_TRUE(reread.SnapObject);
  EXPECT_FALSE(reread.RulersOn);
}

TEST(RoundTrip, FourTimesBringTheSwitchesBack) {
  for (int bits = 0; bits < 16; ++bits) {
    Truss truss;
    truss.Settings.GridOn = (bits & 1) != 0;
    truss.Settings.RulersOn = (bits & 2) != 0;
    truss.Settings.SnapGrid = (bits & 4) != 0;
    truss.Settings.SnapObject = (bits & 8) != 0;
    const std::string text = TrussText(truss);
    Truss reread = truss;
    for (int i = 0; i < 4; ++i) reread = Read(TrussText(reread));
    EXPECT_EQ(Switches(reread.Settings), Switches(truss.Settings));
    EXPECT_EQ(TrussText(reread), text);
  }
}
