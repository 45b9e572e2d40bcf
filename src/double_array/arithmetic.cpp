// SPDX-License-Identifier: MIT
#include <iostream>

#include "double_array.h"
#include "double_array/elements.h"
#include "frame/fatal_report.h"
#include "kernels/overlap.h"
#include "kernels/target.h"
#include "parallel/elementwise.h"
#include "platform/allocation.h"
#include "platform/exactness.h"
#include "platform/live_blocks.h"

namespace zeph::double_array {
namespace {

/// Not inlined, so that operators on arrays of the same size stay short.
[[noreturn]] ZEPH_NOINLINE void StopForSizes(const char* message) {
  frame::FatalReport(message, std::cout);
}
void RequireSameSize(const CZEPHDoubleArray& a, const CZEPHDoubleArray& b, const char* message) {
  if (a.size != b.size) StopForSizes(message);
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

/// a.data[i] = op(a.data[i], b.data[i]) for rising i, where both have storage. `data` is public and may point
/// into another array's block; where the two then overlap with an offset, elements are computed one at a time.
template <kernels::Elementwise::Binary op>
ZEPH_NOINLINE CZEPHDoubleArray& UpdateMany(CZEPHDoubleArray& a, const CZEPHDoubleArray& b) {
  const std::size_t n = Count(b);
  if (a.data == b.data || !kernels::Overlap(a.data, n, b.data, n))
    op(a.data, a.data, b.data, n);
  else
    for (std::size_t i = 0; i < n; ++i) op(a.data + i, a.data + i, b.data + i, 1);
  return a;
}

/// The same; value(x, y) is what `op` computes of two elements. Up to four elements need no call. They are computed
/// in pairs, for which an overlap matters only where it is by one element.
template <kernels::Elementwise::Binary op, class Value>
CZEPHDoubleArray& Update(CZEPHDoubleArray& a, const CZEPHDoubleArray& b, Value value) {
  double* const x = a.data;
  const double* const y = b.data;
  if (!x || !y || b.size < 1) return a;
  if (b.size > 4 || x == y + 1) return UpdateMany<op>(a, b);
  kernels::InPairs(static_cast<std::size_t>(b.size), [=](std::size_t first, auto size) {
    double values[size.value];
    for (std::size_t i = 0; i < size.value; ++i) values[i] = value(x[first + i], y[first + i]);
    for (std::size_t i = 0; i < size.value; ++i) x[first + i] = values[i];
  });
  return a;
}

}  // namespace
}  // namespace zeph::double_array

using namespace zeph::double_array;

CZEPHDoubleArray& CZEPHDoubleArray::operator+=(const CZEPHDoubleArray& other) {
  RequireSameSizeToAdd(*this, other);
  return Update<zeph::parallel::Add>(*this, other, [](double x, double y) { return x + y; });
}

CZEPHDoubleArray& CZEPHDoubleArray::operator-=(const CZEPHDoubleArray& other) {
  RequireSameSizeToSubtract(*this, other);
  return Update<zeph::parallel::Subtract>(*this, other, [](double x, double y) { return x - y; });
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
