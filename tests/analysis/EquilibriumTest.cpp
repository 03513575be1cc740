// An independent judge of the whole analysis: the forces that it found are put back on the joints of the
// drawing, without matrix or direction ratios, and must cancel. And forces of examples worked out by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "GeneratedTrusses.h"
#include "analysis/Analysis.h"
#include "analysis/Classification.h"
#include "document/JointList.h"
#include "document/TrussFile.h"

namespace {

struct Solved {
  Truss Drawn;
  EquationSystem System;
  Classification Reading;

  explicit Solved(Truss truss)
      : Drawn(std::move(truss)), System(SolveTruss(Drawn).System), Reading(ClassifyRREF(System)) {}

  bool IsDetermined() const {
    const auto values = Reading.Values.First(Reading.Values.Size());
    return Reading.Code == Outcome::Neither && System.NumUnknowns() > 0 &&
           std::ranges::all_of(values, [](const auto& value) { return value.has_value(); });
  }
};

// All forces on one joint: their sum, and how large they are together.
struct Sum {
  double X = 0;
  double Y = 0;
  double Size = 0;

  void Add(double fx, double fy) {
    X += fx;
    Y += fy;
    Size += std::hypot(fx, fy);
  }
};

// The forces on each position of the drawing.
std::map<std::pair<float, float>, Sum> ForcesOnJoints(const Solved& solved) {
  std::map<LabelIndex, double> valueOf;
  for (int k = 1; k <= solved.System.NumUnknowns(); ++k) {
    valueOf[solved.System.UnknownList[k].Label] = solved.Reading.Values[k].value();
  }
  std::map<std::pair<float, float>, Sum> at;
  for (const MemberRec& member : solved.Drawn.MembersInUse()) {
    if (!member.Live) continue;
    const double run = double{member.X2} - double{member.X1};
    const double rise = double{member.Y2} - double{member.Y1};
    const double push = valueOf.at(member.NameLabel1) / std::hypot(run, rise);
    at[{member.X2, member.Y2}].Add(push * run, push * rise);
    at[{member.X1, member.Y1}].Add(-push * run, -push * rise);
  }
  for (const SupportRec& support : solved.Drawn.SupportsInUse()) {
    if (!support.Live) continue;
    Sum& sum = at[{support.X, support.Y}];
    const double first = valueOf.at(support.NameLabel1);
    switch (support.TypeIndex) {
      case 5:
        sum.Add(0, first);
        break;
      case 6:
        sum.Add(0, -first);
        break;
      case 7:
        sum.Add(-first, 0);
        break;
      case 8:
        sum.Add(first, 0);
        break;
      default:
        sum.Add(first, valueOf.at(support.NameLabel2));
    }
  }
  for (const ForceRec& force : solved.Drawn.ForcesInUse()) {
    if (force.Active) at[{force.X, force.Y}].Add(double{force.Fx}, double{force.Fy});
  }
  return at;
}

// The directions in the equations are singles: a few parts in ten million of the forces may remain.
void ExpectEquilibrium(const Solved& solved) {
  for (const auto& [position, sum] : ForcesOnJoints(solved)) {
    EXPECT_LE(std::hypot(sum.X, sum.Y), 4e-7 * sum.Size + 1e-9)
        << "at (" << position.first << ", " << position.second << ")";
  }
}

Solved SolvedExample(const std::filesystem::path& path) {
  Truss truss;
  const auto error = ReadTruss(truss, CanvasBounds{}, path.string());
  EXPECT_FALSE(error.has_value()) << path << ": " << error->Text();
  EXPECT_TRUE(CheckJoints(truss));
  return Solved(std::move(truss));
}

std::vector<std::filesystem::path> ExampleFiles() {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(ORVANE_EXAMPLES_DIR)) {
    if (entry.path().extension() == ".trs") files.push_back(entry.path());
  }
  std::ranges::sort(files);
  return files;
}

void ExpectForces(const std::string& file, const std::map<std::string, double>& expected) {
  const Solved solved = SolvedExample(std::filesystem::path(ORVANE_EXAMPLES_DIR) / file);
  std::map<std::string, double> found;
  for (int k = 1; k <= solved.System.NumUnknowns(); ++k) {
    found[solved.System.UnknownList[k].Name] = solved.Reading.Values[k].value();
  }
  for (const auto& [name, value] : expected) {
    ASSERT_TRUE(found.contains(name)) << name;
    EXPECT_NEAR(found[name], value, 1e-3) << name;
  }
}

}  // namespace

TEST(Equilibrium, HoldsAtEveryJointOfEveryExampleWithASolution) {
  const auto files = ExampleFiles();
  ASSERT_GE(files.size(), 12U);
  int numSolved = 0;
  for (const auto& path : files) {
    SCOPED_TRACE(path.filename().string());
    const Solved solved = SolvedExample(path);
    if (!solved.IsDetermined()) continue;
    ++numSolved;
    ExpectEquilibrium(solved);
  }
  EXPECT_GE(numSolved, 10);
}

TEST(Equilibrium, HoldsAtEveryJointOfRandomSimpleTrusses) {
  for (unsigned seed = 1; seed <= 400; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const Solved solved(RandomSimpleTruss(random, 3 + Pick(random, 25)));
    ASSERT_TRUE(solved.IsDetermined());
    ExpectEquilibrium(solved);
    if (HasFailure()) return;
  }
}

TEST(Equilibrium, IsNoticedWhenItDoesNotHold) {
  std::mt19937 random(7);
  Solved solved(RandomSimpleTruss(random, 6));
  const auto anyImbalance = [&] {
    double largest = 0;
    for (const auto& [position, sum] : ForcesOnJoints(solved)) {
      largest = std::max(largest, std::hypot(sum.X, sum.Y) / (sum.Size + 1e-9));
    }
    return largest;
  };
  EXPECT_LE(anyImbalance(), 4e-7);
  solved.Reading.Values[1] = *solved.Reading.Values[1] + 1;
  EXPECT_GT(anyImbalance(), 1e-5);
}

TEST(Examples, TriangleByJoints) {
  ExpectForces("triangle.trs", {{"Ax", 0},
                                {"Ay", 500},
                                {"B", 500},
                                {"AC", 500 * std::sqrt(2.0)},
                                {"BC", 500 * std::sqrt(2.0)},
                                {"AB", -500}});
}

TEST(Examples, PrattBySections) {
  // Panels 3 wide and 4 high under 1000 at each of five joints. The second panel cut: the diagonal takes
  // 2500 - 1000 upward over 4/5; moments about C and I give the chords. The other half mirrors it.
  ExpectForces("pratt.trs", {{"Ax", 0},
                             {"Ay", 2500},
                             {"G", 2500},
                             {"AH", 2500 * 5 / 4.0},
                             {"AB", -2500 * 3 / 4.0},
                             {"BC", -2500 * 3 / 4.0},
                             {"BH", -1000},
                             {"CH", -1500 * 5 / 4.0},
                             {"HI", (2500 * 6 - 1000 * 3) / 4.0},
                             {"CI", 500},
                             {"DI", -500 * 5 / 4.0},
                             {"CD", -(2500 * 6 - 1000 * 3) / 4.0},
                             {"IJ", (2500 * 9 - 1000 * 6 - 1000 * 3) / 4.0},
                             {"JK", (2500 * 9 - 1000 * 6 - 1000 * 3) / 4.0},
                             {"DJ", 0},
                             {"EF", -2500 * 3 / 4.0},
                             {"FG", -2500 * 3 / 4.0}});
}

TEST(Examples, WarrenBySections) {
  // Panels 6 wide and 4 high under 800 at each of three joints; every diagonal takes its panel's shear over
  // 4/5, every chord the moment about the opposite joint over the height.
  ExpectForces("warren.trs", {{"Ay", 1200},
                              {"I", 1200},
                              {"AB", 1200 * 5 / 4.0},
                              {"BC", -1200 * 5 / 4.0},
                              {"CD", 400 * 5 / 4.0},
                              {"DE", -400 * 5 / 4.0},
                              {"AC", -1200 * 3 / 4.0},
                              {"BD", 1200 * 6 / 4.0},
                              {"CE", -(1200 * 9 - 800 * 3) / 4.0},
                              {"DF", (1200 * 12 - 800 * 6) / 4.0}});
}

TEST(Examples, ShallowArchByJoints) {
  // Half spans 4 under a crown 0.9 high: members 4.1 long, which share 900 by 0.9 / 4.1 each.
  ExpectForces("shallow-arch.trs", {{"AC", 900 / 2.0 * 4.1 / 0.9},
                                    {"BC", 900 / 2.0 * 4.1 / 0.9},
                                    {"Ax", 2000},
                                    {"Bx", -2000},
                                    {"Ay", 450},
                                    {"By", 450}});
}

TEST(Examples, FlatArchHasNothingThatPushesUp) {
  const Solved solved = SolvedExample(std::filesystem::path(ORVANE_EXAMPLES_DIR) / "flat-arch.trs");
  ASSERT_EQ(solved.System.NumUnknowns(), 2 * solved.Drawn.NumJoints) << "counting has no objection";
  EXPECT_EQ(solved.Reading.Code, Outcome::Inconsistent);
}

namespace {

std::vector<std::string> CellsOf(const std::string& line) {
  std::vector<std::string> cells;
  std::istringstream stream(line);
  std::string cell;
  std::getline(stream, cell, '|');
  while (std::getline(stream, cell, '|')) {
    const std::size_t first = cell.find_first_not_of(" `");
    const std::size_t last = cell.find_last_not_of(" `");
    cells.push_back(first == std::string::npos ? "" : cell.substr(first, last - first + 1));
  }
  return cells;
}

std::string OutcomeOf(const Solved& solved) {
  if (solved.Reading.Code == Outcome::Inconsistent) return "no solution";
  if (solved.Reading.Code == Outcome::Redundant) return "redundant";
  return solved.IsDetermined() ? "unique" : "undetermined";
}

}  // namespace

TEST(Examples, AreWhatTheirTableSays) {
  std::ifstream readme(std::filesystem::path(ORVANE_EXAMPLES_DIR) / "README.md");
  std::size_t numListed = 0;
  for (std::string line; std::getline(readme, line);) {
    if (!line.starts_with("| `")) continue;
    const std::vector<std::string> cells = CellsOf(line);
    ASSERT_GE(cells.size(), 4U) << line;
    SCOPED_TRACE(cells[0]);
    ++numListed;
    const Solved solved = SolvedExample(std::filesystem::path(ORVANE_EXAMPLES_DIR) / cells[0]);
    std::ostringstream counts;
    counts << solved.Drawn.NumJoints << " / " << solved.System.NumMemberForces << " / "
           << solved.System.NumReactionForces;
    EXPECT_EQ(counts.str(), cells[2]);
    EXPECT_EQ(OutcomeOf(solved), cells[3]);
  }
  EXPECT_EQ(numListed, ExampleFiles().size());
}
