// SPDX-License-Identifier: MIT
//
// 32-bit signed arithmetic that wraps, as the documented index and byte counts do, without the
// undefined behaviour of signed overflow.
#ifndef ZEPH_SRC_PLATFORM_WRAP_H
#define ZEPH_SRC_PLATFORM_WRAP_H

#include <cstdint>

namespace zeph::platform {

constexpr int Wrap(std::uint32_t bits) {
  return static_cast<int>(bits);
}
constexpr int WrapAdd(int a, int b) {
  return Wrap(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
constexpr int WrapSub(int a, int b) {
  return Wrap(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}
constexpr int WrapMul(int a, int b) {
  return Wrap(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_WRAP_H
