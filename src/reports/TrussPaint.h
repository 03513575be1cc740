// The truss as a picture of its own, cropped to what is drawn: for the printable report and for picture
// files. It is drawn by the canvas's own routines.
#pragma once

#include "analysis/FormatSigFigs.h"
#include "canvas/Graph.h"
#include "document/Truss.h"
#include "paper/Page.h"
#include "platform/Picture.h"
#include "platform/TextMeasure.h"

/// What a picture shows beside members, pins, supports and force arrows.
struct PictureContent {
  bool ForceValues = true;  ///< the size of each applied force, at the head of its arrow
  bool Names = false;       ///< the names of forces and joints with their arrows
};

/// The width of a page's text, to which pictures are drawn, pixels of 96 to the inch.
inline constexpr float PictureWidth = float{PagePictureWidth};

/// No picture is drawn higher than this for the sake of its width; a page has room for two with their
/// headings.
inline constexpr float PictureHeight = 340;

/// The world window is mapped onto a picture with this border, pixels.
inline constexpr float PictureBorder = 40;

/// Draws the truss, at the largest scale at which the picture is no larger than PictureWidth by
/// PictureHeight. Names have the same size at every scale, and there is a smallest and a largest scale: a
/// picture of what stands far outside the world window comes out wider, one of a tiny truss narrower. The
/// joint list must be up to date. The picture is empty without a live element, and when the world window has
/// no extent.
Picture TrussPaint(const Truss& truss, const ReportFormat& format, const TextMeasure& measure,
                   PictureContent content);

struct PaintedTruss {
  Picture Drawn;
  Graph Mapping;  ///< from the world to the picture's pixels
};

/// The same, for who points at something in the picture.
PaintedTruss PaintTruss(const Truss& truss, const ReportFormat& format, const TextMeasure& measure,
                        PictureContent content);
