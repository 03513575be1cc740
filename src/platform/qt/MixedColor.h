// Colours between two others, so that they follow every theme of the desktop.
#pragma once

#include <QColor>
#include <QPalette>

/// `share` 0 is the first colour, 1 the second.
inline QColor MixedColor(const QColor& first, const QColor& second, float share) {
  const auto mix = [share](float a, float b) { return a + (b - a) * share; };
  return QColor::fromRgbF(mix(first.redF(), second.redF()), mix(first.greenF(), second.greenF()),
                          mix(first.blueF(), second.blueF()));
}

/// Letters that stand back behind others and can be read all the same, on the ground of texts. What a theme
/// has for hints is often too faint for that.
inline QColor FaintLetters(const QPalette& palette) {
  return MixedColor(palette.color(QPalette::Text), palette.color(QPalette::Base), 0.35F);
}
