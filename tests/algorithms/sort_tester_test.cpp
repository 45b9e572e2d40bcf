#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <ctime>
#include <string>
#include <type_traits>
#include <vector>

#include "algorithms.h"
#include "support/bits.h"
#include "support/child.h"
#include "support/random_source.h"
#include "support/second.h"
#include "support/selection_report.h"
#include "support/stream.h"

using namespace zeph::test;
using Tester = CZEPHSortTester;

namespace {

/// Consecutive draws.
class Draws {
 public:
  explicit Draws(std::vector<int> numbers) : numbers_(std::move(numbers)) {}
  int Next() { return numbers_.at(next_++); }

 private:
  std::vector<int> numbers_;
  std::size_t next_ = 0;
};

void Fill(Draws& draws, int sign, int& x) {
  if (sign == 0) {
    x = draws.Next();
  } else {
    const int r = draws.Next();
    x = r >= 16383 ? -draws.Next() : draws.Next();
  }
}
void Fill(Draws& draws, int sign, double& x) {
  if (sign == 0) {
    x = (draws.Next() % 10000) / 10.0;
  } else {
    const int r = draws.Next();
    x = r >= 16383 ? -(draws.Next() % 10000) / 10.0 : (draws.Next() % 10000) / 10.0;
  }
}

/// Randomises with a known generator; `want` is computed from the second in which it ran.
template <class T>
void ExpectRandomised(int sign, int count = 500) {
  for (int attempt = 0; attempt < 10; ++attempt) {
    const int first = DrawsAfterSeed(41, 1)[0];
    Seed(41);
    std::vector<T> got(static_cast<std::size_t>(count) + 1, T(77));
    const std::time_t before = SecondAwayFromItsTurn();
    ASSERT_EQ(Tester::Randomize(got.data(), count, sign), 1) << "attempt " << attempt;
    if (std::time(nullptr) != before) continue;  // the second changed in between
    Draws draws(DrawsAfterSeed(static_cast<unsigned>(before) + static_cast<unsigned>(first),
                               2 * static_cast<std::size_t>(count)));
    std::vector<T> want(static_cast<std::size_t>(count) + 1, T(77));
    for (int i = 0; i < count; ++i) Fill(draws, sign, want[static_cast<std::size_t>(i)]);
    EXPECT_EQ(got, want) << "attempt " << attempt;
    return;
  }
  FAIL() << "no attempt stayed within a second";
}

}  // namespace

TEST(SortTester, SeedsTheRuntimesGeneratorWithTheTimeAndADraw) {
  for (const int sign : {0, 1, -1}) {
    ExpectRandomised<int>(sign);
    ExpectRandomised<double>(sign);
  }
}

TEST(SortTester, DrawsFromTheMiddleOfTheRangeUpMakeAnElementNegative) {
  ExpectRandomised<int>(1, 300'000);  // the middle one is drawn some nine times
}

TEST(SortTester, RandomisesWithinItsRanges) {
  std::vector<int> ints(5000);
  std::vector<double> doubles(5000);
  const auto negatives = [](const auto& values) {
    return std::count_if(values.begin(), values.end(), [](auto x) { return x < 0; });
  };
  Tester::Randomize(ints.data(), 5000, 0);
  Tester::Randomize(doubles.data(), 5000, 0);
  for (const int x : ints) EXPECT_TRUE(x >= 0 && x <= 32767) << x;
  for (const double x : doubles) EXPECT_TRUE(x >= 0 && x <= 999.9) << x;
  Tester::Randomize(ints.data(), 5000, 1);
  Tester::Randomize(doubles.data(), 5000, 1);
  EXPECT_NEAR(static_cast<double>(negatives(ints)), 2500, 500);
  EXPECT_NEAR(static_cast<double>(negatives(doubles)), 2500, 500);
  for (const double x : doubles)
    if (x == 0) {
      EXPECT_SAME_BITS(x, 0.0) << "x " << x;
    }
}

TEST(SortTester, DoesNothingWithoutElements) {
  int a[] = {3};
  double b[] = {3.5};
  Seed(41);
  for (const int n : {0, -1, INT_MIN}) {
    EXPECT_EQ(Tester::Randomize(a, n, 1), 0) << "n " << n;
    EXPECT_EQ(Tester::Randomize(b, n, 1), 0) << "n " << n;
  }
  EXPECT_EQ(Tester::Randomize(static_cast<int*>(nullptr), 1, 1), 0);
  EXPECT_EQ(Tester::Randomize(static_cast<double*>(nullptr), 1, 1), 0);
  EXPECT_EQ(a[0], 3);
  EXPECT_EQ(b[0], 3.5);
  const int next = ZEPH_MathRandom(0);
  EXPECT_EQ(next, DrawsAfterSeed(41, 1)[0]);  // the generator was not used
}

TEST(SortTester, PrintsItsDemonstrationToTheStandardOutputWhateverStreamIsGiven) {
  std::string demonstration;
  const std::string text = Written([&](FILE* f) {
    CaptureStdout capture;
    EXPECT_EQ(Tester::Run(Tester::SELECTION_SORT, 9, f), 1);
    demonstration = capture.Text();
  });
  EXPECT_EQ(
      text,
      "\n@@@( Run Sorting Test...\n@@@( Selection Sorting Algorithm...by CZEPHSelectionSort\n");
  EXPECT_EQ(demonstration, ExpectedSelectionReport(demonstration, 9));
}

TEST(SortTester, PrintsItsDemonstrationForAnyCount) {
  for (const int n : {-1, INT_MIN}) {
    CaptureStdout capture;
    const std::string text = Written([&](FILE* f) {
      EXPECT_THROW(Tester::Run(Tester::SELECTION_SORT, n, f), std::bad_alloc) << n;
    });
    EXPECT_EQ(text,
              "\n@@@( Run Sorting Test...\n@@@( Selection Sorting Algorithm...by "
              "CZEPHSelectionSort\n");
    EXPECT_EQ(capture.Text(),
              "\n@@@( CZEPHSelectionSort::Test1()...BEGIN\n@@@( Interger array sorting...\n");
  }
  for (const int n : {0, 1, 101}) {
    CaptureStdout capture;
    Written([&](FILE* f) { EXPECT_EQ(Tester::Run(Tester::SELECTION_SORT, n, f), 1) << n; });
    const std::string demonstration = capture.Text();
    EXPECT_EQ(demonstration, ExpectedSelectionReport(demonstration, n)) << n;
  }
}

TEST(SortTester, ReportsAnUndefinedMethodByItsNumber) {
  for (const int method : {1, -7, INT_MAX, INT_MIN}) {
    CaptureStdout capture;
    const std::string text = Written([&](FILE* f) {
      EXPECT_EQ(Tester::Run(static_cast<Tester::SORT_METHOD_TYPE>(method), 10, f), 1)
          << "method " << method;
    });
    EXPECT_EQ(capture.Text(), "") << "method " << method;
    EXPECT_EQ(text, "\n@@@( Run Sorting Test...\n@@@@( ERROR: undefined sorting method: " +
                        std::to_string(method) + "\n")
        << "method " << method;
  }
}

TEST(SortTester, DoesNothingWithANullStream) {
  CaptureStdout capture;
  EXPECT_EQ(Tester::Run(Tester::SELECTION_SORT, 10, nullptr), 0);
  EXPECT_EQ(capture.Text(), "");
}

TEST(SortTester, HasNoDataMembers) {
  Tester a, b(a);
  a = b;
  EXPECT_EQ(sizeof(Tester), sizeof(void*));
  EXPECT_TRUE((std::is_same_v<std::underlying_type_t<Tester::SORT_METHOD_TYPE>, int>));
}

TEST(SortTester, ADrawnZeroIsNeverNegative) {
  std::vector<double> values(400'000);  // some forty zeros, half of them negated
  Tester::Randomize(values.data(), static_cast<int>(values.size()), 1);
  int zeros = 0;
  for (const double x : values)
    if (x == 0) {
      ++zeros;
      EXPECT_SAME_BITS(x, 0.0);
    }
  EXPECT_GT(zeros, 0);
}
