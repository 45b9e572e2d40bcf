// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

#include "kernels/largest_magnitude.h"
#include "platform/exactness.h"

namespace zeph::kernels {

double portable::LargestMagnitude(const double* x, std::size_t n) {
  constexpr std::size_t kLanes = 8;  // several maxima side by side, as vectors or as scalars
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

}  // namespace zeph::kernels
