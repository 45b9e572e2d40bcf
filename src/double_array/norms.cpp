// SPDX-License-Identifier: MIT
#include <cmath>

#include "double_array.h"
#include "double_array/elements.h"
#include "kernels/few.h"
#include "kernels/largest_magnitude.h"
#include "platform/exactness.h"

namespace zeph::double_array {
namespace {

/// term(0) + term(1) + ..., added in that order, starting from the first; 0.0 when there is none.
/// Terms are computed a few ahead, so that only the additions form a dependency chain.
template <class Term>
double SumInOrder(std::size_t n, Term term) {
  if (n == 0) return 0.0;
  double sum = term(0);
  constexpr std::size_t kAhead = 8;
  std::size_t i = 1;
  if (n > kAhead)
    for (; i + kAhead <= n; i += kAhead) {
      double terms[kAhead];
      for (std::size_t k = 0; k < kAhead; ++k) terms[k] = term(i + k);
      for (double x : terms) sum += x;
    }
  for (; i < n; ++i) sum += term(i);
  return sum;
}

double Larger(double x, double m) {
  return x > m ? x : m;
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
  // Denormals may have become zeros in the maxima: where all elements equal 0.0, the first one is
  // the result.
  const double largest = Larger(even, odd);
  return largest == 0.0 ? std::fabs(x[0]) : largest;
}

}  // namespace
}  // namespace zeph::double_array

using namespace zeph::double_array;

double CZEPHDoubleArray::OneNorm() const {
  return SumInOrder(Count(*this), [this](std::size_t i) { return std::fabs(data[i]); });
}

double CZEPHDoubleArray::TwoNorm() const {
  return std::sqrt(SumInOrder(Count(*this), [this](std::size_t i) { return data[i] * data[i]; }));
}

double CZEPHDoubleArray::MaxNorm() const {
  const std::size_t n = Count(*this);
  if (n > 0 && n <= zeph::kernels::kFew) return zeph::double_array::LargestOfFew(data, n);
  return n > 0 ? zeph::kernels::Active().magnitudes->largest(data, n) : 0.0;
}

double ZEPH_ArrayDotProduct(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b) {
  RequireAsManyAs(a, b, __func__);
  const std::size_t n = b.data ? Count(a) : 0;
  return SumInOrder(n, [&](std::size_t i) { return a.data[i] * b.data[i]; });
}
