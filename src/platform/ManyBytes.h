// Bytes for a file, given part after part, so that many of them need not stand in memory together.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

struct ManyBytes {
  /// Takes the next part; returns 0, or the system's number of an error, which ends the telling.
  using Take = std::function<int(std::string_view part)>;

  std::uint64_t Size = 0;

  /// Gives all parts in their order, the same ones whenever it is called. Returns the error of the one that
  /// took, or of reading them; else 0.
  std::function<int(const Take& take)> Tell;

  /// Of bytes that outlive it.
  static ManyBytes Of(std::string_view bytes) {
    return {bytes.size(), [bytes](const Take& take) { return take(bytes); }};
  }

  /// Of bytes that it keeps.
  static ManyBytes Keeping(std::string bytes) {
    const std::uint64_t size = bytes.size();
    return {size, [kept = std::move(bytes)](const Take& take) { return take(kept); }};
  }
};
