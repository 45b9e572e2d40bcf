// SPDX-License-Identifier: MIT
//
// Masks are built without a branch on the data.
#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

#include "kernels/bits.h"
#include "kernels/forms.h"
#include "kernels/partition.h"
#include "platform/exactness.h"

#define ZEPH_INNER inline
#define ZEPH_INNER_CALL

namespace zeph::kernels {
namespace {

inline double Broadcast(double x) {
  return x;
}

inline std::uint64_t MaskNotLess(const double* v, std::size_t n, double pivot) {
  std::uint64_t mask = 0;
  for (std::size_t k = 0; k < n; ++k) mask |= std::uint64_t{!(v[k] < pivot)} << k;
  return mask;
}
inline std::uint64_t MaskNotGreater(const double* v, std::size_t n, double pivot) {
  std::uint64_t mask = 0;
  for (std::size_t k = 0; k < n; ++k) mask |= std::uint64_t{!(v[k] > pivot)} << k;
  return mask;
}

/// Eight bits at a time, as independent chains.
template <class Test>
inline std::uint64_t Mask64(const double* v, Test test) {
  std::uint64_t mask = 0;
  for (std::size_t k = 0; k < 64; k += 8) {
    std::uint64_t part = 0;
    for (std::size_t i = 0; i < 8; ++i) part |= std::uint64_t{test(v[k + i])} << i;
    mask |= part << k;
  }
  return mask;
}
inline std::uint64_t MaskNotLess64(const double* v, double pivot) {
  return Mask64(v, [pivot](double x) { return !(x < pivot); });
}
inline std::uint64_t MaskNotGreater64(const double* v, double pivot) {
  return Mask64(v, [pivot](double x) { return !(x > pivot); });
}
inline void ExchangeReversed64(double* left, double* right) {
  for (std::size_t k = 0; k < 64; ++k) std::swap(left[k], right[63 - k]);
}

#include "kernels/partition.inc"

inline bool HasBits(double x, std::uint64_t bits) {
  std::uint64_t own;
  std::memcpy(&own, &x, sizeof own);
  return own == bits;
}

Census Count(const double* v, std::size_t n) {
  constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
  Census census;
  for (std::size_t i = 0; i < n; i += kBlock) {
    const std::size_t end = std::min(i + kBlock, n);
    int nans = 0, zeros = 0;  // sums of tests, so that the compiler can vectorise
    for (std::size_t k = i; k < end; ++k) {
      nans += v[k] != v[k];
      zeros += v[k] == 0;
    }
    census.nans += static_cast<std::size_t>(nans);
    census.zeros += static_cast<std::size_t>(zeros);
    for (std::size_t k = i; zeros && k < end; ++k) {
      census.plus += HasBits(v[k], 0);
      census.minus += HasBits(v[k], kSign);
    }
  }
  return census;
}

Bounds FindBounds(const double* v, std::size_t n) {
  constexpr double kInf = std::numeric_limits<double>::infinity();
  Bounds bounds = {kInf, -kInf};
  bool nan = false;
  for (std::size_t k = 0; k < n; ++k) {
    bounds.least = v[k] < bounds.least ? v[k] : bounds.least;
    bounds.greatest = v[k] > bounds.greatest ? v[k] : bounds.greatest;
    nan |= v[k] != v[k];
  }
  return nan ? Bounds{-kInf, kInf} : bounds;
}

}  // namespace

const Partitions portable::kPartitions = {Count, PartByBlocks, MaskNotLess, MaskNotGreater,
                                          FindBounds};

}  // namespace zeph::kernels
