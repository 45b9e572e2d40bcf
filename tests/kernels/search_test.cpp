// SPDX-License-Identifier: MIT
#include "kernels/search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "support/not_finite.h"
#include "support/numbers.h"

namespace zeph::kernels {
namespace {

using test::kInfinity;
using test::kNaN;

class SearchKernel : public testing::TestWithParam<const Table*> {
 protected:
  const Searching& form() const { return *GetParam()->searching; }
};

INSTANTIATE_TEST_SUITE_P(Forms, SearchKernel, testing::ValuesIn(RunnableTables()),
                         [](const auto& form) { return std::string(form.param->name); });

std::vector<std::size_t> AwkwardLengths() {
  std::vector<std::size_t> lengths;
  for (std::size_t n = 0; n <= 140; ++n) lengths.push_back(n);
  for (std::size_t n : {255u, 256u, 257u, 511u, 512u, 513u, 1000u, 2051u}) lengths.push_back(n);
  return lengths;
}

/// The rules, one element at a time.
std::size_t PlainFirst(const std::vector<double>& v, double x) {
  for (std::size_t i = 0; i < v.size(); ++i)
    if (v[i] == x) return i;
  return v.size();
}
std::size_t PlainLast(const std::vector<int>& v, int x) {
  for (std::size_t i = v.size(); i > 0; --i)
    if (v[i - 1] == x) return i - 1;
  return v.size();
}
std::size_t PlainLeast(const std::vector<double>& v) {
  std::size_t least = 0;
  for (std::size_t i = 1; i < v.size(); ++i)
    if (v[i] < v[least]) least = i;
  return least;
}

TEST_P(SearchKernel, FindsTheFirstOfTwoAtEveryIndexAndNothingOutside) {
  for (std::size_t n : AwkwardLengths())
    for (std::size_t at = 0; at < n; at += 1 + n / 60) {
      std::vector<double> v(n + 2, 1.0);
      v.front() = v.back() = 5.0;  // just outside
      v[1 + at] = v[1 + at + (n - at) / 2] = 5.0;
      ASSERT_EQ(form().find_first(v.data() + 1, n, 5.0), at) << n;
      ASSERT_EQ(form().find_first(v.data() + 1, n, 7.0), n) << "n " << n << ", at " << at;
    }
  for (std::size_t n : AwkwardLengths()) {
    std::vector<double> v(n + 2, 1.0);
    v.front() = v.back() = 5.0;
    ASSERT_EQ(form().find_first(v.data() + 1, n, 5.0), n) << "n " << n;
  }
}

TEST_P(SearchKernel, ComparesZerosAndNaNsAsTheLanguageDoes) {
  for (std::size_t n : AwkwardLengths()) {
    const auto v = test::Awkward(n, n + 1);
    for (double x : test::SpecialValues<double>())
      ASSERT_EQ(form().find_first(v.data(), n, x), PlainFirst(v, x)) << n << " " << x;
    const std::vector<double> nans(n, kNaN), zeros(n, -0.0);
    ASSERT_EQ(form().find_first(nans.data(), n, kNaN), n) << "n " << n;
    ASSERT_EQ(form().find_first(zeros.data(), n, 0.0), 0u) << "n " << n;
  }
}

TEST_P(SearchKernel, FindsTheLastIntAtEveryIndexAndNothingOutside) {
  for (std::size_t n : AwkwardLengths()) {
    std::vector<int> v(n + 2, 1);
    v.front() = v.back() = 5;
    ASSERT_EQ(form().find_last(v.data() + 1, n, 5), n) << "n " << n;
    for (std::size_t at = 0; at < n; at += 1 + n / 60) {
      v[1 + at / 2] = v[1 + at] = 5;
      ASSERT_EQ(form().find_last(v.data() + 1, n, 5), at) << n;
      v[1 + at / 2] = v[1 + at] = 1;
    }
    test::Random random(n);
    for (int& x : v) x = random.Int(-9, 9);
    for (int x = -10; x <= 10; ++x)
      ASSERT_EQ(form().find_last(v.data(), v.size(), x), PlainLast(v, x))
          << "n " << n << ", x " << x;
  }
}

TEST_P(SearchKernel, LeastIsTheFirstOfEqualElementsAndIgnoresNaNs) {
  for (std::size_t n : AwkwardLengths()) {
    if (n == 0) continue;
    for (std::uint64_t seed = 0; seed < 6; ++seed) {
      auto v = test::Awkward(n, seed * 1000 + n);
      ASSERT_EQ(form().first_least(v.data(), n), PlainLeast(v)) << n;
      v[0] = kInfinity;
      ASSERT_EQ(form().first_least(v.data(), n), PlainLeast(v)) << n;
      for (double& x : v)
        if (x < -1) x = seed % 2 ? 0.0 : -0.0;
      ASSERT_EQ(form().first_least(v.data(), n), PlainLeast(v)) << n;
    }
    std::vector<double> v(n, kNaN);
    ASSERT_EQ(form().first_least(v.data(), n), 0u) << "n " << n;
    v[0] = kInfinity;
    ASSERT_EQ(form().first_least(v.data(), n), 0u) << "n " << n;
    for (std::size_t at = 0; at < n; at += 1 + n / 60) {
      v[at] = 3;
      v[at + (n - at) / 2] = 3;
      ASSERT_EQ(form().first_least(v.data(), n), at) << n;
      v[at] = v[at + (n - at) / 2] = at % 2 ? kNaN : kInfinity;
      v[0] = kInfinity;
    }
  }
}

TEST_P(SearchKernel, NoneDescendsFindsADescentAtEveryIndexAndNoneElsewhere) {
  for (std::size_t n : AwkwardLengths()) {
    std::vector<double> v(n + 2);
    for (std::size_t i = 0; i < n; ++i) v[i + 1] = static_cast<double>(i / 2);
    v.front() = 1e9, v.back() = -1e9;  // just outside
    ASSERT_TRUE(form().none_descends(v.data() + 1, n)) << n;
    for (std::size_t at = 1; at < n; ++at) {
      const double kept = std::exchange(v[at + 1], -1.0);
      ASSERT_FALSE(form().none_descends(v.data() + 1, n)) << n << " at " << at;
      v[at + 1] = kNaN;  // in order with everything
      ASSERT_TRUE(form().none_descends(v.data() + 1, n)) << n << " at " << at;
      v[at + 1] = kept;
    }
    const std::vector<double> zeros = {0.0, -0.0, 0.0};
    ASSERT_TRUE(form().none_descends(zeros.data(), zeros.size())) << "n " << n;
  }
}

/// Whole vectors of equals, and of descents, between others.
TEST_P(SearchKernel, FindsRunsOfEveryLengthAtEveryIndex) {
  constexpr std::size_t n = 150;
  for (std::size_t length = 1; length <= 70; ++length)
    for (std::size_t at = 0; at + length <= n; ++at) {
      std::vector<double> v(n, 3.0);
      std::fill_n(v.begin() + static_cast<std::ptrdiff_t>(at), length, -1.0);
      ASSERT_EQ(form().find_first(v.data(), n, -1.0), at) << length;
      ASSERT_EQ(form().first_least(v.data(), n), at) << length;
      std::vector<int> ints(v.begin(), v.end());
      ASSERT_EQ(form().find_last(ints.data(), n, -1), at + length - 1) << "from " << at;
      for (std::size_t i = 0; i < n; ++i) {
        const double x = static_cast<double>(i);
        v[i] = i < at ? x - 1000 : i < at + length ? -x : x + 1000;
      }
      ASSERT_EQ(form().none_descends(v.data(), n), length == 1) << "from " << at << ", " << length;
    }
}

}  // namespace
}  // namespace zeph::kernels
