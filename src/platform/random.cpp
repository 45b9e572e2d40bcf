// SPDX-License-Identifier: MIT
#include "platform/random.h"

#include <cstdlib>

#include "platform/clock.h"
#ifdef ZEPH_PORTABLE_MATH
#include "portable_math/random.h"
#endif

namespace zeph::platform {

#ifdef ZEPH_PORTABLE_MATH

int NextRandom() {
  return portable_math::DrawFifteenBits();
}

void SeedRandom(unsigned seed) {
  portable_math::SeedFifteenBits(seed);
}

#else

namespace {

constexpr int SurplusBits() {
  int bits = 0;
  while ((RAND_MAX >> bits) > kRandomMax) ++bits;
  return bits;
}
static_assert((RAND_MAX >> SurplusBits()) == kRandomMax, "rand must yield 15 whole bits");

}  // namespace

int NextRandom() {
  return std::rand() >> SurplusBits();
}

void SeedRandom(unsigned seed) {
  std::srand(seed);
}

#endif

void SeedRandomFromTime() {
  SeedRandom(static_cast<unsigned>(ReadClock().time));
}

}  // namespace zeph::platform
