// The inner loops of the elimination, written for vector registers: whichever the processor has is found out
// when the program runs. A product and a subtraction are always two roundings, and each number receives its
// subtractions in the order given, so that all versions compute the same bits.
#pragma once

#include <cstddef>
#include <new>
#include <vector>

#include "analysis/Echelon.h"

/// Lengths of vectors are multiples of this.
inline constexpr std::size_t VectorLength = 8;

/// As many rows as the upward phase reduces side by side.
inline constexpr std::size_t RowsSideBySide = 16;

/// As many columns as SubtractPanel brings up to date at once.
inline constexpr std::size_t PanelWidth = 4;

inline constexpr std::size_t RoundUpToVector(std::size_t length) {
  return (length + VectorLength - 1) / VectorLength * VectorLength;
}

/// Memory that starts where a cache line starts.
template <class Number>
struct CacheLineAllocator {
  using value_type = Number;
  CacheLineAllocator() = default;
  template <class Other>
  explicit CacheLineAllocator(const CacheLineAllocator<Other>&) {}
  Number* allocate(std::size_t count) {
    return static_cast<Number*>(::operator new(count * sizeof(Number), std::align_val_t{64}));
  }
  void deallocate(Number* memory, std::size_t) { ::operator delete(memory, std::align_val_t{64}); }
  friend bool operator==(const CacheLineAllocator&, const CacheLineAllocator&) { return true; }
};
using Numbers = std::vector<double, CacheLineAllocator<double>>;

struct ScaledVector {
  double Factor;
  const double* Values;
};

struct VectorUpdate {
  /// target -= Factor * Values for each of the scaled vectors in their order. Returns the largest magnitude
  /// that results.
  double (*Subtract)(double* target, std::size_t length, const ScaledVector* vectors, std::size_t count);

  /// The largest of numbers that are not negative.
  double (*Largest)(const double* numbers, std::size_t length);

  /// For each entry e: lanes of column columns[e] -= factors * values[e]. A column has RowsSideBySide lanes.
  void (*SubtractFromLanes)(double* lanes, const Index* columns, const double* values, std::size_t count,
                            const double* factors);

  /// Brings the lanes of the PanelWidth columns from `panelStart` on up to date: they receive the columns
  /// firstFactor .. endFactor - 1, each times its row of the panel, and then each other, times the rows of the
  /// panel from `endFactor` on.
  void (*SubtractPanel)(double* lanes, std::size_t firstFactor, std::size_t endFactor, std::size_t panelStart,
                        const double* panel);
};

/// The version for the widest registers of this processor.
const VectorUpdate& FastestVectorUpdate();
