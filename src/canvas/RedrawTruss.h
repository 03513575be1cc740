// Deriving the whole drawing from the truss and painting what lies behind its lasting objects. The same steps
// serve pictures on other surfaces, with a drawing and a mapping of their own.
#pragma once

#include "canvas/Drawing.h"
#include "platform/MessageBox.h"
#include "platform/NumberFormat.h"
#include "platform/Surface.h"
#include "platform/TextMeasure.h"

/// What a redraw needs to know about where it draws.
struct CanvasContext {
  CanvasBounds Bounds;
  NumberFormat Numbers;  ///< of the user's locale, for the rulers
  TextMeasure Measure;   ///< for the labels
};

/// Clears the surface, paints rulers, grid and force arrows, stores the arrows' ends in the force records,
/// places all objects and labels of the drawing, closes the value panel, hides the move handles and brings
/// the joint list up to date. Elements that are erased keep what they had, so that a label that a new element
/// took over stays with the new one. Returns false when CheckJoints refuses: everything is drawn, with the
/// joint list as it was.
[[nodiscard]] bool RedrawTruss(Truss& truss, Drawing& drawing, Surface& surface, const CanvasContext& context,
                               MessageBox& messages);

/// The part of a redraw that every picture of the truss shares, by the drawing's mapping: places all objects,
/// the force arrows and the labels of live elements.
void PlaceElements(Drawing& drawing, const Truss& truss, const TextMeasure& measure);

/// Places support pictures, member lines, pins and force arrows by the drawing's mapping.
void PlaceObjects(Drawing& drawing, const Truss& truss);
