// Numbers of twice the figures of a double, as the sum of two doubles: for small systems whose coefficients
// are of so different sizes that what matters would be lost in the rounding of the largest.
#pragma once

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
    const ExtendedDouble high = Product(a.High, b.High);
    return Ordered(high.High, high.Low + (a.High * b.Low + a.Low * b.High));
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

  // Exactly a * b. Not by std::fma, which is not exact on every machine.
  static ExtendedDouble Product(double a, double b) {
    const ExtendedDouble ofA = Halves(a);
    const ExtendedDouble ofB = Halves(b);
    const double product = a * b;
    const double rest =
        ofA.High * ofB.High - product + ofA.High * ofB.Low + ofA.Low * ofB.High + ofA.Low * ofB.Low;
    return {product, rest};
  }

  // The number as a sum of two with half of the figures each, so that their products are exact.
  static ExtendedDouble Halves(double number) {
    const double shifted = 134217729 * number;  // 2^27 + 1
    const double high = shifted - (shifted - number);
    return {high, number - high};
  }
};
