// SPDX-License-Identifier: MIT
//
/// @file
/// Linked lists, pointer stacks, self-sorting collections, growth-size arrays.
//
//   linked lists  CZEPHLink, CZEPHLinkList            nodes in ascending order of their values
//                 CZEPHLinkData, CZEPHSortedLinkList  nodes in ascending order of an int key
//   stacks        CZEPHStack, CZEPHPointerStack       last in, first out, of untyped pointers
//   sortable      CZEPHSortableObArray,               the framework's object collections, sorted by
//                 CZEPHSortableObList                 a compare function
//   growth-size   CZEPHUIntArray, CZEPHWordArray      number arrays with a remembered growth size
#ifndef ZEPH_CONTAINERS_H
#define ZEPH_CONTAINERS_H

#include <cstdint>
#include <cstdio>

#include "containers/stable_order.h"
#include "platform.h"

// --- linked lists ------------------------------------------------------------------------------

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

// --- stacks ------------------------------------------------------------------------------------

/// A node of the stacks, which make and release it themselves.
struct ZEPH_StackNode {
  void* m_pData;                ///< The pushed pointer.
  ZEPH_StackNode* m_pNextNode;  ///< The node below, or null at the bottom.
};

/// A last-in, first-out stack of untyped pointers, which it never follows or releases.
///
/// Pop everything before the stack is destroyed: its destructor releases no node. Copying and
/// assignment copy the address of the top node, so two stacks then share one chain; a Pop on one
/// leaves the other at a released node. Push allocates one node, Pop releases one, each in constant
/// time.
///
///     CZEPHStack stack;
///     stack.Push(&a);
///     stack.Push(&b);
///     stack.Peek();  // &b
///     stack.Pop();   // &b
///     stack.Pop();   // &a
///     stack.Pop();   // null: empty
class ZEPH_API CZEPHStack {
 public:
  /// An empty stack.
  CZEPHStack();
  CZEPHStack(const CZEPHStack& other) = default;
  /// Does nothing: nodes that are left stay allocated.
  ~CZEPHStack();
  /// Shares the chain of `other`; the nodes that were held are not released.
  ///
  ///     CZEPHStack stack, shared;
  ///     shared = stack;
  ///     shared.Pop() == nullptr;  // 1
  CZEPHStack& operator=(const CZEPHStack& other);

  /// Puts `p` on top. A null can be pushed, but Pop and Peek return null for an empty stack too.
  ///
  /// When memory runs out, the allocation operator's exception passes to the caller and the stack
  /// is unchanged. Where an application's operator returns null instead, the stack becomes empty
  /// and its nodes stay allocated.
  void Push(void* p);

  /// Takes the top pointer off the stack and returns it; null when the stack is empty.
  void* Pop();

  /// The top pointer, left where it is; null when the stack is empty.
  void* Peek() const;

  ZEPH_StackNode* m_pTop;  ///< The top node, or null when the stack is empty.
};

/// As CZEPHStack, but for the destructor, which releases the top node, and a demonstration.
///
/// Two of them that share a chain (by copying or assignment) would both release its top node: empty
/// one, or set its `m_pTop` to null, before it is destroyed.
///
///     int x = 1;
///     CZEPHPointerStack stack, shared;
///     stack.Push(&x);
///     stack.Peek() == &x;   // 1
///     shared = stack;       // one chain, two tops
///     shared.Pop() == &x;   // 1
///     stack.m_pTop = nullptr;
class ZEPH_API CZEPHPointerStack {
 public:
  /// An empty stack.
  CZEPHPointerStack();
  CZEPHPointerStack(const CZEPHPointerStack& other) = default;
  /// Releases the top node only, if there is one, and sets `m_pTop` to null; the nodes below stay
  /// allocated.
  ~CZEPHPointerStack();
  /// Shares the chain of `other`; the nodes that were held are not released.
  CZEPHPointerStack& operator=(const CZEPHPointerStack& other);

  /// As CZEPHStack::Push.
  void Push(void* p);
  /// As CZEPHStack::Pop.
  void* Pop();
  /// As CZEPHStack::Peek.
  void* Peek() const;

  /// Pushes `count` strings "#ITEM0", "#ITEM1", ... and prints them as they are popped, last first.
  ///
  /// Returns 1; with a null `stream` does nothing and returns 0. A count below 1 prints the banner
  /// lines only. Test1(2, stream) writes:
  ///
  ///     (empty line)
  ///     @@@( CZEPHPointerStack::Test1()...BEGIN
  ///     @@@( String stack test...
  ///     Pop:#ITEM1
  ///     Pop:#ITEM0
  ///     (empty line)
  ///     @@@( CZEPHPointerStack::Test1()...END
  ///
  ///     CZEPHPointerStack::Test1(2, stdout); // prints "\n@@@( CZEPHPointerStack::Test1()...BEGIN\n..."
  static int Test1(int count, FILE* stream);

  ZEPH_StackNode* m_pTop;  ///< The top node, or null when the stack is empty.
};

// --- sortable collections ----------------------------------------------------------------------
//
// A compare function is given two elements and returns a number below 0 when the first sorts before
// the second, 0 when they are equal, above 0 when the first sorts after. It should order elements
// consistently and leave the collection alone; an inconsistent function leaves the same elements in
// some order, and never causes an access outside the range. It may throw: the collection then holds
// the same elements in some order. A null function must not be passed (hardened builds check).

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

// --- growth-size arrays ------------------------------------------------------------------------

/// An array of unsigned 32-bit values that remembers by how much its storage grows.
///
///     CZEPHUIntArray values;
///     values.SetGrowthSize(64);
///     values.SetSize(10);  // room for 64, and for 64 more whenever it grows
///     values.m_nGrowthSize;      // 64
///     values.GetSize();          // 10
class ZEPH_API CZEPHUIntArray : public CUIntArray {
 public:
  /// An empty array with growth size -1.
  CZEPHUIntArray();
  ~CZEPHUIntArray() override;

  /// Remembers `n` for the next SetSize; the array itself is not touched.
  void SetGrowthSize(int n);

  /// As the base's SetSize(n, growth size); a growth size below 0 keeps the base's setting.
  void SetSize(int n);

  int m_nGrowthSize;  ///< What SetSize passes on; -1 at first.
};

/// An array of unsigned 16-bit values; otherwise as CZEPHUIntArray.
///
///     CZEPHWordArray values;
///     values.SetGrowthSize(64);
///     values.SetSize(10);
///     values.GetSize();  // 10
class ZEPH_API CZEPHWordArray : public CWordArray {
 public:
  /// An empty array with growth size -1.
  CZEPHWordArray();
  ~CZEPHWordArray() override;

  /// As CZEPHUIntArray::SetGrowthSize.
  void SetGrowthSize(int n);
  /// As CZEPHUIntArray::SetSize.
  void SetSize(int n);

  int m_nGrowthSize;  ///< What SetSize passes on; -1 at first.
};

#endif  // ZEPH_CONTAINERS_H
