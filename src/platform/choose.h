// SPDX-License-Identifier: MIT
//
// Choices between values that keep their bits in every mode of the host. Written as `a < b ? a : b`
// they become minimum and maximum instructions, and those replace a denormal by a zero while the
// mode "denormals are zero" is on. So the compiler must not recognise the selection.
#ifndef ZEPH_SRC_PLATFORM_CHOOSE_H
#define ZEPH_SRC_PLATFORM_CHOOSE_H

#include <cstdint>
#include <cstring>

namespace zeph::platform {

/// The same value, opaque to the optimiser.
inline std::uint64_t Opaque(std::uint64_t x) {
#if defined(__GNUC__) || defined(__clang__)
  __asm__("" : "+r"(x));
#endif
  return x;
}

/// yes ? a : b, bit for bit and without a branch.
inline double Choose(bool yes, double a, double b) {
  std::uint64_t fromA, fromB;
  std::memcpy(&fromA, &a, sizeof a);
  std::memcpy(&fromB, &b, sizeof b);
#if defined(__clang__)  // turns a selection in a loop into a branch
  const std::uint64_t chosen = fromB ^ ((fromA ^ fromB) & Opaque(std::uint64_t{0} - yes));
#else
  const std::uint64_t opaque = Opaque(fromA), chosen = yes ? opaque : fromB;
#endif
  std::memcpy(&a, &chosen, sizeof a);
  return a;
}
inline float Choose(bool yes, float a, float b) {
  std::uint32_t fromA, fromB;
  std::memcpy(&fromA, &a, sizeof a);
  std::memcpy(&fromB, &b, sizeof b);
  const auto chosen = static_cast<std::uint32_t>(yes ? Opaque(fromA) : fromB);
  std::memcpy(&a, &chosen, sizeof a);
  return a;
}
inline int Choose(bool yes, int a, int b) {
  return yes ? a : b;
}

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_CHOOSE_H
