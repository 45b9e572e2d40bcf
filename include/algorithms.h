// SPDX-License-Identifier: MIT
//
// algorithms.h -- math utilities, permutations, searches, selection sort, stopwatch.
#ifndef ZEPH_ALGORITHMS_H
#define ZEPH_ALGORITHMS_H

#include "platform.h"

#endif  // ZEPH_ALGORITHMS_H
