// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "kernels/hypotenuse.h"
#include "kernels/largest_magnitude.h"
#include "parallel/rows.h"
#include "platform/choose.h"
#include "platform/exactness.h"
#include "raw_buffers.h"
#include "raw_buffers/precondition.h"

namespace zeph::raw_buffers {
namespace {

using kernels::Hypotenuse;

/// A running maximum is replaced unless it is strictly greater, so also if either side is a NaN.
double LargerOrLater(double running, double x) {
  return platform::Choose(running > x, running, x);
}

// The steps that add one element to a running norm. The first element starts it.
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

/// The running maximum carried over x[0] .. x[n - 1].
double TakeUpInOrder(double running, const double* x, std::size_t n) {
  for (std::size_t i = 0; i < n; ++i) running = AbsoluteMaximum::Next(running, x[i]);
  return running;
}

/// The maximum of numbers does not depend on the order, so a chunk of them is processed at once; a
/// chunk with a NaN in it is processed in order.
double MaximumOf(const double* x, std::size_t n) {
  constexpr std::size_t kChunk = 4096;
  const auto largest = kernels::Active().magnitudes->largest_or_nan;
  double running = AbsoluteMaximum::First(x[0]);
  for (std::size_t i = 0; i < n; i += kChunk) {
    const std::size_t count = std::min(kChunk, n - i);
    const double most = largest(x + i, count);
    running = most == most ? LargerOrLater(running, most) : TakeUpInOrder(running, x + i, count);
  }
  return running;
}

/// Row norms over columns 0 .. n - 1, combined in row order; the first row alone for n <= 1. The
/// kernel takes several rows side by side, each still in its own order.
template <class Combine>
double RowWise(double* const* m, int n, kernels::RowSums::OfRows norms, std::uint64_t pays,
               Combine combine) {
  constexpr std::size_t kAtOnce = 960;
  const std::size_t count = static_cast<std::size_t>(std::max(n, 1));
  const int threads = parallel::ThreadsFor(std::uint64_t{count} * count, pays);
  double running = 0.0;
  for (std::size_t i = 0; i < count; i += kAtOnce) {
    double some[kAtOnce];
    const std::size_t rows = std::min(kAtOnce, count - i);
    parallel::SumsOfRows(norms, threads, some, m + i, rows, count);
    for (std::size_t r = 0; r < rows; ++r) running = i + r ? combine(running, some[r]) : some[r];
  }
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

/// The sums of the columns `first` to `first` + `width` - 1, row by row, so that memory is read along
/// the rows; every column's own sum still runs in ascending row order.
void SumColumns(double* sums, double* const* m, int n, int start, int first, int width) {
  std::fill_n(sums, width, 0.0);
  for (int i = 0; i < n; ++i) {
    const double* row = m[std::ptrdiff_t{start} + i] + start + first;
    for (int j = 0; j < width; ++j) sums[j] = AbsoluteSum::Next(sums[j], row[j]);
  }
}

/// The largest column sum, a few strips of columns at a time.
double LargestColumnSum(double* const* m, int n, int start) {
  constexpr std::size_t kStrip = 64, kAtOnce = 16 * kStrip;
  const std::size_t count = static_cast<std::size_t>(std::max(n, 0));
  const int threads = parallel::ThreadsFor(std::uint64_t{count} * count, parallel::kPassPays);
  double largest = 0.0;
  for (std::size_t done = 0; done < count; done += kAtOnce) {
    double sums[kAtOnce];
    const std::size_t cols = std::min(kAtOnce, count - done);
    parallel::Share(threads, (cols - 1) / kStrip + 1, [&, done](std::size_t strip) {
      const std::size_t first = strip * kStrip;
      SumColumns(sums + first, m, n, start, static_cast<int>(done + first),
                 static_cast<int>(std::min(kStrip, cols - first)));
    });
    for (std::size_t j = 0; j < cols; ++j) largest = LargerOrLater(largest, sums[j]);
  }
  return largest;
}

}  // namespace
}  // namespace zeph::raw_buffers

using namespace zeph::raw_buffers;

double ZEPH_ArrayOneNorm(double* a, int n, int start) {
  ZEPH_REQUIRE_POINTER(__func__, a);
  return Accumulate<AbsoluteSum>(a + start, n);
}

double ZEPH_ArrayTwoNorm(double* a, int n, int start) {
  ZEPH_REQUIRE_POINTER(__func__, a);
  return std::sqrt(Accumulate<SquareSum>(a + start, n));
}

double ZEPH_ArrayTwoNorm2(double* a, int n, int start) {
  ZEPH_REQUIRE_POINTER(__func__, a);
  return Accumulate<ScaledLength>(a + start, n);
}

double ZEPH_ArrayMaxNorm(double* a, int n, int start) {
  ZEPH_REQUIRE_POINTER(__func__, a);
  return n > 1 ? MaximumOf(a + start, static_cast<std::size_t>(n)) : std::fabs(a[start]);
}

double ZEPH_MatrixOneNorm(double** m, int n, int start) {
  RequireRows(__func__, "m", m, start, n);
  return LargestColumnSum(m, n, start);
}

double ZEPH_MatrixMaxNorm(double** m, int n, int start) {
  RequireRows(__func__, "m", m, start, std::max(n, 1));
  return RowWise(m + start, n, zeph::kernels::Active().row_sums->magnitude,
                 zeph::parallel::kPassPays, LargerOrLater);
}

double ZEPH_MatrixFrobNorm(double** m, int n, int start) {
  RequireRows(__func__, "m", m, start, std::max(n, 1));
  return RowWise(m + start, n, zeph::kernels::Active().row_sums->length,
                 zeph::parallel::kLengthsPay, Hypotenuse);
}

double ZEPH_MatrixFrobNorm2(double** m, int n, int start) {
  RequireRows(__func__, "m", m, start, n);
  return ElementWise<ScaledLength>(m, n, start, 0.0);
}

double ZEPH_MatrixFrobNorm3(double** m, int n, int start) {
  RequireRows(__func__, "m", m, start, n);
  return std::sqrt(ElementWise<SquareSum>(m, n, start, 0.0));
}
