// The sorts of the double array and their parts, step by step as documented.
#ifndef ZEPH_TESTS_ORACLE_SORTS_H
#define ZEPH_TESTS_ORACLE_SORTS_H

#include <algorithm>
#include <cstddef>
#include <list>
#include <utility>
#include <vector>

namespace oracle {

using Doubles = std::vector<double>;

inline int SizeOf(const Doubles& v) {
  return static_cast<int>(v.size());
}
inline double& At(Doubles& v, int i) {
  return v.at(static_cast<std::size_t>(i));
}
inline void Swap(Doubles& v, int i, int j) {
  std::swap(At(v, i), At(v, j));
}

inline void BubbleSort(Doubles& v) {
  const int n = SizeOf(v);
  if (n <= 2) return;
  for (int p = 1; p <= n - 2; ++p)
    for (int j = 0; j <= n - 1 - p; ++j)
      if (At(v, j) > At(v, j + 1)) Swap(v, j, j + 1);
}

inline void InsertionSort(Doubles& v, int left, int right) {
  for (int i = left + 1; i <= right; ++i) {
    const double key = At(v, i);
    int j = i;
    while (j > left && At(v, j - 1) >= key) {
      At(v, j) = At(v, j - 1);
      --j;
    }
    At(v, j) = key;
  }
}

inline void ListInsert(std::list<double>& list, double x) {
  auto current = list.begin();
  while (current != list.end() && x > *current) ++current;
  list.insert(current, x);
}

inline void ListInsertSort(Doubles& v) {
  std::list<double> list;
  for (double x : v) ListInsert(list, x);
  v.assign(list.begin(), list.end());
}

inline void ShellSort(Doubles& v) {
  for (int gap = SizeOf(v) / 2; gap >= 1; gap /= 2)
    for (int i = 0; i <= SizeOf(v) - gap - 1; ++i)
      for (int j = i; j >= 0; j -= gap)
        if (At(v, j) > At(v, j + gap)) Swap(v, j, j + gap);
}

/// The same result in n log^2 n, for long arrays: a pass leaves the runs of every chain between its NaNs
/// stably sorted. The long proof compares it with the steps above.
inline void ShellSortByChains(Doubles& v) {
  for (std::size_t gap = v.size() / 2; gap >= 1; gap /= 2)
    for (std::size_t first = 0; first < gap; ++first) {
      Doubles chain;
      for (std::size_t i = first; i < v.size(); i += gap) chain.push_back(v[i]);
      for (auto run = chain.begin(); run != chain.end();) {
        const auto nan = std::find_if(run, chain.end(), [](double x) { return x != x; });
        std::stable_sort(run, nan);
        run = nan == chain.end() ? nan : nan + 1;
      }
      for (std::size_t k = 0; k < chain.size(); ++k) v[first + k * gap] = chain[k];
    }
}

inline double MedianOf3(Doubles& v, int left, int right) {
  const int center = (left + right) / 2;
  if (At(v, left) > At(v, center)) Swap(v, left, center);
  if (At(v, left) > At(v, right)) Swap(v, left, right);
  if (At(v, center) > At(v, right)) Swap(v, center, right);
  Swap(v, center, right - 1);
  return At(v, right - 1);
}

inline int QuickPartition(Doubles& v, int left, int right, double pivot) {
  int i = left;
  int j = right - 1;
  for (;;) {
    ++i;
    while (At(v, i) < pivot) ++i;
    --j;
    while (At(v, j) > pivot) --j;
    if (i >= j) break;
    Swap(v, i, j);
  }
  Swap(v, i, right - 1);
  return i;
}

inline int Partition(Doubles& v, int left, int right, double pivot) {
  int i = left - 1;
  int j = right + 1;
  for (;;) {
    while (i < right) {
      ++i;
      if (!(At(v, i) < pivot)) break;
    }
    while (j > left) {
      --j;
      if (!(At(v, j) > pivot)) break;
    }
    if (i >= j) break;
    Swap(v, i, j);
  }
  return i;
}

inline void ManualSort(Doubles& v, int left, int right) {
  const int n = right - left + 1;
  if (n <= 1) return;
  if (n == 2) {
    if (At(v, left) > At(v, right)) Swap(v, left, right);
    return;
  }
  if (At(v, left) > At(v, right - 1)) Swap(v, left, right - 1);
  if (At(v, left) > At(v, right)) Swap(v, left, right);
  if (At(v, right - 1) > At(v, right)) Swap(v, right - 1, right);
}

inline void RecQuickSort(Doubles& v, int left, int right, int cutoff) {
  const int leastPiece = cutoff < 2 ? 2 : cutoff;
  while (right - left + 1 > leastPiece) {
    const double pivot = MedianOf3(v, left, right);
    const int p = QuickPartition(v, left, right, pivot);
    RecQuickSort(v, left, p - 1, cutoff);
    left = p + 1;
  }
  if (cutoff > 3) {
    InsertionSort(v, left, right);
  } else {
    ManualSort(v, left, right);
  }
}

inline int CheckSorted(Doubles v) {
  const int size = SizeOf(v);
  if (size < 2) return 1;
  int i = 0;
  while (i < size - 1 && !(At(v, i) > At(v, i + 1))) ++i;
  return i >= size - 2 ? 1 : 0;
}

}  // namespace oracle

#endif  // ZEPH_TESTS_ORACLE_SORTS_H
