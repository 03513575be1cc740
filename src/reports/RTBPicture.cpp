#include "reports/RTBPicture.h"

#include <string>

namespace {

// Tries a step until it succeeds or has been tried again often enough.
template <class Step>
bool Retried(const ClipboardAccess& access, Step step) {
  for (int retries = 0; !step(); ++retries) {
    if (retries == ClipboardRetries) return false;
    access.Pauses.Pause(ClipboardPause);
  }
  return true;
}

// Empties the clipboard and puts something on it.
template <class Step>
bool Replaced(const ClipboardAccess& access, Step put) {
  if (Retried(access, [&] { return access.Board.Clear(); }) && Retried(access, put)) return true;
  access.Messages.Show(Message{.Text = ClipboardText});
  return false;
}

}  // namespace

bool RTBPicture(const Picture& picture, const ReportText& report, const ClipboardAccess& access,
                int breaksBefore, int breaksAfter, std::string_view description) {
  RTBText(report, "\t", breaksBefore, 0, PlainBlack);
  bool succeeded = true;
  if (picture.Frame() != PixelRect{}) {
    succeeded = Replaced(access, [&] { return access.Board.PutPicture(picture); });
    if (succeeded) succeeded = report.Document.Paste(description);
  }
  RTBText(report, "", 0, breaksAfter, PlainBlack);
  return succeeded;
}

bool CopyToClipboard(const RichTextForms& text, const ClipboardAccess& access) {
  return Replaced(access, [&] { return access.Board.PutRichText(text); });
}
