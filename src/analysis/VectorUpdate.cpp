// Each loop is one template over the type of a register, and is compiled once for every kind of register.
#include "analysis/VectorUpdate.h"

#include <cstring>

#if defined(__GNUC__) || defined(__clang__)
#define ORVANE_INLINE [[gnu::always_inline]] inline
#else
#define ORVANE_INLINE inline
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

/// `numRegisters` registers of the target stay loaded while all the vectors are subtracted from them.
template <class Register, std::size_t numRegisters>
ORVANE_INLINE void SubtractBlock(double* target, std::size_t at, const ScaledVector* vectors,
                                 std::size_t count, Register& largest) {
  Register block[numRegisters];
  for (std::size_t r = 0; r < numRegisters; ++r) Load(block[r], target + at + r * LanesOf<Register>);
  for (std::size_t v = 0; v < count; ++v) {
    const double factor = vectors[v].Factor;
    const double* values = vectors[v].Values + at;
    for (std::size_t r = 0; r < numRegisters; ++r) {
      Register value;
      Load(value, values + r * LanesOf<Register>);
      block[r] -= factor * value;
    }
  }
  for (std::size_t r = 0; r < numRegisters; ++r) {
    Store(target + at + r * LanesOf<Register>, block[r]);
    TakeLarger(largest, block[r]);
    const Register negative = -block[r];
    TakeLarger(largest, negative);
  }
}

template <class Register>
ORVANE_INLINE double SubtractWith(double* target, std::size_t length, const ScaledVector* vectors,
                                  std::size_t count) {
  constexpr std::size_t manyRegisters = 8;
  Register largest{};
  std::size_t at = 0;
  for (; at + manyRegisters * LanesOf<Register> <= length; at += manyRegisters * LanesOf<Register>) {
    SubtractBlock<Register, manyRegisters>(target, at, vectors, count, largest);
  }
  for (; at < length; at += LanesOf<Register>) SubtractBlock<Register, 1>(target, at, vectors, count, largest);
  return LargestLane(largest);
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
ORVANE_INLINE void SubtractPanelWith(double* lanes, std::size_t firstFactor, std::size_t endFactor,
                                     std::size_t panelStart, const double* panel) {
  constexpr std::size_t pair = LanesOf<Register> * 2 > RowsSideBySide ? 1 : 2;
  for (std::size_t lane = 0; lane < RowsSideBySide; lane += pair * LanesOf<Register>) {
    Register block[PanelWidth][pair];
    for (std::size_t c = 0; c < PanelWidth; ++c) {
      for (std::size_t r = 0; r < pair; ++r) {
        Load(block[c][r], lanes + (panelStart + c) * RowsSideBySide + lane + r * LanesOf<Register>);
      }
    }
    for (std::size_t k = firstFactor; k < endFactor; ++k) {
      for (std::size_t r = 0; r < pair; ++r) {
        Register factor;
        Load(factor, lanes + k * RowsSideBySide + lane + r * LanesOf<Register>);
        for (std::size_t c = 0; c < PanelWidth; ++c) block[c][r] -= factor * panel[k * PanelWidth + c];
      }
    }
    for (std::size_t k = 0; k < PanelWidth; ++k) {
      for (std::size_t c = k + 1; c < PanelWidth; ++c) {
        for (std::size_t r = 0; r < pair; ++r) {
          block[c][r] -= block[k][r] * panel[(endFactor + k) * PanelWidth + c];
        }
      }
    }
    for (std::size_t c = 0; c < PanelWidth; ++c) {
      for (std::size_t r = 0; r < pair; ++r) {
        Store(lanes + (panelStart + c) * RowsSideBySide + lane + r * LanesOf<Register>, block[c][r]);
      }
    }
  }
}

// One set of functions for a kind of register. The loops above are inlined into them, and so are compiled for
// the processors that `ATTRIBUTE` names.
#define ORVANE_VECTOR_UPDATE(NAME, REGISTER, ATTRIBUTE)                                                      \
  ATTRIBUTE double Subtract##NAME(double* target, std::size_t length, const ScaledVector* vectors,           \
                                  std::size_t count) {                                                       \
    return SubtractWith<REGISTER>(target, length, vectors, count);                                           \
  }                                                                                                          \
  ATTRIBUTE double Largest##NAME(const double* numbers, std::size_t length) {                                \
    return LargestWith<REGISTER>(numbers, length);                                                           \
  }                                                                                                          \
  ATTRIBUTE void SubtractFromLanes##NAME(double* lanes, const Index* columns, const double* values,          \
                                         std::size_t count, const double* factors) {                         \
    SubtractFromLanesWith<REGISTER>(lanes, columns, values, count, factors);                                 \
  }                                                                                                          \
  ATTRIBUTE void SubtractPanel##NAME(double* lanes, std::size_t firstFactor, std::size_t endFactor,          \
                                     std::size_t panelStart, const double* panel) {                          \
    SubtractPanelWith<REGISTER>(lanes, firstFactor, endFactor, panelStart, panel);                                      \
  }                                                                                                          \
  constexpr VectorUpdate NAME = {Subtract##NAME, Largest##NAME, SubtractFromLanes##NAME, SubtractPanel##NAME};

#if defined(__GNUC__) || defined(__clang__)
using TwoNumbers = double __attribute__((vector_size(16)));
ORVANE_VECTOR_UPDATE(OfTwo, TwoNumbers, )
#else
ORVANE_VECTOR_UPDATE(OfOne, double, )
#endif

#if (defined(__GNUC__) || defined(__clang__)) && defined(__x86_64__)
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
#if defined(__GNUC__) || defined(__clang__)
  return OfTwo;
#else
  return OfOne;
#endif
}

}  // namespace

const VectorUpdate& FastestVectorUpdate() {
  static const VectorUpdate& fastest = Choose();
  return fastest;
}
