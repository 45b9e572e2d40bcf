// Times the main loops of the library on one system and prints one per line, with the nanoseconds
// of the best round. Two builds are compared by running them in turns on one machine
// (tools/dev/bench_windows.py).
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

#include "ZEPHDataStructureEngine.h"

namespace {

std::vector<double> Numbers(std::size_t n) {
  std::vector<double> v(n);
  std::uint64_t state = 88172645463325252u;
  for (double& x : v) {
    state ^= state << 13;
    state ^= state >> 7;
    state ^= state << 17;
    x = static_cast<double>(static_cast<std::int64_t>(state) >> 11);
  }
  return v;
}

CZEPHDoubleArray Array(std::size_t n) {
  const auto v = Numbers(n);
  return CZEPHDoubleArray(static_cast<int>(n), v.data());
}

CZEPHMatrix Matrix(int n) {
  return CZEPHMatrix(n, n,
                     Numbers(static_cast<std::size_t>(n) * static_cast<std::size_t>(n)).data());
}

volatile double sink;

/// The least time of `work`, with `prepare` untimed before each round.
void Time(const char* what, int rounds, const std::function<void()>& prepare,
          const std::function<void()>& work) {
  using Clock = std::chrono::steady_clock;
  std::int64_t best = INT64_MAX;
  for (int i = 0; i < rounds; ++i) {
    prepare();
    const auto start = Clock::now();
    work();
    const std::chrono::nanoseconds taken = Clock::now() - start;
    if (taken.count() < best) best = taken.count();
  }
  std::printf("%s\t%lld\n", what, static_cast<long long>(best));
}

}  // namespace

int main() {
  const auto nothing = [] {};
  const CZEPHDoubleArray million = Array(1'000'000), small = Array(20'000);
  CZEPHDoubleArray a(million), b(small);
  const auto fill = [&] { a = million; };
  const auto fillSmall = [&] { b = small; };
  Time("quicksort of 1e6", 15, fill, [&] { a.QuickSort(10); });
  Time("Shell's sort of 1e6", 15, fill, [&] { a.ShellSort(); });
  Time("maximum norm of 1e6", 50, nothing, [&] { sink = million.MaxNorm(); });
  Time("Euclidean norm of 1e6", 50, nothing, [&] { sink = million.TwoNorm(); });
  Time("search through 1e6", 50, fill, [&] { sink = a.Find(0.5); });
  Time("sum of two arrays of 1e6", 50, fill, [&] { a += million; });
  Time("selection sort of 20000", 5, fillSmall, [&] { CZEPHSelectionSort::Run(b.data, 20'000); });
  a = million;
  a.QuickSort(10);
  Time("20000 binary searches in 1e6", 15, nothing, [&] {
    for (int i = 0, at = 0; i < 20'000; ++i) sink = a.BinarySearch(small[i], at);
  });
  // The blocks of small objects: the system's heap determines their times.
  Time("20000 blocks of 80 bytes, new and delete", 30, nothing, [&] {
    for (int i = 0; i < 20'000; ++i) {
      const std::unique_ptr<volatile double[]> block(new volatile double[10]);
      block[0] = sink;
    }
  });
  const CZEPHDoubleArray ten = Array(10);
  Time("20000 sums of two arrays of 10", 30, nothing, [&] {
    for (int i = 0; i < 20'000; ++i) sink = (ten + ten)[0];
  });
  CZEPHMatrix four = Matrix(4);
  Time("20000 matrix products, n = 4", 30, nothing, [&] {
    for (int i = 0; i < 20'000; ++i) sink = (four * four)[3][3];
  });
  CZEPHMatrix m = Matrix(256), n = Matrix(256);
  Time("matrix product, n = 256", 40, nothing, [&] { sink = (m * n)[255][255]; });
}
