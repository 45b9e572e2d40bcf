// SPDX-License-Identifier: MIT
#include "algorithms/scientific_text.h"

#include <cmath>

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
  char text[512];  // 309 digits, a point, 127 decimals
  char* end = text;
  CString whole;
  if (decimals < 0) {
    whole.Format("%%.0%dlf", decimals);
  } else {
    end = std::isfinite(mantissa) ? platform::ToChars(text, text + sizeof text - 1, mantissa,
                                                      platform::Digits::kFixed, decimals)
                                  : platform::WriteNonFinite(text, mantissa);
    *end = '\0';
    whole = text;
  }
  whole.AppendFormat("xE%d", exponent);
  return whole;
}

}  // namespace zeph::algorithms
