// SPDX-License-Identifier: MIT
//
// Eight elements at a time. A first, partial vector brings `out` to a line's edge: arrays from one
// allocator lie alike, so the loads then fall on edges too, and no access straddles two lines.
#include "kernels/elementwise.h"

#if ZEPH_X64
#include <immintrin.h>

#include <algorithm>
#include <cstdint>

#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

#define ZEPH_AVX512 ZEPH_TARGET("avx512f,avx512dq,avx512bw,avx512vl")
#define ZEPH_AVX512_INLINE ZEPH_AVX512 static inline __attribute__((always_inline))

constexpr std::size_t kLanes = 8;

ZEPH_AVX512_INLINE __mmask8 FirstLanes(std::size_t count) {
  return static_cast<__mmask8>((1u << count) - 1u);
}

/// Elements before the first of `out` on a line's edge, at most n.
std::size_t Head(const double* out, std::size_t n) {
  const std::size_t past = reinterpret_cast<std::uintptr_t>(out) / sizeof(double) % kLanes;
  return std::min(n, (kLanes - past) % kLanes);
}

struct Sum {
  ZEPH_AVX512_INLINE __m512d Op(__m512d x, __m512d y) { return _mm512_add_pd(x, y); }
};
struct Difference {
  ZEPH_AVX512_INLINE __m512d Op(__m512d x, __m512d y) { return _mm512_sub_pd(x, y); }
};
struct Product {
  ZEPH_AVX512_INLINE __m512d Op(__m512d x, __m512d y) { return _mm512_mul_pd(x, y); }
};

template <class Operation>
ZEPH_AVX512 void Binary(double* out, const double* a, const double* b, std::size_t n) {
  std::size_t i = Head(out, n);
  if (i) {
    const __mmask8 mask = FirstLanes(i);
    const __m512d x = _mm512_maskz_loadu_pd(mask, a), y = _mm512_maskz_loadu_pd(mask, b);
    _mm512_mask_storeu_pd(out, mask, Operation::Op(x, y));
  }
  for (; i + 2 * kLanes <= n; i += 2 * kLanes) {
    const __m512d x0 = _mm512_loadu_pd(a + i), x1 = _mm512_loadu_pd(a + i + kLanes);
    const __m512d y0 = _mm512_loadu_pd(b + i), y1 = _mm512_loadu_pd(b + i + kLanes);
    _mm512_storeu_pd(out + i, Operation::Op(x0, y0));
    _mm512_storeu_pd(out + i + kLanes, Operation::Op(x1, y1));
  }
  for (; i < n; i += kLanes) {
    const __mmask8 mask = FirstLanes(std::min(kLanes, n - i));
    const __m512d x = _mm512_maskz_loadu_pd(mask, a + i), y = _mm512_maskz_loadu_pd(mask, b + i);
    _mm512_mask_storeu_pd(out + i, mask, Operation::Op(x, y));
  }
}

template <class Operation>
ZEPH_AVX512 void WithScalar(double* out, double s, const double* a, std::size_t n) {
  const __m512d x = _mm512_set1_pd(s);
  std::size_t i = Head(out, n);
  if (i) {
    const __mmask8 mask = FirstLanes(i);
    _mm512_mask_storeu_pd(out, mask, Operation::Op(x, _mm512_maskz_loadu_pd(mask, a)));
  }
  for (; i + 2 * kLanes <= n; i += 2 * kLanes) {
    const __m512d y0 = _mm512_loadu_pd(a + i), y1 = _mm512_loadu_pd(a + i + kLanes);
    _mm512_storeu_pd(out + i, Operation::Op(x, y0));
    _mm512_storeu_pd(out + i + kLanes, Operation::Op(x, y1));
  }
  for (; i < n; i += kLanes) {
    const __mmask8 mask = FirstLanes(std::min(kLanes, n - i));
    _mm512_mask_storeu_pd(out + i, mask, Operation::Op(x, _mm512_maskz_loadu_pd(mask, a + i)));
  }
}

ZEPH_AVX512 void Fill(double* out, double s, std::size_t n) {
  const __m512d x = _mm512_set1_pd(s);
  std::size_t i = Head(out, n);
  if (i) _mm512_mask_storeu_pd(out, FirstLanes(i), x);
  for (; i + kLanes <= n; i += kLanes) _mm512_storeu_pd(out + i, x);
  if (i < n) _mm512_mask_storeu_pd(out + i, FirstLanes(n - i), x);
}

}  // namespace

const Elementwise avx512::kElementwise = {
    Binary<Sum>,         Binary<Difference>,     Binary<Product>,
    WithScalar<Product>, WithScalar<Difference>, Fill};

}  // namespace zeph::kernels
#endif
