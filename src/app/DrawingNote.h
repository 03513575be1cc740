// What the status bar says of the drawing as it stands, after every redraw.
#pragma once

#include <string>

struct DrawingState {
  bool JointsAreNumbered = true;
  bool TrussIsOutside = false;   ///< a part of the truss lies where it cannot be seen
  bool TicksAreLeftOut = false;  ///< of the rulers, because they are too close
};

/// Sentences with the remedy for each, all with a blank before and after them; empty when there is nothing to
/// say.
std::string DrawingNote(const DrawingState& state);
