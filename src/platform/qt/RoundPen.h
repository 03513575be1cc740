// The pen that small pictures are drawn with.
#pragma once

#include <QPen>

/// Its lines end and meet in half circles.
inline QPen RoundPen(const QColor& colour, qreal width) {
  return QPen(colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}
