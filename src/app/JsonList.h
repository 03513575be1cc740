// JSON arrays and objects put together item by item, so that keys stand in the order given, and singles are
// singles.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "text/CodePage.h"
#include "text/TextParts.h"

/// A text in quotes, escaped; from UTF-8, or from a single-byte text.
std::string JsonText(const std::string& utf8Text);
std::string JsonName(std::string_view singleByteText);

/// The same without the quotes.
std::string JsonLetters(const std::string& utf8Text);

/// The shortest form that reads back to the same value; null for a value beyond the number range, for which
/// JSON has no word.
std::string JsonNumber(float value);
std::string JsonNumber(double value);

inline std::string JsonValue(const std::string& json) { return json; }  ///< JSON already
inline std::string JsonValue(const char* json) { return json; }         ///< JSON already
inline std::string JsonValue(float value) { return JsonNumber(value); }
inline std::string JsonValue(double value) { return JsonNumber(value); }
inline std::string JsonValue(int value) { return std::to_string(value); }
inline std::string JsonValue(bool value) { return value ? "true" : "false"; }

/// "[a,b,c]" or "{...}" with commas between the items.
class JsonList {
 public:
  /// '[' or '{'.
  explicit JsonList(char open) : text_(1, open), close_(open == '[' ? ']' : '}') {}

  /// An item that is JSON already.
  JsonList& Item(std::string_view json);

  template <class Value>
  JsonList& Key(const char* key, const Value& value) {
    return Item('"' + std::string(key) + "\":" + JsonValue(value));
  }

  std::string Text() const { return text_ + close_; }

 private:
  std::string text_;
  char close_;
};

/// The same written to a stream item by item, so that a long one is never held as a whole.
class JsonStream {
 public:
  /// '[' or '{', which is written. The stream must outlive it.
  JsonStream(std::ostream& out, char open);

  /// An item that is JSON already.
  JsonStream& Item(std::string_view json);

  template <class Value>
  JsonStream& Key(const char* key, const Value& value) {
    BeginKey(key);
    out_ << JsonValue(value);
    return *this;
  }

  /// A key whose value is an array: `write` is given its stream.
  template <class Write>
  JsonStream& Array(const char* key, const Write& write) {
    BeginKey(key);
    JsonStream items(out_, '[');
    write(items);
    items.Close();
    return *this;
  }

  /// A key whose value is an object: `write` is given its stream.
  template <class Write>
  JsonStream& Object(const char* key, const Write& write) {
    BeginKey(key);
    JsonStream items(out_, '{');
    write(items);
    items.Close();
    return *this;
  }

  /// A key whose value is a single-byte text: `tell` is given what takes its parts.
  template <class Tell>
  JsonStream& Name(const char* key, const Tell& tell) {
    BeginKey(key);
    out_ << '"';
    tell(TakeText([this](std::string_view part) { out_ << JsonLetters(ToUtf8(part)); }));
    out_ << '"';
    return *this;
  }

  /// Writes the closing bracket; nothing can follow.
  void Close() { out_ << close_; }

 private:
  void BeginItem();
  void BeginKey(const char* key);

  std::ostream& out_;
  char close_;
  bool isEmpty_ = true;
};
