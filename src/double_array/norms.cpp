// SPDX-License-Identifier: MIT
#include <cmath>

#include "double_array.h"
#include "double_array/elements.h"
#include "kernels/largest_magnitude.h"
#include "platform/exactness.h"

namespace zeph::double_array {
namespace {

/// term(0) + term(1) + ..., added in that order, starting from the first; 0.0 when there is none.
/// The terms are made a few at a time ahead, so that nothing but the additions waits.
template <class Term>
double SumInOrder(std::size_t n, Term term) {
  if (n == 0) return 0.0;
  double sum = term(0);
  constexpr std::size_t kAhead = 8;
  std::size_t i = 1;
  for (; i + kAhead <= n; i += kAhead) {
    double terms[kAhead];
    for (std::size_t k = 0; k < kAhead; ++k) terms[k] = term(i + k);
    for (double x : terms) sum += x;
  }
  for (; i < n; ++i) sum += term(i);
  return sum;
}

}  // namespace
}  // namespace zeph::double_array

using zeph::double_array::Count;
using zeph::double_array::SumInOrder;

double CZEPHDoubleArray::OneNorm() const {
  return SumInOrder(Count(*this), [this](std::size_t i) { return std::fabs(data[i]); });
}

double CZEPHDoubleArray::TwoNorm() const {
  return std::sqrt(SumInOrder(Count(*this), [this](std::size_t i) { return data[i] * data[i]; }));
}

double CZEPHDoubleArray::MaxNorm() const {
  const std::size_t n = Count(*this);
  return n > 0 ? zeph::kernels::Active().magnitudes->largest(data, n) : 0.0;
}

double ZEPH_ArrayDotProduct(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b) {
  zeph::double_array::RequireAsManyAs(a, b, __func__);
  const std::size_t n = b.data ? Count(a) : 0;
  return SumInOrder(n, [&](std::size_t i) { return a.data[i] * b.data[i]; });
}
