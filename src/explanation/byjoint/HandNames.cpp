#include "explanation/byjoint/HandNames.h"

#include <cmath>
#include <map>

#include "explanation/Directions.h"
#include "explanation/RigidityMatrix.h"

namespace {

template <class Named>
Table<std::string> Distinct(const Table<Named>& named) {
  std::map<std::string, int> count;
  for (const Named& one : named.First(named.Size())) ++count[one.Name];
  Table<std::string> names(named.Size());
  for (int i = 1; i <= named.Size(); ++i) {
    const std::string& name = named[i].Name;
    const bool tells = !name.empty() && name != UnnamedCaption && count[name] == 1;
    names[i] = tells ? name : name + '#' + std::to_string(i);
  }
  return names;
}

std::string ListOf(const Table<std::string>& names, const std::vector<int>& indices, std::size_t most) {
  std::vector<std::string> list;
  list.reserve(indices.size());
  for (const int i : indices) list.push_back(names[i]);
  return ::ListOf(list, most);
}

}  // namespace

HandNames::HandNames(const TrussGraph& graph)
    : graph_(graph), forces_(Distinct(graph.Unknowns)), joints_(Distinct(graph.Joints)) {}

std::string HandNames::Forces(const std::vector<int>& unknowns, std::size_t most) const {
  return ListOf(forces_, unknowns, most);
}

std::string HandNames::Joints(const std::vector<int>& joints, std::size_t most) const {
  return (joints.size() == 1 ? "joint " : "joints ") + ListOf(joints_, joints, most);
}

std::string HandNames::Point(double x, double y, const ReportFormat& format) const {
  for (int j = 1; j <= graph_.NumJoints(); ++j) {
    const double dx = WrittenDifference(graph_.Joints[j].X, 0) - x;
    const double dy = WrittenDifference(graph_.Joints[j].Y, 0) - y;
    if (std::abs(dx) <= 1e-9 * std::abs(x) && std::abs(dy) <= 1e-9 * std::abs(y)) return "joint " + Joint(j);
  }
  return "the point " + PairText(x, y, format);
}
