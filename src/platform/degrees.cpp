// SPDX-License-Identifier: MIT
#include "platform/degrees.h"

#include <cmath>

#include "platform/exactness.h"

namespace zeph::platform {

SineAndCosine SinCosDegrees(double degrees) {
  const double radians = degrees * 3.141592653589793 / 180.0;
  // Read again, so that no compiler merges the calls into one for both, which some runtimes round
  // otherwise.
  const volatile double again = radians;
  return {std::sin(radians), std::cos(again)};
}

}  // namespace zeph::platform
