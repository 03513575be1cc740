// What the canvas does after a change: it places everything anew and paints it on an image of the screen's
// pixels. All of the truss is in sight.
#include "DrawingBenchmark.h"

#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <string>

#include "ShapeDocument.h"
#include "canvas/PaintDrawing.h"
#include "canvas/RedrawTruss.h"
#include "platform/qt/QtSurface.h"
#include "platform/qt/QtTextMeasure.h"
#include "support/FakeMessageBox.h"

namespace {

using benchmark::State;

constexpr QSize CanvasSize(900, 600);  // pixels
constexpr CanvasBounds DrawingArea{.PixL = 48, .PixR = 880, .PixT = 20, .PixB = 560};

// Fits the truss into the drawing area, as its author would.
void ShowAll(DocumentSettings& settings, const TrussShape& shape) {
  const auto [left, right] = std::ranges::minmax(shape.Joints, {}, &TrussShape::Joint::X);
  const auto [low, high] = std::ranges::minmax(shape.Joints, {}, &TrussShape::Joint::Y);
  const float width = DrawingArea.PixR - DrawingArea.PixL, height = DrawingArea.PixB - DrawingArea.PixT;
  settings.XMin = left.X;
  settings.XMax = left.X + std::max(right.X - left.X, (high.Y - low.Y) * width / height);
  settings.YMin = low.Y;
}

void PaintCanvas(State& state, const TrussShape& shape, int scale, bool isNamed) {
  Truss truss = DocumentOf(shape);
  ShowAll(truss.Settings, shape);
  Drawing drawing;
  drawing.LabelsShown = isNamed;
  QtTextMeasure measure;
  const CanvasContext context{.Bounds = DrawingArea,
                              .Numbers = {},
                              .Measure = [&measure](const TextFont& font, std::string_view text) {
                                return measure.Measure(font, text);
                              }};
  FakeMessageBox messages;
  QImage image(CanvasSize * scale, QImage::Format_RGB32);
  image.setDevicePixelRatio(scale);
  for (auto unused : state) {
    QPainter painter(&image);
    QtSurface surface(painter, QRectF(QPointF(), CanvasSize));
    if (!RedrawTruss(truss, drawing, surface, context, messages)) state.SkipWithError("not redrawn");
    PaintDrawing(surface, drawing, truss);
  }
}

}  // namespace

void RegisterDrawingBenchmarks() {
  for (const NamedShape& shape : AllShapes()) {
    if (shape.Name != "Warren strip" && shape.Name != "two random tours") continue;
    for (const int scale : {1, 2}) {
      for (const bool isNamed : {false, true}) {
        const std::string name = "drawing, largest " + shape.Name + "/redraw and paint at scale " +
                                 std::to_string(scale) + (isNamed ? " with names and arrows" : "");
        benchmark::RegisterBenchmark(name.c_str(), PaintCanvas, shape.Make(LargestNumUnknowns), scale,
                                     isNamed)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
      }
    }
  }
}
