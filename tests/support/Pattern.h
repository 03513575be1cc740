// Sentences taken apart by a pattern. The standard library's patterns take seconds to compile in each file
// that has one, and are slow where tests are compiled without optimisation; here they are compiled once, for
// speed.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A regular expression in ECMAScript's notation.
class Pattern {
 public:
  /// What stands in the whole match, at 0, and in each pair of brackets, from 1; empty for one that took no
  /// part.
  using Parts = std::vector<std::string>;

  explicit Pattern(std::string_view expression);
  ~Pattern();
  Pattern(const Pattern&) = delete;
  Pattern& operator=(const Pattern&) = delete;

  /// Of a text that matches from end to end.
  std::optional<Parts> Whole(const std::string& text) const;
  /// Of every match in a text, from the left, none over another.
  std::vector<Parts> All(const std::string& text) const;
  bool StandsIn(const std::string& text) const { return !All(text).empty(); }

 private:
  struct Compiled;
  std::unique_ptr<const Compiled> compiled_;
};
