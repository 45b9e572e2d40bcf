// How the shared sort divides its work: threads pay only where each has about as much of it.
#include "parallel/shared_sort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "ZEPHDataStructureEngine.h"
#include "support/random.h"
#include "support/scale.h"
#include "support/small_stack.h"

namespace zeph::test {
namespace {

std::vector<std::size_t> pieces;  // of the last sort

struct Noted {
  static void SortsPiece(std::size_t n) { pieces.push_back(n); }
};

/// Sorts `v` on `threads` threads; false where that is left to one of them.
template <class T>
bool SortOn(int threads, std::vector<T> v) {
  std::vector<T> want = v;
  std::sort(want.begin(), want.end());
  pieces.clear();
  const ZEPH_ThreadScope scope(threads);
  const bool shared = parallel::SharedSort<T, Noted>(v.data(), v.size(), threads).Run();
  EXPECT_TRUE(!shared || v == want) << v.size() << " elements on " << threads << " threads";
  return shared;
}

/// All elements are in some piece, and each piece is about as long as the others.
void ExpectEvenPieces(std::size_t n, std::size_t count, const std::string& what) {
  std::size_t all = 0;
  for (const std::size_t length : pieces) all += length;
  EXPECT_EQ(all, n) << what;
  EXPECT_EQ(pieces.size(), count) << what;
  const auto [least, most] = std::minmax_element(pieces.begin(), pieces.end());
  EXPECT_GT(*least * count * 2, n) << what << ": the shortest piece has " << *least << " of " << n;
  EXPECT_LT(*most * count, n * 2) << what << ": the longest piece has " << *most << " of " << n;
}

template <class T>
std::vector<T> RandomElements(std::size_t n) {
  Random random(n);
  std::vector<T> v(n);
  for (T& x : v) x = static_cast<T>(random.Int(-1'000'000'000, 1'000'000'000));
  return v;
}

template <class T>
void ExpectEvenPiecesOfEveryOrder(std::size_t n, int threads) {
  const auto count = static_cast<std::size_t>(threads);
  const std::string what = std::to_string(n) + " on " + std::to_string(threads) + ", ";
  std::vector<T> v = RandomElements<T>(n);
  ASSERT_TRUE(SortOn(threads, v));
  ExpectEvenPieces(n, count, what + "random");
  for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<T>(i < n / 2 ? i : n - i);
  ASSERT_TRUE(SortOn(threads, v));
  ExpectEvenPieces(n, count, what + "up and down");
  for (std::size_t i = 0; i < n; ++i) v[i] = static_cast<T>(i % 64 * n + i / 64);
  ASSERT_TRUE(SortOn(threads, v));
  ExpectEvenPieces(n, count, what + "in 64 interleaved runs");
}

}  // namespace

#ifndef ZEPH_TEST_SANITIZED  // whose frames are larger
TEST(SharedSort, TakesLittleOfTheCallersStack) {
  const bool ran = RunOnSmallStack(std::size_t{128} << 10, [] {
    EXPECT_TRUE(SortOn(4, RandomElements<double>(600'000)));
    EXPECT_TRUE(SortOn(4, RandomElements<int>(600'000)));
  });
  if (!ran) GTEST_SKIP() << "the system creates no thread with such a stack";
}
#endif

TEST(SharedSort, DividesDoublesEvenlyAmongThreads) {
  for (const int threads : {2, 3, 4, 7}) ExpectEvenPiecesOfEveryOrder<double>(150'011, threads);
}

TEST(SharedSort, DividesIntsEvenlyAmongThreads) {
  for (const int threads : {3, 7}) ExpectEvenPiecesOfEveryOrder<int>(150'011, threads);
}

TEST(SharedSort, MakesTwoPiecesForEachThreadOfLongArrays) {
  constexpr std::size_t kLong = 2 * 2 * 200 * 1024;
  ASSERT_TRUE(SortOn(2, RandomElements<double>(kLong)));
  ExpectEvenPieces(kLong, 4, "long");
  ASSERT_TRUE(SortOn(2, RandomElements<double>(kLong - 1)));
  ExpectEvenPieces(kLong - 1, 2, "not as long");
}

TEST(SharedSort, SharesNoPieceWithoutSixteenThousandElementsForEachThread) {
  ASSERT_TRUE(SortOn(2, RandomElements<double>(2 * 16 * 1024)));
  EXPECT_EQ(pieces.size(), 2u);
  ASSERT_TRUE(SortOn(2, RandomElements<double>(2 * 16 * 1024 - 1)));
  EXPECT_EQ(pieces.size(), 1u);
  ASSERT_TRUE(SortOn(64, RandomElements<double>(6 * 16 * 1024)));
  EXPECT_LE(pieces.size(), 6u);
  EXPECT_GE(pieces.size(), 4u);
}

TEST(SharedSort, LeavesFewValuesToOneThread) {
  Random random(3);
  for (const int values : {1, 2, 100}) {
    std::vector<double> v(150'000);
    for (double& x : v) x = random.Int(1, values);
    EXPECT_FALSE(SortOn(4, v)) << values;
  }
}

TEST(SharedSort, DividesTheOtherElementsWhereOneValueIsFrequent) {
  Random random(5);
  std::vector<double> v(200'000);
  for (double& x : v) x = random.Int(0, 2) == 0 ? 0.5 : random.Int(-1'000'000'000, 1'000'000'000);
  ASSERT_TRUE(SortOn(4, v));
  EXPECT_GE(pieces.size(), 3u);  // how many depends on where the equal ones come to stand
  EXPECT_LT(*std::max_element(pieces.begin(), pieces.end()), v.size() / 2);
}

// There is room for no more. A value that is frequent within a part of the elements leaves few of that part, or
// nearly all, on one side of the pivot.
TEST(SharedSort, MakesNoMorePiecesThanItIsAskedForWhateverIsFrequent) {
  Random random(11);
  int shared = 0;
  for (int times = 0; times < 24; ++times) {
    const int threads = 4 * random.Int(1, 3), parts = threads / 2;
    const auto part = std::ptrdiff_t{2 * 32 * 1024};  // two pieces, with room for a third
    std::vector<double> v(static_cast<std::size_t>(part * parts));
    for (std::size_t i = 0; i < v.size(); ++i) v[i] = static_cast<double>(i);
    for (int k = times % 2; k < parts; k += 2) {
      const std::ptrdiff_t length = part * random.Int(4, 9) / 10;
      const auto frequent = v.begin() + k * part + (part - length) * random.Int(0, 10) / 10;
      std::fill_n(frequent, length, *frequent);
    }
    for (std::size_t i = v.size(); i-- > 1;)
      std::swap(v[i], v[static_cast<std::size_t>(random.Int(0, static_cast<int>(i)))]);
    if (!SortOn(threads, v)) continue;
    ++shared;
    EXPECT_LE(pieces.size(), static_cast<std::size_t>(threads)) << times;
    EXPECT_EQ(std::count(pieces.begin(), pieces.end(), 0u), 0) << times;
  }
  EXPECT_GT(shared, 8);
}

}  // namespace zeph::test
