// Trusses with their forces, and what may not happen to the texts of a drawing.
#pragma once

#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

#include "../ExplanationFixture.h"
#include "canvas/Drawing.h"
#include "document/JointList.h"
#include "document/TrussFile.h"
#include "explanation/forces/ForcesDrawing.h"
#include "naming/Naming.h"
#include "support/RecordingSurface.h"
#include "support/TrussOfShape.h"

/// A truss taken through the analysis.
struct SolvedForces {
  explicit SolvedForces(Truss given, const ReportFormat& format = {})
      : Document(std::move(given)),
        Analysis(SolveTruss(Document)),
        Forces(ForcesOf(ExplanationOnDemand(Document, Analysis), format)) {}

  ForcesScene Scene() const { return {.Document = Document, .Forces = Forces}; }

  ForcesDrawing Drawn(const PixelRect& room = {0, 0, 640, 420}, double zoom = 1) const {
    return DrawForces(Scene(), room, zoom, RecordingSurface::Measure);
  }

  /// The unknown of a name.
  int Unknown(const std::string& name) const {
    for (int k = 1; k <= Forces.Graph.NumUnknowns(); ++k) {
      if (Forces.Graph.Unknowns[k].Name == name) return k;
    }
    ADD_FAILURE() << "no force " << name;
    return 1;
  }
  const ForceFound& Force(const std::string& name) const { return Forces.Unknowns[Unknown(name)]; }

  Truss Document;
  TrussAnalysis Analysis;
  TrussForces Forces;
};

/// A triangle on a clamp and a roller with a load of 1000 down on its top C.
inline SolvedForces LoadedTriangleForces() {
  return SolvedForces(TrussBuilder()
                          .Member(0, 0, 4, 0, "AB")
                          .Member(0, 0, 2, 2, "AC")
                          .Member(4, 0, 2, 2, "BC")
                          .Clamp(0, 0, "Ax", "Ay")
                          .Roller(4, 0, "By")
                          .Force(2, 2, 0, -1000)
                          .Joint(0, 0, "A")
                          .Joint(4, 0, "B")
                          .Joint(2, 2, "C"));
}

/// Two crossed bars in a square too many: its members are undetermined.
inline SolvedForces CrossedSquareForces() {
  return SolvedForces(TrussBuilder()
                          .Member(0, 0, 4, 0, "s1")
                          .Member(4, 0, 4, 4, "s2")
                          .Member(4, 4, 0, 4, "s3")
                          .Member(0, 4, 0, 0, "s4")
                          .Member(0, 0, 4, 4, "d1")
                          .Member(4, 0, 0, 4, "d2")
                          .Clamp(0, 0, "x", "y")
                          .Roller(4, 0, "r")
                          .Force(4, 4, 0, -100));
}

/// A square without a diagonal, pushed aside: nothing holds it.
inline SolvedForces SwayingSquareForces() {
  return SolvedForces(TrussBuilder()
                          .Member(0, 0, 4, 0, "s1")
                          .Member(4, 0, 4, 4, "s2")
                          .Member(4, 4, 0, 4, "s3")
                          .Member(0, 4, 0, 0, "s4")
                          .Clamp(0, 0, "x", "y")
                          .Roller(4, 0, "r")
                          .Force(4, 4, 100, 0));
}

/// All files of examples/, with a name for everything.
inline std::vector<std::pair<std::string, Truss>> ExampleTrusses() {
  std::vector<std::pair<std::string, Truss>> examples;
  for (const auto& entry : std::filesystem::directory_iterator(ORVANE_EXAMPLES_DIR)) {
    if (entry.path().extension() != ".trs") continue;
    Truss truss;
    EXPECT_EQ(ReadTruss(truss, CanvasBounds{}, entry.path().string()), std::nullopt) << entry.path();
    EXPECT_TRUE(CheckJoints(truss));
    AutoName(truss);
    examples.emplace_back(entry.path().filename().string(), std::move(truss));
  }
  return examples;
}

/// Whether a point of a line lies inside a box, with `reach` pixels around the line; looked at in small
/// steps.
inline bool RunsThrough(const PixelLine& line, const PixelRect& box, double reach) {
  const double dx = double{line.X2} - double{line.X1};
  const double dy = double{line.Y2} - double{line.Y1};
  const auto isBeside = [reach](float a, float b, float low, float high) {
    return std::max(a, b) < low - reach || std::min(a, b) > high + reach;
  };
  if (isBeside(line.X1, line.X2, box.Left, box.Right) || isBeside(line.Y1, line.Y2, box.Top, box.Bottom))
    return false;
  const int steps = 1 + static_cast<int>(2 * std::hypot(dx, dy));
  for (int i = 0; i <= steps; ++i) {
    const double x = line.X1 + dx * i / steps;
    const double y = line.Y1 + dy * i / steps;
    const double right = std::max({double{box.Left} - x, 0.0, x - double{box.Right}});
    const double down = std::max({double{box.Top} - y, 0.0, y - double{box.Bottom}});
    const bool isInside = x > box.Left && x < box.Right && y > box.Top && y < box.Bottom;
    if (isInside || std::hypot(right, down) < reach) return true;
  }
  return false;
}

/// How often a text of the drawing covers another text, a member, a joint, an arrow or a leader.
inline int NumOverlaps(const ForcesDrawing& drawing) {
  int overlaps = 0;
  for (const ForceLabel& label : drawing.Labels) {
    const PixelRect& box = label.Box;
    for (const ForceLabel& other : drawing.Labels) {
      if (&other == &label) continue;
      const bool meet = box.Left < other.Box.Right && other.Box.Left < box.Right &&
                        box.Top < other.Box.Bottom && other.Box.Top < box.Bottom;
      overlaps += int{meet} + int{other.Leader && RunsThrough(*other.Leader, box, 0.5)};
    }
    for (const DrawnMember& member : drawing.Members)
      overlaps += int{RunsThrough(member.Line, box, member.Width / 2.0)};
    for (const DrawnForce& arrow : drawing.Arrows) overlaps += int{RunsThrough(arrow.Line, box, 2)};
    for (const PixelPoint& pin : drawing.Pins)
      overlaps += int{RunsThrough({pin.X, pin.Y, pin.X, pin.Y}, box, PinSize / 2.0)};
  }
  return overlaps;
}
