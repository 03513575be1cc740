// The lexical side of truss files: a first line taken whole, then fields that are separated by commas or line
// ends. Every field says on which line it stands, so that an error can be shown where it is.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "document/DocumentSettings.h"
#include "text/SharedText.h"

/// Why a file could not be read further.
struct ReadError {
  int Line = 0;     ///< from 1; 0 when the file as a whole could not be read
  std::string Why;  ///< a single-byte text without a full stop, begins with a small letter

  /// "line 3: why", or only "why" where there is no line.
  std::string Text() const;
};

/// Reads fields from a text. Line ends are CR LF, LF or CR. Every Next... throws
/// ReadError when the field is missing or does not convert.
class FieldReader {
 public:
  explicit FieldReader(std::string_view text) : FieldReader(std::make_shared<const std::string>(text)) {}
  explicit FieldReader(std::shared_ptr<const std::string> text) : whole_(std::move(text)), text_(*whole_) {}

  /// The rest of the current line, without its end.
  std::string_view RestOfLine();

  /// The content of the next field: between its quotes (it may then hold commas and line ends; what stands
  /// between the closing quote and the next separator is dropped), or without its outer blanks.
  std::string_view NextField();

  float NextSingle();
  /// A fraction is rounded, halves to the even number.
  std::int16_t NextInteger();
  /// Digits alone within 16 bits give an integer, everything else a double.
  TaggedNumber NextTaggedNumber();
  /// #TRUE# or #FALSE# in any letter case.
  bool NextBoolean();
  /// Shares its letters with the whole text.
  SharedText NextName() { return SharedText(whole_, NextField()); }

  /// Line of the field that was read last, from 1.
  int Line() const { return fieldLine_; }

  /// Line, from 1, of the first text that is in no field that was read: behind a closing quote, or after the
  /// field that was read last. 0 when there is none but blanks, line ends and the end mark of old editors.
  int UnreadLine() const;

  /// An error at the field that was read last.
  [[noreturn]] void Fail(const std::string& why) const;

 private:
  bool AtEnd() const { return at_ == text_.size(); }
  bool AtLineEnd() const { return text_[at_] == '\r' || text_[at_] == '\n'; }
  void SkipLineEnd();
  void SkipToSeparator();
  void SkipSeparator();
  std::string_view QuotedContent();

  std::shared_ptr<const std::string> whole_;
  std::string_view text_;
  std::size_t at_ = 0;
  int line_ = 1;
  int fieldLine_ = 1;
  int leftOutLine_ = 0;      // of the first text behind a closing quote
  bool afterComma_ = false;  // an empty field may still follow at the end of the file
};
