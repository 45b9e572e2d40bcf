// SPDX-License-Identifier: MIT
#include "portable_math/random.h"

#include <atomic>
#include <cstdint>

namespace zeph::portable_math {
namespace {

// Atomic, so that concurrent use is not undefined behaviour; nothing more is guaranteed.
std::atomic<std::uint32_t> next{1};

}  // namespace

int DrawFifteenBits() {
  const std::uint32_t drawn = next.load(std::memory_order_relaxed) * 1103515245u + 12345u;
  next.store(drawn, std::memory_order_relaxed);
  return static_cast<int>(drawn >> 16 & 0x7fff);
}

void SeedFifteenBits(unsigned seed) {
  next.store(seed, std::memory_order_relaxed);
}

}  // namespace zeph::portable_math
