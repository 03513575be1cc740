// The picture of a step on a surface.
#include <algorithm>
#include <array>
#include <cmath>

#include "canvas/Arrow.h"
#include "canvas/Paper.h"
#include "document/Angles.h"
#include "explanation/byjoint/HandLabels.h"
#include "explanation/byjoint/HandPicture.h"
#include "platform/Palette.h"

namespace {

// Found forces are blue and strong, loads red; what is 0 or open is grey and broken.
struct Look {
  std::int16_t Width;
  std::int16_t Colour;
};

Look LookOf(ForceRole role) {
  switch (role) {
    case ForceRole::Found:
      return {3, LightBlue};
    case ForceRole::Load:
      return {2, LightRed};
    case ForceRole::Zero:
    case ForceRole::Open:
      return {1, DarkGrey};
    case ForceRole::Known:
      break;
  }
  return {2, Black};
}

void DrawPartLines(Surface& surface, const std::vector<PixelLine>& lines, int width, int colour) {
  surface.SetLineWidth(width);
  surface.SetForeground(colour);
  for (const PixelLine& line : lines) DrawLine(surface, line);
}

void DrawBroken(Surface& surface, const PixelLine& line, double dash, double gap) {
  const double dx = double{line.X2} - double{line.X1};
  const double dy = double{line.Y2} - double{line.Y1};
  const double length = std::hypot(dx, dy);
  const int numDashes = length > 0 ? static_cast<int>(length / (dash + gap)) + 1 : 0;
  for (int i = 0; i < numDashes; ++i) {
    const double from = i * (dash + gap);
    const double to = std::min(length, from + dash);
    surface.Line(FiniteSingle(line.X1 + from / length * dx), FiniteSingle(line.Y1 + from / length * dy),
                 FiniteSingle(line.X1 + to / length * dx), FiniteSingle(line.Y1 + to / length * dy));
  }
}

void FillCircle(Surface& surface, PixelPoint centre, double radius, int colour) {
  std::array<PixelPoint, 16> corners;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const double angle = 2 * HalfTurn * static_cast<double>(i) / static_cast<double>(corners.size());
    corners[i] = {FiniteSingle(centre.X + radius * std::cos(angle)),
                  FiniteSingle(centre.Y + radius * std::sin(angle))};
  }
  surface.FillPolygon(corners, colour);
}

}  // namespace

void PaintHandPicture(Surface& surface, const HandPicture& picture) {
  DrawPartLines(surface, picture.Others, 1, LightGrey);
  DrawPartLines(surface, picture.Part, 2, Black);
  for (const PixelPoint& pin : picture.Pins) {
    FillCircle(surface, pin, 5, Black);
    FillCircle(surface, pin, 3, White);
  }
  for (const PixelPoint& point : picture.Points) FillCircle(surface, point, 5, LightBlue);
  surface.SetLineWidth(2);
  surface.SetForeground(Rose);
  for (const PixelLine& line : picture.Cut) DrawBroken(surface, line, 7, 5);
  for (const HandArrow& arrow : picture.Arrows) {
    const Look look = LookOf(arrow.Role);
    if (!arrow.HasHead) {
      surface.SetLineWidth(look.Width);
      surface.SetForeground(look.Colour);
      DrawBroken(surface, arrow.Line, arrow.Role == ForceRole::Zero ? 6 : 2, 4);
    } else {
      DrawArrow(surface, arrow.Line.X1, arrow.Line.Y1, arrow.Line.X2, arrow.Line.Y2, look.Width,
                LabelArrowSize + 2, look.Colour);
    }
  }
  surface.SetLineWidth(1);
  surface.SetForeground(DarkGrey);
  for (const HandArrow& arrow : picture.Arrows) {
    if (arrow.Leader) DrawLine(surface, *arrow.Leader);
  }
  surface.SetFont(TextFont{});
  for (const HandArrow& arrow : picture.Arrows) {
    if (!arrow.Text.empty())
      surface.PrintTextWithRim(OntoPaper(arrow.TextBox.Left), OntoPaper(arrow.TextBox.Top), arrow.Text,
                               Black);
  }
  surface.SetFont(HandNameFont);
  for (const HandPicture::Name& name : picture.Names)
    surface.PrintTextWithRim(OntoPaper(name.Box.Left), OntoPaper(name.Box.Top), name.Text, Black);
  surface.SetFont(TextFont{});
  surface.SetForeground(Black);
}

Picture PictureOfHandStep(const TrussGraph& graph, const HandSolution& solution, std::size_t index,
                          const ReportFormat& format, const TextMeasure& measure) {
  Picture picture(measure);
  const bool isJoint = solution.Steps[index].Joint != 0;
  const PixelRect room{0, 0, isJoint ? 300.0F : 560.0F, isJoint ? 240.0F : 320.0F};
  PaintHandPicture(picture, DrawHandStep(graph, solution, index, room, format, measure));
  picture.Crop(6);
  return picture;
}
