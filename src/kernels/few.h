// SPDX-License-Identifier: MIT
//
// Element-wise operations for callers: a handful of elements inline, in the instruction set that
// every processor of the target has, and longer arrays through the table. A call through the table
// and the alignment code behind it cost more than the arithmetic on a handful.
#ifndef ZEPH_SRC_KERNELS_FEW_H
#define ZEPH_SRC_KERNELS_FEW_H

#include <cstddef>
#include <cstring>

#include "kernels/elementwise.h"
#include "kernels/target.h"
#include "platform/exactness.h"

namespace zeph::kernels {

/// Up to this count a call does not pay.
constexpr std::size_t kFew = 16;

template <std::size_t k>
struct Size {
  static constexpr std::size_t value = k;
};

/// Splits up to four elements into pairs and a last one: body(first, Size<k>()).
template <class Body>
ZEPH_ALWAYS_INLINE void InPairs(std::size_t n, Body body) {
  if (n >= 2) body(0, Size<2>());
  if (n == 4) return body(2, Size<2>());
  // Not written as element 0 or 2: g++ would then compute element 0 once for both cases, and no pair at once.
  if (n & 1) body(n - 1, Size<1>());
}

/// Splits up to kFew elements into chunks of 8, 4, 2 and 1: body(first, Size<k>()). They do not
/// overlap, so that the next operation's loads match the stores, which is faster than loading parts
/// of two stores.
template <class Body>
ZEPH_ALWAYS_INLINE void InChunks(std::size_t n, Body body) {
  if (n <= 4) return InPairs(n, body);
  std::size_t i = 0;
  for (; i + 8 <= n; i += 8) body(i, Size<8>());
  if (n & 4) body(i, Size<4>()), i += 4;
  if (n & 2) body(i, Size<2>()), i += 2;
  if (n & 1) body(i, Size<1>());
}

/// out[i] = value(i) for up to kFew elements. A chunk is computed before it is stored, so that
/// `out` may be an operand.
template <class Value>
ZEPH_ALWAYS_INLINE void Few(double* out, std::size_t n, Value value) {
  InChunks(n, [=](std::size_t first, auto size) {
    double values[size.value];
    for (std::size_t i = 0; i < size.value; ++i) values[i] = value(first + i);
    for (std::size_t i = 0; i < size.value; ++i) out[first + i] = values[i];
  });
}

// The operations of Elementwise, with the same requirements on operands.

inline void Add(double* out, const double* a, const double* b, std::size_t n) {
  if (n > kFew) return Active().elementwise->add(out, a, b, n);
  Few(out, n, [=](std::size_t i) { return a[i] + b[i]; });
}
inline void Subtract(double* out, const double* a, const double* b, std::size_t n) {
  if (n > kFew) return Active().elementwise->subtract(out, a, b, n);
  Few(out, n, [=](std::size_t i) { return a[i] - b[i]; });
}
inline void Multiply(double* out, const double* a, const double* b, std::size_t n) {
  if (n > kFew) return Active().elementwise->multiply(out, a, b, n);
  Few(out, n, [=](std::size_t i) { return a[i] * b[i]; });
}
inline void Scale(double* out, double s, const double* a, std::size_t n) {
  if (n > kFew) return Active().elementwise->scale(out, s, a, n);
  Few(out, n, [=](std::size_t i) { return s * a[i]; });
}
inline void SubtractFrom(double* out, double s, const double* a, std::size_t n) {
  if (n > kFew) return Active().elementwise->subtract_from(out, s, a, n);
  Few(out, n, [=](std::size_t i) { return s - a[i]; });
}
inline void Fill(double* out, double s, std::size_t n) {
  if (n > kFew) return Active().elementwise->fill(out, s, n);
  InChunks(n, [=](std::size_t first, auto size) {
    for (std::size_t i = 0; i < size.value; ++i) out[first + i] = s;
  });
}

/// out[i] = a[i], bit for bit.
inline void Copy(double* out, const double* a, std::size_t n) {
  if (n > kFew) {
    std::memmove(out, a, n * sizeof *a);
    return;
  }
  InChunks(n, [=](std::size_t first, auto size) {
    std::memcpy(out + first, a + first, size.value * sizeof *a);
  });
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_FEW_H
