// SPDX-License-Identifier: MIT
//
// Four comparisons at a time.
#include "kernels/bits.h"
#include "kernels/forms.h"
#include "kernels/partition.h"

#if ZEPH_X64
#include <limits>

#include "kernels/intrinsics_x64.h"

#define ZEPH_INNER_CALL ZEPH_TARGET("avx2,popcnt")
#define ZEPH_INNER ZEPH_INNER_CALL ZEPH_ALWAYS_INLINE

namespace zeph::kernels::avx2 {
namespace {

constexpr std::size_t kLanes = 4;

ZEPH_INNER __m256d Broadcast(double x) {
  return _mm256_set1_pd(x);
}
ZEPH_INNER std::uint64_t Bits(__m256d mask) {
  return static_cast<unsigned>(_mm256_movemask_pd(mask));
}
/// The first `n` lanes of `v`, 0.0 in the others; `n` may be anything above 0.
ZEPH_INNER __m256d LoadFirst(const double* v, std::size_t n) {
  const __m256i first = _mm256_cmpgt_epi64(_mm256_set1_epi64x(static_cast<long long>(n)),
                                           _mm256_setr_epi64x(0, 1, 2, 3));
  return _mm256_maskload_pd(v, first);
}

template <int kTest>
ZEPH_INNER std::uint64_t Mask64(const double* v, __m256d pivot) {
  std::uint64_t mask = 0;
  for (std::size_t k = 0; k < 64; k += kLanes)
    mask |= Bits(_mm256_cmp_pd(_mm256_loadu_pd(v + k), pivot, kTest)) << k;
  return mask;
}
template <int kTest>
ZEPH_INNER std::uint64_t Mask(const double* v, std::size_t n, double value) {
  const __m256d pivot = Broadcast(value);
  std::uint64_t mask = 0;
  std::size_t k = 0;
  for (; k + kLanes <= n; k += kLanes)
    mask |= Bits(_mm256_cmp_pd(_mm256_loadu_pd(v + k), pivot, kTest)) << k;
  if (k < n) {
    const std::uint64_t last = Bits(_mm256_cmp_pd(LoadFirst(v + k, n - k), pivot, kTest));
    mask |= (last & ((1u << (n - k)) - 1)) << k;
  }
  return mask;
}
ZEPH_INNER std::uint64_t MaskNotLess64(const double* v, __m256d pivot) {
  return Mask64<_CMP_NLT_UQ>(v, pivot);
}
ZEPH_INNER std::uint64_t MaskNotGreater64(const double* v, __m256d pivot) {
  return Mask64<_CMP_NGT_UQ>(v, pivot);
}
ZEPH_INNER_CALL std::uint64_t MaskNotLess(const double* v, std::size_t n, double pivot) {
  return Mask<_CMP_NLT_UQ>(v, n, pivot);
}
ZEPH_INNER_CALL std::uint64_t MaskNotGreater(const double* v, std::size_t n, double pivot) {
  return Mask<_CMP_NGT_UQ>(v, n, pivot);
}
ZEPH_INNER __m256d Reversed(__m256d x) {
  return _mm256_permute4x64_pd(x, 0x1B);
}
ZEPH_INNER void ExchangeReversed64(double* left, double* right) {
  for (std::size_t k = 0; k < 64; k += kLanes) {
    const __m256d a = _mm256_loadu_pd(left + k), b = _mm256_loadu_pd(right + 60 - k);
    _mm256_storeu_pd(left + k, Reversed(b));
    _mm256_storeu_pd(right + 60 - k, Reversed(a));
  }
}

#include "kernels/partition.inc"

/// Counted lane by lane: a mask is -1 where it holds.
struct Counts {
  __m256i nans, zeros, plus, minus;
};
ZEPH_INNER void AddLanes(__m256i& count, __m256i mask) {
  count = _mm256_sub_epi64(count, mask);
}
ZEPH_INNER void Count(Counts& counts, __m256d x) {
  const __m256i bits = _mm256_castpd_si256(x);
  const __m256d zero = _mm256_setzero_pd();
  AddLanes(counts.nans, _mm256_castpd_si256(_mm256_cmp_pd(x, x, _CMP_UNORD_Q)));
  AddLanes(counts.zeros, _mm256_castpd_si256(_mm256_cmp_pd(x, zero, _CMP_EQ_OQ)));
  AddLanes(counts.plus, _mm256_cmpeq_epi64(bits, _mm256_castpd_si256(zero)));
  AddLanes(counts.minus, _mm256_cmpeq_epi64(bits, _mm256_castpd_si256(_mm256_set1_pd(-0.0))));
}
ZEPH_INNER std::size_t Total(__m256i counts) {
  alignas(32) long long lanes[kLanes];
  _mm256_store_si256(reinterpret_cast<__m256i*>(lanes), counts);
  return static_cast<std::size_t>(lanes[0] + lanes[1] + lanes[2] + lanes[3]);
}
ZEPH_INNER_CALL Census TakeCensus(const double* v, std::size_t n) {
  const __m256i none = _mm256_setzero_si256();
  Counts counts = {none, none, none, none};
  std::size_t k = 0;
  for (; k + kLanes <= n; k += kLanes) Count(counts, _mm256_loadu_pd(v + k));
  if (k < n) {
    const __m256d one = _mm256_set1_pd(1);
    const __m256i first = _mm256_cmpgt_epi64(_mm256_set1_epi64x(static_cast<long long>(n - k)),
                                             _mm256_setr_epi64x(0, 1, 2, 3));
    Count(counts, _mm256_blendv_pd(one, LoadFirst(v + k, n - k), _mm256_castsi256_pd(first)));
  }
  return {Total(counts.nans), Total(counts.zeros), Total(counts.plus), Total(counts.minus)};
}

ZEPH_INNER_CALL Bounds FindBounds(const double* v, std::size_t n) {
  constexpr double kInf = std::numeric_limits<double>::infinity();
  __m256d least = Broadcast(kInf), greatest = Broadcast(-kInf), nan = _mm256_setzero_pd();
  std::size_t k = 0;
  for (; k + kLanes <= n; k += kLanes) {
    const __m256d x = _mm256_loadu_pd(v + k);
    least = _mm256_min_pd(least, x);
    greatest = _mm256_max_pd(greatest, x);
    nan = _mm256_or_pd(nan, _mm256_cmp_pd(x, x, _CMP_UNORD_Q));
  }
  bool unordered = _mm256_movemask_pd(nan) != 0;
  alignas(32) double low[kLanes], high[kLanes];
  _mm256_store_pd(low, least);
  _mm256_store_pd(high, greatest);
  Bounds bounds = {kInf, -kInf};
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    if (low[lane] < bounds.least) bounds.least = low[lane];
    if (high[lane] > bounds.greatest) bounds.greatest = high[lane];
  }
  for (; k < n; ++k) {
    if (v[k] < bounds.least) bounds.least = v[k];
    if (v[k] > bounds.greatest) bounds.greatest = v[k];
    if (v[k] != v[k]) unordered = true;
  }
  return unordered ? Bounds{-kInf, kInf} : bounds;
}

}  // namespace

const Partitions kPartitions = {TakeCensus, PartByBlocks, MaskNotLess, MaskNotGreater, FindBounds};

}  // namespace zeph::kernels::avx2

#endif  // ZEPH_X64
