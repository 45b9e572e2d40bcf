// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdio>
#include <memory>

#include "algorithms.h"
#include "algorithms/least_finder.h"
#include "parallel/sort.h"
#include "platform/allocation.h"
#include "platform/exactness.h"
#include "platform/format_number.h"
#include "platform/narrow.h"

using namespace zeph::algorithms;

namespace {

using zeph::platform::RealFormat;

void WriteElement(FILE* f, int index, int value) {
  std::fprintf(f, "Array[%2d]= %d\n", index, value);
}

/// As "%12.4lf" has it.
void WriteElement(FILE* f, int index, double value) {
  char text[RealFormat::kRoom];
  const RealFormat format("%.4lf", RealFormat::Notation::kFixed, 4);
  char* const end = format.Write(text, value);
  *end = '\0';
  const auto columns =
      static_cast<int>(format.Columns(value, static_cast<std::size_t>(end - text)));
  std::fprintf(f, "Array[%2d]= %*s%s\n", index, std::max(12 - columns, 0), "", text);
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

// Equal ints are identical, so every sorting algorithm gives the same result.
int CZEPHSelectionSort::Run(int* a, int n) {
  if (!a || n < 1) return 0;
  zeph::parallel::SortAscending(a, static_cast<std::size_t>(n));
  return 1;
}

int CZEPHSelectionSort::Run(double* a, int n) {
  if (!a || n < 1) return 0;
  const auto count = static_cast<std::size_t>(n);
  LeastFinder finder(a, count);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t least = finder.From(i);
    const int displaced = zeph::platform::TruncateToInt(a[i]);
    a[i] = a[least];
    a[least] = displaced;  // a[i] itself where it is the least
    finder.Changed(least);
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
