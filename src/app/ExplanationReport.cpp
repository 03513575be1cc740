#include "app/ExplanationReport.h"

#include <cmath>

#include "editing/Picking.h"
#include "explanation/WhyText.h"
#include "text/CodePage.h"
#include "text/ControlCharacters.h"

void WriteWhy(std::ostream& out, const Explanation& explanation, const ReportFormat& format) {
  for (const WhyLine& line : WhyText(explanation, format)) out << line.Text << '\n';
}

DrawnWhere DrawnOn(const CanvasBounds& bounds, const Graph& mapping, float width, float height) {
  return {.Bounds = bounds,
          .CanvasWidth = width,
          .CanvasHeight = height,
          .SnapX = std::abs(mapping.XWorld(SnapTolerance) - mapping.XWorld(0)),
          .SnapY = std::abs(mapping.YWorld(SnapTolerance) - mapping.YWorld(0))};
}

std::vector<DrawingCheck> ChecksOf(const AnalysedFile& file, const ReportFormat& format) {
  const CanvasBounds bounds;
  const DocumentSettings& settings = file.Document.Settings;
  Graph graph;
  graph.SetMapping(bounds.PixL, bounds.PixR, bounds.PixB, bounds.PixT, settings.XMin, settings.XMax,
                   settings.YMin, file.Document.View.YMax);
  const DrawnWhere usual;
  return CheckDrawing(file.Document, DrawnOn(bounds, graph, usual.CanvasWidth, usual.CanvasHeight), format);
}

void WriteChecks(std::ostream& out, const AnalysedFile& file, const ReportFormat& format) {
  out << "Checks of the drawing:\n";
  const std::vector<DrawingCheck> checks = ChecksOf(file, format);
  for (const DrawingCheck& check : checks) out << VisibleText(ToUtf8(check.Text)) << '\n';
  if (checks.empty()) out << "Nothing was found.\n";
}
