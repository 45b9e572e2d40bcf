// SPDX-License-Identifier: MIT
//
// The floating-point modes of the thread that asks, for those that work for it.
#ifndef ZEPH_SRC_PARALLEL_MODES_H
#define ZEPH_SRC_PARALLEL_MODES_H

#include "platform/exactness.h"

#if defined(__SSE2__) || defined(_M_X64)
#include <xmmintrin.h>
#elif defined(__aarch64__)
#include <cstdint>
#else
#include <cfenv>
#endif

namespace zeph::parallel {

/// Direction of rounding, what becomes of denormals, and which exceptions trap. The flags of the
/// exceptions that were raised are apart from it.
class Modes {
 public:
#if defined(__SSE2__) || defined(_M_X64)
  using Flags = unsigned;
  /// Those of the calling thread.
  Modes() : control_(_mm_getcsr() & ~kFlags) {}
  bool Trap() const {
    return (control_ & kMasks) != kMasks;
  }
  /// Makes them the calling thread's, with no exception raised.
  void Apply() const {
    _mm_setcsr(control_);
  }
  /// What the calling thread has raised.
  static Flags Raised() {
    return _mm_getcsr() & kFlags;
  }
  /// Has the calling thread have raised that too.
  static void Raise(Flags flags) {
    if (flags & ~Raised()) _mm_setcsr(_mm_getcsr() | flags);
  }

 private:
  static constexpr unsigned kFlags = 0x003F, kMasks = 0x1F80;
  unsigned control_;
#elif defined(__aarch64__)
  using Flags = std::uint64_t;
  Modes() {
    __asm__ volatile("mrs %0, fpcr" : "=r"(control_));
  }
  bool Trap() const {
    return (control_ & kTraps) != 0;
  }
  void Apply() const {
    __asm__ volatile("msr fpcr, %0" : : "r"(control_) : "memory");
    SetStatus(Status() & ~kFlags);
  }
  static Flags Raised() {
    return Status() & kFlags;
  }
  static void Raise(Flags flags) {
    if (flags & ~Raised()) SetStatus(Status() | flags);
  }

 private:
  static constexpr std::uint64_t kFlags = 0x9F, kTraps = 0x9F00;
  static std::uint64_t Status() {
    std::uint64_t status;
    __asm__ volatile("mrs %0, fpsr" : "=r"(status));
    return status;
  }
  static void SetStatus(std::uint64_t status) {
    __asm__ volatile("msr fpsr, %0" : : "r"(status) : "memory");
  }
  std::uint64_t control_;
#else
  // What <cfenv> knows of; whether an exception traps is not among it.
  using Flags = int;
  Modes() {
    std::fegetenv(&environment_);
  }
  bool Trap() const {
    return false;
  }
  void Apply() const {
    std::fesetenv(&environment_);
    std::feclearexcept(FE_ALL_EXCEPT);
  }
  static Flags Raised() {
    return std::fetestexcept(FE_ALL_EXCEPT);
  }
  static void Raise(Flags flags) {
    if (flags) std::feraiseexcept(flags);
  }

 private:
  std::fenv_t environment_;
#endif
};

}  // namespace zeph::parallel

#endif  // ZEPH_SRC_PARALLEL_MODES_H
