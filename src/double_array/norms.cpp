// SPDX-License-Identifier: MIT
#include <cmath>

#include "double_array.h"
#include "double_array/elements.h"
#include "kernels/few.h"
#include "kernels/largest_magnitude.h"
#include "kernels/target.h"
#include "platform/exactness.h"

namespace zeph::double_array {
namespace {

/// sum + term(i) + term(i + 1) + ... + term(n - 1), added in that order. Terms are computed a few ahead, so that
/// only the additions form a dependency chain. Not inlined, so that short sums stay short.
template <class Term>
ZEPH_NOINLINE double SumRest(double sum, std::size_t i, std::size_t n, Term term) {
  constexpr std::size_t kAhead = 4;
  for (; i + kAhead <= n; i += kAhead) {
    double terms[kAhead];
    for (std::size_t k = 0; k < kAhead; ++k) terms[k] = term(i + k);
    for (double x : terms) sum += x;
  }
  for (; i < n; ++i) sum += term(i);
  return sum;
}

/// term(0) + term(1) + ..., added in that order, starting from the first; 0.0 when there is none.
template <class Term>
double SumInOrder(std::size_t n, Term term) {
  if (n == 0) return 0.0;
  double sum = term(0);
  if (n == 1) return sum;
  sum += term(1);
  if (n == 2) return sum;
  sum += term(2);
  if (n == 3) return sum;
  sum += term(3);
  return n == 4 ? sum : SumRest(sum, 4, n, term);
}

double Larger(double x, double m) {
  return x > m ? x : m;
}

/// `largest`, unless it is 0.0: denormals may have become zeros on the way, and where all elements equal 0.0,
/// the first one is the result.
double OrFirst(double largest, const double* x) {
  return largest == 0.0 ? std::fabs(x[0]) : largest;
}

/// The documented steps for a handful of elements (at least one), split between two maxima: a NaN
/// in front stays in both, any other is skipped by both, and all other values have one maximum.
double LargestOfFew(const double* x, std::size_t n) {
  double even = std::fabs(x[0]), odd = even;
  std::size_t i = 1;
  for (; i + 2 <= n; i += 2) {
    odd = Larger(std::fabs(x[i]), odd);
    even = Larger(std::fabs(x[i + 1]), even);
  }
  if (i < n) odd = Larger(std::fabs(x[i]), odd);
  return OrFirst(Larger(even, odd), x);
}

/// The same for one to four elements, without a loop.
double LargestOfFour(const double* x, std::size_t n) {
  const double first = std::fabs(x[0]);
  if (n == 1) return first;
  double largest = Larger(std::fabs(x[1]), first);
  if (n > 2) largest = Larger(std::fabs(x[2]), largest);
  if (n > 3) largest = Larger(std::fabs(x[3]), largest);
  return OrFirst(largest, x);
}

}  // namespace
}  // namespace zeph::double_array

using namespace zeph::double_array;

double CZEPHDoubleArray::OneNorm() const {
  return SumInOrder(Count(*this), [x = data](std::size_t i) { return std::fabs(x[i]); });
}

double CZEPHDoubleArray::TwoNorm() const {
  return std::sqrt(SumInOrder(Count(*this), [x = data](std::size_t i) { return x[i] * x[i]; }));
}

double CZEPHDoubleArray::MaxNorm() const {
  const std::size_t n = Count(*this);
  if (n == 0) return 0.0;
  if (n <= 4) return LargestOfFour(data, n);
  if (n <= zeph::kernels::kFew) return zeph::double_array::LargestOfFew(data, n);
  return zeph::kernels::Active().magnitudes->largest(data, n);
}

double ZEPH_ArrayDotProduct(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b) {
  RequireAsManyAs(a, b, __func__);
  const std::size_t n = b.data ? Count(a) : 0;
  return SumInOrder(n, [x = a.data, y = b.data](std::size_t i) { return x[i] * y[i]; });
}
