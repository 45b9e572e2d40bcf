// SPDX-License-Identifier: MIT
//
// std::to_chars of a double, also where the standard library has it for integers only (libc++ 14
// and its like).
#ifndef ZEPH_SRC_PLATFORM_TO_CHARS_H
#define ZEPH_SRC_PLATFORM_TO_CHARS_H

#include <charconv>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <version>

namespace zeph::platform {

enum class Digits { kFixed, kScientific, kGeneral };

/// The same by printf, whose decimal point is the locale's and may have several bytes.
inline char* PrintDigits(char* first, char* last, double x, Digits digits, int precision) {
  const char* conversions[] = {"%.*f", "%.*e", "%.*g"};
  char* end = first + std::snprintf(first, static_cast<std::size_t>(last - first),
                                    conversions[static_cast<int>(digits)], precision, x);
  const auto is_digit = [](char c) { return '0' <= c && c <= '9'; };
  char* point = first + (*first == '-');
  while (point < end && is_digit(*point)) ++point;
  if (point == end || *point == 'e') return end;
  char* rest = point;
  while (!is_digit(*rest)) ++rest;
  *point = '.';
  std::memmove(point + 1, rest, static_cast<std::size_t>(end - rest));
  return end - (rest - point - 1);
}

/// Writes a finite `x` as printf does in the C locale, without the terminating zero; the space up
/// to `last` must suffice for the text and that zero. Returns the end.
inline char* ToChars(char* first, char* last, double x, Digits digits, int precision) {
#ifdef __cpp_lib_to_chars
  constexpr std::chars_format kFormats[] = {std::chars_format::fixed, std::chars_format::scientific,
                                            std::chars_format::general};
  return std::to_chars(first, last, x, kFormats[static_cast<int>(digits)], precision).ptr;
#else
  return PrintDigits(first, last, x, digits, precision);
#endif
}

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_TO_CHARS_H
