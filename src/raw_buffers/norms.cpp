// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstddef>

#include "platform/exactness.h"
#include "raw_buffers.h"
#include "raw_buffers/hypotenuse.h"

namespace zeph::raw_buffers {
namespace {

// The steps by which a running norm takes up one element. The first element starts it.
struct AbsoluteSum {
  static double First(double x) { return std::fabs(x); }
  static double Next(double running, double x) { return running + std::fabs(x); }
};
struct SquareSum {
  static double First(double x) { return x * x; }
  static double Next(double running, double x) { return running + x * x; }
};
struct ScaledLength {
  static double First(double x) { return std::fabs(x); }
  static double Next(double running, double x) { return Hypotenuse(running, std::fabs(x)); }
};
struct AbsoluteMaximum {
  static double First(double x) { return std::fabs(x); }
  static double Next(double running, double x) { return LargerOrLater(running, std::fabs(x)); }
};

/// The elements x[0] .. x[n - 1] in order; x[0] alone for n <= 1.
template <class Step>
double Accumulate(const double* x, int n) {
  double running = Step::First(x[0]);
  for (int i = 1; i < n; ++i) running = Step::Next(running, x[i]);
  return running;
}

/// Accumulates x[0] .. x[n - 1] into eight maxima. Of numbers, the largest does not depend on the
/// order; a NaN makes it do so, and then the ordered walk gives the answer.
double MaximumOf(const double* x, int n) {
  constexpr int kLanes = 8;
  double lane[kLanes] = {};
  bool ordered = true;
  int i = 0;
  for (; i + kLanes <= n; i += kLanes)
    for (int k = 0; k < kLanes; ++k) {
      const double value = std::fabs(x[i + k]);
      ordered &= value == value;
      lane[k] = lane[k] > value ? lane[k] : value;
    }
  if (!ordered) return Accumulate<AbsoluteMaximum>(x, n);
  double running = *std::max_element(lane, lane + kLanes);
  for (; i < n; ++i) running = LargerOrLater(running, std::fabs(x[i]));
  return running;
}

/// Several rows' norms at a time, each still in its own order: one ordered sum waits for itself at
/// every step, several fill the waiting.
constexpr int kRowsAtOnce = 4;
template <class Step>
void AccumulateRows(double* const* rows, int n, double* norms) {
  const double *r0 = rows[0], *r1 = rows[1], *r2 = rows[2], *r3 = rows[3];
  double s0 = Step::First(r0[0]), s1 = Step::First(r1[0]);
  double s2 = Step::First(r2[0]), s3 = Step::First(r3[0]);
  for (int j = 1; j < n; ++j) {
    s0 = Step::Next(s0, r0[j]);
    s1 = Step::Next(s1, r1[j]);
    s2 = Step::Next(s2, r2[j]);
    s3 = Step::Next(s3, r3[j]);
  }
  norms[0] = s0, norms[1] = s1, norms[2] = s2, norms[3] = s3;
}

/// Row norms over columns 0 .. n - 1, combined in row order; the first row alone for n <= 1.
template <class Step, class Combine>
double RowWise(double* const* rows, int n, Combine combine) {
  double running = Accumulate<Step>(rows[0], n);
  int i = 1;
  for (; i + kRowsAtOnce <= n; i += kRowsAtOnce) {
    double norms[kRowsAtOnce];
    AccumulateRows<Step>(rows + i, n, norms);
    for (double norm : norms) running = combine(running, norm);
  }
  for (; i < n; ++i) running = combine(running, Accumulate<Step>(rows[i], n));
  return running;
}

/// The elements of the block `start .. start + n - 1` by the same, row by row, into `running`.
template <class Step>
double ElementWise(double* const* m, int n, int start, double running) {
  for (int i = 0; i < n; ++i) {
    const double* row = m[std::ptrdiff_t{start} + i] + start;
    for (int j = 0; j < n; ++j) running = Step::Next(running, row[j]);
  }
  return running;
}

/// The largest column sum. The columns are summed a strip at a time, row by row, so that memory is
/// read along the rows; every column's own sum still runs in ascending row order.
double LargestColumnSum(double* const* m, int n, int start) {
  constexpr int kStrip = 64;
  double largest = 0.0;
  for (int first = 0; first < n; first += kStrip) {
    double sums[kStrip] = {};
    const int width = std::min(kStrip, n - first);
    for (int i = 0; i < n; ++i) {
      const double* row = m[std::ptrdiff_t{start} + i] + start + first;
      for (int j = 0; j < width; ++j) sums[j] = AbsoluteSum::Next(sums[j], row[j]);
    }
    for (int j = 0; j < width; ++j) largest = LargerOrLater(largest, sums[j]);
    if (n - first <= kStrip) break;
  }
  return largest;
}

}  // namespace
}  // namespace zeph::raw_buffers

namespace rb = zeph::raw_buffers;

double ZEPH_ArrayOneNorm(double* a, int n, int start) {
  return rb::Accumulate<rb::AbsoluteSum>(a + start, n);
}

double ZEPH_ArrayTwoNorm(double* a, int n, int start) {
  return std::sqrt(rb::Accumulate<rb::SquareSum>(a + start, n));
}

double ZEPH_ArrayTwoNorm2(double* a, int n, int start) {
  return rb::Accumulate<rb::ScaledLength>(a + start, n);
}

double ZEPH_ArrayMaxNorm(double* a, int n, int start) {
  return n > 1 ? rb::MaximumOf(a + start, n) : std::fabs(a[start]);
}

double ZEPH_MatrixOneNorm(double** m, int n, int start) {
  return rb::LargestColumnSum(m, n, start);
}

double ZEPH_MatrixMaxNorm(double** m, int n, int start) {
  return rb::RowWise<rb::AbsoluteSum>(m + start, n, rb::LargerOrLater);
}

double ZEPH_MatrixFrobNorm(double** m, int n, int start) {
  return rb::RowWise<rb::ScaledLength>(m + start, n, rb::Hypotenuse);
}

double ZEPH_MatrixFrobNorm2(double** m, int n, int start) {
  return rb::ElementWise<rb::ScaledLength>(m, n, start, 0.0);
}

double ZEPH_MatrixFrobNorm3(double** m, int n, int start) {
  return std::sqrt(rb::ElementWise<rb::SquareSum>(m, n, start, 0.0));
}
