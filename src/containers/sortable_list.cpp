// SPDX-License-Identifier: MIT
//
// Uses only members that the framework's own CObList has: m_pNodeHead and, in the nodes, pNext,
// pPrev and data.
#include "containers.h"

namespace {

#ifdef ZEPH_HARDENED
template <class Node>
bool IsLinked(const Node* head, const Node* node) {
  while (head && head != node) head = head->pNext;
  return head != nullptr;
}
#endif

/// Moves the data of `node` back between `boundary` (null: the head) and the first element that is
/// not greater. If the compare function throws, no element is lost.
template <class Node>
void InsertBack(Node* node, const Node* boundary, int (*compare)(CObject*, CObject*)) {
  struct Slot {
    Node* node;
    CObject* key;
    ~Slot() { node->data = key; }
  } slot{node, node->data};
  for (Node* previous = node->pPrev; previous != boundary; previous = previous->pPrev) {
    if (compare(previous->data, slot.key) < 1) break;
    slot.node->data = previous->data;
    slot.node = previous;
  }
}

}  // namespace

CZEPHSortableObList::CZEPHSortableObList(int blockSize) : CObList(blockSize) {}
CZEPHSortableObList::~CZEPHSortableObList() = default;

void CZEPHSortableObList::Sort(int (*compare)(CObject*, CObject*)) {
  ZEPH_REQUIRE_POINTER("CZEPHSortableObList::Sort", compare);
  if (!m_pNodeHead) return;
  for (CNode* node = m_pNodeHead->pNext; node; node = node->pNext)
    InsertBack<CNode>(node, nullptr, compare);
}

void CZEPHSortableObList::Sort(POSITION start, int count, int (*compare)(CObject*, CObject*)) {
  ZEPH_REQUIRE_POINTER("CZEPHSortableObList::Sort", compare);
  if (!m_pNodeHead || !start) return;
  auto* node = reinterpret_cast<CNode*>(start);
  ZEPH_REQUIRE("CZEPHSortableObList::Sort", IsLinked(m_pNodeHead, node),
               "start is not a position in this list");
  const CNode* boundary = node->pPrev;
  for (auto left = static_cast<unsigned>(count); node && left > 0; node = node->pNext, --left)
    InsertBack<CNode>(node, boundary, compare);
}
