#include "editing/ValueEditorFrame.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <algorithm>

#include "platform/qt/FittedText.h"
#include "platform/qt/QtText.h"

namespace {

constexpr int LeastBoxWidth = 110;  // pixels
constexpr int DigitsInBox = 12;

// A character, an arrow, Enter or Escape: what means something else to the canvas and the palette.
bool IsKeptFromCanvas(const QKeyEvent* event) {
  if ((event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0) return false;
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
      return true;
    default:
      return event->key() < Qt::Key_Escape;
  }
}

PixelPoint PixelsOf(const QPointF& point) {
  return {static_cast<float>(point.x()), static_cast<float>(point.y())};
}

}  // namespace

void ValueEditorFrame::SetRoom(const QRect& room) {
  room_ = room;
  if (isHidden()) return;
  FitIntoRoom();
  MoveInside(PixelsOf(pos()));
}

void ValueEditorFrame::ShowEditor() {
  if (!editor_.IsOpen(editingKind_)) {
    if (!isHidden()) Close();
    return;
  }
  ShowValues();
  if (isHidden() || shownIndex_ != editor_.Index()) Open();
}

void ValueEditorFrame::ShowValues() {
  QRadioButton* chosen = options_[static_cast<std::size_t>(editor_.ChosenNotation(editingKind_))];
  if (!chosen->isChecked()) chosen->setChecked(true);
  for (int box = 1; box <= 2; ++box) {
    const auto at = static_cast<std::size_t>(box - 1);
    const QString label = ToQt(editor_.Label(editingKind_, box));
    lblNewCoords_[at]->setText(label);
    txtNewCoords_[at]->setAccessibleName(label);
    const bool isDegrees = box == 2 && chosen == options_.back();
    txtNewCoords_[at]->setToolTip(isDegrees ? QStringLiteral("A number of degrees, such as 45 or -90")
                                            : QStringLiteral("A number, such as 2.5 or 1e3"));
    // What is being typed keeps its cursor.
    const std::string& text = editor_.Text(editingKind_, box);
    if (FromQt(txtNewCoords_[at]->text()) == text) continue;
    const QSignalBlocker filled(txtNewCoords_[at]);
    txtNewCoords_[at]->setText(ToQt(text));
    if (txtNewCoords_[at]->hasFocus()) txtNewCoords_[at]->selectAll();
  }
}

void ValueEditorFrame::ForgetPlace() {
  shownIndex_ = 0;
  userPlace_.reset();
}

void ValueEditorFrame::Open() {
  if (shownIndex_ != editor_.Index()) ForgetPlace();
  shownIndex_ = editor_.Index();
  FitIntoRoom();
  MoveInside(userPlace_ ? *userPlace_ : PanelPlace(editor_.EditedObject(editingKind_), Size(), Room()));
  show();
  raise();
  txtNewCoords_[0]->setFocus(Qt::OtherFocusReason);
  txtNewCoords_[0]->selectAll();
}

void ValueEditorFrame::FitIntoRoom() {
  const QSize room(static_cast<int>(Room().Width), static_cast<int>(Room().Height));
  FitWidget(*this, parentWidget()->font(), room, [this](const QFont& font) {
    const QFontMetrics metrics(font);
    // As wide as the widest caption, so that nothing moves when the notation changes.
    const int labelWidth = metrics.horizontalAdvance(QStringLiteral("rel. magnitude "));
    for (QLabel* label : lblNewCoords_) label->setMinimumWidth(labelWidth);
    const int digits = DigitsInBox * metrics.horizontalAdvance(QLatin1Char('0'));
    for (QLineEdit* box : txtNewCoords_) box->setMinimumWidth(std::max(LeastBoxWidth, digits));
  });
  adjustSize();
}

void ValueEditorFrame::Close() {
  const QWidget* focus = QApplication::focusWidget();
  const bool hadFocus = focus != nullptr && (focus == this || isAncestorOf(focus));
  hide();
  if (hadFocus) parentWidget()->setFocus(Qt::OtherFocusReason);
}

// The outline lies within the frame: a hairline on its very edge is cut off on screens of fractional scale.
void ValueEditorFrame::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  QPainter painter(this);
  painter.setPen(QPen(palette().color(QPalette::Window).darker(150), 1));
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

void ValueEditorFrame::hideEvent(QHideEvent* event) {
  EndDrag();
  QFrame::hideEvent(event);
}

// --- dragging

PixelBox ValueEditorFrame::Room() const {
  const QRect room = room_.isValid() ? room_ : parentWidget()->rect();
  return {static_cast<float>(room.x()), static_cast<float>(room.y()), static_cast<float>(room.width()),
          static_cast<float>(room.height())};
}

PanelSize ValueEditorFrame::Size() const {
  return {static_cast<float>(width()), static_cast<float>(height())};
}

void ValueEditorFrame::MoveInside(PixelPoint leftTop) {
  const PixelPoint place = KeptInside(leftTop, Size(), Room());
  move(qRound(place.X), qRound(place.Y));
}

void ValueEditorFrame::EndDrag() {
  drag_.End();
  setCursor(Qt::ArrowCursor);
}

// Nothing that happens to the mouse on the frame reaches the canvas under it.

void ValueEditorFrame::mousePressEvent(QMouseEvent* event) {
  event->accept();
  if (event->button() != Qt::LeftButton || drag_.IsDragging()) {
    EndDrag();
    return;
  }
  const PixelPoint grabbed = PixelsOf(event->position());
  drag_.Begin(grabbed.X, grabbed.Y);
  setCursor(Qt::SizeAllCursor);
}

void ValueEditorFrame::mouseMoveEvent(QMouseEvent* event) {
  event->accept();
  if (!drag_.IsDragging()) return;
  userPlace_ = drag_.Place(PixelsOf(mapToParent(event->position())), Size(), Room());
  move(qRound(userPlace_->X), qRound(userPlace_->Y));
}

void ValueEditorFrame::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  if (event->button() == Qt::LeftButton) EndDrag();
}

void ValueEditorFrame::mouseDoubleClickEvent(QMouseEvent* event) { mousePressEvent(event); }
void ValueEditorFrame::wheelEvent(QWheelEvent* event) { event->accept(); }
void ValueEditorFrame::contextMenuEvent(QContextMenuEvent* event) { event->accept(); }

// --- keys

bool ValueEditorFrame::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride && IsKeptFromCanvas(static_cast<QKeyEvent*>(event))) {
    event->accept();
    return true;
  }
  return QFrame::event(event);
}

void ValueEditorFrame::keyPressEvent(QKeyEvent* event) {
  if (!IsKeptFromCanvas(event)) {
    QFrame::keyPressEvent(event);
    return;
  }
  event->accept();
  // A key that opened the panel and is still held down does not answer it.
  if (event->isAutoRepeat()) return;
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      cmdNewCoordsOK_->click();
      break;
    case Qt::Key_Escape:
      cmdNewCoordsCancel_->click();
      break;
    default:
      break;
  }
}
