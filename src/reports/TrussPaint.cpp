// The canvas's steps on a drawing of the picture's own, at the largest scale that a page has room for.
#include "reports/TrussPaint.h"

#include <cmath>
#include <optional>

#include "canvas/DoLabel.h"
#include "canvas/PaintDrawing.h"
#include "canvas/RedrawTruss.h"
#include "reports/ForceValues.h"

namespace {

constexpr float MarginOfPicture = 6;

// Below the world window, beside the border.
constexpr float LowestLine = 2;

// Pixels to which the world window is mapped, borders included. A truss that fills a small part of its window
// is drawn larger, up to the last of these.
constexpr int NarrowestWindow = 640;
constexpr int WidestWindow = 4 * NarrowestWindow;

// Maps the world window onto a picture of this width, in the window's proportions. Nothing when the window
// has no extent to map.
std::optional<Graph> MappingFor(const Truss& truss, int width) {
  const DocumentSettings& settings = truss.Settings;
  const double xRange = double{settings.XMax} - double{settings.XMin};
  const double yRange = double{truss.View.YMax} - double{settings.YMin};
  const double ratio = yRange / xRange;
  if (!(ratio > 0) || !std::isfinite(ratio)) return std::nullopt;
  const auto pixels = static_cast<float>(width);
  const double height = (pixels - 2 * PictureBorder) * ratio + 2 * PictureBorder + LowestLine;
  Graph graph;
  graph.SetMapping(PictureBorder, pixels - PictureBorder, FiniteSingle(height - PictureBorder - LowestLine),
                   PictureBorder, settings.XMin, settings.XMax, settings.YMin, truss.View.YMax);
  return graph;
}

class Painter {
 public:
  Painter(const Truss& truss, const ReportFormat& format, const TextMeasure& measure, PictureContent content)
      : truss_(truss), format_(format), measure_(measure), content_(content) {}

  /// The largest picture that has room on a page, or the smallest when none has.
  PaintedTruss Fitting() const {
    int low = NarrowestWindow;
    PaintedTruss best = Painted(low);
    if (!HasRoom(best.Drawn)) return best;
    for (int high = WidestWindow + 1; high - low > 1;) {
      const int middle = (low + high) / 2;
      PaintedTruss larger = Painted(middle);
      if (HasRoom(larger.Drawn)) {
        low = middle;
        best = std::move(larger);
      } else {
        high = middle;
      }
    }
    return best;
  }

 private:
  PaintedTruss Painted(int width) const {
    PaintedTruss painted{Picture(measure_), {}};
    Picture& picture = painted.Drawn;
    const std::optional<Graph> mapping = MappingFor(truss_, width);
    if (!mapping) return painted;
    painted.Mapping = *mapping;
    Drawing drawing;
    drawing.Mapping = *mapping;
    PlaceElements(drawing, truss_, measure_);
    PlaceJointLabels(drawing, truss_, measure_);
    if (content_.Names) ShowLabels(drawing, truss_);
    PaintDrawing(picture, drawing, truss_);
    if (content_.ForceValues) PrintForceValues(picture, drawing, truss_, format_);
    picture.Crop(MarginOfPicture);
    return painted;
  }

  static bool HasRoom(const Picture& picture) {
    return picture.Frame().Width() <= PictureWidth && picture.Frame().Height() <= PictureHeight;
  }

  const Truss& truss_;
  const ReportFormat& format_;
  const TextMeasure& measure_;
  PictureContent content_;
};

}  // namespace

PaintedTruss PaintTruss(const Truss& truss, const ReportFormat& format, const TextMeasure& measure,
                        PictureContent content) {
  return Painter(truss, format, measure, content).Fitting();
}

Picture TrussPaint(const Truss& truss, const ReportFormat& format, const TextMeasure& measure,
                   PictureContent content) {
  return PaintTruss(truss, format, measure, content).Drawn;
}
