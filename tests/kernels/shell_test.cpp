// Shell's sort in every form, with and without the memory that it allocates.
#include "double_array/shell.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "double_array/shell_runs.h"
#include "double_array/shell_strips.h"
#include "double_array/shell_zeros.h"
#include "double_array/sorting.h"
#include "kernels/chains.h"
#include "kernels/memory.h"
#include "kernels/table.h"
#include "oracle/sorts.h"
#include "support/bits.h"
#include "support/guarded.h"
#include "support/hostile.h"
#include "support/numbers.h"
#include "support/scale.h"

namespace zeph::double_array {
namespace {

using Values = std::vector<double>;

Values Walked(Values v) {
  oracle::ShellSort(v);
  return v;
}

/// Runs with every form in turn and restores the former one.
class ShellInEveryForm : public testing::TestWithParam<const kernels::Table*> {
 protected:
  void SetUp() override { kernels::Force(*GetParam()); }
  void TearDown() override { kernels::Force(before_); }

 private:
  const kernels::Table& before_ = kernels::Active();
};

INSTANTIATE_TEST_SUITE_P(Forms, ShellInEveryForm, testing::ValuesIn(kernels::RunnableTables()),
                         [](const auto& form) { return std::string(form.param->name); });

TEST_P(ShellInEveryForm, MatchesTheDocumentedPasses) {
  for (std::size_t n = 0; n <= 200; n += test::kFullScale ? 1 : 7)
    test::ForEachHostile(n, n, [](Values v, const std::string& name) {
      const Values want = Walked(v);
      ShellSort(v.data(), v.size());
      ASSERT_TRUE(test::SameBits(v, want)) << name;
    });
  test::Random random(9);
  for (int round = 0; round < test::Scaled(4, 1); ++round)
    test::ForEachHostile(200 + random.Below(3000), random.Next(),
                         [](Values v, const std::string& name) {
                           const Values want = Walked(v);
                           ShellSort(v.data(), v.size());
                           ASSERT_TRUE(test::SameBits(v, want)) << name;
                         });
}

TEST_P(ShellInEveryForm, MatchesTheDocumentedPassesForAnyNumberOfZeros) {
  test::Random random(11);
  for (std::size_t n = 9; n < 700; n += 1 + n / 40)
    for (std::size_t zeros = 1; zeros <= n; zeros += 1 + zeros / 2) {
      Values v = test::Moderate(n, n);
      for (std::size_t k = 0; k < zeros; ++k) v[k] = random.Below(2) ? -0.0 : 0.0;
      for (std::size_t k = n - 1; k > 0; --k) std::swap(v[k], v[random.Below(k + 1)]);
      const Values want = Walked(v);
      ASSERT_TRUE(ShellSortAroundZeros(v.data(), n, zeros)) << "n " << n << ", zeros " << zeros;
      ASSERT_TRUE(test::SameBits(v, want)) << zeros << " of " << n;
    }
}

/// Long enough for chains that the sorting network cannot take. The unsorted stretches around the
/// first and the last zero are separate, joined or missing.
TEST_P(ShellInEveryForm, MatchesTheDocumentedPassesAroundManyZeros) {
  test::Random random(12);
  for (std::size_t n : {9u, 33u, 64u, 255u, 256u, 1000u, 1023u, 2048u, 6250u})
    for (int round = 0; round < test::Scaled(24, 6); ++round) {
      const std::size_t below = random.Below(4), zeros = 1 + random.Below(6);
      const std::size_t all = below + zeros + random.Below(4);
      Values v(n);
      for (std::size_t i = 0; i < n; ++i) {
        const std::size_t x = round % 2 ? random.Below(all) : (i * all + random.Below(n)) / n;
        const double size = 1.0 + static_cast<double>(random.Below(50));
        v[i] = x < below ? -size : x >= below + zeros ? size : random.Below(2) ? 0.0 : -0.0;
      }
      const auto count = static_cast<std::size_t>(std::count(v.begin(), v.end(), 0.0));
      if (count == 0) continue;
      const Values want = Walked(v);
      ASSERT_TRUE(ShellSortAroundZeros(v.data(), n, count)) << "n " << n << ", round " << round;
      ASSERT_TRUE(test::SameBits(v, want)) << round << ", " << count << " of " << n;
    }
}

TEST_P(ShellInEveryForm, FinishesByRunsAfterTheWalkGaveUp) {
  std::size_t given_up = 0;
  for (std::size_t n = 9; n < 600; n += 1 + n / test::Scaled<std::size_t>(10, 2))
    for (std::size_t patience : {0u, 1u, 2u})
      test::ForEachHostile(n, n, [&](Values v, const std::string& name) {
        const Values want = Walked(v);
        const std::size_t gap = ShellWalk(v.data(), n, n / 2, patience);
        given_up += gap > 0;
        ASSERT_TRUE(gap == 0 || ShellSortByRuns(v.data(), n, gap, n / 100))
            << "n " << n << ", patience " << patience;
        ASSERT_TRUE(test::SameBits(v, want)) << name << ", patience " << patience;
      });
  EXPECT_GT(given_up, 100u);
}

#ifdef ZEPH_TEST_GUARDED
TEST_P(ShellInEveryForm, StaysInBoundsWithNaNsAndZeros) {
  const test::Guarded memory;
  test::Random random(4);
  for (std::size_t n = 2; n <= 700; n += test::kFullScale && n < 200 ? 1 : 7)
    for (const double odd : {std::numeric_limits<double>::quiet_NaN(), -0.0}) {
      Values v(n);
      for (double& x : v) x = random.Below(40) == 0 ? odd : random.Int(-300, 300);
      const Values want = Walked(v);
      for (const bool at_end : {false, true}) {
        double* const at = memory.Copy(v, at_end);
        ShellSort(at, n);
        ASSERT_TRUE(test::SameBits(Values(at, at + n), want)) << n << " with " << odd;
        memory.Copy(v, at_end);
        ASSERT_TRUE(ShellSortByRuns(at, n, n / 2, n / 40));
        ASSERT_TRUE(test::SameBits(Values(at, at + n), want)) << n << " with " << odd << " by runs";
      }
    }
}
#endif

/// So that no order makes it quadratic.
TEST(ShellStrips, GiveUpOnInputFarFromSorted) {
  const kernels::Table& before = kernels::Active();
  for (const kernels::Table* table : kernels::RunnableTables()) {
    const std::size_t strips = table->chains->abreast, rows = 500, n = strips * rows - 3;
    if (strips == 1) continue;
    kernels::Force(*table);
    Values falling(n), swapped(n), room(n + strips);
    for (std::size_t i = 0; i < n; ++i) {
      falling[i] = -static_cast<double>(i);
      swapped[i] =
          static_cast<double>(i % rows) - static_cast<double>(i / rows * n);  // each strip ascends
    }
    for (const std::size_t gap : {1u, 2u, 3u})
      for (const Values& v : {falling, swapped}) {
        Values got = v;
        EXPECT_EQ(ShellSortInStrips(got.data(), n, gap, room.data()), gap) << table->name;
        ShellWalk(got.data(), n, gap, n);
        Values want = v;
        ShellWalk(want.data(), n, gap, n);
        EXPECT_TRUE(test::SameBits(got, want)) << table->name;
      }
  }
  kernels::Force(before);
}

int lent;
void* RefuseAll(std::size_t) {
  return nullptr;
}
void* LendOnce(std::size_t bytes) {
  return lent++ == 0 ? std::malloc(bytes) : nullptr;
}

TEST(Shell, MatchesTheDocumentedPassesWithoutMemory) {
  for (const auto lend : {RefuseAll, LendOnce})
    test::ForEachHostile(1000, 5, [lend](Values v, const std::string& name) {
      const Values want = Walked(v);
      lent = 0;
      const auto lender = kernels::detail::borrow.exchange(lend);
      ShellSort(v.data(), v.size());
      kernels::detail::borrow = lender;
      ASSERT_TRUE(test::SameBits(v, want)) << name;
    });
}

}  // namespace
}  // namespace zeph::double_array
