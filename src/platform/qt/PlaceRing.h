// The ring that points at a place of a drawing.
#pragma once

#include <QPainter>

/// A dark ring within a light one, which can be seen on lines and on paper of either colour; `radius` in the
/// painter's pixels.
void PaintPlaceRing(QPainter& painter, const QPointF& centre, double radius);
