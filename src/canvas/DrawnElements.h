// The elements of the truss as they are to be seen on the canvas: which there are, where, and which one is at
// a place. For those who are told of the drawing instead of seeing it.
#pragma once

#include <optional>
#include <vector>

#include "canvas/Drawing.h"
#include "document/ElementWords.h"
#include "platform/Picture.h"

/// Whether an element is to be seen: it is live, or a joint or a visible name, and the mapping has a range.
/// Any index may be asked for.
bool IsShown(const Drawing& drawing, const Truss& truss, const Element& element);

/// All that are to be seen, ascending. A member or force that is still being drawn has no pins and is none of
/// them.
std::vector<Element> ShownElements(const Drawing& drawing, const Truss& truss);

/// Pixels; nothing for what is not to be seen. Lines are taken as wide as pins. A place far outside the
/// canvas comes back as one at the edge of the paper.
std::optional<PixelRect> BoxOf(const Drawing& drawing, const Truss& truss, const Element& element);

/// The element in front at a pixel: a name, or else a joint, a support, a force, a member.
std::optional<Element> ElementAt(const Drawing& drawing, const Truss& truss, float x, float y);
