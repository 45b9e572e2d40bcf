// SPDX-License-Identifier: MIT
#include "algorithms/scientific_text.h"

#include <cmath>
#include <cstdio>

#include "platform/exactness.h"
#include "platform/format_number.h"
#include "platform/to_chars.h"

namespace zeph::algorithms {

namespace {

using platform::RealFormat;

/// "xE" and the exponent. Returns the end.
char* WriteExponent(char* out, int exponent) {
  *out++ = 'x';
  *out++ = 'E';
  return platform::WriteInt(out, exponent);
}

}  // namespace

CString RuntimesScientificText(double mantissa, int exponent, int decimals) {
  const auto conventions = platform::NumberConventions::OfRuntime();
  if (conventions.exact && std::isfinite(mantissa) && decimals >= 1 &&
      decimals <= RealFormat::kMostDecimals) {
    // Only infinities and NaN need the general conversion.
    const RealFormat format("", RealFormat::Notation::kFixed, decimals, conventions);
    char text[RealFormat::kRoom + 2 + platform::kIntRoom + 1];
    *WriteExponent(format.Write(text, mantissa), exponent) = '\0';
    return CString(text);
  }
  CString format, text;
  format.Format("%%.%dlfxE%%d", decimals);
  text.Format(format.GetString(), mantissa, exponent);
  return text;
}

CString PortableScientificText(double mantissa, int exponent, int decimals) {
  char text[512];  // a sign, 309 digits, a point, 127 decimals, "xE", the exponent
  char* const last = text + sizeof text - 1;
  char* end = text;
  if (decimals < 0)
    end += std::snprintf(text, sizeof text, "%%.0%dlf", decimals);
  else if (std::isfinite(mantissa))
    end = platform::ToChars(text, last, mantissa, platform::Digits::kFixed, decimals);
  else
    end = platform::WriteNonFinite(text, mantissa);
  *WriteExponent(end, exponent) = '\0';
  return CString(text);
}

}  // namespace zeph::algorithms
