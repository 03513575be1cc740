// The clipboard, which every program on the desktop shares: each call can fail because another program holds
// it, and says so.
#pragma once

#include <string>

class Picture;

/// The same rich text in the forms that other programs ask for.
struct RichTextForms {
  std::string Rtf;    ///< RTF, 7-bit
  std::string Html;   ///< UTF-8
  std::string Plain;  ///< UTF-8, line ends LF

  friend bool operator==(const RichTextForms&, const RichTextForms&) = default;
};

class Clipboard {
 public:
  virtual ~Clipboard() = default;

  // Each returns whether it succeeded; after a failure the clipboard holds what it held, or nothing.
  [[nodiscard]] virtual bool Clear() = 0;
  [[nodiscard]] virtual bool PutRichText(const RichTextForms& text) = 0;

  /// As a bitmap that is sharp on paper.
  [[nodiscard]] virtual bool PutPicture(const Picture& picture) = 0;
};
