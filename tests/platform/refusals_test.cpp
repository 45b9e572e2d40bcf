// The messages where an argument is refused: every operation names itself and no other.
#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>

#include "platform.h"
#include "support/allocation.h"

namespace {

std::string Refusal(const std::function<void()>& call) {
  try {
    call();
  } catch (const std::out_of_range& refusal) {
    return refusal.what();
  }
  return "nothing was refused";
}

/// All refusals of an array of three elements.
template <class Array, class T>
void ExpectTexts(const std::string& type, T element) {
  Array a;
  a.SetSize(3);
  const Array& constant = a;
  const auto said = [&type](const char* operation, const char* what) {
    return type + "::" + operation + ": " + what;
  };
  for (const auto& [index, where] :
       {std::pair(std::ptrdiff_t{3}, "index 3 is outside 0..2"),
        std::pair(std::ptrdiff_t{-1}, "index -1 is outside 0..2"),
        std::pair(PTRDIFF_MIN, sizeof(void*) == 8 ? "index -9223372036854775808 is outside 0..2"
                                                  : "index -2147483648 is outside 0..2")}) {
    const std::ptrdiff_t at = index;
    EXPECT_EQ(said("GetAt", where), Refusal([&] { a.GetAt(at); }));
    EXPECT_EQ(said("SetAt", where), Refusal([&] { a.SetAt(at, element); }));
    EXPECT_EQ(said("ElementAt", where), Refusal([&] { a.ElementAt(at); }));
    EXPECT_EQ(said("operator[]", where), Refusal([&] { a[at]; }));
    EXPECT_EQ(said("operator[]", where), Refusal([&] { constant[at]; }));
  }
  EXPECT_EQ(said("SetSize", "a size below 0"), Refusal([&] { a.SetSize(-1, 5); }));
  EXPECT_EQ(said("SetAtGrow", "an index below 0"), Refusal([&] { a.SetAtGrow(-1, element); }));
  EXPECT_EQ(said("SetAtGrow", "a size beyond all memory"),
            Refusal([&] { a.SetAtGrow(PTRDIFF_MAX, element); }));
  EXPECT_EQ(said("InsertAt", "an index below 0"), Refusal([&] { a.InsertAt(-1, element); }));
  EXPECT_EQ(said("InsertAt", "a count below 1"), Refusal([&] { a.InsertAt(0, element, 0); }));
  EXPECT_EQ(said("InsertAt", "a size beyond all memory"),
            Refusal([&] { a.InsertAt(1, element, PTRDIFF_MAX - 2); }));
  EXPECT_EQ(said("InsertAt", "a size beyond all memory"),
            Refusal([&] { a.InsertAt(PTRDIFF_MAX, element, 1); }));
  for (const auto& [index, count] : {std::pair(std::ptrdiff_t{-1}, std::ptrdiff_t{1}),
                                     std::pair(std::ptrdiff_t{4}, std::ptrdiff_t{0}),
                                     std::pair(std::ptrdiff_t{3}, std::ptrdiff_t{1}),
                                     std::pair(std::ptrdiff_t{0}, std::ptrdiff_t{-1}),
                                     std::pair(std::ptrdiff_t{0}, std::ptrdiff_t{4}),
                                     std::pair(std::ptrdiff_t{2}, PTRDIFF_MAX)}) {
    const std::ptrdiff_t at = index, many = count;
    EXPECT_EQ(said("RemoveAt", "elements outside the array"),
              Refusal([&] { a.RemoveAt(at, many); }));
  }
  EXPECT_EQ(3, a.GetSize());
  a.RemoveAll();
  EXPECT_EQ(said("GetAt", "index 0 is refused: there are no elements"),
            Refusal([&] { a.GetAt(0); }));
}

}  // namespace

TEST(Refusals, OfArraysNameTheOperationAndTheReason) {
  ExpectTexts<CObArray, CObject*>("CObArray", nullptr);
  ExpectTexts<CUIntArray, unsigned>("CUIntArray", 1);
  ExpectTexts<CWordArray, unsigned short>("CWordArray", static_cast<unsigned short>(1));
}

TEST(Refusals, OfListsNameTheOperationAndTheReason) {
  CObList list;
  const CObList& constant = list;
  POSITION none = nullptr;
  const std::string empty = ": the list is empty", null = ": the position is null";
  EXPECT_EQ("CObList::GetHead" + empty, Refusal([&] { list.GetHead(); }));
  EXPECT_EQ("CObList::GetHead" + empty, Refusal([&] { constant.GetHead(); }));
  EXPECT_EQ("CObList::GetTail" + empty, Refusal([&] { list.GetTail(); }));
  EXPECT_EQ("CObList::GetTail" + empty, Refusal([&] { constant.GetTail(); }));
  EXPECT_EQ("CObList::RemoveHead" + empty, Refusal([&] { list.RemoveHead(); }));
  EXPECT_EQ("CObList::RemoveTail" + empty, Refusal([&] { list.RemoveTail(); }));
  EXPECT_EQ("CObList::GetNext" + null, Refusal([&] { list.GetNext(none); }));
  EXPECT_EQ("CObList::GetNext" + null, Refusal([&] { constant.GetNext(none); }));
  EXPECT_EQ("CObList::GetPrev" + null, Refusal([&] { list.GetPrev(none); }));
  EXPECT_EQ("CObList::GetPrev" + null, Refusal([&] { constant.GetPrev(none); }));
  EXPECT_EQ("CObList::GetAt" + null, Refusal([&] { list.GetAt(none); }));
  EXPECT_EQ("CObList::GetAt" + null, Refusal([&] { constant.GetAt(none); }));
  EXPECT_EQ("CObList::SetAt" + null, Refusal([&] { list.SetAt(none, nullptr); }));
  EXPECT_EQ("CObList::RemoveAt" + null, Refusal([&] { list.RemoveAt(none); }));
}

TEST(Refusals, OfCharactersNameTheOperationAndTheBounds) {
  const CString text("abc");
  EXPECT_EQ("CString::GetAt: index 4 is outside 0..3", Refusal([&] { text.GetAt(4); }));
  EXPECT_EQ("CString::GetAt: index -1 is outside 0..3", Refusal([&] { text[-1]; }));
  EXPECT_EQ("CString::GetAt: index 1 is outside 0..0", Refusal([&] { CString().GetAt(1); }));
}

/// A list's block size may be any number: a block that cannot be allocated is refused as exhausted
/// memory is.
TEST(Refusals, OfATooLargeBlockAreThoseOfExhaustedMemory) {
  constexpr std::size_t kNode = 3 * sizeof(void*), kWraps = SIZE_MAX / kNode;
  for (const std::ptrdiff_t size :
       {PTRDIFF_MAX, PTRDIFF_MAX - 1, PTRDIFF_MAX / 8, static_cast<std::ptrdiff_t>(kWraps),
        static_cast<std::ptrdiff_t>(kWraps + 2)}) {
    CObList list(size);
    EXPECT_THROW(list.AddTail(nullptr), std::bad_alloc);
    EXPECT_TRUE(list.IsEmpty());
    EXPECT_EQ(nullptr, list.GetHeadPosition());
  }
  CObList least(PTRDIFF_MIN);
  least.AddTail(nullptr);
  EXPECT_EQ(1, least.GetCount());
}

/// Sizes whose bytes are more than a size counts, by few and by many: the array stays as it is.
template <class Array, class T>
void ExpectExhaustedMemory(T element) {
  Array a;
  a.SetSize(3);
  a.SetAt(2, element);
  for (const std::size_t surplus :
       {std::size_t{1}, std::size_t{2}, std::size_t{100}, SIZE_MAX / 16}) {
    const std::size_t elements = SIZE_MAX / sizeof(T) + surplus;
    if (elements > static_cast<std::size_t>(PTRDIFF_MAX)) continue;
    const auto size = static_cast<std::ptrdiff_t>(elements);
    EXPECT_THROW(a.SetSize(size), std::bad_alloc) << size;
    EXPECT_THROW(a.SetAtGrow(size - 1, element), std::bad_alloc) << size;
    EXPECT_THROW(a.InsertAt(1, element, size - 3), std::bad_alloc) << size;
    EXPECT_EQ(3, a.GetSize());
    EXPECT_EQ(element, a.GetAt(2));
    Array first;
    EXPECT_THROW(first.SetSize(size), std::bad_alloc) << size;
    EXPECT_TRUE(first.IsEmpty());
  }
}

TEST(Refusals, OfSizesWhoseBytesWrapAroundAreThoseOfExhaustedMemory) {
  ExpectExhaustedMemory<CObArray, CObject*>(nullptr);
  ExpectExhaustedMemory<CUIntArray, unsigned int>(7);
  ExpectExhaustedMemory<CWordArray, unsigned short>(7);
}
