// The truss as a picture of its own, cropped to what is drawn: for the printable report and for picture
// files. It is drawn by the canvas's own routines.
#pragma once

#include "document/Truss.h"
#include "platform/Picture.h"
#include "platform/TextMeasure.h"
#include "reports/FormatSigFigs.h"

/// What a picture shows beside members, pins, supports and force arrows.
struct PictureContent {
  bool ForceValues = true;  ///< the size of each applied force, at the head of its arrow
  bool Names = false;       ///< the names of forces and joints with their arrows
};

/// The width of a page's text, to which pictures are drawn, pixels of 96 to the inch.
inline constexpr float PictureWidth = 640;

/// The world window is mapped onto a picture with this border, pixels.
inline constexpr float PictureBorder = 40;

/// Draws the truss. The joint list must be up to date. A picture of a truss without a live element is empty.
Picture TrussPaint(const Truss& truss, const ReportFormat& format, const TextMeasure& measure,
                   PictureContent content);
