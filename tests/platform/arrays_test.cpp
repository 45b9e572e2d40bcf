#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "platform.h"
#include "support/allocation.h"
#include "support/numbers.h"

namespace {

class Thing : public CObject {};
Thing things[10];

/// The i-th element value of an array's type; 0 returns its null.
template <class T>
T Element(int i) {
  if constexpr (std::is_pointer_v<T>)
    return i ? &things[i % 10] : nullptr;
  else
    return static_cast<T>(i);
}

/// Gives access to the protected fields.
template <class Array, class T>
struct Shown : Array {
  using Type = T;
  using Array::m_nGrowBy;
  using Array::m_nMaxSize;
  using Array::m_nSize;
  using Array::m_pData;

  std::vector<T> Content() const { return {m_pData, m_pData + m_nSize}; }
  void Fill(int n) {
    this->SetSize(n);
    for (int i = 0; i < n; ++i) this->SetAt(i, Element<T>(i + 1));
  }
};

template <class T>
std::vector<T> Elements(std::initializer_list<int> numbers) {
  std::vector<T> elements;
  for (int i : numbers) elements.push_back(Element<T>(i));
  return elements;
}

template <class S>
class Array : public ::testing::Test {};
using Kinds = ::testing::Types<Shown<CObArray, CObject*>, Shown<CUIntArray, unsigned int>,
                               Shown<CWordArray, unsigned short>>;
struct KindName {
  template <class S>
  static std::string GetName(int) {
    using T = typename S::Type;
    return std::is_pointer_v<T> ? "CObArray" : sizeof(T) == 4 ? "CUIntArray" : "CWordArray";
  }
};
TYPED_TEST_SUITE(Array, Kinds, KindName);

}  // namespace

TYPED_TEST(Array, StartsEmptyWithoutStorage) {
  const TypeParam a;
  EXPECT_TRUE(a.IsEmpty());
  EXPECT_EQ(a.GetSize(), 0);
  EXPECT_EQ(a.GetCount(), 0);
  EXPECT_EQ(a.GetUpperBound(), -1);
  EXPECT_EQ(a.GetData(), nullptr);
  EXPECT_EQ(a.m_nMaxSize, 0);
  EXPECT_EQ(a.m_nGrowBy, 0);
}

TYPED_TEST(Array, FirstSizeAllocatesExactlyThatMuchAndSetsNulls) {
  using T = typename TypeParam::Type;
  TypeParam a;
  a.SetSize(3);
  EXPECT_EQ(a.m_nMaxSize, 3);
  EXPECT_EQ(a.Content(), Elements<T>({0, 0, 0}));
}

TYPED_TEST(Array, FirstSizeAllocatesAtLeastOneGrowthStep) {
  TypeParam a;
  a.SetSize(3, 64);
  EXPECT_EQ(a.m_nGrowBy, 64);
  EXPECT_EQ(a.m_nMaxSize, 64);
  a.SetSize(65);  // keeps the setting
  EXPECT_EQ(a.m_nGrowBy, 64);
  EXPECT_EQ(a.m_nMaxSize, 128);
  a.SetSize(1000);
  EXPECT_EQ(a.m_nMaxSize, 1000);
  a.SetSize(1000, 0);  // back to growth by size
  EXPECT_EQ(a.m_nGrowBy, 0);
}

TYPED_TEST(Array, GrowsByOneElementForAGrowthSizeOfOne) {
  TypeParam a;
  a.SetSize(5, 1);
  a.SetSize(6);
  EXPECT_EQ(a.m_nMaxSize, 6);
}

TYPED_TEST(Array, DoublesItsStorageWithoutAGrowthSize) {
  TypeParam a;
  a.SetSize(3);
  a.SetSize(4);
  EXPECT_EQ(a.m_nMaxSize, 6);
  a.SetSize(80);
  EXPECT_EQ(a.m_nMaxSize, 80);
  a.SetSize(81);
  EXPECT_EQ(a.m_nMaxSize, 160);
  a.SetSize(20000);
  a.SetSize(20001);
  EXPECT_EQ(a.m_nMaxSize, 40000);
}

TYPED_TEST(Array, AddTakesAmortisedConstantTime) {
  using T = typename TypeParam::Type;
  TypeParam a;
  int moves = 0;
  const T* storage = a.GetData();
  for (int i = 0; i < 1'000'000; ++i) {
    ASSERT_EQ(a.Add(Element<T>(i)), i) << "i " << i;
    moves += a.GetData() != storage;
    storage = a.GetData();
  }
  EXPECT_LE(moves, 20);
  EXPECT_EQ(a.GetSize(), 1'000'000);
  for (int i = 0; i < 1'000'000; i += 999) ASSERT_EQ(a[i], Element<T>(i)) << "i " << i;
}

TYPED_TEST(Array, ShrinkingKeepsStorageAndRegrowingSetsNulls) {
  using T = typename TypeParam::Type;
  TypeParam a;
  a.Fill(4);
  const T* storage = a.GetData();
  a.SetSize(2);
  EXPECT_EQ(a.m_nMaxSize, 4);
  a.SetSize(4);
  EXPECT_EQ(a.GetData(), storage);
  EXPECT_EQ(a.Content(), Elements<T>({1, 2, 0, 0}));
}

TYPED_TEST(Array, SizeZeroAndRemoveAllReleaseTheStorage) {
  TypeParam a;
  a.Fill(4);
  a.SetSize(0, 7);
  EXPECT_EQ(a.m_pData, nullptr);
  EXPECT_EQ(a.m_nMaxSize, 0);
  EXPECT_EQ(a.m_nGrowBy, 7);
  a.Fill(4);
  a.RemoveAll();
  EXPECT_EQ(a.m_pData, nullptr);
  EXPECT_EQ(a.m_nMaxSize, 0);
  EXPECT_EQ(a.GetSize(), 0);
  EXPECT_EQ(a.m_nGrowBy, 7);
}

TYPED_TEST(Array, FreeExtraCutsTheStorageToTheElements) {
  using T = typename TypeParam::Type;
  TypeParam a;
  a.SetSize(0, 50);
  a.Add(Element<T>(1));
  a.Add(Element<T>(2));
  EXPECT_EQ(a.m_nMaxSize, 50);
  a.FreeExtra();
  EXPECT_EQ(a.m_nMaxSize, 2);
  EXPECT_EQ(a.Content(), Elements<T>({1, 2}));
  const T* const storage = a.m_pData;
  a.FreeExtra();
  EXPECT_EQ(a.m_pData, storage);  // nothing extra, nothing moved
  a.RemoveAt(0, 2);
  a.FreeExtra();
  EXPECT_EQ(a.m_pData, nullptr);
}

TYPED_TEST(Array, AddsAtTheEndAndReturnsTheIndex) {
  using T = typename TypeParam::Type;
  TypeParam a;
  EXPECT_EQ(a.Add(Element<T>(5)), 0);
  EXPECT_EQ(a.Add(Element<T>(6)), 1);
  EXPECT_EQ(a.Content(), Elements<T>({5, 6}));
}

TYPED_TEST(Array, ReadsAndWritesThroughEveryAccessor) {
  using T = typename TypeParam::Type;
  TypeParam a;
  a.Fill(3);
  a[1] = Element<T>(7);
  a.ElementAt(2) = Element<T>(8);
  a.SetAt(0, Element<T>(9));
  const TypeParam& c = a;
  EXPECT_EQ(c[0], Element<T>(9));
  EXPECT_EQ(c.GetAt(1), Element<T>(7));
  EXPECT_EQ(c.GetData()[2], Element<T>(8));
  a.GetData()[2] = Element<T>(3);
  EXPECT_EQ(a[2], Element<T>(3));
}

TYPED_TEST(Array, SetAtGrowFillsTheGapWithNulls) {
  using T = typename TypeParam::Type;
  TypeParam a;
  a.SetAtGrow(3, Element<T>(4));
  EXPECT_EQ(a.Content(), Elements<T>({0, 0, 0, 4}));
  a.SetAtGrow(1, Element<T>(2));
  EXPECT_EQ(a.Content(), Elements<T>({0, 2, 0, 4}));
}

TYPED_TEST(Array, InsertsCopiesAnywhere) {
  using T = typename TypeParam::Type;
  TypeParam a;
  a.Fill(3);
  a.InsertAt(1, Element<T>(9), 2);
  EXPECT_EQ(a.Content(), Elements<T>({1, 9, 9, 2, 3}));
  a.InsertAt(5, Element<T>(8));
  EXPECT_EQ(a.Content(), Elements<T>({1, 9, 9, 2, 3, 8}));
  a.InsertAt(8, Element<T>(7), 2);
  EXPECT_EQ(a.Content(), Elements<T>({1, 9, 9, 2, 3, 8, 0, 0, 7, 7}));
  a.InsertAt(0, Element<T>(6));
  EXPECT_EQ(a.Content(), Elements<T>({6, 1, 9, 9, 2, 3, 8, 0, 0, 7, 7}));
}

TYPED_TEST(Array, KeepsItsGrowthSizeWhereAnInsertionNeedsRoom) {
  using T = typename TypeParam::Type;
  TypeParam a;
  a.SetSize(2, 7);
  a.InsertAt(1, Element<T>(9), 3);
  EXPECT_EQ(a.m_nGrowBy, 7);
  a.SetAtGrow(9, Element<T>(9));
  EXPECT_EQ(a.m_nGrowBy, 7);
  EXPECT_EQ(a.m_nMaxSize, 14);
}

TYPED_TEST(Array, NamesASizeBeyondAllMemoryInItsRefusal) {
  using T = typename TypeParam::Type;
  TypeParam a;
  a.Fill(3);
  try {
    a.InsertAt(1, Element<T>(9), PTRDIFF_MAX);
    FAIL() << "nothing was thrown";
  } catch (const std::out_of_range& refusal) {
    EXPECT_NE(std::string(refusal.what()).find("a size beyond all memory"), std::string::npos);
  }
}

TYPED_TEST(Array, RemovesElementsAnywhereAndKeepsStorage) {
  using T = typename TypeParam::Type;
  TypeParam a;
  a.Fill(6);
  a.RemoveAt(1, 2);
  EXPECT_EQ(a.Content(), Elements<T>({1, 4, 5, 6}));
  a.RemoveAt(3);
  EXPECT_EQ(a.Content(), Elements<T>({1, 4, 5}));
  a.RemoveAt(3, 0);
  a.RemoveAt(0, 3);
  EXPECT_TRUE(a.IsEmpty());
  EXPECT_EQ(a.m_nMaxSize, 6);
}

TYPED_TEST(Array, RefusesBadArgumentsAndStaysUnchanged) {
  using T = typename TypeParam::Type;
  TypeParam a;
  a.Fill(3);
  const T x = Element<T>(9);
  EXPECT_THROW(a.GetAt(3), std::out_of_range);
  EXPECT_THROW(a.GetAt(-1), std::out_of_range);
  EXPECT_THROW(a[3], std::out_of_range);
  EXPECT_THROW(static_cast<const TypeParam&>(a)[-1], std::out_of_range);
  EXPECT_THROW(a.ElementAt(3), std::out_of_range);
  EXPECT_THROW(a.SetAt(3, x), std::out_of_range);
  EXPECT_THROW(a.SetSize(-1, 5), std::out_of_range);
  EXPECT_THROW(a.SetAtGrow(-1, x), std::out_of_range);
  EXPECT_THROW(a.InsertAt(-1, x), std::out_of_range);
  EXPECT_THROW(a.InsertAt(0, x, 0), std::out_of_range);
  EXPECT_THROW(a.InsertAt(0, x, -1), std::out_of_range);
  EXPECT_THROW(a.InsertAt(1, x, PTRDIFF_MAX), std::out_of_range);
  EXPECT_THROW(a.SetAtGrow(PTRDIFF_MAX, x), std::out_of_range);
  EXPECT_THROW(a.RemoveAt(-1), std::out_of_range);
  EXPECT_THROW(a.RemoveAt(2, 2), std::out_of_range);
  EXPECT_THROW(a.RemoveAt(1, PTRDIFF_MAX), std::out_of_range);
  EXPECT_THROW(a.RemoveAt(3), std::out_of_range);
  EXPECT_THROW(a.RemoveAt(0, -1), std::out_of_range);
  EXPECT_EQ(a.Content(), Elements<T>({1, 2, 3}));
  EXPECT_EQ(a.m_nGrowBy, 0);
}

TYPED_TEST(Array, StaysUnchangedWhenMemoryRunsOut) {
  using T = typename TypeParam::Type;
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  TypeParam a;
  a.Fill(3);
  {
    zeph::test::FailAllocation failing(1, true, zeph::test::Failure::kBadAlloc);
    EXPECT_THROW(a.SetSize(100), std::bad_alloc);
    EXPECT_THROW(a.SetSize(100, 7), std::bad_alloc);
    EXPECT_THROW(a.Add(Element<T>(1)), std::bad_alloc);
    EXPECT_THROW(a.InsertAt(0, Element<T>(1)), std::bad_alloc);
  }
  {
    zeph::test::FailAllocation failing(1, false, zeph::test::Failure::kMemoryException);
    try {
      a.SetSize(100);
      ADD_FAILURE() << "the exception must reach the caller";
    } catch (CMemoryException* exception) {
      exception->Delete();
    }
  }
  EXPECT_EQ(a.Content(), Elements<T>({1, 2, 3}));
  EXPECT_EQ(a.m_nMaxSize, 3);
  EXPECT_EQ(a.m_nGrowBy, 0);
  a.SetSize(2);
  {
    zeph::test::FailAllocation failing(1, true, zeph::test::Failure::kBadAlloc);
    EXPECT_THROW(a.FreeExtra(), std::bad_alloc);
  }
  EXPECT_EQ(a.Content(), Elements<T>({1, 2}));
  EXPECT_EQ(a.m_nMaxSize, 3);
}

TYPED_TEST(Array, ReleasesWhatItAllocated) {
  const long before = zeph::test::LiveBlocks();
  {
    TypeParam a;
    a.Fill(100);
    a.SetSize(1000);
    a.SetSize(10);
    a.FreeExtra();
  }
  EXPECT_EQ(zeph::test::LiveBlocks(), before);
}

TYPED_TEST(Array, AgreesWithAVectorOverRandomChanges) {
  using T = typename TypeParam::Type;
  zeph::test::Random random(7);
  TypeParam a;
  std::vector<T> want;
  for (int step = 0; step < 4000; ++step) {
    const T x = Element<T>(random.Int(0, 9));
    const auto at = random.Below(want.size() + 1);
    const auto n = static_cast<std::ptrdiff_t>(at);
    switch (random.Below(6)) {
      case 0:
        a.Add(x);
        want.push_back(x);
        break;
      case 1:
        a.InsertAt(n, x, 3);
        want.insert(want.begin() + n, 3, x);
        break;
      case 2:
        a.RemoveAt(n, static_cast<std::ptrdiff_t>(want.size()) - n > 1 ? 2 : 0);
        if (want.size() - at > 1) want.erase(want.begin() + n, want.begin() + n + 2);
        break;
      case 3:
        a.SetSize(n, random.Int(-1, 5));
        want.resize(at);
        break;
      case 4:
        a.SetAtGrow(n + 2, x);
        if (want.size() < at + 3) want.resize(at + 3);
        want[at + 2] = x;
        break;
      default:
        a.FreeExtra();
    }
    ASSERT_EQ(a.Content(), want) << "step " << step;
    ASSERT_GE(a.m_nMaxSize, a.GetSize()) << "step " << step;
  }
}

TEST(ArrayRefusal, NamesTheOperationAndTheBounds) {
  CWordArray a;
  a.SetSize(3);
  try {
    a.GetAt(7);
    ADD_FAILURE();
  } catch (const std::out_of_range& refusal) {
    EXPECT_STREQ(refusal.what(), "CWordArray::GetAt: index 7 is outside 0..2");
  }
}

TEST(ArrayRefusal, SaysThatAnEmptyArrayHasNoElements) {
  try {
    CWordArray().GetAt(3);
    ADD_FAILURE();
  } catch (const std::out_of_range& refusal) {
    EXPECT_STREQ(refusal.what(), "CWordArray::GetAt: index 3 is refused: there are no elements");
  }
}
