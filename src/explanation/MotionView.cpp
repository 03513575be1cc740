#include "explanation/MotionView.h"

#include <QPainter>
#include <utility>

#include "platform/qt/QtSurface.h"

MotionView::MotionView(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(120, 80);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize MotionView::sizeHint() const { return {480, 240}; }

void MotionView::Show(std::optional<ShownMotion> shown) {
  shown_ = std::move(shown);
  DrawAnew();
}

void MotionView::Swing(double swing) {
  if (swing == swing_) return;
  swing_ = swing;
  DrawAnew();
}

void MotionView::DrawAnew() {
  drawn_.reset();
  if (shown_) {
    const Explanation& reasons = *shown_->Reasons;
    const std::optional<MotionChoice>& choice = shown_->Choice;
    const MotionScene scene{.Document = *shown_->Document,
                            .Graph = reasons.Graph,
                            .Moves = choice ? MotionOf(*choice, reasons.Exact) : nullptr,
                            .Stressed = choice ? SelfStressOf(*choice, reasons.Exact) : nullptr,
                            .Format = shown_->Format};
    const PixelRect room{0, 0, static_cast<float>(width()), static_cast<float>(height())};
    drawn_ = DrawMotion(scene, room, swing_, [this](const TextFont& font, std::string_view text) {
      return measure_.Measure(font, text);
    });
  }
  update();
}

void MotionView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QtSurface surface(painter, QRectF(rect()));
  surface.Clear();
  if (drawn_) PaintMotion(surface, *drawn_);
  if (!hasFocus()) return;
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(QPen(QColor(0, 90, 200), 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void MotionView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  DrawAnew();
}

void MotionView::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void MotionView::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}
