#include "platform/qt/PlaceRing.h"

void PaintPlaceRing(QPainter& painter, const QPointF& centre, double radius) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Qt::white, 6));
  painter.drawEllipse(centre, radius, radius);
  painter.setPen(QPen(QColor(0, 90, 200), 3));
  painter.drawEllipse(centre, radius, radius);
}
