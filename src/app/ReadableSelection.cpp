#include "app/ReadableSelection.h"

#include <QApplication>
#include <QEvent>
#include <algorithm>
#include <cmath>

#include "platform/qt/MixedColor.h"

namespace {

constexpr double EnoughContrast = 4.5;

double Luminance(const QColor& colour) {
  const auto linear = [](float share) {
    return share <= 0.04045F ? double{share} / 12.92 : std::pow((double{share} + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

double ContrastOf(const QColor& one, const QColor& other) {
  const auto [low, high] = std::minmax({Luminance(one), Luminance(other)});
  return (high + 0.05) / (low + 0.05);
}

}  // namespace

QPalette WithReadableSelection(QPalette theme) {
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
    const QColor letters = theme.color(group, QPalette::HighlightedText);
    const QColor ground = theme.color(group, QPalette::Highlight);
    // Black or white, whichever is farther from the letters, is far enough from any.
    const QColor far =
        ContrastOf(letters, Qt::black) > ContrastOf(letters, Qt::white) ? Qt::black : Qt::white;
    constexpr int steps = 32;
    QColor mended = ground;
    for (int step = 1; step <= steps && ContrastOf(letters, mended) < EnoughContrast; ++step)
      mended = MixedColor(ground, far, static_cast<float>(step) / steps);
    if (mended != ground) theme.setColor(group, QPalette::Highlight, mended);
  }
  return theme;
}

ReadableSelection::ReadableSelection() {
  Mend();
  qApp->installEventFilter(this);
}

bool ReadableSelection::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::ApplicationPaletteChange) Mend();
  return QObject::eventFilter(watched, event);
}

void ReadableSelection::Mend() {
  const QPalette theme = QApplication::palette();
  const QPalette mended = WithReadableSelection(theme);
  if (mended != theme) QApplication::setPalette(mended);
}
