// The double array: its state after each failed allocation.
#include <cstring>
#include <optional>
#include <utility>

#include "double_array/arrays.h"
#include "failure/operations.h"

using namespace zeph::test;

using DoubleArrayFailure = AllocationFailure;

namespace {

using Slot = std::optional<CZEPHDoubleArray>;

Slot NoArray() {
  return Slot();
}

struct Operands {
  CZEPHDoubleArray a = ArrayOf({3, 1, 2}), b = ArrayOf({4, 5, 6});
  Slot result;
  bool empty = false;
};
Operands MakeOperands() {
  return Operands();
}

/// Has its size and no storage.
bool Empty(const Slot& slot) {
  return slot && slot->size == 3 && !slot->data;
}
bool OperandsStay(const Operands& s) {
  return SameBits(ElementsOf(s.a), {3, 1, 2}) && SameBits(ElementsOf(s.b), {4, 5, 6});
}
/// Inspects a result without moving it: moving one without storage would allocate.
void Note(Operands& s, const CZEPHDoubleArray& result) {
  s.empty = result.size == 3 && !result.data;
}
bool ResultIsEmpty(const Operands& s) {
  return s.empty && OperandsStay(s);
}

template <class Call>
void ExpectEmptyResult(const char* name, Call call) {
  ExpectOnFailure({name, 1, Ending::kSilent}, MakeOperands, call, ResultIsEmpty);
}

}  // namespace

TEST_F(DoubleArrayFailure, ConstructorsSetTheSizeWithoutStorage) {
  const auto construct = [](const char* name, auto call) {
    ExpectOnFailure({name, 1, Ending::kSilent}, NoArray, call, Empty);
  };
  double source[] = {1, 2, 3};
  const CZEPHDoubleArray whole(3, 1.0);
  construct("(n, v)", [](Slot& s) { s.emplace(3, 1.0); });
  construct("(n, whole v)", [](Slot& s) { s.emplace(3, 1); });
  construct("(n, src)", [&](Slot& s) { s.emplace(3, source); });
  construct("(n, const src)", [&](Slot& s) { s.emplace(3, static_cast<const double*>(source)); });
  construct("copy", [&](Slot& s) { s.emplace(whole); });
  ExpectNoRequest("()", NoArray, [](Slot& s) { s.emplace(); });
  ExpectNoRequest("move", MakeOperands, [](Operands& s) { s.result.emplace(std::move(s.a)); });
  CZEPHDoubleArray hollow = WithoutStorage(3);
  construct("move of an array without storage", [&](Slot& s) { s.emplace(std::move(hollow)); });
}

TEST_F(DoubleArrayFailure, OperatorsReturnTheSizeWithoutStorage) {
  ExpectEmptyResult("+", [](Operands& s) { Note(s, s.a + s.b); });
  ExpectEmptyResult("-", [](Operands& s) { Note(s, s.a - s.b); });
  ExpectEmptyResult("*", [](Operands& s) { Note(s, s.a * s.b); });
  ExpectEmptyResult("unary +", [](Operands& s) { Note(s, +s.a); });
  ExpectEmptyResult("unary -", [](Operands& s) { Note(s, -s.a); });
  ExpectEmptyResult("s *", [](Operands& s) { Note(s, 2.0 * s.a); });
  ExpectEmptyResult("* s", [](Operands& s) { Note(s, s.a * 2.0); });
  ExpectEmptyResult("/", [](Operands& s) { Note(s, s.a / 2.0); });
}

TEST_F(DoubleArrayFailure, ResizeThrowsAndKeepsTheArray) {
  const auto resize = [](const char* name, int n, int keep) {
    ExpectOnFailure(
        {name, 1, Ending::kPasses}, MakeOperands, [=](Operands& s) { s.a.Resize(n, keep); },
        OperandsStay);
  };
  resize("grow", 9, 1);
  resize("grow and drop", 9, 0);
  resize("shrink", 2, 1);
  resize("same size", 3, 1);
  ExpectNoRequest("release", MakeOperands, [](Operands& s) { s.a.Resize(0, 1); });
}

TEST_F(DoubleArrayFailure, AssignmentToAnEmptyArrayCopiesNothing) {
  const auto empty = [] {
    Operands s;
    s.result.emplace();
    return s;
  };
  ExpectOnFailure(
      {"=", 1, Ending::kSilent}, empty, [](Operands& s) { Note(s, *s.result = s.a); },
      ResultIsEmpty);
  ExpectNoRequest("= of equal sizes", MakeOperands, [](Operands& s) { s.a = s.b; });
}

TEST_F(DoubleArrayFailure, AllocMemoryReturnsZeroWithTheSizeSet) {
  ExpectOnFailure(
      {"AllocMemory", 1, Ending::kSilent},
      [] {
        struct State {
          std::optional<OpenArray> a{std::in_place};
          int answer = -1;
        };
        return State();
      },
      [](auto& s) { s.answer = s.a->AllocMemory(3); },
      [](auto& s) { return s.answer == 0 && s.a->size == 3 && !s.a->data; });
}

TEST_F(DoubleArrayFailure, AllocMemoryStoresANullButKeepsTheOldBlockOnAnException) {
  for (const Failure how : {Failure::kBadAlloc, Failure::kMemoryException, Failure::kNull}) {
    SCOPED_TRACE(::testing::Message() << how);
    OpenArray a;
    ASSERT_EQ(a.AllocMemory(3), 1);
    double* const held = a.data;
    {
      FailAllocation failing(1, false, how);
      EXPECT_EQ(a.AllocMemory(4), 0);
    }
    EXPECT_EQ(a.size, 4);
    EXPECT_EQ(a.data, how == Failure::kNull ? nullptr : held);
    a.data = held;
    a.size = 3;
  }
}

TEST_F(DoubleArrayFailure, TextsStayUnchanged) {
  struct State {
    CZEPHDoubleArray a = CZEPHDoubleArray(100, 1.0);
    CString text = "before";
  };
  const auto make = [] { return State(); };
  const auto before = [](const State& s) {
    return std::strcmp(s.text, "before") == 0 && s.a.size == 100;
  };
  ExpectOnFailure(
      {"Display", 1, Ending::kPasses}, make, [](State& s) { s.a.Display(s.text); }, before);
  ExpectOnFailure(
      {"Display of a range", 1, Ending::kPasses}, make,
      [](State& s) { s.a.Display(s.text, 10, 90); }, before);
}

TEST_F(DoubleArrayFailure, SortsSearchesAndNormsAllocateNothing) {
  const auto none = [](const char* name, auto call) {
    for (const auto& order : Orders())
      ExpectNoRequest(
          name, [&] { return ArrayOf(order.make(200, 1)); }, call);
  };
  none("BubbleSort", [](CZEPHDoubleArray& a) { a.BubbleSort(); });
  none("InsertionSort", [](CZEPHDoubleArray& a) { a.InsertionSort(); });
  none("InsertionSort of a range", [](CZEPHDoubleArray& a) { a.InsertionSort(10, 150); });
  none("ListInsertSort", [](CZEPHDoubleArray& a) { a.ListInsertSort(); });
  none("ShellSort", [](CZEPHDoubleArray& a) { a.ShellSort(); });
  none("QuickSort", [](CZEPHDoubleArray& a) { a.QuickSort(10); });
  none("CheckSorted", [](CZEPHDoubleArray& a) { a.CheckSorted(); });
  none("Partition", [](CZEPHDoubleArray& a) { a.Partition(0, 199, 1.0); });
  none("Find", [](CZEPHDoubleArray& a) { a.Find(1.0); });
  none("Remove", [](CZEPHDoubleArray& a) { a.Remove(a[100]); });
  none("norms", [](CZEPHDoubleArray& a) { (void)(a.MaxNorm() + a.OneNorm() + a.TwoNorm()); });
  none("+=", [](CZEPHDoubleArray& a) { a += a; });
  none("-=", [](CZEPHDoubleArray& a) { a -= std::as_const(a); });
  none("Random", [](CZEPHDoubleArray& a) { a.Random(); });
}
