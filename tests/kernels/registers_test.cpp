// Every kernel, in every form and at every alignment of the stack, leaves the caller's registers and
// floating-point modes as they were. A wide register spilled to a misaligned address would stop the
// program here.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "kernels/chains.h"
#include "kernels/dense_product.h"
#include "kernels/elementwise.h"
#include "kernels/largest_magnitude.h"
#include "kernels/partition.h"
#include "kernels/row_sums.h"
#include "kernels/search.h"
#include "kernels/sort.h"
#include "support/modes.h"
#include "support/watched_call.h"

namespace zeph::kernels {
namespace {

/// Operands of every kernel: `n` elements in shuffled order, and a square of them.
struct Operands {
  explicit Operands(std::size_t n)
      : x(n), y(n), out(n), ints(n), square(n, std::vector<double>(n)) {
    for (std::size_t i = 0; i < n; ++i) {
      x[i] = static_cast<double>(i * 7919 % 1009) - 500.25;
      y[i] = 3.5 - x[i] / 7;
      ints[i] = static_cast<int>(i * 7919 % 1009);
      for (std::size_t k = 0; k < n; ++k) square[i][k] = x[(i + k) % n];
      rows.push_back(square[i].data());
    }
    results.assign(n, std::vector<double>(n));
    for (auto& row : results) resultRows.push_back(row.data());
  }
  std::vector<double> x, y, out;
  std::vector<int> ints;
  std::vector<std::vector<double>> square, results;
  std::vector<double*> rows, resultRows;
};

struct Call {
  const char* name;
  std::function<void()> work;
};

volatile double kept = 0;  // receives results, so that the calls are made

std::vector<Call> CallsOf(const Table& t, Operands& o) {
  const std::size_t n = o.x.size();
  double *x = o.x.data(), *y = o.y.data(), *out = o.out.data();
  const double* const* m = o.rows.data();
  return {
      {"order_is_unique", [=, &t] { kept = t.sorting->order_is_unique(x, n); }},
      {"sort_ints", [=, &t, &o] { t.sorting->sort_ints(o.ints.data(), n); }},
      {"find_first", [=, &t] { kept = static_cast<double>(t.searching->find_first(x, n, 9.0)); }},
      {"find_last",
       [=, &t, &o] { kept = static_cast<double>(t.searching->find_last(o.ints.data(), n, -1)); }},
      {"first_least",
       [=, &t] { kept = n ? static_cast<double>(t.searching->first_least(x, n)) : 0; }},
      {"none_descends", [=, &t] { kept = t.searching->none_descends(x, n); }},
      {"census", [=, &t] { t.partitions->census(x, n); }},
      {"add", [=, &t] { t.elementwise->add(out, x, y, n); }},
      {"subtract", [=, &t] { t.elementwise->subtract(out, x, y, n); }},
      {"multiply", [=, &t] { t.elementwise->multiply(out, x, y, n); }},
      {"scale", [=, &t] { t.elementwise->scale(out, 1.5, x, n); }},
      {"subtract_from", [=, &t] { t.elementwise->subtract_from(out, 1.5, x, n); }},
      {"fill", [=, &t] { t.elementwise->fill(out, 2.5, n); }},
      {"largest", [=, &t] { kept = n ? t.magnitudes->largest(x, n) : 0; }},
      {"largest_or_nan", [=, &t] { kept = n ? t.magnitudes->largest_or_nan(x, n) : 0; }},
      {"sum", [=, &t] { t.row_sums->sum(out, m, n, n); }},
      {"magnitude", [=, &t] { t.row_sums->magnitude(out, m, n, n); }},
      {"length",
       [=, &t] {
         if (n) t.row_sums->length(out, m, n, n);
       }},
      {"dot", [=, &t] { t.row_sums->dot(out, m, y, n, n); }},
      {"dense", [=, &t, &o] { t.products->dense(o.resultRows.data(), m, m, n, n, n); }},
      {"sort_doubles", [=, &t] { t.sorting->sort_doubles(x, n); }},
      {"sort_chains",
       [=, &t] {
         const std::size_t gap = t.chains->abreast;
         if (gap > 1 && n > gap) kept = t.chains->sort(x, n, gap);
       }},
      {"bounds", [=, &t] { kept = n ? t.partitions->bounds(x, n).least : 0; }},
      {"not_less", [=, &t] { kept = static_cast<double>(t.partitions->not_less(x, n % 64, 1.0)); }},
      {"not_greater",
       [=, &t] { kept = static_cast<double>(t.partitions->not_greater(x, n % 64, 1.0)); }},
      {"part",
       [=, &t] { kept = n < 3 ? 0 : static_cast<double>(t.partitions->part(x, n, x[n - 2])); }},
  };
}

TEST(CallersRegisters, SurviveEveryKernelAtEveryAlignmentOfTheStack) {
  for (const Table* table : RunnableTables())
    for (std::size_t n : {0u, 1u, 5u, 16u, 37u, 130u, 300u})
      for (std::size_t shift : test::kStackShifts) {
        Operands operands(n);
        for (const Call& call : CallsOf(*table, operands))
          EXPECT_STREQ(test::WatchedCall(call.work, shift), "")
              << table->name << " " << call.name << " n=" << n << " shift=" << shift;
      }
}

#if defined(__x86_64__)
TEST(CallersRegisters, TheTestNoticesChangedOnes) {
  if (!test::HasFloatingPointEnvironment())
    GTEST_SKIP() << "the floating-point environment is incomplete here";
  static constexpr unsigned short kSingle =
      0x007f;  // the x87 unit's precision, and nothing trapped
  EXPECT_STREQ(test::WatchedCall([] { asm volatile("fldcw %0"
                                                   :
                                                   : "m"(kSingle)); }, 0),
               "a floating-point control word is not as it was");
  asm volatile("fninit");
#ifdef _WIN64
  // An assembler function that breaks the convention.
  EXPECT_STREQ(test::WatchedCall([] { asm volatile("pxor %xmm9, %xmm9"); }, 0),
               "xmm6 to xmm15 are not as they were");
#endif
}
#endif

}  // namespace
}  // namespace zeph::kernels
