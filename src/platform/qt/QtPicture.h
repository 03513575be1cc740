// Pictures as bitmaps, and on anything else that a painter paints on.
#pragma once

#include <QImage>
#include <QPaintDevice>
#include <QSizeF>

#include "platform/Picture.h"

inline constexpr double ScreenDotsPerInch = 96;

/// Bitmaps for paper and files have this many dots to the inch: three for each pixel of the screen.
inline constexpr int PictureDotsPerInch = 288;

/// The picture's frame on white paper. The image's dots per metre say how large it is meant to be. A picture
/// so large that its bitmap would not fit 16 million dots is made with fewer dots to the inch. Null when the
/// frame is empty.
QImage ToImage(const Picture& picture, int dotsPerInch = PictureDotsPerInch);

/// The same of another frame, which is not empty.
QImage ToImage(const Picture& picture, const PixelRect& frame, int dotsPerInch);

/// Width and height in pixels of 96 to the inch of an image that says how large it is meant to be; its size
/// in dots when it does not.
QSizeF SizeOnScreen(const QImage& image);

bool IsEmpty(const PixelRect& frame);

/// The dots that a frame takes with `scale` dots to the pixel, rounded up; at least one each way.
QSize WholeDots(const PixelRect& frame, double scale);

/// Paints on a device whose top left corner the frame's becomes, with `scale` dots to the pixel: white paper,
/// and the picture on it.
void PaintFrame(QPaintDevice& device, const Picture& picture, const PixelRect& frame, double scale);
