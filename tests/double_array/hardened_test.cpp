#include <functional>
#include <iostream>
#include <sstream>
#include <utility>

#include "double_array.h"
#include "linalg.h"
#include "support/hardened.h"

namespace {

using zeph::test::Use;

CZEPHDoubleArray Five() {
  double v[] = {5, 4, 3, 2, 1};
  return CZEPHDoubleArray(5, v);
}

/// Reads `text` into a block of five elements whose array has a smaller size.
void Read(const char* text) {
  CZEPHDoubleArray a = Five();
  a.size = 0;
  std::istringstream is(text);
  is >> a;
}

}  // namespace

TEST(HardenedDoubleArray, StopsAtAnIndexOutsideTheArray) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHDoubleArray::operator[]: i is -1, outside 0..4", {
    CZEPHDoubleArray a = Five();
    Use(a[-1]);
  });
  EXPECT_STOP("CZEPHDoubleArray::operator[]: i is 5, outside 0..4", {
    CZEPHDoubleArray a = Five();
    a[5] = 1.0;
  });
  EXPECT_STOP("CZEPHDoubleArray::operator[]: i is 5, outside 0..4", {
    const CZEPHDoubleArray a = Five();
    Use(a[5]);
  });
  EXPECT_STOP("CZEPHDoubleArray::operator[]: i is 3, but the array is empty", {
    CZEPHDoubleArray a = Five();
    a.size = 0;
    Use(a[3]);
  });
  EXPECT_STOP("CZEPHDoubleArray::Swap: j is 5, outside 0..4", Five().Swap(0, 5));
  EXPECT_STOP("CZEPHDoubleArray::Display: to is 5, outside 3..4", {
    CString out;
    Five().Display(out, 3, 5);
  });
}

TEST(HardenedDoubleArray, StopsAtAStreamedCountBeyondTheStorage) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("operator>>(CZEPHDoubleArray): count is 6, outside 0..5", Read("6 1 2 3 4 5 6"));
}

/// However the array got its block.
TEST(HardenedDoubleArray, StopsAtAStreamedCountBeyondABlockOfAnyOrigin) {
  ZEPH_SKIP_UNLESS_HARDENED();
  using Array = CZEPHDoubleArray;
  struct Open : Array {
    using Array::AllocMemory;
  };
  const Array a = Five(), b = Five();
  const std::function<Array()> origins[] = {
      [] { return Array(5, 1.0); },
      [] { return Array(5, 1); },
      [] { return Five(); },
      [&] { return Array(a); },
      [] { return Array(Five()); },
      [&] {
        Array assigned;
        assigned = a;
        return assigned;
      },
      [] {
        Open allocated;
        allocated.AllocMemory(5);
        return Array(std::move(allocated));
      },
      [] {
        Array resized;
        resized.Resize(5, 0);
        return resized;
      },
      [] {
        Array resized = Five();
        resized.Resize(7, 1);
        resized.Resize(5, 1);
        return resized;
      },
      [&] { return +a; },
      [&] { return -a; },
      [&] { return a + b; },
      [&] { return a + Five(); },
      [&] { return Five() + b; },
      [&] { return a - b; },
      [&] { return Five() - b; },
      [&] { return a * b; },
      [&] { return 2.0 * a; },
      [&] { return a * 2.0; },
      [&] { return a / 2.0; },
      [] { return CZEPHDoubleMatrix(5, 2, 1.0) * Array(2, 1.0); },
  };
  for (const auto& origin : origins)
    EXPECT_STOP_OF("operator>>(CZEPHDoubleArray): count is 6, outside 0..5", [&origin] {
      Array five = origin();
      std::istringstream("6 1 2 3 4 5 6") >> five;
    });
}

TEST(HardenedDoubleArray, StopsWithoutStorage) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHDoubleArray::operator[]: data is null", {
    CZEPHDoubleArray a;
    Use(a[0]);
  });
  EXPECT_STOP("CZEPHDoubleArray::recQuickSort: array.data is null",
              CZEPHDoubleArray().recQuickSort(0, 9, 3));
  EXPECT_STOP("CZEPHDoubleArray::Swap: data is null", CZEPHDoubleArray().Swap(0, 0));
}

TEST(HardenedDoubleArray, StopsAtARangeOutsideTheArray) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHDoubleArray::InsertionSort: right is 5, outside 0..4",
              Five().InsertionSort(0, 5));
  EXPECT_STOP("CZEPHDoubleArray::recQuickSort: left is -1, outside 0..4",
              Five().recQuickSort(-1, 4, 3));
  EXPECT_STOP("CZEPHDoubleArray::ManualSort: right is 5, outside 3..4", Five().ManualSort(3, 5));
  EXPECT_STOP("CZEPHDoubleArray::MedianOf3: right is 0, outside 1..4", Five().MedianOf3(0, 0));
  EXPECT_STOP("CZEPHDoubleArray::Partition: right is 5, outside 0..4", Five().Partition(0, 5, 3.0));
  EXPECT_STOP("CZEPHDoubleArray::QuickPartition: right is 3, outside 4..4",
              Five().QuickPartition(2, 3, 3.0));
}

TEST(HardenedDoubleArray, StopsAtAPartitionWithoutASentinel) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP(
      "CZEPHDoubleArray::QuickPartition: element left is above pivot, so nothing ends the scan",
      Five().QuickPartition(0, 4, 2.0));
  EXPECT_STOP(
      "CZEPHDoubleArray::QuickPartition: element right - 1 is below pivot, so nothing ends the "
      "scan",
      Five().QuickPartition(0, 4, 9.0));
  EXPECT_STOP(
      "CZEPHDoubleArray::QuickPartition: element right - 1 is below pivot, so nothing ends the "
      "scan",
      {
        CZEPHDoubleArray a(3, 0.0);
        a[2] = 9;  // the one behind does not end it
        a.QuickPartition(0, 2, 5.0);
      });
  EXPECT_STOP(
      "CZEPHDoubleArray::QuickPartition: element left is above pivot, so nothing ends the scan", {
        double v[] = {0, 9, 1, 5, 7};  // the one before does not end it
        CZEPHDoubleArray(5, v).QuickPartition(1, 4, 5.0);
      });
}

TEST(HardenedDoubleArray, StopsAtARightOperandThatIsTooShort) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("operator*(CZEPHDoubleArray, CZEPHDoubleArray): b.size is 3, outside 5..2147483647",
              Five() * CZEPHDoubleArray(3, 1.0));
  EXPECT_STOP("ZEPH_ArrayDotProduct: b.size is 3, outside 5..2147483647",
              ZEPH_ArrayDotProduct(Five(), CZEPHDoubleArray(3, 1.0)));
}

TEST(HardenedDoubleArray, StopsAtNullBlocksAndMessages) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHDoubleArray::MergeSortedArray: b is null", {
    double a = 1;
    CZEPHDoubleArray().MergeSortedArray(&a, 1, nullptr, 1, &a);
  });
  EXPECT_STOP("CZEPHDoubleArray::ErrorMessage: message is null",
              CZEPHDoubleArray::ErrorMessage(static_cast<char*>(nullptr), std::cout));
}

TEST(HardenedDoubleArray, AllowsEverythingDocumented) {
  ZEPH_SKIP_UNLESS_HARDENED();
  Read("5 1 2 3 4 5");
  {  // whole array
    CZEPHDoubleArray a = Five();
    a.InsertionSort(0, 4);
    a.recQuickSort(0, 4, 3);
    a.Swap(0, 4);
    Use(a[0] + a[4]);
  }
  {  // count itself
    CZEPHDoubleArray a = Five();
    a.Resize(6, 1);
    a.size = 5;
    a.CheckBound(5);
    Use(a.GetEntry(5));
  }
  {  // empty ranges
    CZEPHDoubleArray a;
    CString out;
    a.Display(out, 0, 5);
    a.InsertionSort(3, 2);
    a.recQuickSort(9, 0, 3);
    a.ManualSort(1, 0);
    a.ManualSort(9, 9);  // one element or none: nothing is done
    a.InsertionSort(9, 9);
    a.recQuickSort(9, 9, 3);
    a.Partition(1, 0, 0.0);
  }
  {  // a block of the program's own, whose length is not known
    double own[6];
    CZEPHDoubleArray a;
    a.data = own;
    std::istringstream("6 1 2 3 4 5 6") >> a;
    a.data = nullptr;
  }
  {  // longer right
    CZEPHDoubleArray b(9, 1.0);
    Five() * b;
    ZEPH_ArrayDotProduct(Five(), b);
  }
  {  // either side without storage, whatever its count
    CZEPHDoubleArray none(-1, 0.0);
    for (const int count : {-1, 0, 3, 9}) {
      none.size = count;
      Five() * none;
      none* Five();
      ZEPH_ArrayDotProduct(Five(), none);
      ZEPH_ArrayDotProduct(none, Five());
    }
  }
  {  // nothing to display
    CString out;
    Five().Display(out, 3, 2);
    Five().Display(out, 30, -30);
    Five().Display(out, 9, 8);
  }
  {  // a greater element in front of the piece
    double v[] = {9, 0, 1, 5, 7};
    CZEPHDoubleArray(5, v).QuickPartition(1, 4, 5.0);
  }
  CZEPHDoubleArray().MergeSortedArray(nullptr, 0, nullptr, 0, nullptr);
  {  // parted piece
    CZEPHDoubleArray a = Five();
    a.QuickPartition(0, 4, a.MedianOf3(0, 4));
  }
  {  // a sentinel before a lesser element
    CZEPHDoubleArray a(3, 0.0);
    a[1] = 9;
    a.QuickPartition(0, 2, 5.0);
  }
}

TEST(HardenedDoubleArray, StopsAtEachEndOfEachRange) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("CZEPHDoubleArray::Swap: i is -1, outside 0..4", Five().Swap(-1, 0));
  EXPECT_STOP("CZEPHDoubleArray::Swap: i is 5, outside 0..4", Five().Swap(5, 0));
  EXPECT_STOP("CZEPHDoubleArray::Swap: j is -1, outside 0..4", Five().Swap(0, -1));
  EXPECT_STOP("CZEPHDoubleArray::Display: from is -1, outside 0..4", {
    CString out;
    Five().Display(out, -1, 3);
  });
  EXPECT_STOP("CZEPHDoubleArray::Display: from is 5, outside 0..4", {
    CString out;
    Five().Display(out, 5, 6);
  });
  EXPECT_STOP("CZEPHDoubleArray::InsertionSort: left is -1, outside 0..4",
              Five().InsertionSort(-1, 4));
  EXPECT_STOP("CZEPHDoubleArray::InsertionSort: right is 5, outside 1..4",
              Five().InsertionSort(1, 5));
  EXPECT_STOP("CZEPHDoubleArray::InsertionSort: array.data is null",
              CZEPHDoubleArray().InsertionSort(0, 4));
  EXPECT_STOP("CZEPHDoubleArray::recQuickSort: left is -1, outside 0..4",
              Five().recQuickSort(-1, 4, 3));
  EXPECT_STOP("CZEPHDoubleArray::recQuickSort: right is 5, outside 1..4",
              Five().recQuickSort(1, 5, 3));
  EXPECT_STOP("CZEPHDoubleArray::recQuickSort: array.data is null",
              CZEPHDoubleArray().recQuickSort(0, 4, 3));
  EXPECT_STOP("CZEPHDoubleArray::ManualSort: left is -1, outside 0..4", Five().ManualSort(-1, 4));
  EXPECT_STOP("CZEPHDoubleArray::ManualSort: right is 5, outside 1..4", Five().ManualSort(1, 5));
  EXPECT_STOP("CZEPHDoubleArray::ManualSort: array.data is null",
              CZEPHDoubleArray().ManualSort(0, 4));
  EXPECT_STOP("CZEPHDoubleArray::Partition: left is -1, outside 0..4",
              Five().Partition(-1, 4, 3.0));
  EXPECT_STOP("CZEPHDoubleArray::Partition: right is 5, outside 1..4", Five().Partition(1, 5, 3.0));
  EXPECT_STOP("CZEPHDoubleArray::Partition: array.data is null",
              CZEPHDoubleArray().Partition(0, 4, 3.0));
  EXPECT_STOP("CZEPHDoubleArray::QuickPartition: left is -1, outside 0..4",
              Five().QuickPartition(-1, 4, 3.0));
  EXPECT_STOP("CZEPHDoubleArray::QuickPartition: right is 5, outside 1..4",
              Five().QuickPartition(1, 5, 3.0));
  EXPECT_STOP("CZEPHDoubleArray::QuickPartition: array.data is null",
              CZEPHDoubleArray().QuickPartition(0, 4, 3.0));
  EXPECT_STOP("CZEPHDoubleArray::MedianOf3: left is -1, outside 0..4", Five().MedianOf3(-1, 4));
  EXPECT_STOP("CZEPHDoubleArray::MedianOf3: left is 5, outside 0..4", Five().MedianOf3(5, 4));
  EXPECT_STOP("CZEPHDoubleArray::MedianOf3: right is 5, outside 1..4", Five().MedianOf3(0, 5));
  EXPECT_STOP("CZEPHDoubleArray::MedianOf3: data is null", CZEPHDoubleArray().MedianOf3(0, 1));
  EXPECT_STOP("CZEPHDoubleArray::MergeSortedArray: a is null", {
    double b[3] = {1};
    CZEPHDoubleArray().MergeSortedArray(nullptr, 1, b, 1, b + 1);
  });
  EXPECT_STOP("CZEPHDoubleArray::MergeSortedArray: out is null", {
    double b[3] = {1};
    CZEPHDoubleArray().MergeSortedArray(b, 1, b, 0, nullptr);
  });
  EXPECT_STOP("CZEPHDoubleArray::MergeSortedArray: out is null", {
    double b[3] = {1};
    CZEPHDoubleArray().MergeSortedArray(b, 0, b, 1, nullptr);
  });
  EXPECT_STOP("CZEPHDoubleArray::operator[]: i is -1, outside 0..4", {
    const CZEPHDoubleArray a = Five();
    Use(a[-1]);
  });
  EXPECT_STOP("CZEPHDoubleArray::operator[]: data is null", {
    const CZEPHDoubleArray a;
    Use(a[0]);
  });
}
