// SPDX-License-Identifier: MIT
#include <cstdio>
#include <memory>
#include <utility>

#include "algorithms.h"
#include "algorithms/int_scan.h"
#include "platform/allocation.h"
#include "platform/exactness.h"
#include "platform/narrow.h"

namespace {

int FirstIndexOfLeast(const double* a, int n) {
  int least = 0;
  for (int j = 1; j < n; ++j)
    if (a[j] < a[least]) least = j;
  return least;
}

void WriteElement(FILE* f, int index, int value) {
  std::fprintf(f, "Array[%2d]= %d\n", index, value);
}

void WriteElement(FILE* f, int index, double value) {
  std::fprintf(f, "Array[%2d]= %12.4lf\n", index, value);
}

template <class T>
void WriteAll(FILE* f, const T* a, int n) {
  for (int i = 0; i < n; ++i) WriteElement(f, i, a[i]);
}

template <class T>
void ReportSorting(FILE* f, int n) {
  const std::unique_ptr<T[]> block(zeph::platform::NewArray<T>(n));
  CZEPHSortTester::Randomize(block.get(), n, 1);
  std::fprintf(f, "===Before Sorting===\n");
  WriteAll(f, block.get(), n);
  CZEPHSelectionSort::Run(block.get(), n);
  std::fprintf(f, "===After Sorting===\n");
  WriteAll(f, block.get(), n);
}

}  // namespace

CZEPHSelectionSort::CZEPHSelectionSort(FILE* f) {
  if (f) std::fprintf(f, "@@@( Selection Sorting Algorithm...by CZEPHSelectionSort\n");
}
CZEPHSelectionSort::CZEPHSelectionSort(const CZEPHSelectionSort&) {}
CZEPHSelectionSort::~CZEPHSelectionSort() {}
CZEPHSelectionSort& CZEPHSelectionSort::operator=(const CZEPHSelectionSort&) {
  return *this;
}

int CZEPHSelectionSort::Run(int* a, int n) {
  if (!a || n < 1) return 0;
  for (int i = 0; i < n; ++i)
    std::swap(a[i], a[i + zeph::algorithms::FirstIndexOfLeast(a + i, n - i)]);
  return 1;
}

int CZEPHSelectionSort::Run(double* a, int n) {
  if (!a || n < 1) return 0;
  for (int i = 0; i < n; ++i) {
    double& least = a[i + FirstIndexOfLeast(a + i, n - i)];
    const int displaced = zeph::platform::TruncateToInt(a[i]);
    a[i] = least;
    least = displaced;  // a[i] itself where it is the least
  }
  return 1;
}

int CZEPHSelectionSort::Test1(int n, FILE* f) {
  if (!f) return 0;
  std::fprintf(f, "\n@@@( CZEPHSelectionSort::Test1()...BEGIN\n");
  std::fprintf(f, "@@@( Interger array sorting...\n");
  ReportSorting<int>(f, n);
  std::fprintf(f, "\n@@@( Double array sorting...\n");
  ReportSorting<double>(f, n);
  std::fprintf(f, "\n@@@( CZEPHSelectionSort::Test1()...END\n");
  return 1;
}
