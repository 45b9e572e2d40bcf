// SPDX-License-Identifier: MIT
//
// Quicksort with a partition that does not branch on the data; splits off equal keys and detects
// runs.
#include <cstring>

#include "kernels/counting.h"
#include "kernels/forms.h"
#include "kernels/sort.h"
#include "kernels/sort_limits.h"

namespace zeph::kernels::portable {
namespace {

constexpr std::size_t kSmall = 24;    // left to insertion
constexpr std::size_t kNinther = 80;  // from here the pivot is a median of medians

bool OrderIsUnique(const double* v, std::size_t n) {
  // Sums of tests instead of branches, so that the compiler can vectorise.
  constexpr std::size_t kBlock = 512;
  const double* zero = nullptr;  // the first element that equals 0.0
  for (std::size_t i = 0; i < n; i += kBlock) {
    const std::size_t end = std::min(i + kBlock, n);
    int nans = 0, zeros = 0;
    for (std::size_t k = i; k < end; ++k) {
      nans += v[k] != v[k];
      zeros += v[k] == 0;
    }
    if (nans) return false;
    for (std::size_t k = i; zeros && k < end; ++k) {
      if (v[k] != 0) continue;
      if (!zero) zero = v + k;
      // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): denormals may count as zeros too
      if (std::memcmp(zero, v + k, sizeof *v) != 0) return false;
    }
  }
  return true;
}

/// True when `v` (n >= 2) was in order or in reverse order; it is in order now.
template <class T>
bool SortRun(T* v, std::size_t n) {
  std::size_t i = 1;
  if (v[1] < v[0]) {
    while (i < n && !(v[i - 1] < v[i])) ++i;
    if (i == n) std::reverse(v, v + n);
  } else {
    while (i < n && !(v[i] < v[i - 1])) ++i;
  }
  return i == n;
}

template <class T>
void InsertionSort(T* v, std::size_t n) {
  for (std::size_t i = 1; i < n; ++i) {
    const T key = v[i];
    std::size_t j = i;
    for (; j > 0 && key < v[j - 1]; --j) v[j] = v[j - 1];
    v[j] = key;
  }
}

template <class T>
T MedianOf3(T a, T b, T c) {
  return std::max(std::min(a, b), std::min(std::max(a, b), c));
}

template <class T>
T Pivot(const T* v, std::size_t n) {
  const std::size_t half = n / 2;
  if (n < kNinther) return MedianOf3(v[0], v[half], v[n - 1]);
  const std::size_t step = n / 8;
  const auto around = [v, step](std::size_t at) {
    return MedianOf3(v[at - step], v[at], v[at + step]);
  };
  return MedianOf3(around(step), around(half), around(n - 1 - step));
}

/// Moves the elements that `belong` to the front and returns their number. Each element moves into
/// the gap that the one before it left: two moves and no branch.
template <class T, class Belongs>
std::size_t Partition(T* v, std::size_t n, Belongs belongs) {
  const T first = v[0];
  T* gap = v;
  T* left = v;
  for (T* right = v + 1; right < v + n; ++right) {
    *gap = *left;
    *left = *right;
    gap = right;
    left += belongs(*left);
  }
  *gap = *left;
  *left = first;
  return static_cast<std::size_t>(left - v) + belongs(first);
}

template <class T>
std::size_t SplitLess(T* v, std::size_t n, T pivot) {
  return Partition(v, n, [pivot](T x) { return x < pivot; });
}

template <class T>
void Sort(T* v, std::size_t n);

/// What counting sort needs.
template <class T>
struct Form {
  static void Sort(T* values, std::size_t n) { portable::Sort(values, n); }
  static bool SortVeryFew(T*, std::size_t, T*, std::size_t) { return false; }
};

/// `floor`, if not null, is a lower bound of all elements: a pivot equal to it is the least value.
template <class T>
void QuickSort(T* v, std::size_t n, const T* floor, int depth, counting::Chance chance) {
  T held;
  while (n > kSmall) {
    if (depth-- == 0) return sorting::HeapSort(v, n);
    if (chance.Take(v, n, Form<T>())) return;
    ZEPH_SORT_STEP(kPartitioned, n);
    const T pivot = Pivot(v, n);
    if (floor && !(*floor < pivot)) {
      const std::size_t equal = Partition(v, n, [pivot](T x) { return !(pivot < x); });
      v += equal;
      n -= equal;
      continue;
    }
    const std::size_t less = Partition(v, n, [pivot](T x) { return x < pivot; });
    if (less < n - less) {
      QuickSort(v, less, floor, depth, chance);
      v += less;
      n -= less;
      held = pivot;
      floor = &held;
    } else {
      QuickSort(v + less, n - less, &pivot, depth, chance);
      n = less;
    }
  }
  InsertionSort(v, n);
}

template <class T>
void Sort(T* v, std::size_t n) {
  if (n < 2 || SortRun(v, n)) return;
  QuickSort<T>(v, n, nullptr, sorting::DepthLimit(n), counting::Chance());
}

}  // namespace

const Sorting kSorting = {OrderIsUnique,
                          Sort<double>,
                          Sort<int>,
                          SplitLess<double>,
                          SplitLess<int>,
                          merge::AscendsByPairs<double>,
                          merge::AscendsByPairs<int>,
                          merge::MergeApart<double>,
                          merge::MergeApart<int>,
                          merge::TakeWhatIsInFront<double>,
                          merge::TakeWhatIsInFront<int>,
                          100'000};

}  // namespace zeph::kernels::portable
