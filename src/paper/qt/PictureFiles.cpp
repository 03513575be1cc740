#include "paper/qt/PictureFiles.h"

#include <QBuffer>
#include <QPageSize>
#include <QPdfWriter>
#include <QSvgGenerator>
#include <algorithm>

#include "paper/qt/DocumentImages.h"
#include "paper/qt/SteadyPdf.h"
#include "platform/qt/QtPicture.h"

namespace {

constexpr double PointsPerPixel = 72 / ScreenDotsPerInch;

// Readers of PDF take no larger page, points.
constexpr double LongestPage = 14'400;

// What stands for a picture without anything on it.
constexpr PixelRect OneWhitePixel{0, 0, 1, 1};

QByteArray PngFile(const Picture& picture, const PixelRect& frame) {
  return PngBytes(ToImage(picture, frame, PictureDotsPerInch));
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
