// Lines along an axis are painted as whole pixels of the device, all equally wide at every device pixel
// ratio; sloping lines are smoothed, but not with the exclusive-or pen, whose second stroke must take back
// exactly what the first did.
#include "platform/qt/QtSurface.h"

#include <QPaintEngine>
#include <QPainterPath>
#include <QPolygonF>
#include <algorithm>
#include <cmath>

#include "platform/Palette.h"
#include "platform/qt/QtTextMeasure.h"

namespace {

QColor ColourOf(int paletteIndex) {
  const PaletteColour& colour = Palette[static_cast<std::size_t>(paletteIndex) % Palette.size()];
  return QColor(colour.Red, colour.Green, colour.Blue);
}

// The centre of the pixel that covers a coordinate.
QPointF PixelCentre(double x, double y) { return QPointF(std::floor(x) + 0.5, std::floor(y) + 0.5); }

// Where the stroke from one pixel centre to another begins and ends along one axis of the device, in whole
// device pixels.
struct DeviceSpan {
  double Begin, End;
};

DeviceSpan SpanOf(double centre1, double centre2, double width) {
  const double half = width / 2;
  return {std::floor(std::min(centre1, centre2) - half + 0.5),
          std::floor(std::max(centre1, centre2) + half + 0.5)};
}

// Whether letters stay letters on the device, to be searched and copied from a file.
bool KeepsLetters(const QPainter& painter) {
  const QPaintEngine* engine = painter.paintEngine();
  return engine != nullptr && (engine->type() == QPaintEngine::Pdf || engine->type() == QPaintEngine::SVG);
}

}  // namespace

QFont CanvasFont(const TextFont& font) {
  QFont qtFont(QStringLiteral("Arial"));
  qtFont.setPixelSize(static_cast<int>(std::lround(font.Points * 96 / 72)));
  qtFont.setBold(font.Bold);
  return qtFont;
}

QtSurface::QtSurface(QPainter& painter, const QRectF& clearArea)
    : painter_(painter),
      clearArea_(clearArea),
      toDevice_(painter.combinedTransform()),
      fromDevice_(toDevice_.inverted()),
      metrics_(painter.font()) {
  SetForeground(Black);
  SetFont(TextFont{});
}

void QtSurface::Clear() { painter_.fillRect(clearArea_, Qt::white); }

void QtSurface::SetPixel(float x, float y) {
  const QPointF centre = PixelCentre(std::round(double{x}), std::round(double{y}));
  FillStroke(centre, centre, 1);
}

void QtSurface::Line(float x1, float y1, float x2, float y2) {
  current_ = QPointF(double{x1}, double{y1});
  LineTo(x2, y2);
}

void QtSurface::LineTo(float x, float y) {
  const QPointF end(double{x}, double{y});
  const bool alongAxis = current_.x() == end.x() || current_.y() == end.y();
  if (alongAxis) {
    FillStroke(PixelCentre(current_.x(), current_.y()), PixelCentre(end.x(), end.y()), lineWidth_);
  } else {
    painter_.setRenderHint(QPainter::Antialiasing, !exclusiveOr_);
    painter_.drawLine(current_ + QPointF(0.5, 0.5), end + QPointF(0.5, 0.5));
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
  const QPen rim(Qt::white, 2 * double{RimWidth}, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
  painter_.setRenderHint(QPainter::Antialiasing);
  painter_.strokePath(letters, rim);
  SetForeground(paletteIndex);
  PrintText(left, top, text);
}

QPointF QtSurface::BaselineOf(float left, float top) const {
  return {double{left}, double{top} + metrics_.ascent()};
}

void QtSurface::ApplyPen() {
  painter_.setPen(QPen(foreground_, lineWidth_, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
}
