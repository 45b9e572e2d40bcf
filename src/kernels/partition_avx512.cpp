// SPDX-License-Identifier: MIT
//
// Eight comparisons at a time.
#include "kernels/partition.h"

#include "kernels/bits.h"
#include "kernels/forms.h"

#if ZEPH_X64

#include <limits>

#include "kernels/avx512.h"

#define ZEPH_INNER_CALL ZEPH_AVX512
#define ZEPH_INNER ZEPH_INNER_CALL ZEPH_ALWAYS_INLINE

namespace zeph::kernels::avx512 {
namespace {

constexpr std::size_t kLanes = 8;

ZEPH_INNER __m512d Broadcast(double x) {
  return _mm512_set1_pd(x);
}
/// The first `n` lanes, 0 < n <= 8.
ZEPH_INNER __mmask8 FirstLanes(std::size_t n) {
  return static_cast<__mmask8>((1u << n) - 1);
}

template <int kTest>
ZEPH_INNER std::uint64_t Mask64(const double* v, __m512d pivot) {
  std::uint64_t mask = 0;
  for (std::size_t k = 0; k < 64; k += kLanes)
    mask |= std::uint64_t{_mm512_cmp_pd_mask(_mm512_loadu_pd(v + k), pivot, kTest)} << k;
  return mask;
}
template <int kTest>
ZEPH_INNER std::uint64_t Mask(const double* v, std::size_t n, double value) {
  const __m512d pivot = Broadcast(value);
  std::uint64_t mask = 0;
  std::size_t k = 0;
  for (; k + kLanes <= n; k += kLanes)
    mask |= std::uint64_t{_mm512_cmp_pd_mask(_mm512_loadu_pd(v + k), pivot, kTest)} << k;
  if (k < n) {
    const __mmask8 rest = FirstLanes(n - k);
    const __m512d x = _mm512_maskz_loadu_pd(rest, v + k);
    mask |= std::uint64_t{_mm512_mask_cmp_pd_mask(rest, x, pivot, kTest)} << k;
  }
  return mask;
}
ZEPH_INNER std::uint64_t MaskNotLess64(const double* v, __m512d pivot) {
  return Mask64<_CMP_NLT_UQ>(v, pivot);
}
ZEPH_INNER std::uint64_t MaskNotGreater64(const double* v, __m512d pivot) {
  return Mask64<_CMP_NGT_UQ>(v, pivot);
}
ZEPH_INNER_CALL std::uint64_t MaskNotLess(const double* v, std::size_t n, double pivot) {
  return Mask<_CMP_NLT_UQ>(v, n, pivot);
}
ZEPH_INNER_CALL std::uint64_t MaskNotGreater(const double* v, std::size_t n, double pivot) {
  return Mask<_CMP_NGT_UQ>(v, n, pivot);
}
ZEPH_INNER __m512d Reversed(__m512d x) {
  return _mm512_permutexvar_pd(_mm512_setr_epi64(7, 6, 5, 4, 3, 2, 1, 0), x);
}
ZEPH_INNER void ExchangeReversed64(double* left, double* right) {
  for (std::size_t k = 0; k < 64; k += kLanes) {
    const __m512d a = _mm512_loadu_pd(left + k), b = _mm512_loadu_pd(right + 56 - k);
    _mm512_storeu_pd(left + k, Reversed(b));
    _mm512_storeu_pd(right + 56 - k, Reversed(a));
  }
}

#include "kernels/partition.inc"

struct Counts {
  __m512i nans, zeros, plus, minus;
};
ZEPH_INNER void Add(__m512i& counts, __mmask8 where) {
  counts = _mm512_mask_add_epi64(counts, where, counts, _mm512_set1_epi64(1));
}
/// Of the lanes in `some`.
ZEPH_INNER void Count(Counts& counts, __m512d x, __mmask8 some) {
  const __m512i bits = _mm512_castpd_si512(x);
  const __m512d zero = _mm512_setzero_pd();
  Add(counts.nans, _mm512_mask_cmp_pd_mask(some, x, x, _CMP_UNORD_Q));
  Add(counts.zeros, _mm512_mask_cmp_pd_mask(some, x, zero, _CMP_EQ_OQ));
  Add(counts.plus, _mm512_mask_testn_epi64_mask(some, bits, bits));
  Add(counts.minus, _mm512_mask_cmpeq_epi64_mask(some, bits, _mm512_set1_epi64(INT64_MIN)));
}
ZEPH_INNER std::size_t Total(__m512i counts) {
  return static_cast<std::size_t>(_mm512_reduce_add_epi64(counts));
}
ZEPH_INNER_CALL Census TakeCensus(const double* v, std::size_t n) {
  const __m512i none = _mm512_setzero_si512();
  Counts counts = {none, none, none, none};
  std::size_t k = 0;
  for (; k + kLanes <= n; k += kLanes) Count(counts, _mm512_loadu_pd(v + k), 0xFF);
  if (k < n) {
    const __mmask8 rest = FirstLanes(n - k);
    Count(counts, _mm512_maskz_loadu_pd(rest, v + k), rest);
  }
  return {Total(counts.nans), Total(counts.zeros), Total(counts.plus), Total(counts.minus)};
}

ZEPH_INNER_CALL Bounds FindBounds(const double* v, std::size_t n) {
  constexpr double kInf = std::numeric_limits<double>::infinity();
  __m512d least = Broadcast(kInf), greatest = Broadcast(-kInf);
  __mmask8 nan = 0;
  for (std::size_t k = 0; k < n; k += kLanes) {
    const __mmask8 some = n - k >= kLanes ? __mmask8{0xFF} : FirstLanes(n - k);
    const __m512d x = _mm512_maskz_loadu_pd(some, v + k);
    least = _mm512_mask_min_pd(least, some, least, x);
    greatest = _mm512_mask_max_pd(greatest, some, greatest, x);
    nan = static_cast<__mmask8>(nan | _mm512_mask_cmp_pd_mask(some, x, x, _CMP_UNORD_Q));
  }
  if (nan) return {-kInf, kInf};
  return {_mm512_reduce_min_pd(least), _mm512_reduce_max_pd(greatest)};
}

}  // namespace

const Partitions kPartitions = {TakeCensus, PartByBlocks, MaskNotLess, MaskNotGreater, FindBounds};

}  // namespace zeph::kernels::avx512

#endif  // ZEPH_X64
