// Every sort of the double array, whole and in part, against its documented steps.
#include "oracle/sorts.h"
#include "double_array.h"
#include "support/bytes.h"
#include "support/require.h"

namespace {

using zeph::fuzz::Bytes;
using zeph::fuzz::Require;
using zeph::fuzz::RequireBits;
using Doubles = std::vector<double>;

constexpr std::size_t kMost = 600;  // the oracles are quadratic

struct Sorted {
  const char* promise;
  void (*ours)(CZEPHDoubleArray&, int cutoff);
  void (*steps)(Doubles&, int cutoff);
};

const Sorted kWhole[] = {
    {"BubbleSort", [](CZEPHDoubleArray& a, int) { a.BubbleSort(); },
     [](Doubles& v, int) { oracle::BubbleSort(v); }},
    {"InsertionSort", [](CZEPHDoubleArray& a, int) { a.InsertionSort(); },
     [](Doubles& v, int) { oracle::InsertionSort(v, 0, oracle::SizeOf(v) - 1); }},
    {"ListInsertSort", [](CZEPHDoubleArray& a, int) { a.ListInsertSort(); },
     [](Doubles& v, int) { oracle::ListInsertSort(v); }},
    {"ShellSort", [](CZEPHDoubleArray& a, int) { a.ShellSort(); },
     [](Doubles& v, int) { oracle::ShellSort(v); }},
    {"QuickSort", [](CZEPHDoubleArray& a, int cutoff) { a.QuickSort(cutoff); },
     [](Doubles& v, int cutoff) {
       if (!v.empty()) oracle::RecQuickSort(v, 0, oracle::SizeOf(v) - 1, cutoff);
     }},
};

void SortPiece(Bytes& in, CZEPHDoubleArray& a, Doubles& v) {
  const int n = oracle::SizeOf(v);
  int left = in.Int(0, n - 1);
  int right = in.Int(0, n - 1);
  if (left > right) std::swap(left, right);
  const int kept = a.sorted;
  switch (in.Int(0, 4)) {
    case 0:
      a.InsertionSort(left, right);
      oracle::InsertionSort(v, left, right);
      break;
    case 1: {
      const int cutoff = in.Int(-2, 20);
      a.recQuickSort(left, right, cutoff);
      oracle::RecQuickSort(v, left, right, cutoff);
      break;
    }
    case 2:
      a.ManualSort(left, right);
      oracle::ManualSort(v, left, right);
      break;
    case 3: {
      const double pivot = in.Double();
      Require(a.Partition(left, right, pivot) == oracle::Partition(v, left, right, pivot),
              "Partition gives the place of its steps");
      break;
    }
    default: {
      if (right - left < 2) return;
      const double got = a.MedianOf3(left, right);
      const double want = oracle::MedianOf3(v, left, right);
      RequireBits(&got, &want, 1, "MedianOf3 returns the pivot of its steps");
      Require(a.QuickPartition(left, right, got) == oracle::QuickPartition(v, left, right, want),
              "QuickPartition gives the place of its steps");
    }
  }
  Require(a.sorted == kept, "sorting a piece leaves the flag alone");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  Bytes in(data, size);
  const std::size_t what = in.Below(std::size(kWhole) + 2);
  const int cutoff = in.Int(-3, 40);
  Doubles v = in.Doubles(kMost);
  CZEPHDoubleArray a(static_cast<int>(v.size()), v.data());
  if (what < std::size(kWhole)) {
    kWhole[what].ours(a, cutoff);
    kWhole[what].steps(v, cutoff);
    Require(a.sorted == 1, "a sort sets the flag");
    RequireBits(a.GetData(), v.data(), v.size(), kWhole[what].promise);
  } else {
    for (int k = 0; k < 8 && !v.empty() && !in.Empty(); ++k) SortPiece(in, a, v);
    RequireBits(a.GetData(), v.data(), v.size(), "a piece is sorted by its steps");
  }
  Require(a.GetSize() == oracle::SizeOf(v), "a sort keeps the size");
  Require(a.CheckSorted() == oracle::CheckSorted(v), "CheckSorted");
  return 0;
}
