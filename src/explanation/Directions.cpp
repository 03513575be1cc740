#include "explanation/Directions.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double OfTheSize = 1e7;

std::int64_t CellOf(double at, double size) { return static_cast<std::int64_t>(std::floor(at / size)); }

}  // namespace

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

PointNamer::PointNamer(const TrussGraph& graph, const ReportFormat& format) : graph_(graph), format_(format) {
  double size = 0;
  for (const PlacedJoint& joint : graph.Joints.First(graph.NumJoints()))
    size = std::max({size, std::abs(double{joint.X}), std::abs(double{joint.Y})});
  near_ = size / OfTheSize;
  if (near_ == 0) return;
  for (int j = 1; j <= graph.NumJoints(); ++j) {
    const PlacedJoint& joint = graph.Joints[j];
    places_.push_back({CellOf(joint.X, near_), CellOf(joint.Y, near_), j});
  }
  std::ranges::sort(places_);
}

std::string PointNamer::Text(double x, double y) const {
  const int joint = JointAt(x, y);
  return joint != 0 ? "joint " + graph_.Joints[joint].Name : "the point " + PairText(x, y, format_);
}

// 0 when there is none. What is near stands in the same or a neighbouring cell.
int PointNamer::JointAt(double x, double y) const {
  const double farthest = 2 * OfTheSize * near_;
  if (near_ == 0 || !(std::abs(x) < farthest && std::abs(y) < farthest)) return 0;
  int first = 0;
  const std::int64_t row = CellOf(y, near_);
  for (std::int64_t column = CellOf(x, near_) - 1; column <= CellOf(x, near_) + 1; ++column) {
    const auto begin = std::ranges::lower_bound(places_, Place{column, row - 1, 0});
    for (auto place = begin; place != places_.end() && place->Column == column && place->Row <= row + 1;
         ++place) {
      const PlacedJoint& joint = graph_.Joints[place->Joint];
      const bool isThere = std::abs(joint.X - x) < near_ && std::abs(joint.Y - y) < near_;
      if (isThere && (first == 0 || place->Joint < first)) first = place->Joint;
    }
  }
  return first;
}
