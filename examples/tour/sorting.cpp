// Every sort on a copy of the numbers: do they agree, and how long does each take?
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "tour.h"

namespace tour {
namespace {

struct Method {
  const char* name;
  const char* note;
  void (*sort)(CZEPHDoubleArray&);
};

constexpr Method kMethods[] = {
    {"QuickSort(3)", "pieces of three finished by hand",
     [](CZEPHDoubleArray& a) { a.QuickSort(3); }},
    {"QuickSort(10)", "pieces of ten finished by insertion",
     [](CZEPHDoubleArray& a) { a.QuickSort(10); }},
    {"InsertionSort", "", [](CZEPHDoubleArray& a) { a.InsertionSort(); }},
    {"ListInsertSort", "", [](CZEPHDoubleArray& a) { a.ListInsertSort(); }},
    {"ShellSort", "", [](CZEPHDoubleArray& a) { a.ShellSort(); }},
    {"BubbleSort", "runs n - 2 passes, one short", [](CZEPHDoubleArray& a) { a.BubbleSort(); }},
    {"std::sort", "for comparison", [](CZEPHDoubleArray& a) { std::sort(a.begin(), a.end()); }},
};

constexpr int kSample = 200000;

/// A larger array drawn from the finite ones among the numbers, each draw moved a little so that few are equal:
/// with a NaN the documented steps of some methods would take minutes.
CZEPHDoubleArray DrawSample(const CZEPHDoubleArray& numbers) {
  CZEPHDoubleArray sample(kSample, 0.0);
  std::uint32_t state = 1;
  const auto next = [&state] { return state = state * 1664525u + 1013904223u; };
  for (double& x : sample) {
    const auto at = static_cast<int>(next() % static_cast<std::uint32_t>(numbers.GetSize()));
    x = (std::isfinite(numbers[at]) ? numbers[at] : 0.0) + next() / 4294967296.0;
  }
  return sample;
}

bool SameBits(double a, double b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

std::string Difference(const CZEPHDoubleArray& got, const CZEPHDoubleArray& want) {
  if (std::equal(got.begin(), got.end(), want.begin(), want.end(), SameBits)) return "the same";
  CZEPHDoubleArray exchanged(got);
  exchanged.Swap(0, 1);
  if (std::equal(exchanged.begin(), exchanged.end(), want.begin(), want.end(), SameBits))
    return "the first two exchanged";
  return "different (see below)";
}

/// The best of three runs.
double Milliseconds(const Method& method, const CZEPHDoubleArray& sample) {
  double best = HUGE_VAL;
  for (int run = 0; run < 3; ++run) {
    CZEPHDoubleArray a(sample);
    const auto start = std::chrono::steady_clock::now();
    method.sort(a);
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - start;
    best = std::fmin(best, taken.count());
  }
  return best;
}

void PrintEnds(const CZEPHDoubleArray& a) {
  const int count = a.GetSize();
  const int shown = std::min(count, 5);
  std::printf("Ascending:");
  for (int i = 0; i < shown; ++i) std::printf(" %g", a[i]);
  if (count > 2 * shown) std::printf(" ...");
  for (int i = std::max(shown, count - shown); i < count; ++i) std::printf(" %g", a[i]);
  std::printf("\n\n");
}

}  // namespace

void ShowSorting(const Context& context) {
  CZEPHDoubleArray ascending(context.numbers);
  ascending.QuickSort(3);
  PrintEnds(ascending);

  const CZEPHDoubleArray sample = DrawSample(context.numbers);
  std::printf("%-15s %-26s %-16s %s\n", "method", "outcome",
              (std::to_string(kSample) + " numbers").c_str(), "remark");
  for (const Method& method : kMethods) {
    CZEPHDoubleArray a(context.numbers);
    method.sort(a);
    std::printf("%-15s %-26s %11.2f ms   %s\n", method.name, Difference(a, ascending).c_str(),
                Milliseconds(method, sample), method.note);
  }
  std::printf(
      "\nData that can be in ascending order in one way only are sorted by one shared fast sort.\n"
      "Where a method's own steps would show (NaN, zeros of both signs), the outcome depends on "
      "the\n"
      "method, and what it leaves is worked out with as few of its steps as will do.\n");
  CZEPHDoubleArray drawn(context.numbers);
  std::printf("\nCheckSorted: %d before a sort, %d after it\n", drawn.CheckSorted(),
              ascending.CheckSorted());
}

}  // namespace tour
