// SPDX-License-Identifier: MIT
//
// Sixteen floats or eight doubles of a component side by side; a whole matrix of floats, or two
// columns of doubles, in one register. Vectors of four stay in the AVX2 form.
//
// The objects are first packed into three registers, which are transposed into one register a
// component. Doubles are packed in memory, x y z x y z .... Half of a float object is not
// components: the components of one stretch of memory fill the gaps of the next stretch, without a
// shuffle. Only lanes with a component take part in arithmetic and in stores.
#include "kernels/batch.h"
#include "kernels/forms.h"

#if ZEPH_X64
#include <atomic>
#include <cmath>
#include <cstring>
#include <type_traits>

#include "kernels/avx512.h"
#include "platform/choose.h"
#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

#define ZEPH_AVX512_INLINE ZEPH_AVX512 static ZEPH_ALWAYS_INLINE

// --- vectors ---

// The tables below are for objects 24 bytes apart: a pointer, three floats and padding, or three
// doubles.

/// Keeps the compiler from reordering the stores before and after: where the arrays exceed the
/// first-level cache, a line that is written in two separate passes costs a quarter of the whole
/// loop.
ZEPH_AVX512_INLINE void InOrder() {
  std::atomic_signal_fence(std::memory_order_seq_cst);
}

struct alignas(64) Lanes16 {
  int at[16];
  ZEPH_AVX512_INLINE __m512i Load(const Lanes16& lanes) { return _mm512_load_si512(lanes.at); }
};
struct alignas(64) Lanes8 {
  long long at[8];
  ZEPH_AVX512_INLINE __m512i Load(const Lanes8& lanes) { return _mm512_load_si512(lanes.at); }
};

// The float at offset f belongs to object f / 6 and is its component f % 6, if that is below 3.

/// The six stretches of sixteen floats that hold the components of sixteen objects: packed register
/// k takes those of stretch 2 k and, in the gaps, those of the next one.
constexpr int kStretches[6] = {0, 15, 31, 46, 62, 77};
constexpr bool IsComponent(int stretch, int lane) {
  return (kStretches[stretch] + lane) % 6 < 3;
}
constexpr unsigned ComponentsOf(int stretch) {
  unsigned lanes = 0;
  for (int l = 0; l < 16; ++l) lanes |= unsigned{IsComponent(stretch, l)} << l;
  return lanes;
}
/// The offset of the float in lane `lane` of packed register k.
constexpr int FloatAt(int k, int lane) {
  return kStretches[IsComponent(2 * k, lane) ? 2 * k : 2 * k + 1] + lane;
}

/// A component of all objects: its elements in the first two packed registers, then the rest.
template <class Lanes>
struct Split {
  Lanes first[3]{}, rest[3]{};
};
constexpr Split<Lanes16> SplitFloats() {
  Split<Lanes16> split;
  for (int c = 0; c < 3; ++c)
    for (int l = 0; l < 16; ++l) split.rest[c].at[l] = l;
  for (int k = 0; k < 3; ++k)
    for (int l = 0; l < 16; ++l) {
      const int c = FloatAt(k, l) % 6, object = FloatAt(k, l) / 6;
      (k < 2 ? split.first[c].at[object] : split.rest[c].at[object]) = l + (k == 1 ? 16 : 0);
      if (k == 2) split.rest[c].at[object] += 16;
    }
  return split;
}
constexpr Split<Lanes8> SplitDoubles() {
  Split<Lanes8> split;
  for (int c = 0; c < 3; ++c)
    for (int l = 0; l < 8; ++l) {
      split.first[c].at[l] = (3 * l + c) % 16;
      split.rest[c].at[l] = 3 * l + c < 16 ? l : 3 * l + c - 8;
    }
  return split;
}
constexpr Split<Lanes16> kSplitFloats = SplitFloats();
constexpr Split<Lanes8> kSplitDoubles = SplitDoubles();

/// Packed register k from registers x, y, z: x and y first, then z.
template <class Lanes>
struct Merge {
  Lanes xy[3]{}, z[3]{};
  unsigned takesZ[3] = {0, 0, 0};
};
constexpr Merge<Lanes16> MergeFloats() {
  Merge<Lanes16> merge;
  for (int k = 0; k < 3; ++k)
    for (int l = 0; l < 16; ++l) {
      const int c = FloatAt(k, l) % 6, object = FloatAt(k, l) / 6;
      if (c == 2) {
        merge.z[k].at[l] = object;
        merge.takesZ[k] |= 1u << l;
      } else {
        merge.xy[k].at[l] = object + 16 * c;
      }
    }
  return merge;
}
constexpr Merge<Lanes8> MergeDoubles() {
  Merge<Lanes8> merge;
  for (int d = 0; d < 24; ++d) {
    const int k = d / 8, lane = d % 8;
    if (d % 3 == 2) {
      merge.z[k].at[lane] = d / 3;
      merge.takesZ[k] |= 1u << lane;
    } else {
      merge.xy[k].at[lane] = d / 3 + 8 * (d % 3);
    }
  }
  return merge;
}
constexpr Merge<Lanes16> kMergeFloats = MergeFloats();
constexpr Merge<Lanes8> kMergeDoubles = MergeDoubles();

template <class T>
struct Wide;

template <>
struct Wide<float> {
  using Element = float;
  using V = __m512;
  static constexpr std::size_t kWidth = 16;
  ZEPH_AVX512_INLINE V All(float x) { return _mm512_set1_ps(x); }

  template <int k>
  ZEPH_AVX512_INLINE V Packed(const float* p) {
    constexpr auto kBetween = static_cast<__mmask16>(ComponentsOf(2 * k + 1));
    return _mm512_mask_loadu_ps(_mm512_loadu_ps(p + kStretches[2 * k]), kBetween,
                                p + kStretches[2 * k + 1]);
  }
  template <int c>
  ZEPH_AVX512_INLINE V Component(V p0, V p1, V p2) {
    return _mm512_permutex2var_ps(
        _mm512_permutex2var_ps(p0, Lanes16::Load(kSplitFloats.first[c]), p1),
        Lanes16::Load(kSplitFloats.rest[c]), p2);
  }
  ZEPH_AVX512_INLINE void Load(const float* p, std::size_t, V& x, V& y, V& z) {
    const V p0 = Packed<0>(p), p1 = Packed<1>(p), p2 = Packed<2>(p);
    x = Component<0>(p0, p1, p2), y = Component<1>(p0, p1, p2), z = Component<2>(p0, p1, p2);
  }
  ZEPH_AVX512_INLINE void Products(const float* a, const float* b, std::size_t, V& x, V& y, V& z) {
    const V p0 = _mm512_mul_ps(Packed<0>(a), Packed<0>(b));
    const V p1 = _mm512_mul_ps(Packed<1>(a), Packed<1>(b));
    const V p2 = _mm512_mul_ps(Packed<2>(a), Packed<2>(b));
    x = Component<0>(p0, p1, p2), y = Component<1>(p0, p1, p2), z = Component<2>(p0, p1, p2);
  }
  template <int stretch>
  ZEPH_AVX512_INLINE void StoreStretch(float* p, V packed) {
    constexpr auto kComponents = static_cast<__mmask16>(ComponentsOf(stretch));
    _mm512_mask_storeu_ps(p + kStretches[stretch], kComponents, packed);
    InOrder();
  }
  template <int k>
  ZEPH_AVX512_INLINE void StorePacked(float* p, V x, V y, V z) {
    constexpr auto kTakesZ = static_cast<__mmask16>(kMergeFloats.takesZ[k]);
    const V xy = _mm512_permutex2var_ps(x, Lanes16::Load(kMergeFloats.xy[k]), y);
    const V packed = _mm512_mask_permutexvar_ps(xy, kTakesZ, Lanes16::Load(kMergeFloats.z[k]), z);
    StoreStretch<2 * k>(p, packed);
    StoreStretch<2 * k + 1>(p, packed);
  }
  ZEPH_AVX512_INLINE void Store(float* p, std::size_t, V x, V y, V z) {
    StorePacked<0>(p, x, y, z);
    StorePacked<1>(p, x, y, z);
    StorePacked<2>(p, x, y, z);
  }
  ZEPH_AVX512_INLINE void StoreRow(float* p, V x) { _mm512_storeu_ps(p, x); }
  ZEPH_AVX512_INLINE V Sqrt(V x) { return _mm512_sqrt_ps(x); }
  ZEPH_AVX512_INLINE __mmask16 IsOneOrZero(V x) {
    return static_cast<__mmask16>(_mm512_cmp_ps_mask(x, _mm512_set1_ps(1), _CMP_EQ_OQ) |
                                  _mm512_cmp_ps_mask(x, _mm512_setzero_ps(), _CMP_EQ_OQ));
  }
  ZEPH_AVX512_INLINE V Select(__mmask16 yes, V a, V b) { return _mm512_mask_blend_ps(yes, b, a); }
  // Not by minimum and maximum instructions, which do not keep the bits of denormals in every mode.
  ZEPH_AVX512_INLINE V Least(V x, V m) {
    return Select(_mm512_cmp_ps_mask(x, m, _CMP_LT_OS), x, m);
  }
  ZEPH_AVX512_INLINE V Greatest(V x, V m) {
    return Select(_mm512_cmp_ps_mask(x, m, _CMP_GT_OS), x, m);
  }
};

template <>
struct Wide<double> {
  using Element = double;
  using V = __m512d;
  static constexpr std::size_t kWidth = 8;
  ZEPH_AVX512_INLINE V All(double x) { return _mm512_set1_pd(x); }

  template <int c>
  ZEPH_AVX512_INLINE V Component(V p0, V p1, V p2) {
    return _mm512_permutex2var_pd(
        _mm512_permutex2var_pd(p0, Lanes8::Load(kSplitDoubles.first[c]), p1),
        Lanes8::Load(kSplitDoubles.rest[c]), p2);
  }
  ZEPH_AVX512_INLINE void Turn(V p0, V p1, V p2, V& x, V& y, V& z) {
    x = Component<0>(p0, p1, p2), y = Component<1>(p0, p1, p2), z = Component<2>(p0, p1, p2);
  }
  ZEPH_AVX512_INLINE void Load(const double* p, std::size_t, V& x, V& y, V& z) {
    Turn(_mm512_loadu_pd(p), _mm512_loadu_pd(p + 8), _mm512_loadu_pd(p + 16), x, y, z);
  }
  ZEPH_AVX512_INLINE V Product(const double* a, const double* b) {
    return _mm512_mul_pd(_mm512_loadu_pd(a), _mm512_loadu_pd(b));
  }
  ZEPH_AVX512_INLINE void Products(const double* a, const double* b, std::size_t, V& x, V& y,
                                   V& z) {
    Turn(Product(a, b), Product(a + 8, b + 8), Product(a + 16, b + 16), x, y, z);
  }
  template <int k>
  ZEPH_AVX512_INLINE void StorePacked(double* p, V x, V y, V z) {
    constexpr auto kTakesZ = static_cast<__mmask8>(kMergeDoubles.takesZ[k]);
    const V xy = _mm512_permutex2var_pd(x, Lanes8::Load(kMergeDoubles.xy[k]), y);
    _mm512_storeu_pd(p + 8 * k,
                     _mm512_mask_permutexvar_pd(xy, kTakesZ, Lanes8::Load(kMergeDoubles.z[k]), z));
    InOrder();
  }
  ZEPH_AVX512_INLINE void Store(double* p, std::size_t, V x, V y, V z) {
    StorePacked<0>(p, x, y, z);
    StorePacked<1>(p, x, y, z);
    StorePacked<2>(p, x, y, z);
  }
  ZEPH_AVX512_INLINE void StoreRow(double* p, V x) { _mm512_storeu_pd(p, x); }
  ZEPH_AVX512_INLINE V Sqrt(V x) { return _mm512_sqrt_pd(x); }
  ZEPH_AVX512_INLINE V Least(V x, V m) {
    return _mm512_mask_blend_pd(_mm512_cmp_pd_mask(x, m, _CMP_LT_OS), m, x);
  }
  ZEPH_AVX512_INLINE V Greatest(V x, V m) {
    return _mm512_mask_blend_pd(_mm512_cmp_pd_mask(x, m, _CMP_GT_OS), m, x);
  }
};

#define ZEPH_FORM ZEPH_AVX512
#define ZEPH_NO_VECTORS_OF_FOUR
#include "kernels/batch.inc"

void VectorsOfFour(float* out, const float* v, std::size_t stride, const float* e, bool copyLast,
                   std::size_t n) {
  avx2::kBatch.vectors(out, v, stride, e, copyLast, n);
}

// --- products ---

/// Entry k of each column in those of its lanes that are in `kRows`, and 0 in the others.
template <__mmask16 kRows, int k>
ZEPH_AVX512_INLINE __m512 Spread(__m512 columns) {
  return _mm512_maskz_permute_ps(kRows, columns, k * 0x55);
}

/// Lanes of an affine left factor's bottom row are masked out, so that their sums raise no
/// exception: where they are moved, as compilers may multiply all lanes and choose afterwards.
template <bool kFirstAffine, bool kSecondAffine>
ZEPH_AVX512 void ProductsOf(float* out, const float* m, std::size_t stride, const float* e,
                            std::size_t n) {
  constexpr __mmask16 kRows = kFirstAffine ? 0x7777 : 0xFFFF, kLastColumn = kRows & 0xF000;
  const __m512 c0 = _mm512_broadcast_f32x4(_mm_loadu_ps(e));
  const __m512 c1 = _mm512_broadcast_f32x4(_mm_loadu_ps(e + 4));
  const __m512 c2 = _mm512_broadcast_f32x4(_mm_loadu_ps(e + 8));
  const __m512 c3 = _mm512_broadcast_f32x4(_mm_loadu_ps(e + 12));
  const __m512 one = _mm512_mask_blend_ps(0x8000, _mm512_setzero_ps(), _mm512_set1_ps(1));
  const auto* from = reinterpret_cast<const char*>(m);
  auto* to = reinterpret_cast<char*>(out);
  for (std::size_t i = 0; i < n; ++i, from += stride, to += stride) {
    const __m512 b = _mm512_loadu_ps(from);
    __m512 sum = _mm512_add_ps(_mm512_mul_ps(c0, Spread<kRows, 0>(b)),
                               _mm512_mul_ps(c1, Spread<kRows, 1>(b)));
    sum = _mm512_add_ps(sum, _mm512_mul_ps(c2, Spread<kRows, 2>(b)));
    if constexpr (kSecondAffine)  // adds the last column
      sum = _mm512_mask_add_ps(sum, kLastColumn, sum, c3);
    else
      sum = _mm512_add_ps(sum, _mm512_mul_ps(c3, Spread<kRows, 3>(b)));
    if constexpr (kFirstAffine) sum = _mm512_mask_blend_ps(kRows, kSecondAffine ? one : b, sum);
    _mm512_storeu_ps(to, sum);
  }
}

ZEPH_AVX512 void FloatProducts(float* out, const float* m, std::size_t stride, const float* e,
                               bool firstAffine, bool secondAffine, std::size_t n) {
  const auto run = firstAffine
                       ? (secondAffine ? ProductsOf<true, true> : ProductsOf<true, false>)
                       : (secondAffine ? ProductsOf<false, true> : ProductsOf<false, false>);
  run(out, m, stride, e, n);
}

/// The same column in both halves.
ZEPH_AVX512_INLINE __m512d Twice(const double* column) {
  return _mm512_broadcast_f64x4(_mm256_loadu_pd(column));
}

template <int k>
ZEPH_AVX512_INLINE __m512d Spread(__m512d columns) {
  return _mm512_permutex_pd(columns, k * 0x55);
}

ZEPH_AVX512 void DoubleProducts(double* out, const double* m, std::size_t stride, const double* e,
                                std::size_t n) {
  const __m512d c0 = Twice(e), c1 = Twice(e + 4), c2 = Twice(e + 8), c3 = Twice(e + 12);
  const auto* from = reinterpret_cast<const char*>(m);
  auto* to = reinterpret_cast<char*>(out);
  for (std::size_t i = 0; i < n; ++i, from += stride, to += stride)
    for (std::size_t half = 0; half < 128; half += 64) {
      const __m512d b = _mm512_loadu_pd(from + half);
      __m512d sum = _mm512_add_pd(_mm512_mul_pd(c0, Spread<0>(b)), _mm512_mul_pd(c1, Spread<1>(b)));
      sum = _mm512_add_pd(sum, _mm512_mul_pd(c2, Spread<2>(b)));
      sum = _mm512_add_pd(sum, _mm512_mul_pd(c3, Spread<3>(b)));
      _mm512_storeu_pd(to + half, sum);
    }
}

}  // namespace

const Batch avx512::kBatch = {kVectors<float>, kVectors<double>, Directions, Points, VectorsOfFour};
const BatchProducts avx512::kBatchProducts = {FloatProducts, DoubleProducts};

}  // namespace zeph::kernels
#endif
