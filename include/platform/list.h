// SPDX-License-Identifier: MIT
//
/// @file
/// CObList, the doubly linked list of object pointers, with POSITION as handle of an element.
#ifndef ZEPH_PLATFORM_LIST_H
#define ZEPH_PLATFORM_LIST_H

#include <cstddef>

#include "macros.h"
#include "object.h"

#ifndef ZEPH_USE_MFC

struct __POSITION;
/// The handle of one element of a list. Stays valid until that element is removed.
using POSITION = __POSITION*;

/// A doubly linked list of pointers to objects, which it never owns, copies or follows.
///
///     for (POSITION at = list.GetHeadPosition(); at;) Use(list.GetNext(at));
///
/// Insertion and removal at any position take constant time. A null or empty-list argument where an
/// element is needed throws std::out_of_range; a POSITION of another list, or of an element removed
/// before, is not recognised.
class ZEPH_API CObList : public CObject {
 protected:
  /// What a POSITION stands for.
  struct CNode {
    CNode* pNext;   ///< The next node, or null.
    CNode* pPrev;   ///< The previous node, or null.
    CObject* data;  ///< The element.
  };

 public:
  /// An empty list that takes storage for `blockSize` elements at a time; below 1 counts as 1.
  explicit CObList(std::ptrdiff_t blockSize = 10);
  ~CObList() override;

  /// The number of elements, by both names.
  std::ptrdiff_t GetCount() const;
  std::ptrdiff_t GetSize() const;
  /// Whether there is no element.
  bool IsEmpty() const;

  /// The element at an end; throws std::out_of_range when the list is empty.
  ///
  ///     CObList list;
  ///     Shape a, b;
  ///     list.AddTail(&a);
  ///     list.AddHead(&b);
  ///     list.GetHead() == &b && list.GetTail() == &a;        // 1
  ///     list.RemoveTail() == &a && list.RemoveHead() == &b;  // 1
  ///     list.IsEmpty();                                      // 1
  CObject*& GetHead();
  const CObject* GetHead() const;
  CObject*& GetTail();
  const CObject* GetTail() const;

  /// Adds one element at an end and returns its position.
  POSITION AddHead(CObject* object);
  POSITION AddTail(CObject* object);
  /// Takes the element at an end out of the list and returns it.
  CObject* RemoveHead();
  CObject* RemoveTail();
  /// Forgets all elements and releases the storage.
  void RemoveAll();

  /// The position of the first or last element, or null.
  ///
  ///     CObList list;
  ///     Shape a, b;
  ///     list.AddTail(&a);
  ///     list.AddTail(&b);
  ///     POSITION at = list.GetTailPosition();
  ///     list.GetPrev(at) == &b && list.GetPrev(at) == &a;  // 1
  ///     at == nullptr;                                     // 1
  POSITION GetHeadPosition() const;
  POSITION GetTailPosition() const;
  /// The element at `position`, which moves on to the next one or to null.
  CObject*& GetNext(POSITION& position);
  const CObject* GetNext(POSITION& position) const;
  /// The element at `position`, which moves back to the previous one or to null.
  CObject*& GetPrev(POSITION& position);
  const CObject* GetPrev(POSITION& position) const;

  /// Access to the element at `position`; throws std::out_of_range for null.
  ///
  ///     CObList list;
  ///     Shape a, b, c;
  ///     const POSITION at = list.AddTail(&a);
  ///     list.InsertBefore(at, &b);
  ///     list.InsertAfter(at, &b);  // b a b
  ///     list.SetAt(at, &c);
  ///     list.GetAt(at) == &c;      // 1
  ///     list.RemoveAt(at);         // b b
  ///     list.GetCount();           // 2
  CObject*& GetAt(POSITION position);
  const CObject* GetAt(POSITION position) const;
  void SetAt(POSITION position, CObject* object);
  /// Takes the element at `position` out of the list.
  void RemoveAt(POSITION position);
  /// Adds an element before `position`; at the head when it is null. Returns the new position.
  POSITION InsertBefore(POSITION position, CObject* object);
  /// Adds an element after `position`; at the tail when it is null. Returns the new position.
  POSITION InsertAfter(POSITION position, CObject* object);

  /// The position of the first element after `startAfter` (from the head when null) that is
  /// `object`, or null.
  ///
  ///     CObList list;
  ///     Shape a, b;
  ///     list.AddTail(&a);
  ///     list.AddTail(&b);
  ///     list.Find(&b) == list.FindIndex(1);  // 1
  ///     list.GetSize();                      // 2
  ///     list.RemoveAll();
  ///     list.Find(&b) == nullptr;            // 1
  POSITION Find(CObject* object, POSITION startAfter = nullptr) const;
  /// The position of the element with this 0-based index, or null. Steps from the head.
  POSITION FindIndex(std::ptrdiff_t index) const;

 protected:
  CNode* m_pNodeHead;           ///< The first node, or null.
  CNode* m_pNodeTail;           ///< The last node, or null.
  std::ptrdiff_t m_nCount;      ///< Elements in the list.
  CNode* m_pNodeFree;           ///< Nodes of the blocks that hold no element, by pNext.
  CNode* m_pBlocks;             ///< The first node of each block links the blocks, by pNext.
  std::ptrdiff_t m_nBlockSize;  ///< Elements to a block.

 private:
  CNode* NewNode(CNode* previous, CNode* next, CObject* object);
  void AddBlock();
};

#endif  // ZEPH_USE_MFC

#endif  // ZEPH_PLATFORM_LIST_H
