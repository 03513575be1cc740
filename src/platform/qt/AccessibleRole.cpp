#include "platform/qt/AccessibleRole.h"

#include <QAccessibleWidget>
#include <QVariant>

namespace {

constexpr auto RoleProperty = "orvaneRole";

// What the toolkit puts into windows by itself has no name of its own.
class NamedGrip final : public QAccessibleWidget {
 public:
  NamedGrip(QWidget* grip, const QString& name) : QAccessibleWidget(grip, QAccessible::Grip, name) {}
};

QAccessibleInterface* MakeWithRole(const QString& className, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  if (className == QLatin1String("QSizeGrip")) return new NamedGrip(widget, QStringLiteral("Size grip"));
  if (className == QLatin1String("QSplitterHandle")) return new NamedGrip(widget, QStringLiteral("Divider"));
  const QVariant role = object->property(RoleProperty);
  if (widget == nullptr || !role.isValid()) return nullptr;
  return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));
}

}  // namespace

void SetAccessibleRole(QWidget& widget, QAccessible::Role role) {
  widget.setProperty(RoleProperty, static_cast<int>(role));
  QAccessible::installFactory(MakeWithRole);
}
