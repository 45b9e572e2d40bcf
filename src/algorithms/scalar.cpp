// SPDX-License-Identifier: MIT
//
// Magnitude, clamping, angles and whole numbers.
#include <climits>
#include <cmath>
#include <cstdlib>

#include "algorithms.h"
#include "platform/choose.h"
#include "platform/exactness.h"

using zeph::platform::Choose;

namespace {
constexpr double kDegreesPerRadian = 57.29577951308;
constexpr double kRadiansPerDegree = 0.01745329251994;
}  // namespace

double ZEPH_MathAbs(const double& x) {
  return x > 0 ? x : -x;
}

void ZEPH_MathClamp(double& v, const double& lo, const double& hi) {
  v = Choose(lo > v, lo, v);
  v = Choose(v > hi, hi, v);
}

double ZEPH_MathClamped(const double& v, const double& lo, const double& hi) {
  if (lo > v) return lo;
  return Choose(v > hi, hi, v);
}

void ZEPH_MathConvertToDeg(double& v) {
  v = v * kDegreesPerRadian;
}

void ZEPH_MathConvertToRad(double& v) {
  v = v * kRadiansPerDegree;
}

double ZEPH_MathDegToRad(const double& v) {
  return v * kRadiansPerDegree;
}

double ZEPH_MathRadToDeg(const double& v) {
  return v * kDegreesPerRadian;
}

int ZEPH_MathGetRightMostDigit(int n) {
  return n - 10 * (n / 10);
}

void ZEPH_MathIntegerDivision(int a, int b, int& quotient, int& remainder) {
  ZEPH_REQUIRE(__func__, b != 0, "b is 0");
  ZEPH_REQUIRE(__func__, a != INT_MIN || b != -1,
               "a is INT_MIN and b is -1: the quotient overflows");
  const std::div_t result = std::div(a, b);
  quotient = result.quot;
  remainder = result.rem;
}

void ZEPH_MathGetExponent(double& value, double, int exponent) {
  static_cast<void>(std::frexp(value, &exponent));
}
