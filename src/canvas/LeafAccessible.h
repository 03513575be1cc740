// What the leaves below the canvas in the accessibility tree have in common: no widget of their own, and no
// children.
#pragma once

#include <QAccessibleInterface>
#include <QPointer>

#include "canvas/CanvasWidget.h"

class LeafAccessible : public QAccessibleInterface {
 public:
  QObject* object() const final { return nullptr; }
  QWindow* window() const final;
  QAccessibleInterface* parent() const final;
  QAccessibleInterface* child(int /*index*/) const final { return nullptr; }
  QAccessibleInterface* childAt(int /*x*/, int /*y*/) const final { return nullptr; }
  int childCount() const final { return 0; }
  int indexOfChild(const QAccessibleInterface* /*child*/) const final { return -1; }
  void setText(QAccessible::Text /*text*/, const QString& /*value*/) final {}

  /// As the canvas is; only `invalid` when it is not valid.
  QAccessible::State state() const override;

 protected:
  explicit LeafAccessible(CanvasWidget& canvas) : canvas_(&canvas) {}

  QPointer<CanvasWidget> canvas_;  // it may go first
};
