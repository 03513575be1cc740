#include "explanation/Directions.h"

#include <algorithm>
#include <cmath>

std::string ListOf(const std::vector<std::string>& items, std::size_t most) {
  std::string list;
  const std::size_t numNamed = items.size() > most ? most : items.size();
  for (std::size_t i = 0; i < numNamed; ++i) {
    const bool isLast = i + 1 == items.size();
    if (i > 0) list += isLast ? " and " : ", ";
    list += items[i];
  }
  if (numNamed < items.size()) list += " and " + std::to_string(items.size() - numNamed) + " more";
  return list;
}

std::string Counted(int count, const std::string& singular, const std::string& plural) {
  if (count == 0) return "no " + plural;
  std::string text = std::to_string(count);
  text += ' ';
  return text + (count == 1 ? singular : plural);
}

std::string DirectionText(double dx, double dy) {
  const double size = std::sqrt(dx * dx + dy * dy);
  const std::string sideways = std::abs(dx) < 1e-9 * size ? "" : dx > 0 ? "to the right" : "to the left";
  std::string upright = std::abs(dy) < 1e-9 * size ? "" : dy > 0 ? "up" : "down";
  if (sideways.empty()) return upright;
  return upright.empty() ? sideways : sideways + " and " + upright;
}

std::string PairText(double x, double y, const ReportFormat& format) {
  std::string text = "(";
  text += FormatSigFigs(x, format);
  text += format.Numbers.DecimalSeparator == "," ? "; " : ", ";
  text += FormatSigFigs(y, format);
  return text + ")";
}

std::string PointText(const TrussGraph& graph, double x, double y, const ReportFormat& format) {
  double size = 0;
  for (const PlacedJoint& joint : graph.Joints.First(graph.NumJoints())) {
    size = std::max({size, std::abs(double{joint.X}), std::abs(double{joint.Y})});
  }
  for (const PlacedJoint& joint : graph.Joints.First(graph.NumJoints())) {
    const bool isThere = std::abs(joint.X - x) < 1e-7 * size && std::abs(joint.Y - y) < 1e-7 * size;
    if (isThere) return "joint " + joint.Name;
  }
  return "the point " + PairText(x, y, format);
}
