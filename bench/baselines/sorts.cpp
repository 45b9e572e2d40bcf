// SPDX-License-Identifier: MIT
#include "baselines/sorts.h"

#include <memory>
#include <utility>
#include <vector>

namespace zeph::bench::textbook {

void BubbleSort(double* v, int n) {
  for (int pass = 1; pass <= n - 2; ++pass)
    for (int j = 0; j <= n - 1 - pass; ++j)
      if (v[j] > v[j + 1]) std::swap(v[j], v[j + 1]);
}

void InsertionSort(double* v, int n) {
  for (int i = 1; i < n; ++i) {
    const double key = v[i];
    int j = i;
    while (j > 0 && v[j - 1] >= key) {
      v[j] = v[j - 1];
      --j;
    }
    v[j] = key;
  }
}

void ShellSort(double* v, int n) {
  for (int gap = n / 2; gap > 0; gap /= 2)
    for (int i = 0; i < n - gap; ++i)
      for (int j = i; j >= 0; j -= gap)
        if (v[j] > v[j + gap]) std::swap(v[j], v[j + gap]);
}

namespace {
struct Node {
  double value;
  Node* next;
};
}  // namespace

void ListInsertSort(double* v, int n) {
  std::vector<std::unique_ptr<Node>> nodes;
  for (int i = 0; i < n; ++i) nodes.push_back(std::make_unique<Node>(Node{v[i], nullptr}));
  Node* head = nullptr;
  for (const auto& node : nodes) {
    Node** at = &head;
    while (*at && node->value > (*at)->value) at = &(*at)->next;
    node->next = *at;
    *at = node.get();
  }
  for (const Node* node = head; node; node = node->next) *v++ = node->value;
}

void SelectionSort(int* v, int n) {
  for (int i = 0; i < n; ++i) {
    int least = i;
    for (int j = i + 1; j < n; ++j)
      if (v[j] < v[least]) least = j;
    std::swap(v[i], v[least]);
  }
}

void SelectionSort(double* v, int n) {
  for (int i = 0; i < n; ++i) {
    int least = i;
    for (int j = i + 1; j < n; ++j)
      if (v[j] < v[least]) least = j;
    const int displaced = static_cast<int>(v[i]);
    v[i] = v[least];
    v[least] = displaced;
  }
}

}  // namespace zeph::bench::textbook
