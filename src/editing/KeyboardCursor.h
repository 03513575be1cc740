// The keyboard's place on the canvas, so that every tool can be used without a mouse: arrow keys move it,
// Space or Enter presses and releases there, digits choose tools.
#pragma once

#include "editing/MouseEditing.h"

enum class ArrowKey { Left, Right, Up, Down };

class KeyboardCursor {
 public:
  /// All must outlive the cursor.
  KeyboardCursor(MouseEditing& editing, const Truss& truss, const Drawing& drawing)
      : editing_(editing), truss_(truss), drawing_(drawing) {}

  /// To the next grid line that way, or one pixel on with `onePixel`, and not beyond the drawing area. The
  /// first key after Hide shows the cursor and moves it from the grid point nearest to where it was last.
  void Move(ArrowKey key, bool onePixel);

  /// To a place in pixels, or where the drawing area ends; what is not a number leaves it.
  void MoveTo(PixelPoint place);

  /// Presses; or releases what was pressed. Where a press alone does all, it is released at once.
  void PressOrRelease();

  /// Digits 1 to 8 choose that tool; others do nothing. Returns whether it was one of them.
  bool ChooseTool(int digit);

  void Escape() { editing_.Cancel(); }

  /// The mouse took over: the cursor goes there (pixels) and is not shown until the next key.
  void FollowMouse(float x, float y);
  void Hide() { visible_ = false; }

  bool IsVisible() const { return visible_; }

  /// Pixels; before it is shown, where it would come up.
  PixelPoint Position() const;

 private:
  void Show();
  PixelPoint KeptInside(PixelPoint place) const;

  MouseEditing& editing_;
  const Truss& truss_;
  const Drawing& drawing_;
  PixelPoint position_;
  bool placed_ = false;
  bool visible_ = false;
};
