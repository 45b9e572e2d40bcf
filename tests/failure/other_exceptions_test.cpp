// Exceptions that an application's allocation operator throws for reasons of its own reach the
// caller: only exhausted memory ends an operation silently.
#include <gtest/gtest.h>

#include <functional>
#include <thread>

#include "containers.h"
#include "double_array.h"
#include "linalg.h"
#include "raw_buffers.h"
#include "raw_buffers/families.h"
#include "support/allocation.h"

namespace zeph::test {
namespace {

/// What reaches the caller where the `k`-th allocation fails in that way, in the terms of Failure.
Failure Caught(Failure how, const std::function<void()>& call, long k = 1) {
  try {
    const FailAllocation failing(k, false, how);
    call();
  } catch (int) {
    return Failure::kOther;
  } catch (const OwnException&) {
    return Failure::kOwn;
  }
  return Failure::kNull;
}

void ExpectToPass(const char* operation, const std::function<void()>& call) {
  for (const Failure how : {Failure::kOther, Failure::kOwn})
    EXPECT_EQ(Caught(how, call), how) << operation;
}

class OtherExceptions : public ::testing::Test {
 protected:
  void SetUp() override { ZEPH_NEEDS_LIBRARY_ALLOCATIONS(); }
};

}  // namespace

TEST_F(OtherExceptions, PassThroughRawBuffers) {
  ForEachElementType([](auto zero) {
    using T = decltype(zero);
    long bytes = 0;
    ExpectToPass("array", [] { Family<T>::Alloc(0, 3); });
    ExpectToPass("array with its size", [&] { Family<T>::Alloc(0, 3, bytes); });
    ExpectToPass("matrix", [] { Family<T>::Matrix(2, 2); });
    ExpectToPass("matrix with its size", [&] { Family<T>::Matrix(2, 2, bytes); });
    ExpectToPass("matrix of ranges", [] { Family<T>::Matrix(1, 2, 1, 2); });
    ExpectToPass("matrix of ranges with its size", [&] { Family<T>::Matrix(1, 2, 1, 2, bytes); });
    T* const old = Family<T>::Alloc(0, 3);
    ExpectToPass("realloc", [=] { ZEPH_ArrayRealloc(old, 3, 5, nullptr); });
    ExpectToPass("resize", [=] { ZEPH_ArrayResize(old, 4, 6); });
    ZEPH_ArrayFree(old, 0, 3);
    T** const rows = Family<T>::Matrix(2, 2);
    ExpectToPass("matrix resize", [=] { ZEPH_MatrixResize(rows, 1, 1, 2, 2); });
    ZEPH_MatrixFree(rows, 2, 2);
  });
}

TEST_F(OtherExceptions, PassThroughArraysOfDoubles) {
  const CZEPHDoubleArray a(3, 1.0);
  CZEPHDoubleArray own(a);
  ExpectToPass("a constructor", [] { const CZEPHDoubleArray fresh(3, 1.0); });
  ExpectToPass("copy", [&] { const CZEPHDoubleArray copy(a); });
  ExpectToPass("assignment to an empty one", [&] {
    CZEPHDoubleArray empty;
    empty = a;
  });
  ExpectToPass("+", [&] { a + a; });
  ExpectToPass("*", [&] { a * 2.0; });
  ExpectToPass("unary -", [&] { -a; });
  ExpectToPass("Resize", [&] { own.Resize(9, 1); });
  CString text;
  ExpectToPass("Display", [&] { CZEPHDoubleArray(own).Display(text); });
}

TEST_F(OtherExceptions, PassThroughMatricesAndVectors) {
  ExpectToPass("double matrix", [] { const CZEPHDoubleMatrix m(2, 2, 1.0); });
  ExpectToPass("general matrix", [] { const CZEPHMatrix m(2, 2); });
  ExpectToPass("vector", [] { const CZEPHVector v(3); });
  const CZEPHDoubleMatrix m(2, 2, 1.0);
  ExpectToPass("copy of a double matrix", [&] { const CZEPHDoubleMatrix copy(m); });
  ExpectToPass("sum of double matrices", [&] { m + m; });
  CZEPHVector v(3);
  ExpectToPass("sum of vectors", [&] { v + v; });
}

// The fourth request of a thread's first negation, after those of the result, is for what it keeps.
TEST_F(OtherExceptions, PassThroughAThreadsFirstNegation) {
  for (const Failure how : {Failure::kOther, Failure::kOwn}) {
    const long before = LiveBlocks();
    Failure caught = Failure::kNull;
    std::thread([&] {
      CZEPHDoubleMatrix m(2, 2, 3.0);
      caught = Caught(
          how, [&] { -m; }, 4);
    }).join();
    EXPECT_EQ(caught, how);
    EXPECT_EQ(LiveBlocks(), before);
  }
}

TEST_F(OtherExceptions, PassThroughCollectionsAndTexts) {
  CObList list;
  ExpectToPass("list", [&] { list.AddTail(nullptr); });
  EXPECT_TRUE(list.IsEmpty());
  CUIntArray array;
  ExpectToPass("array", [&] { array.Add(1); });
  EXPECT_TRUE(array.IsEmpty());
  int object = 0;
  CZEPHStack stack;
  ExpectToPass("stack", [&] { stack.Push(&object); });
  EXPECT_FALSE(stack.m_pTop);
  ExpectToPass("text", [] { const CString text("a text of more than fifteen characters"); });
  CString text("short");
  ExpectToPass("formatted text", [&] { text.Format("%060d", 1); });
  EXPECT_STREQ("short", text);
}

}  // namespace zeph::test
