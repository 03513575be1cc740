// Rich text as a file or for the clipboard: RTF, OpenDocument, HTML. The same document gives the same bytes.
#pragma once

#include <QByteArray>
#include <QTextDocument>

#include "platform/Clipboard.h"

/// One HTML page that needs no other file: its pictures stand in it.
QByteArray ToHtml(const QTextDocument& document);

/// An OpenDocument text without dates. Empty when it cannot be made.
QByteArray ToOdt(const QTextDocument& document);

/// What Copy puts on the clipboard: the selection of the cursor, or the whole document when it has none.
RichTextForms ToForms(const QTextCursor& cursor);
