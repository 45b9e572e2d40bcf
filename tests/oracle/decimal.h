// Roundings, powers of ten and the scientific split, one statement per step.
#ifndef ZEPH_TESTS_ORACLE_DECIMAL_H
#define ZEPH_TESTS_ORACLE_DECIMAL_H

#include <cfenv>
#include <climits>
#include <cmath>
#include <cstdio>
#include <string>

#include "oracle/functions.h"

namespace oracle {

inline int ToInt(double x) {
  const double whole = std::trunc(x);
  if (std::isgreaterequal(whole, -2147483648.0) && std::islessequal(whole, 2147483647.0))
    return static_cast<int>(whole);
#ifdef FE_INVALID
  std::feraiseexcept(FE_INVALID);  // as the conversion does
#endif
  return INT_MIN;
}

inline double Power(int n) {
  volatile double p = 1.0;
  volatile double b = 10.0;
  long long k = n;
  if (k < 0) k = -k;
  while (true) {
    if (k % 2 == 1) p = p * b;
    k = k / 2;
    if (k == 0) break;
    b = b * b;
  }
  return p;
}

inline double RoundOff(double value, int places) {
  volatile double m = Power(places);
  if (places < 0) m = 1.0 / m;
  volatile double product = m * value;
  volatile double t = product + 0.5;
  return static_cast<double>(ToInt(t)) / m;
}

inline int RoundOffToInt(double x) {
  int b = 0;
  if (x < 0) b = 1;
  volatile double f = x - std::floor(x);
  if (f < 0) f = -f;
  volatile double y = x;
  if (f >= 0.5) y = x + 1.0;
  y = y - b;
  return ToInt(y);
}

inline int Exponent(double value, signed char digits) {
  const double x = Log10(std::fabs(value));
  const int e = x < 0 ? ToInt(std::floor(x)) : ToInt(std::ceil(x));
  const int d = digits + 1;
  if (e >= d) return e - digits;
  return e < 0 ? e : 0;
}

inline double Mantissa(double value, int exponent) {
  if (exponent >= 0) return value / Power(exponent);
  volatile double inverse = 1.0 / Power(exponent);
  return value / inverse;
}

inline std::string ScientificText(double value, signed char digits, signed char decimals) {
  const int exponent = Exponent(value, digits);
  char text[1024];
  std::snprintf(text, sizeof text, "%.*fxE%d", decimals, Mantissa(value, exponent), exponent);
  return text;
}

}  // namespace oracle

#endif  // ZEPH_TESTS_ORACLE_DECIMAL_H
