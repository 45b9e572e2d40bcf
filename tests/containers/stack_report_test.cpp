#include <gtest/gtest.h>

#include <climits>
#include <set>
#include <string>

#include "containers.h"
#include "support/allocation.h"
#include "support/stream.h"

using namespace zeph::test;

namespace {

const std::string kBegin =
    "\n@@@( CZEPHPointerStack::Test1()...BEGIN\n"
    "@@@( String stack test...\n";
const std::string kEnd = "\n@@@( CZEPHPointerStack::Test1()...END\n";

std::string Report(int count) {
  return Written([&](FILE* f) { EXPECT_EQ(CZEPHPointerStack::Test1(count, f), 1); });
}

/// The report on three items while the `k`-th allocation returns null; releases what remains.
std::string ReportWithoutAllocation(long k, std::size_t& left) {
  std::set<void*> blocks;
  const std::string text = Written([&](FILE* f) {
    FailAllocation failing(k, false, Failure::kNull);
    RecordAllocations record;
    CZEPHPointerStack::Test1(3, f);
    for (const AllocationEvent& event : record.Events())
      if (event.bytes == 0)
        blocks.erase(event.block);
      else if (event.block)
        blocks.insert(event.block);
  });
  left = blocks.size();
  for (void* block : blocks) ::operator delete(block);
  return text;
}

}  // namespace

TEST(StackReport, PrintsTheItemsLastFirst) {
  EXPECT_EQ(Report(3), kBegin + "Pop:#ITEM2\nPop:#ITEM1\nPop:#ITEM0\n" + kEnd);
  EXPECT_EQ(Report(1), kBegin + "Pop:#ITEM0\n" + kEnd);
}

TEST(StackReport, PrintsAnyNumberOfItems) {
  std::string want = kBegin;
  for (int i = 11999; i >= 0; --i) want += "Pop:#ITEM" + std::to_string(i) + "\n";
  EXPECT_EQ(Report(12000), want + kEnd);
}

TEST(StackReport, PrintsOnlyTheBannersForACountBelowOne) {
  for (int count : {0, -1, INT_MIN}) EXPECT_EQ(Report(count), kBegin + kEnd) << "count " << count;
}

TEST(StackReport, ReturnsZeroForANullStream) {
  const long before = AllocationCount();
  EXPECT_EQ(CZEPHPointerStack::Test1(3, nullptr), 0);
  EXPECT_EQ(AllocationCount(), before);
}

TEST(StackReport, ReleasesEverything) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  const auto report = [](FILE* f) { CZEPHPointerStack::Test1(100, f); };
  Written(report);  // the first run keeps the path of its temporary file
  const long live = LiveBlocks();
  Written(report);
  EXPECT_EQ(LiveBlocks(), live);
}

TEST(StackReport, PropagatesMemoryExhaustionAndLeaksNothing) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  for (Failure how : {Failure::kBadAlloc, Failure::kMemoryException}) {
    long runs = 0;
    const std::string text = Written([&](FILE* f) {
      long live = 0;
      int passed = 0;
      runs = FailEachAllocation(
          how, false,
          [&] {
            live = LiveBlocks();
            try {
              CZEPHPointerStack::Test1(3, f);
            } catch (CMemoryException* exception) {
              exception->Delete();
              ++passed;
            } catch (const std::bad_alloc&) {
              ++passed;
            }
          },
          [&](long k) {
            EXPECT_EQ(passed, k) << how;
            EXPECT_EQ(LiveBlocks(), live) << "allocation " << k;
          });
    });
    EXPECT_EQ(runs, 6) << how;  // a string and a node for each item
  }
}

TEST(StackReport, StopsPoppingAtTheFirstNullFromAnAllocation) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  std::size_t left = 0;
  // A string without storage is pushed as null, at which popping ends; one string stays below it.
  EXPECT_EQ(ReportWithoutAllocation(1, left), kBegin + "Pop:#ITEM2\nPop:#ITEM1\n" + kEnd);
  EXPECT_EQ(left, 0u);
  EXPECT_EQ(ReportWithoutAllocation(3, left), kBegin + "Pop:#ITEM2\n" + kEnd);
  EXPECT_EQ(left, 1u);
  EXPECT_EQ(ReportWithoutAllocation(5, left), kBegin + kEnd);
  EXPECT_EQ(left, 3u);  // two strings and the lower node
  // A node that cannot be allocated loses the chain, with its strings.
  EXPECT_EQ(ReportWithoutAllocation(4, left), kBegin + "Pop:#ITEM2\n" + kEnd);
  EXPECT_EQ(left, 3u);
  EXPECT_EQ(ReportWithoutAllocation(6, left), kBegin + kEnd);
  EXPECT_EQ(left, 5u);
}
