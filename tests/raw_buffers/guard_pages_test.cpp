// Functions on plain buffers that end or begin at a page boundary, beside inaccessible pages.
#include "support/guarded.h"

#ifdef ZEPH_TEST_GUARDED
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <string>
#include <vector>

#include "raw_buffers.h"

namespace {

using zeph::test::Guarded;

template <class T = double>
std::vector<T> Rising(std::size_t n) {
  std::vector<T> v(n);
  std::iota(v.begin(), v.end(), T(1));
  return v;
}

/// Lengths up to three registers of any form, and around the edges of blocks.
std::vector<int> Lengths() {
  std::vector<int> lengths(26);
  std::iota(lengths.begin(), lengths.end(), 1);
  for (const int edge : {32, 64, 128, 256, 512})
    for (const int n : {edge - 1, edge, edge + 1}) lengths.push_back(n);
  return lengths;
}

template <class Body>
void ForEachPlace(Body body) {
  for (const bool atEnd : {true, false})
    for (const int n : Lengths()) {
      SCOPED_TRACE(::testing::Message() << n << (atEnd ? " at the end" : " at the beginning"));
      body(n, atEnd);
    }
}

/// A square matrix with contiguous rows, the last of them at the boundary.
struct Square {
  Square(const Guarded& pages, int n, bool atEnd) {
    const auto count = static_cast<std::size_t>(n);
    double* cells = pages.Copy(Rising(count * count), atEnd);
    for (std::size_t i = 0; i < count; ++i) rows.push_back(cells + i * count);
  }
  std::vector<double*> rows;
};

TEST(RawGuardPages, NormsOfArraysStayInBounds) {
  const Guarded pages;
  ForEachPlace([&](int n, bool atEnd) {
    const auto count = static_cast<std::size_t>(n);
    double* a = pages.Copy(Rising(count), atEnd);
    EXPECT_EQ(n * (n + 1) / 2, ZEPH_ArrayOneNorm(a, n, 0));
    EXPECT_EQ(n, ZEPH_ArrayMaxNorm(a, n, 0));
    EXPECT_EQ(n, ZEPH_ArrayMaxNorm(a - 7, n, 7));
    EXPECT_GE(ZEPH_ArrayTwoNorm(a, n, 0), n);
    EXPECT_GE(ZEPH_ArrayTwoNorm2(a, n, 0), n);
  });
}

TEST(RawGuardPages, MergesStayInBounds) {
  const Guarded a, b, out;
  ForEachPlace([&](int n, bool atEnd) {
    const auto count = static_cast<std::size_t>(n);
    double* merged = out.Room<double>(2 * count, atEnd);
    ZEPH_ArrayMergeSorted(a.Copy(Rising(count), atEnd), n, b.Copy(Rising(count), atEnd), n, merged);
    EXPECT_TRUE(std::is_sorted(merged, merged + 2 * n));
    int* ints = out.Room<int>(2 * count, atEnd);
    ZEPH_ArrayMergeSorted(a.Copy(Rising<int>(count), atEnd), n, b.Copy(Rising<int>(count), atEnd),
                          n, ints);
    EXPECT_EQ(n, ints[2 * n - 1]);
  });
}

TEST(RawGuardPages, MatricesStayInBounds) {
  std::vector<int> sizes(36);  // then around the strips of columns
  std::iota(sizes.begin(), sizes.end(), 1);
  sizes.insert(sizes.end(), {63, 64, 65, 66, 127, 128, 130});
  constexpr std::size_t kBytes = 130 * 130 * sizeof(double);
  const Guarded pages(kBytes), others(kBytes), results(kBytes);
  for (const bool atEnd : {true, false})
    for (const int n : sizes) {
      SCOPED_TRACE(::testing::Message() << "atEnd " << atEnd << ", n " << n);
      Square a(pages, n, atEnd), b(others, n, atEnd), out(results, n, atEnd);
      const int last = n - 1;
      ZEPH_MatrixTranspose(n, a.rows.data(), out.rows.data());
      EXPECT_EQ(a.rows[0][last], out.rows[static_cast<std::size_t>(last)][0]);
      ZEPH_MatrixTranspose(n, a.rows[0], out.rows[0]);
      EXPECT_EQ(a.rows[0][last], out.rows[static_cast<std::size_t>(last)][0]);
      ZEPH_MatrixMult(n, n, a.rows.data(), n, n, b.rows.data(), out.rows.data());
      EXPECT_EQ(b.rows[static_cast<std::size_t>(last)][last] + a.rows[0][last], out.rows[0][last]);
      EXPECT_LE(n * n, ZEPH_MatrixOneNorm(a.rows.data(), n, 0));
      EXPECT_LE(n * n, ZEPH_MatrixMaxNorm(a.rows.data(), n, 0));
      const double length = ZEPH_MatrixFrobNorm3(a.rows.data(), n, 0);
      EXPECT_NEAR(length, ZEPH_MatrixFrobNorm(a.rows.data(), n, 0), length * 1e-12);
      EXPECT_NEAR(length, ZEPH_MatrixFrobNorm2(a.rows.data(), n, 0), length * 1e-12);
      ZEPH_MatrixSetIdentity(n, out.rows.data());
      EXPECT_EQ(1.0, out.rows[static_cast<std::size_t>(last)][last]);
    }
}

TEST(RawGuardPages, FixedSizesStayInBounds) {
  const Guarded a, b, out;
  for (const bool atEnd : {true, false}) {
    SCOPED_TRACE(::testing::Message() << "atEnd " << atEnd);
    double *x = a.Copy(Rising(16), atEnd), *y = b.Copy(Rising(16), atEnd);
    double* to = out.Room<double>(16, atEnd);
    ZEPH_MatrixMult4(x, y, to);
    ZEPH_MatrixSetIdentity(to);
    EXPECT_EQ(1.0, to[15]);
    using Matrix3 = double(*)[3];
    auto p = reinterpret_cast<Matrix3>(a.Copy(Rising(9), atEnd));
    auto q = reinterpret_cast<Matrix3>(b.Copy(Rising(9), atEnd));
    auto r = reinterpret_cast<Matrix3>(out.Room<double>(9, atEnd));
    ZEPH_MatrixMultiply3(p, q, r);
    ZEPH_MatrixMult3(p, q, r);
    EXPECT_EQ(9.0 + 3.0, r[0][2]);
    ZEPH_MatrixTranspose3(r);
    ZEPH_MatrixRotate3(r, 10, 20, 30);
    double *u = a.Copy(Rising(3), atEnd), *v = b.Copy(Rising(3), atEnd),
           *w = out.Room<double>(3, atEnd);
    ZEPH_VectorAdd3(u, v, w);
    EXPECT_EQ(6.0, w[2]);
    ZEPH_VectorSub3(u, v, w);
    ZEPH_VectorScale3(u, 2.0, w);
    ZEPH_VectorCrossProduct3(u, v, w);
    EXPECT_EQ(0.0, w[2]);
    ZEPH_VectorAssign3(u, w);
    EXPECT_EQ(14.0, ZEPH_VectorDotProduct3(u, w));
    ZEPH_VectorNormalize3(w);
    EXPECT_LT(ZEPH_VectorGetLength3(w), 1.1);
  }
}

TEST(RawGuardPages, ListingsStayInBounds) {
  const Guarded pages, labels;
  ForEachPlace([&](int n, bool atEnd) {
    const auto count = static_cast<std::size_t>(n);
    char* name = labels.Copy(std::vector<char>{'a', 'b', '\0'}, atEnd);
    CString text;
    ZEPH_ArrayDisplay(text, pages.Copy(Rising(count), atEnd), 0, n - 1, name);
    EXPECT_GT(text.GetLength(), 6 * n);
    CString ints;
    ZEPH_ArrayDisplay(ints, pages.Copy(Rising<int>(count), atEnd) - 3, 3, n + 2, name);
    EXPECT_GT(ints.GetLength(), 6 * n);
  });
}

}  // namespace
#endif
