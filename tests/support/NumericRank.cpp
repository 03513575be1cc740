#include "support/NumericRank.h"

#include <cmath>
#include <tuple>
#include <utility>

int NumericRank(std::vector<std::vector<double>> rows) {
  int rank = 0;
  for (std::size_t done = 0; done < rows.size(); ++done) {
    std::size_t row = done;
    std::size_t column = 0;
    for (std::size_t r = done; r < rows.size(); ++r) {
      for (std::size_t c = 0; c < rows[r].size(); ++c) {
        if (std::abs(rows[r][c]) > std::abs(rows[row][column])) std::tie(row, column) = std::pair(r, c);
      }
    }
    if (std::abs(rows[row][column]) < 1e-7) break;
    std::swap(rows[row], rows[done]);
    ++rank;
    for (std::size_t r = done + 1; r < rows.size(); ++r) {
      const double factor = rows[r][column] / rows[done][column];
      for (std::size_t c = 0; c < rows[r].size(); ++c) rows[r][c] -= factor * rows[done][c];
    }
  }
  return rank;
}
