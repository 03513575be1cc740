// Everything that stands on the canvas and lasts from one redraw to the next, as plain data, indexed like the
// truss's tables: lines, pins, pictures, arrows, label places, handles. What the truss says itself (captions,
// support types, what is erased) is asked of the truss. All coordinates are pixels, y downward.
#pragma once

#include <cstdint>

#include "canvas/Graph.h"
#include "canvas/Paper.h"
#include "document/Truss.h"

/// A support's picture is a square of this side, centred on the supported point.
inline constexpr float SupportPictureSize = 32;

/// A pin mark is a circle of this width, centred on the member's end.
inline constexpr float PinSize = 6;

/// The handle at the end that a move changes, and the one at the other end: squares of these sides.
inline constexpr float MoveHandleBSize = 8;
inline constexpr float MoveHandleSSize = 6;

struct LabelPlace {
  float Left = 0, Top = 0, Width = 0, Height = 0;
  float TextLeft = 0, TextTop = 0;  ///< where the letters begin, from Left and Top
  bool Visible = false;
  std::int64_t Rank = 0;  ///< a label of higher rank stands in front; 0: never placed, so not shown
};

struct ArrowSegment {
  PixelLine Line;
  bool Visible = false;
};

struct MoveHandle {
  float Left = 0, Top = 0;
  bool Visible = false;
};

/// The value editor's panel that is open on the canvas, at most one at a time.
enum class ValuePanel { None, Member, Force };

struct Drawing {
  Graph Mapping;                  ///< of the latest redraw
  Table<PixelLine> Rod;           ///< a member from end 1 to end 2; shown while the member lives
  Table<PixelPoint> Pin1, Pin2;   ///< left and top; a member that is still being drawn has none yet
  Table<PixelPoint> Support;      ///< left and top of the picture; shown while the support lives
  Table<PixelLine> Force;         ///< a force's arrow from tail to head; shown while the force is active
  Table<LabelPlace> lblRodJoint;  ///< 1 .. NumLabels
  Table<ArrowSegment> ArLin;      ///< 1 .. NumArrowLines, four to an arrow: shaft, two head sides, head base
  MoveHandle MoveHandleB, MoveHandleS;
  ValuePanel OpenPanel = ValuePanel::None;
  bool SupportsEnabled = true;  ///< whether support pictures answer the mouse
  bool LabelsShown = false;     ///< whether the step is one in which names and arrows are shown
  std::int64_t FrontRank = 0;   ///< the highest rank given to a label so far
};

/// Makes the indexed tables as long as the truss's counters say; new objects are hidden.
void FitTables(Drawing& drawing, const Truss& truss);

/// A member, a support or a force is drawn while it lives and the mapping has a range to draw it in.
bool IsRodShown(const Drawing& drawing, const Truss& truss, int member);
bool HasPins(const Drawing& drawing, int member);
bool IsSupportShown(const Drawing& drawing, const Truss& truss, int support);
bool IsForceShown(const Drawing& drawing, const Truss& truss, int force);

void BringLabelToFront(Drawing& drawing, LabelIndex label);

/// Shows the placed names and arrows of all live elements, except what is tagged as deleted, and hides all
/// others. Redraws keep it so until HideLabels.
void ShowLabels(Drawing& drawing, const Truss& truss);
void HideLabels(Drawing& drawing);

/// The topmost visible label that covers a pixel; 0 when there is none. A label covers its left and top edge,
/// not its right and bottom one.
LabelIndex LabelAt(const Drawing& drawing, float x, float y);

/// How many of the visible labels have their middle outside a part of the canvas, edges included in it.
int NumLabelsOutside(const Drawing& drawing, PixelPoint topLeft, PixelPoint bottomRight);

/// Whether an end of a live member or force, or the point of a live support, lies outside a part of the
/// canvas, edges included in it.
bool IsTrussOutside(const Drawing& drawing, const Truss& truss, PixelPoint topLeft, PixelPoint bottomRight);

/// Whether a panel of the value editor stands on the canvas.
inline bool IsPanelOpen(const Drawing& drawing) { return drawing.OpenPanel != ValuePanel::None; }

/// Nothing is selected any more: hides the value panel and both handles; supports answer the mouse again.
void Deselect(Drawing& drawing);
