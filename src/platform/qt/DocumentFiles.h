// Rich text as a file or for the clipboard: RTF, OpenDocument, HTML. The same document gives the same bytes.
#pragma once

#include <QTextCursor>

#include "platform/Clipboard.h"
#include "platform/qt/HtmlWriter.h"
#include "platform/qt/OdtWriter.h"
#include "platform/qt/RtfWriter.h"

/// What Copy puts on the clipboard: the selection of the cursor, or the whole document when it has none. The
/// plain text has no trace of the pictures, and keeps its non-breaking blanks.
RichTextForms ToForms(const QTextCursor& cursor);
