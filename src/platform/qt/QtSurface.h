// A surface on anything that a QPainter paints on: the canvas's backing image, the window itself, a printed
// page.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QTransform>

#include "platform/Palette.h"
#include "platform/Surface.h"

class QtSurface final : public Surface {
 public:
  /// Paints with a painter that is active, and keeps its transformation, as long as this object; `clearArea`
  /// is what Clear fills, in the painter's coordinates. `colours` are those of white paper or of dark paper.
  QtSurface(QPainter& painter, const QRectF& clearArea, const PaletteColours& colours = Palette);

  void Clear() override;
  void SetPixel(float x, float y) override;
  void Line(float x1, float y1, float x2, float y2) override;
  void LineTo(float x, float y) override;
  void FillPolygon(std::span<const PixelPoint> corners, int paletteIndex) override;
  void SetLineWidth(int pixels) override;
  void SetForeground(int paletteIndex) override;
  void SetPen(Pen pen) override;
  void SetFont(const TextFont& font) override;
  TextExtent Extent(std::string_view text) override;
  void PrintText(float left, float top, std::string_view text) override;
  void PrintTextWithRim(float left, float top, std::string_view text, int paletteIndex) override;

 private:
  QColor ColourOf(int paletteIndex) const;
  void ApplyPen();
  QPointF BaselineOf(float left, float top) const;

  /// A stroke along an axis from one point to another, in whole pixels of the device.
  void FillStroke(const QPointF& from, const QPointF& to, int width);

  QPainter& painter_;
  QRectF clearArea_;
  const PaletteColours& colours_;
  QTransform toDevice_;
  QTransform fromDevice_;
  QPointF current_;
  QColor foreground_;
  int lineWidth_ = 1;
  bool exclusiveOr_ = false;
  QFontMetricsF metrics_;
};
