// The truss drawn with a motion or a state of self-stress, as plain data, and its painting: the window,
// picture files and documents show the same drawing.
#pragma once

#include <vector>

#include "canvas/Drawing.h"
#include "explanation/Motions.h"
#include "explanation/StressMarks.h"
#include "explanation/TrussGraph.h"
#include "platform/Picture.h"
#include "platform/TextMeasure.h"

/// What is drawn: a motion, or a state of self-stress, or neither. All of it must outlive the call.
struct MotionScene {
  const Truss& Document;  ///< with its joint list up to date
  const TrussGraph& Graph;
  const Motion* Moves = nullptr;
  const SelfStress* Stressed = nullptr;
  ReportFormat Format{};       ///< of the proportions of a self-stress
  bool NamesOfForces = false;  ///< with the names and arrows of members and reactions
};

/// Pixels. Arrows of a motion say where a joint goes, and by how much against the others.
inline constexpr float ShortestMotionArrow = 10;
inline constexpr float MotionHeadLength = 10;
inline constexpr int MotionBandWidth = 8;  ///< under members that move

/// More names would cover everything.
inline constexpr int MostNamedJoints = 150;

struct MotionDrawing {
  Truss Shown;      ///< the truss, swung
  Drawing Objects;  ///< its drawing

  std::vector<PixelLine> AtRest;  ///< where the members that move stand before
  std::vector<PixelLine> Moved;   ///< and where they are drawn

  /// One for each joint that moves, from its place at rest, in the order of the motion. The longest is three
  /// times the largest swing, so that its head is clear of the joint.
  std::vector<PixelLine> Arrows;

  std::vector<StressMark> Marks;

  std::vector<PixelLine> Leaders;  ///< from names that stand away from their joints to these
};

/// The drawing in a room of this size (pixels), as large as it can be with some air around it; it stands
/// still when `swing` (-1 .. 1) changes. Joints have their names, unless they are more than MostNamedJoints.
MotionDrawing DrawMotion(const MotionScene& scene, const PixelRect& room, double swing,
                         const TextMeasure& measure);

/// Paints the drawing over what the surface holds: first the members at rest, thin and grey, and the marks;
/// then the truss; arrows and texts in front. Leaves a black foreground, a line width of 1 and the font
/// TextFont{}.
void PaintMotion(Surface& surface, const MotionDrawing& drawing);

/// The still picture for files and documents: at its largest swing, with arrows, cropped, no larger than
/// `largest` (pixels of 96 to the inch) unless names or supports alone are. Empty when there is nothing to
/// draw.
Picture MotionPicture(const MotionScene& scene, const TextMeasure& measure,
                      const TextExtent& largest = {.Width = 640, .Height = 340});
