// Selection sort of ints, and of doubles through an int, one statement per step.
#ifndef ZEPH_TESTS_ORACLE_SELECTION_SORT_H
#define ZEPH_TESTS_ORACLE_SELECTION_SORT_H

#include <climits>
#include <cmath>
#include <cstddef>
#include <vector>

namespace oracle {

inline int Cut(double x) {
  const double whole = std::trunc(x);
  if (whole >= -2147483648.0 && whole <= 2147483647.0) return static_cast<int>(whole);
  return INT_MIN;
}
inline int Cut(int x) {
  return x;
}

template <class T>
void SelectionSort(std::vector<T>& a) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t m = i;
    for (std::size_t j = i + 1; j < a.size(); ++j)
      if (a[j] < a[m]) m = j;
    const int t = Cut(a[i]);
    a[i] = a[m];
    a[m] = t;
  }
}

}  // namespace oracle

#endif  // ZEPH_TESTS_ORACLE_SELECTION_SORT_H
