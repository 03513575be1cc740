// Rational numbers of which it matters only whether they are 0: known by their residues modulo two primes.
#pragma once

#include <cstdint>

#include "explanation/PrimeField.h"

/// A sum, difference, product or quotient of decimals. It is 0 when both residues are; that a number that is
/// not 0 has two residues of 0 would take an accident of one in 2^122.
struct ExactNumber {
  std::uint64_t First = 0, Second = 0;  ///< residues in FirstField and SecondField

  /// The decimal that a finite single is written as.
  static ExactNumber Of(float value) {
    return {FirstField::FromDecimal(value), SecondField::FromDecimal(value)};
  }
  static ExactNumber Whole(int value) {
    return {FirstField::FromWhole(value), SecondField::FromWhole(value)};
  }

  bool IsZero() const { return First == 0 && Second == 0; }

  ExactNumber operator-() const { return {FirstField::Negate(First), SecondField::Negate(Second)}; }

  friend ExactNumber operator+(const ExactNumber& a, const ExactNumber& b) {
    return {FirstField::Add(a.First, b.First), SecondField::Add(a.Second, b.Second)};
  }
  friend ExactNumber operator-(const ExactNumber& a, const ExactNumber& b) {
    return {FirstField::Subtract(a.First, b.First), SecondField::Subtract(a.Second, b.Second)};
  }
  friend ExactNumber operator*(const ExactNumber& a, const ExactNumber& b) {
    return {FirstField::Multiply(a.First, b.First), SecondField::Multiply(a.Second, b.Second)};
  }
  /// `b` is not 0.
  friend ExactNumber operator/(const ExactNumber& a, const ExactNumber& b) {
    return a * ExactNumber{FirstField::Inverse(b.First), SecondField::Inverse(b.Second)};
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

inline bool AreInLine(const ExactVector& a, const ExactVector& b) { return Cross(a, b).IsZero(); }
