// Writing rich text as RTF, the form that every word processor reads.
#pragma once

#include <QByteArray>
#include <memory>

#include "paper/qt/DocumentWalk.h"

/// The whole document, or what the cursor has selected, as 7-bit RTF: fonts and sizes, bold, italic,
/// underlined, colours, tabs, line breaks, and pictures as PNG with their descriptions; its title, headings
/// as an outline, and tables of one-cell rows whose headers are shown again on each page. Braces, backslashes
/// and every character outside ASCII are escaped. The same document gives the same bytes.
QByteArray ToRtf(const DocumentPart& part);

/// The same of a document that is not there as a whole; `standardFamily` is that of letters of which nothing
/// else is said.
std::unique_ptr<DocumentWriter> NewRtfWriter(const QString& title, const QString& standardFamily);
