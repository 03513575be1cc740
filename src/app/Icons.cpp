#include "app/Icons.h"

#include <QPainter>
#include <QSvgRenderer>
#include <array>
#include <utility>
#include <vector>

#include "document/Truss.h"
#include "editing/ToolGlyphs.h"
#include "platform/qt/RoundPen.h"

namespace {

QPixmap EmptyPicture(QSize size, qreal devicePixelRatio) {
  QPixmap picture((QSizeF(size) * devicePixelRatio).toSize());
  picture.setDevicePixelRatio(devicePixelRatio);
  picture.fill(Qt::transparent);
  return picture;
}

using Segment = std::pair<QPointF, QPointF>;

// A truss of three panels: `panel` wide, `height` high, standing on (left, ground).
struct SketchedTruss {
  std::vector<Segment> Members;
  std::vector<QPointF> Joints;
};

SketchedTruss ThreePanels(qreal left, qreal ground, qreal panel, qreal height) {
  const auto low = [&](int i) { return QPointF(left + panel * i, ground); };
  const auto high = [&](int i) { return QPointF(left + panel * (i + 0.5), ground - height); };
  SketchedTruss truss;
  for (int i = 0; i < 3; ++i) {
    truss.Members.insert(truss.Members.end(),
                         {{low(i), low(i + 1)}, {low(i), high(i)}, {high(i), low(i + 1)}});
    if (i < 2) truss.Members.emplace_back(high(i), high(i + 1));
  }
  for (int i = 0; i <= 3; ++i) truss.Joints.push_back(low(i));
  for (int i = 0; i < 3; ++i) truss.Joints.push_back(high(i));
  return truss;
}

void DrawLoad(QPainter& painter, const QPointF& joint, qreal length, const QColor& colour) {
  const QPointF tip = joint - QPointF(0, 7);
  painter.setPen(RoundPen(colour, 2.4));
  painter.drawLine(tip - QPointF(0, length), tip - QPointF(0, 6));
  painter.setBrush(colour);
  painter.setPen(RoundPen(colour, 1));
  painter.drawPolygon(QPolygonF{{tip, tip + QPointF(-4.5, -9), tip + QPointF(4.5, -9)}});
}

}  // namespace

QPixmap ApplicationPicture(int side, qreal devicePixelRatio) {
  QPixmap picture = EmptyPicture({side, side}, devicePixelRatio);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  QSvgRenderer(QStringLiteral(":/icons/orvane.svg")).render(&painter, QRectF(0, 0, side, side));
  return picture;
}

QIcon ApplicationIcon() {
  QIcon icon;
  for (const int side : {16, 22, 24, 32, 48, 64, 128, 256}) icon.addPixmap(ApplicationPicture(side, 1));
  return icon;
}

QPixmap AboutPicture(QSize size, qreal devicePixelRatio) {
  QPixmap picture = EmptyPicture(size, devicePixelRatio);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor(0xB8, 0xB8, 0xB8), 1));
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(QRectF(QPointF(0, 0), QSizeF(size)).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);

  const GlyphColours onPaper{.Ink = Qt::black, .Accent = AccentOn(Qt::white), .Ground = Qt::white};
  const qreal panel = size.width() / 4.4;
  const qreal height = size.height() * 0.42;
  const QPointF foot(size.width() / 2.0 - 1.5 * panel, size.height() * 0.74);
  const SketchedTruss truss = ThreePanels(foot.x(), foot.y(), panel, height);
  painter.setPen(RoundPen(Qt::black, 2));
  for (const Segment& member : truss.Members) painter.drawLine(member.first, member.second);
  for (const auto& [joint, type] :
       {std::pair{truss.Joints[0], 1}, std::pair{truss.Joints[3], LastClampType + 1}}) {
    painter.save();
    painter.translate(joint - QPointF(16, 16));
    DrawSupport(painter, static_cast<std::int16_t>(type), onPaper, 1.2);
    painter.restore();
  }
  painter.setPen(QPen(Qt::black, 1.2));
  painter.setBrush(Qt::white);
  for (const QPointF& joint : truss.Joints) painter.drawEllipse(joint, 3, 3);
  DrawLoad(painter, truss.Joints[5], size.height() * 0.20, onPaper.Accent);
  return picture;
}
