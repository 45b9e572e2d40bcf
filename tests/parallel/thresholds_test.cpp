// The size from which each operation runs in parallel: the table of docs/threads.md. Below it no
// thread is started.
#include <gtest/gtest.h>

#ifdef __linux__
#include <fenv.h>

#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "algorithms.h"
#include "double_array.h"
#include "linalg.h"
#include "parallel/modes.h"
#include "parallel/work.h"
#include "raw_buffers.h"
#include "support/child.h"
#include "support/modes.h"
#include "support/numbers.h"
#include "support/scale.h"

namespace zeph::test {
namespace {

/// The threads that `call` starts where four are allowed.
int ThreadsStartedBy(const std::function<void()>& call) {
  ZEPH_SetThreads(1);
  const int before = ThreadsOfTheProcess();
  ZEPH_SetThreads(4);
  call();
  const int started = ThreadsOfTheProcess() - before;
  ZEPH_SetThreads(1);
  for (int tries = 0; ThreadsOfTheProcess() > before && tries < 1000;
       ++tries)  // listed for a moment
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  return started;
}

/// `call(size)` runs in parallel from `least` on: there with two threads, since each thread's part
/// must pay.
void ExpectSharedFrom(int least, const std::string& what, const std::function<void(int)>& call) {
  EXPECT_EQ(0, ThreadsStartedBy([&] { call(least - 1); })) << what;
  EXPECT_EQ(1, ThreadsStartedBy([&] { call(least); })) << what;
  if (kFullScale) {
    EXPECT_EQ(3, ThreadsStartedBy([&] { call(3 * least); })) << what;
  }
}

CZEPHDoubleArray Unordered(int n) {
  CZEPHDoubleArray a(n, 0.0);
  Random random(static_cast<std::uint64_t>(n));
  for (int i = 0; i < n; ++i) a[i] = random.Real(1, 2);
  return a;
}

class ParallelThresholds : public ::testing::Test {
 protected:
  void SetUp() override {
    if (ChildrenAreEmulated()) GTEST_SKIP() << "the emulator's own threads would be counted";
    if (ThreadsOfTheProcess() < 1) GTEST_SKIP() << "the system does not say";
  }
};

TEST_F(ParallelThresholds, OfSortsAreTheDocumentedSizes) {
  const std::pair<const char*, void (*)(CZEPHDoubleArray&)> sorts[] = {
      {"QuickSort", [](CZEPHDoubleArray& a) { a.QuickSort(10); }},
      {"recQuickSort", [](CZEPHDoubleArray& a) { a.recQuickSort(0, a.size - 1, 10); }},
      {"ShellSort", [](CZEPHDoubleArray& a) { a.ShellSort(); }},
      {"InsertionSort", [](CZEPHDoubleArray& a) { a.InsertionSort(); }},
      {"ListInsertSort", [](CZEPHDoubleArray& a) { a.ListInsertSort(); }},
  };
  for (const auto& [name, sort] : sorts)
    ExpectSharedFrom(100'000, name, [sort = sort](int n) {
      CZEPHDoubleArray a = Unordered(n);
      sort(a);
    });
  ExpectSharedFrom(100'000, "CZEPHSelectionSort of ints", [](int n) {
    Random random(3);
    std::vector<int> v(static_cast<std::size_t>(n));
    for (int& x : v) x = random.Int(-1'000'000'000, 1'000'000'000);
    CZEPHSelectionSort::Run(v.data(), n);
  });
  EXPECT_EQ(3, ThreadsStartedBy([] {  // which leaves some elements where they are
              CZEPHDoubleArray a = Unordered(400'000);
              a.BubbleSort();
            }));
}

#ifdef __GLIBC__
/// They must trap on the thread that has the handler.
TEST_F(ParallelThresholds, NothingRunsInParallelWhileFloatingPointExceptionsTrap) {
  const std::pair<const char*, std::function<void()>> operations[] = {
      {"sort",
       [] {
         CZEPHDoubleArray a = Unordered(300'000);
         a.QuickSort(10);
       }},
      {"sum",
       [] {
         const CZEPHDoubleArray a(600'000, 1.5), b(600'000, 2.5);
         EXPECT_EQ((a + b)[599'999], 4.0);
       }},
      {"product", [] {
         CZEPHDoubleMatrix a(200, 200, 1.5), b(200, 200, 0.5);
         a *= b;
       }}};
  const bool traps = HasFloatingPointEnvironment();
  for (const int exception : {FE_DIVBYZERO, FE_INVALID, FE_OVERFLOW, FE_UNDERFLOW})
    for (const auto& [name, operation] : operations)
      EXPECT_EQ(0, ThreadsStartedBy([exception, traps, operation = operation] {
                  feclearexcept(FE_ALL_EXCEPT);  // x87 traps what was raised before, too
                  feenableexcept(exception);
                  const bool here = parallel::Modes().Trap();
                  if (here) operation();
                  const bool asked = fegetexcept() == exception;
                  fedisableexcept(exception);
                  EXPECT_TRUE(here || !asked || !traps) << exception;
                }))
          << name;
  EXPECT_NE(0, ThreadsStartedBy(operations[0].second));
}
#endif

/// One thread counts them faster than several would sort them.
TEST_F(ParallelThresholds, FewDistinctIntsNeverRunInParallel) {
  for (const int distinct : {2, 10, 200})
    EXPECT_EQ(0, ThreadsStartedBy([distinct] {
                Random random(3);
                std::vector<int> v(450'000);
                for (int& x : v) x = random.Int(1, distinct);
                CZEPHSelectionSort::Run(v.data(), static_cast<int>(v.size()));
              }));
}

TEST_F(ParallelThresholds, OfArithmeticAreTheDocumentedSizes) {
  ExpectSharedFrom(500'000, "arrays", [](int n) {
    const CZEPHDoubleArray a(n, 1.5), b(n, 2.5);
    EXPECT_EQ((a + b)[n - 1], 4.0);
  });
  for (const int n : {499'999, 500'000}) {
    CZEPHDoubleArray a(n, 1.5), b(n, 2.5);
    const std::pair<const char*, std::function<void()>> operations[] = {
        {"-", [&] { a - b; }},     {"*", [&] { a* b; }},      {"* s", [&] { a * 2.0; }},
        {"s *", [&] { 2.0 * a; }}, {"/ s", [&] { a / 2.0; }}, {"-a", [&] { -a; }},
        {"+=", [&] { a += b; }},   {"-=", [&] { a -= b; }}};
    for (const auto& [name, operation] : operations)
      EXPECT_EQ(n == 500'000, ThreadsStartedBy(operation)) << name << ' ' << n;
    CZEPHVector v(n, a.data), w(n, b.data);
    const std::pair<const char*, std::function<void()>> ofVectors[] = {{"v +", [&] { v + w; }},
                                                                       {"v -", [&] { v - w; }},
                                                                       {"v *", [&] { v * 2.0; }},
                                                                       {"v /", [&] { v / 2.0; }}};
    for (const auto& [name, operation] : ofVectors)
      EXPECT_EQ(n == 500'000, ThreadsStartedBy(operation)) << name << ' ' << n;
  }
}

/// With `n` rows and columns.
void ExpectSharedFromSquare(int n, const std::string& what,
                            const std::function<void(int, double**, double**)>& call) {
  CZEPHDoubleMatrix a(n, n, 1.5), b(n, n, 0.5);
  EXPECT_EQ(0, ThreadsStartedBy([&] { call(n - 1, a.m_ppData, b.m_ppData); })) << what;
  EXPECT_EQ(1, ThreadsStartedBy([&] { call(n, a.m_ppData, b.m_ppData); })) << what;
}

TEST_F(ParallelThresholds, OfNormsAndTranspositionsAreTheDocumentedSizes) {
  ExpectSharedFromSquare(708, "one",
                         [](int n, double** m, double**) { ZEPH_MatrixOneNorm(m, n, 0); });
  ExpectSharedFromSquare(708, "max",
                         [](int n, double** m, double**) { ZEPH_MatrixMaxNorm(m, n, 0); });
  ExpectSharedFromSquare(500, "Frobenius",
                         [](int n, double** m, double**) { ZEPH_MatrixFrobNorm(m, n, 0); });
  ExpectSharedFromSquare(500, "transposition",
                         [](int n, double** a, double** b) { ZEPH_MatrixTranspose(n, a, b); });
}

TEST_F(ParallelThresholds, OfProductsAndRowSumsAreTheDocumentedSizes) {
  for (const int n : {158, 159}) {
    CZEPHDoubleMatrix a(n, n, 1.5), b(n, n, 0.5);
    EXPECT_EQ(n == 159, ThreadsStartedBy([&] { a *= b; })) << n;
    CZEPHMatrix c(n, n), d(n, n);
    EXPECT_EQ(n == 159, ThreadsStartedBy([&] { c* d; })) << n;
  }
  const int shapes[][4] = {{200, 100, 200, 1}, {100, 200, 200, 1}, {200, 200, 100, 1},
                           {199, 100, 200, 0}, {200, 99, 200, 0},  {200, 100, 199, 0}};
  for (const auto& [rows, inner, cols, threads] : shapes) {
    CZEPHMatrix a(rows, inner), b(inner, cols);
    EXPECT_EQ(threads, ThreadsStartedBy([&] { a* b; })) << rows << ' ' << inner << ' ' << cols;
  }
  for (const int rows : {999, 1000}) {
    CZEPHDoubleMatrix a(rows, 500, 1.5);
    const CZEPHDoubleArray v(500, 1.0);
    EXPECT_EQ(rows == 1000, ThreadsStartedBy([&] { a* v; })) << rows;
    CZEPHMatrix m(rows, 500);
    CZEPHVector sums(rows);
    EXPECT_EQ(rows == 1000, ThreadsStartedBy([&] { ZEPH_SumVector(m, sums); })) << rows;
  }
}

}  // namespace
}  // namespace zeph::test
#endif
