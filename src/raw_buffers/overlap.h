// SPDX-License-Identifier: MIT
//
// Whether runs of doubles share storage.
#ifndef ZEPH_SRC_RAW_BUFFERS_OVERLAP_H
#define ZEPH_SRC_RAW_BUFFERS_OVERLAP_H

#include <cstddef>
#include <cstdint>

namespace zeph::raw_buffers {

/// Compared as integers: the runs need not belong to one object.
inline bool Overlap(const double* p, std::size_t pCount, const double* q, std::size_t qCount) {
  const auto pFirst = reinterpret_cast<std::uintptr_t>(p);
  const auto qFirst = reinterpret_cast<std::uintptr_t>(q);
  return pFirst < qFirst + qCount * sizeof(double) && qFirst < pFirst + pCount * sizeof(double);
}

}  // namespace zeph::raw_buffers

#endif  // ZEPH_SRC_RAW_BUFFERS_OVERLAP_H
