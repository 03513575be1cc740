// A clipboard that another program holds for a while: the first tries of a step can be made to fail.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Clipboard.h"
#include "platform/Picture.h"

class FakeClipboard : public Clipboard {
 public:
  bool Clear() override {
    if (!Succeeds("clear", FailuresOfClear)) return false;
    Held.reset();
    HeldText.reset();
    return true;
  }

  bool PutRichText(const RichTextForms& text) override {
    if (!Succeeds("text", FailuresOfText)) return false;
    HeldText = text;
    return true;
  }

  bool PutPicture(const Picture& picture) override {
    if (!Succeeds("picture", FailuresOfPicture)) return false;
    Held = picture;
    return true;
  }

  /// How many of the coming tries fail.
  int FailuresOfClear = 0;
  int FailuresOfText = 0;
  int FailuresOfPicture = 0;

  /// Every try: "clear", "text" or "picture", after "no " when it failed.
  std::vector<std::string> Tries;

  std::optional<Picture> Held;
  std::optional<RichTextForms> HeldText;

 private:
  bool Succeeds(const std::string& step, int& failures) {
    const bool fails = failures > 0;
    if (fails) --failures;
    Tries.push_back((fails ? "no " : "") + step);
    return !fails;
  }
};
