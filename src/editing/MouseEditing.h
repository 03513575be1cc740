// The mouse on the canvas in Step 1: the three handlers carry each event to the behaviour of the selected
// tool, or to the support under the mouse. After every event this object and the drawing say all that a
// window has to show.
#pragma once

#include <memory>
#include <string>

#include "editing/Drag.h"
#include "editing/EditingContext.h"

enum class MouseButton { Left, Other };

/// What the mouse pointer looks like: a cross where something can be drawn, a pointing hand over what the
/// tool can act on, four arrows while something is moved.
enum class PointerShape { Default, Cross, PointingHand, FourWay };

class MouseEditing {
 public:
  explicit MouseEditing(EditingContext context) : on_(std::move(context)) {}
  MouseEditing(const MouseEditing&) = delete;
  MouseEditing& operator=(const MouseEditing&) = delete;

  // Pixels on the canvas; a drag may go beyond it. Where the mapping has no range nothing happens.

  /// A second button in a drag cancels it; otherwise only the left button does anything.
  void MouseDown(MouseButton button, float x, float y);

  /// The press that makes two clicks a double one; it comes here instead of to MouseDown. Tools that have
  /// done all they do with the first click (Clamp, Roller, Re-orientation, Erase) ignore it.
  void MouseDoubleClick(MouseButton button, float x, float y);

  /// `leftHeld` false in a drag means that its release was lost: the drag is cancelled.
  void MouseMove(bool leftHeld, float x, float y);

  /// Only what is released on the canvas is dropped there; anywhere else the drag is cancelled.
  void MouseUp(MouseButton button, float x, float y);

  // The same from the keyboard: while it holds a drag, the mouse only reads coordinates, and pressing any of
  // its buttons cancels the drag.
  void KeyDown(float x, float y);
  void KeyMove(float x, float y);
  void KeyUp(float x, float y);

  /// Abandons a drag: the truss is as before the press and nothing of the drag is left on the drawing. For
  /// Escape, a lost focus, and before a resize or any command of the window. Without a drag nothing happens.
  void Cancel();

  /// Tool 1 .. 8 is clicked: cancels a drag, closes the value editor, hides the handles and enables the
  /// supports.
  void SelectTool(int tool);

  bool IsDragging() const { return drag_ != nullptr; }

  /// Whether a release is still to come that changes something.
  bool AwaitsRelease() const { return drag_ && !drag_->IsDone(); }

  /// 0 none; 1 and 2: that end of the selected member is dragged; 3: the head of the selected force.
  int ActionCode() const { return drag_ ? drag_->ActionCode() : 0; }

  /// Where a press or a release at a pixel would land; nothing where it does nothing.
  std::optional<SnappedPoint> LocationOf(PixelPoint mouse) const;

  /// The handle that a press there would grab, as an action code; 0 none.
  int HandleUnder(PixelPoint mouse) const;

  /// What the handles mark; none while they are hidden.
  Selection Selected() const;

  PointerShape Pointer() const { return pointer_; }

  /// Where a click would land: " (1.50, 2.00) ", with the locale's separator. Empty before the first move.
  const std::string& ReadOut() const { return readOut_; }

 private:
  void Press(PixelPoint mouse);
  void PressOnCanvas(PixelPoint mouse);
  void DragTo(PixelPoint mouse);
  void Release(PixelPoint mouse);
  void Pick(PixelPoint mouse);
  void OpenEditor();
  void ShowReadOut(PixelPoint mouse);
  void UpdatePointer(PixelPoint mouse);
  PointerShape PointerAt(PixelPoint mouse) const;
  bool CanDropAt(PixelPoint mouse) const;

  EditingContext on_;
  Selection selection_;
  std::unique_ptr<Drag> drag_;
  bool heldByKey_ = false;
  PointerShape pointer_ = PointerShape::Default;
  PixelPoint latest_;
  std::string readOut_;
};
