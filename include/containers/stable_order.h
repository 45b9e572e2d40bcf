// SPDX-License-Identifier: MIT
//
/// @file
/// The stable merge sort behind SortStable of the object collections: one of our additions.
#ifndef ZEPH_CONTAINERS_STABLE_ORDER_H
#define ZEPH_CONTAINERS_STABLE_ORDER_H

#include <cstddef>
#include <memory>

#include "../platform/macros.h"
#include "../platform/object.h"

/// Sorts the `n` `objects` stably by `compare`. An inconsistent function leaves the same objects in
/// some order. They are written only after the last comparison: where `compare` or the allocation
/// of two copies throws, they are unchanged.
///
/// Method: bottom-up merge sort; runs that are already in order are not merged. Makes n - 1 calls
/// on objects in order, at most n log2 n + n.
ZEPH_ADDED inline void ZEPH_OrderStably(CObject** objects, std::size_t n,
                                        int (*compare)(CObject*, CObject*)) {
  if (n < 2) return;
  const std::unique_ptr<CObject*[]> one(new CObject*[n]), other(new CObject*[n]);
  CObject **from = one.get(), **to = other.get();
  for (std::size_t i = 0; i < n; ++i) from[i] = objects[i];
  for (std::size_t run = 1; run < n; run *= 2) {
    for (std::size_t left = 0; left < n; left += 2 * run) {
      std::size_t i = left, out = left;
      const std::size_t middle = n - left < run ? n : left + run;
      const std::size_t end = n - middle < run ? n : middle + run;
      std::size_t k = middle;
      if (k < end && compare(from[k - 1], from[k]) > 0)
        while (i < middle && k < end)
          to[out++] = compare(from[i], from[k]) > 0 ? from[k++] : from[i++];
      while (i < middle) to[out++] = from[i++];
      while (k < end) to[out++] = from[k++];
    }
    CObject** const ordered = to;
    to = from;
    from = ordered;
  }
  for (std::size_t i = 0; i < n; ++i) objects[i] = from[i];
}

#endif  // ZEPH_CONTAINERS_STABLE_ORDER_H
