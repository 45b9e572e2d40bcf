// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

#include "kernels/forms.h"
#include "kernels/hypotenuse.h"
#include "kernels/row_sums.h"
#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

constexpr std::size_t kAbreast = 8;

/// results[i] = first(x) of column 0, then for each later element x of row i in order:
/// next(results[i], x, its column); 0.0 where there are no columns.
template <class First, class Next>
void ForEachRow(double* results, const double* const* m, std::size_t rows, std::size_t cols,
                First first, Next next) {
  if (cols == 0) {
    std::fill_n(results, rows, 0.0);
    return;
  }
  std::size_t i = 0;
  for (; i + kAbreast <= rows; i += kAbreast) {
    const double* row[kAbreast];
    double running[kAbreast];
    std::copy_n(m + i, kAbreast, row);
    for (std::size_t r = 0; r < kAbreast; ++r) running[r] = first(row[r][0]);
    for (std::size_t j = 1; j < cols; ++j)
      for (std::size_t r = 0; r < kAbreast; ++r) running[r] = next(running[r], row[r][j], j);
    std::copy_n(running, kAbreast, results + i);
  }
  for (; i < rows; ++i) {
    double running = first(m[i][0]);
    for (std::size_t j = 1; j < cols; ++j) running = next(running, m[i][j], j);
    results[i] = running;
  }
}

void Sum(double* sums, const double* const* m, std::size_t rows, std::size_t cols) {
  ForEachRow(
      sums, m, rows, cols, [](double x) { return 0.0 + x; },
      [](double sum, double x, std::size_t) { return sum + x; });
}

void Magnitude(double* sums, const double* const* m, std::size_t rows, std::size_t cols) {
  ForEachRow(
      sums, m, rows, cols, [](double x) { return std::fabs(x); },
      [](double sum, double x, std::size_t) { return sum + std::fabs(x); });
}

void Length(double* lengths, const double* const* m, std::size_t rows, std::size_t cols) {
  ForEachRow(
      lengths, m, rows, cols, [](double x) { return std::fabs(x); },
      [](double length, double x, std::size_t) { return Hypotenuse(length, std::fabs(x)); });
}

void Dot(double* sums, const double* const* m, const double* v, std::size_t rows,
         std::size_t cols) {
  ForEachRow(
      sums, m, rows, cols, [v](double x) { return 0.0 + x * v[0]; },
      [v](double sum, double x, std::size_t j) { return sum + x * v[j]; });
}

}  // namespace

const RowSums portable::kRowSums = {Sum, Magnitude, Length, Dot};

}  // namespace zeph::kernels
