// SPDX-License-Identifier: MIT
#include <iostream>

#include "containers.h"
#include "containers/chain_sorter.h"
#include "containers/ordered_walk.h"
#include "platform/live_blocks.h"
#include "platform/standard_streams.h"

namespace zeph::containers {
namespace {

/// Hardened builds insist that `node` is not in the list yet: it would be linked to itself.
template <class Node>
void RequireNew([[maybe_unused]] const char* operation, [[maybe_unused]] const Node* head,
                [[maybe_unused]] const Node* node) {
#ifdef ZEPH_HARDENED
  for (; head; head = head->m_pNext)
    ZEPH_REQUIRE(operation, head != node, "the node is in the list already");
#endif
}

template <class Node>
void InsertOrdered(const char* operation, Node*& head, Node* node) {
  if (!node) return;
  RequireNew(operation, head, node);
  platform::RememberNode(node);
  Node** link = StopOf(*node, &head);
  node->m_pNext = *link;
  *link = node;
}

}  // namespace
}  // namespace zeph::containers

template <class T>
void CZEPHLinkList<T>::InsertOrdered(CZEPHLink<T>* link) {
  zeph::containers::InsertOrdered("CZEPHLinkList::InsertOrdered", m_pHead, link);
}

// The result of inserting one by one, without the walks. A NaN becomes the head, and no later node
// is inserted behind it; so the nodes between two NaNs are ordered only among themselves, in front
// of the older ones. They contain no NaN, and inserting them one by one gives ascending order with
// the newest first among equals: the order of the merge sort, after which one merge links the whole
// chain into the list.
template <class T>
void CZEPHLinkList<T>::Sorting(CZEPHLink<T>** links, int count) {
  if (!links) return;
  zeph::containers::ChainSorter<CZEPHLink<T>> run;
  for (int i = 0; i < count; ++i) {
    CZEPHLink<T>* link = links[i];
    if (!link) continue;
    zeph::platform::RememberNode(link);
    if (link->m_value == link->m_value) {
      run.Add(link);
      continue;
    }
    m_pHead = zeph::containers::Merge(run.Take(), m_pHead);
    link->m_pNext = m_pHead;
    m_pHead = link;
  }
  m_pHead = zeph::containers::Merge(run.Take(), m_pHead);
}

template <class T>
CZEPHLinkList<T>::~CZEPHLinkList() {
  RemoveAll();
}

template <class T>
CZEPHLink<T>* CZEPHLinkList<T>::GetFirstLink() {
  zeph::platform::RequireNode("CZEPHLinkList::GetFirstLink", m_pHead);
  CZEPHLink<T>* first = m_pHead;
  if (first) m_pHead = first->m_pNext;
  return first;
}

template <class T>
void CZEPHLinkList<T>::RemoveAll() {
  while (m_pHead) {
    zeph::platform::RequireNode("CZEPHLinkList::RemoveAll", m_pHead);
    const CZEPHLink<T>* const first = GetFirstLink();
    zeph::platform::ForgetBlock(first);
    delete first;
  }
}

template class CZEPHLink<double>;
template class CZEPHLinkList<double>;

CZEPHLinkData::CZEPHLinkData(int key) : m_nKey(key), m_pNext(nullptr) {}

CZEPHLinkData& CZEPHLinkData::operator=(const CZEPHLinkData& other) {
  m_nKey = other.m_nKey;
  m_pNext = other.m_pNext;
  return *this;
}

void CZEPHLinkData::DisplayLink() {
  zeph::platform::HoldStandardStreams();
  // Decimal, whatever base the program has set on the stream.
  const std::ios_base::fmtflags base = std::cout.setf(std::ios_base::dec, std::ios_base::basefield);
  std::cout << m_nKey << " ";
  std::cout.setf(base, std::ios_base::basefield);
}

CZEPHSortedLinkList::CZEPHSortedLinkList() : m_pHead(nullptr) {}

CZEPHSortedLinkList& CZEPHSortedLinkList::operator=(const CZEPHSortedLinkList& other) {
  m_pHead = other.m_pHead;
  return *this;
}

void CZEPHSortedLinkList::Insert(CZEPHLinkData* node) {
  zeph::containers::InsertOrdered("CZEPHSortedLinkList::Insert", m_pHead, node);
}

CZEPHLinkData* CZEPHSortedLinkList::Find(int key) {
  CZEPHLinkData* node = m_pHead;
  while (node && node->m_nKey < key) node = node->m_pNext;
  return node && node->m_nKey == key ? node : nullptr;
}

void CZEPHSortedLinkList::Remove(int key) {
  CZEPHLinkData** link = &m_pHead;
  while (*link && (*link)->m_nKey != key) link = &(*link)->m_pNext;
  if (*link) *link = (*link)->m_pNext;
}

void CZEPHSortedLinkList::DisplayList() {
  zeph::platform::HoldStandardStreams();
  std::cout << "List (first-->last): ";
  for (CZEPHLinkData* node = m_pHead; node; node = node->m_pNext) node->DisplayLink();
  std::cout << std::endl;
}
