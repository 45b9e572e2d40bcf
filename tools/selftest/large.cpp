// SPDX-License-Identifier: MIT
//
// The workload over operations large enough to be divided among threads, where they are allowed:
// the digest is the same for any number of them.
#include <cstddef>

#include "algorithms.h"
#include "double_array.h"
#include "inputs.h"
#include "linalg.h"
#include "raw_buffers.h"
#include "report.h"

namespace zeph::selftest {
namespace {

using Array = CZEPHDoubleArray;

Array Draw(Inputs& in, int n, Kind kind) {
  return Array(n, in.Values<double>(n, kind).data());
}

CZEPHMatrix DrawMatrix(Inputs& in, int rows, int cols, Kind kind) {
  CZEPHMatrix m(rows, cols);
  for (int i = 0; i < rows; ++i) in.Fill(m.m_ppData[i], cols, kind);
  return m;
}

template <class Sort>
void RunSort(Report& report, const char* name, const Array& source, Sort sort) {
  Array a = source;
  sort(a);
  report(name).Moved(a.data, a.size);
}

void Sorts(Report& report, Inputs& in, Kind kind) {
  const Array source = Draw(in, 130'000, kind);
  RunSort(report, "QuickSort(10)", source, [](Array& a) { a.QuickSort(10); });
  RunSort(report, "ShellSort", source, [](Array& a) { a.ShellSort(); });
  RunSort(report, "BubbleSort", source, [](Array& a) { a.BubbleSort(); });
  RunSort(report, "InsertionSort", source, [](Array& a) { a.InsertionSort(); });
  RunSort(report, "ListInsertSort", source, [](Array& a) { a.ListInsertSort(); });
  RunSort(report, "QuickSort(3)", Draw(in, 520'000, kind), [](Array& a) { a.QuickSort(3); });
  std::vector<int> whole;
  for (int i = 0; i < 120'000; ++i) whole.push_back(in.Whole(-99999, 99999));
  CZEPHSelectionSort::Run(whole.data(), static_cast<int>(whole.size()));
  for (const int x : whole) report("CZEPHSelectionSort").Integer(x);
}

void Products(Report& report, Inputs& in, Kind kind) {
  CZEPHMatrix a = DrawMatrix(in, 150, 160, kind), b = DrawMatrix(in, 160, 170, kind);
  const CZEPHMatrix product = a * b;
  for (int i = 0; i < product.m_nRows; ++i)
    report("products").Computed(product.m_ppData[i], product.m_nColumns);
}

void Rows(Report& report, Inputs& in, Kind kind) {
  constexpr int kSize = 710;
  CZEPHMatrix m = DrawMatrix(in, kSize, kSize, kind), transposed(kSize, kSize);
  report("norms").Computed(ZEPH_MatrixOneNorm(m.m_ppData, kSize, 0));
  report("norms").Computed(ZEPH_MatrixMaxNorm(m.m_ppData, kSize, 0));
  report("norms").Computed(ZEPH_MatrixFrobNorm(m.m_ppData, kSize, 0));
  const CZEPHVector sums = ZEPH_SumVector(m);
  report("row sums").Computed(sums.m_pData, sums.m_nSize);
  const CZEPHDoubleMatrix d(kSize, kSize, m.m_ppData);
  const Array times = d * Draw(in, kSize, kind);
  report("matrix times array").Computed(times.data, times.size);
  ZEPH_MatrixTranspose(kSize, m.m_ppData, transposed.m_ppData);
  for (int i = 0; i < kSize; ++i) report("transposition").Moved(transposed.m_ppData[i], kSize);
}

void Elements(Report& report, Inputs& in, Kind kind) {
  const Array a = Draw(in, 510'000, kind), b = Draw(in, 510'000, kind);
  const Array combined = (a + b) * (a - b) / 3.0;
  report("elements").Computed(combined.data, combined.size);
}

}  // namespace

void RunLarge(Report& report) {
  Inputs in(7);
  for (Kind kind : kKinds) {
    Sorts(report, in, kind);
    Products(report, in, kind);
    Rows(report, in, kind);
    Elements(report, in, kind);
  }
}

}  // namespace zeph::selftest
