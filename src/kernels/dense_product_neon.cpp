// SPDX-License-Identifier: MIT
#include "kernels/dense_product.h"

#include "kernels/forms.h"

#if ZEPH_NEON
#include <arm_neon.h>

#include <array>
#include <utility>

#include "kernels/dense_product_tiles.h"
#include "platform/exactness.h"

#define ZEPH_WIDE_CALL
#define ZEPH_WIDE inline __attribute__((always_inline))

namespace zeph::kernels {
namespace {

constexpr std::size_t kLanes = 2;
constexpr std::size_t kMostRows = 5;
constexpr std::size_t kMostVectors = 4;
constexpr int kInnerSteps = 1;

ZEPH_WIDE float64x2_t Zero() {
  return vdupq_n_f64(0.0);
}
ZEPH_WIDE std::size_t FirstLanes(std::size_t count) {
  return count;
}
ZEPH_WIDE float64x2_t Load(const double* p) {
  return vld1q_f64(p);
}
/// The first lane again in place of a missing one, which must raise no exception of its own.
ZEPH_WIDE float64x2_t LoadFirst(const double* p, std::size_t count) {
  return count == kLanes ? Load(p) : vld1q_dup_f64(p);
}
ZEPH_WIDE void Store(double* p, float64x2_t x) {
  vst1q_f64(p, x);
}
ZEPH_WIDE void StoreFirst(double* p, std::size_t count, float64x2_t x) {
  if (count == kLanes)
    Store(p, x);
  else
    vst1q_lane_f64(p, x, 0);
}
ZEPH_WIDE float64x2_t Add(float64x2_t x, float64x2_t y) {
  return vaddq_f64(x, y);
}
ZEPH_WIDE double Element(const double* x) {
  return *x;
}
ZEPH_WIDE float64x2_t Times(float64x2_t factors, double x) {
  return vmulq_n_f64(factors, x);
}

#include "kernels/dense_product_tile.inc"

struct Form : Tiles {
  static constexpr std::size_t kLoose = 1;
  static constexpr const RowSums& kRowSums = neon::kRowSums;
  static bool Packs(std::size_t rows, std::size_t inner, std::size_t cols) {
    return rows >= 16 && rows * inner * cols >= std::size_t{96} * 96 * 96;
  }
};

}  // namespace

const Products neon::kProducts = {product::Run<Form>};

}  // namespace zeph::kernels
#endif
