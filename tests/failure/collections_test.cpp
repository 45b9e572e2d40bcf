// Stacks, arrays, lists, strings and the algorithm kit keep their contents.
#include <array>
#include <cstring>
#include <memory>
#include <string>

#include "algorithms.h"
#include "containers.h"
#include "failure/operations.h"
#include "support/child.h"

using namespace zeph::test;

using CollectionFailure = AllocationFailure;

namespace {

class Thing : public CObject {};
Thing one, two, three;

template <class Stack>
struct Stacked {
  Stack stack;
  decltype(stack.m_pTop) chain = nullptr;  // the chain before the operation
  bool own = true;
  Stacked() {
    stack.Push(&one);
    stack.Push(&two);
    chain = stack.m_pTop;
  }
  Stacked(Stacked&& other) : stack(other.stack), chain(other.chain) { other.own = false; }
  ~Stacked() {
    while (own && stack.m_pTop) stack.Pop();
  }
};

template <class Stack>
void ExpectStackStays(const char* name) {
  const auto make = [] { return Stacked<Stack>(); };
  const auto push = [](auto& s) { s.stack.Push(&three); };
  ExpectOnFailure({name, 1, Ending::kPasses, LosesNothing, kExceptions}, make, push, [](auto& s) {
    return s.stack.Pop() == &two && s.stack.Pop() == &one && !s.stack.m_pTop;
  });
  // A null block loses the chain, as documented; it is restored here to be released.
  ExpectOnFailure({name, 1, Ending::kSilent, LosesNothing, {Failure::kNull}}, make, push,
                  [](auto& s) {
                    const bool dropped = !s.stack.m_pTop;
                    s.stack.m_pTop = s.chain;
                    return dropped;
                  });
}

/// An array of three elements, in a place of its own: arrays are not copied.
template <class Array>
struct Filled {
  std::unique_ptr<Array> a = std::make_unique<Array>();
  explicit Filled() {
    for (int i = 0; i < 3; ++i) a->Add({});
    a->FreeExtra();
  }
};

template <class Array>
void ExpectArrayStays(const char* name) {
  const auto pass = [name](auto call) {
    ExpectOnFailure(
        {name, 1, Ending::kPasses}, [] { return Filled<Array>(); }, call,
        [](auto& s) { return s.a->GetSize() == 3; });
  };
  pass([](auto& s) { s.a->SetSize(100); });
  pass([](auto& s) { s.a->Add({}); });
  pass([](auto& s) { s.a->InsertAt(1, {}); });
  pass([](auto& s) { s.a->SetAtGrow(50, {}); });
}

struct Listed {
  std::unique_ptr<CZEPHSortableObList> list = std::make_unique<CZEPHSortableObList>(2);
  Listed() {
    list->AddTail(&one);
    list->AddTail(&two);
  }
};
bool ListStays(const Listed& s) {
  return s.list->GetCount() == 2 && s.list->GetHead() == &one && s.list->GetTail() == &two;
}

const char kLong[] = "a text that is longer than any string keeps inside the object itself, surely";

struct Text {
  CString text{kLong};
  CString other{kLong};
};
bool TextStays(const Text& s) {
  return std::strcmp(s.text, kLong) == 0 && std::strcmp(s.other, kLong) == 0;
}

}  // namespace

TEST_F(CollectionFailure, StacksStayUnchanged) {
  ExpectStackStays<CZEPHStack>("CZEPHStack::Push");
  ExpectStackStays<CZEPHPointerStack>("CZEPHPointerStack::Push");
}

TEST_F(CollectionFailure, ArraysStayUnchanged) {
  ExpectArrayStays<CZEPHSortableObArray>("CZEPHSortableObArray");
  ExpectArrayStays<CObArray>("CObArray");
  ExpectArrayStays<CUIntArray>("CUIntArray");
  ExpectArrayStays<CWordArray>("CWordArray");
  ExpectArrayStays<CZEPHUIntArray>("CZEPHUIntArray");
  ExpectArrayStays<CZEPHWordArray>("CZEPHWordArray");
}

TEST_F(CollectionFailure, ListsStayUnchanged) {
  const auto pass = [](const char* name, auto call) {
    ExpectOnFailure(
        {name, 1, Ending::kPasses}, [] { return Listed(); }, call, ListStays);
  };
  pass("AddTail", [](Listed& s) { s.list->AddTail(&three); });
  pass("AddHead", [](Listed& s) { s.list->AddHead(&three); });
  pass("InsertAfter", [](Listed& s) { s.list->InsertAfter(s.list->GetHeadPosition(), &three); });
  pass("InsertBefore", [](Listed& s) { s.list->InsertBefore(s.list->GetHeadPosition(), &three); });
}

TEST_F(CollectionFailure, SortsOfCollectionsAllocateNothing) {
  static const auto compare = [](CObject* a, CObject* b) { return a < b ? -1 : a > b; };
  ExpectNoRequest(
      "list", [] { return Listed(); }, [](Listed& s) { s.list->Sort(compare); });
  ExpectNoRequest(
      "array", [] { return Filled<CZEPHSortableObArray>(); }, [](auto& s) { s.a->Sort(compare); });
}

TEST_F(CollectionFailure, StringsKeepTheirText) {
  const auto pass = [](const char* name, auto call) {
    ExpectOnFailure(
        {name, 1, Ending::kPasses}, [] { return Text(); }, call, TextStays);
  };
  static const std::string standard(kLong), twice = standard + standard;
  pass("copy", [](Text& s) { CString copy(s.text); });
  pass("of characters", [](Text&) { CString copy(kLong); });
  pass("of a view", [](Text&) { CString copy{std::string_view(standard)}; });
  pass("= characters", [](Text& s) { s.text = twice.c_str(); });
  pass("+= string", [](Text& s) { s.text += s.other; });
  pass("+= characters", [](Text& s) { s.text += kLong; });
  pass("Append", [](Text& s) { s.text.Append(kLong, 60); });
  pass("Left", [](Text& s) { s.text.Left(50); });
  pass("Right", [](Text& s) { s.text.Right(50); });
  pass("Mid", [](Text& s) { s.text.Mid(1); });
  pass("Mid, count", [](Text& s) { s.text.Mid(1, 50); });
  pass("Format", [](Text& s) { s.text.Format("%s", twice.c_str()); });
  ExpectNoRequest(
      "move", [] { return Text(); }, [](Text& s) { CString moved(std::move(s.text)); });
}

TEST_F(CollectionFailure, AlgorithmsPropagateIt) {
  struct State {
    CString out;
    std::string letters = "abcd";
    std::array<int, 4> numbers{1, 2, 3, 4};
  };
  const auto restored = [](const State& s) {
    return s.letters == "abcd" && s.numbers == std::array<int, 4>{1, 2, 3, 4};
  };
  const auto make = [] { return State(); };
  ExpectOnFailure(
      {"permutations of letters", kSome, Ending::kPasses}, make,
      [](State& s) { CZEPHPermutation::Run(s.letters.data(), 0, 4, s.out); }, restored);
  ExpectOnFailure(
      {"permutations of numbers", kSome, Ending::kPasses}, make,
      [](State& s) { CZEPHPermutation::Run(s.numbers.data(), 0, 4, s.out); }, restored);
  ExpectOnFailure(
      {"scientific notation", 1, Ending::kPasses}, make,
      [](State&) {
        int exponent;
        double mantissa;
        ZEPH_MathToScientificNotation(1.5, exponent, mantissa, 2, 60);
      },
      restored);
}

TEST_F(CollectionFailure, ReportsPropagateItAndLeakNothing) {
  struct Stream {
    std::FILE* f = std::tmpfile();
    Stream() = default;
    Stream(Stream&& other) : f(other.f) { other.f = nullptr; }
    ~Stream() {
      if (f) std::fclose(f);
    }
  };
  const auto unbroken = [](const Stream& s) { return std::ferror(s.f) == 0; };
  const auto report = [=](const char* name, long requests, auto call) {
    ExpectOnFailure(
        {name, requests, Ending::kPasses}, [] { return Stream(); }, call, unbroken);
  };
  CZEPHPointerStack::Test1(3, Stream().f);  // makes the allocations that the first use keeps
  // (A null item ends the stack report's popping: its own test shows it.)
  ExpectOnFailure(
      {"stack report", 6, Ending::kPasses, LosesNothing, kExceptions}, [] { return Stream(); },
      [](Stream& s) { CZEPHPointerStack::Test1(3, s.f); }, unbroken);
  report("permutation report", 2, [](Stream& s) { CZEPHPermutation::Test1(s.f); });
  report("search report", 0, [](Stream& s) { CZEPHIntegralSearch::Test1(s.f); });
  report("stopwatch report", 0, [](Stream& s) { CZEPHDSTimer::Test1(1, s.f); });
}
