#include "portable_math/random.h"

#include <gtest/gtest.h>

#include <cstdint>

using zeph::portable_math::DrawFifteenBits;
using zeph::portable_math::SeedFifteenBits;

TEST(PortableRandom, DrawsTheNumbersOfTheCStandardsExampleGenerator) {
  for (const unsigned seed : {0u, 1u, 2u, 12345u, 2147483648u, 4294967295u}) {
    SeedFifteenBits(seed);
    std::uint64_t next = seed;  // as wide as an unsigned long may be: bits above 32 are ignored
    for (int k = 0; k < 1000; ++k) {
      next = next * 1103515245 + 12345;
      ASSERT_EQ(DrawFifteenBits(), static_cast<int>(next / 65536 % 32768)) << seed << ", " << k;
    }
  }
}

/// Before any test has seeded it.
static const int kFirstDrawn = DrawFifteenBits();

TEST(PortableRandom, IsSeededWithOneAtTheProgramsStart) {
  SeedFifteenBits(1);
  EXPECT_EQ(kFirstDrawn, DrawFifteenBits());
}

TEST(PortableRandom, StartsWithThePublishedNumbers) {
  SeedFifteenBits(1);
  for (const int want : {16838, 5758, 10113, 17515, 31051})
    EXPECT_EQ(DrawFifteenBits(), want) << "want " << want;
}

TEST(PortableRandom, RepeatsItsSequenceForASeed) {
  SeedFifteenBits(7);
  const int first = DrawFifteenBits(), second = DrawFifteenBits();
  SeedFifteenBits(7);
  EXPECT_EQ(DrawFifteenBits(), first);
  EXPECT_EQ(DrawFifteenBits(), second);
}
