// SPDX-License-Identifier: MIT
//
/// @file
/// The stable merge sort behind SortStable of the object collections: one of our additions.
#ifndef ZEPH_CONTAINERS_STABLE_ORDER_H
#define ZEPH_CONTAINERS_STABLE_ORDER_H

#include <algorithm>
#include <cstddef>
#include <vector>

#include "../platform/macros.h"
#include "../platform/object.h"

/// Orders `objects` by `compare`, equal ones as they stood. A function that contradicts itself
/// leaves some order of the same objects; where it throws, `objects` hold each of them as before.
///
/// Method: bottom-up merge sort; runs that are in order already are not merged. n - 1 calls on
/// objects in order, at most n log2 n + n.
ZEPH_ADDED inline void ZEPH_OrderStably(std::vector<CObject*>& objects,
                                        int (*compare)(CObject*, CObject*)) {
  std::vector<CObject*> from = objects, to = objects;
  const std::size_t n = from.size();
  for (std::size_t run = 1; run < n; run *= 2) {
    for (std::size_t left = 0; left < n; left += 2 * run) {
      std::size_t i = left, out = left;
      const std::size_t middle = std::min(left + run, n), end = std::min(left + 2 * run, n);
      std::size_t k = middle;
      if (k < end && compare(from[k - 1], from[k]) > 0)
        while (i < middle && k < end)
          to[out++] = compare(from[i], from[k]) > 0 ? from[k++] : from[i++];
      while (i < middle) to[out++] = from[i++];
      while (k < end) to[out++] = from[k++];
    }
    from.swap(to);
  }
  objects.swap(from);
}

#endif  // ZEPH_CONTAINERS_STABLE_ORDER_H
