// A picture is painted on bitmaps, pages and vector files by the surface that the canvas is painted with.
#include "platform/qt/QtPicture.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "platform/qt/QtSurface.h"

namespace {

constexpr double MetresPerInch = 0.0254;

// A painter draws no further than this on a bitmap, and more dots take too much memory.
constexpr double LongestSide = 32'000;
constexpr double MostDots = 16'000'000;

// Dots to the pixel.
double ScaleOf(const PixelRect& frame, int dotsPerInch) {
  const double width = frame.Width();
  const double height = frame.Height();
  return std::min({dotsPerInch / ScreenDotsPerInch, std::sqrt(MostDots / (width * height)),
                   LongestSide / std::max(width, height)});
}

}  // namespace

bool IsEmpty(const PixelRect& frame) { return !(frame.Width() > 0 && frame.Height() > 0); }

QSize WholeDots(const PixelRect& frame, double scale) {
  const auto dots = [scale](float length) {
    return static_cast<int>(std::max(1.0, std::ceil(length * scale)));
  };
  return {dots(frame.Width()), dots(frame.Height())};
}

void PaintFrame(QPaintDevice& device, const Picture& picture, const PixelRect& frame, double scale) {
  QPainter painter(&device);
  painter.scale(scale, scale);
  painter.translate(-double{frame.Left}, -double{frame.Top});
  const QRectF area(double{frame.Left}, double{frame.Top}, double{frame.Width()}, double{frame.Height()});
  QtSurface surface(painter, area);
  surface.Clear();
  picture.DrawOn(surface);
}

QImage ToImage(const Picture& picture, const PixelRect& frame, int dotsPerInch) {
  const double scale = ScaleOf(frame, dotsPerInch);
  QImage image(WholeDots(frame, scale), QImage::Format_RGB32);
  if (image.isNull()) return image;
  const int dotsPerMetre = static_cast<int>(std::lround(scale * ScreenDotsPerInch / MetresPerInch));
  image.setDotsPerMeterX(std::max(1, dotsPerMetre));
  image.setDotsPerMeterY(std::max(1, dotsPerMetre));
  image.fill(Qt::white);
  PaintFrame(image, picture, frame, scale);
  return image;
}

QImage ToImage(const Picture& picture, int dotsPerInch) {
  const PixelRect frame = picture.Frame();
  return IsEmpty(frame) ? QImage() : ToImage(picture, frame, dotsPerInch);
}

QSizeF SizeOnScreen(const QImage& image) {
  const auto pixels = [](int dots, int dotsPerMetre) {
    if (dotsPerMetre <= 0) return static_cast<double>(dots);
    // Dots to the metre are whole, so whole dots to the inch come back a little off.
    constexpr double accuracy = 10;
    const double dotsPerInch = std::round(dotsPerMetre * MetresPerInch * accuracy) / accuracy;
    return dots * ScreenDotsPerInch / std::max(dotsPerInch, 1 / accuracy);
  };
  return {pixels(image.width(), image.dotsPerMeterX()), pixels(image.height(), image.dotsPerMeterY())};
}
