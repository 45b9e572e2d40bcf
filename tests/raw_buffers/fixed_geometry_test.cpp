#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "oracle/fixed_geometry.h"
#include "raw_buffers.h"
#include "support/bits.h"
#include "support/not_finite.h"
#include "support/numbers.h"

using namespace zeph::test;

namespace {

using Matrix = double (*)[3];

Matrix At(std::vector<double>& pool, std::size_t offset) {
  return reinterpret_cast<Matrix>(pool.data() + offset);
}

/// Special values, ordinary ones, and magnitudes about the snapping tolerance.
std::vector<double> Cells(std::size_t n, std::uint64_t seed) {
  switch (seed % 3) {
    case 0:
      return Awkward(n, seed);
    case 1:
      return Moderate(n, seed);
    default: {
      Random random(seed);
      std::vector<double> values(n);
      const double about[] = {0.0,    -0.0,   1.0e-8, -1.0e-8, std::nextafter(1.0e-8, 1.0),
                              5.0e-9, 1.0e-4, -1.0,   1.0,     1.0e-16};
      for (double& x : values) x = about[random.Below(10)];
      return values;
    }
  }
}

void ExpectMatrix(const double m[3][3], const std::vector<double>& want) {
  EXPECT_TRUE(SameBits(&m[0][0], want.data(), 9));
}

void SetIdentity3(double m[3][3]) {
  ZEPH_MatrixSet3(m, 1, 0, 0, 0, 1, 0, 0, 0, 1);
}

}  // namespace

TEST(RawMatrixSet3, StoresRowByRow) {
  double m[3][3];
  ZEPH_MatrixSet3(m, 1, 2, 3, 4, 5, 6, 7, 8, 9);
  ExpectMatrix(m, {1, 2, 3, 4, 5, 6, 7, 8, 9});
}

TEST(RawMatrixSetIdentity4, WritesSixteenDoublesOnly) {
  std::vector<double> m(24, -7);
  ZEPH_MatrixSetIdentity(m.data());
  std::vector<double> want = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  want.resize(24, -7);
  EXPECT_TRUE(SameBits(m, want));
}

TEST(RawMatrixMult4, WritesSixteenDoublesOnly) {
  double a[16], b[16];
  ZEPH_MatrixSetIdentity(a);
  ZEPH_MatrixSetIdentity(b);
  std::vector<double> out(24, -7);
  ZEPH_MatrixMult4(a, b, out.data());
  std::vector<double> want(b, b + 16);
  want.resize(24, -7);
  EXPECT_TRUE(SameBits(out, want));
}

TEST(RawMatrixMultiply3, SnapsEveryPartialSumToZero) {
  double a[3][3] = {{1.0e-8, 1.0, 0}, {5.0e-9, 0, 0}, {std::nextafter(1.0e-8, 1.0), 0, 0}};
  double b[3][3] = {{1, 0, 0}, {1, 0, 0}, {0, 0, 0}};
  double out[3][3];
  ZEPH_MatrixMultiply3(a, b, out);
  EXPECT_SAME_BITS(out[0][0], 1.0);  // not 1.00000001
  EXPECT_SAME_BITS(out[1][0], 0.0);
  EXPECT_SAME_BITS(out[2][0], std::nextafter(1.0e-8, 1.0));
}

TEST(RawMatrixMultiply3, AgreesWithTheOracleForEveryAliasing) {
  for (std::uint64_t seed = 0; seed < 3000; ++seed) {
    const std::size_t outs[] = {18, 0, 9, 5, 12};  // separate, a, b, overlapping each
    for (const std::size_t out : outs) {
      auto got = Cells(27, seed), want = got;
      ZEPH_MatrixMultiply3(At(got, 0), At(got, 9), At(got, out));
      oracle::Multiply3(At(want, 0), At(want, 9), At(want, out));
      ASSERT_TRUE(SameValues(got, want)) << seed << " out at " << out;
    }
  }
}

TEST(RawMatrixMultiply3, KeepsANaN) {
  double a[3][3] = {}, i[3][3];
  SetIdentity3(i);
  a[1][1] = kNaN;
  ZEPH_MatrixMultiply3(a, i, a);
  EXPECT_TRUE(std::isnan(a[1][1]));
  EXPECT_SAME_BITS(a[0][0], 0.0);
}

TEST(RawMatrixMult4, AgreesWithTheOracleOnSeparateAndOverlappingMatrices) {
  for (std::uint64_t seed = 0; seed < 400; ++seed)
    for (std::size_t out = 0; out <= 32; ++out) {  // on `a`, across both, on `b`, apart
      auto got = Cells(48, seed), want = got;
      ZEPH_MatrixMult4(got.data(), got.data() + 16, got.data() + out);
      oracle::Mult4(want.data(), want.data() + 16, want.data() + out);
      ASSERT_TRUE(SameValues(got, want)) << seed << " out at " << out;
    }
}

TEST(RawMatrixMult4, DoesNotSnapToZero) {
  double a[16], b[16], out[16];
  ZEPH_MatrixSetIdentity(a);
  ZEPH_MatrixSetIdentity(b);
  b[3] = 1.0e-9;
  ZEPH_MatrixMult4(a, b, out);
  EXPECT_EQ(out[3], 1.0e-9);
}

TEST(RawMatrixRotate3, RotatesTheIdentityByRightAngles) {
  double m[3][3];
  SetIdentity3(m);
  ZEPH_MatrixRotate3Z(m, 90);
  ExpectMatrix(m, {0, -1, 0, 1, 0, 0, 0, 0, 1});
  SetIdentity3(m);
  ZEPH_MatrixRotate3Y(m, 90);
  ExpectMatrix(m, {0, 0, 1, 0, 1, 0, -1, 0, 0});
  SetIdentity3(m);
  ZEPH_MatrixRotate3X(m, 90);
  ExpectMatrix(m, {1, 0, 0, 0, 0, -1, 0, 1, 0});
}

TEST(RawMatrixRotate3, ByZeroAnglesOnlySnapsToZero) {
  double m[3][3] = {{1, 5.0e-9, -3}, {1.0e-8, -0.0, 2.0e-8}, {-1.0e-8, 7, 1e300}};
  ZEPH_MatrixRotate3(m, 0, 0, 0);
  ExpectMatrix(m, {1, 0, -3, 0, 0, 2.0e-8, 0, 7, 1e300});
}

TEST(RawMatrixRotate3, AgreesWithTheOracleToTheBit) {
  for (std::uint64_t seed = 0; seed < 3000; ++seed) {
    Random random(seed);
    const double angle[3] = {random.Real(-720, 720), random.Real(-1, 1),
                             AwkwardValue<double>(random)};
    auto got = Cells(9, seed), want = got;
    ZEPH_MatrixRotate3X(At(got, 0), angle[0]);
    ZEPH_MatrixRotate3Y(At(got, 0), angle[1]);
    ZEPH_MatrixRotate3Z(At(got, 0), angle[2]);
    ZEPH_MatrixRotate3(At(got, 0), angle[1], angle[0], angle[1]);
    const double all[] = {angle[0], angle[1], angle[2], angle[1], angle[0], angle[1]};
    for (int k = 0; k < 6; ++k) oracle::Rotate3(At(want, 0), k % 3, all[k]);
    ASSERT_TRUE(SameValues(got, want)) << seed;
  }
}

/// Any of the three may turn by nothing, or by whole turns: each is a product that snaps.
TEST(RawMatrixRotate3, ByAnglesOfZeroOnAnyAxisAgreesWithTheOracle) {
  const double angles[] = {0.0, -0.0, 30, 90, -45, 360};
  for (std::uint64_t seed = 0; seed < 12; ++seed)
    for (const double x : angles)
      for (const double y : angles)
        for (const double z : angles) {
          auto got = Cells(9, seed), want = got;
          ZEPH_MatrixRotate3(At(got, 0), x, y, z);
          oracle::Rotate3(At(want, 0), 0, x);
          oracle::Rotate3(At(want, 0), 1, y);
          oracle::Rotate3(At(want, 0), 2, z);
          ASSERT_TRUE(SameValues(got, want)) << seed << ": " << x << ", " << y << ", " << z;
        }
}

TEST(RawMatrixTransform3, AppliesTheMatrixToAColumn) {
  double m[3][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}};
  double x = 1, y = 10, z = 100;
  ZEPH_MatrixTransform3(m, &x, &y, &z);
  EXPECT_EQ(x, 321);
  EXPECT_EQ(y, 654);
  EXPECT_EQ(z, 987);
}

TEST(RawMatrixTransform3, KeepsTheLaterOfTwoAliasedOutputs) {
  double m[3][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}};
  double x = 1, y = 10;
  ZEPH_MatrixTransform3(m, &x, &y, &x);
  EXPECT_EQ(x, 7 + 80 + 9);
  EXPECT_EQ(y, 4 + 50 + 6);
}

// x, y and z anywhere: among themselves and inside the matrix.
TEST(RawMatrixTransform3, AgreesWithTheOracleForEveryAliasing) {
  for (std::size_t x = 0; x < 12; ++x)
    for (std::size_t y = 0; y < 12; ++y)
      for (std::size_t z = 0; z < 12; ++z) {
        auto got = Cells(12, x * 144 + y * 12 + z), want = got;
        ZEPH_MatrixTransform3(At(got, 0), &got[x], &got[y], &got[z]);
        oracle::Transform3(At(want, 0), &want[x], &want[y], &want[z]);
        ASSERT_TRUE(SameValues(got, want)) << x << " " << y << " " << z;
      }
}

TEST(RawMatrixTranspose3, TransposesInPlaceToTheBit) {
  auto m = Awkward(9, 4);
  const std::vector<double> want = {m[0], m[3], m[6], m[1], m[4], m[7], m[2], m[5], m[8]};
  ZEPH_MatrixTranspose3(At(m, 0));
  EXPECT_TRUE(SameBits(m, want));
}
