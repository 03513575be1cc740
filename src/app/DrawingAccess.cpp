#include "app/DrawingAccess.h"

// Who draws with the cursor wants to know where it stands.
std::string DrawingAccess::TellAll() const {
  const std::string cursor = on_.Tools.CursorWords();
  return cursor.empty() ? AllInWords(on_.Document) : cursor;
}

std::string DrawingAccess::Tell(const Element& element) const {
  if (on_.Step.Current() != 3 || !on_.Step.Analysis()) return {};
  if (told_ != on_.Step.Analysis()) {
    told_ = on_.Step.Analysis();
    forces_ = std::make_unique<ForceWords>(
        on_.Document, *told_, ReportFormat{.SigFigs = on_.Document.Settings.SigFigs, .Numbers = on_.Numbers});
  }
  return forces_->Of(element);
}

// In Step 3 only the names of joints lead somewhere: to the joint's equations.
bool DrawingAccess::CanPress(const Element& element) const {
  if (on_.Step.Current() == 1) return on_.Tools.CanPress(element);
  if (element.Kind != ElementKind::Label) return false;
  return on_.Step.Current() == 2 ||
         JointWithLabel(on_.Step.Analysis()->Counted, static_cast<LabelIndex>(element.Index)) != nullptr;
}

void DrawingAccess::Press(const Element& element) {
  if (!CanPress(element)) return;
  if (on_.Step.Current() == 1) {
    on_.Tools.Press(element);
  } else {
    on_.OpenLabel(static_cast<LabelIndex>(element.Index));
  }
}
