// A picture is painted on bitmaps, pages and vector files by the surface that the canvas is painted with.
#include "platform/qt/QtPicture.h"

#include <QBuffer>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>

#include "platform/qt/QtSurface.h"
#include "platform/qt/SteadyPdf.h"

namespace {

constexpr double ScreenDotsPerInch = 96;
constexpr double PointsPerPixel = 72 / ScreenDotsPerInch;
constexpr double MetresPerInch = 0.0254;

// A painter draws no further than this on a bitmap, and more dots take too much memory.
constexpr double LongestSide = 32'000;
constexpr double MostDots = 16'000'000;

// Readers of PDF take no larger page, points.
constexpr double LongestPage = 14'400;

bool IsEmpty(const PixelRect& frame) { return !(frame.Width() > 0 && frame.Height() > 0); }

// What stands for a picture without anything on it.
constexpr PixelRect OneWhitePixel{0, 0, 1, 1};

QSize WholeDots(const PixelRect& frame, double scale) {
  const auto dots = [scale](float length) {
    return static_cast<int>(std::max(1.0, std::ceil(length * scale)));
  };
  return {dots(frame.Width()), dots(frame.Height())};
}

// Dots to the pixel.
double ScaleOf(const PixelRect& frame, int dotsPerInch) {
  const double width = frame.Width();
  const double height = frame.Height();
  return std::min({dotsPerInch / ScreenDotsPerInch, std::sqrt(MostDots / (width * height)),
                   LongestSide / std::max(width, height)});
}

// On a device whose top left corner the frame's becomes.
void PaintFrame(QPaintDevice& device, const Picture& picture, const PixelRect& frame, double scale) {
  QPainter painter(&device);
  painter.scale(scale, scale);
  painter.translate(-double{frame.Left}, -double{frame.Top});
  const QRectF area(double{frame.Left}, double{frame.Top}, double{frame.Width()}, double{frame.Height()});
  QtSurface surface(painter, area);
  surface.Clear();
  picture.DrawOn(surface);
}

QImage PaintedImage(const Picture& picture, const PixelRect& frame, int dotsPerInch) {
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

QByteArray PngFile(const Picture& picture, const PixelRect& frame) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  const bool saved = PaintedImage(picture, frame, PictureDotsPerInch).save(&buffer, "PNG");
  return saved ? bytes : QByteArray();
}

QByteArray SvgFile(const Picture& picture, const PixelRect& frame) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setResolution(static_cast<int>(ScreenDotsPerInch));
  generator.setSize(WholeDots(frame, 1));
  generator.setViewBox(QRect(QPoint(0, 0), WholeDots(frame, 1)));
  generator.setTitle(QStringLiteral("Truss"));
  generator.setDescription(QStringLiteral("Drawn by Orvane"));
  PaintFrame(generator, picture, frame, 1);
  return bytes;
}

QByteArray PdfFile(const Picture& picture, const PixelRect& frame) {
  const double longest = PointsPerPixel * std::max(double{frame.Width()}, double{frame.Height()});
  const double scale = std::min(1.0, LongestPage / longest);
  // A page's size is in whole points.
  const QSizeF page(WholeDots(frame, scale * PointsPerPixel));
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  DescribePdf(writer, QString());
  writer.setPageSize(QPageSize(page, QPageSize::Point, QString(), QPageSize::ExactMatch));
  writer.setPageMargins(QMarginsF());
  writer.setResolution(static_cast<int>(ScreenDotsPerInch));
  PaintFrame(writer, picture, frame, scale);
  return SteadyPdf(bytes);
}

}  // namespace

QImage ToImage(const Picture& picture, int dotsPerInch) {
  const PixelRect frame = picture.Frame();
  return IsEmpty(frame) ? QImage() : PaintedImage(picture, frame, dotsPerInch);
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

QByteArray PictureFile(const Picture& picture, PictureFileFormat format) {
  const PixelRect frame = IsEmpty(picture.Frame()) ? OneWhitePixel : picture.Frame();
  switch (format) {
    case PictureFileFormat::Svg:
      return SvgFile(picture, frame);
    case PictureFileFormat::Pdf:
      return PdfFile(picture, frame);
    case PictureFileFormat::Png:
      break;
  }
  return PngFile(picture, frame);
}
