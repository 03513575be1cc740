// Numbers of twice the figures of a double, as the sum of two doubles: for small systems whose coefficients
// are of so different sizes that what matters would be lost in the rounding of the largest.
#pragma once

#include <cmath>

/// High is the double nearest to the number, Low what is left. About 32 figures.
struct ExtendedDouble {
  double High = 0, Low = 0;

  friend bool operator==(const ExtendedDouble&, const ExtendedDouble&) = default;

  friend ExtendedDouble operator+(const ExtendedDouble& a, const ExtendedDouble& b) {
    const ExtendedDouble high = Sum(a.High, b.High);
    const ExtendedDouble low = Sum(a.Low, b.Low);
    const ExtendedDouble sum = Ordered(high.High, high.Low + low.High);
    return Ordered(sum.High, sum.Low + low.Low);
  }
  friend ExtendedDouble operator-(const ExtendedDouble& a) { return {-a.High, -a.Low}; }
  friend ExtendedDouble operator-(const ExtendedDouble& a, const ExtendedDouble& b) { return a + -b; }

  friend ExtendedDouble operator*(const ExtendedDouble& a, const ExtendedDouble& b) {
    const double product = a.High * b.High;
    const double rest = std::fma(a.High, b.High, -product);
    return Ordered(product, rest + (a.High * b.Low + a.Low * b.High));
  }

  friend ExtendedDouble operator/(const ExtendedDouble& a, const ExtendedDouble& b) {
    const double first = a.High / b.High;
    ExtendedDouble rest = a - b * ExtendedDouble{first};
    const double second = rest.High / b.High;
    rest = rest - b * ExtendedDouble{second};
    return Ordered(first, second) + ExtendedDouble{rest.High / b.High};
  }

 private:
  // Exactly a + b.
  static ExtendedDouble Sum(double a, double b) {
    const double sum = a + b;
    const double ofB = sum - a;
    return {sum, (a - (sum - ofB)) + (b - ofB)};
  }

  // The same where a is the larger one.
  static ExtendedDouble Ordered(double a, double b) {
    const double sum = a + b;
    return {sum, b - (sum - a)};
  }
};
