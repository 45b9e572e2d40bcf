#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <utility>
#include <vector>

#include "oracle/listing.h"
#include "raw_buffers.h"
#include "support/numbers.h"
#include "support/scale.h"
#include "support/stream.h"

using namespace zeph::test;
using oracle::MatrixListing;
using oracle::VectorLine;

namespace {

char kLabel[] = "M";

struct Square {
  std::vector<double> cells;
  std::vector<double*> rows;
  explicit Square(int n, std::uint64_t seed = 1)
      : cells(Awkward(static_cast<std::size_t>(n) * static_cast<std::size_t>(n), seed)) {
    for (int i = 0; i < n; ++i) rows.push_back(cells.data() + i * n);
  }
  double** m() { return rows.data(); }
};

}  // namespace

TEST(RawMatrixPrint, WritesTheHeaderAndALinePerRow) {
  double top[] = {1, -2.5}, bottom[] = {1e6, 0.000004};
  double* m[] = {top, bottom};
  EXPECT_EQ(Written([&](FILE* f) { ZEPH_MatrixPrint(f, 2, 2, m, kLabel); }),
            "M = \n\t1.00000\t-2.50000\n\t1000000.00000\t0.00000\n");
}

/// No count of columns or rows is special.
TEST(RawMatrixPrint, AgreesWithPrintfOnWideAndTallMatrices) {
  constexpr int kMost = 70;
  Square square(kMost);
  const auto cell = [&](int i, int j) { return square.rows[static_cast<std::size_t>(i)][j]; };
  for (int n = 7; n <= kMost; ++n)
    for (const auto& [rows, cols] : {std::pair{2, n}, std::pair{n, 2}})
      EXPECT_EQ(Written([&, r = rows, c = cols](FILE* f) {
                  ZEPH_MatrixPrint(f, r, c, square.m(), kLabel);
                }),
                MatrixListing(rows, cols, cell, kLabel));
}

TEST(RawMatrixPrint, AgreesWithPrintfOnEveryShape) {
  Square square(6);
  const auto cell = [&](int i, int j) { return square.rows[static_cast<std::size_t>(i)][j]; };
  for (int rows = -1; rows <= 6; ++rows) {
    for (int cols = -1; cols <= 6; ++cols)
      EXPECT_EQ(Written([&](FILE* f) { ZEPH_MatrixPrint(f, rows, cols, square.m(), kLabel); }),
                MatrixListing(rows, cols, cell, kLabel))
          << "rows " << rows << ", cols " << cols;
    EXPECT_EQ(Written([&](FILE* f) { ZEPH_MatrixPrint(f, rows, square.m(), kLabel); }),
              MatrixListing(rows, rows, cell, kLabel))
        << "rows " << rows;
  }
}

TEST(RawMatrixPrint, WritesMatricesOfFixedSize) {
  Square square(4, 2);
  const auto cell = [&](int i, int j) { return square.rows[static_cast<std::size_t>(i)][j]; };
  EXPECT_EQ(Written([&](FILE* f) { ZEPH_MatrixPrint3(f, square.m(), kLabel); }),
            MatrixListing(3, 3, cell, kLabel));
  EXPECT_EQ(Written([&](FILE* f) { ZEPH_MatrixPrint4(f, square.m(), kLabel); }),
            MatrixListing(4, 4, cell, kLabel));
  EXPECT_EQ(Written([&](FILE* f) { ZEPH_MatrixPrint4(f, square.cells.data(), kLabel); }),
            MatrixListing(4, 4, cell, kLabel));
}

TEST(RawMatrixPrint, DoesNotReadAMatrixWithoutRows) {
  EXPECT_EQ(Written([](FILE* f) { ZEPH_MatrixPrint(f, 0, 3, nullptr, kLabel); }), "M = \n");
  EXPECT_EQ(Written([](FILE* f) { ZEPH_MatrixPrint(f, INT_MIN, nullptr, kLabel); }), "M = \n");
}

TEST(RawMatrixPrint, PrintsTheFlatIdentity) {
  double m[16];
  ZEPH_MatrixSetIdentity(m);
  EXPECT_EQ(Written([&](FILE* f) { ZEPH_MatrixPrint4(f, m, kLabel); }),
            "M = \n"
            "\t1.00000\t0.00000\t0.00000\t0.00000\n"
            "\t0.00000\t1.00000\t0.00000\t0.00000\n"
            "\t0.00000\t0.00000\t1.00000\t0.00000\n"
            "\t0.00000\t0.00000\t0.00000\t1.00000\n");
}

TEST(RawMatrixPrint, WritesAnyLabelAsText) {
  double row[] = {1};
  double* m[] = {row};
  char percent[] = "%d%s";
  char* none = nullptr;
  EXPECT_EQ(Written([&](FILE* f) { ZEPH_MatrixPrint(f, 1, m, percent); }), "%d%s = \n\t1.00000\n");
  EXPECT_EQ(Written([&](FILE* f) { ZEPH_MatrixPrint(f, 0, m, none); }), "(null) = \n");
}

TEST(RawMatrixPrint, MatchesPrintfForAMillionDoubles) {
  const int rows = static_cast<int>(Scaled(1000)), cols = 1000;
  std::vector<double> cells(static_cast<std::size_t>(rows) * 1000);
  Random random(3);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    // Half of any bits (up to 309 digits), half close to ties of the fifth decimal.
    const double tie = static_cast<double>(random.Int(-9999999, 9999999)) * 0.5e-5;
    cells[i] = i % 8 == 0  ? FromBits<double>(random.Next())
               : i % 8 < 3 ? static_cast<double>(random.Int(-99999, 99999)) * 0x1p-7
                           : tie;
  }
  std::vector<double*> m;
  for (int i = 0; i < rows; ++i) m.push_back(cells.data() + i * cols);
  const std::string got =
      Written([&](FILE* f) { ZEPH_MatrixPrint(f, rows, cols, m.data(), kLabel); });
  EXPECT_TRUE(got == MatrixListing(
                         rows, cols,
                         [&](int i, int j) { return m[static_cast<std::size_t>(i)][j]; }, kLabel));
}

TEST(RawVectorPrint3, WritesOneLine) {
  double v[] = {1, 2, 3};
  char p[] = "p";
  EXPECT_EQ(Written([&](FILE* f) { ZEPH_VectorPrint3(f, v, p); }),
            "p = (1.00000 2.00000 3.00000)\n");
  for (std::uint64_t seed = 0; seed < 50; ++seed) {
    auto any = Awkward(3, seed);
    EXPECT_EQ(Written([&](FILE* f) { ZEPH_VectorPrint3(f, any.data(), p); }),
              VectorLine(any.data(), p))
        << "seed " << seed;
  }
}
