#include "paper/qt/DocumentImages.h"

#include <QBuffer>
#include <QPixmap>
#include <QUrl>
#include <algorithm>
#include <cmath>

#include "paper/Page.h"
#include "platform/qt/QtPicture.h"

QImage ImageOf(const QTextDocument& document, const QString& name) {
  const QVariant resource = document.resource(QTextDocument::ImageResource, QUrl(name));
  switch (resource.typeId()) {
    case QMetaType::QImage:
      return resource.value<QImage>();
    case QMetaType::QPixmap:
      return resource.value<QPixmap>().toImage();
    case QMetaType::QByteArray:
      return QImage::fromData(resource.toByteArray());
    default:
      return {};
  }
}

QSizeF ShownSize(const QTextImageFormat& format, const QImage& image) {
  const QSizeF own = SizeOnScreen(image);
  const bool hasWidth = format.hasProperty(QTextFormat::ImageWidth) && format.width() > 0;
  const bool hasHeight = format.hasProperty(QTextFormat::ImageHeight) && format.height() > 0;
  return {hasWidth ? format.width() : own.width(), hasHeight ? format.height() : own.height()};
}

QSizeF SizeOnPage(const QImage& image, QStringView lineBefore) {
  const auto isTab = [](QChar c) { return c == u'\t'; };
  const auto tabs = std::ranges::find_if_not(lineBefore, isTab) - lineBefore.begin();
  const qreal room = std::max(PagePictureWidth - StandardTabStop * static_cast<qreal>(tabs), StandardTabStop);
  const QSizeF size = SizeOnScreen(image);
  const qreal factor = std::min({1.0, room / size.width(), PagePictureHeight / size.height()});
  return {std::max(1.0, std::round(size.width() * factor)),
          std::max(1.0, std::round(size.height() * factor))};
}

QByteArray PngBytes(const QImage& image) {
  // Packing a large drawing well takes seconds and gains little.
  constexpr qint64 manyPixels = 4'000'000;
  constexpr int packedFast = 70;  // of the toolkit's qualities: the less, the smaller
  const bool isLarge = qint64{image.width()} * image.height() > manyPixels;
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  return image.save(&buffer, "PNG", isLarge ? packedFast : -1) ? bytes : QByteArray();
}
