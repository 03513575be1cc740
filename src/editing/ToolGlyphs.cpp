#include "editing/ToolGlyphs.h"

#include <QFile>
#include <QSvgRenderer>
#include <array>
#include <utility>

#include "canvas/SupportPicture.h"
#include "document/Truss.h"
#include "platform/qt/MixedColor.h"
#include "platform/qt/RoundPen.h"

namespace {

constexpr qreal OutlineWidth = 1.4;
constexpr int GlyphSize = 32;  // pixels

// The picture's ground lies below its pin; the button shows it in its middle.
void DrawRaisedSupport(QPainter& painter, std::int16_t type, const GlyphColours& colours) {
  painter.translate(0, -6);
  DrawSupport(painter, type, colours, OutlineWidth);
}

// A file that is drawn in black, white and the red of force arrows, with these colours in their places.
QByteArray Recoloured(const QString& fileName, const GlyphColours& colours) {
  QFile file(fileName);
  if (!file.open(QIODevice::ReadOnly)) return {};
  QByteArray drawing = file.readAll();
  // First to names that no other colour has.
  for (const auto& [drawn, name] :
       {std::pair{"#000000", "ink"}, {"#c4362b", "accent"}, {"#ffffff", "ground"}})
    drawing.replace(drawn, name);
  for (const auto& [name, colour] :
       {std::pair{"\"ink\"", colours.Ink}, {"\"accent\"", colours.Accent}, {"\"ground\"", colours.Ground}})
    drawing.replace(name, '"' + colour.name().toLatin1() + '"');
  return drawing;
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
  static constexpr std::array<const char*, 9> files = {
      nullptr, "member", nullptr, nullptr, "force", "numerical-value", "re-orientation", "move", "erase"};
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  if (tool == 2) {
    DrawRaisedSupport(painter, 1, colours);
  } else if (tool == 3) {
    DrawRaisedSupport(painter, LastClampType + 1, colours);
  } else if (tool >= 1 && tool < static_cast<int>(files.size())) {
    const QString file =
        QStringLiteral(":/glyphs/%1.svg").arg(QLatin1String(files[static_cast<std::size_t>(tool)]));
    QSvgRenderer(Recoloured(file, colours)).render(&painter, QRectF(0, 0, GlyphSize, GlyphSize));
  }
  painter.restore();
}
