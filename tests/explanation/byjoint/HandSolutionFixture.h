// What every solution by hand must keep, and trusses to hold it against.
#pragma once

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <random>

#include "document/JointList.h"
#include "document/TrussFile.h"
#include "explanation/ExplanationFixture.h"
#include "explanation/RigidityMatrix.h"
#include "explanation/byjoint/HandText.h"
#include "support/HandTrusses.h"

/// A truss with everything that its texts are made from.
struct ToldByHand {
  explicit ToldByHand(Truss truss, int sigFigs = 4) : Format{.SigFigs = sigFigs, .Numbers = {}} {
    const TrussAnalysis analysis = SolveTruss(truss);
    Graph = GraphOf(truss, analysis);
    Reading = analysis.Reading;
    Solution = SolveByHand(Graph);
  }

  std::vector<HandStepText> Texts() const {
    const HandText writer(Graph, Solution, Format);
    std::vector<HandStepText> texts;
    for (const HandStep& step : Solution.Steps) texts.push_back(writer.Step(step));
    return texts;
  }
  std::vector<std::string> Closing() const { return HandText(Graph, Solution, Format).Closing(Reading); }

  ReportFormat Format;
  TrussGraph Graph;
  Classification Reading;
  HandSolution Solution;
};

inline std::string AllLines(const ToldByHand& told) {
  std::string all;
  for (const HandStepText& text : told.Texts()) {
    for (const std::string& line : text.Lines) all += line + '\n';
  }
  return all;
}

inline int CountSteps(const HandSolution& solution, HandStepKind kind) {
  return static_cast<int>(std::ranges::count(solution.Steps, kind, &HandStep::Kind));
}

/// With the values found put in, each equation adds up to 0, and what holds has the same number on both
/// sides.
inline void ExpectEquationsHold(const HandSolution& solution) {
  for (const HandStep& step : solution.Steps) {
    for (const BalanceEquation& equation : step.Equations) {
      if (equation.Use == BalanceUse::Contradicts) continue;
      if (equation.Use == BalanceUse::Holds) {
        EXPECT_EQ(equation.KnownLeft, equation.KnownRight);
      }
      double sum = 0;
      double size = 0;
      for (const BalanceTerm& term : equation.Terms) {
        if (term.IsSought) {
          ASSERT_TRUE(solution.Values[term.Unknown].has_value());
        }
        const double force = term.IsSought ? *solution.Values[term.Unknown] : term.Force;
        sum += term.Factor * force;
        size += std::abs(term.Factor * force);
      }
      EXPECT_NEAR(sum, 0, 1e-9 * size + 1e-12);
    }
  }
}

/// Forces and loads cancel at each joint whose forces are all found.
inline void ExpectJointsInBalance(const TrussGraph& graph, const HandSolution& solution) {
  const SparseMatrix<double> rigidity = RigidityRows(graph);
  std::vector<double> sums = LoadVector(graph);
  std::vector<char> isOpen(sums.size());
  double size = 0;
  for (const double load : sums) size = std::max(size, std::abs(load));
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    const std::optional<double>& value = solution.Values[k];
    for (const auto& [column, factor] : rigidity.Row(k)) {
      const auto at = static_cast<std::size_t>(column - 1);
      if (value) {
        sums[at] += factor * *value;
        size = std::max(size, std::abs(*value));
      } else {
        isOpen[at] = 1;
      }
    }
  }
  for (std::size_t i = 0; i < sums.size(); ++i) {
    if (isOpen[i] == 0) {
      EXPECT_NEAR(sums[i], 0, 1e-6 * size);
    }
  }
}

/// Calls `check(truss)` with each of the example files, as they stand after they were opened.
template <class Check>
void WithEachExample(const Check& check) {
  for (const auto& entry : std::filesystem::directory_iterator(ORVANE_EXAMPLES_DIR)) {
    if (entry.path().extension() != ".trs") continue;
    SCOPED_TRACE(entry.path().filename().string());
    Truss truss;
    ASSERT_FALSE(ReadTruss(truss, CanvasBounds{}, entry.path().string()));
    ASSERT_TRUE(CheckJoints(truss));
    check(truss);
  }
}

/// The unknowns whose values are found, ascending.
inline std::vector<int> Found(const HandSolution& solution) {
  std::vector<int> found;
  for (int k = 1; k <= solution.Values.Size(); ++k) {
    if (solution.Values[k]) found.push_back(k);
  }
  return found;
}

/// Values by the names of the unknowns.
inline std::map<std::string, double> ByName(const TrussGraph& graph, const HandSolution& solution) {
  std::map<std::string, double> values;
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    if (solution.Values[k]) values[graph.Unknowns[k].Name] = *solution.Values[k];
  }
  return values;
}

/// Joints anywhere, each joined to two earlier ones out of line with it; a clamp, and a roller that holds
/// against turning about it; loads on some joints. Coordinates have one decimal.
inline Truss RandomSimpleTrussOn(std::mt19937& random, int numJoints) {
  const auto below = [&random](int count) {
    return static_cast<int>(random() % static_cast<unsigned>(count));
  };
  struct Place {
    float X, Y;
  };
  const auto anywhere = [&below] {
    return Place{static_cast<float>(below(200)) / 10, static_cast<float>(below(200)) / 10};
  };
  std::vector<Place> at = {{0, 0}, {3, 1}};
  TrussBuilder builder;
  builder.Member(0, 0, 3, 1, "m1");
  int number = 1;
  while (static_cast<int>(at.size()) < numJoints) {
    const Place& a = at[static_cast<std::size_t>(below(static_cast<int>(at.size())))];
    const Place& b = at[static_cast<std::size_t>(below(static_cast<int>(at.size())))];
    const Place joint = anywhere();
    const float area = (a.X - joint.X) * (b.Y - joint.Y) - (a.Y - joint.Y) * (b.X - joint.X);
    const auto isThere = [&](const Place& other) { return other.X == joint.X && other.Y == joint.Y; };
    if (std::abs(area) < 0.005F || std::ranges::any_of(at, isThere)) continue;
    builder.Member(a.X, a.Y, joint.X, joint.Y, "m" + std::to_string(++number));
    builder.Member(b.X, b.Y, joint.X, joint.Y, "m" + std::to_string(++number));
    at.push_back(joint);
  }
  const Place clamp = at[static_cast<std::size_t>(below(numJoints))];
  builder.Clamp(clamp.X, clamp.Y, "ax", "ay", static_cast<std::int16_t>(1 + below(4)));
  while (true) {
    const Place roller = at[static_cast<std::size_t>(below(numJoints))];
    const auto type = static_cast<std::int16_t>(5 + below(4));
    if (type <= 6 ? roller.X == clamp.X : roller.Y == clamp.Y) continue;
    builder.Roller(roller.X, roller.Y, "b", type);
    break;
  }
  for (int i = 1 + below(4); i > 0; --i) {
    const Place& load = at[static_cast<std::size_t>(below(numJoints))];
    builder.Force(load.X, load.Y, static_cast<float>(below(2001) - 1000),
                  static_cast<float>(below(2001) - 1000));
  }
  return builder;
}
