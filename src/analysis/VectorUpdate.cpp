// Each loop is one template over the type of a register, and is compiled once for every kind of register.
// Registers are written as GCC and clang know them, the compilers that this program is built with.
#include "analysis/VectorUpdate.h"

#include <bit>
#include <cstring>

#define ORVANE_INLINE [[gnu::always_inline]] inline

// An array of registers is held in registers only when no loop over it is left.
#if defined(__clang__)
#define ORVANE_UNROLL _Pragma("unroll")
#else
#define ORVANE_UNROLL _Pragma("GCC unroll 16")
#endif

namespace {

template <class Register>
constexpr std::size_t LanesOf = sizeof(Register) / sizeof(double);

template <class Register>
ORVANE_INLINE void Load(Register& target, const double* source) {
  std::memcpy(&target, source, sizeof(Register));
}

template <class Register>
ORVANE_INLINE void Store(double* target, const Register& source) {
  std::memcpy(target, &source, sizeof(Register));
}

template <class Register>
ORVANE_INLINE void TakeLarger(Register& largest, const Register& candidate) {
  largest = candidate > largest ? candidate : largest;
}

template <class Register>
ORVANE_INLINE double LargestLane(const Register& lanes) {
  double numbers[LanesOf<Register>];
  std::memcpy(numbers, &lanes, sizeof(Register));
  double largest = 0;
  for (const double number : numbers) largest = number > largest ? number : largest;
  return largest;
}

template <class Register>
ORVANE_INLINE void SubtractWith(double* target, std::size_t length, const ScaledVector* vectors,
                                std::size_t count) {
  constexpr std::size_t numRegisters = LanesOf<Register> == 8 ? 4 : 8;
  for (std::size_t at = 0; at < length; at += numRegisters * LanesOf<Register>) {
    Register block[numRegisters];
    for (std::size_t r = 0; r < numRegisters; ++r) Load(block[r], target + at + r * LanesOf<Register>);
    for (std::size_t v = 0; v < count; ++v) {
      const double* values = vectors[v].Values + at;
      for (std::size_t r = 0; r < numRegisters; ++r) {
        Register value;
        Load(value, values + r * LanesOf<Register>);
        block[r] -= vectors[v].Factor * value;
      }
    }
    for (std::size_t r = 0; r < numRegisters; ++r) Store(target + at + r * LanesOf<Register>, block[r]);
  }
}

/// A few registers of each row stay loaded while all the pivot rows are subtracted from them.
template <class Register, std::size_t numRows>
ORVANE_INLINE void SubtractPendingWith(double* const* rows, const PendingRows& pending, std::uint64_t mask,
                                       const double* factors, double* largest) {
  constexpr std::size_t numRegisters = LanesOf<Register> == 8 ? 4 : 8 / numRows;
  Register largestLanes[numRows] = {};
  for (std::size_t at = 0; at < pending.Stride; at += numRegisters * LanesOf<Register>) {
    Register block[numRows][numRegisters];
    for (std::size_t i = 0; i < numRows; ++i) {
      for (std::size_t r = 0; r < numRegisters; ++r) Load(block[i][r], rows[i] + at + r * LanesOf<Register>);
    }
    const std::uint64_t here = mask & pending.InBlock[at / BlockLength];
    for (std::uint64_t left = here; left != 0; left &= left - 1) {
      const auto p = static_cast<std::size_t>(std::countr_zero(left));
      const double* values = pending.Cells + p * pending.Stride + at;
      for (std::size_t r = 0; r < numRegisters; ++r) {
        Register value;
        Load(value, values + r * LanesOf<Register>);
        for (std::size_t i = 0; i < numRows; ++i) block[i][r] -= factors[p * numRows + i] * value;
      }
    }
    for (std::size_t i = 0; i < numRows; ++i) {
      for (std::size_t r = 0; r < numRegisters; ++r) {
        if (here != 0) Store(rows[i] + at + r * LanesOf<Register>, block[i][r]);
        TakeLarger(largestLanes[i], block[i][r]);
        const Register negative = -block[i][r];
        TakeLarger(largestLanes[i], negative);
      }
    }
  }
  for (std::size_t i = 0; i < numRows; ++i) largest[i] = LargestLane(largestLanes[i]);
}

template <class Register>
ORVANE_INLINE double LargestWith(const double* numbers, std::size_t length) {
  Register largest{};
  for (std::size_t at = 0; at < length; at += LanesOf<Register>) {
    Register candidate;
    Load(candidate, numbers + at);
    TakeLarger(largest, candidate);
  }
  return LargestLane(largest);
}

template <class Register>
ORVANE_INLINE void SubtractFromLanesWith(double* lanes, const Index* columns, const double* values,
                                         std::size_t count, const double* factors) {
  constexpr std::size_t numRegisters = RowsSideBySide / LanesOf<Register>;
  Register factor[numRegisters];
  for (std::size_t r = 0; r < numRegisters; ++r) Load(factor[r], factors + r * LanesOf<Register>);
  for (std::size_t entry = 0; entry < count; ++entry) {
    double* column = lanes + columns[entry] * RowsSideBySide;
    for (std::size_t r = 0; r < numRegisters; ++r) {
      Register number;
      Load(number, column + r * LanesOf<Register>);
      number -= factor[r] * values[entry];
      Store(column + r * LanesOf<Register>, number);
    }
  }
}

template <class Register>
ORVANE_INLINE void SubtractPanelWith(double* lanes, const double* factors, const double* cells,
                                     std::uint64_t rows, const RowsOfHalves& wantedOfHalves) {
  constexpr std::size_t pair = 2;  // of registers for each column
  constexpr std::size_t half = RowsSideBySide / 2;
  constexpr bool takesBothHalves = pair * LanesOf < Register >> half;
  for (std::size_t lane = 0; lane < RowsSideBySide; lane += pair * LanesOf<Register>) {
    const std::uint64_t wanted =
        takesBothHalves ? wantedOfHalves[0] | wantedOfHalves[1] : wantedOfHalves[lane / half];
    if ((rows & wanted) == 0) continue;
    Register block[PanelWidth][pair];
    ORVANE_UNROLL
    for (std::size_t c = 0; c < PanelWidth; ++c) {
      ORVANE_UNROLL
      for (std::size_t r = 0; r < pair; ++r) {
        Load(block[c][r], lanes + c * RowsSideBySide + lane + r * LanesOf<Register>);
      }
    }
    const double* next = cells;
    std::uint64_t left = rows;
    do {
      const auto row = static_cast<std::size_t>(std::countr_zero(left));
      const double* values = next;
      left &= left - 1;
      next += PanelWidth;
      if ((wanted >> row & 1) == 0) continue;
      const double* rowFactors = factors + row * RowsSideBySide + lane;
      Register factor[pair];
      ORVANE_UNROLL
      for (std::size_t r = 0; r < pair; ++r) Load(factor[r], rowFactors + r * LanesOf<Register>);
      ORVANE_UNROLL
      for (std::size_t c = 0; c < PanelWidth; ++c) {
        ORVANE_UNROLL
        for (std::size_t r = 0; r < pair; ++r) block[c][r] -= factor[r] * values[c];
      }
    } while (left != 0);
    ORVANE_UNROLL
    for (std::size_t c = 0; c < PanelWidth; ++c) {
      ORVANE_UNROLL
      for (std::size_t r = 0; r < pair; ++r) {
        Store(lanes + c * RowsSideBySide + lane + r * LanesOf<Register>, block[c][r]);
      }
    }
  }
}

template <class Register>
ORVANE_INLINE void SubtractOwnRowsWith(double* lanes, const double* ownRows) {
  for (std::size_t lane = 0; lane < RowsSideBySide; lane += LanesOf<Register>) {
    Register block[PanelWidth];
    for (std::size_t c = 0; c < PanelWidth; ++c) Load(block[c], lanes + c * RowsSideBySide + lane);
    for (std::size_t k = 0; k < PanelWidth; ++k) {
      for (std::size_t c = k + 1; c < PanelWidth; ++c) block[c] -= block[k] * ownRows[k * PanelWidth + c];
    }
    for (std::size_t c = 1; c < PanelWidth; ++c) Store(lanes + c * RowsSideBySide + lane, block[c]);
  }
}

// One set of functions for a kind of register. The loops above are inlined into them, and so are compiled for
// the processors that `ATTRIBUTE` names. An attribute cannot stand in parentheses.
// NOLINTBEGIN(bugprone-macro-parentheses)
#define ORVANE_VECTOR_UPDATE(NAME, REGISTER, ATTRIBUTE)                                                      \
  ATTRIBUTE void Subtract##NAME(double* target, std::size_t length, const ScaledVector* vectors,             \
                                std::size_t count) {                                                         \
    SubtractWith<REGISTER>(target, length, vectors, count);                                                  \
  }                                                                                                          \
  ATTRIBUTE double SubtractPending##NAME(double* row, const PendingRows& pending, std::uint64_t mask,        \
                                         const double* factors) {                                            \
    double largest = 0;                                                                                      \
    SubtractPendingWith<REGISTER, 1>(&row, pending, mask, factors, &largest);                                \
    return largest;                                                                                          \
  }                                                                                                          \
  ATTRIBUTE void SubtractPendingTogether##NAME(double* const* rows, const PendingRows& pending,              \
                                               std::uint64_t mask, const double* factors, double* largest) { \
    SubtractPendingWith<REGISTER, RowsTogether>(rows, pending, mask, factors, largest);                      \
  }                                                                                                          \
  ATTRIBUTE double Largest##NAME(const double* numbers, std::size_t length) {                                \
    return LargestWith<REGISTER>(numbers, length);                                                           \
  }                                                                                                          \
  ATTRIBUTE void SubtractFromLanes##NAME(double* lanes, const Index* columns, const double* values,          \
                                         std::size_t count, const double* factors) {                         \
    SubtractFromLanesWith<REGISTER>(lanes, columns, values, count, factors);                                 \
  }                                                                                                          \
  ATTRIBUTE void SubtractPanel##NAME(double* lanes, const double* factors, const double* cells,              \
                                     std::uint64_t rows, const RowsOfHalves& wanted) {                       \
    SubtractPanelWith<REGISTER>(lanes, factors, cells, rows, wanted);                                        \
  }                                                                                                          \
  ATTRIBUTE void SubtractOwnRows##NAME(double* lanes, const double* ownRows) {                               \
    SubtractOwnRowsWith<REGISTER>(lanes, ownRows);                                                           \
  }                                                                                                          \
  constexpr VectorUpdate NAME = {                                                                            \
      Subtract##NAME,          SubtractPending##NAME, SubtractPendingTogether##NAME, Largest##NAME,          \
      SubtractFromLanes##NAME, SubtractPanel##NAME,   SubtractOwnRows##NAME};
// NOLINTEND(bugprone-macro-parentheses)

using TwoNumbers = double __attribute__((vector_size(16)));
ORVANE_VECTOR_UPDATE(OfTwo, TwoNumbers, )

#if defined(__x86_64__)
#define ORVANE_CHOOSES_REGISTERS
using FourNumbers = double __attribute__((vector_size(32)));
using EightNumbers = double __attribute__((vector_size(64)));
ORVANE_VECTOR_UPDATE(OfFour, FourNumbers, __attribute__((target("avx2"))))
ORVANE_VECTOR_UPDATE(OfEight, EightNumbers, __attribute__((target("avx512f"))))
#endif

const VectorUpdate& Choose() {
#if defined(ORVANE_CHOOSES_REGISTERS)
  if (__builtin_cpu_supports("avx512f")) return OfEight;
  if (__builtin_cpu_supports("avx2")) return OfFour;
#endif
  return OfTwo;
}

}  // namespace

const VectorUpdate& FastestVectorUpdate() {
  static const VectorUpdate& fastest = Choose();
  return fastest;
}
