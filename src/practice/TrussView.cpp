#include "practice/TrussView.h"

#include <QPainter>
#include <algorithm>
#include <utility>

#include "platform/qt/QtPicture.h"

namespace {

// A small truss is not blown up.
constexpr double MostEnlarged = 1.5;

}  // namespace

TrussView::TrussView(QWidget* parent) : QWidget(parent) {
  setMinimumSize(160, 120);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize TrussView::sizeHint() const { return {420, 280}; }

void TrussView::ShowPicture(std::optional<Picture> picture) {
  picture_ = std::move(picture);
  PaintAnew();
}

void TrussView::PaintAnew() {
  painted_ = QPixmap();
  const PixelRect frame = picture_ ? picture_->Frame() : PixelRect{};
  if (!IsEmpty(frame)) {
    const double room = std::min(width() / static_cast<double>(frame.Width()),
                                 height() / static_cast<double>(frame.Height()));
    const double scale = std::min(room, MostEnlarged) * devicePixelRatioF();
    painted_ = QPixmap(WholeDots(frame, scale));
    PaintFrame(painted_, *picture_, frame, scale);
    painted_.setDevicePixelRatio(devicePixelRatioF());
  }
  update();
}

void TrussView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  if (painted_.isNull()) return;
  const QSizeF size = painted_.deviceIndependentSize();
  painter.drawPixmap(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), painted_);
}

void TrussView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  PaintAnew();
}
