// SPDX-License-Identifier: MIT
#include "platform/random.h"

#include "algorithms.h"
#include "platform/exactness.h"

using zeph::platform::NextRandom;

int ZEPH_MathIsPortable() {
  return ZEPH_PortableMath ? 1 : 0;
}

void ZEPH_MathRandomSeed(unsigned seed) {
  zeph::platform::SeedRandom(seed);
}

void ZEPH_MathRandomInit() {
  zeph::platform::SeedRandomFromTime();
}

int ZEPH_MathRandom(int n) {
  const int draw = NextRandom();
  return n <= 0 ? draw : draw % n;
}

double ZEPH_MathRandom(double lo, double hi) {
  return NextRandom() * (hi - lo) / zeph::platform::kRandomMax + lo;
}
