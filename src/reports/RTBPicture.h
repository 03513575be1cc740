// Placing a picture in the printable report, and copying the report: both go through the clipboard, which
// another program may hold for a moment.
#pragma once

#include "platform/Clipboard.h"
#include "platform/Clock.h"
#include "platform/MessageBox.h"
#include "platform/Picture.h"
#include "reports/RTBText.h"

/// A failing step is tried again this often, with a pause before each try; then a message says so.
inline constexpr int ClipboardRetries = 10;
inline constexpr int ClipboardPause = 100;  ///< milliseconds

inline constexpr const char* ClipboardText = "Unable to access clipboard\r\nTry again later";

struct ClipboardAccess {
  Clipboard& Board;
  Clock& Pauses;
  MessageBox& Messages;
};

/// Appends line breaks, a tab, the picture by way of the clipboard, and line breaks. Without the clipboard
/// the document has no picture there, the user is told, and the result is false. An empty picture does not
/// touch the clipboard.
bool RTBPicture(const Picture& picture, const ReportText& report, const ClipboardAccess& access,
                int breaksBefore, int breaksAfter);

/// Replaces what the clipboard holds. False, and the user is told, when it cannot be had.
bool CopyToClipboard(const RichTextForms& text, const ClipboardAccess& access);
