#include "kernels/chains.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "support/bits.h"
#include "support/hostile.h"
#include "support/numbers.h"
#include "support/scale.h"

namespace zeph::kernels {
namespace {

using test::Random;
using Values = std::vector<double>;

/// The documented pass with one gap.
Values Passed(Values v, std::size_t gap) {
  for (std::size_t i = gap; i < v.size(); ++i)
    for (std::size_t j = i; j >= gap && v[j - gap] > v[j]; j -= gap) std::swap(v[j - gap], v[j]);
  return v;
}

std::vector<const Table*> TablesThatSortAbreast() {
  std::vector<const Table*> tables = RunnableTables();
  tables.erase(std::remove_if(tables.begin(), tables.end(),
                              [](const Table* table) { return table->chains->abreast == 1; }),
               tables.end());
  return tables;
}

class ChainsKernel : public testing::TestWithParam<const Table*> {
 protected:
  const Chains& form() const { return *GetParam()->chains; }
  std::size_t lanes() const { return form().abreast; }

  /// Runs the pass inside a guarded block; returns whether it finished. Where it gave up, the
  /// documented pass must be able to finish it.
  bool Check(const Values& v, std::size_t gap) const {
    constexpr std::size_t kGuard = 16;
    Values block(kGuard + gap % 8, -7);
    const std::size_t before = block.size();
    block.insert(block.end(), v.begin(), v.end());
    block.insert(block.end(), kGuard, 7);
    double* const at = block.data() + before;
    const bool done = form().sort(at, v.size(), gap);
    const Values want = Passed(v, gap);
    // Where it gives up it has made some of the pass's exchanges; the documented pass makes the
    // others.
    const Values got = Passed(Values(at, at + v.size()), gap);
    SCOPED_TRACE(::testing::Message() << v.size() << " elements, gap " << gap);
    EXPECT_TRUE(test::SameBits(got, want)) << "once the pass is finished";
    if (done) {
      EXPECT_TRUE(test::SameBits(at, want.data(), want.size())) << "as it was left";
    }
    for (std::size_t i = 0; i < before; ++i) EXPECT_EQ(block[i], -7) << "i " << i;
    for (std::size_t i = 0; i < kGuard; ++i) EXPECT_EQ(at[v.size() + i], 7) << "i " << i;
    return done;
  }
};

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(ChainsKernel);  // not every processor has one
INSTANTIATE_TEST_SUITE_P(Forms, ChainsKernel, testing::ValuesIn(TablesThatSortAbreast()),
                         [](const auto& form) { return std::string(form.param->name); });

TEST_P(ChainsKernel, SortsEveryChainOfEveryGap) {
  for (std::size_t n = lanes() + 1; n < 200; n += test::kFullScale ? 1 : 7)
    test::ForEachHostile(n, n, [&](const Values& v, const std::string& name) {
      SCOPED_TRACE(name);
      for (std::size_t gap = lanes(); gap < n; gap += 1 + gap / 4) Check(v, gap);
    });
}

TEST_P(ChainsKernel, SortsAwkwardValues) {
  for (const auto& order : test::Orders())
    for (std::size_t n : {50u, 177u, 640u}) {
      SCOPED_TRACE(order.name);
      for (std::size_t gap = lanes(); gap < n; gap += 1 + gap / 2) Check(order.make(n, n), gap);
    }
}

TEST_P(ChainsKernel, FinishesOnNearlySortedInput) {
  Random random(5);
  for (std::size_t gap : {lanes(), std::size_t{13}, std::size_t{40}}) {
    Values v(40 * gap + 3);
    for (std::size_t i = 0; i < v.size(); ++i)
      v[i] = static_cast<double>(i / gap) + random.Real(-4, 4);
    v[v.size() / 2] = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(Check(v, gap)) << gap;
  }
}

/// So that no order makes it quadratic.
TEST_P(ChainsKernel, GivesUpOnInputFarFromSorted) {
  for (std::size_t gap : {lanes(), std::size_t{13}, std::size_t{40}}) {
    Values v(test::Scaled<std::size_t>(2000, 400) * gap);
    for (std::size_t i = 0; i < v.size(); ++i) v[i] = -static_cast<double>(i);
    EXPECT_FALSE(Check(v, gap)) << gap;
  }
}

TEST(PortableChains, LeaveTheSortToTheCaller) {
  const Chains& form = *RunnableTables().front()->chains;
  EXPECT_EQ(form.abreast, 1u);
  Values v = {3, 2, 1};
  EXPECT_FALSE(form.sort(v.data(), v.size(), 1));
  EXPECT_EQ(v, (Values{3, 2, 1}));
}

}  // namespace
}  // namespace zeph::kernels
