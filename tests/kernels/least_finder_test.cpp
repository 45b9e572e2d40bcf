// What a search for the least of the remaining elements looks at: its cost, seen in changes that it is not told of.
#include "algorithms/least_finder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <vector>

#include "support/not_finite.h"
#include "support/numbers.h"

using zeph::algorithms::LeastFinder;

namespace {

std::vector<double> Rising(std::size_t n) {
  std::vector<double> v(n);
  for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<double>(i);
  return v;
}

/// The oracle: a scan that moves on only to strictly smaller elements.
std::size_t FirstLeast(const std::vector<double>& v, std::size_t i) {
  std::size_t least = i;
  for (std::size_t k = i + 1; k < v.size(); ++k)
    if (v[k] < v[least]) least = k;
  return least;
}

}  // namespace

TEST(LeastFinder, ReadsOnlyItsOwnBlockAndTheMinimaOfBlocks) {
  for (const std::size_t n : {2'000u, 32'768u, 100'000u}) {
    const std::size_t block = std::max<std::size_t>(128, (n + 255) / 256);
    std::vector<double> v = Rising(n);
    LeastFinder finder(v.data(), n);
    for (std::size_t far = block; far < n; far += 3) v[far] = -1.0;  // unannounced
    EXPECT_EQ(0u, finder.From(0)) << n;
    EXPECT_EQ(block - 1, finder.From(block - 1)) << n;
    v[n - 1] = -2.0;
    finder.Changed(n - 1);
    EXPECT_EQ(n - 1, finder.From(1)) << n;
  }
}

TEST(LeastFinder, AChangeReadsItsOwnBlockOnly) {
  constexpr std::size_t kCount = 4'000, kBlock = 128;
  std::vector<double> v = Rising(kCount);
  LeastFinder finder(v.data(), kCount);
  finder.From(0);
  for (std::size_t i = 10 * kBlock; i < 12 * kBlock; ++i) v[i] = -5.0;  // unannounced
  v[20 * kBlock] = -1.0;
  finder.Changed(20 * kBlock);
  EXPECT_EQ(20 * kBlock, finder.From(0));
  finder.Changed(11 * kBlock + 5);
  EXPECT_EQ(11 * kBlock, finder.From(0)) << "the changed block, not the one before it";
}

/// Ties within blocks and between them, zeros of both signs, NaNs at the beginning of blocks and all through them.
TEST(LeastFinder, AgreesWithALinearScan) {
  zeph::test::Random random(5);
  for (int round = 0; round < 60; ++round) {
    const std::size_t n = 129 + random.Below(900);
    std::vector<double> v(n);
    const int span = round % 3 == 0 ? 1 : 1000;
    for (double& x : v) {
      x = random.Int(-span, span);
      if (x == 0 && random.Below(2)) x = -0.0;
      if (random.Below(8) == 0) x = zeph::test::kNaN;
    }
    for (std::size_t begin = 0; begin < n; begin += 128) {
      if (random.Below(3) == 0) v[begin] = zeph::test::kNaN;
      if (random.Below(6) == 0)
        std::fill_n(v.begin() + static_cast<std::ptrdiff_t>(begin),
                    std::min<std::size_t>(128, n - begin), zeph::test::kNaN);
    }
    LeastFinder finder(v.data(), n);
    for (std::size_t i = 0; i < n; ++i) {
      const std::size_t least = finder.From(i);
      ASSERT_EQ(FirstLeast(v, i), least)
          << "round " << round << ", " << n << " elements, from " << i;
      v[least] = v[i];
      finder.Changed(least);
    }
  }
}
