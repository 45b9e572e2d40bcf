// SPDX-License-Identifier: MIT
//
// The documented partition of the quicksort, exchange for exchange, and the census that tells how
// far it must be followed.
#ifndef ZEPH_SRC_KERNELS_PARTITION_H
#define ZEPH_SRC_KERNELS_PARTITION_H

#include <cstddef>
#include <cstdint>

#include "kernels/table.h"

namespace zeph::kernels {

/// The elements that keep an ascending order from being unique to the bit.
struct Census {
  std::size_t nans = 0;
  std::size_t zeros = 0;  // equal to 0.0, with denormals where the processor treats them so
  std::size_t plus = 0;   // of these: 0.0 itself
  std::size_t minus = 0;  // and -0.0

  /// True when every correct ascending sort gives the same bits.
  bool OrderIsUnique() const { return nans == 0 && (zeros == plus || zeros == minus); }
  Census& operator-=(const Census& other) {
    nans -= other.nans;
    zeros -= other.zeros;
    plus -= other.plus;
    minus -= other.minus;
    return *this;
  }
};

/// Bounds of some elements; a NaN counts as both infinities.
struct Bounds {
  double least, greatest;
};

/// One form of what follows.
struct Partitions {
  Census (*census)(const double* v, std::size_t n);
  std::size_t (*part)(double* v, std::size_t n, double pivot);
  std::uint64_t (*not_less)(const double* v, std::size_t n, double pivot);
  std::uint64_t (*not_greater)(const double* v, std::size_t n, double pivot);
  Bounds (*bounds)(const double* v, std::size_t n);
};

/// Counts the elements that keep the order of `v` from being unique. One pass.
inline Census TakeCensus(const double* v, std::size_t n) {
  return Active().partitions->census(v, n);
}

/// The quicksort's partition of `v` (n >= 3), which has an element not greater than `pivot`, or a
/// NaN, at 0 and `pivot` at n - 2: two scans, from 1 up while less and from n - 3 down while
/// greater, exchange the elements that stop them until they meet; then the stop of the first scan
/// is exchanged with n - 2. Returns its index.
///
/// The k-th stop of one scan is always exchanged with the k-th of the other. So the stops of 64
/// elements can be found at once, by comparing vectors, and exchanged without a branch on the data.
inline std::size_t Part(double* v, std::size_t n, double pivot) {
  return Active().partitions->part(v, n, pivot);
}

/// Bit k is set where element k (n <= 64) is not less, or not greater, than `pivot`; a NaN is
/// neither.
inline std::uint64_t NotLess(const double* v, std::size_t n, double pivot) {
  return Active().partitions->not_less(v, n, pivot);
}
inline std::uint64_t NotGreater(const double* v, std::size_t n, double pivot) {
  return Active().partitions->not_greater(v, n, pivot);
}

/// Bounds of `v`, n >= 1.
inline Bounds BoundsOf(const double* v, std::size_t n) {
  return Active().partitions->bounds(v, n);
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_PARTITION_H
