// SPDX-License-Identifier: MIT
//
// CZEPHStack and CZEPHPointerStack share every operation but their destructors.
#include "containers.h"
#include "platform/allocation.h"
#include "platform/live_blocks.h"

namespace {

void PushNode(ZEPH_StackNode*& top, void* p) {
  top = zeph::platform::NewObject<ZEPH_StackNode>(p, top);  // null drops the chain
  zeph::platform::RememberNode(top);
}

/// Hardened builds stop where another stack has released the node.
void ReleaseNode(const char* operation, ZEPH_StackNode* node) {
  zeph::platform::RequireNode(operation, node);
  zeph::platform::ForgetBlock(node);
  delete node;
}

void* PopNode(const char* operation, ZEPH_StackNode*& top) {
  if (!top) return nullptr;
  zeph::platform::RequireNode(operation, top);
  ZEPH_StackNode* node = top;
  void* p = node->m_pData;
  top = node->m_pNextNode;
  ReleaseNode(operation, node);
  return p;
}

void* PeekNode(const char* operation, const ZEPH_StackNode* top) {
  zeph::platform::RequireNode(operation, top);
  return top ? top->m_pData : nullptr;
}

}  // namespace

CZEPHStack::CZEPHStack() : m_pTop(nullptr) {}
CZEPHStack::~CZEPHStack() {}
CZEPHStack& CZEPHStack::operator=(const CZEPHStack& other) {
  m_pTop = other.m_pTop;
  return *this;
}
void CZEPHStack::Push(void* p) {
  PushNode(m_pTop, p);
}
void* CZEPHStack::Pop() {
  return PopNode("CZEPHStack::Pop", m_pTop);
}
void* CZEPHStack::Peek() const {
  return PeekNode("CZEPHStack::Peek", m_pTop);
}

CZEPHPointerStack::CZEPHPointerStack() : m_pTop(nullptr) {}
CZEPHPointerStack::~CZEPHPointerStack() {
  ReleaseNode("CZEPHPointerStack::~CZEPHPointerStack", m_pTop);
  m_pTop = nullptr;
}
CZEPHPointerStack& CZEPHPointerStack::operator=(const CZEPHPointerStack& other) {
  m_pTop = other.m_pTop;
  return *this;
}
void CZEPHPointerStack::Push(void* p) {
  PushNode(m_pTop, p);
}
void* CZEPHPointerStack::Pop() {
  return PopNode("CZEPHPointerStack::Pop", m_pTop);
}
void* CZEPHPointerStack::Peek() const {
  return PeekNode("CZEPHPointerStack::Peek", m_pTop);
}
