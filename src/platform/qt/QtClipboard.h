// The desktop's clipboard, and pauses.
#pragma once

#include <QImage>
#include <memory>

#include "platform/Clipboard.h"
#include "platform/Clock.h"

class QMimeData;

class QtClipboard final : public Clipboard {
 public:
  bool Clear() override;

  /// Offers text/rtf, application/rtf, text/html and text/plain.
  bool PutRichText(const RichTextForms& text) override;
  bool PutPicture(const Picture& picture) override;

  /// The bitmap that the clipboard holds; null when there is none.
  QImage Bitmap() const;
};

/// Remembers what the clipboard holds and puts it back at the end of its life, as far as texts, bitmaps and
/// lists of files go, so that building a document does not cost the user what was copied before.
class ClipboardKeeper {
 public:
  ClipboardKeeper();
  ClipboardKeeper(const ClipboardKeeper&) = delete;
  ClipboardKeeper& operator=(const ClipboardKeeper&) = delete;
  ~ClipboardKeeper();

 private:
  std::unique_ptr<QMimeData> kept_;
};

/// Pauses without freezing the desktop's view of the program: events other than the user's are handled.
class QtClock final : public Clock {
 public:
  void Pause(int milliseconds) override;
};
