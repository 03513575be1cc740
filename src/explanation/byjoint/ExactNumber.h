// Rational numbers known by their residues modulo two primes, which say whether they are 0, and by their
// size.
#pragma once

#include <cstdint>

#include "explanation/PrimeField.h"
#include "explanation/byjoint/WideNumber.h"

/// A sum, difference, product or quotient of decimals. It is 0 when both residues are; that a number that is
/// not 0 has two residues of 0 would take an accident of one in 2^122.
struct ExactNumber {
  std::uint64_t First = 0, Second = 0;  ///< residues in FirstField and SecondField
  WideNumber Size{};                    ///< of a number that is 0 anything that is small beside its terms

  /// The decimal that a finite single is written as.
  static ExactNumber Of(float value) {
    return {FirstField::FromDecimal(value), SecondField::FromDecimal(value), WideNumber::Of(value)};
  }
  static ExactNumber Whole(int value) {
    return {FirstField::FromWhole(value), SecondField::FromWhole(value), WideNumber::Whole(value)};
  }

  bool IsZero() const { return First == 0 && Second == 0; }

  double ToDouble() const { return IsZero() ? 0 : Size.ToDouble(); }

  ExactNumber operator-() const { return {FirstField::Negate(First), SecondField::Negate(Second), -Size}; }

  friend ExactNumber operator+(const ExactNumber& a, const ExactNumber& b) {
    return {FirstField::Add(a.First, b.First), SecondField::Add(a.Second, b.Second), a.Size + b.Size};
  }
  friend ExactNumber operator-(const ExactNumber& a, const ExactNumber& b) {
    return {FirstField::Subtract(a.First, b.First), SecondField::Subtract(a.Second, b.Second),
            a.Size - b.Size};
  }
  friend ExactNumber operator*(const ExactNumber& a, const ExactNumber& b) {
    return {FirstField::Multiply(a.First, b.First), SecondField::Multiply(a.Second, b.Second),
            a.Size * b.Size};
  }
  /// `b` is not 0.
  friend ExactNumber operator/(const ExactNumber& a, const ExactNumber& b) {
    return {FirstField::Multiply(a.First, FirstField::Inverse(b.First)),
            SecondField::Multiply(a.Second, SecondField::Inverse(b.Second)), a.Size / b.Size};
  }
};

struct ExactVector {
  ExactNumber X, Y;

  bool IsZero() const { return X.IsZero() && Y.IsZero(); }

  ExactVector operator-() const { return {-X, -Y}; }
  friend ExactVector operator+(const ExactVector& a, const ExactVector& b) { return {a.X + b.X, a.Y + b.Y}; }
  friend ExactVector operator-(const ExactVector& a, const ExactVector& b) { return {a.X - b.X, a.Y - b.Y}; }
  friend ExactVector operator*(const ExactNumber& a, const ExactVector& b) { return {a * b.X, a * b.Y}; }
};

/// Twice the area of the triangle that two vectors span; 0 when they lie in one line.
inline ExactNumber Cross(const ExactVector& a, const ExactVector& b) { return a.X * b.Y - a.Y * b.X; }

/// Asked so often that it does without the sizes.
inline bool AreInLine(const ExactVector& a, const ExactVector& b) {
  return FirstField::Multiply(a.X.First, b.Y.First) == FirstField::Multiply(a.Y.First, b.X.First) &&
         SecondField::Multiply(a.X.Second, b.Y.Second) == SecondField::Multiply(a.Y.Second, b.X.Second);
}
