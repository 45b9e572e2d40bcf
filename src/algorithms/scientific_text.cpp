// SPDX-License-Identifier: MIT
#include "algorithms/scientific_text.h"

#include <cmath>
#include <cstdio>

#include "platform/exactness.h"
#include "platform/format_number.h"
#include "platform/to_chars.h"

namespace zeph::algorithms {

CString RuntimesScientificText(double mantissa, int exponent, int decimals) {
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
  *end++ = 'x';
  *end++ = 'E';
  *platform::WriteInt(end, exponent) = '\0';
  return text;
}

}  // namespace zeph::algorithms
