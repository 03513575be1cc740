#include "practice/TrussView.h"

#include <QPainter>
#include <algorithm>
#include <utility>

#include "platform/qt/PlaceRing.h"
#include "platform/qt/QtPicture.h"

namespace {

// A small truss is not blown up.
constexpr double MostEnlarged = 1.5;

constexpr double RingRadius = 14;

}  // namespace

TrussView::TrussView(QWidget* parent) : QWidget(parent) {
  setMinimumSize(160, 120);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize TrussView::sizeHint() const { return {420, 280}; }

void TrussView::ShowTruss(std::optional<PaintedTruss> truss) {
  truss_ = std::move(truss);
  pointedAt_.reset();
  PaintAnew();
}

void TrussView::PointAt(std::optional<PixelPoint> world) {
  pointedAt_ = world;
  update();
}

void TrussView::PaintAnew() {
  painted_ = QPixmap();
  const PixelRect frame = truss_ ? truss_->Drawn.Frame() : PixelRect{};
  if (!IsEmpty(frame)) {
    scale_ = std::min({width() / static_cast<double>(frame.Width()),
                       height() / static_cast<double>(frame.Height()), MostEnlarged});
    const double dots = scale_ * devicePixelRatioF();
    painted_ = QPixmap(WholeDots(frame, dots));
    painted_.fill(Qt::white);  // the frame need not fill the last dots
    PaintFrame(painted_, truss_->Drawn, frame, dots);
    painted_.setDevicePixelRatio(devicePixelRatioF());
  }
  update();
}

void TrussView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  if (painted_.isNull()) return;
  const QSizeF size = painted_.deviceIndependentSize();
  const QPointF corner((width() - size.width()) / 2, (height() - size.height()) / 2);
  painter.drawPixmap(corner, painted_);
  if (pointedAt_) PaintRing(painter, corner);
}

void TrussView::PaintRing(QPainter& painter, const QPointF& corner) const {
  const PixelRect frame = truss_->Drawn.Frame();
  const double x = static_cast<double>(truss_->Mapping.XPixel(pointedAt_->X)) - frame.Left;
  const double y = static_cast<double>(truss_->Mapping.YPixel(pointedAt_->Y)) - frame.Top;
  const QPointF centre = corner + QPointF(x, y) * scale_;
  PaintPlaceRing(painter, centre, RingRadius);
}

void TrussView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  PaintAnew();
}
