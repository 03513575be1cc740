// Chosen numbers that a seed gives alike on every machine, today and later: sheets that were handed out can
// be made again. The generator is written out here because the standard library's distributions differ from
// one library to the next.
#pragma once

#include <cstdint>

/// A counter that grows by 2^64 divided by the golden ratio, each value of it stirred by two multiplications
/// (SplitMix64: G. Steele, D. Lea, C. Flood, "Fast Splittable Pseudorandom Number Generators", 2014).
class SeededNumbers {
 public:
  explicit SeededNumbers(std::uint64_t seed) : state_(seed) {}

  std::uint64_t Next() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31);
  }

  /// 0 .. count - 1, each equally likely; `count` is at least 1. Numbers beyond the last whole multiple of
  /// `count` are passed over.
  int Below(int count) {
    const auto choices = static_cast<std::uint64_t>(count);
    const std::uint64_t rest = (UINT64_MAX % choices + 1) % choices;
    std::uint64_t number = Next();
    while (rest != 0 && number > UINT64_MAX - rest) number = Next();
    return static_cast<int>(number % choices);
  }

 private:
  std::uint64_t state_;
};
