#include "platform/qt/AccessibleRole.h"

#include <QAccessibleWidget>
#include <QVariant>

namespace {

constexpr auto RoleProperty = "orvaneRole";

QAccessibleInterface* MakeWithRole(const QString& /*className*/, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  const QVariant role = object->property(RoleProperty);
  if (widget == nullptr || !role.isValid()) return nullptr;
  return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));
}

}  // namespace

void SetAccessibleRole(QWidget& widget, QAccessible::Role role) {
  widget.setProperty(RoleProperty, static_cast<int>(role));
  QAccessible::installFactory(MakeWithRole);
}
