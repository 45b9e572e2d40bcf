// SPDX-License-Identifier: MIT
//
// Eight doubles at a time. Lanes are compacted in a register and stored whole: storing selected
// lanes directly is microcode on some processors.
#include "kernels/sort_forms.h"

#if ZEPH_X64

#if !defined(__clang__)
// g++ 12 takes the deliberately undefined operand inside its own intrinsics for a mistake.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#pragma GCC diagnostic ignored "-Wuninitialized"
#endif

#include <immintrin.h>

#include <cstdint>
#include <limits>
#include <utility>

#define ZEPH_WIDE_CALL ZEPH_TARGET("avx512f,avx512dq,avx512bw,avx512vl,popcnt")
#define ZEPH_WIDE ZEPH_WIDE_CALL __attribute__((always_inline)) inline

namespace zeph::kernels::avx512 {
namespace {

using Lanes = __m512d;
constexpr int kLanes = 8;

ZEPH_WIDE Lanes Min(Lanes a, Lanes b) {
  return _mm512_min_pd(a, b);
}
ZEPH_WIDE Lanes Max(Lanes a, Lanes b) {
  return _mm512_max_pd(a, b);
}

/// Lanes whose number has the bit D set.
template <int D>
constexpr __mmask8 kOdd = D == 1   ? 0xAA
                          : D == 2 ? 0xCC
                                   : 0xF0;

/// The lesser in lanes whose number has the bit D clear, the greater in the others.
template <int D>
ZEPH_WIDE Lanes LowHigh(Lanes a, Lanes b) {
  return _mm512_mask_max_pd(_mm512_min_pd(a, b), kOdd<D>, a, b);
}
/// The lanes of `a` whose number has the bit D clear, and the others of `b`.
template <int D>
ZEPH_WIDE Lanes Pick(Lanes a, Lanes b) {
  return _mm512_mask_blend_pd(kOdd<D>, a, b);
}

/// Each lane's neighbour at distance D.
template <int D>
ZEPH_WIDE Lanes Flip(Lanes x) {
  if constexpr (D == 1)
    return _mm512_permute_pd(x, 0x55);
  else
    return _mm512_permutex_pd(x, 0x4E);
}
/// The lanes of each group of G in reverse.
template <int G>
ZEPH_WIDE Lanes Reverse(Lanes x) {
  if constexpr (G == 2)
    return _mm512_permute_pd(x, 0x55);
  else if constexpr (G == 4)
    return _mm512_permutex_pd(x, 0x1B);
  else
    return _mm512_permutexvar_pd(_mm512_setr_epi64(7, 6, 5, 4, 3, 2, 1, 0), x);
}

ZEPH_WIDE void Transpose(Lanes* r) {
  const Lanes even01 = _mm512_unpacklo_pd(r[0], r[1]), odd01 = _mm512_unpackhi_pd(r[0], r[1]);
  const Lanes even23 = _mm512_unpacklo_pd(r[2], r[3]), odd23 = _mm512_unpackhi_pd(r[2], r[3]);
  const Lanes even45 = _mm512_unpacklo_pd(r[4], r[5]), odd45 = _mm512_unpackhi_pd(r[4], r[5]);
  const Lanes even67 = _mm512_unpacklo_pd(r[6], r[7]), odd67 = _mm512_unpackhi_pd(r[6], r[7]);
  const Lanes a04 = _mm512_shuffle_f64x2(even01, even23, 0x88);
  const Lanes a26 = _mm512_shuffle_f64x2(even01, even23, 0xDD);
  const Lanes a15 = _mm512_shuffle_f64x2(odd01, odd23, 0x88);
  const Lanes a37 = _mm512_shuffle_f64x2(odd01, odd23, 0xDD);
  const Lanes b04 = _mm512_shuffle_f64x2(even45, even67, 0x88);
  const Lanes b26 = _mm512_shuffle_f64x2(even45, even67, 0xDD);
  const Lanes b15 = _mm512_shuffle_f64x2(odd45, odd67, 0x88);
  const Lanes b37 = _mm512_shuffle_f64x2(odd45, odd67, 0xDD);
  r[0] = _mm512_shuffle_f64x2(a04, b04, 0x88);
  r[1] = _mm512_shuffle_f64x2(a15, b15, 0x88);
  r[2] = _mm512_shuffle_f64x2(a26, b26, 0x88);
  r[3] = _mm512_shuffle_f64x2(a37, b37, 0x88);
  r[4] = _mm512_shuffle_f64x2(a04, b04, 0xDD);
  r[5] = _mm512_shuffle_f64x2(a15, b15, 0xDD);
  r[6] = _mm512_shuffle_f64x2(a26, b26, 0xDD);
  r[7] = _mm512_shuffle_f64x2(a37, b37, 0xDD);
}

/// The columns of one, two or four rows, one after another.
template <int R>
ZEPH_WIDE void UnfoldFewRows(Lanes* r) {
  const __m512i ones_low = _mm512_setr_epi64(0, 8, 1, 9, 2, 10, 3, 11);
  const __m512i ones_high = _mm512_setr_epi64(4, 12, 5, 13, 6, 14, 7, 15);
  if constexpr (R == 2) {
    const Lanes a = r[0], b = r[1];
    r[0] = _mm512_permutex2var_pd(a, ones_low, b);
    r[1] = _mm512_permutex2var_pd(a, ones_high, b);
  } else if constexpr (R == 4) {
    const __m512i twos_low = _mm512_setr_epi64(0, 1, 8, 9, 2, 3, 10, 11);
    const __m512i twos_high = _mm512_setr_epi64(4, 5, 12, 13, 6, 7, 14, 15);
    const Lanes a = _mm512_permutex2var_pd(r[0], ones_low, r[1]);
    const Lanes b = _mm512_permutex2var_pd(r[2], ones_low, r[3]);
    const Lanes c = _mm512_permutex2var_pd(r[0], ones_high, r[1]);
    const Lanes d = _mm512_permutex2var_pd(r[2], ones_high, r[3]);
    r[0] = _mm512_permutex2var_pd(a, twos_low, b);
    r[1] = _mm512_permutex2var_pd(a, twos_high, b);
    r[2] = _mm512_permutex2var_pd(c, twos_low, d);
    r[3] = _mm512_permutex2var_pd(c, twos_high, d);
  }
}

/// The first `count` lanes; all for 8 and more, none below 1.
ZEPH_WIDE __mmask8 FirstLanes(int count) {
  return static_cast<__mmask8>(count >= kLanes ? 0xFF : count < 0 ? 0 : (1 << count) - 1);
}
ZEPH_WIDE Lanes Load(const double* v) {
  return _mm512_loadu_pd(v);
}
ZEPH_WIDE Lanes Load(const int* v) {
  return _mm512_cvtepi32_pd(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(v)));
}
/// Beyond `count` infinities, which sort to the end.
ZEPH_WIDE Lanes LoadFirst(const double* v, int count) {
  const Lanes end = _mm512_set1_pd(std::numeric_limits<double>::infinity());
  return _mm512_mask_loadu_pd(end, FirstLanes(count), v);
}
ZEPH_WIDE Lanes LoadFirst(const int* v, int count) {
  const Lanes end = _mm512_set1_pd(std::numeric_limits<double>::infinity());
  return _mm512_mask_cvtepi32_pd(end, FirstLanes(count),
                                 _mm256_maskz_loadu_epi32(FirstLanes(count), v));
}
ZEPH_WIDE void Store(double* v, Lanes x) {
  _mm512_storeu_pd(v, x);
}
ZEPH_WIDE void Store(int* v, Lanes x) {
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(v), _mm512_cvtpd_epi32(x));
}
ZEPH_WIDE void StoreFirst(double* v, Lanes x, int count) {
  _mm512_mask_storeu_pd(v, FirstLanes(count), x);
}
ZEPH_WIDE void StoreFirst(int* v, Lanes x, int count) {
  _mm256_mask_storeu_epi32(v, FirstLanes(count), _mm512_cvtpd_epi32(x));
}

ZEPH_WIDE __m512d LoadRaw(const double* v) {
  return _mm512_loadu_pd(v);
}
ZEPH_WIDE __m256i LoadRaw(const int* v) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(v));
}
ZEPH_WIDE void StoreRaw(double* v, __m512d x) {
  _mm512_storeu_pd(v, x);
}
ZEPH_WIDE void StoreRaw(int* v, __m256i x) {
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(v), x);
}
ZEPH_WIDE __m512d Broadcast(double x) {
  return _mm512_set1_pd(x);
}
ZEPH_WIDE __m256i Broadcast(int x) {
  return _mm256_set1_epi32(x);
}
ZEPH_WIDE unsigned LessLanes(__m512d a, __m512d b) {
  return _mm512_cmp_pd_mask(a, b, _CMP_LT_OQ);
}
ZEPH_WIDE unsigned LessLanes(__m256i a, __m256i b) {
  return _mm256_cmplt_epi32_mask(a, b);
}
ZEPH_WIDE std::size_t CountLanes(unsigned mask) {
  return static_cast<std::size_t>(_mm_popcnt_u32(mask));
}

/// For each mask the lanes in it, ascending, then the others: a byte per lane.
struct FrontTable {
  std::uint64_t lanes[256] = {};
  constexpr FrontTable() {
    for (unsigned mask = 0; mask < 256; ++mask) {
      int at = 0;
      for (unsigned wanted : {1u, 0u})
        for (unsigned lane = 0; lane < 8; ++lane)
          if ((mask >> lane & 1) == wanted)
            lanes[mask] |= static_cast<std::uint64_t>(lane) << (8 * at++);
    }
  }
};
constexpr FrontTable kFront;

/// The lanes in `mask` moved to the front, the others behind them.
ZEPH_WIDE __m512d FrontFirst(__m512d x, unsigned mask) {
  const __m128i order = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(&kFront.lanes[mask]));
  return _mm512_permutexvar_pd(_mm512_cvtepu8_epi64(order), x);
}
ZEPH_WIDE __m256i FrontFirst(__m256i x, unsigned mask) {
  const __m128i order = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(&kFront.lanes[mask]));
  return _mm256_permutevar8x32_epi32(x, _mm256_cvtepu8_epi32(order));
}

#include "kernels/sort_network.inc"
#include "kernels/sort_quick.inc"

/// As unsigned integers +0 is the least of all doubles, as signed ones -0 is.
struct Extremes {
  __m512i least_unsigned, least_signed;
  __mmask8 unordered;
};
ZEPH_WIDE void Look(Extremes& seen, __m512d a, __m512d b) {
  const __m512i p = _mm512_castpd_si512(a), q = _mm512_castpd_si512(b);
  seen.least_unsigned = _mm512_min_epu64(seen.least_unsigned, _mm512_min_epu64(p, q));
  seen.least_signed = _mm512_min_epi64(seen.least_signed, _mm512_min_epi64(p, q));
  seen.unordered |= _mm512_cmp_pd_mask(a, b, _CMP_UNORD_Q);
}

ZEPH_WIDE_CALL bool OrderIsUnique(const double* v, std::size_t n) {
  const __m512d one = _mm512_set1_pd(1);
  Extremes seen = {_mm512_castpd_si512(one), _mm512_castpd_si512(one), 0};
  std::size_t i = 0;
  for (; i + 2 * kLanes <= n; i += 2 * kLanes) Look(seen, Load(v + i), Load(v + i + kLanes));
  for (; i < n; i += kLanes) {
    const __mmask8 rest = FirstLanes(static_cast<int>(std::min<std::size_t>(n - i, kLanes)));
    Look(seen, _mm512_mask_loadu_pd(one, rest, v + i), one);
  }
  const bool plus = _mm512_reduce_min_epu64(seen.least_unsigned) == 0;
  const bool minus = _mm512_reduce_min_epi64(seen.least_signed) == INT64_MIN;
  return seen.unordered == 0 && !(plus && minus);
}

}  // namespace

const SortForms kSort = {Level::kAvx512, OrderIsUnique, Sort<double>, Sort<int>};

}  // namespace zeph::kernels::avx512

#endif  // ZEPH_X64
