// SPDX-License-Identifier: MIT
//
// Uses only members that the framework's own CObArray has: m_pData, m_nSize, m_nMaxSize.
#include <algorithm>
#include <cstdint>
#include <utility>

#include "containers.h"

namespace {

/// Shell sort of `count` elements. `at(i)` returns the address of element i, null when it no longer
/// exists: the compare function is the caller's code and may have shrunk the array.
template <class At>
void ShellSort(std::int64_t count, At at, int (*compare)(CObject*, CObject*)) {
  if (count < 1) return;
  std::int64_t gap = 1;
  while (gap <= count) gap = 3 * gap + 1;
  while (gap > 2) {
    gap /= 3;
    for (std::int64_t i = 0; i < count - gap; ++i) {
      for (std::int64_t j = i; j >= 0; j -= gap) {
        if (!at(j + gap)) return;
        if (compare(*at(j + gap), *at(j)) >= 0) break;
        if (!at(j + gap)) return;
        std::swap(*at(j + gap), *at(j));
      }
    }
  }
}

}  // namespace

CZEPHSortableObArray::CZEPHSortableObArray() = default;
CZEPHSortableObArray::~CZEPHSortableObArray() = default;

void CZEPHSortableObArray::Sort(int (*compare)(CObject*, CObject*)) {
  ZEPH_REQUIRE_POINTER("CZEPHSortableObArray::Sort", compare);
  const auto at = [this](std::int64_t i) { return i < m_nSize ? m_pData + i : nullptr; };
  ShellSort(m_nSize, at, compare);
}

void CZEPHSortableObArray::Sort(int first, int count, int (*compare)(CObject*, CObject*)) {
  ZEPH_REQUIRE_POINTER("CZEPHSortableObArray::Sort", compare);
  if (count < 1) return;
  ZEPH_REQUIRE_INSIDE("CZEPHSortableObArray::Sort", first, 0, m_nSize);
  ZEPH_REQUIRE_INSIDE("CZEPHSortableObArray::Sort", count, 1, m_nSize - first);
  const std::int64_t from = std::max(first, 0);
  const std::int64_t to = std::min<std::int64_t>(std::int64_t{first} + count, m_nMaxSize);
  CObject** const storage = m_pData;
  const auto at = [this, storage, from](std::int64_t i) {
    return m_pData == storage ? storage + from + i : nullptr;
  };
  ShellSort(to - from, at, compare);
}
