// One coordinate of the cursor that draws, as a number that can be read and set.
#pragma once

#include "canvas/LeafAccessible.h"

enum class CursorAxis { X, Y };

class CursorAccessible final : public LeafAccessible, public QAccessibleValueInterface {
 public:
  CursorAccessible(CanvasWidget& canvas, CursorAxis axis) : LeafAccessible(canvas), axis_(axis) {}

  /// As long as there is a cursor to draw with.
  bool isValid() const override;
  QString text(QAccessible::Text text) const override;
  QRect rect() const override;
  QAccessible::Role role() const override { return QAccessible::SpinBox; }
  void* interface_cast(QAccessible::InterfaceType type) override;

  // World coordinates; the range is that of the drawing area, a step that of the grid.
  QVariant currentValue() const override;
  void setCurrentValue(const QVariant& value) override;
  QVariant maximumValue() const override;
  QVariant minimumValue() const override;
  QVariant minimumStepSize() const override;

  CursorAxis Axis() const { return axis_; }

 private:
  double Value() const;

  CursorAxis axis_;
};
