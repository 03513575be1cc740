// Rich text as a file or for the clipboard: RTF, OpenDocument, HTML. The same document gives the same bytes.
#pragma once

#include <QTextCursor>

#include "paper/qt/HtmlWriter.h"
#include "paper/qt/OdtWriter.h"
#include "paper/qt/RtfWriter.h"
#include "platform/Clipboard.h"

/// What Copy puts on the clipboard: the selection of the cursor, or the whole document when it has none. The
/// plain text has no trace of the pictures, and keeps its non-breaking blanks.
RichTextForms ToForms(const QTextCursor& cursor);
