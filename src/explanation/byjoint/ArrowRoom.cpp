#include "explanation/byjoint/ArrowRoom.h"

#include <algorithm>
#include <limits>

#include "canvas/PixelBoxes.h"

namespace {

constexpr double EnoughBetween = 5;  // pixels, between the shafts of two arrows
constexpr double ShiftStep = 14;     // and of the middles of two that stand side by side
constexpr int MostShifts = 3;

// Of the triangle of a line and a point; the sign tells the side.
double SideOfLine(const PixelLine& line, PixelPoint point) {
  return (double{line.X2} - double{line.X1}) * (double{point.Y} - double{line.Y1}) -
         (double{line.Y2} - double{line.Y1}) * (double{point.X} - double{line.X1});
}

bool AreOnBothSides(const PixelLine& line, const PixelLine& other) {
  return SideOfLine(line, other.End1()) * SideOfLine(line, other.End2()) < 0;
}

}  // namespace

double DistanceBetween(const PixelLine& a, const PixelLine& b) {
  if (AreOnBothSides(a, b) && AreOnBothSides(b, a)) return 0;
  return std::min(
      {DistanceTo(b, a.End1()), DistanceTo(b, a.End2()), DistanceTo(a, b.End1()), DistanceTo(a, b.End2())});
}

double ArrowRoom::ClearanceOf(int joint, const PixelLine& line) const {
  double clearance = std::numeric_limits<double>::infinity();
  const auto there = taken_.find(joint);
  if (there == taken_.end()) return clearance;
  for (const PixelLine& taken : there->second) clearance = std::min(clearance, DistanceBetween(line, taken));
  return clearance;
}

ArrowStand ArrowRoom::StandFor(int joint, const PixelVector& usual,
                               const std::function<PixelLine(const ArrowStand&)>& lineAt) const {
  ArrowStand best{usual};
  double clearest = -1;
  for (int step = 0; step <= MostShifts; ++step) {
    for (const double shift : {step * ShiftStep, -step * ShiftStep}) {
      for (const PixelVector& side : {usual, PixelVector{-usual.X, -usual.Y}}) {
        const ArrowStand stand{side, shift};
        const double clearance = ClearanceOf(joint, lineAt(stand));
        if (clearance >= EnoughBetween) return stand;
        if (clearance <= clearest) continue;
        clearest = clearance;
        best = stand;
      }
    }
  }
  return best;
}
