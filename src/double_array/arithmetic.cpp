// SPDX-License-Identifier: MIT
#include <iostream>

#include "double_array.h"
#include "double_array/elements.h"
#include "frame/fatal_report.h"
#include "kernels/overlap.h"
#include "parallel/elementwise.h"
#include "platform/allocation.h"
#include "platform/exactness.h"
#include "platform/live_blocks.h"

namespace zeph::double_array {
namespace {

void RequireSameSize(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b, const char* message) {
  if (a.size != b.size) frame::FatalReport(message, std::cout);
}
void RequireSameSizeToAdd(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b) {
  RequireSameSize(a, b, "bad vector sizes");
}
void RequireSameSizeToSubtract(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b) {
  RequireSameSize(a, b, "bad vtor sizes");
}

/// An array of `a.size` elements made by `fill(data, count)`, which is called if it has storage.
/// One pass writes the result, instead of a copy that is then changed.
template <class Fill>
CZEPHDoubleArray Make(const CZEPHDoubleArray& a, Fill fill) {
  CZEPHDoubleArray result;
  result.size = a.size;
  result.data = platform::TryNewArray<double>(a.size);
  platform::RememberBlock({result.data, result.data, 0, a.size});
  if (Count(result) > 0) fill(result.data, Count(result));
  return result;
}

/// The result of `op` on `a` and `b`; where one has no storage, a copy of `a`.
template <kernels::Elementwise::Binary op>
CZEPHDoubleArray Combine(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b) {
  if (!a.data || !b.data) return a;
  return Make(a, [&](double* out, std::size_t n) { op(out, a.data, b.data, n); });
}

/// data[i] = op(data[i], other[i]) for rising i. `data` is public and may point into another
/// array's block; where the two then overlap with an offset, elements are computed one at a time.
template <kernels::Elementwise::Binary op>
void UpdateInOrder(double* data, const double* other, std::size_t n) {
  if (data == other || !kernels::Overlap(data, n, other, n)) return op(data, data, other, n);
  for (std::size_t i = 0; i < n; ++i) op(data + i, data + i, other + i, 1);
}

}  // namespace
}  // namespace zeph::double_array

using namespace zeph::double_array;

CZEPHDoubleArray& CZEPHDoubleArray::operator+=(const CZEPHDoubleArray& other) {
  RequireSameSizeToAdd(*this, other);
  if (data) UpdateInOrder<zeph::parallel::Add>(data, other.data, Count(other));
  return *this;
}

CZEPHDoubleArray& CZEPHDoubleArray::operator-=(const CZEPHDoubleArray& other) {
  RequireSameSizeToSubtract(*this, other);
  if (data) UpdateInOrder<zeph::parallel::Subtract>(data, other.data, Count(other));
  return *this;
}

CZEPHDoubleArray operator+(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b) {
  RequireSameSizeToAdd(a, b);
  return Combine<zeph::parallel::Add>(a, b);
}

CZEPHDoubleArray operator-(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b) {
  RequireSameSizeToSubtract(a, b);
  return Combine<zeph::parallel::Subtract>(a, b);
}

CZEPHDoubleArray operator+(const CZEPHDoubleArray& a) {
  return a;
}

CZEPHDoubleArray operator-(const CZEPHDoubleArray& a) {
  if (!a.data) return CZEPHDoubleArray(a.size, 0.0);
  return Make(
      a, [&](double* out, std::size_t n) { zeph::parallel::SubtractFrom(out, 0.0, a.data, n); });
}

CZEPHDoubleArray operator*(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b) {
  RequireAsManyAs(a, b, "operator*(CZEPHDoubleArray, CZEPHDoubleArray)");
  return Combine<zeph::parallel::Multiply>(a, b);
}

CZEPHDoubleArray operator*(double s, const CZEPHDoubleArray& a) {
  if (!a.data) return a;
  return Make(a, [&](double* out, std::size_t n) { zeph::parallel::Scale(out, s, a.data, n); });
}

CZEPHDoubleArray operator*(const CZEPHDoubleArray& a, double s) {
  return s * a;
}

CZEPHDoubleArray operator/(const CZEPHDoubleArray& a, double s) {
  const double r = 1.0 / s;
  return r * a;
}
