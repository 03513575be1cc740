// What a random user does with the mouse on the drawing.
#include "RandomUser.h"

// Mostly near points of a coarse grid, so that things meet; sometimes anywhere, even outside.
QPoint RandomUser::SomePoint() {
  if (OneIn(8)) return {Below(Canvas()->width() + 200) - 100, Below(Canvas()->height() + 200) - 100};
  const Graph& mapping = Shapes().Mapping;
  const auto x = mapping.PixelX1 + (mapping.PixelX2 - mapping.PixelX1) * static_cast<float>(Below(9)) / 8;
  const auto y = mapping.PixelY1 + (mapping.PixelY2 - mapping.PixelY1) * static_cast<float>(Below(7)) / 6;
  return {static_cast<int>(x) + Below(7) - 3, static_cast<int>(y) + Below(7) - 3};
}

void RandomUser::UseMouse() {
  const QPoint point = SomePoint();
  const Qt::MouseButton button = OneIn(10) ? Qt::RightButton : Qt::LeftButton;
  switch (Below(5)) {
    case 0:
      Drag(SomePoint(), point);
      mouseIsDown_ = false;
      break;
    case 1:
      QTest::mousePress(Canvas(), button, Qt::NoModifier, point);
      mouseIsDown_ = true;
      break;
    case 2:
      QTest::mouseRelease(Canvas(), button, Qt::NoModifier, point);
      mouseIsDown_ = false;
      break;
    case 3:
      DragOver(point);
      break;
    default:
      MoveMouse(point);
      break;
  }
}

void RandomUser::DoubleClickOnDrawing() {
  const QPoint point = SomePoint();
  QTest::mouseClick(Canvas(), Qt::LeftButton, Qt::NoModifier, point);
  if (form_->isVisible()) QTest::mouseDClick(Canvas(), Qt::LeftButton, Qt::NoModifier, point);
  mouseIsDown_ = false;
}

void RandomUser::TurnWheel() {
  const QPoint at = SomePoint();
  QWheelEvent wheel(at, Canvas()->mapToGlobal(at), {}, {120 * (Below(3) - 1), 120 * (Below(9) - 4)},
                    Qt::NoButton, OneIn(3) ? Qt::ControlModifier : Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(Canvas(), &wheel);
}
