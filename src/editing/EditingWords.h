// What drawing by keys does, in words, for those who cannot see it: where the cursor stands and what it would
// snap to, and what has been made, erased or changed. Single-byte texts.
#pragma once

#include <string>

#include "document/ElementWords.h"
#include "editing/MouseEditing.h"

/// "(3, 4), joint A"; "(3.5, 4), grid point"; beginning with "snaps to" where that is not the cursor's own
/// place; and with a tool that acts on what is there ", on member AB from (0, 0) to (3, 4)", or where an end
/// or head can be taken hold of ", on the end (3, 4) of member AB from (0, 0) to (3, 4)". `cursor` is in
/// pixels. Empty where a press does nothing.
std::string CursorInWords(const Truss& truss, const Drawing& drawing, const MouseEditing& editing, Tool tool,
                          PixelPoint cursor, const std::string& separator);

/// Compares the truss with itself as it was.
class ChangesInWords {
 public:
  /// Remembers the truss as it is now; while something is being drawn it must not be asked.
  explicit ChangesInWords(const Truss& before) : before_(before) {}

  /// "made member from (0, 0) to (3, 0)", "erased force at (3, 4), 0 right, 1000 down", "now roller at (4,
  /// 0), force B, pushes left"; of more than three the first ones "and 4 more changes". Empty when nothing is
  /// different.
  std::string Since(const Truss& now, const std::string& separator) const;

 private:
  Truss before_;
};

/// What a press at the cursor (pixels) has done since: "from (3, 4), joint A" when something is being drawn
/// from there, "moving the end (3, 0) of member AB from (0, 0) to (3, 0)", what has changed, "picked member
/// AB from (0, 0) to (3, 0)", with the Move tool and what of it can be moved, or "nothing changed".
std::string PressInWords(const ChangesInWords& before, const Truss& truss, const Drawing& drawing,
                         const MouseEditing& editing, Tool tool, PixelPoint cursor,
                         const std::string& separator);
