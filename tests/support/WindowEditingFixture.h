// The main window in Step 1, driven with the mouse and the keyboard in world coordinates.
#pragma once

#include "support/MainFormFixture.h"

class WindowEditingFixture : public MainFormTest {
 protected:
  // A pixel is a 24th of a world unit, so every point of the grid lies on a whole pixel: 20 units take 480.
  void Start() { Started(580, 560); }

  QPoint At(float x, float y) const {
    const Graph& mapping = Shapes().Mapping;
    return {static_cast<int>(std::lround(mapping.XPixel(x))),
            static_cast<int>(std::lround(mapping.YPixel(y)))};
  }

  void ChooseTool(Tool tool) {
    const std::string name = "imgTool(" + std::to_string(static_cast<int>(tool)) + ")";
    QTest::mouseClick(Find<QToolButton>(name.c_str()), Qt::LeftButton);
  }

  void Press(QPoint point) { QTest::mousePress(Canvas(), Qt::LeftButton, Qt::NoModifier, point); }
  void Release(QPoint point) { QTest::mouseRelease(Canvas(), Qt::LeftButton, Qt::NoModifier, point); }
  void DragOver(QPoint point) {
    QMouseEvent move(QEvent::MouseMove, QPointF(point), Canvas()->mapToGlobal(QPointF(point)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Canvas(), &move);
  }

  void Drag(QPoint from, QPoint to) {
    Press(from);
    DragOver((from + to) / 2);
    DragOver(to);
    Release(to);
  }

  void ClickAt(QPoint point) {
    Press(point);
    Release(point);
  }

  void DrawMember(float x1, float y1, float x2, float y2) { Drag(At(x1, y1), At(x2, y2)); }

  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(Canvas(), key, modifiers);
  }
};
