// SPDX-License-Identifier: MIT
//
// CZEPHStack and CZEPHPointerStack share every operation but their destructors.
#include "containers.h"
#include "platform/allocation.h"

namespace {

void PushNode(ZEPH_StackNode*& top, void* p) {
  top = zeph::platform::NewObject<ZEPH_StackNode>(p, top);  // null drops the chain
}

void* PopNode(ZEPH_StackNode*& top) {
  if (!top) return nullptr;
  ZEPH_StackNode* node = top;
  void* p = node->m_pData;
  top = node->m_pNextNode;
  delete node;
  return p;
}

void* PeekNode(const ZEPH_StackNode* top) {
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
  return PopNode(m_pTop);
}
void* CZEPHStack::Peek() const {
  return PeekNode(m_pTop);
}

CZEPHPointerStack::CZEPHPointerStack() : m_pTop(nullptr) {}
CZEPHPointerStack::~CZEPHPointerStack() {
  delete m_pTop;
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
  return PopNode(m_pTop);
}
void* CZEPHPointerStack::Peek() const {
  return PeekNode(m_pTop);
}
