// SPDX-License-Identifier: MIT
#include "baselines/algorithms.h"

#include <utility>

namespace zeph::baseline {
namespace {

void PutItem(std::FILE* f, char c) {
  std::fprintf(f, "%c ", c);
}
void PutItem(std::FILE* f, int x) {
  std::fprintf(f, "%d ", x);
}

template <class T>
void List(std::FILE* f, T* s, int k, int n) {
  if (k == n - 1) {
    for (int i = 0; i < n; ++i) PutItem(f, s[i]);
    std::fprintf(f, "\n");
    return;
  }
  for (int i = k; i < n; ++i) {
    std::swap(s[k], s[i]);
    List(f, s, k + 1, n);
    std::swap(s[k], s[i]);
  }
}

}  // namespace

void ListOrderings(std::FILE* f, char* s, int k, int n) {
  List(f, s, k, n);
}
void ListOrderings(std::FILE* f, int* s, int k, int n) {
  List(f, s, k, n);
}

}  // namespace zeph::baseline
