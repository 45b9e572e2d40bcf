// SPDX-License-Identifier: MIT
#include <algorithm>

#include "kernels/row_sums.h"
#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

constexpr std::size_t kAbreast = 8;

template <class Term>
void Sums(double* sums, const double* const* m, std::size_t rows, std::size_t cols, Term term) {
  std::size_t i = 0;
  for (; i + kAbreast <= rows; i += kAbreast) {
    const double* row[kAbreast];
    double sum[kAbreast] = {};
    std::copy_n(m + i, kAbreast, row);
    for (std::size_t j = 0; j < cols; ++j)
      for (std::size_t r = 0; r < kAbreast; ++r) sum[r] += term(row[r][j], j);
    std::copy_n(sum, kAbreast, sums + i);
  }
  for (; i < rows; ++i) {
    double sum = 0.0;
    for (std::size_t j = 0; j < cols; ++j) sum += term(m[i][j], j);
    sums[i] = sum;
  }
}

void Sum(double* sums, const double* const* m, std::size_t rows, std::size_t cols) {
  Sums(sums, m, rows, cols, [](double x, std::size_t) { return x; });
}

void Dot(double* sums, const double* const* m, const double* v, std::size_t rows,
         std::size_t cols) {
  Sums(sums, m, rows, cols, [v](double x, std::size_t j) { return x * v[j]; });
}

}  // namespace

const RowSums portable::kRowSums = {Sum, Dot};

}  // namespace zeph::kernels
