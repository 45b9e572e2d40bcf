// SPDX-License-Identifier: MIT
//
// Whether runs of elements share storage.
#ifndef ZEPH_SRC_KERNELS_OVERLAP_H
#define ZEPH_SRC_KERNELS_OVERLAP_H

#include <cstddef>
#include <cstdint>

namespace zeph::kernels {

/// Compared as integers: the runs need not belong to one object.
template <class T>
bool Overlap(const T* p, std::size_t pCount, const T* q, std::size_t qCount) {
  const auto pFirst = reinterpret_cast<std::uintptr_t>(p);
  const auto qFirst = reinterpret_cast<std::uintptr_t>(q);
  return pFirst < qFirst + qCount * sizeof(T) && qFirst < pFirst + pCount * sizeof(T);
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_OVERLAP_H
