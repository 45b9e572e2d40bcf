// Exceptions that an application's allocation operator throws for reasons of its own reach the
// caller: only exhausted memory ends an operation silently.
#include <gtest/gtest.h>

#include <functional>

#include "double_array.h"
#include "linalg.h"
#include "raw_buffers.h"
#include "support/allocation.h"

namespace zeph::test {
namespace {

bool Passes(const std::function<void()>& call) {
  try {
    const FailAllocation failing(1, false, Failure::kOther);
    call();
  } catch (int) {
    return true;
  }
  return false;
}

}  // namespace

TEST(OtherExceptions, PropagateFromEveryAllocation) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  EXPECT_TRUE(Passes([] { const CZEPHDoubleArray a(3, 1.0); }));
  EXPECT_TRUE(Passes([] { const CZEPHDoubleMatrix m(2, 2, 1.0); }));
  EXPECT_TRUE(Passes([] { ZEPH_ArrayAllocDouble(nullptr, 0, 3); }));
  EXPECT_TRUE(Passes([] { ZEPH_ArrayAllocInt(nullptr, 0, 3); }));
  EXPECT_TRUE(Passes([] { ZEPH_MatrixAllocFloat(nullptr, 2, 2); }));
  EXPECT_TRUE(Passes([] { ZEPH_MatrixAllocLong(nullptr, 2, 2); }));
  EXPECT_TRUE(Passes([] { const CZEPHVector v(3); }));
  EXPECT_TRUE(Passes([] { const CString text("a text of more than fifteen characters"); }));
  CObList list;
  EXPECT_TRUE(Passes([&] { list.AddTail(nullptr); }));
  EXPECT_TRUE(list.IsEmpty());
}

}  // namespace zeph::test
