#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "containers.h"
#include "support/allocation.h"
#include "support/other_bytes.h"

using namespace zeph::test;

namespace {

int a, b, c;

/// Releases the chain that a destroyed stack has left.
void Release(ZEPH_StackNode* top) {
  while (top) {
    ZEPH_StackNode* next = top->m_pNextNode;
    delete top;
    top = next;
  }
}

template <class S>
class Stack : public ::testing::Test {};
using Kinds = ::testing::Types<CZEPHStack, CZEPHPointerStack>;
struct KindName {
  template <class S>
  static std::string GetName(int) {
    return std::is_same_v<S, CZEPHStack> ? "CZEPHStack" : "CZEPHPointerStack";
  }
};
TYPED_TEST_SUITE(Stack, Kinds, KindName);

}  // namespace

TYPED_TEST(Stack, IsASinglePointerWithoutVirtualFunctions) {
  EXPECT_EQ(sizeof(TypeParam), sizeof(void*));
  EXPECT_FALSE(std::is_polymorphic_v<TypeParam>);
}

TYPED_TEST(Stack, StartsEmptyInDirtyMemory) {
  OverOtherBytes<TypeParam> stack;
  EXPECT_EQ(stack->m_pTop, nullptr);
  EXPECT_EQ(stack->Pop(), nullptr);
}

TYPED_TEST(Stack, ReturnsNullWhileEmpty) {
  TypeParam stack;
  EXPECT_EQ(stack.m_pTop, nullptr);
  EXPECT_EQ(stack.Pop(), nullptr);
  EXPECT_EQ(stack.Peek(), nullptr);
  EXPECT_EQ(stack.m_pTop, nullptr);
}

TYPED_TEST(Stack, PopsTheLastPushedFirst) {
  TypeParam stack;
  stack.Push(&a);
  stack.Push(&b);
  stack.Push(&c);
  EXPECT_EQ(stack.Pop(), &c);
  EXPECT_EQ(stack.Pop(), &b);
  EXPECT_EQ(stack.Pop(), &a);
  EXPECT_EQ(stack.Pop(), nullptr);
}

TYPED_TEST(Stack, PeekLeavesTheTopInPlace) {
  TypeParam stack;
  stack.Push(&a);
  stack.Push(&b);
  const TypeParam& constant = stack;
  EXPECT_EQ(constant.Peek(), &b);
  EXPECT_EQ(constant.Peek(), &b);
  EXPECT_EQ(stack.Pop(), &b);
  EXPECT_EQ(stack.Peek(), &a);
  stack.Pop();
}

TYPED_TEST(Stack, HoldsNullsWhichLookLikeAnEmptyStack) {
  TypeParam stack;
  stack.Push(&a);
  stack.Push(nullptr);
  EXPECT_EQ(stack.Peek(), nullptr);
  EXPECT_NE(stack.m_pTop, nullptr);
  EXPECT_EQ(stack.Pop(), nullptr);
  EXPECT_EQ(stack.Pop(), &a);
}

TYPED_TEST(Stack, LinksEachNodeToTheOneBelow) {
  TypeParam stack;
  stack.Push(&a);
  stack.Push(&b);
  EXPECT_EQ(stack.m_pTop->m_pData, &b);
  EXPECT_EQ(stack.m_pTop->m_pNextNode->m_pData, &a);
  EXPECT_EQ(stack.m_pTop->m_pNextNode->m_pNextNode, nullptr);
  stack.Pop();
  stack.Pop();
}

TYPED_TEST(Stack, SharesTheChainOnAssignmentAndCopying) {
  TypeParam one, two;
  one.Push(&a);
  one.Push(&b);
  TypeParam& assigned = two = one;
  EXPECT_EQ(&assigned, &two);
  EXPECT_EQ(two.m_pTop, one.m_pTop);
  two = *&two;
  EXPECT_EQ(two.m_pTop, one.m_pTop);
  TypeParam three(one);
  EXPECT_EQ(three.m_pTop, one.m_pTop);
  EXPECT_EQ(two.Peek(), &b);
  EXPECT_EQ(one.Pop(), &b);
  EXPECT_EQ(one.Pop(), &a);
  two.m_pTop = three.m_pTop = nullptr;  // the shared chain is released
}

TYPED_TEST(Stack, AssignmentDoesNotReleaseTheNodesHeldBefore) {
  TypeParam one, two;
  one.Push(&a);
  ZEPH_StackNode* held = one.m_pTop;
  const long live = LiveBlocks();
  one = two;
  EXPECT_EQ(LiveBlocks(), live);
  EXPECT_EQ(one.m_pTop, nullptr);
  Release(held);
}

TYPED_TEST(Stack, AllocatesOneNodePerPushAndReleasesOnePerPop) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  TypeParam stack;
  RecordAllocations record;
  stack.Push(&a);
  stack.Pop();
  stack.Pop();
  stack.Peek();
  const auto events = record.Events();
  ASSERT_EQ(events.size(), 2u);
  EXPECT_EQ(events[0].kind, AllocationEvent::kNew);
  EXPECT_EQ(events[0].bytes, sizeof(ZEPH_StackNode));
  EXPECT_EQ(events[1].kind, AllocationEvent::kDelete);
  EXPECT_EQ(events[1].block, events[0].block);
}

TYPED_TEST(Stack, StaysUnchangedWhenPushThrows) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  TypeParam stack;
  stack.Push(&a);
  {
    FailAllocation failing(1, false, Failure::kBadAlloc);
    EXPECT_THROW(stack.Push(&b), std::bad_alloc);
  }
  {
    FailAllocation failing(1, false, Failure::kMemoryException);
    try {
      stack.Push(&b);
      ADD_FAILURE();
    } catch (CMemoryException* exception) {
      exception->Delete();
    }
  }
  EXPECT_EQ(stack.Pop(), &a);
  EXPECT_EQ(stack.Pop(), nullptr);
}

TYPED_TEST(Stack, LosesItsNodesWhenTheAllocationReturnsNull) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  TypeParam stack;
  stack.Push(&a);
  stack.Push(&b);
  ZEPH_StackNode* dropped = stack.m_pTop;
  const long live = LiveBlocks();
  {
    FailAllocation failing(1, false, Failure::kNull);
    stack.Push(&c);
  }
  EXPECT_EQ(stack.m_pTop, nullptr);
  EXPECT_EQ(LiveBlocks(), live);
  Release(dropped);
}

TEST(StackDestructor, OfTheStackReleasesNothing) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  ZEPH_StackNode* left = nullptr;
  long before = 0;
  {
    CZEPHStack stack;
    for (int* p : {&a, &b, &c}) stack.Push(p);
    left = stack.m_pTop;
    before = LiveBlocks();
  }
  EXPECT_EQ(LiveBlocks(), before);
  EXPECT_EQ(left->m_pData, &c);
  Release(left);
}

TEST(StackDestructor, OfThePointerStackReleasesTheTopNodeOnly) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  ZEPH_StackNode* below = nullptr;
  RecordAllocations record;
  {
    CZEPHPointerStack stack;
    for (int* p : {&a, &b, &c}) stack.Push(p);
    below = stack.m_pTop->m_pNextNode;
  }
  const auto events = record.Events();
  ASSERT_EQ(events.size(), 4u);  // three pushes, one release
  EXPECT_EQ(events[3].kind, AllocationEvent::kDelete);
  EXPECT_EQ(events[3].block, events[2].block);
  EXPECT_EQ(below->m_pData, &b);
  Release(below);
}

TEST(StackDestructor, OfAnEmptyPointerStackReleasesNothing) {
  const long live = LiveBlocks();
  { CZEPHPointerStack stack; }
  EXPECT_EQ(LiveBlocks(), live);
}
