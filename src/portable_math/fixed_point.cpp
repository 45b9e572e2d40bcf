// SPDX-License-Identifier: MIT
#include "portable_math/fixed_point.h"

#include "portable_math/bits.h"

namespace zeph::portable_math {

/// Column by column, starting one word after the last; lower columns are ignored.
Fixed Product(const Fixed& a, const Fixed& b) {
  int first = 0;  // small numbers, such as the terms of a series, cost less
  while (first <= Fixed::kWords && a.word[first] == 0) ++first;
  Fixed product;
  std::uint64_t carry = 0;
  for (int column = Fixed::kWords + 1; column >= 0; --column) {
    std::uint64_t low = carry, high = 0;
    for (int i = column > Fixed::kWords && first == 0 ? 1 : first;
         i <= column && i <= Fixed::kWords; ++i) {
      const std::uint64_t one = std::uint64_t{a.word[i]} * b.word[column - i];
      low += static_cast<std::uint32_t>(one);
      high += one >> 32;
    }
    if (column <= Fixed::kWords) product.word[column] = static_cast<std::uint32_t>(low);
    carry = high + (low >> 32);
  }
  return product;
}

Fixed Multiple(const Fixed& a, std::uint32_t n) {
  Fixed multiple;
  std::uint64_t carry = 0;
  for (int i = Fixed::kWords; i >= 0; --i) {
    carry += std::uint64_t{a.word[i]} * n;
    multiple.word[i] = static_cast<std::uint32_t>(carry);
    carry >>= 32;
  }
  return multiple;
}

Fixed Quotient(const Fixed& a, std::uint32_t n) {
  Fixed quotient;
  std::uint64_t rest = 0;
  for (int i = 0; i <= Fixed::kWords; ++i) {
    rest = rest << 32 | a.word[i];
    quotient.word[i] = static_cast<std::uint32_t>(rest / n);
    rest %= n;
  }
  return quotient;
}

namespace {

constexpr int kWordBits = 32;

/// The position of the leading bit: 0 for the top of the integer part.
int LeadingBit(const Fixed& a) {
  int i = 0;
  while (a.word[i] == 0) ++i;
  int bit = 0;
  while (a.word[i] << bit >> 31 == 0) ++bit;
  return i * kWordBits + bit;
}

/// 64 bits from a position on, with zeros after the last.
std::uint64_t BitsFrom(const Fixed& a, int place) {
  std::uint64_t bits = 0;
  const int first = place / kWordBits, skipped = place % kWordBits;
  for (int i = first; i < first + 3; ++i) {
    const std::uint64_t word = i <= Fixed::kWords ? a.word[i] : 0;
    const int up = kWordBits - kWordBits * (i - first) + skipped;  // of this word's lowest bit
    bits |= up >= 0 ? word << up : word >> -up;
  }
  return bits;
}

}  // namespace

double RoundedToDouble(const Fixed& a) {
  constexpr int kDropped = 64 - kFractionBits - 1;
  const int place = LeadingBit(a);
  const std::uint64_t bits = BitsFrom(a, place);
  // A significand that is rounded up to the next power of two carries into the exponent.
  const std::uint64_t significand = (bits >> kDropped) + (bits >> (kDropped - 1) & 1);
  const int exponent = kWordBits - 1 - place;
  return DoubleOf((static_cast<std::uint64_t>(exponent + kBias - 1) << kFractionBits) +
                  significand);
}

}  // namespace zeph::portable_math
