// Writing rich text as HTML, for browsers and for the clipboard.
#pragma once

#include <QByteArray>
#include <memory>

#include "paper/qt/DocumentWalk.h"

/// One page, UTF-8, that needs no other file: its pictures stand in it, and its paragraphs carry their
/// formats themselves, because mail programs and word processors drop style sheets. Blanks and tabs are kept;
/// lines that do not wrap are preformatted. Headings are headings, and pictures say what they show. The same
/// document gives the same bytes.
QByteArray ToHtml(const DocumentPart& part);

/// The same of a document that is not there as a whole.
std::unique_ptr<DocumentWriter> NewHtmlWriter(const QString& title);
