// Placing a picture in the printable report, and copying the report: both go through the clipboard, which
// another program may hold for a moment.
#pragma once

#include <string_view>

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

/// Appends line breaks, a tab, the picture by way of the clipboard, and line breaks. Returns whether the
/// picture is there: without the clipboard it is not, and the user is told; nor is it when another program
/// has used the clipboard in the meantime. An empty picture does not touch the clipboard, and is not missed.
/// `description` (UTF-8) says what the picture shows.
bool RTBPicture(const Picture& picture, const ReportText& report, const ClipboardAccess& access,
                int breaksBefore, int breaksAfter, std::string_view description = {});

/// Replaces what the clipboard holds. False, and the user is told, when it cannot be had.
bool CopyToClipboard(const RichTextForms& text, const ClipboardAccess& access);
