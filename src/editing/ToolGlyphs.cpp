#include "editing/ToolGlyphs.h"

#include <QFont>
#include <QPainterPath>
#include <array>
#include <cmath>
#include <numbers>

#include "canvas/SupportPicture.h"
#include "document/Truss.h"
#include "platform/qt/MixedColor.h"
#include "platform/qt/RoundPen.h"

namespace {

constexpr qreal OutlineWidth = 1.4;
constexpr qreal ActionWidth = 2.4;
constexpr qreal PinRadius = 3;

void DrawPin(QPainter& painter, const QPointF& at, const GlyphColours& colours) {
  painter.setPen(RoundPen(colours.Ink, OutlineWidth));
  painter.setBrush(colours.Ground);
  painter.drawEllipse(at, PinRadius, PinRadius);
}

// A solid head of the given length whose tip is `tip`; `direction` points where the arrow goes.
void DrawHead(QPainter& painter, const QPointF& tip, const QPointF& direction, qreal length,
              const QColor& colour) {
  const QPointF along = direction / std::hypot(direction.x(), direction.y());
  const QPointF across(-along.y(), along.x());
  const QPointF base = tip - along * length;
  painter.setPen(RoundPen(colour, 1));
  painter.setBrush(colour);
  painter.drawPolygon(QPolygonF{{tip, base + across * length * 0.55, base - across * length * 0.55}});
}

void DrawMember(QPainter& painter, const GlyphColours& colours) {
  const QPointF end1(8.5, 23.5);
  const QPointF end2(23.5, 8.5);
  painter.setPen(RoundPen(colours.Accent, 3.2));
  painter.drawLine(end1, end2);
  DrawPin(painter, end1, colours);
  DrawPin(painter, end2, colours);
}

// The picture's ground lies below its pin; the button shows it in its middle.
void DrawRaisedSupport(QPainter& painter, std::int16_t type, const GlyphColours& colours) {
  painter.translate(0, -6);
  DrawSupport(painter, type, colours, OutlineWidth);
}

void DrawForce(QPainter& painter, const GlyphColours& colours) {
  const QPointF joint(9, 21);
  painter.setPen(RoundPen(colours.Ink, 2));
  painter.drawLine(joint, QPointF(5.5, 27));
  painter.drawLine(joint, QPointF(15, 27));
  painter.setPen(RoundPen(colours.Accent, ActionWidth));
  painter.drawLine(joint, QPointF(21, 10.5));
  DrawHead(painter, {26, 6}, {12, -10.5}, 8, colours.Accent);
  DrawPin(painter, joint, colours);
}

void DrawNumericalValue(QPainter& painter, const GlyphColours& colours) {
  QFont font(QStringLiteral("Arial"));
  font.setPixelSize(13);
  font.setBold(true);
  QPainterPath digits;
  digits.addText(0, 0, font, QStringLiteral("1.5"));
  const QRectF box = digits.boundingRect();
  digits.translate(16 - box.center().x(), 16 - box.bottom());
  painter.fillPath(digits, colours.Accent);
  // A dimension line between two ticks.
  painter.setPen(RoundPen(colours.Ink, OutlineWidth));
  painter.drawLine(QPointF(6, 19), QPointF(6, 27));
  painter.drawLine(QPointF(26, 19), QPointF(26, 27));
  painter.drawLine(QPointF(8, 23), QPointF(24, 23));
  DrawHead(painter, {7.5, 23}, {-1, 0}, 4, colours.Ink);
  DrawHead(painter, {24.5, 23}, {1, 0}, 4, colours.Ink);
}

void DrawReOrientation(QPainter& painter, const GlyphColours& colours) {
  // A three-quarter turn around a small support; angles in degrees, counted against the clock from the right.
  const QPointF centre(16, 16.5);
  constexpr qreal radius = 10.5;
  constexpr qreal start = 235;
  constexpr qreal sweep = -285;
  const QRectF circle(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
  QPainterPath arc;
  arc.arcMoveTo(circle, start);
  arc.arcTo(circle, start, sweep);
  painter.strokePath(arc, RoundPen(colours.Accent, ActionWidth));
  constexpr qreal end = (start + sweep + 360) * std::numbers::pi / 180;
  const QPointF along(std::sin(end), std::cos(end));
  const QPointF last(centre.x() + radius * std::cos(end), centre.y() - radius * std::sin(end));
  DrawHead(painter, last + along * 4, along, 7.5, colours.Accent);

  painter.setPen(RoundPen(colours.Ink, OutlineWidth));
  painter.setBrush(MixedColor(colours.Ground, colours.Ink, 0.25F));
  painter.drawPolygon(QPolygonF{{{16, 14}, {20.5, 20.5}, {11.5, 20.5}}});
  painter.setBrush(colours.Ground);
  painter.drawEllipse(QPointF(16, 13.5), 2.2, 2.2);
}

void DrawMove(QPainter& painter, const GlyphColours& colours) {
  const QPointF centre(16, 16);
  for (const QPointF direction : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)}) {
    painter.setPen(RoundPen(colours.Accent, ActionWidth));
    painter.drawLine(centre, centre + direction * 6);
    DrawHead(painter, centre + direction * 11.5, direction, 5.5, colours.Accent);
  }
  DrawPin(painter, centre, colours);
}

void DrawErase(QPainter& painter, const GlyphColours& colours) {
  // The line that is being rubbed out, with a gap where the rubber has been.
  painter.setPen(RoundPen(colours.Ink, 2));
  painter.drawLine(QPointF(5, 26.5), QPointF(8, 26.5));
  painter.drawLine(QPointF(19, 26.5), QPointF(27, 26.5));
  painter.translate(17.5, 15);
  painter.rotate(-45);
  const QRectF rubber(-10.5, -5, 21, 10);
  QPainterPath outline;
  outline.addRoundedRect(rubber, 2, 2);
  painter.fillPath(outline, colours.Ground);
  painter.save();
  painter.setClipRect(QRectF(-10.5, -5, 9, 10));
  painter.fillPath(outline, colours.Accent);
  painter.restore();
  painter.strokePath(outline, RoundPen(colours.Ink, OutlineWidth));
  painter.setPen(RoundPen(colours.Ink, OutlineWidth));
  painter.drawLine(QPointF(-1.5, -5), QPointF(-1.5, 5));
}

}  // namespace

QColor AccentOn(const QColor& ground) {
  return ground.lightness() > 128 ? QColor(0xC4, 0x36, 0x2B) : QColor(0xFF, 0x8F, 0x78);
}

void DrawSupport(QPainter& painter, std::int16_t type, const GlyphColours& colours, qreal lineWidth) {
  painter.setPen(RoundPen(colours.Ink, lineWidth));
  for (const PictureShape& shape : SupportPicture(type)) {
    QPolygonF points;
    for (const PixelPoint& point : shape.Points) points << QPointF(double{point.X}, double{point.Y});
    painter.setBrush(shape.Fill == White ? colours.Ground : MixedColor(colours.Ground, colours.Ink, 0.25F));
    switch (shape.Kind) {
      case ShapeKind::Line:
        painter.drawLine(points[0], points[1]);
        break;
      case ShapeKind::Polygon:
        painter.drawPolygon(points);
        break;
      case ShapeKind::Circle:
        painter.drawEllipse(points[0], double{shape.Radius}, double{shape.Radius});
        break;
    }
  }
}

void DrawToolGlyph(QPainter& painter, int tool, const GlyphColours& colours) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  switch (tool) {
    case 1:
      DrawMember(painter, colours);
      break;
    case 2:
      DrawRaisedSupport(painter, 1, colours);
      break;
    case 3:
      DrawRaisedSupport(painter, LastClampType + 1, colours);
      break;
    case 4:
      DrawForce(painter, colours);
      break;
    case 5:
      DrawNumericalValue(painter, colours);
      break;
    case 6:
      DrawReOrientation(painter, colours);
      break;
    case 7:
      DrawMove(painter, colours);
      break;
    case 8:
      DrawErase(painter, colours);
      break;
    default:
      break;
  }
  painter.restore();
}
