// SPDX-License-Identifier: MIT
#include "double_array/zeros.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

#include "kernels/bits.h"

namespace zeph::double_array {
namespace {

constexpr std::size_t kWord = 64;

// The steps of a partition of equals: the median of three exchanges the middle with the last but
// one; the scans exchange everything in between, from both ends inwards; the pivot goes where they
// meet.
std::size_t Middle(std::size_t n) {
  return (n - 1) / 2;
}
std::size_t Meeting(std::size_t n) {
  return 1 + (n - 3) / 2;
}

std::uint64_t LowBits(std::size_t n) {
  return n >= kWord ? ~std::uint64_t{0} : (std::uint64_t{1} << n) - 1;
}
std::uint64_t SwapBits(std::uint64_t x, std::size_t a, std::size_t b) {
  const std::uint64_t differ = (x >> a ^ x >> b) & 1;
  return x ^ (differ << a | differ << b);
}
/// The first `n` bits, 0 < n <= 64, in reverse.
std::uint64_t Reversed(std::uint64_t x, std::size_t n) {
  return kernels::ReverseBits(x) >> (kWord - n);
}

std::uint64_t SortWord(std::uint64_t x, std::size_t n, std::size_t cutoff) {
  if (n <= cutoff) return n > 1 && cutoff > 3 ? Reversed(x, n) : x;  // as the finishing sorts do
  x = SwapBits(x, Middle(n), n - 2);
  if (n > 3) {
    const std::uint64_t inner = LowBits(n - 3) << 1;
    x = (x & ~inner) | Reversed((x & inner) >> 1, n - 3) << 1;
  }
  const std::size_t p = Meeting(n);
  x = SwapBits(x, p, n - 2);
  const std::uint64_t left = SortWord(x & LowBits(p), p, cutoff);
  const std::uint64_t right = SortWord(x >> (p + 1), n - 1 - p, cutoff);
  // NOLINTNEXTLINE(clang-analyzer-core.*): p is inside the word
  return left | (x & std::uint64_t{1} << p) | right << p << 1;
}

std::uint64_t Sign(const double* x) {
  std::uint64_t bits;
  std::memcpy(&bits, x, sizeof bits);
  return bits >> 63;
}
void PutZero(double* x, std::uint64_t sign) {
  const std::uint64_t bits = sign << 63;
  std::memcpy(x, &bits, sizeof bits);
}

void SortByWord(double* v, std::size_t n, std::size_t cutoff) {
  std::uint64_t signs = 0;
  std::size_t k = 0;
  for (; k + 4 <= n; k += 4)
    signs |= (Sign(v + k) | Sign(v + k + 1) << 1 | Sign(v + k + 2) << 2 | Sign(v + k + 3) << 3)
             << k;
  for (; k < n; ++k) signs |= Sign(v + k) << k;
  signs = SortWord(signs, n, cutoff);
  for (k = 0; k < n; ++k) PutZero(v + k, signs >> k);
}

}  // namespace

void SortZeros(double* v, std::size_t n, std::size_t cutoff) {
  while (n > kWord) {
    if (n <= cutoff) return std::reverse(v, v + n);  // the cut-off is above 3
    std::swap(v[Middle(n)], v[n - 2]);
    std::reverse(v + 1, v + n - 2);
    const std::size_t p = Meeting(n);
    std::swap(v[p], v[n - 2]);
    SortZeros(v + p + 1, n - 1 - p, cutoff);
    n = p;
  }
  SortByWord(v, n, cutoff);
}

}  // namespace zeph::double_array
