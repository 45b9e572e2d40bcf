// The next numbers of the library's generator: the C runtime's, as 15-bit numbers, or its own.
#ifndef ZEPH_TESTS_SUPPORT_RANDOM_SOURCE_H
#define ZEPH_TESTS_SUPPORT_RANDOM_SOURCE_H

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "algorithms.h"

namespace zeph::test {

/// The numbers 0..32767 that follow a seed: the high bits of `rand`, whose range ends one below a
/// power of two, or those of the C standard's example.
inline std::vector<int> DrawsAfterSeed(unsigned seed, std::size_t n) {
  std::vector<int> draws(n);
  if (ZEPH_PortableMath) {
    std::uint64_t next = seed;
    for (int& x : draws) {
      next = next * 1103515245 + 12345;
      x = static_cast<int>(next / 65536 % 32768);
    }
    return draws;
  }
  std::srand(seed);
  for (int& x : draws) x = static_cast<int>(std::rand() / ((RAND_MAX - 32767LL) / 32768 + 1));
  return draws;
}

/// Seeds it; the runtime's directly, as an application does.
inline void Seed(unsigned seed) {
  if (ZEPH_PortableMath)
    ZEPH_MathRandomSeed(seed);
  else
    std::srand(seed);
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_RANDOM_SOURCE_H
