#include "app/Icons.h"

#include <QPainter>
#include <QSvgRenderer>

namespace {

QPixmap EmptyPicture(QSize size, qreal devicePixelRatio) {
  QPixmap picture((QSizeF(size) * devicePixelRatio).toSize());
  picture.setDevicePixelRatio(devicePixelRatio);
  picture.fill(Qt::transparent);
  return picture;
}

QPixmap Rendered(const char* name, QSize size, qreal devicePixelRatio) {
  QPixmap picture = EmptyPicture(size, devicePixelRatio);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  QSvgRenderer(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name)))
      .render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
  return picture;
}

}  // namespace

QPixmap ApplicationPicture(int side, qreal devicePixelRatio) {
  return Rendered("orvane", {side, side}, devicePixelRatio);
}

QIcon ApplicationIcon() {
  QIcon icon;
  for (const int side : {16, 22, 24, 32, 48, 64, 128, 256}) icon.addPixmap(ApplicationPicture(side, 1));
  return icon;
}

QPixmap AboutPicture(QSize size, qreal devicePixelRatio) { return Rendered("about", size, devicePixelRatio); }
