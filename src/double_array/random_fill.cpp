// SPDX-License-Identifier: MIT
#include "double_array.h"
#include "double_array/elements.h"
#include "platform/random.h"

using namespace zeph::double_array;

void CZEPHDoubleArray::Random() {
  zeph::platform::SeedRandomFromTime();
  const std::size_t n = Count(*this);
  for (std::size_t i = 0; i < n; ++i) data[i] = zeph::platform::NextRandom() % 999;
  sorted = 0;
}
