#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <functional>
#include <numeric>
#include <string>
#include <vector>

#include "algorithms.h"
#include "oracle/permutation.h"
#include "support/allocation.h"
#include "support/stream.h"

using namespace zeph::test;

namespace {

std::string Bytes(const CString& text) {
  return std::string(text.GetString(), static_cast<std::size_t>(text.GetLength()));
}

template <class T>
std::string ToStream(T* s, int k, int n) {
  return Written([&](FILE* f) { EXPECT_EQ(CZEPHPermutation::Run(s, k, n, f), 1); });
}

template <class T>
std::string ToString(T* s, int k, int n) {
  CString out("kept ");
  EXPECT_EQ(CZEPHPermutation::Run(s, k, n, out), 1);
  return Bytes(out);
}

// Both forms over the items from `first` on, which must leave the items unchanged.
template <class T>
void ExpectAgreement(const std::vector<T>& buffer, std::size_t first, int k, int n) {
  std::vector<T> ours = buffer, literal = buffer;
  std::string want;
  oracle::Permute(literal.data() + first, k, n, oracle::Form::kStream, want);
  EXPECT_EQ(ToStream(ours.data() + first, k, n), want) << "k=" << k << " n=" << n;
  EXPECT_EQ(ours, buffer) << "the items have moved, k=" << k << " n=" << n;
  want = "kept ";
  oracle::Permute(literal.data() + first, k, n, oracle::Form::kString, want);
  EXPECT_EQ(ToString(ours.data() + first, k, n), want) << "k=" << k << " n=" << n;
  EXPECT_EQ(ours, buffer) << "the items have moved, k=" << k << " n=" << n;
}

std::vector<char> Letters(std::size_t n) {
  std::vector<char> letters(n);
  for (std::size_t i = 0; i < n; ++i) letters[i] = static_cast<char>('a' + i % 26);
  return letters;
}

std::vector<int> Numbers(std::size_t n) {
  std::vector<int> numbers(n);
  std::iota(numbers.begin(), numbers.end(), -3);
  return numbers;
}

}  // namespace

TEST(Permutation, ListsThreeCharactersInItsOwnOrder) {
  char s[] = {'a', 'b', 'c'};
  EXPECT_EQ(ToStream(s, 0, 3), "a b c \na c b \nb a c \nb c a \nc b a \nc a b \n");
  EXPECT_EQ(std::string(s, 3), "abc");
}

TEST(Permutation, WritesCharactersWithoutSeparatorsToAString) {
  char s[] = {'a', 'b'};
  EXPECT_EQ(ToString(s, 0, 2), "kept ab \nba \n");
}

TEST(Permutation, ListsNumbersTheSameWayInBothForms) {
  int s[] = {1, -20};
  EXPECT_EQ(ToStream(s, 0, 2), "1 -20 \n-20 1 \n");
  EXPECT_EQ(ToString(s, 0, 2), "kept 1 -20 \n-20 1 \n");
}

TEST(Permutation, ListsOneItemAsItselfAndNoItemsAsNothing) {
  char s[] = {'x'};
  EXPECT_EQ(ToStream(s, 0, 1), "x \n");
  EXPECT_EQ(ToStream(s, 0, 0), "");
  EXPECT_EQ(ToStream(s, 5, 3), "");
  EXPECT_EQ(ToStream(s, INT_MAX, 3), "");
}

TEST(Permutation, WritesAnEmptyLineWhereTheLastPositionIsBeforeTheItems) {
  char s[] = {'x'};
  EXPECT_EQ(ToStream(s, -1, 0), "\n");
  EXPECT_EQ(ToString(s, -1, 0), "kept  \n");
  EXPECT_EQ(ToStream(s, -6, -5), "\n");
  EXPECT_EQ(ToStream(s, 0, INT_MIN), "");
}

TEST(Permutation, ReturnsZeroForNullArguments) {
  char s[] = {'a', 'b'};
  int v[] = {1, 2};
  CString out("kept");
  EXPECT_EQ(CZEPHPermutation::Run(static_cast<char*>(nullptr), 0, 2, out), 0);
  EXPECT_EQ(CZEPHPermutation::Run(static_cast<int*>(nullptr), 0, 2, out), 0);
  EXPECT_STREQ(out.GetString(), "kept");
  EXPECT_EQ(CZEPHPermutation::Run(s, 0, 2, static_cast<FILE*>(nullptr)), 0);
  EXPECT_EQ(CZEPHPermutation::Run(v, 0, 2, static_cast<FILE*>(nullptr)), 0);
  const std::string text = Written([](FILE* f) {
    EXPECT_EQ(CZEPHPermutation::Run(static_cast<char*>(nullptr), 0, 2, f), 0);
    EXPECT_EQ(CZEPHPermutation::Run(static_cast<int*>(nullptr), 0, 2, f), 0);
  });
  EXPECT_EQ(text, "");
}

TEST(Permutation, AgreesWithTheOracleFromEveryStart) {
  for (int n = 0; n <= 6; ++n)
    for (int k = 0; k <= n + 1; ++k) {
      ExpectAgreement(Letters(8), 0, k, n);
      ExpectAgreement(Numbers(8), 0, k, n);
    }
}

TEST(Permutation, MayStartBelowTheFirstListedPosition) {
  for (int n = 0; n <= 3; ++n)
    for (int k = -3; k < 0; ++k) {
      ExpectAgreement(Letters(8), 3, k, n);
      ExpectAgreement(Numbers(8), 3, k, n);
    }
}

TEST(Permutation, TakesAnyByteAndAnyNumber) {
  ExpectAgreement<char>({'\0', '%', '\n', ' ', static_cast<char>(0xFF)}, 0, 0, 5);
  ExpectAgreement<int>({INT_MIN, INT_MAX, 0, -1, INT_MIN}, 0, 0, 5);
  ExpectAgreement<char>({'a', 'a', 'a'}, 0, 0, 3);
}

TEST(Permutation, ListsLinesOfAnyLength) {
  // Around the lengths at which a line no longer fits the library's buffers, a draft of a line and
  // then a block.
  for (const int n : {14, 15, 16, 17, 254, 255, 256, 257, 258, 512, 5461, 32768, 70000})
    for (int back = 1; back <= 3; ++back) {
      ExpectAgreement(Letters(static_cast<std::size_t>(n)), 0, n - back, n);
      ExpectAgreement(Numbers(static_cast<std::size_t>(n)), 0, n - back, n);
      ExpectAgreement(std::vector<int>(static_cast<std::size_t>(n), INT_MIN), 0, n - back, n);
    }
}

TEST(Permutation, LosesNoLineAcrossOutputBlocks) {
  ExpectAgreement(Letters(8), 0, 0, 8);
  ExpectAgreement(Numbers(8), 0, 0, 8);
}

TEST(Permutation, KeepsItsPlaceBetweenTheCallersOwnOutput) {
  const std::string text = Written([](FILE* f) {
    char s[] = {'a', 'b'};
    std::fputs("before ", f);
    CZEPHPermutation::Run(s, 0, 2, f);
    std::fputs("after", f);
  });
  EXPECT_EQ(text, "before a b \nb a \nafter");
}

TEST(Permutation, AllocatesNothingForAStream) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  std::vector<int> numbers = Numbers(7);
  Written([&](FILE* f) {
    const long before = AllocationCount();
    CZEPHPermutation::Run(numbers.data(), 0, 7, f);
    EXPECT_EQ(AllocationCount(), before);
  });
}

TEST(Permutation, LeavesTheItemsInOrderWhenMemoryRunsOut) {
  ZEPH_NEEDS_LIBRARY_ALLOCATIONS();
  std::string whole;
  std::vector<char> letters = Letters(8);
  oracle::Permute(letters.data(), 0, 8, oracle::Form::kString, whole);
  const std::vector<char> before = letters;
  for (const Failure how : {Failure::kBadAlloc, Failure::kMemoryException}) {
    CString out;
    const long failures = FailEachAllocation(
        how, false,
        [&] {
          out = CString();
          try {
            CZEPHPermutation::Run(letters.data(), 0, 8, out);
          } catch (const std::bad_alloc&) {
          } catch (CMemoryException* exception) {
            exception->Delete();
          }
        },
        [&](long k) {
          EXPECT_EQ(letters, before) << k;
          EXPECT_TRUE(Bytes(out) == whole.substr(0, static_cast<std::size_t>(out.GetLength())))
              << how;
        });
    EXPECT_GE(failures, 2) << how;
    EXPECT_TRUE(Bytes(out) == whole) << how;
  }
}

TEST(Permutation, PrintsItsDemonstrationReport) {
  const auto lines = [](auto s, int n, oracle::Form form) {
    std::string out;
    oracle::Permute(s.data(), 0, n, form, out);
    return out;
  };
  using oracle::Form;
  const std::string want =
      "\n@@@( CZEPHPermutation::Test1()...BEGIN\n"
      "\n...Character permutation test b(0,3): Version#1\n"
      "a b c \na c b \nb a c \nb c a \nc b a \nc a b \n"
      "\n...Character permutation test b(0,3): Version#2\n"
      "abc \nacb \nbac \nbca \ncba \ncab \n\n"
      "\n...Character permutation test b(0,5): Version#1\n" +
      lines(Letters(7), 5, Form::kStream) + "\n...Character permutation test b(0,5): Version#2\n" +
      lines(Letters(7), 5, Form::kString) +
      "\n\n@@@( CZEPHPermutation::Test1()...END\n"
      "\n...Integer permutation test c(0,3): Version#1\n"
      "1 2 3 \n1 3 2 \n2 1 3 \n2 3 1 \n3 2 1 \n3 1 2 \n"
      "\n...Integer permutation test c(0,3): Version#2\n"
      "1 2 3 \n1 3 2 \n2 1 3 \n2 3 1 \n3 2 1 \n3 1 2 \n\n"
      "\n...Integer permutation test c(0,6): Version#1\n" +
      lines(std::vector<int>{1, 2, 3, 4, 5, 6, 7}, 6, Form::kStream);
  EXPECT_EQ(Written([](FILE* f) { EXPECT_EQ(CZEPHPermutation::Test1(f), 1); }), want);
}

TEST(Permutation, PrintsTheEndBannerBeforeTheIntegerPart) {
  const std::string text = Written([](FILE* f) { CZEPHPermutation::Test1(f); });
  EXPECT_LT(text.find("...END\n"), text.find("...Integer permutation test"));
}

TEST(Permutation, PrintsNothingToANullStream) {
  EXPECT_EQ(CZEPHPermutation::Test1(nullptr), 0);
}

TEST(Permutation, HasNoDataMembers) {
  CZEPHPermutation a, b(a);
  a = b;
  EXPECT_EQ(sizeof(CZEPHPermutation), sizeof(void*));
}
