// SPDX-License-Identifier: MIT
//
// Scans for a value or for the least one.
#ifndef ZEPH_SRC_KERNELS_SEARCH_H
#define ZEPH_SRC_KERNELS_SEARCH_H

#include <cstddef>

#include "kernels/level.h"

namespace zeph::kernels {

/// What a level offers. SearchForms::For(level) is the table that runs at that level.
struct SearchForms {
  Level level;
  std::size_t (*find_first)(const double* v, std::size_t n, double x);
  std::size_t (*find_last)(const int* v, std::size_t n, int x);
  std::size_t (*first_least)(const double* v, std::size_t n);

  static const SearchForms& For(Level level);

 private:
  static const SearchForms* const kForms[kLevels];
};

inline const SearchForms& SearchForms::For(Level level) {
  return *kForms[static_cast<int>(level)];
}

/// The least i with v[i] == x, or n. 0.0 finds -0.0; a NaN finds nothing.
inline std::size_t FindFirst(const double* v, std::size_t n, double x) {
  return SearchForms::For(Active()).find_first(v, n, x);
}

/// The greatest i with v[i] == x, or n.
inline std::size_t FindLast(const int* v, std::size_t n, int x) {
  constexpr std::size_t kShort = 12;  // the plain loop is over before a wide form is called
  if (n <= kShort) {
    for (std::size_t i = n; i > 0; --i)
      if (v[i - 1] == x) return i - 1;
    return n;
  }
  return SearchForms::For(Active()).find_last(v, n, x);
}

/// Where a scan of `v` (n >= 1) from v[0] on ends that moves on to whatever is strictly less: the
/// first of the least elements, NaNs passed over; 0 when v[0] is a NaN.
inline std::size_t FirstLeast(const double* v, std::size_t n) {
  return SearchForms::For(Active()).first_least(v, n);
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_SEARCH_H
