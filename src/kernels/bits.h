// SPDX-License-Identifier: MIT
#ifndef ZEPH_SRC_KERNELS_BITS_H
#define ZEPH_SRC_KERNELS_BITS_H

#include <cstddef>
#include <cstdint>

#include "kernels/target.h"

#if ZEPH_CL
#include <intrin.h>
#endif

namespace zeph::kernels {

/// The number of the lowest bit that is set; x != 0.
inline int LowestBit(std::uint64_t x) {
#if ZEPH_CL && defined(_M_X64)
  unsigned long at;
  _BitScanForward64(&at, x);
  return static_cast<int>(at);
#elif defined(__GNUC__) || defined(__clang__)
  return __builtin_ctzll(x);
#else
  int at = 0;
  for (int step = 32; step > 0; step /= 2)
    if ((x & ((std::uint64_t{1} << step) - 1)) == 0) {
      x >>= step;
      at += step;
    }
  return at;
#endif
}

/// The number of the highest bit that is set; x != 0.
inline int HighestBit(std::uint64_t x) {
#if ZEPH_CL && defined(_M_X64)
  unsigned long at;
  _BitScanReverse64(&at, x);
  return static_cast<int>(at);
#elif defined(__GNUC__) || defined(__clang__)
  return 63 - __builtin_clzll(x);
#else
  int at = 0;
  for (int step = 32; step > 0; step /= 2)
    if (x >> step != 0) {
      x >>= step;
      at += step;
    }
  return at;
#endif
}

/// Bit k goes to 63 - k.
inline std::uint64_t ReverseBits(std::uint64_t x) {
  x = (x >> 1 & 0x5555555555555555) | (x & 0x5555555555555555) << 1;
  x = (x >> 2 & 0x3333333333333333) | (x & 0x3333333333333333) << 2;
  x = (x >> 4 & 0x0F0F0F0F0F0F0F0F) | (x & 0x0F0F0F0F0F0F0F0F) << 4;
  x = (x >> 8 & 0x00FF00FF00FF00FF) | (x & 0x00FF00FF00FF00FF) << 8;
  x = (x >> 16 & 0x0000FFFF0000FFFF) | (x & 0x0000FFFF0000FFFF) << 16;
  return x >> 32 | x << 32;
}

/// How many bits are set.
inline std::size_t CountBits(std::uint64_t x) {
#if defined(__GNUC__) || defined(__clang__)
  return static_cast<std::size_t>(__builtin_popcountll(x));
#else
  std::size_t count = 0;
  for (; x; x &= x - 1) ++count;
  return count;
#endif
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_BITS_H
