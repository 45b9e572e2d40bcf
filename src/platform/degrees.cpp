// SPDX-License-Identifier: MIT
#include "platform/degrees.h"

#include "platform/exactness.h"

namespace zeph::platform {

SineAndCosine SinCosDegrees(double degrees) {
  return SineCosine(degrees * 3.141592653589793 / 180.0);
}

}  // namespace zeph::platform
