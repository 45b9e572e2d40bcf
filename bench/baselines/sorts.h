// SPDX-License-Identifier: MIT
//
// The classic sorts step by step, as in a textbook and in the documentation of CZEPHDoubleArray and
// CZEPHSelectionSort.
#ifndef ZEPH_BENCH_BASELINES_SORTS_H
#define ZEPH_BENCH_BASELINES_SORTS_H

namespace zeph::bench::textbook {

void BubbleSort(double* v, int n);  // n - 2 passes
void InsertionSort(double* v, int n);
void ShellSort(double* v, int n);  // each walk down to the start of its chain
void ListInsertSort(double* v, int n);
void SelectionSort(int* v, int n);
void SelectionSort(double* v, int n);  // the displaced value goes through an int

}  // namespace zeph::bench::textbook

#endif  // ZEPH_BENCH_BASELINES_SORTS_H
