// Small pieces of sentences: lists of names, directions, points. All texts are single-byte texts.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "analysis/FormatSigFigs.h"
#include "explanation/TrussGraph.h"

/// "A", "A and B", "A, B and C"; of more than `most` the first ones "and 7 more".
std::string ListOf(const std::vector<std::string>& items, std::size_t most = 12);

/// "1 motion", "3 motions", "no motions".
std::string Counted(int count, const std::string& singular, const std::string& plural);

/// "to the right", "up", "to the left and down" ...; for a vector that is not 0.
std::string DirectionText(double dx, double dy);

/// "(0.6, -0.8)"; where the locale's separator is a comma, "(0,6; -0,8)".
std::string PairText(double x, double y, const ReportFormat& format);

/// Names points of a truss. The joints are put in order once, so that a name costs no search of them all.
class PointNamer {
 public:
  /// Both must outlive it.
  PointNamer(const TrussGraph& graph, const ReportFormat& format);

  /// "joint A" when a joint stands at the point (within a ten millionth of the drawing's size; of several the
  /// first), else "the point (1.5, 2)".
  std::string Text(double x, double y) const;

 private:
  struct Place {
    std::int64_t Column, Row;  // of a cell as large as the tolerance
    int Joint;
    friend auto operator<=>(const Place&, const Place&) = default;
  };

  int JointAt(double x, double y) const;

  const TrussGraph& graph_;
  ReportFormat format_;
  double near_ = 0;  // world units
  std::vector<Place> places_;
};
