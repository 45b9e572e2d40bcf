// SPDX-License-Identifier: MIT
//
/// @file
/// CZEPHSortableObArray, CZEPHSortableObList: the framework's object collections, sorted.
//
// A compare function is given two elements and returns a number below 0 when the first sorts before
// the second, 0 when they are equal, above 0 when the first sorts after. It should order elements
// consistently and leave the collection alone; an inconsistent function leaves the same elements in
// some order, and never causes an access outside the range. It may throw: the collection then holds
// the same elements in some order. A null function must not be passed (hardened builds check).
#ifndef ZEPH_CONTAINERS_SORTABLE_H
#define ZEPH_CONTAINERS_SORTABLE_H

#include <cstddef>
#include <cstdint>
#include <memory>

#include "../platform.h"
#include "stable_order.h"

/// An array of object pointers that sorts itself. Owns none of the objects.
///
///     int ByWeight(CObject* a, CObject* b) {
///       return static_cast<Parcel*>(a)->weight - static_cast<Parcel*>(b)->weight;
///     }
///     CZEPHSortableObArray parcels;
///     parcels.Add(&heavy);
///     parcels.Add(&light);
///     parcels.Sort(ByWeight);  // light, heavy
class ZEPH_API CZEPHSortableObArray : public CObArray {
 public:
  /// An empty array.
  CZEPHSortableObArray();
  ~CZEPHSortableObArray() override;

  /// Sorts the whole array in place.
  ///
  /// Method: Shell sort with the gaps ..., 121, 40, 13, 4, 1 (Knuth). Not stable: elements that
  /// compare equal may change their order. About n^1.3 comparisons on random order, n^1.5 at most;
  /// allocates nothing. The storage is looked up at every access, so that `compare` may even
  /// replace elements.
  void Sort(int (*compare)(CObject*, CObject*));

  /// Sorts the `count` elements from index `first` on, in the same way; a count below 1 does
  /// nothing.
  ///
  /// The range is not checked against the array's size: what it covers of the storage (up to
  /// `m_nMaxSize`) is sorted, including elements dropped by a smaller SetSize. The storage is
  /// looked up once; if `compare` makes the array move it, sorting stops there. Hardened builds
  /// require a range inside the array.
  void Sort(int first, int count, int (*compare)(CObject*, CObject*));

  /// Our addition: sorts the whole array stably, by a merge sort with n log2 n calls of `compare`.
  ///
  /// Sort keeps to its documented sequence of calls, which `compare` can observe; this one does
  /// not, and allocates memory for two copies of the pointers. Elements that compare equal keep
  /// their order. The array is written only after the last comparison: where `compare` or the
  /// allocation throws, it is unchanged. `compare` must leave the array alone.
  ZEPH_ADDED void SortStable(int (*compare)(CObject*, CObject*)) {
    ZEPH_REQUIRE_POINTER("CZEPHSortableObArray::SortStable", compare);
    OrderStably(0, m_nSize, compare);
  }
  /// The same with the `count` elements from index `first` on, as far as there are any.
  ZEPH_ADDED void SortStable(int first, int count, int (*compare)(CObject*, CObject*)) {
    ZEPH_REQUIRE_POINTER("CZEPHSortableObArray::SortStable", compare);
    if (count < 1) return;
    ZEPH_REQUIRE_INSIDE("CZEPHSortableObArray::SortStable", first, 0, m_nSize);
    ZEPH_REQUIRE_INSIDE("CZEPHSortableObArray::SortStable", count, 1, m_nSize - first);
    const std::int64_t end = std::int64_t{first} + count;
    OrderStably(first < 0 ? 0 : first, end < m_nSize ? static_cast<std::ptrdiff_t>(end) : m_nSize,
                compare);
  }

 private:
  ZEPH_ADDED void OrderStably(std::ptrdiff_t first, std::ptrdiff_t end,
                              int (*compare)(CObject*, CObject*)) {
    if (first < end)
      ZEPH_OrderStably(m_pData + first, static_cast<std::size_t>(end - first), compare);
  }
};

/// A doubly linked list of object pointers that sorts itself. Owns none of the objects.
///
/// Sorting moves the pointers between the nodes; the nodes, their links and every POSITION stay the
/// same, so a POSITION may refer to another object afterwards.
///
///     CZEPHSortableObList names;
///     names.AddTail(&zoe);
///     names.AddTail(&ada);
///     names.Sort(Alphabetically);  // ada, zoe
class ZEPH_API CZEPHSortableObList : public CObList {
 public:
  /// An empty list that takes storage for `blockSize` elements at a time.
  CZEPHSortableObList(int blockSize = 10);  // NOLINT: implicit as ever
  ~CZEPHSortableObList() override;

  /// Sorts the whole list. Stable: elements that compare equal keep their order.
  ///
  /// Method: insertion sort, from the second node on. At most n(n-1)/2 comparisons, n-1 on a list
  /// that is in order; allocates nothing. Does nothing to a list of fewer than two elements.
  void Sort(int (*compare)(CObject*, CObject*));

  /// Sorts `count` elements from `start` on, in the same way, without touching those before
  /// `start`.
  ///
  /// Stops at the end of the list if that comes first. A count of 0 sorts nothing; a negative one
  /// is taken as unsigned and so runs to the end. Does nothing when the list is empty or `start`
  /// null; `start` must be a position of this list.
  void Sort(POSITION start, int count, int (*compare)(CObject*, CObject*));

  /// Our addition: sorts the whole list by a merge sort with n log2 n calls of `compare`, where Sort
  /// makes up to n(n-1)/2.
  ///
  /// The result is that of Sort, which is stable as well; Sort keeps to its documented sequence of
  /// calls, which `compare` can observe, while this one allocates memory for three copies of the
  /// pointers. The list is written only after the last comparison: where `compare` or the
  /// allocation throws, it is unchanged. `compare` must leave the list alone.
  ZEPH_ADDED void SortStable(int (*compare)(CObject*, CObject*)) {
    ZEPH_REQUIRE_POINTER("CZEPHSortableObList::SortStable", compare);
    OrderStably(m_pNodeHead, static_cast<unsigned>(-1), compare);
  }
  /// The same with `count` elements from `start` on, as far as there are any; a negative count runs
  /// to the end, as in Sort.
  ZEPH_ADDED void SortStable(POSITION start, int count, int (*compare)(CObject*, CObject*)) {
    ZEPH_REQUIRE_POINTER("CZEPHSortableObList::SortStable", compare);
    if (m_pNodeHead)
      OrderStably(reinterpret_cast<CNode*>(start), static_cast<unsigned>(count), compare);
  }

 private:
  ZEPH_ADDED static void OrderStably(CNode* start, unsigned count,
                                     int (*compare)(CObject*, CObject*)) {
    std::size_t n = 0;
    for (CNode* node = start; node && n < count; node = node->pNext) ++n;
    const std::unique_ptr<CObject*[]> ordered(new CObject*[n]);
    CNode* node = start;
    for (std::size_t i = 0; i < n; ++i, node = node->pNext) ordered[i] = node->data;
    ZEPH_OrderStably(ordered.get(), n, compare);
    node = start;
    for (std::size_t i = 0; i < n; ++i, node = node->pNext) node->data = ordered[i];
  }
};

#endif  // ZEPH_CONTAINERS_SORTABLE_H
