// The inner loops of the elimination, written for vector registers: whichever the processor has is found out
// when the program runs. A product and a subtraction are always two roundings, and each number receives its
// subtractions in the order given, so that all versions compute the same bits.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <new>
#include <vector>

#include "analysis/Echelon.h"

/// Lengths of vectors are multiples of this; so many of their numbers at a time are held in registers.
inline constexpr std::size_t BlockLength = 32;

/// As many rows as receive their pending updates together.
inline constexpr std::size_t RowsTogether = 4;

/// The most pivot rows that may be pending: one bit for each.
inline constexpr std::size_t MostPending = 64;

/// As many rows as the upward phase reduces side by side.
inline constexpr std::size_t RowsSideBySide = 16;

/// As many columns as SubtractPanel brings up to date at once.
inline constexpr std::size_t PanelWidth = 6;

inline constexpr std::size_t RoundUpToBlock(std::size_t length) {
  return (length + BlockLength - 1) / BlockLength * BlockLength;
}

/// Memory that starts where a cache line starts.
template <class Number>
struct CacheLineAllocator {
  using value_type = Number;
  CacheLineAllocator() = default;
  template <class Other>
  explicit CacheLineAllocator(const CacheLineAllocator<Other>&) {}
  Number* allocate(std::size_t count) {
    return static_cast<Number*>(::operator new (count * sizeof(Number), std::align_val_t{64}));
  }
  void deallocate(Number* memory, std::size_t) { ::operator delete (memory, std::align_val_t{64}); }
  friend bool operator==(const CacheLineAllocator&, const CacheLineAllocator&) { return true; }
};
using Numbers = std::vector<double, CacheLineAllocator<double>>;

struct ScaledVector {
  double Factor;
  const double* Values;
};

/// Pivot rows whose multiples are to be subtracted from other rows, in ascending order. Blocks of a pivot row
/// that are all 0 are passed over.
struct PendingRows {
  const double* Cells;           ///< pivot row p begins at Cells + p * Stride
  std::size_t Stride;            ///< the length of all rows
  const std::uint64_t* InBlock;  ///< by block: bit p is set when pivot row p is not 0 there
};

/// A bit for each row, for the first and the second half of the lanes.
using RowsOfHalves = std::array<std::uint64_t, 2>;

struct VectorUpdate {
  /// target -= Factor * Values for each of the scaled vectors in their order.
  void (*Subtract)(double* target, std::size_t length, const ScaledVector* vectors, std::size_t count);

  /// row -= factors[p] * pivot row p for each bit p of `mask`. Returns the largest magnitude that results.
  double (*SubtractPending)(double* row, const PendingRows& pending, std::uint64_t mask,
                            const double* factors);

  /// The same for RowsTogether rows; factors[p * RowsTogether + r] belongs to row r, and largest[r] is set.
  void (*SubtractPendingTogether)(double* const* rows, const PendingRows& pending, std::uint64_t mask,
                                  const double* factors, double* largest);

  /// The largest of numbers that are not negative.
  double (*Largest)(const double* numbers, std::size_t length);

  /// For each entry e: lanes of column columns[e] -= factors * values[e]. A column has RowsSideBySide lanes.
  void (*SubtractFromLanes)(double* lanes, const Index* columns, const double* values, std::size_t count,
                            const double* factors);

  /// lanes -= (row's lane of `factors`) * row for the rows of a panel, PanelWidth cells each. `cells` holds
  /// the rows whose bits are set in `rows` (one at least), in their order. Rows whose bits are not set in
  /// wanted[h] may be left out for half h of the lanes, as their factors are 0 there.
  void (*SubtractPanel)(double* lanes, const double* factors, const double* cells, std::uint64_t rows,
                        const RowsOfHalves& wanted);

  /// The same with the PanelWidth rows whose factors are the lanes of the panel themselves.
  void (*SubtractOwnRows)(double* lanes, const double* ownRows);
};

/// The version for the widest registers of this processor.
const VectorUpdate& FastestVectorUpdate();
