// SPDX-License-Identifier: MIT
//
// Keeps the bits of moved values in a host that treats denormals as zeros.
#ifndef ZEPH_SRC_KERNELS_DENORMAL_GUARD_H
#define ZEPH_SRC_KERNELS_DENORMAL_GUARD_H

#include "kernels/target.h"

#if ZEPH_X64
#include <xmmintrin.h>
#elif ZEPH_NEON
#include <cstdint>
#endif

namespace zeph::kernels {

/// For kernels that move elements of type T by minimum and maximum instructions. Those replace a
/// denormal by a zero while the mode "denormals are zero" is on. A guard turns the mode off during
/// its lifetime and then restores the host's modes and flags. In a host without that mode the only
/// cost is reading the modes.
template <class T>
class DenormalGuard {};

#if ZEPH_X64
template <>
class DenormalGuard<double> {
 public:
  DenormalGuard() : host_(_mm_getcsr()) {
    if (host_ & kDenormalsAreZero) _mm_setcsr((host_ & ~kDenormalsAreZero) | kNoDenormalTrap);
  }
  ~DenormalGuard() {
    if (host_ & kDenormalsAreZero) _mm_setcsr(host_);
  }
  DenormalGuard(const DenormalGuard&) = delete;
  DenormalGuard& operator=(const DenormalGuard&) = delete;

 private:
  static constexpr unsigned kDenormalsAreZero = 0x0040;
  static constexpr unsigned kNoDenormalTrap = 0x0100;
  unsigned host_;
};
#elif ZEPH_NEON
template <>
class DenormalGuard<double> {
 public:
  DenormalGuard() {
    __asm__ volatile("mrs %0, fpcr" : "=r"(host_));
    if (host_ & kDenormalsAreZero) Set(host_ & ~kDenormalsAreZero);
  }
  ~DenormalGuard() {
    if (host_ & kDenormalsAreZero) Set(host_);
  }
  DenormalGuard(const DenormalGuard&) = delete;
  DenormalGuard& operator=(const DenormalGuard&) = delete;

 private:
  static constexpr std::uint64_t kDenormalsAreZero = std::uint64_t{1} << 24;
  static void Set(std::uint64_t modes) {
    __asm__ volatile("msr fpcr, %0" : : "r"(modes) : "memory");
  }
  std::uint64_t host_;
};
#endif

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_DENORMAL_GUARD_H
