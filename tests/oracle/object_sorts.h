// The sorts of the object collections, one statement per step, on plain vectors.
#ifndef ZEPH_TESTS_ORACLE_OBJECT_SORTS_H
#define ZEPH_TESTS_ORACLE_OBJECT_SORTS_H

#include <cstddef>
#include <vector>

namespace oracle {

/// Shell sort of `count` elements from `first` on, gaps from the first of 1, 4, 13, ... above
/// count.
template <class T, class Compare>
void ShellSortObjects(std::vector<T>& v, std::size_t first, int count, Compare compare) {
  if (count < 1) return;
  int h = 1;
  while (h <= count) h = 3 * h + 1;
  while (h > 2) {
    h = h / 3;
    if (h >= count) continue;
    for (int i = 0; i <= count - h - 1; ++i) {
      int j = i;
      while (j >= 0) {
        T& high = v[first + static_cast<std::size_t>(j + h)];
        T& low = v[first + static_cast<std::size_t>(j)];
        if (!(compare(high, low) < 0)) break;
        const T kept = high;
        high = low;
        low = kept;
        j = j - h;
      }
    }
  }
}

/// Insertion sort of `count` elements from `first` on, not moving past `first`.
template <class T, class Compare>
void InsertionSortObjects(std::vector<T>& v, std::size_t first, unsigned count, Compare compare) {
  for (std::size_t n = first; n < v.size() && n - first < count; ++n) {
    const T key = v[n];
    std::size_t slot = n;
    while (slot > first && compare(v[slot - 1], key) > 0) {
      v[slot] = v[slot - 1];
      slot = slot - 1;
    }
    v[slot] = key;
  }
}

}  // namespace oracle

#endif  // ZEPH_TESTS_ORACLE_OBJECT_SORTS_H
