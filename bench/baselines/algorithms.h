// SPDX-License-Identifier: MIT
//
// The functions of algorithms.h as a user would write them.
#ifndef ZEPH_BENCH_BASELINES_ALGORITHMS_H
#define ZEPH_BENCH_BASELINES_ALGORITHMS_H

#include <cstdio>

namespace zeph::baseline {

void ListOrderings(std::FILE* f, char* s, int k, int n);
void ListOrderings(std::FILE* f, int* s, int k, int n);

}  // namespace zeph::baseline

#endif  // ZEPH_BENCH_BASELINES_ALGORITHMS_H
