// The canvas in the accessibility tree. Its children are the widgets on it, then the elements of the drawing,
// then, while there is one, the cursor's two coordinates. An interface is made when somebody asks for it.
#pragma once

#include <QAccessibleWidget>
#include <array>
#include <map>
#include <vector>

#include "canvas/CanvasWidget.h"
#include "canvas/CursorAccessible.h"
#include "canvas/ElementAccessible.h"

class CanvasAccessible final : public QAccessibleWidget {
 public:
  explicit CanvasAccessible(CanvasWidget& canvas);
  CanvasAccessible(const CanvasAccessible&) = delete;
  CanvasAccessible& operator=(const CanvasAccessible&) = delete;
  ~CanvasAccessible() override;

  /// Makes the toolkit use this class for every canvas.
  static void Install();

  /// The description is never kept: it is what there is to say when somebody asks.
  QString text(QAccessible::Text text) const override;
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessibleInterface* focusChild() const override;

  // The keys' Space or Enter as an action, while there is a cursor.
  QStringList actionNames() const override;
  QString localizedActionDescription(const QString& name) const override;
  void doAction(const QString& name) override;

  /// The interface of an element, which may be one that is not to be seen.
  QAccessibleInterface* Of(const Element& element) const;

  /// The drawing has changed: tells who listens what has come, gone or got another name.
  void TellChanges();

  /// The cursor has been moved.
  void TellCursor();

 private:
  const std::vector<Element>& Elements() const;
  QAccessibleInterface* Cursor(CursorAxis axis) const;
  bool HasCursor() const;
  void TellDifference(const std::vector<Element>& before);

  CanvasWidget& canvas_;
  // What was asked for, as it was then.
  mutable std::vector<Element> elements_;
  mutable int generation_ = -1;
  mutable std::map<Element, QAccessible::Id> made_;
  mutable std::array<QAccessible::Id, 2> cursors_{};
};
