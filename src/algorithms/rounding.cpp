// SPDX-License-Identifier: MIT
#include <cmath>

#include "algorithms.h"
#include "algorithms/power_of_ten.h"
#include "platform/narrow.h"

using namespace zeph::algorithms;
using zeph::platform::TruncateToInt;

double ZEPH_MathRoundOff(double value, int places) {
  const double scale = places >= 0 ? PowerOfTen(places) : 1.0 / PowerOfTen(places);
  return TruncateToInt(scale * value + 0.5) / scale;
}

int ZEPH_RoundOffToInt(double x) {
  const double down = x < 0 ? 1.0 : 0.0;
  const double fraction = std::fabs(x - std::floor(x));
  const double up = fraction >= 0.5 ? x + 1.0 : x;
  return TruncateToInt(up - down);
}
