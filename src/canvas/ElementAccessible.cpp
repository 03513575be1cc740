#include "canvas/ElementAccessible.h"

#include <QAccessible>

#include "canvas/DrawnElements.h"
#include "platform/qt/QtText.h"

bool ElementAccessible::isValid() const {
  return canvas_ && IsShown(canvas_->Shown(), canvas_->Document(), element_);
}

QString ElementAccessible::Name() const {
  return OneLineText(ToQt(InWords(canvas_->Document(), element_, canvas_->Separator())));
}

QString ElementAccessible::text(QAccessible::Text text) const {
  if (!isValid()) return {};
  if (text == QAccessible::Name) return Name();
  if (text != QAccessible::Description) return {};
  std::string known = canvas_->Access() != nullptr ? canvas_->Access()->Tell(element_) : std::string();
  const std::string more = MoreInWords(canvas_->Document(), element_);
  if (!known.empty() && !more.empty()) known += "; ";
  return OneLineText(ToQt(known + more));
}

// The part of it that lies on the canvas; an element that lies beside it keeps its own place.
QRect ElementAccessible::rect() const {
  if (!isValid()) return {};
  const PixelRect box = *BoxOf(canvas_->Shown(), canvas_->Document(), element_);
  const QRect whole =
      QRectF(double{box.Left}, double{box.Top}, double{box.Width()}, double{box.Height()}).toAlignedRect();
  const QRect seen = whole.intersected(canvas_->rect());
  const QRect place = seen.isEmpty() ? whole : seen;
  return {canvas_->mapToGlobal(place.topLeft()), place.size()};
}

bool ElementAccessible::CanPress() const {
  return isValid() && canvas_->isEnabled() && canvas_->Access() != nullptr &&
         canvas_->Access()->CanPress(element_);
}

QAccessible::Role ElementAccessible::role() const {
  if (element_.Kind != ElementKind::Label) return QAccessible::Graphic;
  return CanPress() ? QAccessible::Button : QAccessible::StaticText;
}

QAccessible::State ElementAccessible::state() const {
  QAccessible::State state = LeafAccessible::state();
  if (state.invalid) return state;
  state.focusable = canvas_->isEnabled();
  state.focused = canvas_->hasFocus() && canvas_->FocusElement() == element_;
  state.offscreen = !canvas_->rect().intersects(rect().translated(-canvas_->mapToGlobal(QPoint(0, 0))));
  return state;
}

void* ElementAccessible::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
  return nullptr;
}

QStringList ElementAccessible::actionNames() const {
  QStringList names;
  if (CanPress()) names.append(pressAction());
  if (isValid() && canvas_->isEnabled()) names.append(setFocusAction());
  return names;
}

void ElementAccessible::doAction(const QString& name) {
  if (!isValid() || !canvas_->isEnabled()) return;
  if (name == setFocusAction()) canvas_->FocusOn(element_);
  if (name == pressAction() && CanPress()) canvas_->PressLater(element_);
}

bool ElementAccessible::IsRenamed() {
  // What a name is the name of is looked for in the whole truss; that it is another name can be seen at once.
  const std::string now = element_.Kind == ElementKind::Label
                              ? canvas_->Document().Name(static_cast<LabelIndex>(element_.Index)).String()
                              : InWords(canvas_->Document(), element_, canvas_->Separator());
  const bool renamed = !told_.empty() && told_ != now;
  told_ = now;
  return renamed;
}
