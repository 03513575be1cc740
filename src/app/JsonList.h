// JSON arrays and objects put together item by item. The toolkit's own objects sort their keys and know
// doubles only; here keys stand in the order given, and singles are singles. The toolkit escapes the texts.
#pragma once

#include <string>

/// A text in quotes, escaped; from UTF-8, or from a single-byte text.
std::string JsonText(const std::string& utf8Text);
std::string JsonName(const std::string& singleByteText);

/// The shortest form that reads back to the same value; null for a value beyond the number range, for which
/// JSON has no word.
std::string JsonNumber(float value);
std::string JsonNumber(double value);

/// "[a,b,c]" or "{...}" with commas between the items.
class JsonList {
 public:
  /// '[' or '{'.
  explicit JsonList(char open) : text_(1, open), close_(open == '[' ? ']' : '}') {}

  /// An item that is JSON already.
  JsonList& Item(const std::string& json);

  JsonList& Key(const char* key, const std::string& json);
  JsonList& Key(const char* key, const char* json) { return Key(key, std::string(json)); }
  JsonList& Key(const char* key, float value) { return Key(key, JsonNumber(value)); }
  JsonList& Key(const char* key, double value) { return Key(key, JsonNumber(value)); }
  JsonList& Key(const char* key, int value) { return Key(key, std::to_string(value)); }
  JsonList& Key(const char* key, bool value) { return Key(key, value ? "true" : "false"); }

  std::string Text() const { return text_ + close_; }

 private:
  std::string text_;
  char close_;
};
