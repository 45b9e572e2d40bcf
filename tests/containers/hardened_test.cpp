#include "support/hardened.h"

#include <limits>

#include "containers.h"

namespace {

int Equal(CObject*, CObject*) {
  return 0;
}

struct FiveObjects : CZEPHSortableObArray {
  FiveObjects() { SetSize(5); }
};

/// An operation of a stack whose only node another one has released.
template <class Stack>
void AfterACopyPopped(void (*operate)(Stack&)) {
  int item = 0;
  Stack stack;
  stack.Push(&item);
  Stack copy = stack;
  stack.Pop();
  operate(copy);
}

}  // namespace

TEST(HardenedContainers, StopAtANullCompareFunction) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHSortableObArray::Sort: compare is null", FiveObjects().Sort(nullptr));
  EXPECT_STOP("CZEPHSortableObArray::Sort: compare is null", FiveObjects().Sort(0, 0, nullptr));
  EXPECT_STOP("CZEPHSortableObList::Sort: compare is null", CZEPHSortableObList().Sort(nullptr));
  EXPECT_STOP("CZEPHSortableObList::Sort: compare is null",
              CZEPHSortableObList().Sort(nullptr, 1, nullptr));
}

TEST(HardenedContainers, StopAtARangeOutsideTheArray) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHSortableObArray::Sort: first is -1, outside 0..5",
              FiveObjects().Sort(-1, 2, Equal));
  EXPECT_STOP("CZEPHSortableObArray::Sort: count is 4, outside 1..3",
              FiveObjects().Sort(2, 4, Equal));
}

TEST(HardenedContainers, StopInStableSortsAsInTheOthers) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHSortableObArray::SortStable: compare is null",
              FiveObjects().SortStable(nullptr));
  EXPECT_STOP("CZEPHSortableObArray::SortStable: compare is null",
              FiveObjects().SortStable(0, 0, nullptr));
  EXPECT_STOP("CZEPHSortableObList::SortStable: compare is null",
              CZEPHSortableObList().SortStable(nullptr));
  EXPECT_STOP("CZEPHSortableObList::SortStable: compare is null",
              CZEPHSortableObList().SortStable(nullptr, 1, nullptr));
  EXPECT_STOP("CZEPHSortableObArray::SortStable: first is -1, outside 0..5",
              FiveObjects().SortStable(-1, 2, Equal));
  EXPECT_STOP("CZEPHSortableObArray::SortStable: first is 6, outside 0..5",
              FiveObjects().SortStable(6, 1, Equal));
  EXPECT_STOP("CZEPHSortableObArray::SortStable: count is 4, outside 1..3",
              FiveObjects().SortStable(2, 4, Equal));
  EXPECT_STOP("CZEPHSortableObArray::Sort: first is 6, outside 0..5",
              FiveObjects().Sort(6, 1, Equal));
  EXPECT_STOP("CZEPHSortableObArray::Sort: count is 1, outside 1..0",
              FiveObjects().Sort(5, 1, Equal));
}

TEST(HardenedContainers, StopAtAPositionInAnotherList) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHSortableObList::Sort: start is not a position in this list", {
    CZEPHSortableObList list, other;
    list.AddTail(nullptr);
    list.Sort(other.AddTail(nullptr), 1, Equal);
  });
}

TEST(HardenedContainers, TellAListsOwnPositionsFromThoseOfAnother) {
  ZEPH_SKIP_UNLESS_HARDENED();
  CZEPHSortableObList list, other;
  for (int i = 0; i < 3; ++i) list.AddTail(nullptr), other.AddTail(nullptr);
  for (int i = 0; i < 3; ++i) {
    EXPECT_STOP_OF("CZEPHSortableObList::Sort: start is not a position in this list",
                   [&] { list.Sort(other.FindIndex(i), 1, Equal); });
    list.Sort(list.FindIndex(i), 1, Equal);
  }
}

TEST(HardenedContainers, StopWhereANodeIsAlreadyInTheList) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHLinkList::InsertOrdered: the node is in the list already", {
    CZEPHLinkList<double> list;
    auto* link = new CZEPHLink<double>(1.0);
    list.InsertOrdered(link);
    list.InsertOrdered(link);
  });
  EXPECT_STOP("CZEPHSortedLinkList::Insert: the node is in the list already", {
    CZEPHSortedLinkList list;
    CZEPHLinkData node(1);
    list.Insert(&node);
    list.Insert(&node);
  });
}

TEST(HardenedContainers, StopWhereANodeIsAnywhereInTheList) {
  ZEPH_SKIP_UNLESS_HARDENED();
  for (std::size_t at = 0; at < 4; ++at) {
    SCOPED_TRACE(at);
    EXPECT_STOP_OF("CZEPHLinkList::InsertOrdered: the node is in the list already", [at] {
      CZEPHLinkList<double> list;
      CZEPHLink<double>* links[4];
      for (auto*& link : links) list.InsertOrdered(link = new CZEPHLink<double>(1.0));
      list.InsertOrdered(links[at]);
    });
    EXPECT_STOP_OF("CZEPHSortedLinkList::Insert: the node is in the list already", [at] {
      CZEPHLinkData nodes[4] = {CZEPHLinkData(1), CZEPHLinkData(2), CZEPHLinkData(1),
                                CZEPHLinkData(3)};
      CZEPHSortedLinkList list;
      for (CZEPHLinkData& node : nodes) list.Insert(&node);
      list.Insert(&nodes[at]);
    });
  }
}

TEST(HardenedContainers, StopWhereASharedChainWasReleased) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP(
      "CZEPHLinkList::RemoveAll: the first node was released by another that shared the chain", {
        CZEPHLinkList<double> list;
        list.InsertOrdered(new CZEPHLink<double>(1.0));
        CZEPHLinkList<double> copy = list;
        list.RemoveAll();
        copy.RemoveAll();
      });
  EXPECT_STOP(
      "CZEPHLinkList::GetFirstLink: the first node was released by another that shared the chain", {
        CZEPHLinkList<double> list;
        CZEPHLink<double>* links[] = {new CZEPHLink<double>(1.0), new CZEPHLink<double>(0.0)};
        list.Sorting(links, 2);
        CZEPHLinkList<double> copy = list;
        list.RemoveAll();
        copy.GetFirstLink();
      });
  EXPECT_STOP(
      "CZEPHPointerStack::~CZEPHPointerStack: the first node was released by another that shared "
      "the chain",
      {
        int item = 0;
        CZEPHPointerStack stack;
        stack.Push(&item);
        CZEPHPointerStack copy = stack;
      });
}

TEST(HardenedContainers, AllowEverythingDocumented) {
  ZEPH_SKIP_UNLESS_HARDENED();
  FiveObjects().Sort(0, 5, Equal);
  FiveObjects().Sort(-1, 0, Equal);
  {  // own position
    CZEPHSortableObList list;
    const POSITION at = list.AddTail(nullptr);
    list.Sort(at, 1, Equal);
  }
  {  // null position
    CZEPHSortableObList list;
    list.AddTail(nullptr);
    list.Sort(nullptr, 1, Equal);
  }
  {  // null nodes
    CZEPHLinkList<double>().InsertOrdered(nullptr);
    CZEPHSortedLinkList().Insert(nullptr);
  }
  {  // shared and emptied
    int item = 0;
    CZEPHLinkList<double> list;
    list.InsertOrdered(new CZEPHLink<double>(1.0));
    CZEPHLinkList<double> copy = list;
    copy.m_pHead = nullptr;
    CZEPHPointerStack stack;
    stack.Push(&item);
    CZEPHPointerStack other = stack;
    other.m_pTop = nullptr;
    for (int i = 0; i < 3; ++i) {  // at addresses that were released
      stack.Push(&item);
      stack.Pop();
    }
  }
}

// A node that is made where another was released is not taken for it, however it comes into a list.
TEST(HardenedContainers, AllowNodesOfAnyValueAtAddressesThatWereReleased) {
  ZEPH_SKIP_UNLESS_HARDENED();
  for (const bool sorted : {false, true})
    for (const double x : {1.0, -0.0, std::numeric_limits<double>::infinity(),
                           std::numeric_limits<double>::quiet_NaN()})
      for (int times = 0; times < 3; ++times) {
        CZEPHLinkList<double> list;
        CZEPHLink<double>* links[] = {new CZEPHLink<double>(x), new CZEPHLink<double>(x),
                                      new CZEPHLink<double>(x)};
        if (sorted) {
          list.Sorting(links, 3);
        } else {
          for (CZEPHLink<double>* link : links) list.InsertOrdered(link);
        }
        delete list.GetFirstLink();  // by the caller, the others by the list
      }
}

TEST(HardenedContainers, StopAtEveryBreachOfEveryOperation) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHSortableObArray::Sort: compare is null", FiveObjects().Sort(nullptr));
  EXPECT_STOP("CZEPHSortableObArray::Sort: compare is null", FiveObjects().Sort(0, 2, nullptr));
  EXPECT_STOP("CZEPHSortableObArray::Sort: first is -1, outside 0..5",
              FiveObjects().Sort(-1, 2, Equal));
  EXPECT_STOP("CZEPHSortableObArray::Sort: first is 6, outside 0..5",
              FiveObjects().Sort(6, 2, Equal));
  EXPECT_STOP("CZEPHSortableObArray::Sort: count is 6, outside 1..5",
              FiveObjects().Sort(0, 6, Equal));
  EXPECT_STOP("CZEPHSortableObList::Sort: compare is null", CZEPHSortableObList().Sort(nullptr));
  EXPECT_STOP("CZEPHSortableObList::Sort: compare is null",
              CZEPHSortableObList().Sort(nullptr, 2, nullptr));
  EXPECT_STOP("CZEPHSortableObArray::SortStable: compare is null",
              FiveObjects().SortStable(nullptr));
  EXPECT_STOP("CZEPHSortableObArray::SortStable: compare is null",
              FiveObjects().SortStable(0, 2, nullptr));
  EXPECT_STOP("CZEPHSortableObArray::SortStable: first is -1, outside 0..5",
              FiveObjects().SortStable(-1, 2, Equal));
  EXPECT_STOP("CZEPHSortableObArray::SortStable: first is 6, outside 0..5",
              FiveObjects().SortStable(6, 2, Equal));
  EXPECT_STOP("CZEPHSortableObArray::SortStable: count is 6, outside 1..5",
              FiveObjects().SortStable(0, 6, Equal));
  EXPECT_STOP("CZEPHSortableObList::SortStable: compare is null",
              CZEPHSortableObList().SortStable(nullptr));
  EXPECT_STOP("CZEPHSortableObList::SortStable: compare is null",
              CZEPHSortableObList().SortStable(nullptr, 2, nullptr));
  EXPECT_STOP("CZEPHStack::Pop: the first node was released by another that shared the chain",
              AfterACopyPopped<CZEPHStack>([](CZEPHStack& stack) { stack.Pop(); }));
  EXPECT_STOP("CZEPHStack::Peek: the first node was released by another that shared the chain",
              AfterACopyPopped<CZEPHStack>([](CZEPHStack& stack) { stack.Peek(); }));
  EXPECT_STOP(
      "CZEPHPointerStack::Pop: the first node was released by another that shared the chain",
      AfterACopyPopped<CZEPHPointerStack>([](CZEPHPointerStack& stack) { stack.Pop(); }));
  EXPECT_STOP(
      "CZEPHPointerStack::Peek: the first node was released by another that shared the chain",
      AfterACopyPopped<CZEPHPointerStack>([](CZEPHPointerStack& stack) { stack.Peek(); }));
}
