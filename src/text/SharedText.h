// A text that nobody changes and that all who hold it share, so that a long one is there only once.
#pragma once

#include <compare>
#include <concepts>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>

class SharedText {
 public:
  SharedText() = default;
  SharedText(std::string text)
      : whole_(std::make_shared<const std::string>(std::move(text))), text_(*whole_) {}
  SharedText(std::string_view text) : SharedText(std::string(text)) {}
  SharedText(const char* text) : SharedText(std::string(text)) {}

  /// Of a text that lasts as long as the program.
  static SharedText OfConstant(std::string_view text) { return {nullptr, text}; }

  /// A part of a longer text, all of which it keeps.
  SharedText(std::shared_ptr<const std::string> whole, std::string_view part)
      : whole_(std::move(whole)), text_(part) {}

  /// Lasts as long as this text, or another one that shares its letters.
  operator std::string_view() const { return text_; }
  std::string_view View() const { return text_; }
  /// A copy of the letters; where this is long, the view does without.
  std::string String() const { return std::string(text_); }
  operator std::string() const { return String(); }

  bool empty() const { return text_.empty(); }
  std::size_t size() const { return text_.size(); }

  // Of two shared texts, so that neither is converted, and of one with any other text.
  template <std::same_as<SharedText> Same>
  friend bool operator==(const Same& a, const Same& b) {
    return a.text_ == b.text_;
  }
  template <std::same_as<SharedText> Same>
  friend std::strong_ordering operator<=>(const Same& a, const Same& b) {
    return a.text_ <=> b.text_;
  }
  friend bool operator==(const SharedText& a, std::string_view b) { return a.text_ == b; }
  friend std::strong_ordering operator<=>(const SharedText& a, std::string_view b) { return a.text_ <=> b; }
  friend std::string operator+(const SharedText& a, std::string_view b) { return Joined(a.text_, b); }
  friend std::string operator+(std::string_view a, const SharedText& b) { return Joined(a, b.text_); }
  template <std::same_as<SharedText> Same>
  friend std::string operator+(const Same& a, const Same& b) {
    return Joined(a.text_, b.text_);
  }
  friend std::ostream& operator<<(std::ostream& out, const SharedText& text) { return out << text.text_; }

 private:
  static std::string Joined(std::string_view a, std::string_view b) {
    std::string joined;
    joined.reserve(a.size() + b.size());
    joined += a;
    joined += b;
    return joined;
  }

  std::shared_ptr<const std::string> whole_;
  std::string_view text_;
};
