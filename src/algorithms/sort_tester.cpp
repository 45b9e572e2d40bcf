// SPDX-License-Identifier: MIT
#include <cstdint>
#include <cstdio>

#include "algorithms.h"
#include "platform/clock.h"
#include "platform/exactness.h"
#include "platform/random.h"

using zeph::platform::NextRandom;

namespace {

constexpr int kHalfOfDraws = 16383;

void Reseed() {
  const auto seconds = static_cast<std::uint32_t>(zeph::platform::ReadClock().time);
  zeph::platform::SeedRandom(seconds + static_cast<std::uint32_t>(NextRandom()));
}

void Draw(int& x, bool negative) {
  const int draw = NextRandom();
  x = negative ? -draw : draw;
}

void Draw(double& x, bool negative) {
  const int tenths = NextRandom() % 10000;
  x = (negative ? -tenths : tenths) / 10.0;  // negated as an int: there is no -0.0
}

template <class T>
int Fill(T* a, int n, int sign) {
  if (!a || n <= 0) return 0;
  Reseed();
  for (int i = 0; i < n; ++i) Draw(a[i], sign != 0 && NextRandom() >= kHalfOfDraws);
  return 1;
}

}  // namespace

CZEPHSortTester::CZEPHSortTester() {}
CZEPHSortTester::CZEPHSortTester(const CZEPHSortTester&) {}
CZEPHSortTester::~CZEPHSortTester() {}

int CZEPHSortTester::Randomize(int* a, int n, int sign) {
  return Fill(a, n, sign);
}

int CZEPHSortTester::Randomize(double* a, int n, int sign) {
  return Fill(a, n, sign);
}

int CZEPHSortTester::Run(SORT_METHOD_TYPE method, int n, FILE* f) {
  if (!f) return 0;
  std::fprintf(f, "\n@@@( Run Sorting Test...\n");
  if (method == SELECTION_SORT) {
    const CZEPHSelectionSort announced(f);
    CZEPHSelectionSort::Test1(n, stdout);  // whatever `f` is
  } else {
    std::fprintf(f, "@@@@( ERROR: undefined sorting method: %d\n", static_cast<int>(method));
  }
  return 1;
}
