// The matrix product, one statement per step.
#ifndef ZEPH_TESTS_ORACLE_DENSE_PRODUCT_H
#define ZEPH_TESTS_ORACLE_DENSE_PRODUCT_H

#include <cstddef>
#include <vector>

namespace oracle {

using Rows = std::vector<std::vector<double>>;

/// `a` is rows x inner, `b` inner x cols; the counts are given because either may be 0.
inline Rows DenseProduct(const Rows& a, const Rows& b, std::size_t rows, std::size_t inner,
                         std::size_t cols) {
  Rows out(rows, std::vector<double>(cols));
  for (std::size_t i = 0; i < rows; ++i)
    for (std::size_t j = 0; j < cols; ++j) {
      volatile double sum = 0.0;  // volatile: every product and sum is rounded separately
      for (std::size_t k = 0; k < inner; ++k) {
        volatile double product = a[i][k] * b[k][j];
        sum = sum + product;
      }
      out[i][j] = sum;
    }
  return out;
}

}  // namespace oracle

#endif  // ZEPH_TESTS_ORACLE_DENSE_PRODUCT_H
