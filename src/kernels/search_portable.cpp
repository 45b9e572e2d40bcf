// SPDX-License-Identifier: MIT
//
// Ints are scanned in blocks without a branch on the data, which the compiler can vectorise; only
// the block with the result is scanned one by one. For doubles that does not pay.
#include <algorithm>
#include <cmath>

#include "kernels/forms.h"
#include "kernels/search.h"

namespace zeph::kernels::portable {
namespace {

constexpr std::size_t kBlock = 16;

bool AnyEqual(const int* v, int x) {
  int equal = 0;
  for (std::size_t i = 0; i < kBlock; ++i) equal |= v[i] == x;
  return equal != 0;
}

std::size_t FindFirst(const double* v, std::size_t n, double x) {
  return static_cast<std::size_t>(std::find(v, v + n, x) - v);
}

std::size_t FindLast(const int* v, std::size_t n, int x) {
  std::size_t i = n;
  while (i >= kBlock && !AnyEqual(v + i - kBlock, x)) i -= kBlock;
  while (i > 0 && v[i - 1] != x) --i;
  return i > 0 ? i - 1 : n;
}

std::size_t FirstLeast(const double* v, std::size_t n) {
  if (v[0] != v[0]) return 0;
  // Several minima side by side, as independent chains; a NaN replaces none of them.
  constexpr std::size_t kChains = 8;
  double least[kChains];
  std::fill(least, least + kChains, v[0]);
  std::size_t i = 0;
  for (; i + kChains <= n; i += kChains)
    for (std::size_t k = 0; k < kChains; ++k) least[k] = v[i + k] < least[k] ? v[i + k] : least[k];
  for (; i < n; ++i) least[0] = v[i] < least[0] ? v[i] : least[0];
  return FindFirst(v, n, *std::min_element(least, least + kChains));
}

/// Pairs are tested without a branch in between. Whether one descends is a bool: g++ vectorises an int,
/// where the processor has AVX, and loses that the comparison with a NaN raises nothing.
bool NoneDescends(const double* v, std::size_t n) {
  constexpr std::size_t kPairs = 64;
  std::size_t i = 1;
  for (; i + kPairs <= n; i += kPairs) {
    bool descends = false;
    for (std::size_t k = i; k < i + kPairs; ++k) descends |= std::isgreater(v[k - 1], v[k]);
    if (descends) return false;
  }
  for (; i < n; ++i)
    if (v[i - 1] > v[i]) return false;
  return true;
}

}  // namespace

const Searching kSearching = {FindFirst, FindLast, FirstLeast, NoneDescends};

}  // namespace zeph::kernels::portable
