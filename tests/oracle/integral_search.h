// The integer searches, one statement per step; elements are read through a function, so that reads
// can be recorded.
#ifndef ZEPH_TESTS_ORACLE_INTEGRAL_SEARCH_H
#define ZEPH_TESTS_ORACLE_INTEGRAL_SEARCH_H

#include <set>
#include <tuple>
#include <vector>

namespace oracle {

inline int SequentialSearch(std::vector<int>& a, int n, int key) {
  if (n < 1) return -1000;
  a[0] = key;
  int i = n;
  while (a[static_cast<std::size_t>(i)] != key) i = i - 1;
  if (i != 0) return i;
  return -1;
}

inline int BinarySearch(const std::vector<int>& a, int n, int key) {
  if (n < 1) return -1000;
  int lo = 0;
  int hi = n - 1;
  while (lo <= hi) {
    const int mid = (lo + hi) / 2;
    const int x = a[static_cast<std::size_t>(mid)];
    if (key == x) return mid;
    if (key < x) hi = mid - 1;
    if (key > x) lo = mid + 1;
  }
  return -1;
}

using Seen = std::set<std::tuple<int, int, int>>;

/// `seen` receives all arguments; `recurred` tells whether some came twice.
template <class Read>
int RecursiveSearch(Read read, int low, int high, int key, Seen& seen, bool& recurred) {
  if (low > high) return -1;
  if (!seen.insert({low, high, key}).second) {
    recurred = true;
    return -1;
  }
  const int mid = (low + high) / 2;
  const int x = read(mid);
  if (key == x) return mid;
  if (key < x) return RecursiveSearch(read, key, low, mid - 1, seen, recurred);
  return RecursiveSearch(read, key, mid + 1, high, seen, recurred);
}

}  // namespace oracle

#endif  // ZEPH_TESTS_ORACLE_INTEGRAL_SEARCH_H
