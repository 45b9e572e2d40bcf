// SPDX-License-Identifier: MIT
#include <cmath>

#include "algorithms.h"
#include "algorithms/power_of_ten.h"
#include "algorithms/scientific_text.h"
#include "platform/functions.h"
#include "platform/narrow.h"

using namespace zeph::algorithms;

int ZEPH_MathGetScientificNotationBase(double value, char digits) {
  const double x = zeph::platform::DecimalLogarithm(std::fabs(value));
  const int e = zeph::platform::TruncateToInt(x < 0 ? std::floor(x) : std::ceil(x));
  // Plain char is unsigned on some processors; the count is signed.
  const int limit = static_cast<signed char>(digits) + 1;
  if (e >= limit) return 1 - limit + e;
  return e < 0 ? e : 0;
}

double ZEPH_MathGetScientificNotationValue(double value, int exponent) {
  const double power = PowerOfTen(exponent);
  return exponent >= 0 ? value / power : value / (1.0 / power);
}

CString ZEPH_MathToScientificNotation(double value, int& exponent, double& mantissa, char digits,
                                      char decimals) {
  exponent = ZEPH_MathGetScientificNotationBase(value, digits);
  mantissa = ZEPH_MathGetScientificNotationValue(value, exponent);
  const int count = static_cast<signed char>(decimals);  // NOLINT(bugprone-signed-char-misuse)
  return zeph::platform::kPortableMath ? PortableScientificText(mantissa, exponent, count)
                                       : RuntimesScientificText(mantissa, exponent, count);
}
