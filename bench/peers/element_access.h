// SPDX-License-Identifier: MIT
//
// Loops over single elements through the inline accessors. Built twice: as a release build has them
// (`plain_access`), and with every precondition checked (`hardened_access`).
#ifndef ZEPH_BENCH_PEERS_ELEMENT_ACCESS_H
#define ZEPH_BENCH_PEERS_ELEMENT_ACCESS_H

#include <double_array.h>
#include <linalg.h>

#define ZEPH_ACCESS_LOOPS                                     \
  double Sum(const CZEPHDoubleArray& a);                      \
  void Scale(const CZEPHDoubleArray& a, CZEPHDoubleArray& b); \
  double Sum(CZEPHMatrix& m);

namespace plain_access {
ZEPH_ACCESS_LOOPS
}
namespace hardened_access {
ZEPH_ACCESS_LOOPS
}

#endif  // ZEPH_BENCH_PEERS_ELEMENT_ACCESS_H
