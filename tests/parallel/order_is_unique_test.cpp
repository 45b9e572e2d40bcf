// Several threads look at parts of an array that is to be sorted: none of its elements may be left out.
#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "ZEPHDataStructureEngine.h"
#include "parallel/sort.h"
#include "support/not_finite.h"

namespace zeph::test {
namespace {

TEST(SharedLook, MeetsANaNAndAZeroOfTheOtherSignInEveryPart) {
  constexpr std::size_t kStep = 8 * 1024;
  for (const std::size_t n : {5 * 4 * kStep, 5 * 4 * kStep + 1, 6 * 4 * kStep - 1}) {
    std::vector<double> v(n, 1.0);
    v[1] = 0.0;
    ASSERT_TRUE(parallel::detail::OrderIsUnique(v.data(), n, 3)) << n;
    for (std::size_t at = 2; at < n; at += at + kStep < n || at == n - 1 ? kStep : n - 1 - at)
      for (const double x : {kNaN, -0.0}) {
        v[at] = x;
        ASSERT_FALSE(parallel::detail::OrderIsUnique(v.data(), n, 3))
            << x << " at " << at << " of " << n;
        v[at] = 1.0;
      }
  }
}

}  // namespace
}  // namespace zeph::test
