// SPDX-License-Identifier: MIT
#include "baselines/searches.h"

namespace zeph::bench::textbook {

int Find(const double* v, int n, double x) {
  for (int i = 0; i < n; ++i)
    if (v[i] == x) return i;
  return -1;
}

int SequentialSearch(int* v, int n, int key) {
  v[0] = key;
  int i = n;
  while (v[i] != key) --i;
  return i != 0 ? i : -1;
}

namespace {
template <class T>
int Halve(const T* v, int n, T key) {
  int lo = 0, hi = n - 1;
  while (lo <= hi) {
    const int mid = lo + (hi - lo) / 2;
    if (key < v[mid])
      hi = mid - 1;
    else if (key > v[mid])
      lo = mid + 1;
    else
      return mid;
  }
  return -1;
}
}  // namespace

int BinarySearch(const int* v, int n, int key) {
  return Halve(v, n, key);
}
int BinarySearch(const double* v, int n, double key) {
  return Halve(v, n, key);
}

}  // namespace zeph::bench::textbook
