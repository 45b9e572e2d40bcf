// SPDX-License-Identifier: MIT
#include <cmath>

#include "algorithms.h"
#include "algorithms/power_of_ten.h"
#include "platform/format_number.h"
#include "platform/functions.h"
#include "platform/narrow.h"
#include "platform/to_chars.h"

using namespace zeph::algorithms;

int ZEPH_MathGetScientificNotationBase(double value, char digits) {
  const double x = zeph::platform::DecimalLogarithm(std::fabs(value));
  const int e = zeph::platform::TruncateToInt(x < 0 ? std::floor(x) : std::ceil(x));
  // Plain char has no sign on some processors; the count has one.
  const int limit = static_cast<signed char>(digits) + 1;
  if (e >= limit) return 1 - limit + e;
  return e < 0 ? e : 0;
}

double ZEPH_MathGetScientificNotationValue(double value, int exponent) {
  const double power = PowerOfTen(exponent);
  return exponent >= 0 ? value / power : value / (1.0 / power);
}

namespace {

/// As printf writes "%.{decimals}lfxE%d".
CString RuntimesText(double mantissa, int exponent, int decimals) {
  CString format, text;
  format.Format("%%.%dlfxE%%d", decimals);
  text.Format(format.GetString(), mantissa, exponent);
  return text;
}

/// The same on every system: what glibc writes, a negative count of decimals included.
CString PortableText(double mantissa, int exponent, int decimals) {
  char text[512];  // 309 digits, a point, 127 decimals
  char* end = text;
  CString whole;
  if (decimals < 0) {
    whole.Format("%%.0%dlf", decimals);
  } else {
    end = std::isfinite(mantissa)
              ? zeph::platform::ToChars(text, text + sizeof text - 1, mantissa,
                                        zeph::platform::Digits::kFixed, decimals)
              : zeph::platform::WriteNonFinite(text, mantissa);
    *end = '\0';
    whole = text;
  }
  whole.AppendFormat("xE%d", exponent);
  return whole;
}

}  // namespace

CString ZEPH_MathToScientificNotation(double value, int& exponent, double& mantissa, char digits,
                                      char decimals) {
  exponent = ZEPH_MathGetScientificNotationBase(value, digits);
  mantissa = ZEPH_MathGetScientificNotationValue(value, exponent);
  const int count = static_cast<signed char>(decimals);
  return zeph::platform::kPortableMath ? PortableText(mantissa, exponent, count)
                                       : RuntimesText(mantissa, exponent, count);
}
