// SPDX-License-Identifier: MIT
//
// Comparisons that raise no exception: NEON has no such instructions for less and greater.
#ifndef ZEPH_SRC_KERNELS_QUIETLY_NEON_H
#define ZEPH_SRC_KERNELS_QUIETLY_NEON_H

#include <cstdint>

namespace zeph::kernels::neon {

/// Runs test() and restores the exception flags.
template <class Test>
inline bool Quietly(Test test) {
  std::uint64_t raised;
  __asm__ volatile("mrs %0, fpsr" : "=r"(raised) : : "memory");
  const bool passed = test();
  __asm__ volatile("msr fpsr, %0" : : "r"(raised), "r"(passed) : "memory");
  return passed;
}

}  // namespace zeph::kernels::neon

#endif  // ZEPH_SRC_KERNELS_QUIETLY_NEON_H
