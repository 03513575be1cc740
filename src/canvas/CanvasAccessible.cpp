#include "canvas/CanvasAccessible.h"

#include <algorithm>
#include <iterator>

#include "canvas/DrawnElements.h"
#include "platform/qt/AccessibleEvents.h"
#include "platform/qt/QtText.h"

namespace {

// Of more elements at once, as when a file is opened, nobody wants to hear one by one.
constexpr std::size_t MostToldOneByOne = 16;

void Send(QAccessibleInterface* about, QAccessible::Event what) {
  QAccessibleEvent event(about, what);
  TellListeners(event);
}

QAccessibleInterface* MakeCanvasAccessible(const QString& /*className*/, QObject* object) {
  auto* canvas = qobject_cast<CanvasWidget*>(object);
  return canvas != nullptr ? new CanvasAccessible(*canvas) : nullptr;
}

}  // namespace

void CanvasAccessible::Install() { QAccessible::installFactory(MakeCanvasAccessible); }

CanvasAccessible::CanvasAccessible(CanvasWidget& canvas)
    : QAccessibleWidget(&canvas, QAccessible::Canvas), canvas_(canvas) {}

CanvasAccessible::~CanvasAccessible() {
  for (const auto& [element, id] : made_) QAccessible::deleteAccessibleInterface(id);
  for (const QAccessible::Id id : cursors_) {
    if (id != 0) QAccessible::deleteAccessibleInterface(id);
  }
}

const std::vector<Element>& CanvasAccessible::Elements() const {
  if (generation_ != canvas_.Generation()) {
    elements_ = ShownElements(canvas_.Shown(), canvas_.Document());
    generation_ = canvas_.Generation();
  }
  return elements_;
}

QAccessibleInterface* CanvasAccessible::Of(const Element& element) const {
  const auto [place, isNew] = made_.try_emplace(element, 0);
  if (isNew) {
    auto* made = new ElementAccessible(canvas_, element);
    place->second = QAccessible::registerAccessibleInterface(made);
    made->IsRenamed();
    return made;
  }
  return QAccessible::accessibleInterface(place->second);
}

QAccessibleInterface* CanvasAccessible::Cursor(CursorAxis axis) const {
  QAccessible::Id& id = cursors_[axis == CursorAxis::X ? 0 : 1];
  if (id == 0) id = QAccessible::registerAccessibleInterface(new CursorAccessible(canvas_, axis));
  return QAccessible::accessibleInterface(id);
}

bool CanvasAccessible::HasCursor() const {
  return canvas_.isEnabled() && canvas_.Access() != nullptr && canvas_.Access()->HasCursor();
}

QString CanvasAccessible::text(QAccessible::Text text) const {
  if (text != QAccessible::Description || canvas_.Access() == nullptr) return QAccessibleWidget::text(text);
  return OneLineText(ToQt(canvas_.Access()->TellAll()));
}

int CanvasAccessible::childCount() const {
  return QAccessibleWidget::childCount() + static_cast<int>(Elements().size()) + (HasCursor() ? 2 : 0);
}

QAccessibleInterface* CanvasAccessible::child(int index) const {
  const int widgets = QAccessibleWidget::childCount();
  if (index < widgets) return QAccessibleWidget::child(index);
  const auto place = static_cast<std::size_t>(index - widgets);
  const std::size_t count = Elements().size();
  if (place < count) return Of(elements_[place]);
  if (!HasCursor() || place > count + 1) return nullptr;
  return Cursor(place == count ? CursorAxis::X : CursorAxis::Y);
}

int CanvasAccessible::indexOfChild(const QAccessibleInterface* child) const {
  const int widgets = QAccessibleWidget::childCount();
  if (const auto* element = dynamic_cast<const ElementAccessible*>(child)) {
    const auto place = std::ranges::lower_bound(Elements(), element->What());
    if (place == elements_.end() || *place != element->What()) return -1;
    return widgets + static_cast<int>(place - elements_.begin());
  }
  if (const auto* cursor = dynamic_cast<const CursorAccessible*>(child)) {
    if (!HasCursor()) return -1;
    return widgets + static_cast<int>(Elements().size()) + (cursor->Axis() == CursorAxis::X ? 0 : 1);
  }
  return QAccessibleWidget::indexOfChild(child);
}

QAccessibleInterface* CanvasAccessible::childAt(int x, int y) const {
  if (QAccessibleInterface* widget = QAccessibleWidget::childAt(x, y)) return widget;
  const QPoint at = canvas_.mapFromGlobal(QPoint(x, y));
  if (!canvas_.rect().contains(at)) return nullptr;
  const auto element =
      ElementAt(canvas_.Shown(), canvas_.Document(), static_cast<float>(at.x()), static_cast<float>(at.y()));
  return element ? Of(*element) : nullptr;
}

QAccessibleInterface* CanvasAccessible::focusChild() const {
  if (canvas_.hasFocus() && canvas_.FocusElement()) return Of(*canvas_.FocusElement());
  return QAccessibleWidget::focusChild();
}

QStringList CanvasAccessible::actionNames() const {
  QStringList names = QAccessibleWidget::actionNames();
  if (HasCursor()) names.prepend(pressAction());
  return names;
}

QString CanvasAccessible::localizedActionDescription(const QString& name) const {
  if (name == pressAction()) return QStringLiteral("Presses at the cursor, or releases what was pressed");
  return QAccessibleWidget::localizedActionDescription(name);
}

void CanvasAccessible::doAction(const QString& name) {
  if (name != pressAction()) {
    QAccessibleWidget::doAction(name);
  } else if (HasCursor()) {
    canvas_.PressLater({});
  }
}

void CanvasAccessible::TellChanges() {
  const std::vector<Element> before = elements_;
  const bool wasAsked = generation_ >= 0;
  if (Elements() != before && wasAsked) TellDifference(before);
  for (const auto& [element, id] : made_) {
    auto* known = dynamic_cast<ElementAccessible*>(QAccessible::accessibleInterface(id));
    if (known != nullptr && known->isValid() && known->IsRenamed()) Send(known, QAccessible::NameChanged);
  }
}

void CanvasAccessible::TellDifference(const std::vector<Element>& before) {
  std::vector<Element> come, gone;
  std::ranges::set_difference(elements_, before, std::back_inserter(come));
  std::ranges::set_difference(before, elements_, std::back_inserter(gone));
  if (come.size() + gone.size() <= MostToldOneByOne) {
    for (const Element& element : gone) {
      if (made_.contains(element)) Send(Of(element), QAccessible::ObjectHide);
    }
    for (const Element& element : come) Send(Of(element), QAccessible::ObjectCreated);
  }
  Send(this, QAccessible::ObjectReorder);
}

void CanvasAccessible::TellCursor() {
  if (!HasCursor()) return;
  for (const CursorAxis axis : {CursorAxis::X, CursorAxis::Y}) {
    QAccessibleInterface* cursor = Cursor(axis);
    QAccessibleValueChangeEvent event(cursor, cursor->valueInterface()->currentValue());
    TellListeners(event);
  }
}
