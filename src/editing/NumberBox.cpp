// A press that brings the focus would put the cursor at once and lose the selection; it is kept from doing
// so.
#include "editing/NumberBox.h"

#include <QFocusEvent>
#include <QMouseEvent>
#include <QTimer>

void NumberBox::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  // Coming back from the box's own menu is not a new visit.
  if (event->reason() == Qt::PopupFocusReason) return;
  selectAll();
  if (event->reason() != Qt::MouseFocusReason) return;
  focusCameByPress_ = true;
  // When the press was meant for something else, such as the frame around the box, none follows.
  QTimer::singleShot(0, this, [this] { focusCameByPress_ = false; });
}

void NumberBox::mousePressEvent(QMouseEvent* event) {
  if (focusCameByPress_ && event->button() == Qt::LeftButton) {
    focusCameByPress_ = false;
    keepsSelection_ = true;
    return;
  }
  QLineEdit::mousePressEvent(event);
}

void NumberBox::mouseMoveEvent(QMouseEvent* event) {
  if (!keepsSelection_) QLineEdit::mouseMoveEvent(event);
}

void NumberBox::mouseReleaseEvent(QMouseEvent* event) {
  if (keepsSelection_ && event->button() == Qt::LeftButton) {
    keepsSelection_ = false;
    return;
  }
  QLineEdit::mouseReleaseEvent(event);
}
