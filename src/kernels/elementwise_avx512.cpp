// SPDX-License-Identifier: MIT
//
// Eight elements at a time. Accesses that straddle two cache lines dominate the cost, so stores are
// aligned to lines and operands are assembled from whole lines.
#include "kernels/elementwise.h"

#include "kernels/forms.h"

#if ZEPH_X64
#include <algorithm>
#include <cstdint>

#include "kernels/avx512.h"
#include "platform/exactness.h"

namespace zeph::kernels {
namespace {

#define ZEPH_AVX512_INLINE ZEPH_AVX512 static ZEPH_ALWAYS_INLINE
#define ZEPH_AVX512_MEMBER ZEPH_AVX512 ZEPH_ALWAYS_INLINE

constexpr std::size_t kLanes = 8;
constexpr std::size_t kWideFrom = 256;  // shorter arrays are faster in the AVX2 form

ZEPH_AVX512_INLINE __mmask8 FirstLanes(std::size_t count) {
  return static_cast<__mmask8>((1u << count) - 1u);
}

/// The number of elements from `p` to the next cache line, fewer than kLanes.
std::size_t ToEdge(const double* p) {
  return (0 - reinterpret_cast<std::uintptr_t>(p) / sizeof(double)) % kLanes;
}

struct Sum {
  static constexpr auto kNarrow = &Elementwise::add;
  ZEPH_AVX512_INLINE __m512d Op(__m512d x, __m512d y) { return _mm512_add_pd(x, y); }
};
struct Difference {
  static constexpr auto kNarrow = &Elementwise::subtract;
  ZEPH_AVX512_INLINE __m512d Op(__m512d x, __m512d y) { return _mm512_sub_pd(x, y); }
};
struct Product {
  static constexpr auto kNarrow = &Elementwise::multiply;
  ZEPH_AVX512_INLINE __m512d Op(__m512d x, __m512d y) { return _mm512_mul_pd(x, y); }
};

/// kLanes elements of the concatenation of `low` and `high`, from kShift on. (A mask of all lanes,
/// because g++ 12 warns that the unmasked intrinsic's own operand is uninitialised.)
template <std::size_t kShift>
ZEPH_AVX512_INLINE __m512d Join(__m512d low, __m512d high) {
  constexpr int kCount = static_cast<int>(kShift);
  return _mm512_castsi512_pd(
      _mm512_maskz_alignr_epi64(0xFF, _mm512_castpd_si512(high), _mm512_castpd_si512(low), kCount));
}

/// The offset of `p` in its cache line, in elements, if assembling from whole lines helps there;
/// else 0. At half a line no load of half a vector crosses into the next line, and no allocator
/// returns an address at an odd number of elements.
std::size_t LineOffset(const double* p) {
  const std::size_t offset = reinterpret_cast<std::uintptr_t>(p) / sizeof(double) % kLanes;
  return offset % 4 == 2 ? offset : 0;
}

/// Reads vector after vector of an operand whose LineOffset is kOffset: loads whole lines and joins
/// each to the one before, since a load that straddles two lines takes twice as long.
template <std::size_t kOffset>
class Reader {
 public:
  ZEPH_AVX512_MEMBER explicit Reader(const double* p) : p_(p), before_(_mm512_setzero_pd()) {
    if (kOffset == 0) return;
    const __m512d rest = _mm512_maskz_loadu_pd(FirstLanes(kLanes - kOffset), p);
    before_ = Join<kLanes - kOffset>(_mm512_setzero_pd(), rest);
    p_ += kLanes - kOffset;
  }
  ZEPH_AVX512_MEMBER __m512d Next() {
    __m512d line = _mm512_loadu_pd(p_);
    p_ += kLanes;
    if (kOffset == 0) return line;
    __asm__("" : "+v"(line));  // g++ would load it again for the next vector
    const __m512d joined = Join<kOffset>(before_, line);
    before_ = line;
    return joined;
  }

 private:
  const double* p_;
  __m512d before_;  // the line before p_; of the first one only the operand's elements
};

/// Processes most of the elements in pairs of vectors; returns their number. The readers are up to
/// a line ahead.
template <class Operation, std::size_t kOffsetA, std::size_t kOffsetB>
ZEPH_AVX512_INLINE std::size_t Pairs(double* out, const double* a, const double* b, std::size_t n) {
  constexpr std::size_t kAhead = kOffsetA || kOffsetB ? kLanes : 0;
  Reader<kOffsetA> left(a);
  Reader<kOffsetB> right(b);
  std::size_t i = 0;
  for (; i + 2 * kLanes + kAhead <= n; i += 2 * kLanes) {
    const __m512d x0 = left.Next(), x1 = left.Next(), y0 = right.Next(), y1 = right.Next();
    _mm512_storeu_pd(out + i, Operation::Op(x0, y0));
    _mm512_storeu_pd(out + i + kLanes, Operation::Op(x1, y1));
  }
  return i;
}

template <class Operation, std::size_t kOffsetA>
ZEPH_AVX512_INLINE std::size_t PairsByB(double* out, const double* a, const double* b,
                                        std::size_t n) {
  switch (LineOffset(b)) {
    case 2:
      return Pairs<Operation, kOffsetA, 2>(out, a, b, n);
    case 6:
      return Pairs<Operation, kOffsetA, 6>(out, a, b, n);
    default:
      return Pairs<Operation, kOffsetA, 0>(out, a, b, n);
  }
}

/// Vector vector.
template <class Operation>
ZEPH_AVX512_INLINE __m512d Vector(const double* a, const double* b) {
  return Operation::Op(_mm512_loadu_pd(a), _mm512_loadu_pd(b));
}

/// Fewer than a vector's elements.
template <class Operation>
ZEPH_AVX512_INLINE void Masked(double* out, const double* a, const double* b, std::size_t n) {
  const __mmask8 mask = FirstLanes(n);
  const __m512d x = _mm512_maskz_loadu_pd(mask, a), y = _mm512_maskz_loadu_pd(mask, b);
  _mm512_mask_storeu_pd(out, mask, Operation::Op(x, y));
}

/// Processes most of the elements, reading and writing whole lines; returns their number.
template <class Operation>
ZEPH_AVX512 std::size_t ByLines(double* out, const double* a, const double* b, std::size_t n) {
  const std::size_t i = ToEdge(out);
  Masked<Operation>(out, a, b, i);
  out += i, a += i, b += i, n -= i;
  switch (LineOffset(a)) {
    case 2:
      return i + PairsByB<Operation, 2>(out, a, b, n);
    case 6:
      return i + PairsByB<Operation, 6>(out, a, b, n);
    default:
      return i + PairsByB<Operation, 0>(out, a, b, n);
  }
}

template <class Operation>
ZEPH_AVX512 void Binary(double* out, const double* a, const double* b, std::size_t n) {
  if (n < kWideFrom) return (avx2::kElementwise.*Operation::kNarrow)(out, a, b, n);
  // The last vector overlaps its neighbour, which is cheaper than masks; it is computed before
  // anything is stored, since `out` may be an operand.
  const __m512d last = Vector<Operation>(a + n - kLanes, b + n - kLanes);
  std::size_t i = ByLines<Operation>(out, a, b, n);
  for (; i + kLanes <= n; i += kLanes) _mm512_storeu_pd(out + i, Vector<Operation>(a + i, b + i));
  _mm512_storeu_pd(out + n - kLanes, last);
}

/// The elements of `a` that are in the mask, and the first of them in the other lanes too: those
/// must raise no exception of their own.
ZEPH_AVX512_INLINE __m512d Repeated(__mmask8 mask, const double* a) {
  return _mm512_mask_loadu_pd(_mm512_set1_pd(*a), mask, a);
}

template <class Operation>
ZEPH_AVX512 void WithScalar(double* out, double s, const double* a, std::size_t n) {
  const __m512d x = _mm512_set1_pd(s);
  std::size_t i = std::min(n, ToEdge(out));
  if (i) {
    const __mmask8 mask = FirstLanes(i);
    _mm512_mask_storeu_pd(out, mask, Operation::Op(x, Repeated(mask, a)));
  }
  for (; i + 2 * kLanes <= n; i += 2 * kLanes) {
    const __m512d y0 = _mm512_loadu_pd(a + i), y1 = _mm512_loadu_pd(a + i + kLanes);
    _mm512_storeu_pd(out + i, Operation::Op(x, y0));
    _mm512_storeu_pd(out + i + kLanes, Operation::Op(x, y1));
  }
  for (; i < n; i += kLanes) {
    const __mmask8 mask = FirstLanes(std::min(kLanes, n - i));
    _mm512_mask_storeu_pd(out + i, mask, Operation::Op(x, Repeated(mask, a + i)));
  }
}

ZEPH_AVX512 void Fill(double* out, double s, std::size_t n) {
  const __m512d x = _mm512_set1_pd(s);
  std::size_t i = std::min(n, ToEdge(out));
  if (i) _mm512_mask_storeu_pd(out, FirstLanes(i), x);
  for (; i + kLanes <= n; i += kLanes) _mm512_storeu_pd(out + i, x);
  if (i < n) _mm512_mask_storeu_pd(out + i, FirstLanes(n - i), x);
}

}  // namespace

const Elementwise avx512::kElementwise = {
    Binary<Sum>,         Binary<Difference>,     Binary<Product>,
    WithScalar<Product>, WithScalar<Difference>, Fill};

}  // namespace zeph::kernels
#endif
