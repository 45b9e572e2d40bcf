// The searches, the removal and the merge of the double array, step by step as documented.
#ifndef ZEPH_TESTS_ORACLE_SEARCHES_H
#define ZEPH_TESTS_ORACLE_SEARCHES_H

#include <cstddef>
#include <vector>

namespace oracle {

inline int Find(const std::vector<double>& v, double x) {
  for (std::size_t i = 0; i < v.size(); ++i)
    if (v[i] == x) return static_cast<int>(i);
  return -1;
}

struct Found {
  int result;
  int index;
};

inline Found BinarySearch(const std::vector<double>& v, bool sorted, double x, int index) {
  if (!sorted) {
    index = Find(v, x);
    return {index != -1 ? 1 : 0, index};
  }
  if (v.empty()) return {0, index};
  const auto at = [&v](int i) { return v.at(static_cast<std::size_t>(i)); };
  int lo = 0;
  int hi = static_cast<int>(v.size()) - 1;
  int mid = hi / 2;
  if (at(mid) == x) return {1, mid};
  for (;;) {
    if (lo > hi) return {0, index};
    if (x > at(mid)) {
      lo = mid + 1;
    } else {
      hi = mid - 1;
    }
    mid = (lo + hi) / 2;
    if (at(mid) == x) return {1, mid};
  }
}

inline int Remove(std::vector<double>& v, double x) {
  const int i = Find(v, x);
  if (i == -1) return 0;
  v.erase(v.begin() + i);
  return 1;
}

/// Over raw blocks, which may overlap.
inline void Merge(const double* a, int na, const double* b, int nb, double* out) {
  int i = 0;
  int j = 0;
  int k = 0;
  if (na >= 1) {
    while (i < na && j < nb) {
      if (b[j] > a[i]) {
        out[k] = a[i];
        ++i;
      } else {
        out[k] = b[j];
        ++j;
      }
      ++k;
    }
  }
  for (; i < na; ++i, ++k) out[k] = a[i];
  for (; j < nb; ++j, ++k) out[k] = b[j];
}

}  // namespace oracle

#endif  // ZEPH_TESTS_ORACLE_SEARCHES_H
