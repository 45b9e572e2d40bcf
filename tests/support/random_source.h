// What the C runtime's generator will give next, as 15-bit numbers.
#ifndef ZEPH_TESTS_SUPPORT_RANDOM_SOURCE_H
#define ZEPH_TESTS_SUPPORT_RANDOM_SOURCE_H

#include <cstddef>
#include <cstdlib>
#include <vector>

namespace zeph::test {

/// The numbers 0..32767 that follow a seed: the high bits of `rand`, whose range ends at a power of
/// two less one.
inline std::vector<int> DrawsAfterSeed(unsigned seed, std::size_t n) {
  std::vector<int> draws(n);
  std::srand(seed);
  for (int& x : draws) x = static_cast<int>(std::rand() / ((RAND_MAX - 32767LL) / 32768 + 1));
  return draws;
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_RANDOM_SOURCE_H
