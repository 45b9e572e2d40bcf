#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <vector>

#include "oracle/raw_norms.h"
#include "raw_buffers.h"
#include "support/bits.h"
#include "support/not_finite.h"
#include "support/numbers.h"

using namespace zeph::test;

namespace {

using ArrayNorm = double (*)(double*, int, int);
using ArrayOracle = double (*)(const double*, int, int);
struct NamedArrayNorm {
  const char* name;
  ArrayNorm norm;
  ArrayOracle oracle;
};
const NamedArrayNorm kArrayNorms[] = {{"one", ZEPH_ArrayOneNorm, oracle::ArrayOneNorm},
                                      {"two", ZEPH_ArrayTwoNorm, oracle::ArrayTwoNorm},
                                      {"two2", ZEPH_ArrayTwoNorm2, oracle::ArrayTwoNorm2},
                                      {"max", ZEPH_ArrayMaxNorm, oracle::ArrayMaxNorm}};

using MatrixNorm = double (*)(double**, int, int);
using MatrixOracle = double (*)(double* const*, int, int);
struct NamedMatrixNorm {
  const char* name;
  MatrixNorm norm;
  MatrixOracle oracle;
};
const NamedMatrixNorm kMatrixNorms[] = {{"one", ZEPH_MatrixOneNorm, oracle::MatrixOneNorm},
                                        {"max", ZEPH_MatrixMaxNorm, oracle::MatrixMaxNorm},
                                        {"frob", ZEPH_MatrixFrobNorm, oracle::MatrixFrobNorm},
                                        {"frob2", ZEPH_MatrixFrobNorm2, oracle::MatrixFrobNorm2},
                                        {"frob3", ZEPH_MatrixFrobNorm3, oracle::MatrixFrobNorm3}};

/// Mixtures that reach each branch of the scaled step, and every special value.
std::vector<double> Mixture(int kind, std::size_t n, std::uint64_t seed) {
  switch (kind) {
    case 0:
      return Awkward(n, seed);
    case 1:
      return Moderate(n, seed, -40, 40);  // crosses 100 after a few elements
    case 2:
      return Moderate(n, seed, -300, 300);  // both sides of the threshold
    case 3:
      return Moderate(n, seed, -1e300, 1e300);
    case 4:
      return Moderate(n, seed, -1e-310, 1e-310);  // denormals
    default: {
      auto values = Moderate(n, seed, 99.9999, 100.0001);
      Random random(seed);
      for (double& x : values)
        if (random.Below(2)) x = random.Below(2) ? 100.0 : -std::nextafter(100.0, 0.0);
      return values;
    }
  }
}
constexpr int kKinds = 6;

struct Square {
  std::vector<double> cells;
  std::vector<double*> rows;
  Square(int n, std::vector<double> values) : cells(std::move(values)) {
    for (int i = 0; i < n; ++i) rows.push_back(cells.data() + i * n);
  }
};

}  // namespace

TEST(RawArrayNorms, AgreeWithTheOracleToTheBit) {
  for (const auto& named : kArrayNorms)
    for (int kind = 0; kind < kKinds; ++kind)
      for (int n = -1; n <= 40; ++n)
        for (std::uint64_t seed = 0; seed < 8; ++seed) {
          auto a = Mixture(kind, 48, seed);
          const int start = static_cast<int>(seed % 4);
          EXPECT_SAME_VALUE(named.norm(a.data(), n, start), named.oracle(a.data(), n, start))
              << named.name << " kind " << kind << " n " << n << " seed " << seed;
        }
}

TEST(RawArrayNorms, AgreeWithTheOracleOnLongArrays) {
  for (const auto& named : kArrayNorms)
    for (int kind = 0; kind < kKinds; ++kind) {
      auto a = Mixture(kind, 5000, 7);
      EXPECT_SAME_VALUE(named.norm(a.data(), 4990, 3), named.oracle(a.data(), 4990, 3))
          << named.name << " kind " << kind;
    }
}

TEST(RawArrayNorms, ReturnTheFirstElementsNormForACountBelowTwo) {
  double a[] = {1, 2, -3};
  for (const int n : {1, 0, -1, INT_MIN}) {
    SCOPED_TRACE(::testing::Message() << "n " << n);
    EXPECT_EQ(ZEPH_ArrayOneNorm(a, n, 2), 3.0);
    EXPECT_EQ(ZEPH_ArrayTwoNorm(a, n, 2), 3.0);
    EXPECT_EQ(ZEPH_ArrayTwoNorm2(a, n, 2), 3.0);
    EXPECT_EQ(ZEPH_ArrayMaxNorm(a, n, 2), 3.0);
  }
  double tiny[] = {1e-200};  // its square is 0
  EXPECT_EQ(ZEPH_ArrayTwoNorm(tiny, 0, 0), 0.0);
  EXPECT_EQ(ZEPH_ArrayTwoNorm2(tiny, 0, 0), 1e-200);
}

TEST(RawArrayNorms, ReachTheLargestIndex) {
  double values[] = {3, 4};
  double* a = reinterpret_cast<double*>(reinterpret_cast<std::uintptr_t>(values) -
                                        std::uintptr_t{INT_MAX - 1} * sizeof(double));
  EXPECT_EQ(ZEPH_ArrayOneNorm(a, 2, INT_MAX - 1), 7.0);
}

TEST(RawArrayTwoNorm2, AddsDirectlyBelowAHundredAndScalesFromThere) {
  double small[] = {3, 4}, large[] = {300, 400}, huge[] = {3e200, 4e200};
  EXPECT_EQ(ZEPH_ArrayTwoNorm2(small, 2, 0), 5.0);
  EXPECT_EQ(ZEPH_ArrayTwoNorm2(large, 2, 0), 500.0);
  EXPECT_EQ(ZEPH_ArrayTwoNorm2(huge, 2, 0), 4e200 * std::sqrt(1.0 + 0.75 * 0.75));
  EXPECT_EQ(ZEPH_ArrayTwoNorm(huge, 2, 0), kInfinity);
}

TEST(RawArrayTwoNorm2, ScalesWhereEitherOperandIsAHundred) {
  const double below = std::nextafter(100.0, 0.0);
  for (int k = 1; k <= 99; ++k)
    for (const double bound : {below, 100.0, std::nextafter(100.0, 200.0)}) {
      double rising[] = {k * 1.01, -bound}, falling[] = {bound, k * 1.01};
      EXPECT_SAME_BITS(ZEPH_ArrayTwoNorm2(rising, 2, 0), oracle::ArrayTwoNorm2(rising, 2, 0)) << k;
      EXPECT_SAME_BITS(ZEPH_ArrayTwoNorm2(falling, 2, 0), oracle::ArrayTwoNorm2(falling, 2, 0))
          << k;
    }
}

TEST(RawArrayMaxNorm, IgnoresElementsAfterTheCount) {
  for (const int n : {1, 2, 63, 64, 1023, 1024, 1025, 2048}) {
    std::vector<double> a(static_cast<std::size_t>(n) + 1, 1.0);
    a.back() = 2.0;
    EXPECT_EQ(ZEPH_ArrayMaxNorm(a.data(), n, 0), 1.0) << n;
  }
}

TEST(RawArrayMaxNorm, ForgetsTheElementsBeforeANaN) {
  for (int n = 2; n <= 40; ++n)
    for (int at = 0; at < n; ++at) {
      std::vector<double> a(static_cast<std::size_t>(n));
      for (int i = 0; i < n; ++i) a[static_cast<std::size_t>(i)] = -(100.0 - i);
      a[static_cast<std::size_t>(at)] = kNaN;
      const double want = at == n - 1 ? kNaN : 100.0 - (at + 1);
      EXPECT_SAME_VALUE(ZEPH_ArrayMaxNorm(a.data(), n, 0), want) << n << " " << at;
    }
}

TEST(RawMatrixNorms, AgreeWithTheOracleToTheBit) {
  for (const auto& named : kMatrixNorms)
    for (int kind = 0; kind < kKinds; ++kind)
      for (int n = 1; n <= 14; ++n)
        for (int start = 0; start <= 2; ++start) {
          const int side = 16;
          Square square(side, Mixture(kind, side * side, static_cast<std::uint64_t>(n)));
          EXPECT_SAME_VALUE(named.norm(square.rows.data(), n, start),
                            named.oracle(square.rows.data(), n, start))
              << named.name << " kind " << kind << " n " << n << " start " << start;
        }
}

TEST(RawMatrixNorms, AgreeWithTheOracleOnLargeMatrices) {
  const int side = 150;
  for (const auto& named : kMatrixNorms)
    for (int kind = 0; kind < kKinds; ++kind) {
      Square square(side, Mixture(kind, side * side, 9));
      for (const int n : {63, 64, 65, 128, 129, 149})
        EXPECT_SAME_VALUE(named.norm(square.rows.data(), n, 1),
                          named.oracle(square.rows.data(), n, 1))
            << named.name << " kind " << kind << " n " << n;
    }
}

// A single NaN determines the result by its position alone.
TEST(RawMatrixNorms, TreatANaNAsTheOracleDoesAtEveryIndex) {
  const int side = 7;
  for (const auto& named : kMatrixNorms)
    for (int at = 0; at < side * side; ++at) {
      Square square(side, Moderate(side * side, 5));
      square.cells[static_cast<std::size_t>(at)] = kNaN;
      EXPECT_SAME_VALUE(named.norm(square.rows.data(), side, 0),
                        named.oracle(square.rows.data(), side, 0))
          << named.name << " at " << at;
    }
}

TEST(RawMatrixNorms, ReadRowsFromStartButColumnsFromZeroIfTheyWorkByRow) {
  double r0[] = {1000, 1000, 1000}, r1[] = {1, 2, 100}, r2[] = {3, 4, 200};
  double* m[] = {r0, r1, r2};
  EXPECT_EQ(ZEPH_MatrixOneNorm(m, 2, 1), 300.0);  // columns 1 and 2 of rows 1 and 2
  EXPECT_EQ(ZEPH_MatrixMaxNorm(m, 2, 1), 7.0);    // columns 0 and 1
  EXPECT_EQ(ZEPH_MatrixFrobNorm(m, 2, 1), oracle::Grow(std::sqrt(5.0), 5.0));
  EXPECT_EQ(ZEPH_MatrixFrobNorm3(m, 2, 1), std::sqrt(4.0 + 10000 + 16 + 40000));
}

TEST(RawMatrixNorms, OfAnEmptyCountAreZeroIfTheyWorkByColumn) {
  for (const int n : {0, -1, INT_MIN}) {
    EXPECT_SAME_BITS(ZEPH_MatrixOneNorm(nullptr, n, 0), 0.0) << "n " << n;
    EXPECT_SAME_BITS(ZEPH_MatrixFrobNorm2(nullptr, n, 0), 0.0) << "n " << n;
    EXPECT_SAME_BITS(ZEPH_MatrixFrobNorm3(nullptr, n, 0), 0.0) << "n " << n;
  }
}

TEST(RawMatrixNorms, ReadTheFirstRowOfAnEmptyCountIfTheyWorkByRow) {
  double row[] = {-2, 5};
  double* m[] = {nullptr, row};
  for (const int n : {0, -1, INT_MIN}) {
    EXPECT_EQ(ZEPH_MatrixMaxNorm(m, n, 1), 2.0) << "n " << n;
    EXPECT_EQ(ZEPH_MatrixFrobNorm(m, n, 1), 2.0) << "n " << n;
  }
}

TEST(RawMatrixNorms, KeepTheMaximumOfTheFirstRowsOfAThousand) {
  constexpr int kRows = 1000;
  std::vector<double> zeros(kRows), large(kRows);
  large[3] = -5.0;
  std::vector<double*> rows(kRows, zeros.data());
  rows[1] = large.data();
  EXPECT_EQ(5.0, ZEPH_MatrixMaxNorm(rows.data(), kRows, 0));
  EXPECT_EQ(5.0, ZEPH_MatrixFrobNorm(rows.data(), kRows, 0));
}

/// Rows and columns are taken some hundreds at a time: one element at every edge of those, and last.
TEST(RawMatrixNorms, ReadEveryElementOfLargeMatrices) {
  for (const int n : {961, 1025}) {
    const auto count = static_cast<std::size_t>(n);
    std::vector<double> zeros(count), one(count);
    std::vector<double*> rows(count, zeros.data());
    for (const int row : {0, 959, n - 1})
      for (const int col : {0, 64, 959, n - 1}) {
        rows[static_cast<std::size_t>(row)] = one.data();
        one[static_cast<std::size_t>(col)] = -5.0;
        for (const MatrixNorm norm : {ZEPH_MatrixOneNorm, ZEPH_MatrixMaxNorm, ZEPH_MatrixFrobNorm})
          ASSERT_EQ(5.0, norm(rows.data(), n, 0)) << n << " at " << row << ", " << col;
        one[static_cast<std::size_t>(col)] = 0.0;
        rows[static_cast<std::size_t>(row)] = zeros.data();
      }
  }
}

/// Of arrays and matrices whose indices begin below 0.
TEST(RawArrayNorms, BeginAtIndicesBelowZero) {
  auto values = Moderate(24, 11, -300, 300);
  double* const middle = values.data() + 12;
  for (const auto& named : kArrayNorms)
    for (int start = -12; start < 12; ++start)
      for (int n = 1; n <= 12 - start && n <= 9; ++n)
        EXPECT_SAME_BITS(named.norm(middle, n, start), named.oracle(middle + start, n, 0))
            << named.name << " of " << n << " from " << start;
}

TEST(RawMatrixNorms, BeginAtIndicesBelowZero) {
  constexpr int kSide = 11, kLeast = -5;
  auto cells = Moderate(kSide * kSide, 12, -300, 300);
  double* rows[kSide];
  for (int i = 0; i < kSide; ++i) rows[i] = cells.data() + i * kSide - kLeast;
  double** const middle = rows - kLeast;
  for (const auto& named : kMatrixNorms)
    for (int start = kLeast; start <= 0; ++start)
      for (int n = 1; n <= 5; ++n)
        EXPECT_SAME_BITS(named.norm(middle, n, start), named.oracle(middle, n, start))
            << named.name << " of " << n << " from " << start;
}

/// The elements, and the tables of rows, are only read.
TEST(RawNorms, ChangeNothing) {
  const auto values = Awkward(600, 13);
  for (const auto& named : kArrayNorms)
    for (const int n : {1, 2, 9, 40, 590}) {
      auto a = values;
      named.norm(a.data(), n, 3);
      EXPECT_TRUE(SameBits(a, values)) << named.name << " of " << n;
    }
  for (const auto& named : kMatrixNorms)
    for (const int n : {1, 2, 9, 20}) {
      Square square(24, Awkward(24 * 24, 14));
      const auto rows = square.rows;
      named.norm(square.rows.data(), n, 2);
      EXPECT_TRUE(SameBits(square.cells, Awkward(24 * 24, 14))) << named.name << " of " << n;
      EXPECT_EQ(square.rows, rows) << named.name << " of " << n;
    }
}
