// Pictures as bitmaps and vector files.
#pragma once

#include <QByteArray>
#include <QImage>

#include "platform/FileFormats.h"
#include "platform/Picture.h"

/// Bitmaps for paper and files have this many dots to the inch: three for each pixel of a 96 dpi screen.
inline constexpr int PictureDotsPerInch = 288;

/// The picture's frame on white paper. The image's dots per metre say how large it is meant to be. A picture
/// so large that its bitmap would not fit 16 million dots is made with fewer dots to the inch. Null when the
/// frame is empty.
QImage ToImage(const Picture& picture, int dotsPerInch = PictureDotsPerInch);

/// Width and height in pixels of 96 to the inch of an image that says how large it is meant to be; its size
/// in dots when it does not.
QSizeF SizeOnScreen(const QImage& image);

/// The bytes of a picture file; the same picture gives the same bytes. Empty when they cannot be made. An
/// empty picture is a white square of one pixel.
QByteArray PictureFile(const Picture& picture, PictureFileFormat format);
