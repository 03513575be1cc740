#include "app/DrawingNote.h"

#include "document/JointList.h"

std::string DrawingNote(const DrawingState& state) {
  std::string note;
  if (!state.JointsAreNumbered) note.append(" ").append(TooManyJointsText).append(" ");
  if (state.TrussIsOutside) {
    note +=
        " A part of the truss lies outside the drawing; Settings can widen it, and a larger maximum x "
        "makes it higher too. ";
  }
  if (state.TicksAreLeftOut) {
    note += " The hatch marks are too close to be drawn; Settings can space them wider. ";
  }
  return note;
}
