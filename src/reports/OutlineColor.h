// The colour of thin lines around and between what the reports show. The styles' own is lost on dark ground.
#pragma once

#include <QColor>
#include <QPalette>

/// `share` 0 is the first colour, 1 the second.
inline QColor MixedColor(const QColor& first, const QColor& second, float share) {
  const auto mix = [share](float a, float b) { return a + (b - a) * share; };
  return QColor::fromRgbF(mix(first.redF(), second.redF()), mix(first.greenF(), second.greenF()),
                          mix(first.blueF(), second.blueF()));
}

inline QColor OutlineColor(const QPalette& palette) {
  return MixedColor(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.25F);
}
