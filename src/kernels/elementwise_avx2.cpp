// SPDX-License-Identifier: MIT
//
// Four elements at a time. The first few elements, one by one, align `out` to a cache line: arrays
// from one allocator usually have the same alignment, so the loads are then aligned too, and no
// access straddles two lines.
#include "kernels/elementwise.h"

#include "kernels/forms.h"

#if ZEPH_X64
#include <algorithm>
#include <cstdint>

#include "kernels/intrinsics_x64.h"
#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

#define ZEPH_AVX2 ZEPH_TARGET("avx2")
#define ZEPH_AVX2_INLINE ZEPH_AVX2 static ZEPH_ALWAYS_INLINE

constexpr std::size_t kLanes = 4;

/// The number of elements before the first aligned one of `out`, at most n.
std::size_t Head(const double* out, std::size_t n) {
  const std::size_t past = reinterpret_cast<std::uintptr_t>(out) / sizeof(double) % kLanes;
  return std::min(n, (kLanes - past) % kLanes);
}

struct Sum {
  ZEPH_AVX2_INLINE __m256d Op(__m256d x, __m256d y) { return _mm256_add_pd(x, y); }
  static double Op(double x, double y) { return x + y; }
};
struct Difference {
  ZEPH_AVX2_INLINE __m256d Op(__m256d x, __m256d y) { return _mm256_sub_pd(x, y); }
  static double Op(double x, double y) { return x - y; }
};
struct Product {
  ZEPH_AVX2_INLINE __m256d Op(__m256d x, __m256d y) { return _mm256_mul_pd(x, y); }
  static double Op(double x, double y) { return x * y; }
};

template <class Operation>
ZEPH_AVX2 void Binary(double* out, const double* a, const double* b, std::size_t n) {
  std::size_t i = 0;
  for (const std::size_t head = Head(out, n); i < head; ++i) out[i] = Operation::Op(a[i], b[i]);
  for (; i + kLanes <= n; i += kLanes)
    _mm256_storeu_pd(out + i, Operation::Op(_mm256_loadu_pd(a + i), _mm256_loadu_pd(b + i)));
  for (; i < n; ++i) out[i] = Operation::Op(a[i], b[i]);
}

template <class Operation>
ZEPH_AVX2 void WithScalar(double* out, double s, const double* a, std::size_t n) {
  const __m256d x = _mm256_set1_pd(s);
  std::size_t i = 0;
  for (const std::size_t head = Head(out, n); i < head; ++i) out[i] = Operation::Op(s, a[i]);
  for (; i + 2 * kLanes <= n; i += 2 * kLanes) {
    const __m256d y0 = _mm256_loadu_pd(a + i), y1 = _mm256_loadu_pd(a + i + kLanes);
    _mm256_storeu_pd(out + i, Operation::Op(x, y0));
    _mm256_storeu_pd(out + i + kLanes, Operation::Op(x, y1));
  }
  for (; i < n; ++i) out[i] = Operation::Op(s, a[i]);
}

ZEPH_AVX2 void Fill(double* out, double s, std::size_t n) {
  const __m256d x = _mm256_set1_pd(s);
  std::size_t i = 0;
  for (const std::size_t head = Head(out, n); i < head; ++i) out[i] = s;
  for (; i + kLanes <= n; i += kLanes) _mm256_storeu_pd(out + i, x);
  for (; i < n; ++i) out[i] = s;
}

}  // namespace

const Elementwise avx2::kElementwise = {
    Binary<Sum>,         Binary<Difference>,     Binary<Product>,
    WithScalar<Product>, WithScalar<Difference>, Fill};

}  // namespace zeph::kernels
#endif
