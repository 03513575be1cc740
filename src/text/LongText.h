// A text that is put together of many others, and shares the letters of the long ones.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "text/SharedText.h"

class LongText {
 public:
  LongText& operator+=(std::string_view text) {
    if (open_.size() + text.size() > LongestCopy) Close();
    open_ += text;
    size_ += text.size();
    return *this;
  }
  LongText& Share(const SharedText& text) {
    if (text.size() < ShortestShared) return *this += text.View();
    Close();
    parts_.push_back(text);
    size_ += text.size();
    return *this;
  }

  std::size_t Size() const { return size_; }

  /// All of it, part after part.
  template <class Take>
  void ForEachPart(Take take) const {
    for (const SharedText& part : parts_) take(part.View());
    take(std::string_view(open_));
  }

  std::string Text() const {
    std::string text;
    text.reserve(size_);
    ForEachPart([&text](std::string_view part) { text += part; });
    return text;
  }

 private:
  static constexpr std::size_t ShortestShared = 256;
  static constexpr std::size_t LongestCopy = 1 << 16;

  void Close() {
    if (!open_.empty()) parts_.emplace_back(std::exchange(open_, {}));
  }

  std::vector<SharedText> parts_;
  std::string open_;  // what follows the parts
  std::size_t size_ = 0;
};
