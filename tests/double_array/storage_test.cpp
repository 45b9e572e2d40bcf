#include <algorithm>
#include <climits>
#include <type_traits>
#include <utility>

#include "double_array/arrays.h"
#include "support/allocation.h"
#include "support/integers.h"
#include "support/not_finite.h"

using namespace zeph::test;

namespace {

constexpr Failure kFailures[] = {Failure::kBadAlloc, Failure::kMemoryException};

/// Calls `body` with its next allocation failing, and expects that it was reached.
template <class Body>
void WithFailure(Failure how, Body body) {
  FailAllocation failing(1, false, how);
  body();
  EXPECT_TRUE(failing.Fired()) << "nothing was allocated";
}

template <class Body>
bool Throws(Failure how, Body body) {
  try {
    WithFailure(how, body);
  } catch (const std::bad_alloc&) {
    return how == Failure::kBadAlloc;
  } catch (CMemoryException* exception) {
    exception->Delete();
    return how == Failure::kMemoryException;
  }
  return false;
}

}  // namespace

TEST(DoubleArrayStorage, HasItsDocumentedLayout) {
  static_assert(std::has_virtual_destructor_v<CZEPHDoubleArray>);
  struct Expected {
    virtual ~Expected() = default;
    int sorted;
    int size;
    double* data;
  };
  EXPECT_EQ(sizeof(CZEPHDoubleArray), sizeof(Expected));
  CZEPHDoubleArray a;
  const auto* base = reinterpret_cast<const char*>(&a);
  EXPECT_EQ(reinterpret_cast<const char*>(&a.sorted) - base, std::ptrdiff_t(sizeof(void*)));
  EXPECT_EQ(reinterpret_cast<const char*>(&a.size) - base, std::ptrdiff_t(sizeof(void*) + 4));
  EXPECT_EQ(reinterpret_cast<const char*>(&a.data) - base, std::ptrdiff_t(sizeof(void*) + 8));
}

TEST(DoubleArrayStorage, ConstructorsFillTheElements) {
  const CZEPHDoubleArray none;
  EXPECT_EQ(none.sorted, 0);
  EXPECT_EQ(none.size, 0);
  EXPECT_EQ(none.data, nullptr);
  EXPECT_TRUE(SameBits(ElementsOf(CZEPHDoubleArray(3, -0.0)), {-0.0, -0.0, -0.0}));
  double values[] = {1, kNaN, -0.0};
  CZEPHDoubleArray a(3, values);
  a.sorted = 1;
  const CZEPHDoubleArray copy(a);
  EXPECT_TRUE(SameBits(ElementsOf(copy), {1, kNaN, -0.0}));
  EXPECT_NE(copy.data, a.data);
  EXPECT_EQ(copy.sorted, 0);
}

TEST(DoubleArrayStorage, ACountOfZeroOwnsAnEmptyBlock) {
  double value = 1;
  for (const CZEPHDoubleArray& a : {CZEPHDoubleArray(0, 1.0), CZEPHDoubleArray(0, &value),
                                    CZEPHDoubleArray(CZEPHDoubleArray())}) {
    EXPECT_EQ(a.size, 0);
    EXPECT_EQ(a.sorted, 0);
  }
  EXPECT_NE(CZEPHDoubleArray(0, 1.0).data, nullptr);
  const CZEPHDoubleArray none;
  const CZEPHDoubleArray copy(none);
  EXPECT_NE(copy.data, nullptr);
}

TEST(DoubleArrayStorage, ImpossibleCountsLeaveAnArrayWithoutStorage) {
  double value = 1;
  for (int n : {-1, INT_MIN, INT_MAX}) {
    if (n > 0 && !InterceptsLibraryAllocations()) continue;  // 16 GiB might be available
    const CZEPHDoubleArray filled(n, 1.0), copied(n, &value), copy(filled);
    for (const CZEPHDoubleArray* a : {&filled, &copied, &copy}) {
      EXPECT_EQ(a->size, n) << "n " << n;
      EXPECT_EQ(a->data, nullptr) << "n " << n;
      EXPECT_EQ(a->sorted, 0) << "n " << n;
    }
  }
}

TEST(DoubleArrayStorage, AllocatesEightBytesPerElementWithArrayNew) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  std::vector<AllocationEvent> events;
  {
    RecordAllocations record;
    { const CZEPHDoubleArray five(5, 0.0), none(-1, 0.0); }
    events = record.Events();
  }
  ASSERT_EQ(events.size(), 3u);
  EXPECT_EQ(events[0].kind, AllocationEvent::kNewArray);
  EXPECT_EQ(events[0].bytes, 40u);
  EXPECT_EQ(events[1].kind, AllocationEvent::kNewArray);
  EXPECT_EQ(events[1].bytes, SIZE_MAX);
  EXPECT_EQ(events[2].kind, AllocationEvent::kDeleteArray);
  EXPECT_EQ(events[2].block, events[0].block);
}

TEST(DoubleArrayStorage, MemoryExhaustionInAConstructorIsSwallowed) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  CZEPHDoubleArray source = ArrayOf({1, 2});
  double value = 1;
  for (Failure how : kFailures) {
    SCOPED_TRACE(::testing::Message() << how);
    const long live = LiveBlocks();
    const auto check = [](const CZEPHDoubleArray& a, int n) {
      EXPECT_EQ(a.size, n);
      EXPECT_EQ(a.data, nullptr);
      EXPECT_EQ(a.sorted, 0);
    };
    WithFailure(how, [&] { check(CZEPHDoubleArray(4, 1.0), 4); });
    WithFailure(how, [&] { check(CZEPHDoubleArray(1, &value), 1); });
    WithFailure(how, [&] { check(CZEPHDoubleArray(source), 2); });
    EXPECT_EQ(LiveBlocks(), live);
  }
}

TEST(DoubleArrayStorage, AllocMemoryStoresTheCountAndKeepsTheBlockWhenItFails) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  for (Failure how : kFailures) {
    SCOPED_TRACE(::testing::Message() << how);
    OpenArray a;
    EXPECT_EQ(a.AllocMemory(2), 1);
    a.sorted = 1;
    double* const block = a.data;
    WithFailure(how, [&] { EXPECT_EQ(a.AllocMemory(5), 0); });
    EXPECT_EQ(a.size, 5);
    EXPECT_EQ(a.data, block);
    EXPECT_EQ(a.sorted, 1);
    EXPECT_EQ(a.AllocMemory(-1), 0);
    EXPECT_EQ(a.size, -1);
    EXPECT_EQ(a.data, block);
  }
}

TEST(DoubleArrayStorage, AllocMemoryDoesNotReleaseTheBlockItReplaces) {
  OpenArray a;
  ASSERT_EQ(a.AllocMemory(2), 1);
  double* const first = a.data;
  a.sorted = 1;
  ASSERT_EQ(a.AllocMemory(3), 1);
  EXPECT_EQ(a.sorted, 0);
  EXPECT_EQ(a.size, 3);
  double* const second = a.data;
  EXPECT_NE(first, second);
  first[0] = 1;  // still live
  a.FreeMemory();
  a.data = first;
}

TEST(DoubleArrayStorage, FreeMemoryKeepsTheCount) {
  OpenArray a;
  a.FreeMemory();
  ASSERT_EQ(a.AllocMemory(2), 1);
  a.FreeMemory();
  EXPECT_EQ(a.data, nullptr);
  EXPECT_EQ(a.size, 2);
}

TEST(DoubleArrayStorage, ResizeKeepsWhatFits) {
  CZEPHDoubleArray a = ArrayOf({1, -0.0, 3});
  a.sorted = 1;
  double* const before = a.data;
  a.Resize(5, 1);
  EXPECT_NE(a.data, before);
  EXPECT_EQ(a.size, 5);
  EXPECT_TRUE(SameBits(a.data, std::vector<double>{1, -0.0, 3}.data(), 3));
  a.Resize(2, -1);
  EXPECT_TRUE(SameBits(ElementsOf(a), {1, -0.0}));
  EXPECT_EQ(a.sorted, 1);
  a.Resize(4, 0);
  EXPECT_EQ(a.size, 4);
}

TEST(DoubleArrayStorage, ResizeMovesToANewBlockForEveryPairOfSizes) {
  for (int from = 1; from <= 20; ++from)
    for (int to = 1; to <= 20; ++to)
      for (int keep : {0, 1}) {
        SCOPED_TRACE(::testing::Message() << from << " to " << to << ", keep " << keep);
        std::vector<double> v(static_cast<std::size_t>(from));
        for (int i = 0; i < from; ++i) v[static_cast<std::size_t>(i)] = i + 0.5;
        CZEPHDoubleArray a = ArrayOf(v);
        const double* const before = a.data;
        a.Resize(to, keep);
        EXPECT_NE(a.data, before);
        ASSERT_EQ(a.size, to);
        const int kept = keep ? std::min(from, to) : 0;
        EXPECT_TRUE(SameBits(a.data, v.data(), static_cast<std::size_t>(kept)));
      }
}

TEST(DoubleArrayStorage, ResizeBelowOneReleasesTheStorage) {
  for (int n : {0, -1, INT_MIN}) {
    CZEPHDoubleArray a = ArrayOf({1, 2});
    a.Resize(n, 1);
    EXPECT_EQ(a.size, 0) << "n " << n;
    EXPECT_EQ(a.data, nullptr) << "n " << n;
    a.Resize(n, 1);
    EXPECT_EQ(a.size, 0) << "n " << n;
  }
  CZEPHDoubleArray negative(-7, 0.0);
  negative.Resize(0, 1);
  EXPECT_EQ(negative.size, 0);
}

TEST(DoubleArrayStorage, ResizeOfAnArrayWithoutStorageCopiesNothing) {
  CZEPHDoubleArray a = WithoutStorage(9);
  a.Resize(3, 1);
  EXPECT_EQ(a.size, 3);
  ASSERT_NE(a.data, nullptr);
  CZEPHDoubleArray negative = ArrayOf({1, 2});
  negative.size = -2;
  negative.Resize(3, 1);
  EXPECT_EQ(negative.size, 3);
}

TEST(DoubleArrayStorage, ResizePropagatesMemoryExhaustionAndChangesNothing) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  for (Failure how : kFailures) {
    CZEPHDoubleArray a = ArrayOf({1, 2});
    double* const block = a.data;
    EXPECT_TRUE(Throws(how, [&] { a.Resize(4, 1); })) << how;
    EXPECT_EQ(a.data, block) << how;
    EXPECT_TRUE(SameBits(ElementsOf(a), {1, 2})) << how;
  }
  CZEPHDoubleArray a;
  EXPECT_THROW(a.Resize(INT_MAX, 0), std::bad_alloc);
}

TEST(DoubleArrayStorage, AssignmentCopiesIntoTheExistingStorage) {
  CZEPHDoubleArray a = ArrayOf({1, 2});
  const CZEPHDoubleArray b = ArrayOf({-0.0, kNaN});
  a.sorted = 1;
  double* const block = a.data;
  EXPECT_EQ(&(a = b), &a);
  EXPECT_EQ(a.data, block);
  EXPECT_EQ(a.sorted, 1);  // although the elements are new
  EXPECT_TRUE(SameBits(ElementsOf(a), {-0.0, kNaN}));
  const CZEPHDoubleArray& same = a;
  EXPECT_EQ(&(a = same), &a);
  EXPECT_TRUE(SameBits(ElementsOf(a), {-0.0, kNaN}));
}

TEST(DoubleArrayStorage, AssignmentToAnEmptyArrayAllocates) {
  CZEPHDoubleArray a;
  a.sorted = 1;
  a = ArrayOf({1, 2, 3});
  EXPECT_TRUE(SameBits(ElementsOf(a), {1, 2, 3}));
  EXPECT_EQ(a.sorted, 0);
  CZEPHDoubleArray b = WithoutStorage(7);  // its size does not matter
  b = a;
  EXPECT_TRUE(SameBits(ElementsOf(b), {1, 2, 3}));
}

TEST(DoubleArrayStorage, AssignmentDoesNotReleaseTheBlockOfASizeOfZero) {
  CZEPHDoubleArray a = ArrayOf({5});
  a.Remove(5);
  double* const block = a.data;
  a = ArrayOf({1, 2});
  EXPECT_NE(a.data, block);
  block[0] = 7;  // still live
  CZEPHDoubleArray owner;
  owner.data = block;
}

TEST(DoubleArrayStorage, AssignmentFromAnArrayWithoutStorageCopiesNothing) {
  CZEPHDoubleArray a = ArrayOf({1, 2});
  a = WithoutStorage(2);
  EXPECT_TRUE(SameBits(ElementsOf(a), {1, 2}));
  CZEPHDoubleArray b;
  b = WithoutStorage(2);
  EXPECT_EQ(b.size, 2);
  EXPECT_NE(b.data, nullptr);
}

TEST(DoubleArrayStorage, AssignmentThatCannotAllocateCopiesNothing) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  const CZEPHDoubleArray source = ArrayOf({1, 2});
  for (Failure how : kFailures) {
    CZEPHDoubleArray a, b(0, 0.0);
    double* const block = b.data;
    WithFailure(how, [&] { a = source; });
    EXPECT_EQ(a.size, 2) << how;
    EXPECT_EQ(a.data, nullptr) << how;
    WithFailure(how, [&] { b = source; });
    EXPECT_EQ(b.size, 2) << how;
    EXPECT_EQ(b.data, block) << how;  // too small for its size: nothing was written
  }
}

TEST(DoubleArrayStorage, MovesEveryElementOfLongArrays) {
  for (const std::size_t n : {999u, 1000u, 1001u, 4095u, 4096u, 4097u, 10'000u, 70'001u}) {
    SCOPED_TRACE(::testing::Message() << n << " elements");
    const std::vector<double> v = Moderate(n, 3);
    const CZEPHDoubleArray a = ArrayOf(v), copy(a), filled(static_cast<int>(n), 2.5);
    CZEPHDoubleArray assigned, same(filled), resized(a), shorter(a);
    EXPECT_TRUE(SameBits(ElementsOf(a), v));
    EXPECT_TRUE(SameBits(ElementsOf(copy), v));
    EXPECT_TRUE(SameBits(ElementsOf(filled), std::vector<double>(n, 2.5)));
    assigned = a;
    EXPECT_TRUE(SameBits(ElementsOf(assigned), v));
    same = a;
    EXPECT_TRUE(SameBits(ElementsOf(same), v));
    const auto use = [](std::size_t size) { CZEPHDoubleArray(static_cast<int>(size), 77.0); };
    use(n + 5);  // memory that was just released is given out again
    resized.Resize(static_cast<int>(n) + 5, 1);
    EXPECT_TRUE(SameBits(resized.data, v.data(), n));
    use(n - 5);
    shorter.Resize(static_cast<int>(n) - 5, 1);
    EXPECT_TRUE(SameBits(shorter.data, v.data(), n - 5));
    EXPECT_EQ(same.Remove(v[0]), 1);
    EXPECT_TRUE(SameBits(same.data, v.data() + 1, n - 1));
    same.Reset(-1.5);
    EXPECT_TRUE(SameBits(ElementsOf(same), std::vector<double>(n - 1, -1.5)));
  }
}

TEST(DoubleArrayAccess, GivesAccessToTheElements) {
  CZEPHDoubleArray a = ArrayOf({1, 2, 3});
  const CZEPHDoubleArray& constant = a;
  a[1] = -0.0;
  EXPECT_EQ(&constant[2], a.data + 2);
  EXPECT_SAME_BITS(a.GetEntry(1), -0.0);
  EXPECT_EQ(constant.GetSize(), 3);
  EXPECT_EQ(constant.Size(), 3);
  EXPECT_EQ(constant.GetData(), a.data);
  EXPECT_EQ(CZEPHDoubleArray().GetData(), nullptr);
}

TEST(DoubleArrayAccess, MovesEveryBitOfEveryElement) {
  const std::vector<double>& v = SpecialValues<double>();
  CZEPHDoubleArray a = ArrayOf(v);
  const CZEPHDoubleArray& constant = a;
  for (std::size_t k = 0; k < v.size(); ++k) {
    const int i = static_cast<int>(k);
    EXPECT_SAME_BITS(a.GetEntry(i), v[k]);
    EXPECT_SAME_BITS(a[i], v[k]);
    EXPECT_SAME_BITS(constant[i], v[k]);
    CZEPHDoubleArray filled(3, v[k]);
    EXPECT_TRUE(SameBits(ElementsOf(filled), {v[k], v[k], v[k]}));
    filled.SetEntry(7.0);
    filled.SetEntry(v[k]);
    EXPECT_TRUE(SameBits(ElementsOf(filled), {v[k], v[k], v[k]}));
  }
}

TEST(DoubleArrayAccess, TheCountIsTheOneStoredWithoutStorageToo) {
  for (const int size : {-3, 0, 5}) {
    const CZEPHDoubleArray none = WithoutStorage(size);
    EXPECT_EQ(none.GetSize(), size);
    EXPECT_EQ(none.Size(), size);
    EXPECT_EQ(none.GetData(), nullptr);
    CZEPHDoubleArray some = ArrayOf({1, 2, 3, 4, 5});
    some.size = size;
    EXPECT_EQ(some.GetSize(), size);
    EXPECT_EQ(some.Size(), size);
    EXPECT_EQ(some.GetData(), some.data);
  }
}

TEST(DoubleArrayAccess, TheBoundRuleAcceptsAnIndexEqualToTheCount) {
  CZEPHDoubleArray a = ArrayOf({1, 2, 3});
  for (int i = 0; i <= 3; ++i) EXPECT_EQ(a.CheckBound(i), 1) << "i " << i;
  EXPECT_EQ(CZEPHDoubleArray(0, 0.0).CheckBound(0), 1);
  a.size = 2;  // the element at index 2 is still in the block
  EXPECT_EQ(a.GetEntry(2), 3.0);
}

TEST(DoubleArrayAccess, SetEntryAndResetFillEveryElement) {
  CZEPHDoubleArray a = ArrayOf({1, 2, 3});
  a.sorted = 1;
  a.SetEntry(-0.0);
  EXPECT_TRUE(SameBits(ElementsOf(a), {-0.0, -0.0, -0.0}));
  a.Reset(kNaN);
  EXPECT_TRUE(SameBits(ElementsOf(a), {kNaN, kNaN, kNaN}));
  EXPECT_EQ(a.sorted, 1);
  for (int size : {-1, 0, 5}) {
    CZEPHDoubleArray none = WithoutStorage(size);
    none.SetEntry(1);
    none.Reset(1);
    EXPECT_EQ(none.size, size) << "size " << size;
  }
}

TEST(DoubleArrayAdditions, AcceptIntegersAndConstantSources) {
  EXPECT_TRUE(SameBits(ElementsOf(CZEPHDoubleArray(2, 0)), {0, 0}));
  EXPECT_TRUE(SameBits(ElementsOf(CZEPHDoubleArray(2, -7)), {-7, -7}));
  static const double values[] = {1, 2};
  EXPECT_TRUE(SameBits(ElementsOf(CZEPHDoubleArray(2, values)), {1, 2}));
  const CZEPHDoubleArray unspecified(2, nullptr);
  EXPECT_EQ(unspecified.size, 2);
  EXPECT_NE(unspecified.data, nullptr);
}

TEST(DoubleArrayAdditions, MovingTakesOverTheBlock) {
  static_assert(std::is_nothrow_move_constructible_v<CZEPHDoubleArray>);
  CZEPHDoubleArray a = ArrayOf({1, 2});
  a.sorted = 1;
  double* const block = a.data;
  const CZEPHDoubleArray b(std::move(a));
  EXPECT_EQ(b.data, block);
  EXPECT_EQ(b.sorted, 0);
  EXPECT_TRUE(SameBits(ElementsOf(b), {1, 2}));
  EXPECT_EQ(a.data, nullptr);
  EXPECT_EQ(a.size, 0);
}

TEST(DoubleArrayAdditions, MovingFromAnArrayWithoutStorageIsCopyingIt) {
  CZEPHDoubleArray none;
  const CZEPHDoubleArray b(std::move(none));
  EXPECT_EQ(b.size, 0);
  EXPECT_NE(b.data, nullptr);  // like the copy
  const CZEPHDoubleArray c(WithoutStorage(-4));
  EXPECT_EQ(c.size, -4);
  EXPECT_EQ(c.data, nullptr);
}

TEST(DoubleArrayAdditions, AssigningATemporaryChecksTheSizesToo) {
  static_assert(!std::is_nothrow_assignable_v<CZEPHDoubleArray&, CZEPHDoubleArray>,
                "there is no move assignment");
  CZEPHDoubleArray a = ArrayOf({1, 2});
  double* const block = a.data;
  a = ArrayOf({3, 4});
  EXPECT_EQ(a.data, block);
}

TEST(DoubleArrayAdditions, ArraysWorkInRangeBasedFor) {
  CZEPHDoubleArray a = ArrayOf({1, 2, 3});
  for (double& x : a) x *= 2;
  const CZEPHDoubleArray& constant = a;
  double sum = 0;
  for (double x : constant) sum += x;
  EXPECT_EQ(sum, 12.0);
  for (int size : {-1, 0, 5}) {
    CZEPHDoubleArray none = WithoutStorage(size);
    EXPECT_EQ(none.begin(), none.end()) << "size " << size;
  }
  const CZEPHDoubleArray none = WithoutStorage(5);
  EXPECT_EQ(none.begin(), none.end());
  a.size = -1;
  EXPECT_EQ(constant.begin(), constant.end());
  EXPECT_EQ(a.begin(), a.end());
}

TEST(DoubleArrayAdditions, AcceptIntegersOfEveryType) {
  zeph::test::ForEachInteger([](auto value) {
    const double want = static_cast<double>(value);
    EXPECT_TRUE(SameBits(ElementsOf(CZEPHDoubleArray(2, value)), {want, want})) << want;
  });
}

TEST(DoubleArrayAdditions, EndIsAsManyElementsBehindBegin) {
  for (int n = 1; n < 4; ++n) {
    CZEPHDoubleArray a(n, 0.0);
    const CZEPHDoubleArray& constant = a;
    EXPECT_EQ(a.end() - a.begin(), n);
    EXPECT_EQ(constant.end() - constant.begin(), n);
  }
}
