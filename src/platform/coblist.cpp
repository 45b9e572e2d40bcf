// SPDX-License-Identifier: MIT
#include "platform.h"

#ifndef ZEPH_USE_MFC

#include <algorithm>
#include <cstdint>
#include <new>

#include "platform/allocation.h"
#include "platform/refusal.h"

using namespace zeph::platform;

namespace {

// A position is the address of its node, with an opaque type.
template <class Node>
POSITION ToPosition(Node* node) {
  return reinterpret_cast<POSITION>(node);
}
template <class Node>
Node* ToNode(POSITION position) {
  return reinterpret_cast<Node*>(position);
}

template <class Node>
Node* Present(Node* node, const char* operation, const char* missing) {
  if (!node) Refuse(operation, missing);
  return node;
}

constexpr const char* kEmpty = "the list is empty";
constexpr const char* kNull = "the position is null";

}  // namespace

CObList::CObList(std::ptrdiff_t blockSize)
    : m_pNodeHead(nullptr),
      m_pNodeTail(nullptr),
      m_nCount(0),
      m_pNodeFree(nullptr),
      m_pBlocks(nullptr),
      m_nBlockSize(std::clamp<std::ptrdiff_t>(blockSize, 1, PTRDIFF_MAX - 1)) {}

CObList::~CObList() {
  RemoveAll();
}

std::ptrdiff_t CObList::GetCount() const {
  return m_nCount;
}
std::ptrdiff_t CObList::GetSize() const {
  return m_nCount;
}
bool CObList::IsEmpty() const {
  return m_nCount == 0;
}

// Storage. A block is m_nBlockSize + 1 nodes in a row, whose first one links the blocks.

void CObList::AddBlock() {
  const std::size_t bytes = RequestBytes(std::int64_t{m_nBlockSize} + 1, sizeof(CNode));
  auto* block = static_cast<CNode*>(zeph::platform::PerhapsNull(::operator new(bytes)));
  if (!block) zeph::platform::ThrowBadAlloc();
  m_pBlocks = new (block) CNode{m_pBlocks, nullptr, nullptr};
  for (std::ptrdiff_t i = m_nBlockSize; i > 0; --i)  // so that nodes are used in ascending order
    m_pNodeFree = new (block + i) CNode{m_pNodeFree, nullptr, nullptr};
}

CObList::CNode* CObList::NewNode(CNode* previous, CNode* next, CObject* object) {
  if (!m_pNodeFree) AddBlock();
  CNode* node = m_pNodeFree;
  m_pNodeFree = node->pNext;  // NOLINT(clang-analyzer-core.NullDereference): a block has a node
  *node = {next, previous, object};
  (previous ? previous->pNext : m_pNodeHead) = node;
  (next ? next->pPrev : m_pNodeTail) = node;
  ++m_nCount;
  return node;
}

void CObList::RemoveAll() {
  while (m_pBlocks) {
    CNode* next = m_pBlocks->pNext;
    ::operator delete(m_pBlocks);
    m_pBlocks = next;
  }
  m_pNodeHead = m_pNodeTail = m_pNodeFree = nullptr;
  m_nCount = 0;
}

// --- both ends ---

CObject*& CObList::GetHead() {
  return Present(m_pNodeHead, "CObList::GetHead", kEmpty)->data;
}
const CObject* CObList::GetHead() const {
  return Present(m_pNodeHead, "CObList::GetHead", kEmpty)->data;
}
CObject*& CObList::GetTail() {
  return Present(m_pNodeTail, "CObList::GetTail", kEmpty)->data;
}
const CObject* CObList::GetTail() const {
  return Present(m_pNodeTail, "CObList::GetTail", kEmpty)->data;
}

POSITION CObList::AddHead(CObject* object) {
  return ToPosition(NewNode(nullptr, m_pNodeHead, object));
}
POSITION CObList::AddTail(CObject* object) {
  return ToPosition(NewNode(m_pNodeTail, nullptr, object));
}

CObject* CObList::RemoveHead() {
  CObject* object = Present(m_pNodeHead, "CObList::RemoveHead", kEmpty)->data;
  RemoveAt(GetHeadPosition());
  return object;
}
CObject* CObList::RemoveTail() {
  CObject* object = Present(m_pNodeTail, "CObList::RemoveTail", kEmpty)->data;
  RemoveAt(GetTailPosition());
  return object;
}

// --- traversal ---

POSITION CObList::GetHeadPosition() const {
  return ToPosition(m_pNodeHead);
}
POSITION CObList::GetTailPosition() const {
  return ToPosition(m_pNodeTail);
}

CObject*& CObList::GetNext(POSITION& position) {
  CNode* node = Present(ToNode<CNode>(position), "CObList::GetNext", kNull);
  position = ToPosition(node->pNext);
  return node->data;
}
const CObject* CObList::GetNext(POSITION& position) const {
  return const_cast<CObList*>(this)->GetNext(position);
}
CObject*& CObList::GetPrev(POSITION& position) {
  CNode* node = Present(ToNode<CNode>(position), "CObList::GetPrev", kNull);
  position = ToPosition(node->pPrev);
  return node->data;
}
const CObject* CObList::GetPrev(POSITION& position) const {
  return const_cast<CObList*>(this)->GetPrev(position);
}

// --- one element ---

CObject*& CObList::GetAt(POSITION position) {
  return Present(ToNode<CNode>(position), "CObList::GetAt", kNull)->data;
}
const CObject* CObList::GetAt(POSITION position) const {
  return const_cast<CObList*>(this)->GetAt(position);
}
void CObList::SetAt(POSITION position, CObject* object) {
  Present(ToNode<CNode>(position), "CObList::SetAt", kNull)->data = object;
}

void CObList::RemoveAt(POSITION position) {
  CNode* node = Present(ToNode<CNode>(position), "CObList::RemoveAt", kNull);
  (node->pPrev ? node->pPrev->pNext : m_pNodeHead) = node->pNext;
  (node->pNext ? node->pNext->pPrev : m_pNodeTail) = node->pPrev;
  *node = {m_pNodeFree, nullptr, nullptr};
  m_pNodeFree = node;
  if (--m_nCount == 0) RemoveAll();
}

POSITION CObList::InsertBefore(POSITION position, CObject* object) {
  if (!position) return AddHead(object);
  auto* node = ToNode<CNode>(position);
  return ToPosition(NewNode(node->pPrev, node, object));
}
POSITION CObList::InsertAfter(POSITION position, CObject* object) {
  if (!position) return AddTail(object);
  auto* node = ToNode<CNode>(position);
  return ToPosition(NewNode(node, node->pNext, object));
}

// --- search ---

POSITION CObList::Find(CObject* object, POSITION startAfter) const {
  CNode* node = startAfter ? ToNode<CNode>(startAfter)->pNext : m_pNodeHead;
  while (node && node->data != object) node = node->pNext;
  return ToPosition(node);
}

POSITION CObList::FindIndex(std::ptrdiff_t index) const {
  if (index < 0 || index >= m_nCount) return nullptr;
  CNode* node = m_pNodeHead;
  while (index-- > 0) node = node->pNext;
  return ToPosition(node);
}

#endif  // ZEPH_USE_MFC
