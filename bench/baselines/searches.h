// SPDX-License-Identifier: MIT
//
// Searches as a textbook has them.
#ifndef ZEPH_BENCH_BASELINES_SEARCHES_H
#define ZEPH_BENCH_BASELINES_SEARCHES_H

namespace zeph::bench::textbook {

int Find(const double* v, int n, double x);    // the first index, or -1
int SequentialSearch(int* v, int n, int key);  // v[n] down to the sentinel v[0]
int BinarySearch(const int* v, int n, int key);
int BinarySearch(const double* v, int n, double key);

}  // namespace zeph::bench::textbook

#endif  // ZEPH_BENCH_BASELINES_SEARCHES_H
