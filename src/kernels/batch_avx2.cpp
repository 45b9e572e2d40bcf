// SPDX-License-Identifier: MIT
//
// Eight floats or four doubles of a component side by side. Objects are loaded whole, a few at a
// time, and transposed in registers; the bytes between their components never take part in
// arithmetic.
#include "kernels/batch.h"
#include "kernels/forms.h"

#if ZEPH_X64
#include <cmath>
#include <cstring>
#include <type_traits>

#include "kernels/intrinsics_x64.h"
#include "platform/choose.h"
#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

#define ZEPH_FORM ZEPH_TARGET("avx2")
#define ZEPH_LANES ZEPH_FORM static ZEPH_ALWAYS_INLINE

template <class T>
struct Wide;

template <>
struct Wide<float> {
  using Element = float;
  using V = __m256;
  static constexpr std::size_t kWidth = 8;
  ZEPH_LANES V All(float x) { return _mm256_set1_ps(x); }

  /// Objects i and i + 4: four floats each.
  ZEPH_LANES V Two(const float* p, std::size_t stride, std::size_t i) {
    return _mm256_insertf128_ps(_mm256_castps128_ps256(_mm_loadu_ps(At(p, stride, i))),
                                _mm_loadu_ps(At(p, stride, i + 4)), 1);
  }
  ZEPH_LANES V Low(V a, V b) {
    return _mm256_castpd_ps(_mm256_unpacklo_pd(_mm256_castps_pd(a), _mm256_castps_pd(b)));
  }
  ZEPH_LANES V High(V a, V b) {
    return _mm256_castpd_ps(_mm256_unpackhi_pd(_mm256_castps_pd(a), _mm256_castps_pd(b)));
  }
  ZEPH_LANES void Load(const float* p, std::size_t stride, V& x, V& y, V& z, V& w) {
    const V o0 = Two(p, stride, 0), o1 = Two(p, stride, 1), o2 = Two(p, stride, 2),
            o3 = Two(p, stride, 3);
    const V xy01 = _mm256_unpacklo_ps(o0, o1), xy23 = _mm256_unpacklo_ps(o2, o3);
    const V zw01 = _mm256_unpackhi_ps(o0, o1), zw23 = _mm256_unpackhi_ps(o2, o3);
    x = Low(xy01, xy23), y = High(xy01, xy23), z = Low(zw01, zw23), w = High(zw01, zw23);
  }
  ZEPH_LANES void Load(const float* p, std::size_t stride, V& x, V& y, V& z) {
    V between;
    Load(p, stride, x, y, z, between);
  }

  /// The first two components of objects i and i + 1.
  ZEPH_LANES void StoreXy(float* p, std::size_t stride, std::size_t i, __m128 xy) {
    _mm_storel_pi(reinterpret_cast<__m64*>(At(p, stride, i)), xy);
    _mm_storeh_pi(reinterpret_cast<__m64*>(At(p, stride, i + 1)), xy);
  }
  ZEPH_LANES void StoreZ(float* p, std::size_t stride, std::size_t i, int bits) {
    std::memcpy(At(p, stride, i) + 2, &bits, sizeof bits);
  }
  ZEPH_LANES void StoreZ(float* p, std::size_t stride, std::size_t i, __m128 z) {
    _mm_store_ss(At(p, stride, i) + 2, z);
    StoreZ(p, stride, i + 1, _mm_extract_ps(z, 1));
    StoreZ(p, stride, i + 2, _mm_extract_ps(z, 2));
    StoreZ(p, stride, i + 3, _mm_extract_ps(z, 3));
  }
  ZEPH_LANES void Store(float* p, std::size_t stride, V x, V y, V z) {
    const V xy01 = _mm256_unpacklo_ps(x, y), xy23 = _mm256_unpackhi_ps(x, y);
    StoreXy(p, stride, 0, _mm256_castps256_ps128(xy01));
    StoreXy(p, stride, 2, _mm256_castps256_ps128(xy23));
    StoreXy(p, stride, 4, _mm256_extractf128_ps(xy01, 1));
    StoreXy(p, stride, 6, _mm256_extractf128_ps(xy23, 1));
    StoreZ(p, stride, 0, _mm256_castps256_ps128(z));
    StoreZ(p, stride, 4, _mm256_extractf128_ps(z, 1));
  }
  /// Objects i and i + 4.
  ZEPH_LANES void StoreTwo(float* p, std::size_t stride, std::size_t i, V two) {
    _mm_storeu_ps(At(p, stride, i), _mm256_castps256_ps128(two));
    _mm_storeu_ps(At(p, stride, i + 4), _mm256_extractf128_ps(two, 1));
  }
  ZEPH_LANES void Store(float* p, std::size_t stride, V x, V y, V z, V w) {
    const V xy01 = _mm256_unpacklo_ps(x, y), xy23 = _mm256_unpackhi_ps(x, y);
    const V zw01 = _mm256_unpacklo_ps(z, w), zw23 = _mm256_unpackhi_ps(z, w);
    StoreTwo(p, stride, 0, Low(xy01, zw01));
    StoreTwo(p, stride, 1, High(xy01, zw01));
    StoreTwo(p, stride, 2, Low(xy23, zw23));
    StoreTwo(p, stride, 3, High(xy23, zw23));
  }
  /// Component by component.
  ZEPH_LANES void Products(const float* a, const float* b, std::size_t stride, V& x, V& y, V& z) {
    V bx, by, bz;
    Load(a, stride, x, y, z);
    Load(b, stride, bx, by, bz);
    x = x * bx, y = y * by, z = z * bz;
  }
  ZEPH_LANES void StoreRow(float* p, V x) { _mm256_storeu_ps(p, x); }

  ZEPH_LANES V Sqrt(V x) { return _mm256_sqrt_ps(x); }
  ZEPH_LANES V IsOneOrZero(V x) {
    return _mm256_or_ps(_mm256_cmp_ps(x, _mm256_set1_ps(1), _CMP_EQ_OQ),
                        _mm256_cmp_ps(x, _mm256_setzero_ps(), _CMP_EQ_OQ));
  }
  ZEPH_LANES V Select(V yes, V a, V b) { return _mm256_blendv_ps(b, a, yes); }
  // Not by minimum and maximum instructions, which do not keep the bits of denormals in every mode.
  ZEPH_LANES V Least(V x, V m) { return Select(_mm256_cmp_ps(x, m, _CMP_LT_OS), x, m); }
  ZEPH_LANES V Greatest(V x, V m) { return Select(_mm256_cmp_ps(x, m, _CMP_GT_OS), x, m); }
};

template <>
struct Wide<double> {
  using Element = double;
  using V = __m256d;
  static constexpr std::size_t kWidth = 4;
  ZEPH_LANES V All(double x) { return _mm256_set1_pd(x); }

  /// The first two components of objects i and i + 2.
  ZEPH_LANES V Two(const double* p, std::size_t stride, std::size_t i) {
    return _mm256_insertf128_pd(_mm256_castpd128_pd256(_mm_loadu_pd(At(p, stride, i))),
                                _mm_loadu_pd(At(p, stride, i + 2)), 1);
  }
  ZEPH_LANES void Load(const double* p, std::size_t stride, V& x, V& y, V& z) {
    const V xy02 = Two(p, stride, 0), xy13 = Two(p, stride, 1);
    x = _mm256_unpacklo_pd(xy02, xy13), y = _mm256_unpackhi_pd(xy02, xy13);
    const __m128d z01 = _mm_loadh_pd(_mm_load_sd(At(p, stride, 0) + 2), At(p, stride, 1) + 2);
    const __m128d z23 = _mm_loadh_pd(_mm_load_sd(At(p, stride, 2) + 2), At(p, stride, 3) + 2);
    z = _mm256_insertf128_pd(_mm256_castpd128_pd256(z01), z23, 1);
  }
  ZEPH_LANES void Store(double* p, std::size_t stride, V x, V y, V z) {
    const V xy02 = _mm256_unpacklo_pd(x, y), xy13 = _mm256_unpackhi_pd(x, y);
    _mm_storeu_pd(At(p, stride, 0), _mm256_castpd256_pd128(xy02));
    _mm_storeu_pd(At(p, stride, 1), _mm256_castpd256_pd128(xy13));
    _mm_storeu_pd(At(p, stride, 2), _mm256_extractf128_pd(xy02, 1));
    _mm_storeu_pd(At(p, stride, 3), _mm256_extractf128_pd(xy13, 1));
    const __m128d z01 = _mm256_castpd256_pd128(z), z23 = _mm256_extractf128_pd(z, 1);
    _mm_storel_pd(At(p, stride, 0) + 2, z01);
    _mm_storeh_pd(At(p, stride, 1) + 2, z01);
    _mm_storel_pd(At(p, stride, 2) + 2, z23);
    _mm_storeh_pd(At(p, stride, 3) + 2, z23);
  }
  /// Component by component.
  ZEPH_LANES void Products(const double* a, const double* b, std::size_t stride, V& x, V& y, V& z) {
    V bx, by, bz;
    Load(a, stride, x, y, z);
    Load(b, stride, bx, by, bz);
    x = x * bx, y = y * by, z = z * bz;
  }
  ZEPH_LANES void StoreRow(double* p, V x) { _mm256_storeu_pd(p, x); }
  ZEPH_LANES V Sqrt(V x) { return _mm256_sqrt_pd(x); }
  ZEPH_LANES V Least(V x, V m) { return _mm256_blendv_pd(m, x, _mm256_cmp_pd(x, m, _CMP_LT_OS)); }
  ZEPH_LANES V Greatest(V x, V m) {
    return _mm256_blendv_pd(m, x, _mm256_cmp_pd(x, m, _CMP_GT_OS));
  }
};

#include "kernels/batch.inc"

// --- products: two columns of floats, or one of doubles, side by side ---

template <int k>
ZEPH_LANES __m256 Spread(__m256 columns) {
  return _mm256_permute_ps(columns, k * 0x55);
}

/// Rows 0 to 2 of both columns; row 3 becomes 0. An affine left factor's sums are not computed
/// there, where they could raise spurious exceptions.
ZEPH_LANES __m256 ThreeRows(__m256 columns) {
  return _mm256_blend_ps(columns, _mm256_setzero_ps(), 0x88);
}

template <bool kFirstAffine, bool kSecondAffine>
ZEPH_LANES __m256 Column(const __m256* left, __m256 b) {
  __m256 s0 = Spread<0>(b), s1 = Spread<1>(b), s2 = Spread<2>(b), s3 = Spread<3>(b);
  if constexpr (kFirstAffine)
    s0 = ThreeRows(s0), s1 = ThreeRows(s1), s2 = ThreeRows(s2), s3 = ThreeRows(s3);
  const __m256 sum = left[0] * s0 + left[1] * s1 + left[2] * s2;
  if constexpr (kSecondAffine)
    return sum;
  else
    return sum + left[3] * s3;
}

template <bool kFirstAffine, bool kSecondAffine>
ZEPH_FORM void ProductsOf(float* out, const float* m, std::size_t stride, const float* e,
                          std::size_t n) {
  __m256 left[4];
  for (int k = 0; k < 4; ++k) {
    left[k] = _mm256_broadcast_ps(reinterpret_cast<const __m128*>(e + 4 * k));
    if (kFirstAffine) left[k] = ThreeRows(left[k]);
  }
  const __m256 bottom01 = _mm256_setzero_ps(), bottom23 = _mm256_setr_ps(0, 0, 0, 0, 0, 0, 0, 1);
  for (std::size_t i = 0; i < n; ++i) {
    const float* p = At(m, stride, i);
    const __m256 b01 = _mm256_loadu_ps(p), b23 = _mm256_loadu_ps(p + 8);
    __m256 r01 = Column<kFirstAffine, kSecondAffine>(left, b01);
    __m256 r23 = Column<kFirstAffine, kSecondAffine>(left, b23);
    if constexpr (kSecondAffine) {  // adds the last column
      const __m128 moved = _mm256_extractf128_ps(r23, 1) + _mm256_castps256_ps128(left[3]);
      r23 = _mm256_insertf128_ps(r23, moved, 1);
    }
    if constexpr (kFirstAffine) {
      r01 = _mm256_blend_ps(r01, kSecondAffine ? bottom01 : b01, 0x88);
      r23 = _mm256_blend_ps(r23, kSecondAffine ? bottom23 : b23, 0x88);
    }
    float* to = At(out, stride, i);
    _mm256_storeu_ps(to, r01);
    _mm256_storeu_ps(to + 8, r23);
  }
}

ZEPH_FORM void FloatProducts(float* out, const float* m, std::size_t stride, const float* e,
                             bool firstAffine, bool secondAffine, std::size_t n) {
  const auto run = firstAffine
                       ? (secondAffine ? ProductsOf<true, true> : ProductsOf<true, false>)
                       : (secondAffine ? ProductsOf<false, true> : ProductsOf<false, false>);
  run(out, m, stride, e, n);
}

ZEPH_FORM void DoubleProducts(double* out, const double* m, std::size_t stride, const double* e,
                              std::size_t n) {
  const __m256d c0 = _mm256_loadu_pd(e), c1 = _mm256_loadu_pd(e + 4), c2 = _mm256_loadu_pd(e + 8),
                c3 = _mm256_loadu_pd(e + 12);
  for (std::size_t i = 0; i < n; ++i) {
    const double* p = At(m, stride, i);
    double* to = At(out, stride, i);
    for (int j = 0; j < 16; j += 4)
      _mm256_storeu_pd(
          to + j, c0 * _mm256_broadcast_sd(p + j) + c1 * _mm256_broadcast_sd(p + j + 1) +
                      c2 * _mm256_broadcast_sd(p + j + 2) + c3 * _mm256_broadcast_sd(p + j + 3));
  }
}

}  // namespace

const Batch avx2::kBatch = {kVectors<float>, kVectors<double>, Directions, Points, VectorsOfFour};
const BatchProducts avx2::kBatchProducts = {FloatProducts, DoubleProducts};

}  // namespace zeph::kernels
#endif
