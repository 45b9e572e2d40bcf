// Signals that arrive while the library works, with a handler that uses the library and every register.
#if defined(__linux__)
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/time.h>

#include <algorithm>
#include <atomic>
#include <numeric>
#include <vector>

#include "ZEPHDataStructureEngine.h"
#include "support/scale.h"

namespace {

std::atomic<int> handled{0}, wrong{0};
std::atomic<bool> wanted{false};
double small[40], other[40], merged[80];
CZEPHDoubleArray* sortedToo = nullptr;  // of some hundred elements

/// A signal in 200 microseconds of real time. Only once: an emulator's handler may take longer than that, and
/// signals at a steady rate would then leave no time between them.
void Arrange() {
  const itimerval soon = {{0, 0}, {0, 200}};
  setitimer(ITIMER_REAL, &soon, nullptr);
}

/// Operations that allocate nothing: sorts, a merge, a norm, a search. Then the next signal.
void Handle(int) {
  CZEPHDoubleArray& a = *sortedToo;
  for (int i = 0; i < a.size; ++i) a.data[i] = i * 7919 % 1009;
  handled % 2 ? a.QuickSort(10) : a.ShellSort();
  if (!std::is_sorted(a.data, a.data + a.size)) ++wrong;
  for (int i = 0; i < 40; ++i) small[i] = i, other[i] = i + 0.5;
  ZEPH_ArrayMergeSorted(small, 40, other, 40, merged);
  if (!std::is_sorted(merged, merged + 80) || ZEPH_ArrayMaxNorm(merged, 80, 0) != 39.5) ++wrong;
  int numbers[50];
  std::iota(numbers, numbers + 50, 0);
  if (CZEPHIntegralSearch::BinarySearch(numbers, 50, 33) != 33) ++wrong;
  ++handled;
  if (wanted) Arrange();
}

/// One signal after the other. Afterwards a late one is ignored: the handler's array ends before the process.
class Signals {
 public:
  Signals() {
    struct sigaction action = {};
    action.sa_handler = Handle;
    sigaction(SIGALRM, &action, nullptr);
    wanted = true;
    Arrange();
  }
  ~Signals() {
    wanted = false;
    signal(SIGALRM, SIG_IGN);
  }
  Signals(const Signals&) = delete;
  Signals& operator=(const Signals&) = delete;
};

TEST(Signals, DisturbNeitherSortsNorProducts) {
  std::vector<double> v(20'000);
  unsigned state = 7;
  for (double& x : v) x = static_cast<double>((state = state * 1664525u + 1013904223u) >> 8);
  std::vector<double> want = v;
  std::sort(want.begin(), want.end());
  CZEPHDoubleMatrix a(60, 60, 1.0), b(60, 60, 3.0);
  static CZEPHDoubleArray some(700, 0.0);
  sortedToo = &some;
  const Signals signals;
  for (int round = 0; handled < zeph::test::Scaled(200, 20) && round < 100'000; ++round) {
    CZEPHDoubleArray sorted(static_cast<int>(v.size()), v.data());
    round % 2 ? sorted.QuickSort(3) : sorted.ShellSort();
    ASSERT_TRUE(std::equal(want.begin(), want.end(), sorted.begin())) << round;
    CZEPHDoubleMatrix c(a);
    c *= b;
    ASSERT_EQ(180.0, c[59][59]) << "round " << round;
  }
  EXPECT_GT(handled, 0);
  EXPECT_EQ(0, wrong);
}

}  // namespace
#endif
