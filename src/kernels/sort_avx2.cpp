// SPDX-License-Identifier: MIT
//
// Four doubles or ints at a time.
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

#include "kernels/intrinsics_x64.h"

#define ZEPH_WIDE_CALL ZEPH_TARGET("avx2,popcnt")
#define ZEPH_WIDE ZEPH_WIDE_CALL ZEPH_ALWAYS_INLINE

namespace zeph::kernels::avx2 {
namespace {

constexpr int kLanes = 4;

ZEPH_WIDE __m256d Min(__m256d a, __m256d b) {
  return _mm256_min_pd(a, b);
}
ZEPH_WIDE __m128i Min(__m128i a, __m128i b) {
  return _mm_min_epi32(a, b);
}
ZEPH_WIDE __m256d Max(__m256d a, __m256d b) {
  return _mm256_max_pd(a, b);
}
ZEPH_WIDE __m128i Max(__m128i a, __m128i b) {
  return _mm_max_epi32(a, b);
}

/// The lanes whose index has bit D set.
template <int D>
constexpr int kOdd = D == 1 ? 0xA : 0xC;

/// The lanes of `a` whose index has bit D clear, and the others of `b`.
template <int D>
ZEPH_WIDE __m256d Pick(__m256d a, __m256d b) {
  return _mm256_blend_pd(a, b, kOdd<D>);
}
template <int D>
ZEPH_WIDE __m128i Pick(__m128i a, __m128i b) {
  return _mm_blend_epi32(a, b, kOdd<D>);
}
/// The lesser in lanes whose index has bit D clear, the greater in the others.
template <int D, class V>
ZEPH_WIDE V LowHigh(V a, V b) {
  return Pick<D>(Min(a, b), Max(a, b));
}

/// Each lane's neighbour at distance D.
template <int D>
ZEPH_WIDE __m256d Flip(__m256d x) {
  if constexpr (D == 1)
    return _mm256_permute_pd(x, 0x5);
  else
    return _mm256_permute4x64_pd(x, 0x4E);
}
template <int D>
ZEPH_WIDE __m128i Flip(__m128i x) {
  return _mm_shuffle_epi32(x, D == 1 ? 0xB1 : 0x4E);
}
/// The lanes of each group of G in reverse.
template <int G>
ZEPH_WIDE __m256d Reverse(__m256d x) {
  if constexpr (G == 2)
    return _mm256_permute_pd(x, 0x5);
  else
    return _mm256_permute4x64_pd(x, 0x1B);
}
template <int G>
ZEPH_WIDE __m128i Reverse(__m128i x) {
  return _mm_shuffle_epi32(x, G == 2 ? 0xB1 : 0x1B);
}

/// Interleaves lanes of `a` and `b`, of the lower half or of the upper.
template <int Unit, bool kUpper>
ZEPH_WIDE __m256d Interleave(__m256d a, __m256d b) {
  static_assert(Unit == 1);
  return _mm256_permute2f128_pd(_mm256_unpacklo_pd(a, b), _mm256_unpackhi_pd(a, b),
                                kUpper ? 0x31 : 0x20);
}
template <int Unit, bool kUpper>
ZEPH_WIDE __m128i Interleave(__m128i a, __m128i b) {
  static_assert(Unit == 1);
  return kUpper ? _mm_unpackhi_epi32(a, b) : _mm_unpacklo_epi32(a, b);
}

ZEPH_WIDE void Transpose(__m256d* r) {
  const __m256d even01 = _mm256_unpacklo_pd(r[0], r[1]), odd01 = _mm256_unpackhi_pd(r[0], r[1]);
  const __m256d even23 = _mm256_unpacklo_pd(r[2], r[3]), odd23 = _mm256_unpackhi_pd(r[2], r[3]);
  r[0] = _mm256_permute2f128_pd(even01, even23, 0x20);
  r[1] = _mm256_permute2f128_pd(odd01, odd23, 0x20);
  r[2] = _mm256_permute2f128_pd(even01, even23, 0x31);
  r[3] = _mm256_permute2f128_pd(odd01, odd23, 0x31);
}
ZEPH_WIDE void Transpose(__m128i* r) {
  const __m128i low01 = _mm_unpacklo_epi32(r[0], r[1]), high01 = _mm_unpackhi_epi32(r[0], r[1]);
  const __m128i low23 = _mm_unpacklo_epi32(r[2], r[3]), high23 = _mm_unpackhi_epi32(r[2], r[3]);
  r[0] = _mm_unpacklo_epi64(low01, low23);
  r[1] = _mm_unpackhi_epi64(low01, low23);
  r[2] = _mm_unpacklo_epi64(high01, high23);
  r[3] = _mm_unpackhi_epi64(high01, high23);
}

ZEPH_WIDE __m256d Load(const double* v) {
  return _mm256_loadu_pd(v);
}
ZEPH_WIDE __m128i Load(const int* v) {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(v));
}
/// Lanes beyond the first `count` are filled with a value that sorts to the end; `count` may be
/// anything.
ZEPH_WIDE __m256d LoadFirst(const double* v, int count) {
  const __m256d end = _mm256_set1_pd(std::numeric_limits<double>::infinity());
  const __m256i first =
      _mm256_cmpgt_epi64(_mm256_set1_epi64x(count), _mm256_setr_epi64x(0, 1, 2, 3));
  return _mm256_blendv_pd(end, _mm256_maskload_pd(v, first), _mm256_castsi256_pd(first));
}
ZEPH_WIDE __m128i LoadFirst(const int* v, int count) {
  const __m128i end = _mm_set1_epi32(std::numeric_limits<int>::max());
  const __m128i first = _mm_cmpgt_epi32(_mm_set1_epi32(count), _mm_setr_epi32(0, 1, 2, 3));
  return _mm_blendv_epi8(end, _mm_maskload_epi32(v, first), first);
}
ZEPH_WIDE void Store(double* v, __m256d x) {
  _mm256_storeu_pd(v, x);
}
ZEPH_WIDE void Store(int* v, __m128i x) {
  _mm_storeu_si128(reinterpret_cast<__m128i*>(v), x);
}
/// A branch and single stores: storing under a mask is microcode on some processors.
template <class T, class V>
ZEPH_WIDE void StoreFirst(T* v, V x, int count) {
  if (count >= kLanes) return Store(v, x);
  T all[kLanes];
  Store(all, x);
  for (int i = 0; i < count; ++i) v[i] = all[i];
}
ZEPH_WIDE __m256d Broadcast(double x) {
  return _mm256_set1_pd(x);
}
ZEPH_WIDE __m128i Broadcast(int x) {
  return _mm_set1_epi32(x);
}
ZEPH_WIDE unsigned LessLanes(__m256d a, __m256d b) {
  return static_cast<unsigned>(_mm256_movemask_pd(_mm256_cmp_pd(a, b, _CMP_LT_OQ)));
}
ZEPH_WIDE unsigned LessLanes(__m128i a, __m128i b) {
  return static_cast<unsigned>(_mm_movemask_ps(_mm_castsi128_ps(_mm_cmplt_epi32(a, b))));
}
/// A mask of the lanes of `a` that are not at most those of `b`.
ZEPH_WIDE unsigned FallingLanes(__m256d a, __m256d b) {
  return static_cast<unsigned>(_mm256_movemask_pd(_mm256_cmp_pd(a, b, _CMP_NLE_UQ)));
}
ZEPH_WIDE unsigned FallingLanes(__m128i a, __m128i b) {
  return LessLanes(b, a);
}
ZEPH_WIDE std::size_t CountLanes(unsigned mask) {
  return static_cast<std::size_t>(_mm_popcnt_u32(mask));
}

/// The bits of a value in each lane, and sums of lanes.
ZEPH_WIDE __m256i LaneCounts(double x) {
  return _mm256_castpd_si256(_mm256_set1_pd(x));
}
ZEPH_WIDE __m128i LaneCounts(int x) {
  return _mm_set1_epi32(x);
}
ZEPH_WIDE __m256i LoadBits(const double* v) {
  return _mm256_castpd_si256(Load(v));
}
ZEPH_WIDE __m128i LoadBits(const int* v) {
  return Load(v);
}
ZEPH_WIDE void CountEqual(__m256i& counts, __m256i x, __m256i wanted) {
  counts = _mm256_sub_epi64(counts, _mm256_cmpeq_epi64(x, wanted));
}
ZEPH_WIDE void CountEqual(__m128i& counts, __m128i x, __m128i wanted) {
  counts = _mm_sub_epi32(counts, _mm_cmpeq_epi32(x, wanted));
}
ZEPH_WIDE std::size_t SumOfLanes(__m256i counts) {
  std::uint64_t lanes[kLanes];
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(lanes), counts);
  return static_cast<std::size_t>(std::accumulate(lanes, lanes + kLanes, std::uint64_t{0}));
}
ZEPH_WIDE std::size_t SumOfLanes(__m128i counts) {
  std::uint32_t lanes[kLanes];
  _mm_storeu_si128(reinterpret_cast<__m128i*>(lanes), counts);
  return std::accumulate(lanes, lanes + kLanes, std::size_t{0});
}

/// For each mask the shuffle indices that move the lanes in it to the front, `kParts` indices a
/// lane.
template <class Place, int kParts>
struct FrontTable {
  alignas(32) Place places[16][kLanes * kParts] = {};
  constexpr FrontTable() {
    for (unsigned mask = 0; mask < 16; ++mask) {
      int at = 0;
      for (unsigned wanted : {1u, 0u})
        for (unsigned lane = 0; lane < kLanes; ++lane)
          for (unsigned part = 0; (mask >> lane & 1) == wanted && part < kParts; ++part)
            places[mask][at++] = static_cast<Place>(lane * kParts + part);
    }
  }
};
constexpr FrontTable<std::int32_t, 2> kFrontWords;
constexpr FrontTable<std::uint8_t, 4> kFrontBytes;

/// The lanes in `mask` moved to the front, the others after them.
ZEPH_WIDE __m256d FrontFirst(__m256d x, unsigned mask) {
  const auto* order = reinterpret_cast<const __m256i*>(kFrontWords.places[mask]);
  return _mm256_castsi256_pd(
      _mm256_permutevar8x32_epi32(_mm256_castpd_si256(x), _mm256_load_si256(order)));
}
ZEPH_WIDE __m128i FrontFirst(__m128i x, unsigned mask) {
  const auto* order = reinterpret_cast<const __m128i*>(kFrontBytes.places[mask]);
  return _mm_shuffle_epi8(x, _mm_load_si128(order));
}

#include "kernels/sort_network.inc"  // first: the others use it

#include "kernels/sort_merge.inc"
#include "kernels/sort_quick.inc"

/// Bits that were clear and bits that were set in an element equal to 0.0, and all bits where a NaN
/// was.
struct Seen {
  __m256d clear, set, nan;
};
ZEPH_WIDE void Look(Seen& seen, __m256d a) {
  const __m256d zero = _mm256_cmp_pd(a, _mm256_setzero_pd(), _CMP_EQ_OQ);
  seen.clear = _mm256_or_pd(seen.clear, _mm256_andnot_pd(a, zero));
  seen.set = _mm256_or_pd(seen.set, _mm256_and_pd(a, zero));
  seen.nan = _mm256_or_pd(seen.nan, _mm256_cmp_pd(a, a, _CMP_UNORD_Q));
}
/// The bitwise or of all lanes, in every lane.
ZEPH_WIDE __m256i AnyLane(__m256d x) {
  const __m256d halves = _mm256_or_pd(x, _mm256_permute2f128_pd(x, x, 1));
  return _mm256_castpd_si256(_mm256_or_pd(halves, _mm256_permute_pd(halves, 0x5)));
}

ZEPH_WIDE_CALL bool OrderIsUnique(const double* v, std::size_t n) {
  Seen seen = {_mm256_setzero_pd(), _mm256_setzero_pd(), _mm256_setzero_pd()};
  std::size_t i = 0;
  for (; i + kLanes <= n; i += kLanes) Look(seen, Load(v + i));
  if (i < n) Look(seen, LoadFirst(v + i, static_cast<int>(n - i)));
  return _mm256_testz_si256(AnyLane(seen.clear), AnyLane(seen.set)) &&
         !_mm256_movemask_pd(seen.nan);
}

}  // namespace

const Sorting kSorting = {OrderIsUnique,  Sort<double>,      Sort<int>,      SplitLess<double>,
                          SplitLess<int>, Ascends<double>,   Ascends<int>,   MergeWide<double>,
                          MergeWide<int>, TakeFront<double>, TakeFront<int>, 32};

}  // namespace zeph::kernels::avx2

#endif  // ZEPH_X64
