// Rich text as its letters alone, for readers aloud: with the descriptions of the pictures in their places.
#pragma once

#include <string>

#include "paper/RichText.h"

class PlainText final : public RichText {
 public:
  /// What was appended so far, UTF-8; lines end with LF, a picture is "[picture: what it shows]".
  const std::string& Text() const { return text_; }

 private:
  void AppendText(std::string_view text, const CharacterFormat& /*format*/, LineRole /*role*/) override {
    for (const char c : text) {
      if (c != '\r') text_ += c;
    }
  }
  bool PastePicture(std::string_view description) override {
    text_ += "[picture";
    if (!description.empty()) text_.append(": ").append(description);
    text_ += ']';
    return true;
  }

  std::string text_;
};
