// Ordered row sums in every form against one sum after another.
#include "kernels/row_sums.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "support/bits.h"
#include "support/numbers.h"

namespace zeph::kernels {
namespace {

using Array = std::vector<double>;

constexpr double kGuard = 77.0;

void Check(std::size_t rows, std::size_t cols, std::size_t skew, bool awkward) {
  SCOPED_TRACE(std::to_string(rows) + "x" + std::to_string(cols) + " skew " + std::to_string(skew));
  std::vector<Array> blocks;
  std::vector<const double*> m;
  for (std::size_t i = 0; i < rows; ++i) {
    blocks.push_back(awkward ? test::Awkward(skew + cols, i) : test::Moderate(skew + cols, i));
    m.push_back(blocks.back().data() + skew);
  }
  const Array v = awkward ? test::Awkward(cols, 99) : test::Moderate(cols, 99);
  Array sums(rows + 4, kGuard), dots(rows + 4, kGuard);
  for (std::size_t i = 0; i < rows; ++i) {
    volatile double sum = 0.0, dot = 0.0;  // volatile: every product and sum is rounded by itself
    for (std::size_t j = 0; j < cols; ++j) {
      const volatile double product = m[i][j] * v[j];
      sum = sum + m[i][j];
      dot = dot + product;
    }
    sums[i] = sum;
    dots[i] = dot;
  }
  for (const Level level : RunnableLevels()) {
    Array got(rows + 4, kGuard);
    RowSumsAt(level).sum(got.data(), m.data(), rows, cols);
    ASSERT_TRUE(test::SameValues(got, sums)) << Name(level);
    got.assign(rows + 4, kGuard);
    RowSumsAt(level).dot(got.data(), m.data(), v.data(), rows, cols);
    ASSERT_TRUE(test::SameValues(got, dots)) << Name(level);
  }
}

TEST(RowSums, MatchOneSumAfterAnotherOnEveryShape) {
  for (std::size_t rows = 0; rows <= 29; ++rows)
    for (std::size_t cols = 0; cols <= 21; ++cols)
      for (bool awkward : {false, true}) Check(rows, cols, (rows + cols) % 4, awkward);
}

TEST(RowSums, MatchOneSumAfterAnotherOnLongRows) {
  for (std::size_t rows : {1u, 3u, 12u, 41u})
    for (std::size_t cols : {67u, 300u, 1001u})
      for (bool awkward : {false, true}) Check(rows, cols, 1, awkward);
}

TEST(RowSums, StartAtPositiveZero) {
  const double zeros[] = {-0.0, -0.0};
  const double* const m[] = {zeros};
  for (const Level level : RunnableLevels()) {
    double sum = 1.0;
    RowSumsAt(level).sum(&sum, m, 1, 2);
    EXPECT_SAME_BITS(sum, 0.0) << Name(level);
  }
}

TEST(RowSums, RunTheFormThatWasAskedFor) {
  EXPECT_EQ(&RowSumsAt(Level::kPortable), &portable::kRowSums);
#if ZEPH_X64
  EXPECT_EQ(&RowSumsAt(Level::kAvx2), &avx2::kRowSums);
  EXPECT_EQ(&RowSumsAt(Level::kAvx512), &avx2::kRowSums);
#endif
}

}  // namespace
}  // namespace zeph::kernels
