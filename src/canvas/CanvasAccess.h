// What can be told of the drawing's elements, and done to them, beyond what the drawing itself says: by the
// step that the program is in. Who is told of the drawing instead of seeing it, and acts without a mouse,
// comes here.
#pragma once

#include <string>

#include "document/ElementWords.h"

class CanvasAccess {
 public:
  virtual ~CanvasAccess() = default;

  /// The decimal separator of the user's locale.
  virtual std::string Separator() const = 0;

  /// What there is to say of the whole drawing now. A single-byte text.
  virtual std::string TellAll() const = 0;

  /// What is known of an element besides its name and place, e.g. its force; empty when nothing is. A
  /// single-byte text.
  virtual std::string Tell(const Element& element) const = 0;

  /// Whether a click on the element does something now.
  virtual bool CanPress(const Element& element) const = 0;

  /// What a click on it does; nothing where none does anything.
  virtual void Press(const Element& element) = 0;

  /// Whether there is a cursor to draw with.
  virtual bool HasCursor() const = 0;

  /// Where a press at the cursor would land (world coordinates).
  struct Place {
    float X = 0, Y = 0;
  };
  virtual Place Cursor() const = 0;

  /// The cursor goes to a place, as far as the drawing area reaches; what is not a number leaves it.
  virtual void MoveCursor(Place place) = 0;

  /// Presses at the cursor, or releases what was pressed.
  virtual void PressAtCursor() = 0;

  /// The element has got the keys: the cursor goes where a click would act on it.
  virtual void CursorTo(const Element& element) = 0;
};
