// SPDX-License-Identifier: MIT
//
// The floating-point modes of the calling thread, for the threads that work for it.
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

/// The rounding direction, the treatment of denormals and the exceptions that trap. The flags of
/// raised exceptions are separate.
class Modes {
 public:
#if defined(__SSE2__) || defined(_M_X64)
  using Flags = unsigned;
  /// The modes of the calling thread.
  Modes() : control_(_mm_getcsr() & ~kFlags) {}
  bool Trap() const {
    return (control_ & kMasks) != kMasks;
  }
  /// Sets the calling thread's modes, with no exception raised.
  void Apply() const {
    _mm_setcsr(control_);
  }
  /// The exceptions that the calling thread has raised.
  static Flags Raised() {
    return _mm_getcsr() & kFlags;
  }
  /// Adds them to those that the calling thread has raised.
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
  // What <cfenv> offers, which does not include trapping.
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
