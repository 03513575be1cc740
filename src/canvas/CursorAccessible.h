// One coordinate of the cursor that draws, as a number that can be read and set.
#pragma once

#include <QAccessibleInterface>
#include <QPointer>

#include "canvas/CanvasWidget.h"

enum class CursorAxis { X, Y };

class CursorAccessible final : public QAccessibleInterface, public QAccessibleValueInterface {
 public:
  CursorAccessible(CanvasWidget& canvas, CursorAxis axis) : canvas_(&canvas), axis_(axis) {}

  /// As long as there is a cursor to draw with.
  bool isValid() const override;
  QObject* object() const override { return nullptr; }
  QWindow* window() const override;
  QAccessibleInterface* parent() const override;
  QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
  QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
  QString text(QAccessible::Text text) const override;
  void setText(QAccessible::Text /*text*/, const QString& /*value*/) override {}
  QRect rect() const override;
  QAccessible::Role role() const override { return QAccessible::SpinBox; }
  QAccessible::State state() const override;
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

  QPointer<CanvasWidget> canvas_;
  CursorAxis axis_;
};
