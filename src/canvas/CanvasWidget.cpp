// What is shown is rendered once after a change; exposing the window again only copies the image.
#include "canvas/CanvasWidget.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <utility>

#include "canvas/CanvasAccessible.h"
#include "canvas/DrawnElements.h"
#include "canvas/PaintDrawing.h"
#include "canvas/Paper.h"
#include "platform/qt/AccessibleEvents.h"
#include "platform/qt/PlaceRing.h"
#include "platform/qt/QtSurface.h"
#include "platform/qt/QtText.h"

namespace {

QRectF BoxOf(const LabelPlace& place) {
  return QRectF(double{place.Left}, double{place.Top}, double{place.Width}, double{place.Height});
}

QSize SizeInDevicePixels(const QSize& size, qreal devicePixelRatio) {
  return (QSizeF(size) * devicePixelRatio).toSize().expandedTo(QSize(1, 1));
}

}  // namespace

CanvasWidget::CanvasWidget(const Truss& truss, const Drawing& drawing, QWidget* parent)
    : QWidget(parent), truss_(truss), drawing_(drawing) {
  CanvasAccessible::Install();  // a name that is set asks for the interface already
  setObjectName(QStringLiteral("picDraw"));
  setAccessibleName(QStringLiteral("Drawing of the truss"));
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  // A control that is hidden while it has the keys hands them on as Tab does, but nobody asked it to.
  connect(qApp, &QApplication::focusChanged, this, [this](const QWidget* before, const QWidget* now) {
    if (now != this || before == nullptr || (before->isVisible() && before->isEnabled())) return;
    focusCameByTab_ = false;
    update();
  });
}

bool CanvasWidget::BackingFits() const {
  return backing_.size() == SizeInDevicePixels(size(), devicePixelRatioF());
}

void CanvasWidget::FitBacking() {
  if (!BackingFits()) {
    backing_ = QImage(SizeInDevicePixels(size(), devicePixelRatioF()), QImage::Format_RGB32);
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
  if (focus_ && !IsShown(drawing_, truss_, *focus_)) focus_.reset();
  if (FocusLabel() != 0 && !CanHoldFocus(FocusLabel())) focus_.reset();
  ++generation_;
  TellChanges();
  update();
}

// Costs nothing until somebody listens.
void CanvasWidget::TellChanges() {
  if (!IsSomebodyListening()) return;
  if (auto* told = dynamic_cast<CanvasAccessible*>(QAccessible::queryAccessibleInterface(this)))
    told->TellChanges();
}

LabelIndex CanvasWidget::FocusLabel() const {
  return focus_ && focus_->Kind == ElementKind::Label ? static_cast<LabelIndex>(focus_->Index)
                                                      : LabelIndex{0};
}

void CanvasWidget::FocusOn(const Element& element) {
  setFocus(Qt::OtherFocusReason);
  if (access_ != nullptr) access_->CursorTo(element);
  MoveFocus(element);
}

void CanvasWidget::MoveFocus(const Element& element) {
  focus_ = element;
  update();
  TellFocus();
}

void CanvasWidget::TellFocus() {
  if (!focus_ || !hasFocus() || !IsSomebodyListening()) return;
  QAccessibleInterface* canvas = QAccessible::queryAccessibleInterface(this);
  QAccessibleEvent event(canvas->focusChild(), QAccessible::Focus);
  TellListeners(event);
}

void CanvasWidget::PressLater(const std::optional<Element>& element) {
  const auto press = [this, element] {
    if (access_ == nullptr || !isEnabled()) return;
    if (!element) return access_->PressAtCursor();
    if (!IsShown(drawing_, truss_, *element) || !access_->CanPress(*element)) return;
    if (element->Kind == ElementKind::Label) FocusOn(*element);
    access_->Press(*element);
  };
  QMetaObject::invokeMethod(this, press, Qt::QueuedConnection);
}

void CanvasWidget::SetLabelsActive(bool active) {
  labelsActive_ = active;
  if (!active) {
    focus_.reset();
    pressedLabel_ = 0;
  }
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
  // Painting anew must wait until this painting is done.
  if (!BackingFits()) QMetaObject::invokeMethod(this, &CanvasWidget::BackingLost, Qt::QueuedConnection);
  if (!sceneIsCurrent_) RenderScene();
  QPainter painter(this);
  painter.drawImage(QPointF(0, 0), scene_);
  PaintFocus(painter);
  PaintKeyboardCursor(painter);
  PaintPointer(painter);
}

void CanvasWidget::PaintFocus(QPainter& painter) const {
  if (!hasFocus()) return;
  if (!focus_ && focusCameByTab_ && !keyboardCursor_) {
    painter.setPen(QPen(QColor(0, 90, 200), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(2, 2, -3, -2));
  }
  if (!focus_) return;
  const auto box = BoxOf(drawing_, truss_, *focus_);
  if (!box) return;
  painter.setPen(QPen(QColor(0, 90, 200), 2));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(double{box->Left}, double{box->Top}, double{box->Width()}, double{box->Height()})
                       .adjusted(-2, -2, 2, 2));
}

void CanvasWidget::ShowKeyboardCursor(std::optional<QPointF> place) {
  if (place == keyboardCursor_) return;
  keyboardCursor_ = place;
  focus_.reset();
  update();
  if (!IsSomebodyListening()) return;
  if (auto* told = dynamic_cast<CanvasAccessible*>(QAccessible::queryAccessibleInterface(this)))
    told->TellCursor();
}

// A cross with a gap in its middle, so that what it points at can be seen.
void CanvasWidget::PaintKeyboardCursor(QPainter& painter) const {
  if (!keyboardCursor_ || !hasFocus()) return;
  constexpr double gap = 4;
  constexpr double reach = 14;
  painter.setPen(QPen(QColor(0, 90, 200), 2));
  for (const QPointF direction : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)}) {
    painter.drawLine(*keyboardCursor_ + gap * direction, *keyboardCursor_ + reach * direction);
  }
}

void CanvasWidget::PointAt(std::optional<PixelPoint> world) {
  if (world == pointedAt_) return;
  pointedAt_ = world;
  update();
}

// A light ring inside a dark one can be seen on paper and on lines. It leaves out the names, above all that
// of the joint at which it points.
void CanvasWidget::PaintPointer(QPainter& painter) const {
  if (!pointedAt_) return;
  const QPointF centre(double{OntoPaper(drawing_.Mapping.XPixel(pointedAt_->X))} + 0.5,
                       double{OntoPaper(drawing_.Mapping.YPixel(pointedAt_->Y))} + 0.5);
  constexpr double radius = 18;
  QRegion room(rect());
  for (const LabelPlace& label : drawing_.lblRodJoint.First(drawing_.lblRodJoint.Size())) {
    const QRectF box(double{label.Left}, double{label.Top}, double{label.Width}, double{label.Height});
    if (label.Visible) room -= box.toAlignedRect();
  }
  painter.save();
  painter.setClipRegion(room);
  PaintPlaceRing(painter, centre, radius);
  painter.restore();
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
  pressedLabel_ = label;
  MoveFocus({ElementKind::Label, label});
}

// Not when it is pressed: what opens then would never see the button come up.
void CanvasWidget::mouseReleaseEvent(QMouseEvent* event) {
  const LabelIndex pressed = std::exchange(pressedLabel_, LabelIndex{0});
  if (pressed == 0 || event->button() != Qt::LeftButton) {
    QWidget::mouseReleaseEvent(event);
  } else if (LabelUnder(event->position()) == pressed) {
    Q_EMIT LabelActivated(pressed);
  }
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
  QToolTip::showText(event->globalPos(), PlainToolTip(ToQt(truss_.Name(label))), this,
                     BoxOf(drawing_.lblRodJoint[label]).toAlignedRect());
  return true;
}

void CanvasWidget::keyPressEvent(QKeyEvent* event) {
  const bool opens = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (opens && FocusLabel() != 0) {
    Q_EMIT LabelActivated(FocusLabel());
  } else {
    QWidget::keyPressEvent(event);
  }
}

void CanvasWidget::focusInEvent(QFocusEvent* event) {
  focusCameByTab_ = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
  QWidget::focusInEvent(event);
  // The toolkit tells of the whole canvas as soon as this is done.
  if (focus_) QMetaObject::invokeMethod(this, &CanvasWidget::TellFocus, Qt::QueuedConnection);
  update();
}

void CanvasWidget::focusOutEvent(QFocusEvent* event) {
  if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) focus_.reset();
  QWidget::focusOutEvent(event);
  update();
}

bool CanvasWidget::CanHoldFocus(int label) const {
  if (label < 1 || label > drawing_.lblRodJoint.Size()) return false;
  const LabelPlace& place = drawing_.lblRodJoint[label];
  return place.Visible && BoxOf(place).intersects(QRectF(rect()));
}

LabelIndex CanvasWidget::NextLabel(int step) const {
  const int count = drawing_.lblRodJoint.Size();
  int label = FocusLabel() == 0 && step < 0 ? count + 1 : int{FocusLabel()};
  do label += step;
  while (label >= 1 && label <= count && !CanHoldFocus(label));
  return label >= 1 && label <= count ? static_cast<LabelIndex>(label) : LabelIndex{0};
}

bool CanvasWidget::focusNextPrevChild(bool next) {
  if (labelsActive_ && hasFocus()) {
    const LabelIndex label = NextLabel(next ? 1 : -1);
    if (label != 0) {
      MoveFocus({ElementKind::Label, label});
      return true;
    }
  }
  return QWidget::focusNextPrevChild(next);
}
