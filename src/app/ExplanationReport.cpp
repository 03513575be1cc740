#include "app/ExplanationReport.h"

#include <cmath>

#include "canvas/Graph.h"
#include "editing/Picking.h"
#include "text/CodePage.h"
#include "text/ControlCharacters.h"

void WriteWhy(std::ostream& out, const Explanation& explanation, const ReportFormat& format) {
  bool first = true;
  for (const ExplanationSection& section : ExplanationText(explanation, format)) {
    if (!first) out << '\n';
    out << section.Heading << '\n';
    if (first) {
      for (const std::string& line : KindTable(explanation.Exact.Verdict)) out << line << '\n';
    }
    first = false;
    for (const std::string& paragraph : section.Paragraphs) out << VisibleText(ToUtf8(paragraph)) << '\n';
  }
}

std::vector<DrawingCheck> ChecksOf(const AnalysedFile& file, const ReportFormat& format) {
  const CanvasBounds bounds;
  const DocumentSettings& settings = file.Document.Settings;
  Graph graph;
  graph.SetMapping(bounds.PixL, bounds.PixR, bounds.PixB, bounds.PixT, settings.XMin, settings.XMax,
                   settings.YMin, file.Document.View.YMax);
  return CheckDrawing(file.Document,
                      {.Bounds = bounds,
                       .SnapX = std::abs(graph.XWorld(SnapTolerance) - graph.XWorld(0)),
                       .SnapY = std::abs(graph.YWorld(SnapTolerance) - graph.YWorld(0))},
                      format);
}

void WriteChecks(std::ostream& out, const AnalysedFile& file, const ReportFormat& format) {
  out << "Checks of the drawing:\n";
  const std::vector<DrawingCheck> checks = ChecksOf(file, format);
  for (const DrawingCheck& check : checks) out << VisibleText(ToUtf8(check.Text)) << '\n';
  if (checks.empty()) out << "Nothing was found.\n";
}
