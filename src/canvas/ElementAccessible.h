// One element of the drawing in the accessibility tree: a member, a joint, a support, a force or a name.
#pragma once

#include "canvas/LeafAccessible.h"

/// It stays when its element is erased, and is not valid then; it is valid again when an element of the same
/// kind and number is drawn.
class ElementAccessible final : public LeafAccessible, public QAccessibleActionInterface {
 public:
  ElementAccessible(CanvasWidget& canvas, const Element& element)
      : LeafAccessible(canvas), element_(element) {}

  bool isValid() const override;
  QString text(QAccessible::Text text) const override;
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

  Element element_;
  std::string told_;  // what decides its name, as it was last
};
