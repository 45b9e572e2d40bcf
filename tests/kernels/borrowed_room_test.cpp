// SPDX-License-Identifier: MIT
//
// What borrows memory uses no more than it asked for: each block here ends at a page boundary
// before an inaccessible page.
#include "support/guarded.h"

#ifdef ZEPH_TEST_GUARDED
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "double_array/quick_walk.h"
#include "double_array/shell.h"
#include "double_array/shell_runs.h"
#include "double_array/shell_zeros.h"
#include "kernels/dense_product.h"
#include "kernels/memory.h"
#include "kernels/table.h"
#include "oracle/sorts.h"
#include "support/bits.h"
#include "support/hostile.h"
#include "support/scale.h"

namespace zeph::double_array {
namespace {

using test::Guarded;
using Values = std::vector<double>;

struct Loan {
  std::unique_ptr<Guarded> pages;
  std::size_t bytes;
};
std::map<void*, Loan> lent;
std::size_t lendings = 0;
std::size_t refused = 0;             // this one of the lendings
std::size_t borrowed = 0, most = 0;  // bytes, now and at once

void* Lend(std::size_t bytes) {
  if (++lendings == refused) return nullptr;
  most = std::max(most, borrowed += bytes);
  auto pages = std::make_unique<Guarded>(bytes);
  void* const block = pages->Room<char>(bytes, true);
  lent.emplace(block, Loan{std::move(pages), bytes});
  return block;
}
void TakeBack(void* block) {
  borrowed -= lent.at(block).bytes;
  lent.erase(block);
}
/// The greatest number of bytes that `call` borrows at once.
template <class Call>
std::size_t MostBorrowedBy(Call call) {
  most = 0;
  call();
  return most;
}

class BorrowedMemory : public testing::TestWithParam<const kernels::Table*> {
 protected:
  void SetUp() override {
    kernels::Force(*GetParam());
    borrow_ = kernels::detail::borrow.exchange(Lend);
    give_back_ = kernels::detail::give_back.exchange(TakeBack);
    lendings = refused = 0;
  }
  void TearDown() override {
    kernels::detail::borrow = borrow_;
    kernels::detail::give_back = give_back_;
    kernels::Force(*kernels::RunnableTables().back());
    EXPECT_TRUE(lent.empty());
    EXPECT_GT(lendings, 0u);
  }

 private:
  void* (*borrow_)(std::size_t) = nullptr;
  void (*give_back_)(void*) = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Forms, BorrowedMemory, testing::ValuesIn(kernels::RunnableTables()),
                         [](const auto& form) { return std::string(form.param->name); });

Values Walked(Values v) {
  oracle::ShellSort(v);
  return v;
}

TEST_P(BorrowedMemory, SufficesForShellsSort) {
  for (std::size_t n : {250u, 256u, 257u, 300u, 511u, 512u, 1000u, 1023u})
    test::ForEachHostile(n, n, [](Values v, const std::string& name) {
      const Values want = Walked(v);
      ShellSort(v.data(), v.size());
      ASSERT_TRUE(test::SameBits(v, want)) << name;
    });
}

TEST_P(BorrowedMemory, SufficesForTheRunsOfEveryGap) {
  for (std::size_t n : {9u, 17u, 40u, 100u, 101u, 200u})
    for (std::size_t gap = n / 2; gap > 0; gap /= 2) {
      test::Random random(n + gap);
      Values v(n);
      for (double& x : v) x = random.Real(-9, 9);
      v[n / 3] = v[n - 1] = test::kNaN;
      Values want = v;
      for (std::size_t g = gap; g > 0; g /= 2)
        for (std::size_t i = g; i < n; ++i)
          for (std::size_t j = i; j >= g && want[j - g] > want[j]; j -= g)
            std::swap(want[j - g], want[j]);
      ASSERT_TRUE(ShellSortByRuns(v.data(), n, gap, 2));
      ASSERT_TRUE(test::SameBits(v, want)) << gap << " of " << n;
    }
}

/// Each block in turn, while the others can be had: the result is the same.
TEST_P(BorrowedMemory, MayBeMissingForAnyOfTheBlocksOfShellsSort) {
  for (std::size_t n : {257u, 300u, 1000u})
    test::ForEachHostile(n, n + 1, [](Values v, const std::string& name) {
      const Values want = Walked(v);
      for (refused = 1; refused <= 4; ++refused) {
        lendings = 0;
        Values sorted = v;
        ShellSort(sorted.data(), sorted.size());
        ASSERT_TRUE(test::SameBits(sorted, want)) << name << " without block " << refused;
      }
      refused = 0;
    });
  lendings = 1;
}

/// From few zeros, in a list, to many, in bytes; negatives from none to all others.
TEST_P(BorrowedMemory, SufficesForAnyNumberOfZerosAndNegatives) {
  test::Random random(5);
  for (std::size_t n : {256u, 257u, 270u, 300u, 449u, 512u, 895u})
    for (std::size_t zeros = 1; zeros <= n; zeros += 1 + zeros)
      for (std::size_t negatives = 0; negatives <= n - zeros; negatives += 1 + (n - zeros) / 4) {
        Values v(n, 1.0);
        for (std::size_t k = 0; k < n; ++k)
          v[k] = k < zeros ? (random.Below(2) ? -0.0 : 0.0)
                           : (k < zeros + negatives ? -1.0 : 1.0) * random.Real(1, 9);
        for (std::size_t k = n - 1; k > 0; --k) std::swap(v[k], v[random.Below(k + 1)]);
        const Values want = Walked(v);
        ASSERT_TRUE(ShellSortAroundZeros(v.data(), n, zeros));
        ASSERT_TRUE(test::SameBits(v, want)) << zeros << " and " << negatives << " of " << n;
      }
}

/// 6 n bytes with zeros of both signs, 8 n with a NaN.
TEST_P(BorrowedMemory, IsAsLittleAsDocumentedInShellsSort) {
  for (std::size_t n : {256u, 300u, 1000u, 5000u})
    test::ForEachHostile(n, n + 2, [n](Values v, const std::string& name) {
      const bool nan = std::any_of(v.begin(), v.end(), [](double x) { return x != x; });
      EXPECT_LE(MostBorrowedBy([&] { ShellSort(v.data(), n); }), nan ? 8 * n + 256 : 6 * n + 16)
          << name;
    });
}

/// 1/28 of the bytes of the array, each level of the tree rounded up.
TEST_P(BorrowedMemory, IsAsLittleAsDocumentedInAQuickSort) {
  for (std::size_t n : {16'385u, 20'000u, 40'000u})
    for (const auto content : {test::Content::kBothZeros, test::Content::kOnePercentNans}) {
      Values v = test::Hostile(content, test::Arrangement::kKiller, n, 3);
      EXPECT_LE(MostBorrowedBy([&] { SortAsWalked(v.data(), n, 10); }), 8 * n / 28 + 128) << n;
    }
}

/// More elements than the leaves in the tree itself are for, from one more on.
TEST_P(BorrowedMemory, SufficesForTheBoundsOfATree) {
  for (std::size_t n : {16'385u, 16'448u, 16'449u, 17'000u}) {
    Values v = test::Hostile(test::Content::kBothZeros, test::Arrangement::kKiller, n, 3);
    Values want = v;
    oracle::RecQuickSort(want, 0, oracle::SizeOf(want) - 1, 10);
    SortAsWalked(v.data(), n, 10);
    ASSERT_TRUE(test::SameBits(v, want)) << n;
  }
}

/// 96 KiB, however large the product is.
TEST_P(BorrowedMemory, SufficesForAPanelOfAProduct) {
  constexpr std::size_t kRows = 48, kInner = 270;
  for (std::size_t cols : {385u, 393u, 431u, 432u}) {
    std::vector<Values> a(kRows, Values(kInner, 2.0)), b(kInner, Values(cols, 3.0)), c(kRows, b[0]);
    std::vector<double*> left, right, out;
    for (Values& row : a) left.push_back(row.data());
    for (Values& row : b) right.push_back(row.data());
    for (Values& row : c) out.push_back(row.data());
    // The tables of rows lie at the end of pages too.
    const Guarded tables[3];
    EXPECT_LE(MostBorrowedBy([&] {
                kernels::DenseProduct(tables[0].Copy(out, true), tables[1].Copy(left, true),
                                      tables[2].Copy(right, true), kRows, kInner, cols);
              }),
              96u * 1024);
    for (const Values& row : c) ASSERT_EQ(Values(cols, 6.0 * kInner), row);
  }
}

}  // namespace
}  // namespace zeph::double_array
#endif
