// What the eight tool buttons show: small drawings in a box of 32 by 32 pixels, in a dark colour and one
// bright one. They are files (glyphs/*.svg); the supports are drawn as the canvas draws them.
#pragma once

#include <QColor>
#include <QPainter>
#include <cstdint>

struct GlyphColours {
  QColor Ink;     ///< what is there: members, pins, supports
  QColor Accent;  ///< what the tool does with it
  QColor Ground;  ///< what the drawing stands on; fills pins
};

/// The red of force arrows, in the shade that stands out on the ground.
QColor AccentOn(const QColor& ground);

/// Draws the glyph of tool 1 .. 8 (in the order of the palette) with the box's left top corner at the
/// painter's origin. Other numbers draw nothing.
void DrawToolGlyph(QPainter& painter, int tool, const GlyphColours& colours);

/// Draws the picture of a support of type 1 .. 8 in the box of 32 by 32 pixels whose left top corner is at
/// the painter's origin, outlined with a pen of `lineWidth` pixels.
void DrawSupport(QPainter& painter, std::int16_t type, const GlyphColours& colours, qreal lineWidth);
