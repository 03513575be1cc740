// Gauss-Jordan elimination with complete pivoting on a full array, written down as it is defined. Slow; the
// definition that the fast elimination is compared with.
#pragma once

#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "analysis/Elimination.h"

/// R rows of N coefficients and a right-hand side; indices from 1.
class FullMatrix {
 public:
  FullMatrix(int numRows, int numColumns)
      : numColumns_(numColumns),
        cells_(static_cast<std::size_t>(numRows) * static_cast<std::size_t>(numColumns)) {}
  double& operator()(int row, int column) {
    return cells_[static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(numColumns_) +
                  static_cast<std::size_t>(column - 1)];
  }

 private:
  int numColumns_;
  std::vector<double> cells_;
};

inline void PlainSolveToRREF(int R, int N, FullMatrix& A, std::vector<int>& columnOrder) {
  columnOrder.assign(static_cast<std::size_t>(N) + 1, 0);  // entry 0 is not used
  const auto order = [&](int k) -> int& { return columnOrder[static_cast<std::size_t>(k)]; };
  for (int k = 1; k <= N; ++k) order(k) = k;

  for (int k = 1; k <= N; ++k) {
    double best = 0;
    int p = 0;
    int q = 0;
    for (int i = k; i <= R; ++i) {
      for (int c = k; c <= N; ++c) {
        if (std::abs(A(i, c)) > best) {
          best = std::abs(A(i, c));
          p = i;
          q = c;
        }
      }
    }
    if (best < PivotTolerance) break;
    if (p != k) {
      for (int c = 1; c <= N + 1; ++c) std::swap(A(p, c), A(k, c));
    }
    if (q != k) {
      for (int i = 1; i <= R; ++i) std::swap(A(i, q), A(i, k));
      std::swap(order(q), order(k));
    }
    const double pivot = A(k, k);
    for (int c = 1; c <= N + 1; ++c) A(k, c) = c == k ? 1 : A(k, c) / pivot;
    for (int i = 1; i <= R; ++i) {
      if (i == k) continue;
      const double factor = A(i, k);
      for (int c = 1; c <= N + 1; ++c) A(i, c) = c == k ? 0 : A(i, c) - factor * A(k, c);
    }
  }

  for (int i = 1; i <= R; ++i) {
    for (int c = 1; c <= N + 1; ++c) {
      if (std::abs(A(i, c)) < PivotTolerance) A(i, c) = 0;
    }
  }
  if (R < N) return;

  FullMatrix W(R, N + 1);
  for (int i = 1; i <= R; ++i) {
    for (int k = 1; k <= N; ++k) W(i, order(k)) = A(i, k);
    W(i, N + 1) = A(i, N + 1);
  }
  for (int i = 1; i <= R; ++i) {
    for (int c = 1; c <= N + 1; ++c) A(i <= N ? order(i) : i, c) = W(i, c);
  }
  for (int k = 1; k <= N; ++k) order(k) = k;
}
