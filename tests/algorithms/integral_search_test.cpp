#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "algorithms.h"
#include "oracle/integral_search.h"
#include "support/numbers.h"
#include "support/stream.h"

using namespace zeph::test;
using Search = CZEPHIntegralSearch;

namespace {

struct Comparing : Search {
  using Search::Compare;
};

std::vector<int> Demonstration() {
  return {2, 4, 5, 7, 10, 12, 14, 15, 17, 25};
}

/// Each line of `text` matches that of `patterns`. (std::regex recurses too deep for all of them at once.)
void ExpectLines(const std::string& text, const std::string& patterns) {
  std::istringstream lines(text), wanted(patterns);
  std::string line, want;
  while (std::getline(wanted, want)) {
    ASSERT_TRUE(std::getline(lines, line)) << "no line for " << want;
    EXPECT_TRUE(std::regex_match(line, std::regex(want))) << line << " is not " << want;
  }
  EXPECT_FALSE(std::getline(lines, line)) << "one more line: " << line;
  EXPECT_EQ(text.empty() ? '\0' : text.back(), '\n') << "the last line has no end";
}

}  // namespace

TEST(IntegralSearch, ComparesWithALessEqualOrGreaterSign) {
  EXPECT_EQ(Comparing::Compare(3, 3), '=');
  EXPECT_EQ(Comparing::Compare(4, 3), '>');
  EXPECT_EQ(Comparing::Compare(INT_MIN, INT_MAX), '<');
}

TEST(IntegralSearch, RefusesANullArrayOrACountBelowOne) {
  int a[] = {1, 2};
  for (const int n : {1, 0, -1, INT_MIN}) {
    EXPECT_EQ(Search::SequentialSearch(nullptr, n, 1), -1000) << "n " << n;
    EXPECT_EQ(Search::BinarySearch(nullptr, n, 1), -1000) << "n " << n;
  }
  for (const int n : {0, -1, INT_MIN}) {
    EXPECT_EQ(Search::SequentialSearch(a, n, 7), -1000) << "n " << n;
    EXPECT_EQ(Search::BinarySearch(a, n, 1), -1000) << "n " << n;
  }
  EXPECT_EQ(a[0], 1);
  EXPECT_EQ(Search::BinarySearch(nullptr, 0, 1, 1), -1000);
  EXPECT_EQ(Search::BinarySearch(nullptr, 1, 0, 1), -1000);
}

TEST(IntegralSearchSequential, FindsTheHighestIndexAndOverwritesElementZero) {
  int a[] = {9, 5, 6, 5};
  EXPECT_EQ(Search::SequentialSearch(a, 3, 5), 3);
  EXPECT_EQ(a[0], 5);
  a[0] = 9;
  EXPECT_EQ(Search::SequentialSearch(a, 3, 9), -1);  // index 0 is never reported
  EXPECT_EQ(a[0], 9);
}

TEST(IntegralSearchSequential, AgreesWithTheOracleOnEveryLength) {
  Random random(1);
  for (int n = 1; n <= 100; ++n)
    for (int times = 0; times < 20; ++times) {
      std::vector<int> a(static_cast<std::size_t>(n) + 1);
      for (int& x : a) x = random.Int(0, n);
      std::vector<int> b = a;
      const int key = random.Int(0, n);
      EXPECT_EQ(Search::SequentialSearch(a.data(), n, key), oracle::SequentialSearch(b, n, key))
          << "n " << n << ", times " << times;
      EXPECT_EQ(a, b) << "n " << n << ", times " << times;
    }
}

TEST(IntegralSearchBasic, FindsTheKeysOfTheDemonstration) {
  auto a = Demonstration();
  EXPECT_EQ(Search::BinarySearch(a.data(), 10, 7), 3);
  EXPECT_EQ(Search::BinarySearch(a.data(), 10, 9), -1);
}

TEST(IntegralSearchBasic, AgreesWithTheOracleOnEverySmallArray) {
  for (std::size_t n = 1; n <= 6; ++n)
    ForEachArray<int>({1, 3, 5}, n, [n](std::vector<int> a) {
      const auto before = a;
      for (int key = 0; key <= 6; ++key)
        EXPECT_EQ(Search::BinarySearch(a.data(), static_cast<int>(n), key),
                  oracle::BinarySearch(a, static_cast<int>(n), key))
            << "n " << n << ", key " << key;
      EXPECT_EQ(a, before) << "n " << n;
    });
}

TEST(IntegralSearchRecursive, FindsOnlyKeysReachedWithSwappedArguments) {
  auto a = Demonstration();
  EXPECT_EQ(Search::BinarySearch(a.data(), 0, 9, 10), 4);
  EXPECT_EQ(Search::BinarySearch(a.data(), 5, 4, 10), -1);
  for (const int key : {2, 4, 5, 7, 12, 14, 15, 17, 25, -1, 9, 27})
    EXPECT_EQ(Search::BinarySearch(a.data(), 0, 9, key), -1) << key;
}

TEST(IntegralSearchRecursive, CanEndAtAnUnrelatedIndex) {
  // (0, 3, 2) reads 1 at 1, then (2, 2, 3) reads 3 at 2: an index of 3, not of 2.
  int a[] = {0, 1, 3, 9};
  EXPECT_EQ(Search::BinarySearch(a, 0, 3, 2), 2);
}

TEST(IntegralSearchRecursive, ReturnsMinusOneWhereItWouldRecurForever) {
  // (0, 1, 0), (0, 1, 1), (1, 1, 1), (1, 1, 0), and (0, 1, 0) again.
  int a[] = {-5, 100};
  EXPECT_EQ(Search::BinarySearch(a, 0, 1, 0), -1);
}

TEST(IntegralSearchRecursive, AgreesWithTheOracleOnAnyIndexRange) {
  struct Outside {};
  constexpr int kReach = 64;
  Random random(7);
  int found = 0, missed = 0, recurred = 0;
  for (int times = 0; times < 20000; ++times) {
    std::vector<int> cells(2 * kReach + 1);
    const int spread = random.Int(1, 60);
    for (int& x : cells) x = random.Int(-spread, spread);
    if (times % 2) std::sort(cells.begin(), cells.end());
    const int low = random.Int(-20, 8), high = random.Int(-8, 20), key = random.Int(-20, 20);
    bool again = false;
    int want = 0;
    try {
      oracle::Seen seen;
      want = oracle::RecursiveSearch(
          [&](int i) {
            if (i < -kReach || i > kReach) throw Outside();
            return cells[static_cast<std::size_t>(i + kReach)];
          },
          low, high, key, seen, again);
    } catch (Outside) {
      continue;  // the steps leave these elements, so there is no result
    }
    ++(again ? recurred : want == -1 ? missed : found);
    const auto before = cells;
    EXPECT_EQ(Search::BinarySearch(cells.data() + kReach, low, high, key), want)
        << low << ", " << high << ", " << key;
    EXPECT_EQ(cells, before) << "times " << times;
  }
  EXPECT_GT(found, 500);
  EXPECT_GT(missed, 500);
  EXPECT_GT(recurred, 20);
}

// Indices whose sum is no int. Few processors can address an array that begins so far before its elements.
TEST(IntegralSearchRecursive, TakesTheMiddleOfIndicesAtTheEdgesOfInt) {
  if (sizeof(void*) < 8) GTEST_SKIP() << "no room for these indices";
  for (const std::int64_t first : {std::int64_t{INT_MAX} - 9, std::int64_t{INT_MIN}}) {
    for (int at = 0; at < 10; ++at) {
      std::vector<int> cells(10);
      const auto low = static_cast<int>(first), high = static_cast<int>(first + 9);
      const int middle = static_cast<int>((first + first + 9) / 2);
      cells[static_cast<std::size_t>(middle - first)] = at;  // the first that is read
      const auto base = reinterpret_cast<std::uintptr_t>(cells.data()) -
                        static_cast<std::uintptr_t>(first) * sizeof(int);
      EXPECT_EQ(Search::BinarySearch(reinterpret_cast<int*>(base), low, high, at), middle)
          << low << " to " << high;
    }
  }
}

TEST(IntegralSearchBasic, AgreesWithTheOracleOnLongerArraysAndExtremeNumbers) {
  Random random(11);
  for (int n = 1; n <= 70; ++n)
    for (int times = 0; times < 30; ++times) {
      std::vector<int> a(static_cast<std::size_t>(n));
      for (int& x : a)
        x = times % 3          ? random.Int(-n, n)
            : random.Int(0, 1) ? INT_MAX - random.Int(0, 2)
                               : INT_MIN + random.Int(0, 2);
      if (times % 2) std::sort(a.begin(), a.end());  // the steps are those of any array
      for (const int key : {a[0], a.back(), random.Int(-n, n), INT_MIN, INT_MAX, 0}) {
        EXPECT_EQ(Search::BinarySearch(a.data(), n, key), oracle::BinarySearch(a, n, key))
            << "n " << n << ", key " << key;
        std::vector<int> b = a, ours = a;
        ours.push_back(key / 2), b.push_back(key / 2);
        EXPECT_EQ(Search::SequentialSearch(ours.data(), n, key),
                  oracle::SequentialSearch(b, n, key))
            << "n " << n << ", key " << key;
        EXPECT_EQ(ours, b);
      }
    }
}

TEST(IntegralSearchRecursive, RecursMillionsOfTimesInConstantStack) {
  // With elements that are all too great the arguments move down by one index every three steps.
  constexpr int kSteps = 1000000;
  std::vector<int> cells(kSteps + 1, INT_MAX);
  cells[0] = -kSteps;
  EXPECT_EQ(Search::BinarySearch(cells.data() + kSteps, 0, 0, 0), -kSteps);
}

TEST(IntegralSearch, PrintsItsDemonstrationReport) {
  const std::string text = Written([](FILE* f) { EXPECT_EQ(Search::Test1(f), 1); });
  const int sizes[] = {0,   10,  20,  30,  40,  50,  60,  70,  80,  90,
                       100, 200, 300, 400, 500, 600, 700, 800, 900, 1000};
  std::string pattern =
      "\n@@@\\( CZEPHIntegralSearch::Test1\\(\\)...BEGIN\n"
      "\n@@@\\( Sequential Search Test...\n"
      "\n..Sequential Search TEST1\nFind 14 at \\[7\\]\nFind 20 at \\[-1\\]\n"
      "\n..Sequential Search TEST2: search for 25 in an increasig size array\n"
      "n\tRunTime\tFindID\n";
  const auto result = [](int n) {
    return std::to_string(n == 0 ? -1000 : n < 25 ? -1 : 25) + "\n";
  };
  for (const int n : sizes) pattern += std::to_string(n) + "\t\\d+\t" + result(n);
  pattern +=
      "\n..Sequential Search TEST3: search for 25 in an increasig size array\n"
      "n\tTotal\tRunTime\tFindID\n";
  for (const int n : sizes) pattern += std::to_string(n) + "\t\\d+\t\\d\\.\\d{6}\t" + result(n);
  const char* labels[] = {"2 ", "4 ", "5 ", "6 ", "10", "12", "14",
                          "15", "17", "25", "-1", "9 ", "27"};
  const auto finds = [&](auto answer) {
    std::string lines;
    for (int i = 0; i < 13; ++i)
      lines += std::string("Find ") + labels[i] + " at : " + std::to_string(answer(i)) + " \\(" +
               std::to_string(i < 10 ? i : -1) + "\\)\n";
    return lines;
  };
  pattern +=
      "\n@@@\\( Binary Search Test...\n"
      "@@@\\( Binary Search by Recursive Implementation...\n" +
      finds([](int i) { return i == 4 ? 4 : -1; }) +
      "\n@@@\\( Binary Search by Basic Implementation...\n" +
      finds([](int i) { return i < 10 ? i : -1; }) +
      "\n@@@\\( CZEPHIntegralSearch::Test1\\(\\)...END\n";
  ExpectLines(text, pattern);
}

TEST(IntegralSearch, DemonstrationLabelsTheKeySevenAsSix) {
  const std::string text = Written([](FILE* f) { Search::Test1(f); });
  EXPECT_NE(text.find("Find 6  at : 3 (3)\n"), std::string::npos);
  EXPECT_EQ(text.find("Find 7 "), std::string::npos);
}

TEST(IntegralSearch, DividesTheTotalByTheRepetitionsInSinglePrecision) {
  const std::string text = Written([](FILE* f) { Search::Test1(f); });
  const auto at = text.find("FindID\n", text.find("TEST3"));
  int n = 0, found = 0;
  long total = 0;
  float each = 0;
  ASSERT_EQ(std::sscanf(text.c_str() + at + 7, "%d %ld %f %d", &n, &total, &each, &found), 4);
  EXPECT_EQ(n, 0);
  EXPECT_EQ(found, -1000);
  // The total is read a moment later than the time that is divided.
  EXPECT_LE(each, static_cast<float>(total) / 300000.0f + 1e-6f);
}

TEST(IntegralSearch, PrintsNothingToANullStream) {
  EXPECT_EQ(Search::Test1(nullptr), 0);
}

TEST(IntegralSearch, HasNoDataMembers) {
  Search a, b(a);
  a = b;
  EXPECT_EQ(sizeof(Search), sizeof(void*));
}
