// The largest absolute value in every form against the documented scan.
#include "kernels/largest_magnitude.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include "support/bits.h"
#include "support/not_finite.h"
#include "support/numbers.h"

namespace zeph::kernels {
namespace {

using test::kInfinity;
using test::kNaN;

double OrderedWalk(const double* x, std::size_t n) {
  double m = std::fabs(x[0]);
  for (std::size_t i = 1; i < n; ++i)
    if (std::fabs(x[i]) > m) m = std::fabs(x[i]);
  return m;
}

void Check(const double* x, std::size_t n) {
  for (const Table* form : RunnableTables())
    EXPECT_SAME_BITS(form->magnitudes->largest(x, n), OrderedWalk(x, n))
        << form->name << " n=" << n;
  const double want =
      std::any_of(x, x + n, [](double y) { return y != y; }) ? kNaN : OrderedWalk(x, n);
  for (const Table* form : RunnableTables())
    EXPECT_SAME_VALUE(form->magnitudes->largest_or_nan(x, n), want) << form->name << " n=" << n;
}

TEST(LargestMagnitude, MatchesTheSequentialLoopAtEveryLengthAndMisalignment) {
  for (std::size_t n = 1; n <= 131; ++n)
    for (std::size_t skew : {0u, 1u, 3u})
      for (unsigned seed = 0; seed < 8; ++seed) {
        const auto awkward = test::Awkward(n + skew, seed);
        Check(awkward.data() + skew, n);
        const auto moderate = test::Moderate(n + skew, seed);
        Check(moderate.data() + skew, n);
      }
}

TEST(LargestMagnitude, FindsTheLargestAtEveryIndex) {
  for (std::size_t n : {1u, 7u, 32u, 33u, 67u, 100u})
    for (std::size_t at = 0; at < n; ++at)
      for (double peak : {9.0, -9.0, -kInfinity, kNaN}) {
        std::vector<double> x(n, -0.5);
        x[at] = peak;
        Check(x.data(), n);
      }
}

TEST(LargestMagnitude, ReadsNothingBeyondTheEnd) {
  for (std::size_t n = 1; n <= 67; ++n) {
    std::vector<double> x(n + 40, 1e300);
    for (std::size_t i = 0; i < n; ++i) x[i] = -static_cast<double>(i);
    Check(x.data(), n);
  }
}

TEST(LargestMagnitude, KeepsALeadingNaNAndIgnoresOthers) {
  for (const Table* form : RunnableTables()) {
    std::vector<double> x(50, 2.0);
    x[0] = -kNaN;
    EXPECT_SAME_BITS(form->magnitudes->largest(x.data(), x.size()), std::fabs(x[0])) << form->name;
    for (double& later : x) later = kNaN;
    x[0] = -0.0;
    EXPECT_SAME_BITS(form->magnitudes->largest(x.data(), x.size()), 0.0) << form->name;
  }
}

}  // namespace
}  // namespace zeph::kernels
