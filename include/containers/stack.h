// SPDX-License-Identifier: MIT
//
/// @file
/// CZEPHStack, CZEPHPointerStack: last in, first out, of untyped pointers.
#ifndef ZEPH_CONTAINERS_STACK_H
#define ZEPH_CONTAINERS_STACK_H

#include <cstdio>

#include "../platform.h"

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

#endif  // ZEPH_CONTAINERS_STACK_H
