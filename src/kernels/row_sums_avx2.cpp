// SPDX-License-Identifier: MIT
//
// A row per lane: four columns of four rows are transposed in registers, and the four columns are
// taken up one after another.
#include "kernels/row_sums.h"

#include "kernels/forms.h"

#if ZEPH_X64
#include <immintrin.h>

#include <algorithm>

#include "kernels/hypotenuse.h"
#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

#define ZEPH_AVX2 ZEPH_TARGET("avx2")
#define ZEPH_AVX2_INLINE ZEPH_AVX2 static inline __attribute__((always_inline))

constexpr std::size_t kLanes = 4;

ZEPH_AVX2_INLINE __m256d Magnitudes(__m256d x) {
  return _mm256_andnot_pd(_mm256_set1_pd(-0.0), x);
}

/// The columns to read: all four, or the first few, and 0.0 for the others.
struct Whole {
  ZEPH_AVX2 inline __attribute__((always_inline)) __m256d operator()(const double* p) const {
    return _mm256_loadu_pd(p);
  }
};
struct FirstColumns {
  __m256i mask;
  ZEPH_AVX2 inline __attribute__((always_inline)) __m256d operator()(const double* p) const {
    return _mm256_maskload_pd(p, mask);
  }
};

// The terms that four elements of a row give: before the rows are transposed, since one load of
// the factors then serves all rows. Sums begin with 0.0, or with the first term as it is.
struct Element {
  static constexpr bool kFirstTermBegins = false;
  ZEPH_AVX2_INLINE __m256d Of(__m256d x, __m256d) { return x; }
};
struct Magnitude {
  static constexpr bool kFirstTermBegins = true;
  ZEPH_AVX2_INLINE __m256d Of(__m256d x, __m256d) { return Magnitudes(x); }
};
struct Product {
  static constexpr bool kFirstTermBegins = false;
  ZEPH_AVX2_INLINE __m256d Of(__m256d x, __m256d factors) { return _mm256_mul_pd(x, factors); }
};

/// columns[c][r] = rows[r][c].
ZEPH_AVX2_INLINE void Transpose(__m256d (&columns)[kLanes], const __m256d (&rows)[kLanes]) {
  const __m256d even01 = _mm256_unpacklo_pd(rows[0], rows[1]);
  const __m256d even23 = _mm256_unpacklo_pd(rows[2], rows[3]);
  const __m256d odd01 = _mm256_unpackhi_pd(rows[0], rows[1]);
  const __m256d odd23 = _mm256_unpackhi_pd(rows[2], rows[3]);
  columns[0] = _mm256_permute2f128_pd(even01, even23, 0x20);
  columns[1] = _mm256_permute2f128_pd(odd01, odd23, 0x20);
  columns[2] = _mm256_permute2f128_pd(even01, even23, 0x31);
  columns[3] = _mm256_permute2f128_pd(odd01, odd23, 0x31);
}

/// The columns from j on of the rows m[0] .. m[3].
template <class Term, class Load>
ZEPH_AVX2_INLINE void Columns(__m256d (&columns)[kLanes], const double* const* m, std::size_t j,
                              __m256d factors, Load load) {
  const __m256d rows[kLanes] = {
      Term::Of(load(m[0] + j), factors), Term::Of(load(m[1] + j), factors),
      Term::Of(load(m[2] + j), factors), Term::Of(load(m[3] + j), factors)};
  Transpose(columns, rows);
}

ZEPH_AVX2_INLINE FirstColumns First(std::size_t count) {
  const __m256i lanes = _mm256_set_epi64x(3, 2, 1, 0);
  return {_mm256_cmpgt_epi64(_mm256_set1_epi64x(static_cast<long long>(count)), lanes)};
}

/// Adds the terms of `count` columns from j on to the sums of 4 * Groups rows. (Adding the 0.0 of a
/// column that is not there would make a zero of a denormal sum where the host counts it as one.)
template <class Term, bool kBegin, std::size_t Groups, class Load>
ZEPH_AVX2_INLINE void AddColumns(__m256d (&sum)[Groups], const double* const* m, const double* v,
                                 std::size_t j, std::size_t count, Load load) {
  const __m256d factors =
      v ? load(v + j) : _mm256_setzero_pd();  // GCOVR_EXCL_BR_LINE: one way a use
#pragma GCC unroll 4
  for (std::size_t g = 0; g < Groups; ++g) {
    __m256d columns[kLanes];
    Columns<Term>(columns, m + g * kLanes, j, factors, load);
#pragma GCC unroll 4
    for (std::size_t c = 0; c < kLanes; ++c) {
      if (c >= count) break;
      sum[g] = kBegin && c == 0 ? columns[0] : _mm256_add_pd(sum[g], columns[c]);
    }
  }
}

/// The sums of 4 * Groups rows: so many sums hide one another's waiting. `v` may be null where the
/// term needs no factors.
template <class Term>
struct Sums {
  const double* v;
  template <std::size_t Groups>
  ZEPH_AVX2 void Of(double* sums, const double* const* m, std::size_t cols) const {
    __m256d sum[Groups];
#pragma GCC unroll 4
    for (std::size_t g = 0; g < Groups; ++g) sum[g] = _mm256_setzero_pd();
    constexpr bool kBegin = Term::kFirstTermBegins;
    std::size_t j = 0;
    if (kBegin && cols >= kLanes) {
      AddColumns<Term, kBegin>(sum, m, v, 0, kLanes, Whole());
      j = kLanes;
    }
    for (; j + kLanes <= cols; j += kLanes) AddColumns<Term, false>(sum, m, v, j, kLanes, Whole());
    const std::size_t left = cols - j;
    if (kBegin && j == 0 && left)
      AddColumns<Term, kBegin>(sum, m, v, j, left, First(left));
    else if (left)
      AddColumns<Term, false>(sum, m, v, j, left, First(left));
#pragma GCC unroll 4
    for (std::size_t g = 0; g < Groups; ++g) _mm256_storeu_pd(sums + g * kLanes, sum[g]);
  }
};

ZEPH_AVX2_INLINE __m256d Direct(__m256d r, __m256d x) {
  return _mm256_sqrt_pd(_mm256_add_pd(_mm256_mul_pd(r, r), _mm256_mul_pd(x, x)));
}

/// Hypotenuse in each lane.
ZEPH_AVX2_INLINE __m256d Hypotenuses(__m256d r, __m256d x) {
  const __m256d limit = _mm256_set1_pd(kScaledFrom);
  const __m256d small =
      _mm256_and_pd(_mm256_cmp_pd(r, limit, _CMP_LT_OQ), _mm256_cmp_pd(x, limit, _CMP_LT_OQ));
  if (_mm256_movemask_pd(small) == 0xF) return Direct(r, x);
  // Both ways for all lanes, each with 0.0 for operands (and 1.0 to divide by) in the lanes that go
  // the other way: these may raise no exception.
  const __m256d direct = Direct(_mm256_and_pd(small, r), _mm256_and_pd(small, x));
  const __m256d larger = _mm256_cmp_pd(r, x, _CMP_GT_OQ);
  const __m256d leg = _mm256_blendv_pd(_mm256_blendv_pd(x, r, larger), _mm256_set1_pd(1.0), small);
  const __m256d other = _mm256_andnot_pd(small, _mm256_blendv_pd(r, x, larger));
  const __m256d ratio = _mm256_div_pd(other, leg);
  const __m256d scaled = _mm256_mul_pd(
      leg, _mm256_sqrt_pd(_mm256_add_pd(_mm256_set1_pd(1.0), _mm256_mul_pd(ratio, ratio))));
  return _mm256_blendv_pd(scaled, direct, small);
}

/// Grows the lengths of 4 * Groups rows by `count` columns from j on, or begins them with column 0.
template <std::size_t Groups, class Load>
ZEPH_AVX2_INLINE void GrowByColumns(__m256d (&length)[Groups], const double* const* m,
                                    std::size_t j, std::size_t count, Load load) {
  __m256d columns[Groups][kLanes];
#pragma GCC unroll 4
  for (std::size_t g = 0; g < Groups; ++g)
    Columns<Magnitude>(columns[g], m + g * kLanes, j, _mm256_setzero_pd(), load);
  for (std::size_t c = 0; c < count; ++c)
#pragma GCC unroll 4
    for (std::size_t g = 0; g < Groups; ++g)
      length[g] = j + c == 0 ? columns[g][0] : Hypotenuses(length[g], columns[g][c]);
}

/// The lengths of 4 * Groups rows.
struct Lengths {
  template <std::size_t Groups>
  ZEPH_AVX2 void Of(double* lengths, const double* const* m, std::size_t cols) const {
    __m256d length[Groups];
#pragma GCC unroll 4
    for (std::size_t g = 0; g < Groups; ++g) length[g] = _mm256_setzero_pd();
    std::size_t j = 0;
    for (; j + kLanes <= cols; j += kLanes) GrowByColumns(length, m, j, kLanes, Whole());
    if (j < cols) GrowByColumns(length, m, j, cols - j, First(cols - j));
#pragma GCC unroll 4
    for (std::size_t g = 0; g < Groups; ++g) _mm256_storeu_pd(lengths + g * kLanes, length[g]);
  }
};

/// `rows` rows, at most 4 * Groups: the last one stands in for those that are not there.
template <std::size_t Groups, class Results>
void RowGroup(double* results, const double* const* m, std::size_t rows, std::size_t cols,
              Results of) {
  constexpr std::size_t kRows = Groups * kLanes;
  if (rows == kRows) return of.template Of<Groups>(results, m, cols);
  const double* row[kRows];
  double all[kRows];
  for (std::size_t r = 0; r < kRows; ++r) row[r] = m[std::min(r, rows - 1)];
  of.template Of<Groups>(all, row, cols);
  std::copy_n(all, rows, results);
}

/// All rows, twelve abreast; the last 13 to 16 as two lots of at most eight.
template <class Results>
void ForEachRow(double* results, const double* const* m, std::size_t rows, std::size_t cols,
                Results of) {
  for (std::size_t i = 0, count = 0; i < rows; i += count) {
    const std::size_t left = rows - i;
    count = left > 16 ? 12 : left > 12 ? 8 : left;
    if (count > 8)
      RowGroup<3>(results + i, m + i, count, cols, of);
    else if (count > 4)
      RowGroup<2>(results + i, m + i, count, cols, of);
    else
      RowGroup<1>(results + i, m + i, count, cols, of);
  }
}

void Sum(double* sums, const double* const* m, std::size_t rows, std::size_t cols) {
  ForEachRow(sums, m, rows, cols, Sums<Element>{nullptr});
}

void MagnitudeSum(double* sums, const double* const* m, std::size_t rows, std::size_t cols) {
  ForEachRow(sums, m, rows, cols, Sums<Magnitude>{nullptr});
}

void Length(double* lengths, const double* const* m, std::size_t rows, std::size_t cols) {
  ForEachRow(lengths, m, rows, cols, Lengths());
}

void Dot(double* sums, const double* const* m, const double* v, std::size_t rows,
         std::size_t cols) {
  ForEachRow(sums, m, rows, cols, Sums<Product>{v});
}

}  // namespace

const RowSums avx2::kRowSums = {Sum, MagnitudeSum, Length, Dot};

}  // namespace zeph::kernels
#endif
