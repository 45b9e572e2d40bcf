// SPDX-License-Identifier: MIT
#include "kernels/halving.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/numbers.h"
#include "support/scale.h"

namespace zeph::kernels {
namespace {

/// The documented steps; n for a miss.
template <class T>
std::size_t Stepwise(const std::vector<T>& v, T x) {
  std::ptrdiff_t lo = 0, hi = static_cast<std::ptrdiff_t>(v.size()) - 1;
  while (lo <= hi) {
    const auto middle = static_cast<std::size_t>((lo + hi) / 2);
    if (v[middle] == x) return middle;
    if (x > v[middle])
      lo = static_cast<std::ptrdiff_t>(middle) + 1;
    else
      hi = static_cast<std::ptrdiff_t>(middle) - 1;
  }
  return v.size();
}

/// Both searches separately.
template <class T>
void Compare(const std::vector<T>& v, T x) {
  const std::size_t want = Stepwise(v, x);
  ASSERT_EQ(FindByHalving(v.data(), v.size(), x), want) << x << " among " << v.size();
  if (v.empty()) return;
  const T* far = halving::MeetFar(halving::Range<T>{v.data(), v.size()}, x);
  ASSERT_EQ(far ? static_cast<std::size_t>(far - v.data()) : v.size(), want)
      << x << " among " << v.size();
}

TEST(Halving, FindsTheDocumentedElementForEveryCountAndKey) {
  for (std::size_t n = 0; n <= 300; ++n) {
    std::vector<double> v(n);
    std::vector<int> whole(n);
    for (std::size_t i = 0; i < n; ++i) v[i] = whole[i] = static_cast<int>(2 * i);
    for (int x = -1; x <= static_cast<int>(2 * n); ++x) {
      ASSERT_NO_FATAL_FAILURE(Compare<double>(v, x));
      ASSERT_NO_FATAL_FAILURE(Compare<int>(whole, x));
    }
  }
}

TEST(Halving, FindsTheDocumentedOneOfManyEqualElements) {
  test::Random random(1);
  for (int round = 0; round < test::Scaled(20'000, 2000); ++round) {
    std::vector<double> v(1 + random.Below(round % 9 ? 300 : 6000));
    const int distinct = random.Int(1, 40);
    for (double& x : v) x = random.Int(0, distinct);
    std::sort(v.begin(), v.end());
    ASSERT_NO_FATAL_FAILURE(Compare<double>(v, random.Int(-1, distinct + 1)));
  }
}

TEST(Halving, FollowsTheStepsThroughUnsortedElements) {
  test::Random random(2);
  for (int round = 0; round < test::Scaled(20'000, 2000); ++round) {
    const auto v = test::Awkward(1 + random.Below(round % 9 ? 300 : 6000), random.Next());
    ASSERT_NO_FATAL_FAILURE(Compare(v, v[random.Below(v.size())]));
    ASSERT_NO_FATAL_FAILURE(Compare(v, test::AwkwardValue<double>(random)));
  }
}

TEST(Halving, FollowsTheStepsThroughArraysLargerThanTheCaches) {
  const std::size_t n = halving::kNearBytes / sizeof(double) + 12'345;
  std::vector<double> v(n);
  for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<double>(i / 3);
  test::Random random(3);
  for (int round = 0; round < 2000; ++round)
    ASSERT_NO_FATAL_FAILURE(
        Compare<double>(v, static_cast<double>(random.Below(n / 3 + 2)) - (round % 4 == 0) * 0.5));
}

}  // namespace
}  // namespace zeph::kernels
