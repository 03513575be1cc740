// The images of a text document, as files of rich text need them.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QStringView>
#include <QTextDocument>
#include <QTextImageFormat>

/// The image of the document with this name; null when there is none.
QImage ImageOf(const QTextDocument& document, const QString& name);

/// Width and height at which the image is shown, in pixels of 96 to the inch.
QSizeF ShownSize(const QTextImageFormat& format, const QImage& image);

/// The size at which an image that is put in behind this beginning of a line is shown: its own, but not more
/// than a page has room for, where tabs before it take StandardTabStop each.
QSizeF SizeOnPage(const QImage& image, QStringView lineBefore);

inline constexpr qreal StandardTabStop = 48;  ///< pixels of 96 to the inch

/// The image as a PNG file; the same image gives the same bytes.
QByteArray PngBytes(const QImage& image);
