// Breaks one precondition, or keeps it, as the argument names.
#include "double_array.h"

#include <iostream>
#include <sstream>

#include "support/breach.h"

namespace {

using zeph::test::Use;

CZEPHDoubleArray Five() {
  double v[] = {5, 4, 3, 2, 1};
  return CZEPHDoubleArray(5, v);
}

/// Reads `text` into a block of five elements whose array has a smaller size.
void Read(const char* text) {
  CZEPHDoubleArray a = Five();
  a.size = 0;
  std::istringstream is(text);
  is >> a;
}

const zeph::test::Breach kBreaches[] = {
    {"below",
     [] {
       CZEPHDoubleArray a = Five();
       Use(a[-1]);
     }},
    {"behind",
     [] {
       CZEPHDoubleArray a = Five();
       a[5] = 1.0;
     }},
    {"const behind",
     [] {
       const CZEPHDoubleArray a = Five();
       Use(a[5]);
     }},
    {"swap", [] { Five().Swap(0, 5); }},
    {"display",
     [] {
       CString out;
       Five().Display(out, 3, 5);
     }},
    {"behind nothing",
     [] {
       CZEPHDoubleArray a = Five();
       a.size = 0;
       Use(a[3]);
     }},
    {"read more", [] { Read("6 1 2 3 4 5 6"); }},
    {"read as many", [] { Read("5 1 2 3 4 5"); }},
    {"no storage",
     [] {
       CZEPHDoubleArray a;
       Use(a[0]);
     }},
    {"sort nothing", [] { CZEPHDoubleArray().recQuickSort(0, 9, 3); }},
    {"swap nothing", [] { CZEPHDoubleArray().Swap(0, 0); }},
    {"insertion", [] { Five().InsertionSort(0, 5); }},
    {"quick", [] { Five().recQuickSort(-1, 4, 3); }},
    {"manual", [] { Five().ManualSort(3, 5); }},
    {"median", [] { Five().MedianOf3(0, 0); }},
    {"partition", [] { Five().Partition(0, 5, 3.0); }},
    {"quick partition", [] { Five().QuickPartition(2, 3, 3.0); }},
    {"left above", [] { Five().QuickPartition(0, 4, 2.0); }},
    {"right below", [] { Five().QuickPartition(0, 4, 9.0); }},
    {"product", [] { Five() * CZEPHDoubleArray(3, 1.0); }},
    {"dot product", [] { ZEPH_ArrayDotProduct(Five(), CZEPHDoubleArray(3, 1.0)); }},
    {"merge",
     [] {
       double a = 1;
       CZEPHDoubleArray().MergeSortedArray(&a, 1, nullptr, 1, &a);
     }},
    {"message", [] { CZEPHDoubleArray::ErrorMessage(static_cast<char*>(nullptr), std::cout); }},
    {"whole array",
     [] {
       CZEPHDoubleArray a = Five();
       a.InsertionSort(0, 4);
       a.recQuickSort(0, 4, 3);
       a.Swap(0, 4);
       Use(a[0] + a[4]);
     }},
    {"count itself",
     [] {
       CZEPHDoubleArray a = Five();
       a.Resize(6, 1);
       a.size = 5;
       a.CheckBound(5);
       Use(a.GetEntry(5));
     }},
    {"empty ranges",
     [] {
       CZEPHDoubleArray a;
       CString out;
       a.Display(out, 0, 5);
       a.InsertionSort(3, 2);
       a.recQuickSort(9, 0, 3);
       a.ManualSort(1, 0);
       a.Partition(1, 0, 0.0);
     }},
    {"longer right",
     [] {
       CZEPHDoubleArray b(9, 1.0);
       Five() * b;
       ZEPH_ArrayDotProduct(Five(), b);
     }},
    {"right without storage",
     [] {
       Five() * CZEPHDoubleArray();
       ZEPH_ArrayDotProduct(Five(), CZEPHDoubleArray());
     }},
    {"merge nothing", [] { CZEPHDoubleArray().MergeSortedArray(nullptr, 0, nullptr, 0, nullptr); }},
    {"parted piece",
     [] {
       CZEPHDoubleArray a = Five();
       a.QuickPartition(0, 4, a.MedianOf3(0, 4));
     }},
};

}  // namespace

int main(int argc, char** argv) {
  return zeph::test::MakeBreach(argc, argv, kBreaches);
}
