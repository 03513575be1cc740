// What is shown is rendered once after a change; exposing the window again only copies the image.
#include "canvas/CanvasWidget.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include "canvas/PaintDrawing.h"
#include "platform/qt/QtSurface.h"
#include "platform/qt/QtText.h"

CanvasWidget::CanvasWidget(const Truss& truss, const Drawing& drawing, QWidget* parent)
    : QWidget(parent), truss_(truss), drawing_(drawing) {
  setObjectName(QStringLiteral("picDraw"));
  setAccessibleName(tr("Drawing of the truss"));
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
}

void CanvasWidget::FitBacking() {
  const QSize pixels = (QSizeF(size()) * devicePixelRatioF()).toSize().expandedTo(QSize(1, 1));
  if (backing_.size() != pixels) {
    backing_ = QImage(pixels, QImage::Format_RGB32);
    backing_.fill(Qt::white);
  }
  backing_.setDevicePixelRatio(devicePixelRatioF());
}

void CanvasWidget::PaintBacking(const std::function<void(Surface&)>& paint) {
  FitBacking();
  {
    QPainter painter(&backing_);
    QtSurface surface(painter, QRectF(rect()));
    paint(surface);
  }
  ShowDrawing();
}

void CanvasWidget::ShowDrawing() {
  sceneIsCurrent_ = false;
  const bool isShown = focusLabel_ <= drawing_.lblRodJoint.Size() && focusLabel_ > 0 &&
                       drawing_.lblRodJoint[focusLabel_].Visible;
  if (!isShown) focusLabel_ = 0;
  update();
}

void CanvasWidget::SetLabelsActive(bool active) {
  labelsActive_ = active;
  if (!active) focusLabel_ = 0;
  unsetCursor();
  update();
}

void CanvasWidget::RenderScene() {
  FitBacking();
  scene_ = backing_;
  QPainter painter(&scene_);
  QtSurface surface(painter, QRectF(rect()));
  PaintDrawing(surface, drawing_, truss_);
  sceneIsCurrent_ = true;
}

void CanvasWidget::paintEvent(QPaintEvent* /*event*/) {
  if (!sceneIsCurrent_) RenderScene();
  QPainter painter(this);
  painter.drawImage(QPointF(0, 0), scene_);
  PaintFocus(painter);
}

void CanvasWidget::PaintFocus(QPainter& painter) const {
  if (focusLabel_ == 0 || !hasFocus()) return;
  const LabelPlace& place = drawing_.lblRodJoint[focusLabel_];
  const QRectF box(double{place.Left}, double{place.Top}, double{place.Width}, double{place.Height});
  painter.setPen(QPen(QColor(0, 90, 200), 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(box.adjusted(-2, -2, 2, 2));
}

LabelIndex CanvasWidget::LabelUnder(const QPointF& position) const {
  if (!labelsActive_) return 0;
  return LabelAt(drawing_, static_cast<float>(position.x()), static_cast<float>(position.y()));
}

void CanvasWidget::mousePressEvent(QMouseEvent* event) {
  const LabelIndex label = event->button() == Qt::LeftButton ? LabelUnder(event->position()) : LabelIndex{0};
  if (label == 0) {
    QWidget::mousePressEvent(event);
    return;
  }
  focusLabel_ = label;
  update();
  Q_EMIT LabelActivated(label);
}

void CanvasWidget::mouseMoveEvent(QMouseEvent* event) {
  if (LabelUnder(event->position()) != 0) {
    setCursor(Qt::PointingHandCursor);
  } else {
    unsetCursor();
  }
}

bool CanvasWidget::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) return ShowToolTip(static_cast<QHelpEvent*>(event));
  return QWidget::event(event);
}

bool CanvasWidget::ShowToolTip(QHelpEvent* event) {
  const LabelIndex label = LabelUnder(QPointF(event->pos()));
  if (label == 0) {
    QToolTip::hideText();
    event->ignore();
    return true;
  }
  const LabelPlace& place = drawing_.lblRodJoint[label];
  QToolTip::showText(event->globalPos(), PlainToolTip(ToQt(truss_.Name(label))), this,
                     QRectF(double{place.Left}, double{place.Top}, double{place.Width}, double{place.Height})
                         .toAlignedRect());
  return true;
}

void CanvasWidget::keyPressEvent(QKeyEvent* event) {
  const bool opens = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (opens && focusLabel_ != 0) {
    Q_EMIT LabelActivated(focusLabel_);
  } else {
    QWidget::keyPressEvent(event);
  }
}

void CanvasWidget::focusOutEvent(QFocusEvent* event) {
  if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) focusLabel_ = 0;
  QWidget::focusOutEvent(event);
  update();
}

LabelIndex CanvasWidget::NextLabel(int step) const {
  const int count = drawing_.lblRodJoint.Size();
  int label = focusLabel_ == 0 && step < 0 ? count + 1 : int{focusLabel_};
  do label += step;
  while (label >= 1 && label <= count && !drawing_.lblRodJoint[label].Visible);
  return label >= 1 && label <= count ? static_cast<LabelIndex>(label) : LabelIndex{0};
}

bool CanvasWidget::focusNextPrevChild(bool next) {
  if (labelsActive_ && hasFocus()) {
    const LabelIndex label = NextLabel(next ? 1 : -1);
    if (label != 0) {
      focusLabel_ = label;
      setAccessibleDescription(ToQt(truss_.Name(label)));
      update();
      return true;
    }
  }
  return QWidget::focusNextPrevChild(next);
}
