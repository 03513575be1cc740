#include "explanation/forces/ForcesPicture.h"

#include <algorithm>
#include <array>

#include "explanation/Directions.h"
#include "explanation/TrussExtent.h"
#include "explanation/forces/PaintForces.h"

namespace {

constexpr float MarginOfPicture = 6;
constexpr float AboveLegend = 8;

// What the drawing and the legend are narrower than the picture: its margins, and their rounding to pixels.
constexpr float AroundPicture = 2 * MarginOfPicture + 2;

// Widths that are tried, pixels, and the share of its width that a picture may be high.
constexpr std::array Widths = {NarrowForcesPicture, 900.0F, 1280.0F, 1800.0F, WidestForcesPicture};
constexpr double HighestShare = 0.8;

// For arrows and texts above and below the truss.
constexpr double AirAbove = 96;

// No more leaders than one for so many texts are wanted.
constexpr std::size_t TextsToALeader = 6;

PixelRect RoomOf(const TrussForces& forces, float width) {
  const TrussExtent extent = ExtentOf(forces.Graph);
  const double ratio = extent.Width() > 0 ? extent.Height() / extent.Width() : HighestShare;
  const double height = std::min(HighestShare, ratio) * width + 2 * AirAbove;
  return {0, 0, width, static_cast<float>(height)};
}

std::size_t NumLeaders(const ForcesDrawing& drawing) {
  return static_cast<std::size_t>(std::ranges::count_if(
      drawing.Labels, [](const ForceLabel& label) { return label.Leader.has_value(); }));
}

ForcesDrawing BestDrawing(const ForcesScene& scene, const TextMeasure& measure, float widest) {
  ForcesDrawing best;
  for (const float width : Widths) {
    if (width > widest) break;
    ForcesDrawing drawing = DrawForces(scene, RoomOf(scene.Forces, width - AroundPicture), 1, measure);
    const bool isGood =
        drawing.NumLeftOut == 0 && NumLeaders(drawing) * TextsToALeader <= drawing.Labels.size();
    const bool isBetter = best.Area == PixelRect{} || drawing.NumLeftOut < best.NumLeftOut;
    if (isBetter || isGood) best = std::move(drawing);
    if (isGood) break;
  }
  return best;
}

}  // namespace

Picture ForcesPicture(const ForcesScene& scene, const TextMeasure& measure, float widest,
                      bool huesAreSwapped) {
  const ForcesLook look{.HuesAreSwapped = huesAreSwapped};
  Picture picture(measure);
  const ForcesDrawing drawing = BestDrawing(scene, measure, widest);
  PaintForces(picture, drawing, look);
  const PixelRect frame = picture.Frame();
  if (frame == PixelRect{}) return picture;
  std::vector<std::string> remarks = RemarksOn(scene.Forces);
  if (drawing.NumLeftOut > 0) {
    remarks.push_back(Counted(drawing.NumLeftOut, "number has", "numbers have") +
                      " no room here: " + (drawing.NumLeftOut == 1 ? "it stands" : "they stand") +
                      " in the table of the solutions.");
  }
  const ForcesLegend legend =
      LayOutLegend(WordForUnknown(scene.Forces), remarks,
                   std::max(NarrowForcesPicture - AroundPicture, frame.Width()), scene.Points, measure);
  PaintLegend(picture, legend, {frame.Left, frame.Bottom + AboveLegend}, look);
  picture.Crop(MarginOfPicture);
  return picture;
}
