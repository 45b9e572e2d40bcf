// SPDX-License-Identifier: MIT
#include "kernels/dense_product.h"

#include "kernels/forms.h"

#if ZEPH_X64
#include <array>
#include <utility>

#include "kernels/dense_product_tiles.h"
#include "kernels/intrinsics_x64.h"
#include "platform/exactness.h"

#define ZEPH_WIDE_CALL ZEPH_TARGET("avx2")
#define ZEPH_WIDE ZEPH_WIDE_CALL ZEPH_ALWAYS_INLINE

namespace zeph::kernels {
namespace {

constexpr std::size_t kLanes = 4;
constexpr std::size_t kMostRows = 6;
constexpr std::size_t kMostVectors = 2;
constexpr int kInnerSteps = 2;

ZEPH_WIDE __m256d Zero() {
  return _mm256_setzero_pd();
}
/// The first `count` lanes, 1 to 4 of them.
ZEPH_WIDE __m256i FirstLanes(std::size_t count) {
  const __m256i lanes = _mm256_set_epi64x(3, 2, 1, 0);
  return _mm256_cmpgt_epi64(_mm256_set1_epi64x(static_cast<long long>(count)), lanes);
}
ZEPH_WIDE __m256d Load(const double* p) {
  return _mm256_loadu_pd(p);
}
/// The first of them again in the other lanes, which must raise no exception of their own.
ZEPH_WIDE __m256d LoadFirst(const double* p, __m256i mask) {
  return _mm256_blendv_pd(_mm256_broadcast_sd(p), _mm256_maskload_pd(p, mask),
                          _mm256_castsi256_pd(mask));
}
ZEPH_WIDE void Store(double* p, __m256d x) {
  _mm256_storeu_pd(p, x);
}
ZEPH_WIDE void StoreFirst(double* p, __m256i mask, __m256d x) {
  _mm256_maskstore_pd(p, mask, x);
}
ZEPH_WIDE __m256d Add(__m256d x, __m256d y) {
  return _mm256_add_pd(x, y);
}
ZEPH_WIDE __m256d Element(const double* x) {
  return _mm256_broadcast_sd(x);
}
ZEPH_WIDE __m256d Times(__m256d factors, __m256d x) {
  return _mm256_mul_pd(factors, x);
}

#include "kernels/dense_product_tile.inc"

struct Form : Tiles {
  static constexpr std::size_t kLoose = 1;
  static constexpr const RowSums& kRowSums = avx2::kRowSums;
  static bool Packs(std::size_t rows, std::size_t inner, std::size_t cols) {
    return rows >= 48 && rows * inner * cols >= std::size_t{64} * 64 * 64;
  }
};

}  // namespace

const Products avx2::kProducts = {product::Run<Form>};

}  // namespace zeph::kernels
#endif
