#include "explanation/forces/PaintForces.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "canvas/Arrow.h"
#include "canvas/Drawing.h"
#include "canvas/PixelBoxes.h"
#include "canvas/SupportPicture.h"
#include "platform/Palette.h"

namespace {

constexpr int DarkGreen = 2, DarkRed = 4, Yellow = 14;

constexpr int ReactionColour = DarkGreen;
constexpr int BandWidth = 16;  // of what stands out, pixels
constexpr int WidthInLegend = 5;

// A stroke's dashes: pixels from the beginning of one to the next, and how long each is.
struct Dashes {
  double Period, Length;
  int Width, Colour;
};
constexpr Dashes OfZero{.Period = 9, .Length = 5, .Width = 1, .Colour = DarkGrey};
constexpr Dashes OfUndetermined{.Period = 5, .Length = 0, .Width = 2, .Colour = Black};

struct Strokes {
  int Width;        // of each
  double Distance;  // of both from the middle
};

// Two strokes that are together about as wide as one would be, and as far apart as it takes to see them.
Strokes DoubleStroke(int width) {
  const int each = std::max(1, (width + 1) / 2);
  const int gap = 2 + width / 6;
  return {each, (each + gap) / 2.0};
}

PixelLine Moved(const PixelLine& line, double distance) {
  const double dx = double{line.X2} - double{line.X1};
  const double dy = double{line.Y2} - double{line.Y1};
  const double length = std::hypot(dx, dy);
  if (!(length > 0)) return line;
  const double x = -dy / length * distance;
  const double y = dx / length * distance;
  return {FiniteSingle(line.X1 + x), FiniteSingle(line.Y1 + y), FiniteSingle(line.X2 + x),
          FiniteSingle(line.Y2 + y)};
}

class Painter {
 public:
  Painter(Surface& surface, const ForcesLook& look) : surface_(surface), look_(look) {}

  void Stroke(const PixelLine& line, ForceSense sense, int width) const {
    switch (sense) {
      case ForceSense::Pushing:
        Pen(width, look_.HuesAreSwapped ? Rose : DeepBlue);
        DrawLine(surface_, line);
        break;
      case ForceSense::Pulling: {
        const Strokes strokes = DoubleStroke(width);
        Pen(strokes.Width, look_.HuesAreSwapped ? DeepBlue : Rose);
        DrawLine(surface_, Moved(line, strokes.Distance));
        DrawLine(surface_, Moved(line, -strokes.Distance));
        break;
      }
      case ForceSense::Zero:
        Dashed(line, OfZero);
        break;
      case ForceSense::Undetermined:
        Dashed(line, OfUndetermined);
        break;
    }
  }

  void Arrow(const PixelLine& line, ArrowOf what, ForceSense sense) const {
    if (sense == ForceSense::Zero || sense == ForceSense::Undetermined) {
      Stroke(line, sense, 1);
      return;
    }
    DrawArrow(surface_, line.X1, line.Y1, line.X2, line.Y2, ForceLineWidth, ForceHeadLength,
              what == ArrowOf::Load ? ForceColour : ReactionColour);
  }

  void Band(const PixelLine& line) const {
    Pen(BandWidth, Yellow);
    DrawLine(surface_, line);
  }

  bool Sees(const PixelRect& box) const { return !look_.Visible || Overlap(box, *look_.Visible); }
  bool Sees(const PixelLine& line) const {
    return !look_.Visible || Crosses(line, Widened(*look_.Visible, BandWidth));
  }

  void End() const {
    surface_.SetFont(TextFont{});
    Pen(1, Black);
  }

 private:
  void Pen(int width, int colour) const {
    surface_.SetLineWidth(width);
    surface_.SetForeground(colour);
  }

  // Of a long line only the dashes that can be seen, each where it would be in the whole.
  void Dashed(const PixelLine& line, const Dashes& dashes) const {
    Pen(dashes.Width, dashes.Colour);
    const double dx = double{line.X2} - double{line.X1};
    const double dy = double{line.Y2} - double{line.Y1};
    const double length = std::hypot(dx, dy);
    if (!(length > 0) || !std::isfinite(length)) return;
    const PixelRect seen = look_.Visible ? Widened(*look_.Visible, BandWidth) : PixelRect{};
    const auto isSeen = [&](double from, double to) {
      return !look_.Visible || Crosses(PartOf(line, from / length, to / length), seen);
    };
    // A stretch that is not seen is left out as a whole.
    constexpr int together = 64;
    const auto count = static_cast<std::int64_t>(length / dashes.Period) + 1;
    for (std::int64_t first = 0; first < count; first += together) {
      const double from = static_cast<double>(first) * dashes.Period;
      if (!isSeen(from, std::min(length, from + together * dashes.Period))) continue;
      for (std::int64_t i = first; i < std::min(count, first + together); ++i) {
        const double begin = static_cast<double>(i) * dashes.Period;
        DrawLine(surface_, PartOf(line, begin / length, std::min(length, begin + dashes.Length) / length));
      }
    }
  }

  static PixelLine PartOf(const PixelLine& line, double from, double to) {
    const double dx = double{line.X2} - double{line.X1};
    const double dy = double{line.Y2} - double{line.Y1};
    return {FiniteSingle(line.X1 + from * dx), FiniteSingle(line.Y1 + from * dy),
            FiniteSingle(line.X1 + to * dx), FiniteSingle(line.Y1 + to * dy)};
  }

  Surface& surface_;
  ForcesLook look_;
};

void PaintMark(const Painter& painter, const ForcesDrawing& drawing, int unknown) {
  if (unknown == 0) return;
  for (const DrawnMember& member : drawing.Members) {
    if (member.Unknown == unknown) painter.Band(member.Line);
  }
  for (const DrawnForce& arrow : drawing.Arrows) {
    if (arrow.What == ArrowOf::Reaction && arrow.Number == unknown) painter.Band(arrow.Line);
  }
}

}  // namespace

void PaintLabel(Surface& surface, const ForceLabel& label) {
  surface.SetLineWidth(1);
  surface.SetForeground(label.What == LabelOf::Load ? DarkRed : Black);
  float top = label.Box.Top;
  for (std::size_t i = 0; i < label.Lines.size(); ++i) {
    surface.SetFont({.Points = label.Font.Points, .Bold = label.Font.Bold && i == 0});
    surface.PrintText(OntoPaper(label.Box.Left), OntoPaper(top), label.Lines[i]);
    top += surface.Extent(label.Lines[i]).Height;
  }
}

void PaintLeader(Surface& surface, const PixelLine& leader) {
  surface.SetForeground(DarkGrey);
  surface.SetLineWidth(1);
  DrawLine(surface, leader);
  surface.SetLineWidth(3);
  DrawLine(surface, {leader.X2, leader.Y2, leader.X2, leader.Y2});
}

void PaintForces(Surface& surface, const ForcesDrawing& drawing, const ForcesLook& look) {
  const Painter painter(surface, look);
  PaintMark(painter, drawing, look.Marked);
  for (const DrawnMember& member : drawing.Members) {
    if (painter.Sees(member.Line)) painter.Stroke(member.Line, member.Sense, member.Width);
  }
  painter.End();
  for (const DrawnSupport& support : drawing.Supports) {
    constexpr float half = SupportPictureSize / 2;
    const auto [x, y] = support.Centre;
    if (painter.Sees(PixelRect{x - half, y - half, x + half, y + half}))
      PaintSupportPicture(surface, support.Type, OntoPaper(x - half), OntoPaper(y - half));
  }
  for (const DrawnForce& arrow : drawing.Arrows) {
    if (painter.Sees(arrow.Line)) painter.Arrow(arrow.Line, arrow.What, arrow.Sense);
  }
  painter.End();
  for (const PixelPoint& pin : drawing.Pins) {
    constexpr float radius = PinSize / 2;
    if (painter.Sees(Widened({pin.X, pin.Y, pin.X, pin.Y}, radius)))
      PaintCircle(surface, pin.X, pin.Y, radius, White);
  }
  for (const ForceLabel& label : drawing.Labels) {
    if (label.Leader && painter.Sees(*label.Leader)) PaintLeader(surface, *label.Leader);
  }
  for (const ForceLabel& label : drawing.Labels) {
    if (painter.Sees(label.Box)) PaintLabel(surface, label);
  }
  painter.End();
}

void PaintLegend(Surface& surface, const ForcesLegend& legend, PixelPoint topLeft, const ForcesLook& look) {
  const float right = topLeft.X + legend.Width;
  const float bottom = topLeft.Y + legend.Height;
  const std::array<PixelPoint, 4> paper = {
      {topLeft, {right, topLeft.Y}, {right, bottom}, {topLeft.X, bottom}}};
  surface.FillPolygon(paper, White);
  const Painter painter(surface, {.HuesAreSwapped = look.HuesAreSwapped});
  for (const LegendItem& item : legend.Items) {
    const float y = topLeft.Y + item.Left.Y;
    const PixelLine line{topLeft.X + item.Left.X, y, topLeft.X + item.Left.X + LegendSampleLength, y};
    switch (item.Sample) {
      case LegendSample::Compression:
        painter.Stroke(line, ForceSense::Pushing, WidthInLegend);
        break;
      case LegendSample::Tension:
        painter.Stroke(line, ForceSense::Pulling, WidthInLegend);
        break;
      case LegendSample::Zero:
        painter.Stroke(line, ForceSense::Zero, 1);
        break;
      case LegendSample::Undetermined:
        painter.Stroke(line, ForceSense::Undetermined, 1);
        break;
      case LegendSample::Load:
        painter.Arrow(line, ArrowOf::Load, ForceSense::Pushing);
        break;
      case LegendSample::Reaction:
        painter.Arrow(line, ArrowOf::Reaction, ForceSense::Pushing);
        break;
    }
  }
  painter.End();
  surface.SetFont({.Points = legend.Points});
  for (const LegendItem& item : legend.Items)
    surface.PrintText(topLeft.X + item.TextTopLeft.X, topLeft.Y + item.TextTopLeft.Y, item.Words);
  for (const LegendLine& line : legend.Lines)
    surface.PrintText(topLeft.X + line.TopLeft.X, topLeft.Y + line.TopLeft.Y, line.Words);
  painter.End();
}
