// A drag is taken out of its place before it ends: redrawing and messages may bring new events, for which no
// drag goes on any more.
#include "editing/MouseEditing.h"

#include <utility>

#include "editing/Erasing.h"
#include "editing/ForceDrawing.h"
#include "editing/HandleDragging.h"
#include "editing/MemberDrawing.h"
#include "editing/SupportPlacing.h"
#include "editing/Supports.h"
#include "text/NumberText.h"

namespace {

bool ActsByClick(Tool tool) {
  return tool == Tool::Clamp || tool == Tool::Roller || tool == Tool::ReOrientation || tool == Tool::Erase;
}

}  // namespace

// --- from mouse and keyboard

void MouseEditing::MouseDown(MouseButton button, float x, float y) {
  if (IsDragging()) {
    // A done drag only waits for a release, which was lost when the left button comes again.
    if (button == MouseButton::Left && !heldByKey_ && drag_->IsDone()) {
      drag_.reset();
    } else {
      Cancel();
      return;
    }
  }
  if (button == MouseButton::Left) Press({x, y});
}

void MouseEditing::MouseDoubleClick(MouseButton button, float x, float y) {
  // Every press goes to the drag; but a drag that is done only waits for a release, which was lost.
  const bool isDragEnded = !IsDragging() || (drag_->IsDone() && !heldByKey_);
  if (button == MouseButton::Left && isDragEnded && ActsByClick(on_.Tools.Selected())) return;
  MouseDown(button, x, y);
}

void MouseEditing::MouseMove(bool leftHeld, float x, float y) {
  if (IsDragging() && !heldByKey_) {
    if (leftHeld) {
      DragTo({x, y});
    } else if (drag_->IsDone()) {
      drag_.reset();
    } else {
      Cancel();
    }
  }
  ShowReadOut({x, y});
  UpdatePointer({x, y});
}

void MouseEditing::MouseUp(MouseButton button, float x, float y) {
  if (button == MouseButton::Left && !heldByKey_) Release({x, y});
}

void MouseEditing::KeyDown(float x, float y) {
  if (AwaitsRelease()) return;
  drag_.reset();
  Press({x, y});
  heldByKey_ = IsDragging();
}

void MouseEditing::KeyMove(float x, float y) {
  if (heldByKey_) DragTo({x, y});
  ShowReadOut({x, y});
  UpdatePointer({x, y});
}

void MouseEditing::KeyUp(float x, float y) {
  if (heldByKey_) Release({x, y});
}

// --- presses, drags, releases

std::optional<SnappedPoint> MouseEditing::LocationOf(PixelPoint mouse) const {
  return OKLocation(on_.Document, on_.Picture, drag_ ? drag_->SelfObject() : 0, mouse.X, mouse.Y);
}

void MouseEditing::Press(PixelPoint mouse) {
  if (LocationOf(mouse)) {
    const int support =
        ActsOnSupports(on_.Tools.Selected()) ? SupportAt(on_.Document, on_.Picture, mouse.X, mouse.Y) : 0;
    if (support != 0) {
      drag_ = SupportPressed(on_, support, mouse);
    } else if (auto grabbed = GrabHandle(on_, selection_, mouse)) {
      drag_ = std::move(grabbed);
    } else {
      PressOnCanvas(mouse);
    }
  }
  ShowReadOut(mouse);
  UpdatePointer(mouse);
}

void MouseEditing::PressOnCanvas(PixelPoint mouse) {
  const bool wasShown = IsSelectionShown(on_.Picture) || IsPanelOpen(on_.Picture);
  Deselect(on_.Picture);
  if (wasShown) on_.ShowDrawing();
  const auto point = LocationOf(mouse);
  if (!point) return;
  switch (on_.Tools.Selected()) {
    case Tool::TrussMember:
      drag_ = BeginMember(on_, *point);
      break;
    case Tool::Clamp:
      drag_ = PlaceSupport(on_, NewClampType, *point);
      break;
    case Tool::Roller:
      drag_ = PlaceSupport(on_, NewRollerType, *point);
      break;
    case Tool::Force:
      drag_ = BeginForce(on_, *point);
      break;
    case Tool::NumericalValue:
      Pick(mouse);
      OpenEditor();
      break;
    case Tool::Move:
      Pick(mouse);
      break;
    case Tool::Erase:
      EraseObject(on_, ObjectAt(on_.Document, on_.Picture, mouse.X, mouse.Y));
      break;
    case Tool::ReOrientation:
    case Tool::None:
      break;
  }
}

void MouseEditing::Pick(PixelPoint mouse) {
  selection_ = IdentifyObject(on_.Document, on_.Picture, mouse.X, mouse.Y);
  if (selection_.Type != ObjectType::None) on_.ShowDrawing();
}

void MouseEditing::OpenEditor() {
  if (selection_.Type == ObjectType::None) return;
  if (selection_.Type == ObjectType::Member) {
    on_.ValueEditor.OpenForMember(selection_.Index, selection_.T);
  } else {
    on_.ValueEditor.OpenForForce(selection_.Index);
  }
  on_.ShowDrawing();
}

bool MouseEditing::CanDropAt(PixelPoint mouse) const {
  return !on_.IsOnCanvas || on_.IsOnCanvas(mouse.X, mouse.Y);
}

void MouseEditing::DragTo(PixelPoint mouse) {
  const auto point = LocationOf(mouse);
  if (!point) return;
  if (CanDropAt(mouse)) {
    drag_->Move(*point, mouse);
  } else {
    drag_->MoveBeside(*point, mouse);
  }
}

void MouseEditing::Release(PixelPoint mouse) {
  if (!IsDragging()) return;
  const auto point = LocationOf(mouse);
  const auto drag = std::exchange(drag_, nullptr);
  heldByKey_ = false;
  if (point && CanDropAt(mouse)) {
    drag->Release(*point, mouse);
  } else {
    drag->Cancel();
  }
  ShowReadOut(mouse);
  UpdatePointer(mouse);
}

void MouseEditing::Cancel() {
  if (!IsDragging()) return;
  const auto drag = std::exchange(drag_, nullptr);
  heldByKey_ = false;
  drag->Cancel();
  UpdatePointer(latest_);
}

void MouseEditing::SelectTool(int tool) {
  Cancel();
  on_.Tools.Select(tool);
  selection_ = {};
  Deselect(on_.Picture);
  on_.ShowDrawing();
  UpdatePointer(latest_);
}

// --- what is shown

int MouseEditing::HandleUnder(PixelPoint mouse) const { return HandleAt(on_, selection_, mouse); }

Selection MouseEditing::Selected() const {
  return IsSelectionShown(on_.Picture) && IsLive(on_.Document, selection_) ? selection_ : Selection{};
}

void MouseEditing::ShowReadOut(PixelPoint mouse) {
  const auto point = LocationOf(mouse);
  if (!point) return;
  const std::string& separator = on_.Numbers.DecimalSeparator;
  readOut_ = " (" + FixedText(point->X, 2, separator) + ", " + FixedText(point->Y, 2, separator) + ") ";
}

void MouseEditing::UpdatePointer(PixelPoint mouse) {
  latest_ = mouse;
  pointer_ = PointerAt(mouse);
}

PointerShape MouseEditing::PointerAt(PixelPoint mouse) const {
  const Tool tool = on_.Tools.Selected();
  if (drag_ && drag_->IsMoving()) return PointerShape::FourWay;
  if (IsDrawingTool(tool)) return PointerShape::Cross;
  const bool onSupport = ActsOnSupports(tool) && SupportAt(on_.Document, on_.Picture, mouse.X, mouse.Y) != 0;
  const bool onLine =
      ActsOnLines(tool) && (ObjectAt(on_.Document, on_.Picture, mouse.X, mouse.Y).Type != ObjectType::None ||
                            HandleUnder(mouse) != 0);
  return onSupport || onLine ? PointerShape::PointingHand : PointerShape::Default;
}
