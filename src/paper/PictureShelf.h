// A clipboard of the program's own, for documents that are built without touching the one that all programs
// share. It never fails.
#pragma once

#include <optional>

#include "platform/Clipboard.h"
#include "platform/Picture.h"

class PictureShelf final : public Clipboard {
 public:
  bool Clear() override {
    picture_.reset();
    return true;
  }
  bool PutRichText(const RichTextForms&) override { return true; }
  bool PutPicture(const Picture& picture) override {
    picture_ = picture;
    return true;
  }

  /// The picture that was put last; null when there is none.
  const Picture* Held() const { return picture_ ? &*picture_ : nullptr; }

 private:
  std::optional<Picture> picture_;
};
