// The colour of thin lines around and between what the reports show. The styles' own is lost on dark ground.
#pragma once

#include <QColor>
#include <QPalette>

#include "platform/qt/MixedColor.h"

inline QColor OutlineColor(const QPalette& palette) {
  return MixedColor(palette.color(QPalette::Base), palette.color(QPalette::Text), 0.25F);
}
