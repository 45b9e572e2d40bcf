// What each operation leaves as it is, on arrays of every kind: the flag of sortedness, the count, the block and,
// where it only reads, the elements. Results are other tests' business.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "double_array/arrays.h"
#include "support/allocation.h"

using namespace zeph::test;

namespace {

using Values = std::vector<double>;
using Array = CZEPHDoubleArray;

enum class Flag { kKept, kSet, kCleared, kReturned };
enum class Elements { kKept, kMayChange };

struct Operation {
  const char* name;
  Flag flag;
  Elements elements;
  bool allocates;
  std::function<void(Array&)> run;
};

int Last(const Array& a) {
  return a.data ? a.size - 1 : -1;
}

/// As many elements as `a`, and a flag that differs from its flag.
Array Other(const Array& a) {
  Array other(a.data ? a.size : -1, 0.25);
  other.size = a.size;
  other.sorted = !a.sorted;
  return other;
}

void ExpectFresh(const Array& result, const Array& a) {
  EXPECT_EQ(result.sorted, 0);
  EXPECT_EQ(result.size, a.size);
  EXPECT_TRUE(!result.data || result.data != a.data);
  EXPECT_EQ(result.data == nullptr,
            Array(a).data == nullptr);  // one without elements has a block too
}

const std::vector<Operation>& Sorts() {
  constexpr auto kSet = Flag::kSet, kKept = Flag::kKept;
  constexpr auto kMay = Elements::kMayChange;
  static const std::vector<Operation> all = {
      {"BubbleSort", kSet, kMay, false, [](Array& a) { a.BubbleSort(); }},
      {"InsertionSort", kSet, kMay, false, [](Array& a) { a.InsertionSort(); }},
      {"ListInsertSort", kSet, kMay, false, [](Array& a) { a.ListInsertSort(); }},
      {"ShellSort", kSet, kMay, false, [](Array& a) { a.ShellSort(); }},
      {"QuickSort(0)", kSet, kMay, false, [](Array& a) { a.QuickSort(0); }},
      {"QuickSort(10)", kSet, kMay, false, [](Array& a) { a.QuickSort(10); }},
      {"InsertionSort(0, last)", kKept, kMay, false, [](Array& a) { a.InsertionSort(0, Last(a)); }},
      {"recQuickSort(0, last, 2)", kKept, kMay, false,
       [](Array& a) { a.recQuickSort(0, Last(a), 2); }},
      {"recQuickSort(0, last, 10)", kKept, kMay, false,
       [](Array& a) { a.recQuickSort(0, Last(a), 10); }},
      {"ManualSort", kKept, kMay, false, [](Array& a) { a.ManualSort(0, std::min(2, Last(a))); }},
      {"MedianOf3", kKept, kMay, false,
       [](Array& a) {
         if (Last(a) > 0) a.MedianOf3(0, Last(a));
       }},
      {"Partition", kKept, kMay, false,
       [](Array& a) {
         if (Last(a) > 0) a.Partition(0, Last(a), 0.5);
       }},
      {"QuickPartition", kKept, kMay, false,
       [](Array& a) {
         if (Last(a) > 2) a.QuickPartition(0, Last(a), a.MedianOf3(0, Last(a)));
       }},
      {"Swap", kKept, kMay, false,
       [](Array& a) {
         if (Last(a) > 0) a.Swap(0, Last(a));
       }},
      {"CheckSorted", Flag::kReturned, Elements::kKept, false,
       [](Array& a) {
         const int found = a.CheckSorted();
         EXPECT_EQ(a.sorted, found);
       }},
  };
  return all;
}

const std::vector<Operation>& Readers() {
  constexpr auto kKept = Flag::kKept;
  constexpr auto kSame = Elements::kKept;
  static const std::vector<Operation> all = {
      {"a copy", kKept, kSame, true, [](Array& a) { ExpectFresh(Array(a), a); }},
      {"+a", kKept, kSame, true, [](Array& a) { ExpectFresh(+a, a); }},
      {"-a", kKept, kSame, true, [](Array& a) { ExpectFresh(-a, a); }},
      {"a + b", kKept, kSame, true,
       [](Array& a) {
         const Array b = Other(a);
         ExpectFresh(a + b, a);
         ExpectFresh(b + a, a);
       }},
      {"a - b", kKept, kSame, true,
       [](Array& a) {
         const Array b = Other(a);
         ExpectFresh(a - b, a);
         ExpectFresh(b - a, a);
       }},
      {"a * b", kKept, kSame, true,
       [](Array& a) {
         const Array b = Other(a);
         ExpectFresh(a * b, a);
         ExpectFresh(b * a, a);
       }},
      {"2 * a, a * 2, a / 2", kKept, kSame, true,
       [](Array& a) { ExpectFresh(2 * a, a), ExpectFresh(a * 2, a), ExpectFresh(a / 2, a); }},
      {"as the source of an assignment", kKept, kSame, true,
       [](Array& a) {
         Array b;
         b.sorted = 1;
         b = a;
         EXPECT_EQ(b.sorted, b.data ? 0 : 1);
         EXPECT_EQ(b.size, a.size);
       }},
      {"its own assignment", kKept, kSame, false,
       [](Array& a) {
         const Array& same = a;
         a = same;
       }},
      {"Find", kKept, kSame, false, [](Array& a) { a.Find(0.5), a.Find(kNaN); }},
      {"BinarySearch", kKept, kSame, false,
       [](Array& a) {
         int index = 0;
         a.BinarySearch(0.5, index), a.BinarySearch(kNaN, index);
       }},
      {"Remove of nothing", kKept, kSame, false, [](Array& a) { EXPECT_EQ(a.Remove(1e300), 0); }},
      {"norms", kKept, kSame, false, [](Array& a) { a.OneNorm(), a.TwoNorm(), a.MaxNorm(); }},
      {"dot product", kKept, kSame, false, [](Array& a) { ZEPH_ArrayDotProduct(a, a); }},
      {"MergeSortedArray", kKept, kSame, false,
       [](Array& a) {
         double x[] = {1, 5}, y[] = {2}, out[3];
         a.MergeSortedArray(x, 2, y, 1, out);
       }},
      {"texts", kKept, kSame, true,
       [](Array& a) {
         std::ostringstream os;
         os << a;
         a.Display(os);
         CString out;
         a.Display(out), a.Display(out, 0, Last(a)), a.Trace(out);
       }},
  };
  return all;
}

const std::vector<Operation>& Writers() {
  constexpr auto kMay = Elements::kMayChange;
  static const std::vector<Operation> all = {
      {"a += b", Flag::kKept, kMay, true, [](Array& a) { a += Other(a); }},
      {"a -= b", Flag::kKept, kMay, true, [](Array& a) { a -= Other(a); }},
      {"a += a, a -= a", Flag::kKept, kMay, false,
       [](Array& a) {
         const Array& same = a;
         a += same, a -= same;
       }},
      {"SetEntry", Flag::kKept, kMay, false, [](Array& a) { a.SetEntry(2.5); }},
      {"Reset", Flag::kKept, kMay, false, [](Array& a) { a.Reset(2.5); }},
      {"Random", Flag::kCleared, kMay, false, [](Array& a) { a.Random(); }},
      {"a = b", Flag::kKept, kMay, true,
       [](Array& a) {
         if (Last(a) >= 0) a = Other(a);
       }},
      {"is >> a", Flag::kKept, kMay, true,
       [](Array& a) {
         std::ostringstream text;
         text << std::max(Last(a) + 1, 0) << ' ';
         for (int i = 0; i <= Last(a); ++i) text << i << ' ';
         const int size = a.size;
         std::istringstream(text.str()) >> a;
         a.size = size;  // that of an array without storage becomes 0
       }},
  };
  return all;
}

struct Kind {
  const char* name;
  std::function<double(int i, int n)> element;
};
const std::vector<Kind>& Kinds() {
  static const std::vector<Kind> all = {
      {"ascending", [](int i, int) { return i + 0.5; }},
      {"descending", [](int i, int n) { return n - i + 0.5; }},
      {"mixed", [](int i, int) { return i * 7919 % 1009 + 0.5; }},
      {"zeros of both signs", [](int i, int) { return i % 3 ? 0.0 : -0.0; }},
      {"NaNs", [](int i, int) { return i % 5 == 1 ? kNaN : i * 7919 % 101 + 0.5; }},
  };
  return all;
}

constexpr int kNoStorage = -1, kNegativeCount = -2;
constexpr std::size_t kBehind = 3;
constexpr double kElsewhere = 777.0;

/// `n` elements in a block with room for a few more; an array without storage, but with a count; or two elements with
/// a count of -2, as `>>` leaves them.
Array Make(const Kind& kind, int n) {
  if (n == kNoStorage) return WithoutStorage(3);
  Values v;
  for (int i = 0; i < n; ++i) v.push_back(kind.element(i, n));
  if (n == kNegativeCount) v = {2, 1};
  v.insert(v.end(), kBehind, kElsewhere);
  Array a = ArrayOf(v);
  a.size = n;
  return a;
}

/// What lies behind the count, and all of a block whose count is below 0, is as it was.
::testing::AssertionResult OthersAreKept(const Array& a, int n) {
  if (n == kNoStorage) return ::testing::AssertionSuccess();
  Values want(kBehind, kElsewhere);
  if (n == kNegativeCount) want.insert(want.begin(), {2, 1});
  return SameBits(a.data + std::max(n, 0), want.data(), want.size());
}

void Check(const Operation& operation, const Kind& kind, int n, int flag) {
  Array a = Make(kind, n);
  a.sorted = flag;
  const int size = a.size;
  double* const data = a.data;
  const Values before = ElementsOf(a);
  const long allocated = AllocationCount();
  operation.run(a);
  const long asked = AllocationCount() - allocated;
  const std::string what =
      std::string(operation.name) + " of " + std::to_string(n) + ' ' + kind.name;
  if (!operation.allocates) {
    EXPECT_EQ(asked, 0) << what;
  }
  ASSERT_EQ(a.size, size) << what;
  ASSERT_EQ(a.data, data) << what;
  if (operation.flag == Flag::kKept) {
    EXPECT_EQ(a.sorted, flag) << what;
  }
  if (operation.flag == Flag::kSet) {
    EXPECT_EQ(a.sorted, 1) << what;
  }
  if (operation.flag == Flag::kCleared) {
    EXPECT_EQ(a.sorted, 0) << what;
  }
  if (operation.elements == Elements::kKept) {
    EXPECT_TRUE(SameBits(ElementsOf(a), before)) << what;
  }
  EXPECT_TRUE(OthersAreKept(a, n)) << what;
  if (n < 0 || operation.flag == Flag::kCleared)
    return;                       // random numbers differ from second to second
  Array exact = ArrayOf(before);  // whose flag is another one, which the elements do not depend on
  operation.run(exact);
  EXPECT_TRUE(SameBits(ElementsOf(a), ElementsOf(exact))) << what;
}

void CheckEach(const std::vector<Operation>& operations) {
  for (const Operation& operation : operations)
    for (const Kind& kind : Kinds())
      for (const int n : {kNegativeCount, kNoStorage, 0, 1, 2, 3, 4, 5, 16, 17, 64, 65, 130, 600})
        for (const int flag : {0, 1, -7}) {
          ASSERT_NO_FATAL_FAILURE(Check(operation, kind, n, flag));
          if (testing::Test::HasFailure()) return;
        }
}

}  // namespace

TEST(DoubleArrayState, SortsChangeTheFlagAndTheElementsAtMost) {
  CheckEach(Sorts());
}

TEST(DoubleArrayState, ReadersChangeNothing) {
  CheckEach(Readers());
}

TEST(DoubleArrayState, WritersKeepTheCountAndTheBlock) {
  CheckEach(Writers());
}

TEST(DoubleArrayState, WhatLiesBehindTheCountIsNotRead) {
  const auto texts = [](Array& a) {
    std::ostringstream os;
    CString listed;
    os << a;
    a.Display(os);
    a.Display(listed);
    return os.str() + listed.GetString();
  };
  for (const Kind& kind : Kinds())
    for (const int n : {0, 1, 2, 3, 4, 5, 8, 16, 17, 33, 64, 130})
      for (const double other : {kElsewhere, -1e300, kInfinity, kNaN}) {
        SCOPED_TRACE(::testing::Message() << n << ' ' << kind.name << " before " << other);
        Array a = Make(kind, n);
        std::fill_n(a.data + n, kBehind, other);
        Array exact = ArrayOf(ElementsOf(a)), b = Make(kind, n);
        EXPECT_TRUE(SameBits(a.OneNorm(), exact.OneNorm()));
        EXPECT_TRUE(SameBits(a.TwoNorm(), exact.TwoNorm()));
        EXPECT_TRUE(SameBits(a.MaxNorm(), exact.MaxNorm()));
        EXPECT_TRUE(SameBits(ZEPH_ArrayDotProduct(a, b), ZEPH_ArrayDotProduct(exact, b)));
        EXPECT_EQ(a.Find(other), -1);
        EXPECT_EQ(a.Remove(other), 0);
        EXPECT_EQ(a.CheckSorted(), exact.CheckSorted());
        EXPECT_EQ(texts(a), texts(exact));
        for (const int flag : {0, 1}) {
          a.sorted = exact.sorted = flag;
          int at = -7;
          EXPECT_EQ(a.BinarySearch(other, at), 0);
          EXPECT_EQ(at, flag ? -7 : -1);
        }
      }
}

TEST(DoubleArrayState, OnlyTheBinarySearchTrustsTheFlag) {
  for (const Kind& kind : Kinds())
    for (const int n : {1, 2, 3, 4, 5, 9, 17, 40, 130}) {
      const Array plain = Make(kind, n);
      for (const int flag : {1, -7}) {
        SCOPED_TRACE(::testing::Message() << n << ' ' << kind.name << ", flag " << flag);
        Array a = Make(kind, n);
        a.sorted = flag;
        EXPECT_TRUE(SameBits(a.OneNorm(), plain.OneNorm()));
        EXPECT_TRUE(SameBits(a.TwoNorm(), plain.TwoNorm()));
        EXPECT_TRUE(SameBits(a.MaxNorm(), plain.MaxNorm()));
        EXPECT_TRUE(SameBits(ZEPH_ArrayDotProduct(a, a), ZEPH_ArrayDotProduct(plain, plain)));
        for (int i = 0; i < n; ++i) {
          EXPECT_EQ(a.Find(a[i]), Array(plain).Find(plain[i]));
        }
        EXPECT_TRUE(SameBits(ElementsOf(a + plain), ElementsOf(plain + plain)));
        EXPECT_TRUE(SameBits(ElementsOf(-a), ElementsOf(-plain)));
        EXPECT_TRUE(SameBits(ElementsOf(Array(a)), ElementsOf(plain)));
        EXPECT_EQ(a.CheckSorted(), Array(plain).CheckSorted());
      }
    }
}

TEST(DoubleArrayState, ANewSizeKeepsTheFlagAndMovesTheElements) {
  for (const int from : {-1, 0, 1, 2, 17, 64})
    for (const int to : {-5, -1, 0, 1, 2, 16, 17, 18, 65})
      for (const int keep : {0, 1, -1})
        for (const int flag : {0, 1, -7}) {
          Array a = Make(Kinds()[0], from);
          a.sorted = flag;
          const Values before = ElementsOf(a);
          const double* const block = a.data;
          const long live = LiveBlocks();
          a.Resize(to, keep);
          const std::string what = std::to_string(from) + " to " + std::to_string(to);
          EXPECT_EQ(a.sorted, flag) << what;
          EXPECT_EQ(a.size, std::max(to, 0)) << what;
          EXPECT_EQ(a.data == nullptr, to < 1) << what;
          if (InterceptsLibraryAllocations()) {
            EXPECT_EQ(LiveBlocks() - live, (a.data != nullptr) - (block != nullptr)) << what;
          }
          const std::size_t kept = keep ? std::min(before.size(), ElementsOf(a).size()) : 0;
          EXPECT_TRUE(SameBits(a.data, before.data(), kept)) << what;
        }
}

TEST(DoubleArrayState, RemovingKeepsTheFlagAndTheBlock) {
  for (const Kind& kind : Kinds())
    for (const int n : {1, 2, 3, 8, 17, 130})
      for (const int flag : {0, 1, -7})
        for (const int at : {0, n / 2, n - 1}) {
          Array a = Make(kind, n);
          const double x = a.data[at];
          if (x != x) continue;
          a.sorted = flag;
          const double* const block = a.data;
          const double last = a.data[n - 1];
          EXPECT_EQ(a.Remove(x), 1);
          EXPECT_TRUE(
              SameBits(a.GetEntry(n - 1), last));  // the place behind the last stays as it was
          EXPECT_EQ(a.sorted, flag) << kind.name;
          EXPECT_EQ(a.size, n - 1) << kind.name;
          EXPECT_EQ(a.data, block) << kind.name;
        }
}
