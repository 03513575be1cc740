// The sizes of the applied forces, printed at the heads of their arrows in pictures of the truss.
#pragma once

#include <string>

#include "analysis/FormatSigFigs.h"
#include "canvas/Drawing.h"
#include "platform/Surface.h"

/// Dark red: the colour of the arrows, as far as it can be read in small letters on white.
inline constexpr int ForceValueColour = 4;

/// The text of a load, as in the drawing of the forces (LoadText).
std::string ForceValueText(const ForceRec& force, const ReportFormat& format);

/// Prints the value of each force whose arrow is drawn, over what the surface holds, in the font TextFont{}:
/// beyond the arrow's tip or, where that would cover a name, a support, a member or another value, beside the
/// arrow if there is more room. By the drawing's mapping. Leaves a black foreground and the font TextFont{}.
void PrintForceValues(Surface& surface, const Drawing& drawing, const Truss& truss,
                      const ReportFormat& format);
