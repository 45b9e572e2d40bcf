// SPDX-License-Identifier: MIT
//
// The workload over the dynamic array of doubles.
#include "double_array.h"

#include <algorithm>
#include <sstream>

#include "inputs.h"
#include "report.h"

namespace zeph::selftest {
namespace {

using Array = CZEPHDoubleArray;

Array Draw(Inputs& in, int n, Kind kind) {
  return Array(n, in.Values<double>(n, kind).data());
}
void Computed(Digest& digest, const Array& a) {
  digest.Computed(a.data, a.size);
}
void Sorted(Digest& digest, const Array& a) {
  digest.Integer(a.sorted);
  digest.Moved(a.data, a.size);
}

void Arithmetic(Report& report, Inputs& in, int n, Kind kind) {
  const Array a = Draw(in, n, kind), b = Draw(in, n, kind);
  const double s = in.Value<double>(kind);
  Computed(report("a + b"), a + b);
  Computed(report("a - b"), a - b);
  Computed(report("-a"), -a);
  report("+a").Moved((+a).data, n);
  Computed(report("a * b"), a * b);
  Computed(report("s * a"), s * a);
  Computed(report("a * s"), a * s);
  Computed(report("a / s"), a / s);
  Array sum = a, difference = a;
  Computed(report("a += b"), sum += b);
  Computed(report("a -= b"), difference -= b);
  report("ZEPH_ArrayDotProduct").Computed(ZEPH_ArrayDotProduct(a, b));
  Digest& norms = report("norms");
  norms.Computed(a.OneNorm());
  norms.Computed(a.TwoNorm());
  norms.Computed(a.MaxNorm());
}

template <class Sort>
void RunSort(Report& report, const char* name, const Array& source, Sort sort) {
  Array a = source;
  sort(a);
  Sorted(report(name), a);
}

void Sorts(Report& report, Inputs& in, int n, Kind kind) {
  const Array source = Draw(in, n, kind);
  RunSort(report, "BubbleSort", source, [](Array& a) { a.BubbleSort(); });
  RunSort(report, "InsertionSort", source, [](Array& a) { a.InsertionSort(); });
  RunSort(report, "ListInsertSort", source, [](Array& a) { a.ListInsertSort(); });
  RunSort(report, "ShellSort", source, [](Array& a) { a.ShellSort(); });
  RunSort(report, "QuickSort(10)", source, [](Array& a) { a.QuickSort(10); });
  RunSort(report, "QuickSort(3)", source, [](Array& a) { a.QuickSort(3); });
  const int left = n / 4, right = n - 1 - n / 4;
  RunSort(report, "InsertionSort(left, right)", source,
          [=](Array& a) { a.InsertionSort(left, right); });
  RunSort(report, "recQuickSort", source, [=](Array& a) { a.recQuickSort(left, right, 5); });
  if (right > left)
    RunSort(report, "ManualSort", source, [=](Array& a) { a.ManualSort(left, right); });
  const double pivot = source[n / 2];
  RunSort(report, "Partition", source,
          [&](Array& a) { report("Partition").Integer(a.Partition(0, n - 1, pivot)); });
  if (n >= 4 && kind != Kind::kAwkward) {  // with a NaN nothing ends the unlimited scans
    RunSort(report, "MedianOf3, QuickPartition", source, [&](Array& a) {
      const double median = a.MedianOf3(0, n - 1);
      report("MedianOf3, QuickPartition").Moved(median);
      report("MedianOf3, QuickPartition").Integer(a.QuickPartition(0, n - 1, median));
    });
  }
}

void Searches(Report& report, Inputs& in, int n, Kind kind) {
  Array a = Draw(in, n, kind);
  Digest& digest = report("Find, BinarySearch, Remove, CheckSorted");
  digest.Integer(a.CheckSorted());
  a.sorted = 0;
  for (int pass = 0; pass < 2; ++pass) {  // as drawn, then in order
    for (int k = 0; k < std::min(n, 20); ++k) {
      const double key = in.Whole(0, 3) ? a[in.Whole(0, n - 1)] : in.Value<double>(kind);
      int index = -77;
      digest.Integer(a.Find(key));
      digest.Integer(a.BinarySearch(key, index));
      digest.Integer(index);
    }
    if (n > 1) digest.Integer(a.Remove(a[in.Whole(0, n - 1)]));
    n = a.size;
    Sorted(digest, a);
    a.QuickSort(10);
  }
}

void Merging(Report& report, Inputs& in, int n, Kind kind) {
  Array a = Draw(in, n, kind), b = Draw(in, n / 2 + 1, kind);
  a.InsertionSort();
  b.InsertionSort();
  Array out(a.size + b.size, 0.0);
  out.MergeSortedArray(a.data, a.size, b.data, b.size, out.data);
  report("MergeSortedArray").Moved(out.data, out.size);
  a.Resize(n + 3, 1);
  a.Swap(0, n - 1);
  report("Resize, Swap").Moved(a.data, n);
}

void Texts(Report& report, Inputs& in, int n, Kind kind) {
  Array a = Draw(in, n, kind);
  CString text;
  a.Display(text);
  a.Display(text, n / 3, n - 1);
  Digest& listings = report("Display", Rests::kTexts);
  listings.Text(text.GetString(), static_cast<std::size_t>(text.GetLength()));
  std::ostringstream stream;
  a.Display(stream);
  stream << a;
  const std::string written = stream.str();
  report("operator<<", Rests::kTexts).Text(written.data(), written.size());
}

}  // namespace

void RunDoubleArray(Report& report) {
  Inputs in(1);
  for (int round = 0; round < 4; ++round)
    for (Kind kind : kKinds)
      for (int n : Sizes()) {
        Arithmetic(report, in, n, kind);
        Sorts(report, in, n, kind);
        Searches(report, in, n, kind);
        if (kind != Kind::kAwkward) Merging(report, in, n, kind);
        if (round == 0 && n < 100) Texts(report, in, n, kind);
      }
}

}  // namespace zeph::selftest
