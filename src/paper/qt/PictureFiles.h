// Pictures as files: bitmaps, vector pictures and pages.
#pragma once

#include <QByteArray>

#include "paper/FileFormats.h"
#include "platform/Picture.h"

/// The bytes of a picture file; the same picture gives the same bytes. Empty when they cannot be made. An
/// empty picture is a white square of one pixel.
QByteArray PictureFile(const Picture& picture, PictureFileFormat format);
