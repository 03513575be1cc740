// One element of the drawing in the accessibility tree: a member, a joint, a support, a force or a name.
#pragma once

#include <QAccessibleInterface>
#include <QPointer>

#include "canvas/CanvasWidget.h"

/// It stays when its element is erased, and is not valid then; it is valid again when an element of the same
/// kind and number is drawn.
class ElementAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  ElementAccessible(CanvasWidget& canvas, const Element& element) : canvas_(&canvas), element_(element) {}

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
  QAccessible::Role role() const override;
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override;

  QStringList actionNames() const override;
  void doAction(const QString& name) override;
  QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

  const Element& What() const { return element_; }

  /// Whether it is called otherwise than when this was asked last; the first time it is not.
  bool IsRenamed();

 private:
  bool CanPress() const;
  QString Name() const;

  QPointer<CanvasWidget> canvas_;
  Element element_;
  std::string told_;  // what decides its name, as it was last
};
