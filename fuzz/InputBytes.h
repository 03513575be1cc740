// The fuzzer's bytes, taken one by one as choices, or as a text. Behind the last byte come zeros.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

class InputBytes {
 public:
  InputBytes(const std::uint8_t* data, std::size_t size) : left_(reinterpret_cast<const char*>(data), size) {}

  bool IsEmpty() const { return left_.empty(); }

  /// 0 .. count - 1; `count` is at most 256.
  int Below(int count) { return static_cast<unsigned char>(Next()) % count; }

  /// At most so many bytes; less when there are no more.
  std::string Text(std::size_t length) {
    const std::string text(left_.substr(0, length));
    left_.remove_prefix(text.size());
    return text;
  }

  /// Up to the next byte of this value, which is dropped, or to the end.
  std::string TextUpTo(char end) {
    const std::size_t length = std::min(left_.find(end), left_.size());
    std::string text = Text(length);
    if (!left_.empty()) left_.remove_prefix(1);
    return text;
  }

  std::string_view Rest() const { return left_; }

 private:
  char Next() {
    if (left_.empty()) return 0;
    const char byte = left_.front();
    left_.remove_prefix(1);
    return byte;
  }

  std::string_view left_;
};
