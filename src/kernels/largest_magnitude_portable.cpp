// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "kernels/forms.h"
#include "kernels/largest_magnitude.h"
#include "platform/exactness.h"

namespace zeph::kernels {

namespace {

constexpr std::size_t kLanes = 8;  // several maxima side by side, as vectors or as scalars

/// The maximum of several maxima. Where it equals 0.0 all elements do, and may be denormals that
/// the maximum instruction has flushed: then the result is `stands`, the element that the
/// documented scan ends with.
double Most(const double* maxima, double stands) {
  const double most = *std::max_element(maxima, maxima + kLanes);
  return most == 0.0 ? stands : most;
}

double Largest(const double* x, std::size_t n) {
  const double first = std::fabs(x[0]);
  if (first != first) return first;
  double largest[kLanes];
  std::fill_n(largest, kLanes, first);
  std::size_t i = 0;
  for (; i + kLanes <= n; i += kLanes)
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      const double size = std::fabs(x[i + lane]);
      largest[lane] = size > largest[lane] ? size : largest[lane];
    }
  for (; i < n; ++i)
    if (std::fabs(x[i]) > largest[0]) largest[0] = std::fabs(x[i]);
  return Most(largest, first);
}

constexpr std::uint64_t kSign = std::uint64_t{1} << 63;

/// The sign bit of the result is set for an infinity or a NaN: adding one to the exponent carries
/// into it. Works on the bits, since comparisons and products raise flags.
std::uint64_t NotFinite(double x) {
  std::uint64_t bits;
  std::memcpy(&bits, &x, sizeof bits);
  return (bits & ~kSign) + (std::uint64_t{1} << 52);
}

bool AnyNotFinite(const double* x, std::size_t n) {
  std::uint64_t found[kLanes] = {};
  std::size_t i = 0;
  for (; i + kLanes <= n; i += kLanes)
    for (std::size_t lane = 0; lane < kLanes; ++lane) found[lane] |= NotFinite(x[i + lane]);
  for (; i < n; ++i) found[0] |= NotFinite(x[i]);
  return std::any_of(found, found + kLanes, [](std::uint64_t f) { return (f & kSign) != 0; });
}

double LargestOrNaN(const double* x, std::size_t n) {
  if (AnyNotFinite(x, n))
    for (std::size_t i = 0; i < n; ++i)
      if (x[i] != x[i]) return x[i];
  const double largest = Largest(x, n);
  return largest == 0.0 ? std::fabs(x[n - 1]) : largest;
}

}  // namespace

const Magnitudes portable::kMagnitudes = {Largest, LargestOrNaN};

}  // namespace zeph::kernels
