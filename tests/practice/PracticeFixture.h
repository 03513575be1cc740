// A triangle whose forces are round numbers, and answers to it by name.
#pragma once

#include <map>
#include <string>

#include "analysis/Analysis.h"
#include "explanation/TrussGraph.h"
#include "practice/AnswerSheet.h"
#include "support/TrussBuilder.h"

// 1000 down at C over the middle of A and B; A is a clamp, B a roller. Ax 0, Ay 500, B 500; AC and BC are 625
// and push, AB is 375 and pulls.
inline Truss RoundTriangle() {
  return TrussBuilder()
      .Member(0, 0, 6, 0, "AB")
      .Member(0, 0, 3, 4, "AC")
      .Member(6, 0, 3, 4, "BC")
      .Clamp(0, 0, "Ax", "Ay")
      .Roller(6, 0, "B")
      .Force(3, 4, 0, -1000)
      .Joint(0, 0, "A")
      .Joint(6, 0, "B")
      .Joint(3, 4, "C");
}

inline AskedTruss Asked(Truss truss, const std::string& name = "triangle.trs") {
  const TrussAnalysis analysis = SolveTruss(truss);
  return {name, GraphOf(truss, analysis), analysis.Reading.Values};
}

inline int NumberOf(const TrussGraph& graph, const std::string& name) {
  for (int k = 1; k <= graph.NumUnknowns(); ++k) {
    if (graph.Unknowns[k].Name == name) return k;
  }
  return 0;
}

inline int JointNamed(const TrussGraph& graph, const std::string& name) {
  for (int j = 1; j <= graph.NumJoints(); ++j) {
    if (graph.Joints[j].Name == name) return j;
  }
  return 0;
}

inline ForceValues ValuesOf(const TrussGraph& graph, const std::map<std::string, double>& byName) {
  ForceValues values(graph.NumUnknowns());
  for (const auto& [name, value] : byName) values[NumberOf(graph, name)] = value;
  return values;
}

inline std::map<std::string, double> RightAnswers() {
  return {{"Ax", 0}, {"Ay", 500}, {"B", 500}, {"AB", -375}, {"AC", 625}, {"BC", 625}};
}

/// The right answers but for these.
inline std::map<std::string, double> AnswersWith(const std::map<std::string, double>& others) {
  std::map<std::string, double> answers = others;
  answers.merge(RightAnswers());
  return answers;
}
