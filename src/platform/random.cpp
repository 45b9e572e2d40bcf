// SPDX-License-Identifier: MIT
#include "platform/random.h"

#include <cstdlib>
#include <ctime>

namespace zeph::platform {
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

void SeedRandomFromTime() {
  std::srand(static_cast<unsigned>(std::time(nullptr)));
}

}  // namespace zeph::platform
