// Ordered row sums and lengths in every form against one row after another.
#include "kernels/row_sums.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "support/bits.h"
#include "support/numbers.h"

namespace zeph::kernels {
namespace {

using Array = std::vector<double>;

constexpr double kGuard = 77.0;

double Grown(double r, double x) {
  const bool direct = r < 100.0 && x < 100.0;
  const double leg = r > x ? r : x, other = r > x ? x : r;
  const volatile double ratio = other / leg, one = direct ? r * r : 1.0;
  const volatile double square = direct ? x * x : ratio * ratio;
  const volatile double root = std::sqrt(one + square);
  return direct ? root : leg * root;
}

/// The results of one row, element after element.
struct RowResults {
  double sum, magnitude, dot, length;
};

RowResults Results(const double* row, const Array& v) {
  // volatile: every product, sum and root is rounded separately
  volatile double sum = 0.0, magnitude = 0.0, dot = 0.0, length = 0.0;
  for (std::size_t j = 0; j < v.size(); ++j) {
    const double x = std::fabs(row[j]);
    const volatile double product = row[j] * v[j];
    sum = sum + row[j];
    magnitude = magnitude + x;
    dot = dot + product;
    length = j == 0 ? x : Grown(length, x);
  }
  return {sum, magnitude, dot, length};
}

enum class Values { kModerate, kAwkward, kLarge };
constexpr const char* kValuesNames[] = {"moderate", "awkward", "large"};

/// Lengths of moderate values stay below the bound from which squares are avoided; large ones
/// begin on either side of it.
Array Some(Values values, std::size_t n, unsigned seed) {
  if (values == Values::kAwkward) return test::Awkward(n, seed);
  const double most = values == Values::kLarge ? 300 : 3;
  return test::Moderate(n, seed, -most, most);
}

void Check(std::size_t rows, std::size_t cols, std::size_t skew, Values values) {
  SCOPED_TRACE(::testing::Message() << rows << " x " << cols << ", offset " << skew << ", "
                                    << kValuesNames[static_cast<int>(values)]);
  std::vector<Array> blocks;
  std::vector<const double*> m;
  for (std::size_t i = 0; i < rows; ++i) {
    blocks.push_back(Some(values, skew + cols, static_cast<unsigned>(i)));
    m.push_back(blocks.back().data() + skew);
  }
  const Array v = Some(values, cols, 99);
  const Array guards(rows + 4, kGuard);
  Array sums = guards, magnitudes = guards, dots = guards, lengths = guards;
  for (std::size_t i = 0; i < rows; ++i) {
    const RowResults row = Results(m[i], v);
    sums[i] = row.sum, magnitudes[i] = row.magnitude, dots[i] = row.dot, lengths[i] = row.length;
  }
  for (const Table* form : RunnableTables()) {
    SCOPED_TRACE(form->name);
    const RowSums& sums_of = *form->row_sums;
    Array got = guards;
    sums_of.sum(got.data(), m.data(), rows, cols);
    ASSERT_TRUE(test::SameValues(got, sums)) << "sum";
    got = guards;
    sums_of.magnitude(got.data(), m.data(), rows, cols);
    ASSERT_TRUE(test::SameValues(got, magnitudes)) << "magnitude";
    got = guards;
    sums_of.dot(got.data(), m.data(), v.data(), rows, cols);
    ASSERT_TRUE(test::SameValues(got, dots)) << "dot";
    if (cols == 0) continue;
    got = guards;
    sums_of.length(got.data(), m.data(), rows, cols);
    ASSERT_TRUE(test::SameValues(got, lengths)) << "length";
  }
}

TEST(RowSums, MatchSumsTakenRowByRowOnEveryShape) {
  for (std::size_t rows = 0; rows <= 29; ++rows)
    for (std::size_t cols = 0; cols <= 21; ++cols)
      for (Values values : {Values::kModerate, Values::kAwkward, Values::kLarge})
        Check(rows, cols, (rows + cols) % 4, values);
}

TEST(RowSums, MatchSumsTakenRowByRowOnLongRows) {
  for (std::size_t rows : {1u, 3u, 12u, 41u})
    for (std::size_t cols : {67u, 300u, 1001u})
      for (Values values : {Values::kModerate, Values::kAwkward, Values::kLarge})
        Check(rows, cols, 1, values);
}

/// Either operand at the bound from which squares are avoided, or next to it, in every lane; the two
/// ways round differently for some of these.
TEST(RowSums, LengthsScaleFromAHundredOn) {
  const double below = std::nextafter(100.0, 0.0), above = std::nextafter(100.0, 200.0);
  std::vector<Array> pairs;
  for (int k = 1; k <= 99; ++k)
    for (const double bound : {below, 100.0, above})
      for (const double x : {static_cast<double>(k), k * 1.01})
        pairs.push_back({x, bound}), pairs.push_back({bound, x});
  for (const double x : {below, 100.0, above})
    for (const double y : {below, 100.0, above}) pairs.push_back({x, -y});
  std::size_t differ = 0;
  std::vector<const double*> m;
  for (const Array& pair : pairs) {
    m.push_back(pair.data());
    const volatile double squares = pair[0] * pair[0], others = pair[1] * pair[1];
    const volatile double sum = squares + others;
    differ += std::sqrt(sum) != Grown(std::fabs(pair[0]), std::fabs(pair[1]));
  }
  EXPECT_GT(differ, pairs.size() / 10);
  for (const Table* form : RunnableTables()) {
    Array got(pairs.size());
    form->row_sums->length(got.data(), m.data(), pairs.size(), 2);
    for (std::size_t i = 0; i < pairs.size(); ++i)
      EXPECT_SAME_BITS(got[i], Grown(std::fabs(pairs[i][0]), std::fabs(pairs[i][1])))
          << form->name << ' ' << pairs[i][0] << ' ' << pairs[i][1];
  }
}

TEST(RowSums, StartAtPositiveZero) {
  const double zeros[] = {-0.0, -0.0};
  const double* const m[] = {zeros};
  for (const Table* form : RunnableTables()) {
    double sum = 1.0;
    form->row_sums->sum(&sum, m, 1, 2);
    EXPECT_SAME_BITS(sum, 0.0) << form->name;
    form->row_sums->dot(&sum, m, zeros, 1, 2);
    EXPECT_SAME_BITS(sum, 0.0) << form->name;
  }
}

}  // namespace
}  // namespace zeph::kernels
