// Lines along an axis are painted as whole pixels of the device, all equally wide at every device pixel
// ratio; sloping lines are smoothed, but not with the exclusive-or pen, whose second stroke must take back
// exactly what the first did.
#include "platform/qt/QtSurface.h"

#include <QPaintEngine>
#include <QPainterPath>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "platform/qt/QtTextMeasure.h"
#include "platform/qt/RoundPen.h"

namespace {

// A coordinate names the middle of its pixel.
QPointF MiddleOfPixel(double x, double y) { return QPointF(x + 0.5, y + 0.5); }

// Where the stroke from one point to another begins and ends along one axis of the device, in whole device
// pixels.
struct DeviceSpan {
  double Begin, End;
};

// The one rounding of dots and of lines along an axis. Halves go up, and so does what falls short of them by
// an error of arithmetic: a tick and a grid dot at one place come to the same pixel, however each was
// reckoned.
DeviceSpan SpanOf(double middle1, double middle2, double width) {
  constexpr double errorOfArithmetic = 1.0 / 64;
  const auto edge = [](double coordinate) { return std::floor(coordinate + 0.5 + errorOfArithmetic); };
  return {edge(std::min(middle1, middle2) - width / 2), edge(std::max(middle1, middle2) + width / 2)};
}

// Whether letters stay letters on the device, to be searched and copied from a file.
bool KeepsLetters(const QPainter& painter) {
  const QPaintEngine* engine = painter.paintEngine();
  return engine != nullptr && (engine->type() == QPaintEngine::Pdf || engine->type() == QPaintEngine::SVG);
}

}  // namespace

QtSurface::QtSurface(QPainter& painter, const QRectF& clearArea, const PaletteColours& colours)
    : painter_(painter),
      clearArea_(clearArea),
      colours_(colours),
      toDevice_(painter.combinedTransform()),
      fromDevice_(toDevice_.inverted()),
      metrics_(painter.font()) {
  SetForeground(Black);
  SetFont(TextFont{});
}

void QtSurface::Clear() { painter_.fillRect(clearArea_, ColourOf(White)); }

void QtSurface::SetPixel(float x, float y) {
  const QPointF middle = MiddleOfPixel(double{x}, double{y});
  FillStroke(middle, middle, 1);
}

void QtSurface::Line(float x1, float y1, float x2, float y2) {
  current_ = QPointF(double{x1}, double{y1});
  LineTo(x2, y2);
}

void QtSurface::LineTo(float x, float y) {
  const QPointF end(double{x}, double{y});
  const bool alongAxis = current_.x() == end.x() || current_.y() == end.y();
  if (alongAxis) {
    FillStroke(MiddleOfPixel(current_.x(), current_.y()), MiddleOfPixel(end.x(), end.y()), lineWidth_);
  } else {
    painter_.setRenderHint(QPainter::Antialiasing, !exclusiveOr_);
    painter_.drawLine(MiddleOfPixel(current_.x(), current_.y()), MiddleOfPixel(end.x(), end.y()));
  }
  current_ = end;
}

void QtSurface::FillStroke(const QPointF& from, const QPointF& to, int width) {
  const QPointF begin = toDevice_.map(from);
  const QPointF end = toDevice_.map(to);
  const double deviceWidth = std::max(1.0, std::round(width * std::abs(toDevice_.m11())));
  const DeviceSpan across = SpanOf(begin.x(), end.x(), deviceWidth);
  const DeviceSpan down = SpanOf(begin.y(), end.y(), deviceWidth);
  const QRectF pixels(QPointF(across.Begin, down.Begin), QPointF(across.End, down.End));
  painter_.setRenderHint(QPainter::Antialiasing, false);
  painter_.fillRect(fromDevice_.mapRect(pixels), foreground_);
}

void QtSurface::FillPolygon(std::span<const PixelPoint> corners, int paletteIndex) {
  QPolygonF polygon;
  polygon.reserve(static_cast<qsizetype>(corners.size()));
  for (const PixelPoint& corner : corners) polygon << QPointF(double{corner.X} + 0.5, double{corner.Y} + 0.5);
  painter_.setRenderHint(QPainter::Antialiasing, !exclusiveOr_);
  painter_.setPen(Qt::NoPen);
  painter_.setBrush(ColourOf(paletteIndex));
  painter_.drawPolygon(polygon);
  ApplyPen();
}

void QtSurface::SetLineWidth(int pixels) {
  lineWidth_ = pixels;
  ApplyPen();
}

void QtSurface::SetForeground(int paletteIndex) {
  foreground_ = ColourOf(paletteIndex);
  ApplyPen();
}

void QtSurface::SetPen(Pen pen) {
  exclusiveOr_ = pen == Pen::ExclusiveOr;
  painter_.setCompositionMode(exclusiveOr_ ? QPainter::RasterOp_SourceXorDestination
                                           : QPainter::CompositionMode_SourceOver);
}

void QtSurface::SetFont(const TextFont& font) {
  painter_.setFont(CanvasFont(font));
  metrics_ = QFontMetricsF(painter_.font());
}

TextExtent QtSurface::Extent(std::string_view text) { return ExtentOf(metrics_, text); }

void QtSurface::PrintText(float left, float top, std::string_view text) {
  painter_.setPen(foreground_);
  painter_.drawText(BaselineOf(left, top), CanvasText(text));
  ApplyPen();
}

// In a file that keeps its letters, white ones would be found as text of their own; the rim is a shape there.
void QtSurface::PrintTextWithRim(float left, float top, std::string_view text, int paletteIndex) {
  if (!KeepsLetters(painter_)) {
    Surface::PrintTextWithRim(left, top, text, paletteIndex);
    return;
  }
  QPainterPath letters;
  letters.addText(BaselineOf(left, top), painter_.font(), CanvasText(text));
  painter_.setRenderHint(QPainter::Antialiasing);
  painter_.strokePath(letters, RoundPen(Qt::white, 2 * double{RimWidth}));
  SetForeground(paletteIndex);
  PrintText(left, top, text);
}

QPointF QtSurface::BaselineOf(float left, float top) const {
  return {double{left}, double{top} + metrics_.ascent()};
}

QColor QtSurface::ColourOf(int paletteIndex) const {
  const PaletteColour& colour = colours_[static_cast<std::size_t>(paletteIndex) % colours_.size()];
  return QColor(colour.Red, colour.Green, colour.Blue);
}

void QtSurface::ApplyPen() {
  painter_.setPen(QPen(foreground_, lineWidth_, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
}
