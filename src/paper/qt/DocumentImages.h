// The images of a text document, as files of rich text need them.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QTextDocument>
#include <QTextImageFormat>

/// The image of the document with this name; null when there is none.
QImage ImageOf(const QTextDocument& document, const QString& name);

/// Width and height at which the image is shown, in pixels of 96 to the inch.
QSizeF ShownSize(const QTextImageFormat& format, const QImage& image);

/// The image as a PNG file; the same image gives the same bytes.
QByteArray PngBytes(const QImage& image);
