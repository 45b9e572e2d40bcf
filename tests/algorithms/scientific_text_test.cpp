// The two ways of writing a split number, whichever the library uses.
#include "algorithms/scientific_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <new>
#include <string>

#include "support/allocation.h"
#include "support/not_finite.h"
#include "support/numbers.h"

using namespace zeph::test;
using zeph::algorithms::PortableScientificText;
using zeph::algorithms::RuntimesScientificText;

namespace {}  // namespace

TEST(ScientificText, PortableFormIsTheSameOnEverySystem) {
  EXPECT_STREQ(PortableScientificText(12.345678, 3, 3), "12.346xE3");
  EXPECT_STREQ(PortableScientificText(-2.5, -7, 0), "-2xE-7");
  EXPECT_STREQ(PortableScientificText(0.5, 0, 1), "0.5xE0");
  EXPECT_STREQ(PortableScientificText(kInfinity, -2147483647 - 1, 3), "infxE-2147483648");
  EXPECT_STREQ(PortableScientificText(-kInfinity, 0, 0), "-infxE0");
  EXPECT_STREQ(PortableScientificText(std::copysign(kNaN, 1.0), 0, 5), "nanxE0");
  EXPECT_STREQ(PortableScientificText(std::copysign(kNaN, -1.0), 0, 5), "-nanxE0");
  EXPECT_STREQ(PortableScientificText(1.5, 2, -3), "%.0-3lfxE2");
  EXPECT_EQ(PortableScientificText(std::numeric_limits<double>::max(), 5, 127).GetLength(),
            309 + 1 + 127 + 3);
}

TEST(ScientificText, RuntimeFormIsWhatPrintfWrites) {
  char want[64];
  std::snprintf(want, sizeof want, "%.3lfxE%d", -2.0625, 7);
  EXPECT_STREQ(RuntimesScientificText(-2.0625, 7, 3), want);
}

TEST(ScientificText, PropagatesMemoryExhaustion) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  const long before = LiveBlocks();
  const long failures = FailEachAllocation(
      Failure::kBadAlloc, false,
      [] {
        try {
          PortableScientificText(1.5, 3, 100);
        } catch (const std::bad_alloc&) {
        }
      },
      [](long) {});
  EXPECT_GE(failures, 1);
  EXPECT_EQ(LiveBlocks(), before);
}

#ifdef __GLIBC__
TEST(ScientificText, BothFormsAgreeOnGlibc) {
  std::vector<double> values = SpecialValues<double>();
  for (const double x : Awkward(300, 8)) values.push_back(x);
  // A negative count is not a valid format: printf does not consume the number, and takes it for
  // the exponent where both arguments are on the stack.
  const int least = sizeof(void*) == 8 ? -128 : 0;
  for (const double x : values)
    for (int decimals = least; decimals <= 127; decimals += decimals < 20 && decimals >= -2 ? 1 : 7)
      ASSERT_STREQ(PortableScientificText(x, -4, decimals), RuntimesScientificText(x, -4, decimals))
          << x << " decimals " << decimals;
}
#endif
