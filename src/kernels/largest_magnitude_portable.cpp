// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <numeric>

#include "kernels/forms.h"
#include "kernels/largest_magnitude.h"
#include "platform/exactness.h"

namespace zeph::kernels {

namespace {

constexpr std::size_t kLanes = 8;  // several maxima side by side, as vectors or as scalars

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
  return *std::max_element(largest, largest + kLanes);
}

/// A NaN turns 0.0 * x into a NaN for good; so does an infinity, and only then one has to look.
double LargestOrNaN(const double* x, std::size_t n) {
  double zeros[kLanes] = {};
  std::size_t i = 0;
  for (; i + kLanes <= n; i += kLanes)
    for (std::size_t lane = 0; lane < kLanes; ++lane) zeros[lane] += 0.0 * x[i + lane];
  for (; i < n; ++i) zeros[0] += 0.0 * x[i];
  if (std::accumulate(zeros, zeros + kLanes, 0.0) != 0.0)
    for (i = 0; i < n; ++i)
      if (x[i] != x[i]) return x[i];
  return Largest(x, n);
}

}  // namespace

const Magnitudes portable::kMagnitudes = {Largest, LargestOrNaN};

}  // namespace zeph::kernels
