#include "explanation/byjoint/HandView.h"

#include <QPainter>
#include <utility>

#include "platform/qt/QtSurface.h"

HandView::HandView(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(160, 120);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize HandView::sizeHint() const { return {420, 280}; }

void HandView::Show(std::shared_ptr<const SolvedByHand> solved, std::size_t index) {
  solved_ = std::move(solved);
  index_ = index;
  DrawAnew();
}

void HandView::DrawAnew() {
  drawn_.reset();
  if (solved_) {
    const PixelRect room{0, 0, static_cast<float>(width()), static_cast<float>(height())};
    drawn_ = DrawHandStep(
        solved_->Graph, solved_->Solution, index_, room, solved_->Format,
        [this](const TextFont& font, std::string_view text) { return measure_.Measure(font, text); });
  }
  update();
}

void HandView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QtSurface surface(painter, QRectF(rect()));
  surface.Clear();
  if (drawn_) PaintHandPicture(surface, *drawn_);
  if (!hasFocus()) return;
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(QPen(QColor(0, 90, 200), 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void HandView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  DrawAnew();
}

void HandView::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void HandView::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}
