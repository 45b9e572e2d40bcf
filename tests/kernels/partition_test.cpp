#include "kernels/partition.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "oracle/sorts.h"
#include "support/bits.h"
#include "support/hostile.h"
#include "support/not_finite.h"
#include "support/numbers.h"

namespace zeph::kernels {
namespace {

using test::kInfinity;
using test::kNaN;
using test::Random;
using Values = std::vector<double>;

/// Every form this machine can run, each named for the failure message.
class PartitionKernel : public testing::TestWithParam<const Table*> {
 protected:
  const Partitions& form() const { return *GetParam()->partitions; }

  /// Partitions `v`, as the median of three leaves it, inside a guarded block.
  void Check(Values v, std::size_t skew) const {
    constexpr std::size_t kGuard = 16;
    const int last = static_cast<int>(v.size()) - 1;
    const double pivot = oracle::MedianOf3(v, 0, last);
    Values block(skew + kGuard, -7);
    block.insert(block.end(), v.begin(), v.end());
    block.insert(block.end(), kGuard, -7);
    double* const at = block.data() + skew + kGuard;
    const std::size_t stop = form().part(at, v.size(), pivot);
    SCOPED_TRACE(::testing::Message()
                 << v.size() << " elements at " << skew << ", pivot " << test::Show(pivot));
    ASSERT_EQ(stop, static_cast<std::size_t>(oracle::QuickPartition(v, 0, last, pivot)));
    ASSERT_TRUE(test::SameBits(at, v.data(), v.size()));
    for (std::size_t i = 0; i < kGuard; ++i) {
      ASSERT_EQ(at[-1 - static_cast<std::ptrdiff_t>(i)], -7) << "i " << i;
      ASSERT_EQ(at[v.size() + i], -7) << "i " << i;
    }
  }
};

INSTANTIATE_TEST_SUITE_P(Forms, PartitionKernel, testing::ValuesIn(RunnableTables()),
                         [](const auto& form) { return std::string(form.param->name); });

TEST_P(PartitionKernel, MakesTheDocumentedExchangesAtEveryLength) {
  for (std::size_t n = 3; n <= 330; ++n)
    test::ForEachHostile(n, n, [&](const Values& v, const std::string& name) {
      SCOPED_TRACE(name);
      if (!HasFatalFailure()) Check(v, n % 9);
    });
  for (std::size_t n : {1000u, 1001u, 4096u})
    test::ForEachHostile(n, n, [&](const Values& v, const std::string& name) {
      SCOPED_TRACE(name);
      if (!HasFatalFailure()) Check(v, n % 7);
    });
}

TEST_P(PartitionKernel, MakesTheDocumentedExchangesAmongEqualElements) {
  for (std::size_t n = 3; n <= 600; ++n) {
    Random random(n);
    Values v(n);
    const int letters = static_cast<int>(n % 4);
    for (double& x : v) x = random.Below(2) ? 0.0 : -0.0;
    for (int k = 0; k < letters; ++k) v[random.Below(n)] = random.Int(-1, 1);
    if (n % 5 == 0) v[random.Below(n)] = kNaN;
    ASSERT_NO_FATAL_FAILURE(Check(v, 0)) << n;
  }
}

TEST_P(PartitionKernel, FindsTheScanStopsAmongUpTo64Elements) {
  Random random(4);
  for (std::size_t n = 0; n <= 64; ++n)
    for (int round = 0; round < 20; ++round) {
      Values v = test::Awkward(n, random.Next());
      v.shrink_to_fit();  // a read after the end is out of bounds
      const double pivot = n && round % 2 ? v[random.Below(n)] : test::AwkwardValue<double>(random);
      std::uint64_t not_less = 0, not_greater = 0;
      for (std::size_t k = 0; k < n; ++k) {
        if (!(v[k] < pivot)) not_less |= std::uint64_t{1} << k;
        if (!(v[k] > pivot)) not_greater |= std::uint64_t{1} << k;
      }
      ASSERT_EQ(form().not_less(v.data(), n, pivot), not_less) << n;
      ASSERT_EQ(form().not_greater(v.data(), n, pivot), not_greater) << n;
    }
}

TEST_P(PartitionKernel, CountsNaNsAndZerosOfBothSigns) {
  for (std::size_t n :
       {0u, 1u, 2u, 3u, 4u, 5u, 7u, 8u, 9u, 31u, 63u, 64u, 65u, 127u, 128u, 129u, 1000u})
    for (std::uint64_t seed = 0; seed < 30; ++seed) {
      const Values v = test::Awkward(n, seed);
      Census want;
      for (double x : v) {
        want.nans += std::isnan(x);
        want.zeros += x == 0;
        want.plus += x == 0 && !std::signbit(x);
        want.minus += x == 0 && std::signbit(x);
      }
      const Census census = form().census(v.data(), n);
      ASSERT_EQ(census.nans, want.nans) << n;
      ASSERT_EQ(census.zeros, want.zeros) << n;
      ASSERT_EQ(census.plus, want.plus) << n;
      ASSERT_EQ(census.minus, want.minus) << n;
    }
}

TEST_P(PartitionKernel, BoundsAreTheLeastAndGreatestElement) {
  for (std::size_t n = 1; n <= 130; ++n) {
    Values v = test::Moderate(n, n);
    Bounds bounds = form().bounds(v.data(), n);
    EXPECT_EQ(bounds.least, *std::min_element(v.begin(), v.end())) << n;
    EXPECT_EQ(bounds.greatest, *std::max_element(v.begin(), v.end())) << n;
    v[n * 7 % n] = v[n / 2] = kNaN;
    bounds = form().bounds(v.data(), n);
    EXPECT_EQ(bounds.least, -kInfinity) << n;
    EXPECT_EQ(bounds.greatest, kInfinity) << n;
  }
}

TEST(Census, OrderIsUniqueOnlyWithoutNaNAndWithZerosOfOneSign) {
  EXPECT_TRUE((Census{0, 0, 0, 0}.OrderIsUnique()));
  EXPECT_TRUE((Census{0, 3, 3, 0}.OrderIsUnique()));
  EXPECT_TRUE((Census{0, 3, 0, 3}.OrderIsUnique()));
  EXPECT_FALSE((Census{0, 3, 2, 1}.OrderIsUnique()));
  EXPECT_FALSE((Census{1, 0, 0, 0}.OrderIsUnique()));
  EXPECT_FALSE((Census{0, 2, 1, 0}.OrderIsUnique()));  // a denormal treated as zero
}

}  // namespace
}  // namespace zeph::kernels
