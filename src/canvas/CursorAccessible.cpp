#include "canvas/CursorAccessible.h"

#include <QAccessible>

#include "text/NumberText.h"

bool CursorAccessible::isValid() const {
  return canvas_ && canvas_->Access() != nullptr && canvas_->Access()->HasCursor();
}

double CursorAccessible::Value() const {
  const CanvasAccess::Place place = canvas_->Access()->Cursor();
  return double{axis_ == CursorAxis::X ? place.X : place.Y};
}

QString CursorAccessible::text(QAccessible::Text text) const {
  if (!isValid()) return {};
  switch (text) {
    case QAccessible::Name:
      return axis_ == CursorAxis::X ? QStringLiteral("Cursor x") : QStringLiteral("Cursor y");
    case QAccessible::Description:
      return QStringLiteral("Where the next press on the drawing lands");
    case QAccessible::Value:
      return QString::fromStdString(SevenDigitText(Value(), canvas_->Separator()));
    default:
      return {};
  }
}

QRect CursorAccessible::rect() const {
  if (!isValid()) return {};
  const CanvasAccess::Place place = canvas_->Access()->Cursor();
  const Graph& mapping = canvas_->Shown().Mapping;
  const QPoint at(qRound(OntoPaper(mapping.XPixel(place.X))), qRound(OntoPaper(mapping.YPixel(place.Y))));
  constexpr int reach = 4;
  return QRect(canvas_->mapToGlobal(at), QSize(1, 1)).adjusted(-reach, -reach, reach, reach);
}

void* CursorAccessible::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
  return nullptr;
}

QVariant CursorAccessible::currentValue() const { return isValid() ? QVariant(Value()) : QVariant(); }

void CursorAccessible::setCurrentValue(const QVariant& value) {
  bool isNumber = false;
  const auto wanted = static_cast<float>(value.toDouble(&isNumber));
  if (!isNumber || !isValid() || !canvas_->isEnabled()) return;
  CanvasAccess::Place place = canvas_->Access()->Cursor();
  (axis_ == CursorAxis::X ? place.X : place.Y) = wanted;
  canvas_->Access()->MoveCursor(place);
}

QVariant CursorAccessible::maximumValue() const {
  if (!isValid()) return {};
  const Truss& truss = canvas_->Document();
  return double{axis_ == CursorAxis::X ? truss.Settings.XMax : truss.View.YMax};
}

QVariant CursorAccessible::minimumValue() const {
  if (!isValid()) return {};
  const DocumentSettings& settings = canvas_->Document().Settings;
  return double{axis_ == CursorAxis::X ? settings.XMin : settings.YMin};
}

QVariant CursorAccessible::minimumStepSize() const {
  if (!isValid()) return {};
  const DocumentSettings& settings = canvas_->Document().Settings;
  return double{axis_ == CursorAxis::X ? settings.GridX : settings.GridY};
}
