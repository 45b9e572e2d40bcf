// SPDX-License-Identifier: MIT
#include "kernels/dense_product.h"

#include "kernels/forms.h"

#if ZEPH_X64
#include <array>
#include <utility>

#include "kernels/avx512.h"
#include "kernels/dense_product_tiles.h"
#include "platform/exactness.h"

#define ZEPH_WIDE_CALL ZEPH_AVX512
#define ZEPH_WIDE ZEPH_WIDE_CALL ZEPH_ALWAYS_INLINE

namespace zeph::kernels {
namespace {

constexpr std::size_t kLanes = 8;
constexpr std::size_t kMostRows = 8;
constexpr std::size_t kMostVectors = 3;
constexpr int kInnerSteps = 1;

ZEPH_WIDE __m512d Zero() {
  return _mm512_setzero_pd();
}
/// The first `count` lanes, 1 to 8 of them.
ZEPH_WIDE __mmask8 FirstLanes(std::size_t count) {
  return static_cast<__mmask8>((1u << count) - 1u);
}
ZEPH_WIDE __m512d Load(const double* p) {
  return _mm512_loadu_pd(p);
}
/// The first of them again in the other lanes, which must raise no exception of their own.
ZEPH_WIDE __m512d LoadFirst(const double* p, __mmask8 mask) {
  return _mm512_mask_loadu_pd(_mm512_set1_pd(*p), mask, p);
}
ZEPH_WIDE void Store(double* p, __m512d x) {
  _mm512_storeu_pd(p, x);
}
ZEPH_WIDE void StoreFirst(double* p, __mmask8 mask, __m512d x) {
  _mm512_mask_storeu_pd(p, mask, x);
}
ZEPH_WIDE __m512d Add(__m512d x, __m512d y) {
  return _mm512_add_pd(x, y);
}
ZEPH_WIDE const double* Element(const double* x) {
  return x;
}
/// factors * (x, x, ...). In assembler, because the compilers would broadcast x once and use it for
/// several vectors: the broadcast then occupies ports that the arithmetic needs.
ZEPH_WIDE __m512d Times(__m512d factors, const double* x) {
  __m512d product;
  __asm__("vmulpd %2%{1to8%}, %1, %0" : "=v"(product) : "v"(factors), "m"(*x));
  return product;
}

#include "kernels/dense_product_tile.inc"

struct Form : Tiles {
  static constexpr std::size_t kLoose = 2;
  static constexpr const RowSums& kRowSums = avx2::kRowSums;
  /// Only once the right factor fills most of the second-level cache. A vector loaded from two
  /// cache lines does not slow the arithmetic down here.
  static bool Packs(std::size_t rows, std::size_t inner, std::size_t cols) {
    return rows >= 32 && inner * cols > 100 * 1024;
  }
};

}  // namespace

const Products avx512::kProducts = {product::Run<Form>};

}  // namespace zeph::kernels
#endif
