// The box around points against its definition.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>

#include "batch/inputs.h"
#include "support/modes.h"
#include "support/not_finite.h"
#include "support/scale.h"

namespace zeph::test {
namespace {

/// low, then high, by the documented steps on components.
template <class T>
std::vector<T> Box(const std::vector<T>& values) {
  std::vector<T> box(6);
  for (std::size_t c = 0; c < 3; ++c) box[c] = box[3 + c] = values[c];
  for (std::size_t k = 3; k < values.size(); ++k) {
    volatile T x = values[k];  // compared and moved, never by a minimum instruction
    if (x < box[k % 3]) std::memcpy(&box[k % 3], &values[k], sizeof(T));
    if (x > box[3 + k % 3]) std::memcpy(&box[3 + k % 3], &values[k], sizeof(T));
  }
  return box;
}

template <class V>
std::vector<Component<V>> BatchBox(const std::vector<V>& points) {
  V low, high;
  EXPECT_EQ(ZEPH_BatchBounds(points.data(), static_cast<int>(points.size()), low, high), 1);
  return Values(std::vector<V>{low, high});
}

template <class V>
void CheckBounds() {
  for (const Kind kind : kKinds)
    for (const int n : AllSizes()) {
      if (n == 0) continue;
      SCOPED_TRACE("kind " + std::to_string(static_cast<int>(kind)) + " n=" + std::to_string(n));
      for (std::uint64_t seed = 0; seed < 20; ++seed) {
        const auto values = Numbers<Component<V>>(kind, 3 * static_cast<std::size_t>(n), seed);
        const auto points = Objects<V>(values);
        ForEachForm([&](const std::string& form) {
          ASSERT_TRUE(SameBits(BatchBox(points), Box(values))) << form;
        });
      }
    }
  for (const Kind kind : kKinds)
    for (const int n : kSomeSizes) {
      const auto values = Numbers<Component<V>>(kind, 3 * static_cast<std::size_t>(n), 99);
      const auto points = Objects<V>(values);
      ASSERT_TRUE(MovesInEveryMode([&] { return BatchBox(points); }, [&] { return Box(values); }))
          << n;
    }
}

TEST(BatchBounds, FollowTheDocumentedStepsOfFloats) {
  CheckBounds<CZEPHVector3D>();
}
TEST(BatchBounds, FollowTheDocumentedStepsOfDoubles) {
  CheckBounds<CZEPHVector3>();
}

TEST(BatchBounds, KeepANaNInTheFirstPointAndIgnoreOthers) {
  const float nan = kNaNF;
  std::vector<CZEPHVector3D> points(20, CZEPHVector3D(1, 2, 3));
  points[0].x = nan;
  points[9].y = nan;
  CZEPHVector3D low, high;
  ZEPH_BatchBounds(points.data(), 20, low, high);
  EXPECT_NE(low.x, low.x);
  EXPECT_NE(high.x, high.x);
  EXPECT_EQ(low.y, 2);
  EXPECT_EQ(high.y, 2);
}

/// More points than two registers of any form hold: the lanes meet their first zeros in another
/// order than the points do.
template <class V>
void CheckFirstZeros() {
  using T = Component<V>;
  constexpr std::size_t kPoints = 60;
  for (const T first : {T(0), -T(0)})
    for (const std::size_t at : {0u, 3u, 18u, 40u}) {
      std::vector<V> points(kPoints, V(-first, -first, T(1)));
      for (std::size_t i = 0; i < at; ++i) points[i] = V(T(1), T(-1), T(1));
      points[at] = V(first, first, T(1));
      ForEachForm([&](const std::string& form) {
        const auto box = BatchBox(points);
        EXPECT_TRUE(SameBits(box[0], first)) << at << form;
        EXPECT_TRUE(SameBits(box[4], first)) << at << form;
      });
    }
}

TEST(BatchBounds, KeepTheFirstOfZerosOfBothSigns) {
  CheckFirstZeros<CZEPHVector3D>();
  CheckFirstZeros<CZEPHVector3>();
}

TEST(BatchBounds, OfNoPointsChangeNothingAndReturnZero) {
  CZEPHVector3D low(1, 2, 3), high(4, 5, 6);
  EXPECT_EQ(ZEPH_BatchBounds(nullptr, 0, low, high), 0);
  EXPECT_EQ(ZEPH_BatchBounds(&low, -1, low, high), 0);
  EXPECT_EQ(low.x, 1);
  EXPECT_EQ(high.z, 6);
  CZEPHVector3 lowD(1, 2, 3), highD(4, 5, 6);
  EXPECT_EQ(ZEPH_BatchBounds(nullptr, 0, lowD, highD), 0);
  EXPECT_EQ(ZEPH_BatchBounds(&lowD, -2147483647 - 1, lowD, highD), 0);
  EXPECT_EQ(lowD, CZEPHVector3(1, 2, 3));
  EXPECT_EQ(highD, CZEPHVector3(4, 5, 6));
}

template <class V>
void CheckOneObjectForBoth() {
  for (const int n : {1, 2, 3, 30}) {
    auto points = Objects<V>(Moderate<Component<V>>(3 * static_cast<std::size_t>(n), 6));
    auto want = BatchBox(points);
    V both;
    EXPECT_EQ(ZEPH_BatchBounds(points.data(), n, both, both), 1);  // high is written last
    want.erase(want.begin(), want.begin() + 3);
    EXPECT_TRUE(SameBits(Values(std::vector<V>{both}), want)) << n;
    ZEPH_BatchBounds(points.data(), n, points[0], points[0]);
    EXPECT_TRUE(SameBits(Values(std::vector<V>{points[0]}), want)) << n;
  }
}

TEST(BatchBounds, BothMayBeOneObjectWhichThenHoldsTheUpperCorner) {
  CheckOneObjectForBoth<CZEPHVector3D>();
  CheckOneObjectForBoth<CZEPHVector3>();
}

/// The extreme of each component at each place in turn, the others all alike.
template <class V>
void CheckEveryPlace() {
  using T = Component<V>;
  for (const int n : {1, 2, 3, 7, 8, 9, 16, 17, 33, 70})
    for (int at = 0; at < n; ++at)
      for (std::size_t c = 0; c < 3; ++c)
        for (const T other : {T(1), T(-1)})
          for (const T extreme : {T(-5), T(5), T(0), -T(0)}) {
            std::vector<T> values(3 * static_cast<std::size_t>(n), other);
            values[3 * static_cast<std::size_t>(at) + c] = extreme;
            const auto points = Objects<V>(values);
            ASSERT_TRUE(SameBits(BatchBox(points), Box(values))) << n << " at " << at;
          }
}

/// The first zero of both signs in each component, at every place behind others.
template <class V>
void CheckFirstZeroOfEachComponent() {
  using T = Component<V>;
  for (const int n : {2, 3, 9, 40})
    for (int at = 0; at < n; ++at)
      for (std::size_t c = 0; c < 3; ++c)
        for (const T zero : {T(0), -T(0)})
          for (const T side : {T(1), T(-1)}) {
            std::vector<T> values(3 * static_cast<std::size_t>(n), side);
            for (int i = at; i < n; ++i)
              values[3 * static_cast<std::size_t>(i) + c] = i == at ? zero : -zero;
            const auto points = Objects<V>(values);
            ForEachForm([&](const std::string& form) {
              ASSERT_TRUE(SameBits(BatchBox(points), Box(values))) << form << n << " at " << at;
            });
          }
}

TEST(BatchBounds, KeepTheFirstZeroOfEachComponentAtEveryIndex) {
  CheckFirstZeroOfEachComponent<CZEPHVector3D>();
  CheckFirstZeroOfEachComponent<CZEPHVector3>();
}

TEST(BatchBounds, FindAnExtremeAtEveryIndex) {
  CheckEveryPlace<CZEPHVector3D>();
  CheckEveryPlace<CZEPHVector3>();
}

template <class V>
void CheckNaN() {
  using T = Component<V>;
  const T nan =
      FromBits<T>(static_cast<BitsOf<T>>(Bits(std::numeric_limits<T>::quiet_NaN()) | 0x123u));
  for (const int n : {1, 2, 5, 9, 17, 40})
    for (std::size_t c = 0; c < 3; ++c)
      for (int at = 0; at < n; ++at) {
        auto values = Moderate<T>(3 * static_cast<std::size_t>(n), 8);
        values[3 * static_cast<std::size_t>(at) + c] = at % 2 ? -nan : nan;
        const auto points = Objects<V>(values);
        ASSERT_TRUE(SameBits(BatchBox(points), Box(values))) << n << " at " << at;
      }
}

TEST(BatchBounds, KeepTheBitsOfANaNInAnyComponentOfTheFirstPoint) {
  CheckNaN<CZEPHVector3D>();
  CheckNaN<CZEPHVector3>();
}

/// Corners at every pair of places among points of units and zeros of both signs.
template <class V>
void CheckAmongThePoints() {
  for (const int n : {1, 2, 3, 5})
    for (std::uint64_t seed = 0; seed < Scaled(200); ++seed) {
      const auto values =
          Numbers<Component<V>>(Kind::kUnits, 3 * static_cast<std::size_t>(n), seed);
      const auto box = Box(values);
      for (std::size_t low = 0; low < values.size(); low += 3)
        for (std::size_t high = 0; high < values.size(); high += 3) {
          auto points = Objects<V>(values);
          ZEPH_BatchBounds(points.data(), n, points[low / 3], points[high / 3]);
          auto want = values;
          std::copy_n(box.begin(), 3, want.begin() + static_cast<std::ptrdiff_t>(low));
          std::copy_n(box.begin() + 3, 3, want.begin() + static_cast<std::ptrdiff_t>(high));
          ASSERT_TRUE(SameBits(Values(points), want))
              << n << " seed " << seed << " at " << low / 3 << " and " << high / 3;
        }
    }
}

TEST(BatchBounds, OfZerosOfBothSignsMayLieAtAnyTwoOfThePoints) {
  CheckAmongThePoints<CZEPHVector3D>();
  CheckAmongThePoints<CZEPHVector3>();
}

TEST(BatchBounds, MayLieAmongThePoints) {
  auto points = Objects<CZEPHVector3>(Moderate<double>(3 * 30, 5));
  const auto want = BatchBox(points);
  ZEPH_BatchBounds(points.data(), 30, points[3], points[29]);
  EXPECT_TRUE(SameBits(Values(std::vector<CZEPHVector3>{points[3], points[29]}), want));
}

}  // namespace
}  // namespace zeph::test
