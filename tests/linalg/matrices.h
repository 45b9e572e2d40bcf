// Making matrices of all three kinds from generated numbers, and taking their elements out.
#ifndef ZEPH_TESTS_LINALG_MATRICES_H
#define ZEPH_TESTS_LINALG_MATRICES_H

#include <cstddef>
#include <vector>

#include "linalg.h"
#include "oracle/dense_product.h"
#include "support/bits.h"
#include "support/numbers.h"

namespace zeph::test {

using oracle::Rows;

inline std::size_t Count(int n) {
  return n > 0 ? static_cast<std::size_t>(n) : 0;
}

/// `rows` x `cols` of what `make(n, seed)` gives.
template <class Make>
Rows MakeRows(int rows, int cols, Make make, std::uint64_t seed) {
  Rows out(Count(rows));
  for (std::size_t i = 0; i < out.size(); ++i) out[i] = make(Count(cols), seed * 1000 + i);
  return out;
}

/// Any values, special ones among them, or finite ones whose sums cancel.
inline Rows AwkwardRows(int rows, int cols, std::uint64_t seed) {
  return MakeRows(rows, cols, Awkward<double>, seed);
}
inline Rows ModerateRows(int rows, int cols, std::uint64_t seed) {
  return MakeRows(
      rows, cols, [](std::size_t n, std::uint64_t s) { return Moderate<double>(n, s); }, seed);
}

/// The elements of a matrix of either class, by its fields.
template <class Matrix>
Rows Elements(const Matrix& m) {
  Rows out;
  for (int i = 0; m.m_ppData && i < m.m_nRows; ++i)
    out.emplace_back(m.m_ppData[i], m.m_ppData[i] + m.m_nColumns);
  return out;
}
inline std::vector<double> Elements(const CZEPHVector& v) {
  return {v.begin(), v.end()};
}
inline std::vector<double> Elements(const CZEPHDoubleArray& v) {
  return {v.begin(), v.end()};
}

inline CZEPHDoubleMatrix ToDoubleMatrix(const Rows& rows, int count, int cols) {
  CZEPHDoubleMatrix m(count, cols, 0.0);
  for (std::size_t i = 0; i < rows.size(); ++i)
    std::copy(rows[i].begin(), rows[i].end(), m.m_ppData[i]);
  return m;
}
inline CZEPHMatrix ToMatrix(const Rows& rows) {
  CZEPHMatrix m(static_cast<int>(rows.size()), rows.empty() ? 0 : static_cast<int>(rows[0].size()));
  for (std::size_t i = 0; i < rows.size(); ++i)
    std::copy(rows[i].begin(), rows[i].end(), m.m_ppData[i]);
  return m;
}
inline CZEPHVector ToVector(const std::vector<double>& values) {
  return CZEPHVector(static_cast<int>(values.size()), values.data());
}

/// Row by row; `same` compares two doubles.
template <class Same>
::testing::AssertionResult CompareRows(const Rows& got, const Rows& want, Same same) {
  if (got.size() != want.size())
    return ::testing::AssertionFailure() << got.size() << " rows, want " << want.size();
  for (std::size_t i = 0; i < got.size(); ++i)
    if (const auto result = same(got[i], want[i]); !result)
      return ::testing::AssertionFailure() << "row " << i << ": " << result.message();
  return ::testing::AssertionSuccess();
}
inline ::testing::AssertionResult SameBits(const Rows& got, const Rows& want) {
  return CompareRows(got, want,
                     [](const auto& a, const auto& b) { return SameBits<double>(a, b); });
}
inline ::testing::AssertionResult SameValues(const Rows& got, const Rows& want) {
  return CompareRows(got, want,
                     [](const auto& a, const auto& b) { return SameValues<double>(a, b); });
}

/// The rows with `op(a, b)` in each place.
template <class Op>
Rows Zip(const Rows& a, const Rows& b, Op op) {
  Rows out = a;
  for (std::size_t i = 0; i < a.size(); ++i)
    for (std::size_t j = 0; j < a[i].size(); ++j) {
      volatile double value = op(a[i][j], b[i][j]);
      out[i][j] = value;
    }
  return out;
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_LINALG_MATRICES_H
