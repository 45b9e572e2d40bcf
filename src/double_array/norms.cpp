// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

#include "double_array.h"
#include "double_array/elements.h"
#include "platform/exactness.h"

namespace zeph::double_array {
namespace {

/// term(0) + term(1) + ..., added in that order, starting from the first; 0.0 when there is none.
template <class Term>
double SumInOrder(std::size_t n, Term term) {
  if (n == 0) return 0.0;
  double sum = term(0);
  for (std::size_t i = 1; i < n; ++i) sum += term(i);
  return sum;
}

/// The largest absolute value, NaNs passed over: the documented walk never leaves a NaN in element
/// 0 and never takes up another, and of numbers the largest does not depend on the order, so eight
/// walks can run side by side.
double LargestMagnitude(const double* v, std::size_t n) {
  constexpr std::size_t kLanes = 8;
  double largest[kLanes] = {};
  const auto take = [](double& lane, double x) {
    lane = std::fabs(x) > lane ? std::fabs(x) : lane;
  };
  std::size_t i = 0;
  for (; i + kLanes <= n; i += kLanes)
    for (std::size_t k = 0; k < kLanes; ++k) take(largest[k], v[i + k]);
  for (; i < n; ++i) take(largest[0], v[i]);
  return *std::max_element(largest, largest + kLanes);
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
  if (n == 0) return 0.0;
  const double first = std::fabs(data[0]);
  return first == first ? zeph::double_array::LargestMagnitude(data, n) : first;
}

double ZEPH_ArrayDotProduct(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b) {
  const std::size_t n = b.data ? Count(a) : 0;
  return SumInOrder(n, [&](std::size_t i) { return a.data[i] * b.data[i]; });
}
