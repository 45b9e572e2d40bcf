#include "prove/array_checks.h"

#include <cmath>

#include "double_array/arrays.h"
#include "oracle/raw_norms.h"
#include "oracle/searches.h"
#include "oracle/sorts.h"
#include "raw_buffers.h"

namespace zeph::prove {
namespace {

using test::ArrayOf;
using test::ElementsOf;
using test::SameBits;
using test::SameValues;

int Last(const Values& v) {
  return static_cast<int>(v.size()) - 1;
}

template <class Sort, class Literal>
void CheckSort(const Values& v, const char* what, Sort sort, Literal literal, Case& seen) {
  CZEPHDoubleArray a = ArrayOf(v);
  sort(a);
  Values want = v;
  literal(want);
  seen.Expect(a.size == Last(v) + 1 ? SameBits(a.data, want.data(), v.size())
                                    : ::testing::AssertionFailure()
                                          << "got the size " << a.size << ", want " << Last(v) + 1,
              what);
}

double Absolute(double x) {
  return test::FromBits<double>(test::Bits(x) & ~test::Bits(-0.0));
}
double Product(double x, double y) {
  volatile double product = x * y;
  return product;
}

/// In index order, rounded after each addition.
template <class Term>
double Sum(const Values& v, Term term) {
  volatile double sum = v.empty() ? 0.0 : term(0);
  for (std::size_t i = 1; i < v.size(); ++i) sum = sum + term(i);
  return sum;
}

double Largest(const Values& v) {
  double m = v.empty() ? 0.0 : Absolute(v[0]);
  for (std::size_t i = 1; i < v.size(); ++i)
    if (Absolute(v[i]) > m) m = Absolute(v[i]);
  return m;
}

}  // namespace

void CheckSorts(const Values& v, Case& seen) {
  const int last = Last(v);
  CheckSort(
      v, "BubbleSort", [](auto& a) { a.BubbleSort(); }, oracle::BubbleSort, seen);
  CheckSort(
      v, "ShellSort", [](auto& a) { a.ShellSort(); }, oracle::ShellSort, seen);
  CheckSort(
      v, "ListInsertSort", [](auto& a) { a.ListInsertSort(); }, oracle::ListInsertSort, seen);
  CheckSort(
      v, "InsertionSort", [](auto& a) { a.InsertionSort(); },
      [last](Values& w) { oracle::InsertionSort(w, 0, last); }, seen);
  for (const int cutoff : {1, 2, 3, 4, 10})
    CheckSort(
        v, "QuickSort", [cutoff](auto& a) { a.QuickSort(cutoff); },
        [last, cutoff](Values& w) { oracle::RecQuickSort(w, 0, last, cutoff); }, seen);
  CZEPHDoubleArray a = ArrayOf(v);
  const int sorted = oracle::CheckSorted(v);
  const int said = a.CheckSorted();
  seen.Expect(Both(said, sorted, Both(a.sorted, sorted, ::testing::AssertionSuccess())),
              "CheckSorted");
}

void CheckPartitions(const Values& v, double pivot, Case& seen) {
  if (v.empty()) return;  // no range to partition
  const int last = Last(v);
  CZEPHDoubleArray parted = ArrayOf(v);
  Values want = v;
  int got = parted.Partition(0, last, pivot), wanted = oracle::Partition(want, 0, last, pivot);
  seen.Expect(Both(got, wanted, SameBits(ElementsOf(parted), want)), "Partition");
  if (v.size() < 2) return;
  CZEPHDoubleArray a = ArrayOf(v);
  want = v;
  const double median = a.MedianOf3(0, last);
  const double wantedMedian = oracle::MedianOf3(want, 0, last);
  const auto same = SameBits(median, wantedMedian);
  seen.Expect(same ? SameBits(ElementsOf(a), want) : same, "MedianOf3");
  if (v.size() < 3) return;
  got = a.QuickPartition(0, last, median);
  wanted = oracle::QuickPartition(want, 0, last, median);
  seen.Expect(Both(got, wanted, SameBits(ElementsOf(a), want)), "QuickPartition");
  CZEPHDoubleArray manual = ArrayOf(v);
  want = v;
  manual.ManualSort(0, last);
  oracle::ManualSort(want, 0, last);
  seen.Expect(SameBits(ElementsOf(manual), want), "ManualSort");
}

void CheckSearches(const Values& v, double key, Case& seen) {
  CZEPHDoubleArray a = ArrayOf(v);
  seen.Expect(Both(a.Find(key), oracle::Find(v, key), ::testing::AssertionSuccess()), "Find");
  for (const int sorted : {0, 1}) {
    a.sorted = sorted;
    int index = -77;
    const int found = a.BinarySearch(key, index);
    const oracle::Found want = oracle::BinarySearch(v, sorted != 0, key, -77);
    seen.Expect(Both(found, want.result, Both(index, want.index, ::testing::AssertionSuccess())),
                "BinarySearch");
  }
  Values rest = v;
  const int removed = oracle::Remove(rest, key);
  const int got = a.Remove(key);
  seen.Expect(Both(got, removed, SameBits(ElementsOf(a), rest)), "Remove");
}

void CheckMerge(const Values& v, std::size_t split, Case& seen) {
  Values in = v, want(v.size()), got(v.size()), raw(v.size());
  double* const b = in.data() + split;
  const int na = static_cast<int>(split), nb = static_cast<int>(v.size() - split);
  oracle::Merge(in.data(), na, b, nb, want.data());
  CZEPHDoubleArray a;
  a.MergeSortedArray(in.data(), na, b, nb, got.data());
  ZEPH_ArrayMergeSorted(in.data(), na, b, nb, raw.data());
  seen.Expect(SameBits(got, want), "MergeSortedArray");
  seen.Expect(SameBits(raw, want), "ZEPH_ArrayMergeSorted");
}

void CheckNorms(const Values& v, Case& seen) {
  const CZEPHDoubleArray a = ArrayOf(v);
  const double sum = Sum(v, [&v](std::size_t i) { return Absolute(v[i]); });
  const double squares = Sum(v, [&v](std::size_t i) { return Product(v[i], v[i]); });
  seen.ExpectValue(a.OneNorm(), sum, "OneNorm");
  seen.ExpectValue(a.TwoNorm(), std::sqrt(squares), "TwoNorm");
  const double largest = Largest(v), norm = a.MaxNorm();
  seen.Expect(SameBits(norm, largest), "MaxNorm");
  if (v.empty()) return;
  Values raw = v;
  const int n = Last(v) + 1;
  double* const p = raw.data();
  seen.ExpectValue(ZEPH_ArrayOneNorm(p, n, 0), oracle::ArrayOneNorm(p, n, 0), "ZEPH_ArrayOneNorm");
  seen.ExpectValue(ZEPH_ArrayTwoNorm(p, n, 0), oracle::ArrayTwoNorm(p, n, 0), "ZEPH_ArrayTwoNorm");
  seen.ExpectValue(ZEPH_ArrayTwoNorm2(p, n, 0), oracle::ArrayTwoNorm2(p, n, 0),
                   "ZEPH_ArrayTwoNorm2");
  seen.ExpectValue(ZEPH_ArrayMaxNorm(p, n, 0), oracle::ArrayMaxNorm(p, n, 0), "ZEPH_ArrayMaxNorm");
}

void CheckArithmetic(const Values& v, const Values& other, Case& seen) {
  const CZEPHDoubleArray a = ArrayOf(v), b = ArrayOf(other);
  const auto zip = [&](auto operation) {
    Values out(v.size());
    for (std::size_t i = 0; i < v.size(); ++i) {
      volatile double value = operation(v[i], other[i]);
      out[i] = value;
    }
    return out;
  };
  const auto same = [](const CZEPHDoubleArray& got, const Values& want) {
    return SameValues(ElementsOf(got), want);
  };
  seen.Expect(same(a + b, zip([](double x, double y) { return x + y; })), "+");
  seen.Expect(same(a - b, zip([](double x, double y) { return x - y; })), "-");
  seen.Expect(same(a * b, zip([](double x, double y) { return x * y; })), "*");
  seen.Expect(same(-a, zip([](double x, double) { return 0.0 - x; })), "unary minus");
  const double dot = Sum(v, [&](std::size_t i) { return Product(v[i], other[i]); });
  seen.ExpectValue(ZEPH_ArrayDotProduct(a, b), dot, "ZEPH_ArrayDotProduct");
  CZEPHDoubleArray sum = a;
  sum += b;
  seen.Expect(same(sum, zip([](double x, double y) { return x + y; })), "+=");
}

}  // namespace zeph::prove
