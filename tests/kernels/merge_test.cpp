// SPDX-License-Identifier: MIT
#include "kernels/merge.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <utility>

#include "support/not_finite.h"
#include "support/numbers.h"
#include "support/scale.h"

#if defined(__x86_64__)
#include <xmmintrin.h>
#endif

namespace zeph::kernels {
namespace {

using test::kInfinity;
using test::kNaN;
using test::Random;

/// The documented steps.
template <class T>
std::vector<T> Stepwise(const std::vector<T>& a, const std::vector<T>& b) {
  std::vector<T> out;
  std::size_t i = 0, k = 0;
  while (i < a.size() && k < b.size()) out.push_back(b[k] > a[i] ? a[i++] : b[k++]);
  while (i < a.size()) out.push_back(a[i++]);
  while (k < b.size()) out.push_back(b[k++]);
  return out;
}

::testing::AssertionResult Same(const std::vector<double>& got, const std::vector<double>& want) {
  return test::SameBits(got, want);
}
::testing::AssertionResult Same(const std::vector<int>& got, const std::vector<int>& want) {
  if (got == want) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << "got " << ::testing::PrintToString(got) << ", want " << ::testing::PrintToString(want);
}

class MergeKernel : public testing::TestWithParam<const Table*> {
 protected:
  void SetUp() override { Force(*GetParam()); }
  void TearDown() override { Force(*RunnableTables().back()); }

  /// Merges both ways round, between guards.
  template <class T>
  void Check(const std::vector<T>& a, const std::vector<T>& b, const char* what) {
    CheckOnce(a, b, what);
    if (!HasFatalFailure()) CheckOnce(b, a, what);
  }

 private:
  template <class T>
  void CheckOnce(const std::vector<T>& a, const std::vector<T>& b, const char* what) {
    constexpr std::size_t kGuard = 16;
    std::vector<T> out(a.size() + b.size() + 2 * kGuard, T(77));
    MergeAscending(a.data(), static_cast<std::ptrdiff_t>(a.size()), b.data(),
                   static_cast<std::ptrdiff_t>(b.size()), out.data() + kGuard);
    for (std::size_t i = 0; i < kGuard; ++i) {
      ASSERT_EQ(out[i], T(77)) << what;
      ASSERT_EQ(out[out.size() - 1 - i], T(77)) << what;
    }
    const std::vector<T> got(out.begin() + kGuard, out.end() - kGuard);
    ASSERT_TRUE(Same(got, Stepwise(a, b))) << what << " " << a.size() << " with " << b.size();
  }
};

INSTANTIATE_TEST_SUITE_P(Forms, MergeKernel, testing::ValuesIn(RunnableTables()),
                         [](const auto& table) { return std::string(table.param->name); });

template <class T>
std::vector<T> Ascending(Random& random, std::size_t n, int distinct) {
  std::vector<T> v(n);
  for (T& x : v) x = static_cast<T>(random.Int(-distinct, distinct));
  std::sort(v.begin(), v.end());
  return v;
}

TEST_P(MergeKernel, FollowsTheStepsAtEverySizeAndNumberOfTies) {
  Random random(1);
  for (std::size_t na :
       {0u, 1u, 7u, 8u, 15u, 16u, 31u, 63u, 64u, 65u, 80u, 100u, 127u, 200u, 1000u})
    for (std::size_t nb : {0u, 1u, 8u, 17u, 33u, 64u, 66u, 96u, 128u, 129u, 777u})
      for (int distinct : {0, 1, 5, 100, 1 << 30}) {
        ASSERT_NO_FATAL_FAILURE(Check(Ascending<double>(random, na, distinct),
                                      Ascending<double>(random, nb, distinct), "doubles"));
        ASSERT_NO_FATAL_FAILURE(Check(Ascending<int>(random, na, distinct),
                                      Ascending<int>(random, nb, distinct), "ints"));
      }
}

TEST_P(MergeKernel, FollowsTheStepsWhereTheBlocksAlternateInRuns) {
  for (std::size_t run : {1u, 2u, 3u, 7u, 8u, 9u, 15u, 16u, 17u, 50u, 500u})
    for (std::size_t n : {40u, 64u, 128u, 1000u, 1023u}) {
      std::vector<double> a, b;
      for (std::size_t i = 0; i < n; ++i)
        (i / run % 2 ? a : b).push_back(static_cast<double>(i) - 300);
      ASSERT_NO_FATAL_FAILURE(Check(a, b, "turns"));
    }
}

TEST_P(MergeKernel, FollowsTheStepsWhereOneBlockRunsOutFirst) {
  Random random(5);
  for (std::size_t tail : {1u, 15u, 16u, 31u, 40u, 500u}) {
    auto a = Ascending<double>(random, 200, 1000);
    const auto b = Ascending<double>(random, 200, 1000);
    for (std::size_t i = 0; i < tail; ++i) a.push_back(2000.0 + static_cast<double>(i));
    ASSERT_NO_FATAL_FAILURE(Check(a, b, "the end of one"));
  }
}

/// The ends of either block, of every length, behind all that comes before.
TEST_P(MergeKernel, FollowsTheStepsWhereBothBlocksEndInRuns) {
  Random random(6);
  const auto first = Ascending<double>(random, 70, 1000),
             second = Ascending<double>(random, 70, 1000);
  for (int tailA = 0; tailA <= 34; ++tailA)
    for (int tailB = 0; tailB <= 34; ++tailB) {
      auto a = first, b = second;
      for (int i = 0; i < tailA; ++i) a.push_back(2000 + i);
      for (int i = 0; i < tailB; ++i) b.push_back(3000 + i);
      ASSERT_NO_FATAL_FAILURE(Check(a, b, "runs at the ends"));
      ASSERT_NO_FATAL_FAILURE(Check(b, a, "runs at the ends, exchanged"));
    }
}

TEST_P(MergeKernel, KeepsTheBitsAndTheOrderOfZerosAndSpecialValues) {
  constexpr double kTiny = std::numeric_limits<double>::denorm_min();
  Random random(2);
  for (int round = 0; round < test::Scaled(3000, 300); ++round) {
    std::vector<double> blocks[2];
    for (auto& v : blocks) {
      v.resize(random.Below(300));
      const double values[] = {-kInfinity, -1, -kTiny, -0.0, 0.0, kTiny, 2 * kTiny, 1, kInfinity};
      for (double& x : v) x = values[random.Below(9)];
      std::stable_sort(v.begin(), v.end());
    }
    ASSERT_NO_FATAL_FAILURE(Check(blocks[0], blocks[1], "zeros"));
  }
}

TEST_P(MergeKernel, FollowsTheStepsThroughUnsortedBlocks) {
  Random random(3);
  for (int round = 0; round < test::Scaled(3000, 300); ++round) {
    const auto a = test::Awkward(random.Below(300), random.Next());
    const auto b = test::Awkward(random.Below(300), random.Next());
    ASSERT_NO_FATAL_FAILURE(Check(a, b, "awkward"));
    auto sorted = Ascending<double>(random, 1 + random.Below(300), 1000);
    const auto other = Ascending<double>(random, 200, 1000);
    sorted[random.Below(sorted.size())] = round % 2 ? kNaN : -1001;
    ASSERT_NO_FATAL_FAILURE(Check(sorted, other, "one out of place"));
  }
  for (std::size_t at = 0; at < 100; ++at) {
    std::vector<double> v(100), high(100, 1e9);
    for (std::size_t i = 0; i < v.size(); ++i) v[i] = static_cast<double>(i);
    v[at] = 2e9;
    ASSERT_NO_FATAL_FAILURE(Check(v, high, "one above"));
    const std::vector<double> one = {v[at]}, nan = {kNaN};
    ASSERT_NO_FATAL_FAILURE(Check(v, one, "one"));
    ASSERT_NO_FATAL_FAILURE(Check(v, nan, "NaN"));
  }
}

/// What is left of the block ascends but for being a NaN, which goes behind all of the other block.
TEST_P(MergeKernel, FollowsTheStepsWhereANaNIsAllThatIsLeftOfABlock) {
  std::vector<double> other(100);
  for (std::size_t i = 0; i < other.size(); ++i) other[i] = static_cast<double>(i) - 50;
  std::vector<double> low;
  for (int taken = 0; taken <= 40; ++taken) {
    auto block = low;
    block.push_back(kNaN);
    ASSERT_NO_FATAL_FAILURE(Check(block, other, "a NaN left alone"));
    low.push_back(taken - 1000);
  }
}

/// The documented steps in one pool, in which the blocks and the result may lie anywhere.
template <class T>
void MergeInPool(std::vector<T>& pool, std::size_t a, std::size_t na, std::size_t b, std::size_t nb,
                 std::size_t out) {
  std::size_t i = 0, k = 0;
  while (i < na && k < nb) {
    const bool takeA = pool[b + k] > pool[a + i];
    pool[out++] = takeA ? pool[a + i++] : pool[b + k++];
  }
  while (i < na) pool[out++] = pool[a + i++];
  while (k < nb) pool[out++] = pool[b + k++];
}

template <class T>
void CompareOverlaps(std::size_t na, std::size_t nb) {
  const std::size_t all = na + nb;
  Random random(all);
  // One block at every distance from the result, by one element to all of it; the other apart.
  for (std::size_t out = 0; out <= na + all; ++out)
    for (const bool first : {true, false}) {
      std::vector<T> pool(3 * all + na + 8, T(-5));
      const std::size_t near = all, far = 2 * all + na + 4;
      const auto near_block = Ascending<T>(random, na, 60),
                 far_block = Ascending<T>(random, nb, 60);
      std::copy(near_block.begin(), near_block.end(),
                pool.begin() + static_cast<std::ptrdiff_t>(near));
      std::copy(far_block.begin(), far_block.end(),
                pool.begin() + static_cast<std::ptrdiff_t>(far));
      std::vector<T> want = pool;
      const auto a = first ? near : far, b = first ? far : near;
      const auto countA = first ? na : nb, countB = first ? nb : na;
      MergeInPool(want, a, countA, b, countB, out);
      MergeAscending(pool.data() + a, static_cast<std::ptrdiff_t>(countA), pool.data() + b,
                     static_cast<std::ptrdiff_t>(countB), pool.data() + out);
      ASSERT_TRUE(Same(pool, want)) << na << " and " << nb << ", result at " << out;
    }
}

TEST_P(MergeKernel, FollowsTheStepsWhereTheResultOverlapsABlockByAnyNumberOfElements) {
  for (const auto& [na, nb] : {std::pair{1, 40}, {3, 2}, {20, 20}, {40, 90}, {70, 70}, {64, 16}}) {
    const auto some = static_cast<std::size_t>(na), others = static_cast<std::size_t>(nb);
    ASSERT_NO_FATAL_FAILURE(CompareOverlaps<double>(some, others));
    ASSERT_NO_FATAL_FAILURE(CompareOverlaps<int>(some, others));
  }
}

#if defined(__x86_64__)
TEST_P(MergeKernel, MovesDenormalsUnchangedWhereTheyCompareAsZeros) {
  constexpr double kTiny = std::numeric_limits<double>::denorm_min();
  Random random(4);
  for (int round = 0; round < 500; ++round) {
    std::vector<double> blocks[2];
    for (auto& v : blocks) {
      for (int i = random.Int(0, 100); i > 0; --i) v.push_back(-1 - i);
      for (int i = random.Int(0, 100); i > 0; --i) v.push_back(kTiny * random.Int(-9, 9));
      for (int i = random.Int(1, 100), k = 1; k <= i; ++k) v.push_back(k);
    }
    const unsigned modes = _mm_getcsr();
    _mm_setcsr(modes | 0x8040);  // denormals are zero, and flushed to it
    Check(blocks[0], blocks[1], "denormals");
    _mm_setcsr(modes);
    ASSERT_FALSE(HasFatalFailure()) << "round " << round;
  }
}
#endif

}  // namespace
}  // namespace zeph::kernels
