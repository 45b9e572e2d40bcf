// SPDX-License-Identifier: MIT
//
// Index ranges chosen by the caller: their number of elements, and the pointers moved back by their
// lower bound.
#ifndef ZEPH_SRC_RAW_BUFFERS_OFFSET_H
#define ZEPH_SRC_RAW_BUFFERS_OFFSET_H

#include <cstddef>
#include <cstdint>

#include "platform/wrap.h"

namespace zeph::raw_buffers {

/// The number of elements of lo..hi, in 32-bit arithmetic: below 1 where the range is empty or too
/// long. An inverted range has none, even where the arithmetic would wrap around to a positive
/// number.
constexpr int RangeCount(int lo, int hi) {
  return hi < lo ? 0 : platform::WrapAdd(platform::WrapSub(hi, lo), 1);
}

/// `p` moved by `elements`. The moved pointer is usually outside any block, which is undefined in
/// pointer arithmetic but not in integer arithmetic.
template <class T>
T* Moved(T* p, std::intptr_t elements) {
  const auto bytes = static_cast<std::uintptr_t>(elements) * sizeof(T);
  return reinterpret_cast<T*>(reinterpret_cast<std::uintptr_t>(p) + bytes);
}

/// The pointer through which the block's first element has the index `lo`.
template <class T>
T* Offset(T* block, int lo) {
  return Moved(block, -static_cast<std::intptr_t>(lo));
}

/// The block of an offset pointer; null for null, which no allocation returns.
template <class T>
T* Block(T* p, int lo) {
  return p ? Moved(p, static_cast<std::intptr_t>(lo)) : nullptr;
}

}  // namespace zeph::raw_buffers

#endif  // ZEPH_SRC_RAW_BUFFERS_OFFSET_H
