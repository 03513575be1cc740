// The main window in Step 1 with a mouse of its own: events enter where those of a desktop do, so that Qt
// itself decides what is a double click and which widget the mouse enters and leaves.
#pragma once

#include <QStyleHints>

#include "support/WindowEditingFixture.h"

class RealMouse : public WindowEditingFixture {
 protected:
  // In pixels of a widget.
  void MouseTo(QWidget* widget, QPoint point, Qt::MouseButtons held = Qt::NoButton) {
    Send(QEvent::MouseMove, widget, point, held, Qt::NoButton);
  }

  // The next click is one of its own.
  static void Rest() {
    QTest::lastMouseTimestamp += 2 * QGuiApplication::styleHints()->mouseDoubleClickInterval();
  }

  // In pixels of the canvas.
  void ButtonDown(QPoint point) {
    Send(QEvent::MouseButtonPress, Canvas(), point, Qt::LeftButton, Qt::LeftButton);
  }
  void ButtonUp(QPoint point) {
    Send(QEvent::MouseButtonRelease, Canvas(), point, Qt::NoButton, Qt::LeftButton);
  }
  void QuickClick(QPoint point) {
    ButtonDown(point);
    ButtonUp(point);
  }
  void CalmClick(QPoint point) {
    Rest();
    QuickClick(point);
  }
  void DoubleClick(QPoint point) {
    CalmClick(point);
    QuickClick(point);
  }
  void DragSlowly(QPoint from, QPoint to) {
    Rest();
    ButtonDown(from);
    MouseTo(Canvas(), (from + to) / 2, Qt::LeftButton);
    MouseTo(Canvas(), to, Qt::LeftButton);
    ButtonUp(to);
  }

 private:
  void Send(QEvent::Type type, QWidget* widget, QPoint point, Qt::MouseButtons held, Qt::MouseButton button) {
    QTest::lastMouseTimestamp += 20;
    qt_handleMouseEvent(form_->windowHandle(), widget->mapTo(form_.get(), QPointF(point)),
                        widget->mapToGlobal(QPointF(point)), held, button, type, Qt::NoModifier,
                        QTest::lastMouseTimestamp);
    QApplication::processEvents();
  }
};
