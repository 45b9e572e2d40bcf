// SPDX-License-Identifier: MIT
//
// Eight doubles or ints at a time. Lanes are compacted in a register and stored whole: storing
// selected lanes directly is microcode on some processors.
#include "kernels/sort.h"

#include "kernels/counting.h"
#include "kernels/denormal_guard.h"
#include "kernels/forms.h"
#include "kernels/sort_limits.h"

#if ZEPH_X64

#include <cstdint>
#include <cstring>
#include <limits>
#include <numeric>
#include <utility>

#include "kernels/avx512.h"

#define ZEPH_WIDE_CALL ZEPH_AVX512
#define ZEPH_WIDE ZEPH_WIDE_CALL ZEPH_ALWAYS_INLINE

namespace zeph::kernels::avx512 {
namespace {

constexpr int kLanes = 8;

ZEPH_WIDE __m512d Min(__m512d a, __m512d b) {
  return _mm512_min_pd(a, b);
}
ZEPH_WIDE __m256i Min(__m256i a, __m256i b) {
  return _mm256_min_epi32(a, b);
}
ZEPH_WIDE __m512d Max(__m512d a, __m512d b) {
  return _mm512_max_pd(a, b);
}
ZEPH_WIDE __m256i Max(__m256i a, __m256i b) {
  return _mm256_max_epi32(a, b);
}

/// The lanes whose index has bit D set.
template <int D>
constexpr __mmask8 kOdd = D == 1   ? 0xAA
                          : D == 2 ? 0xCC
                                   : 0xF0;

/// The lesser in lanes whose index has bit D clear, the greater in the others.
template <int D>
ZEPH_WIDE __m512d LowHigh(__m512d a, __m512d b) {
  return _mm512_mask_max_pd(_mm512_min_pd(a, b), kOdd<D>, a, b);
}
template <int D>
ZEPH_WIDE __m256i LowHigh(__m256i a, __m256i b) {
  return _mm256_mask_max_epi32(_mm256_min_epi32(a, b), kOdd<D>, a, b);
}
/// The lanes of `a` whose index has bit D clear, and the others of `b`.
template <int D>
ZEPH_WIDE __m512d Pick(__m512d a, __m512d b) {
  return _mm512_mask_blend_pd(kOdd<D>, a, b);
}
template <int D>
ZEPH_WIDE __m256i Pick(__m256i a, __m256i b) {
  return _mm256_mask_blend_epi32(kOdd<D>, a, b);
}

/// Each lane's neighbour at distance D.
template <int D>
ZEPH_WIDE __m512d Flip(__m512d x) {
  if constexpr (D == 1)
    return _mm512_permute_pd(x, 0x55);
  else if constexpr (D == 2)
    return _mm512_permutex_pd(x, 0x4E);
  else
    return _mm512_shuffle_f64x2(x, x, 0x4E);
}
template <int D>
ZEPH_WIDE __m256i Flip(__m256i x) {
  if constexpr (D < 4)
    return _mm256_shuffle_epi32(x, D == 1 ? 0xB1 : 0x4E);
  else
    return _mm256_permute2x128_si256(x, x, 1);
}
/// The lanes of each group of G in reverse.
template <int G>
ZEPH_WIDE __m512d Reverse(__m512d x) {
  if constexpr (G == 2)
    return _mm512_permute_pd(x, 0x55);
  else if constexpr (G == 4)
    return _mm512_permutex_pd(x, 0x1B);
  else
    return _mm512_permutexvar_pd(_mm512_setr_epi64(7, 6, 5, 4, 3, 2, 1, 0), x);
}
template <int G>
ZEPH_WIDE __m256i Reverse(__m256i x) {
  if constexpr (G < 8)
    return _mm256_shuffle_epi32(x, G == 2 ? 0xB1 : 0x1B);
  else
    return _mm256_permutevar8x32_epi32(x, _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0));
}

/// The source of lane k of Interleave: 0 to 7 from `a`, 8 to 15 from `b`.
template <int Unit, bool kUpper>
constexpr int Origin(int k) {
  return k / Unit % 2 * 8 + k / (2 * Unit) * Unit + k % Unit + (kUpper ? 4 : 0);
}
/// Interleaves units of `a` and `b`, of the lower half of their lanes or of the upper.
template <int Unit, bool kUpper>
ZEPH_WIDE __m512d Interleave(__m512d a, __m512d b) {
  constexpr auto at = Origin<Unit, kUpper>;
  return _mm512_permutex2var_pd(
      a, _mm512_setr_epi64(at(0), at(1), at(2), at(3), at(4), at(5), at(6), at(7)), b);
}
template <int Unit, bool kUpper>
ZEPH_WIDE __m256i Interleave(__m256i a, __m256i b) {
  constexpr auto at = Origin<Unit, kUpper>;
  return _mm256_permutex2var_epi32(
      a, _mm256_setr_epi32(at(0), at(1), at(2), at(3), at(4), at(5), at(6), at(7)), b);
}

ZEPH_WIDE void Transpose(__m512d* r) {
  const __m512d even01 = _mm512_unpacklo_pd(r[0], r[1]), odd01 = _mm512_unpackhi_pd(r[0], r[1]);
  const __m512d even23 = _mm512_unpacklo_pd(r[2], r[3]), odd23 = _mm512_unpackhi_pd(r[2], r[3]);
  const __m512d even45 = _mm512_unpacklo_pd(r[4], r[5]), odd45 = _mm512_unpackhi_pd(r[4], r[5]);
  const __m512d even67 = _mm512_unpacklo_pd(r[6], r[7]), odd67 = _mm512_unpackhi_pd(r[6], r[7]);
  const __m512d a04 = _mm512_shuffle_f64x2(even01, even23, 0x88);
  const __m512d a26 = _mm512_shuffle_f64x2(even01, even23, 0xDD);
  const __m512d a15 = _mm512_shuffle_f64x2(odd01, odd23, 0x88);
  const __m512d a37 = _mm512_shuffle_f64x2(odd01, odd23, 0xDD);
  const __m512d b04 = _mm512_shuffle_f64x2(even45, even67, 0x88);
  const __m512d b26 = _mm512_shuffle_f64x2(even45, even67, 0xDD);
  const __m512d b15 = _mm512_shuffle_f64x2(odd45, odd67, 0x88);
  const __m512d b37 = _mm512_shuffle_f64x2(odd45, odd67, 0xDD);
  r[0] = _mm512_shuffle_f64x2(a04, b04, 0x88);
  r[1] = _mm512_shuffle_f64x2(a15, b15, 0x88);
  r[2] = _mm512_shuffle_f64x2(a26, b26, 0x88);
  r[3] = _mm512_shuffle_f64x2(a37, b37, 0x88);
  r[4] = _mm512_shuffle_f64x2(a04, b04, 0xDD);
  r[5] = _mm512_shuffle_f64x2(a15, b15, 0xDD);
  r[6] = _mm512_shuffle_f64x2(a26, b26, 0xDD);
  r[7] = _mm512_shuffle_f64x2(a37, b37, 0xDD);
}
/// Columns k and k + 4 of four rows, for k = 0..3.
ZEPH_WIDE void TransposeFour(const __m256i* r, __m256i* columns) {
  const __m256i low01 = _mm256_unpacklo_epi32(r[0], r[1]);
  const __m256i high01 = _mm256_unpackhi_epi32(r[0], r[1]);
  const __m256i low23 = _mm256_unpacklo_epi32(r[2], r[3]);
  const __m256i high23 = _mm256_unpackhi_epi32(r[2], r[3]);
  columns[0] = _mm256_unpacklo_epi64(low01, low23);
  columns[1] = _mm256_unpackhi_epi64(low01, low23);
  columns[2] = _mm256_unpacklo_epi64(high01, high23);
  columns[3] = _mm256_unpackhi_epi64(high01, high23);
}
ZEPH_WIDE void Transpose(__m256i* r) {
  __m256i upper[4], lower[4];
  TransposeFour(r, upper);
  TransposeFour(r + 4, lower);
  r[0] = _mm256_permute2x128_si256(upper[0], lower[0], 0x20);
  r[1] = _mm256_permute2x128_si256(upper[1], lower[1], 0x20);
  r[2] = _mm256_permute2x128_si256(upper[2], lower[2], 0x20);
  r[3] = _mm256_permute2x128_si256(upper[3], lower[3], 0x20);
  r[4] = _mm256_permute2x128_si256(upper[0], lower[0], 0x31);
  r[5] = _mm256_permute2x128_si256(upper[1], lower[1], 0x31);
  r[6] = _mm256_permute2x128_si256(upper[2], lower[2], 0x31);
  r[7] = _mm256_permute2x128_si256(upper[3], lower[3], 0x31);
}

/// A mask of the first `count` lanes: of all from 8 on, of none below 1.
ZEPH_WIDE __mmask8 FirstLanes(int count) {
  return static_cast<__mmask8>(count >= kLanes ? 0xFF : count < 0 ? 0 : (1 << count) - 1);
}
ZEPH_WIDE __m512d Load(const double* v) {
  return _mm512_loadu_pd(v);
}
ZEPH_WIDE __m256i Load(const int* v) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(v));
}
/// Lanes beyond `count` are filled with a value that sorts to the end.
ZEPH_WIDE __m512d LoadFirst(const double* v, int count) {
  const __m512d end = _mm512_set1_pd(std::numeric_limits<double>::infinity());
  return _mm512_mask_loadu_pd(end, FirstLanes(count), v);
}
ZEPH_WIDE __m256i LoadFirst(const int* v, int count) {
  const __m256i end = _mm256_set1_epi32(std::numeric_limits<int>::max());
  return _mm256_mask_loadu_epi32(end, FirstLanes(count), v);
}
ZEPH_WIDE void Store(double* v, __m512d x) {
  _mm512_storeu_pd(v, x);
}
ZEPH_WIDE void Store(int* v, __m256i x) {
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(v), x);
}
ZEPH_WIDE void StoreFirst(double* v, __m512d x, int count) {
  _mm512_mask_storeu_pd(v, FirstLanes(count), x);
}
ZEPH_WIDE void StoreFirst(int* v, __m256i x, int count) {
  _mm256_mask_storeu_epi32(v, FirstLanes(count), x);
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
/// A mask of the lanes of `a` that are not at most those of `b`.
ZEPH_WIDE unsigned FallingLanes(__m512d a, __m512d b) {
  return _mm512_cmp_pd_mask(a, b, _CMP_NLE_UQ);
}
ZEPH_WIDE unsigned FallingLanes(__m256i a, __m256i b) {
  return LessLanes(b, a);
}
ZEPH_WIDE std::size_t CountLanes(unsigned mask) {
  return static_cast<std::size_t>(_mm_popcnt_u32(mask));
}

/// The bits of a value in each lane, and sums of lanes.
ZEPH_WIDE __m512i LaneCounts(double x) {
  return _mm512_castpd_si512(_mm512_set1_pd(x));
}
ZEPH_WIDE __m256i LaneCounts(int x) {
  return _mm256_set1_epi32(x);
}
ZEPH_WIDE __m512i LoadBits(const double* v) {
  return _mm512_loadu_si512(v);
}
ZEPH_WIDE __m256i LoadBits(const int* v) {
  return Load(v);
}
ZEPH_WIDE void CountEqual(__m512i& counts, __m512i x, __m512i wanted) {
  const __mmask8 equal = _mm512_cmpeq_epi64_mask(x, wanted);
  counts = _mm512_mask_add_epi64(counts, equal, counts, _mm512_set1_epi64(1));
}
ZEPH_WIDE void CountEqual(__m256i& counts, __m256i x, __m256i wanted) {
  counts = _mm256_sub_epi32(counts, _mm256_cmpeq_epi32(x, wanted));
}
ZEPH_WIDE std::size_t SumOfLanes(__m512i counts) {
  return static_cast<std::size_t>(_mm512_reduce_add_epi64(counts));
}
ZEPH_WIDE std::size_t SumOfLanes(__m256i counts) {
  std::uint32_t lanes[kLanes];
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(lanes), counts);
  return std::accumulate(lanes, lanes + kLanes, std::size_t{0});
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

/// The lanes in `mask` moved to the front, the others after them.
ZEPH_WIDE __m512d FrontFirst(__m512d x, unsigned mask) {
  const __m128i order = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(&kFront.lanes[mask]));
  return _mm512_permutexvar_pd(_mm512_cvtepu8_epi64(order), x);
}
ZEPH_WIDE __m256i FrontFirst(__m256i x, unsigned mask) {
  const __m128i order = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(&kFront.lanes[mask]));
  return _mm256_permutevar8x32_epi32(x, _mm256_cvtepu8_epi32(order));
}

#include "kernels/sort_network.inc"  // first: the others use it

#include "kernels/sort_merge.inc"
#include "kernels/sort_quick.inc"

/// Bits that were clear and bits that were set in an element equal to 0.0, and the lanes in which a
/// NaN was.
struct Seen {
  __m512i clear, set;
  __mmask8 unordered;
};
ZEPH_WIDE void LookForZeros(Seen& seen, __m512d a) {
  const __mmask8 zero = _mm512_cmp_pd_mask(a, _mm512_setzero_pd(), _CMP_EQ_OQ);
  const __m512i bits = _mm512_castpd_si512(a);
  // clear | ~bits and set | bits, each in one instruction.
  seen.clear = _mm512_mask_ternarylogic_epi64(seen.clear, zero, bits, bits, 0xF3);
  seen.set = _mm512_mask_or_epi64(seen.set, zero, seen.set, bits);
}
ZEPH_WIDE void Look(Seen& seen, __m512d a, __m512d b) {
  LookForZeros(seen, a);
  LookForZeros(seen, b);
  seen.unordered |= _mm512_cmp_pd_mask(a, b, _CMP_UNORD_Q);
}

ZEPH_WIDE_CALL bool OrderIsUnique(const double* v, std::size_t n) {
  const __m512d one = _mm512_set1_pd(1);
  Seen seen = {_mm512_setzero_si512(), _mm512_setzero_si512(), 0};
  std::size_t i = 0;
  for (; i + 2 * kLanes <= n; i += 2 * kLanes) Look(seen, Load(v + i), Load(v + i + kLanes));
  for (; i < n; i += kLanes) {
    const __mmask8 rest = FirstLanes(static_cast<int>(std::min<std::size_t>(n - i, kLanes)));
    Look(seen, _mm512_mask_loadu_pd(one, rest, v + i), one);
  }
  const long long clear = _mm512_reduce_or_epi64(seen.clear);
  return seen.unordered == 0 && (clear & _mm512_reduce_or_epi64(seen.set)) == 0;
}

}  // namespace

const Sorting kSorting = {OrderIsUnique,  Sort<double>,      Sort<int>,      SplitLess<double>,
                          SplitLess<int>, Ascends<double>,   Ascends<int>,   MergeWide<double>,
                          MergeWide<int>, TakeFront<double>, TakeFront<int>, 32};

}  // namespace zeph::kernels::avx512

#endif  // ZEPH_X64
