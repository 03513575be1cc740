#include "app/HelpIcons.h"
#include "platform/qt/RoundPen.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace {

// Glyphs are drawn in a box of 20 by 20, in one colour.
constexpr qreal Box = 20;
constexpr QPointF LensCentre(8.5, 8.5);
constexpr qreal LensRadius = 5;

void DrawLens(QPainter& painter, const QColor& ink) {
  painter.setPen(RoundPen(ink, 1.7));
  painter.drawEllipse(LensCentre, LensRadius, LensRadius);
  painter.setPen(RoundPen(ink, 2.6));
  painter.drawLine(QPointF(12.8, 12.8), QPointF(16.6, 16.6));
  painter.setPen(RoundPen(ink, 1.6));
}

void DrawHouse(QPainter& painter) {
  painter.drawPolyline(QPolygonF{{2.5, 10.5}, {10, 3.5}, {17.5, 10.5}});
  painter.drawPolyline(QPolygonF{
      {4.8, 9}, {4.8, 16.5}, {8.3, 16.5}, {8.3, 12}, {11.7, 12}, {11.7, 16.5}, {15.2, 16.5}, {15.2, 9}});
}

// A tree of lines: a title and what belongs under it.
void DrawTree(QPainter& painter) {
  painter.drawLine(QPointF(3, 4.5), QPointF(14, 4.5));
  for (const qreal y : {8.7, 12.5, 16.3}) {
    painter.drawLine(QPointF(6, y), QPointF(6.1, y));
    painter.drawLine(QPointF(9, y), QPointF(17, y));
  }
}

// An arrow to the left; with `turned` degrees, clockwise, elsewhere.
void DrawArrow(QPainter& painter, qreal turned) {
  painter.translate(Box / 2, Box / 2);
  painter.rotate(turned);
  painter.drawLine(QPointF(-6.5, 0), QPointF(6.5, 0));
  painter.drawPolyline(QPolygonF{{-1.5, -5}, {-6.5, 0}, {-1.5, 5}});
}

void DrawGlyph(QPainter& painter, HelpGlyph glyph, const QColor& ink) {
  painter.setPen(RoundPen(ink, 1.8));
  switch (glyph) {
    case HelpGlyph::Back:
      return DrawArrow(painter, 0);
    case HelpGlyph::Forward:
      return DrawArrow(painter, 180);
    case HelpGlyph::Previous:
      return DrawArrow(painter, 90);
    case HelpGlyph::Next:
      return DrawArrow(painter, 270);
    case HelpGlyph::Home:
      return DrawHouse(painter);
    case HelpGlyph::Contents:
      return DrawTree(painter);
    case HelpGlyph::Find:
      return DrawLens(painter, ink);
    case HelpGlyph::ZoomIn:
      DrawGlyph(painter, HelpGlyph::ZoomOut, ink);
      painter.drawLine(LensCentre - QPointF(0, 2.3), LensCentre + QPointF(0, 2.3));
      return;
    case HelpGlyph::ZoomOut:
      DrawLens(painter, ink);
      painter.drawLine(LensCentre - QPointF(2.3, 0), LensCentre + QPointF(2.3, 0));
      return;
    case HelpGlyph::Close:
      painter.drawLine(QPointF(5.5, 5.5), QPointF(14.5, 14.5));
      painter.drawLine(QPointF(14.5, 5.5), QPointF(5.5, 14.5));
      return;
  }
}

class GlyphEngine final : public QIconEngine {
 public:
  explicit GlyphEngine(HelpGlyph glyph) : glyph_(glyph) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.topLeft());
    painter->scale(rect.width() / Box, rect.height() / Box);
    painter->setBrush(Qt::NoBrush);
    DrawGlyph(*painter, glyph_, QGuiApplication::palette().color(group, QPalette::ButtonText));
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(0, 0), size), mode, state);
    return picture;
  }

  QIconEngine* clone() const override { return new GlyphEngine(glyph_); }

 private:
  HelpGlyph glyph_;
};

}  // namespace

QIcon HelpIcon(HelpGlyph glyph) { return QIcon(new GlyphEngine(glyph)); }
