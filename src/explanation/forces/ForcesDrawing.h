// The truss with its forces as plain data: how each member, load and reaction is drawn and where the numbers
// stand. The window, picture files and documents show the same drawing.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "canvas/Paper.h"
#include "explanation/forces/TrussForces.h"
#include "platform/Picture.h"
#include "platform/TextMeasure.h"

/// What is drawn; both must outlive the call.
struct ForcesScene {
  const Truss& Document;
  const TrussForces& Forces;  ///< of that truss
  float Points = 8;           ///< the size of the letters
};

// All coordinates are pixels, y downward.

struct DrawnMember {
  int Unknown = 0;
  ForceSense Sense{};
  PixelLine Line;
  int Width = 0;  ///< of all strokes together; the larger the force the wider
};

enum class ArrowOf { Load, Reaction };
struct DrawnForce {
  ArrowOf What{};
  int Number = 0;  ///< from 1: of a load among the loads, of a reaction among the unknowns
  ForceSense Sense{};
  PixelLine Line;  ///< to the tip; without a tip when zero or undetermined
};

enum class LabelOf { Joint, Load, Reaction, Member };
struct ForceLabel {
  LabelOf What{};
  int Number = 0;  ///< of a joint, else as above
  std::vector<std::string> Lines;
  TextFont Font;                    ///< of the first line; others are not bold
  PixelRect Box;                    ///< around the lines
  std::optional<PixelLine> Leader;  ///< from the box to what it is about, when it stands away from that
};

struct DrawnSupport {
  std::int16_t Type = 0;
  PixelPoint Centre;
};

struct ForcesDrawing {
  PixelRect Area;  ///< the room, larger by the zoom
  std::vector<DrawnMember> Members;
  std::vector<PixelPoint> Pins;  ///< none where members are so short that pins would hide them
  std::vector<DrawnSupport> Supports;
  std::vector<DrawnForce> Arrows;
  std::vector<ForceLabel> Labels;
  int NumLeftOut = 0;  ///< texts for which there is no room at this size
};

/// Draws into a room of this size (pixels), `zoom` times as large as fits, around the room's middle. Texts
/// and arrows keep their size, so that more texts have room the larger the drawing is. A text never covers
/// another one, nor a member, a joint, a support, an arrow or a leader.
ForcesDrawing DrawForces(const ForcesScene& scene, const PixelRect& room, double zoom,
                         const TextMeasure& measure);

/// The largest zoom that is of use: the shortest member can then be seen well.
double LargestZoom(const TrussForces& forces, const PixelRect& room);

/// The unknown whose member, arrow or label is at a point, or nearest to it within `reach` pixels; 0: none.
int UnknownAt(const ForcesDrawing& drawing, PixelPoint point, float reach);

/// Where an unknown is drawn: the box around its member or arrow; nothing for one that is not drawn.
std::optional<PixelRect> PlaceOf(const ForcesDrawing& drawing, const TrussForces& forces, int unknown);
