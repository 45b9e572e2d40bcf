// SPDX-License-Identifier: MIT
//
/// @file
/// CZEPHLinkList, CZEPHSortedLinkList and their nodes: lists in ascending order.
#ifndef ZEPH_CONTAINERS_LINKED_LIST_H
#define ZEPH_CONTAINERS_LINKED_LIST_H

#include "../platform.h"

/// A node of CZEPHLinkList: a value and the next node. Exported for `double`.
///
///     CZEPHLink<double> node(2.5), copy(node), other(0.0);
///     other = node;
///     other.m_value;             // 2.5
///     other.m_pNext == nullptr;  // 1
template <class T>
class ZEPH_API CZEPHLink {
 public:
  /// A node with `value` that is in no list: `m_pNext` is null.
  ZEPH_EMIT CZEPHLink(T value) : m_value(value), m_pNext(nullptr) {}  // NOLINT: implicit on purpose
  /// Copies both fields as they stand.
  CZEPHLink(const CZEPHLink& other) = default;
  /// Copies both fields as they stand, so both nodes then have the same successor.
  ZEPH_EMIT CZEPHLink& operator=(const CZEPHLink& other) {
    m_value = other.m_value;
    m_pNext = other.m_pNext;
    return *this;
  }

  T m_value;           ///< The sort key.
  CZEPHLink* m_pNext;  ///< The next node, or null at the end.
};

/// A singly linked list of caller-made nodes in ascending order of their values. Exported for
/// `double`.
///
/// Following `m_pNext` from `m_pHead` visits non-decreasing values; among equal values the node
/// inserted last comes first (0.0 and -0.0 are equal). A NaN goes to the head, and since no value
/// is greater than a NaN, nodes inserted later stay in front of it.
///
/// The list owns its nodes: RemoveAll and the destructor release each with `delete`, so make them
/// with `new`. Copies are shallow: two lists then share one chain, of which only one may release
/// it. It allocates nothing.
///
///     CZEPHLinkList<double> list;
///     for (double x : {3.0, 1.0, 2.0}) list.InsertOrdered(new CZEPHLink<double>(x));
///     CZEPHLink<double>* first = list.GetFirstLink();  // the node of 1.0, now the caller's
///     delete first;
template <class T>
class ZEPH_API CZEPHLinkList {
 public:
  /// An empty list.
  ZEPH_EMIT CZEPHLinkList() : m_pHead(nullptr) {}
  /// Shares the chain of `other`.
  CZEPHLinkList(const CZEPHLinkList& other) = default;
  /// Releases every node, as RemoveAll does.
  ~CZEPHLinkList();

  /// Shares the chain of `other`; the nodes that were held are not released.
  ZEPH_EMIT CZEPHLinkList& operator=(const CZEPHLinkList& other) {
    m_pHead = other.m_pHead;
    return *this;
  }

  /// Links one node in front of the first node whose value it is not greater than, or at the end.
  ///
  /// Takes ownership. `link` must not be in a list already; null is ignored. Costs a walk to that
  /// place. Method: ordered insertion with a trailing pointer.
  void InsertOrdered(CZEPHLink<T>* link);

  /// Inserts `links[0]` to `links[count - 1]` in index order, each exactly as InsertOrdered does,
  /// into the list as it stands.
  ///
  /// Takes ownership of the nodes, not of the table. A count below 1 or a null table does nothing;
  /// null entries are skipped. Costs O(count log count) and one walk through the list (one for
  /// every NaN among the values, if there are any), against O(count^2) for single insertions.
  /// Method: insertion sort through a list, computed by merging.
  ///
  ///     CZEPHLink<double>* nodes[] = {new CZEPHLink<double>(3.0), new CZEPHLink<double>(1.0)};
  ///     CZEPHLinkList<double> list, shared;
  ///     list.Sorting(nodes, 2);
  ///     list.m_pHead->m_value;   // 1.0
  ///     shared = list;           // one chain: only one of the two may release it
  ///     shared.m_pHead = nullptr;
  ///     list.RemoveAll();
  ///     list.GetFirstLink() == nullptr;  // 1
  void Sorting(CZEPHLink<T>** links, int count);

  /// Detaches the first node and hands it to the caller; null when the list is empty.
  ///
  /// The node's own `m_pNext` is left as it was.
  CZEPHLink<T>* GetFirstLink();

  /// Releases every node with `delete` and leaves the list empty.
  void RemoveAll();

  CZEPHLink<T>* m_pHead;  ///< The node of the smallest value, or null.
};

#if !defined(ZEPH_BUILDING) || !defined(_MSC_VER)  // which would export at the declaration
extern template class CZEPHLink<double>;
extern template class CZEPHLinkList<double>;
#endif

/// A node of CZEPHSortedLinkList: a key and the next node.
///
///     CZEPHLinkData node(7), other(0);
///     other = node;
///     other.DisplayLink();  // prints "7 "
class ZEPH_API CZEPHLinkData {
 public:
  /// Sets the key; `m_pNext` is null until the node is inserted.
  CZEPHLinkData(int key);  // NOLINT: implicit on purpose
  CZEPHLinkData(const CZEPHLinkData& other) = default;
  /// Copies both fields as they stand.
  CZEPHLinkData& operator=(const CZEPHLinkData& other);

  /// Writes the key and one blank to the standard output stream, without a line end.
  void DisplayLink();

  int m_nKey;              ///< The sort key.
  CZEPHLinkData* m_pNext;  ///< The next node, or null at the end.
};

/// A singly linked list of caller-owned nodes in ascending order of their keys.
///
/// Among equal keys the node inserted last comes first. The list never releases a node, not even in
/// Remove. Copies are shallow: two lists then share one chain. It allocates nothing.
///
///     CZEPHLinkData one(1), three(3);
///     CZEPHSortedLinkList list;
///     list.Insert(&three);
///     list.Insert(&one);
///     list.Find(3);        // &three
///     list.DisplayList();  // "List (first-->last): 1 3 " and a line end
class ZEPH_API CZEPHSortedLinkList {
 public:
  /// An empty list.
  CZEPHSortedLinkList();
  CZEPHSortedLinkList(const CZEPHSortedLinkList& other) = default;
  /// Shares the chain of `other`.
  CZEPHSortedLinkList& operator=(const CZEPHSortedLinkList& other);

  /// Links one node in front of the first node whose key is not smaller, or at the end.
  ///
  /// `node` must not be in a list already and must outlive its time in this one; null is ignored.
  /// Costs a walk to that place.
  void Insert(CZEPHLinkData* node);

  /// The first node with this key, or null; the walk ends at the first greater key.
  CZEPHLinkData* Find(int key);

  /// Unlinks the first node with this key; without one, does nothing.
  ///
  /// The node is not released and its own `m_pNext` is left as it was.
  ///
  ///     CZEPHLinkData one(1), two(2);
  ///     CZEPHSortedLinkList list, shared;
  ///     list.Insert(&two);
  ///     list.Insert(&one);
  ///     shared = list;        // one chain, two heads
  ///     list.Remove(1);
  ///     list.m_pHead->m_nKey;    // 2
  ///     shared.m_pHead->m_nKey;  // 1
  void Remove(int key);

  /// Writes "List (first-->last): ", every key followed by a blank, and a flushed line end to the
  /// standard output stream.
  void DisplayList();

  CZEPHLinkData* m_pHead;  ///< The node of the smallest key, or null.
};

#endif  // ZEPH_CONTAINERS_LINKED_LIST_H
