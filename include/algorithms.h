// SPDX-License-Identifier: MIT
//
/// @file
/// Math utilities, permutations, searches, selection sort, stopwatch.
//
//   algorithms/mathematics.h      magnitude and range   ZEPH_MathAbs, ZEPH_MathClamp, ...Clamped
//                                 angles                ZEPH_MathConvertToDeg, ...ConvertToRad,
//                                                       ZEPH_MathDegToRad, ...RadToDeg
//                                 whole numbers         ZEPH_MathGetRightMostDigit,
//                                                       ZEPH_MathIntegerDivision
//                                 rounding              ZEPH_MathRoundOff, ZEPH_RoundOffToInt
//                                 powers of ten         ZEPH_MathGetScientificNotationBase,
//                                                       ...Value, ZEPH_MathToScientificNotation
//                                 without effect        ZEPH_MathGetExponent
//   algorithms/random_numbers.h   ZEPH_MathRandomInit, ZEPH_MathRandom; our additions
//                                 ZEPH_MathRandomSeed, ZEPH_MathIsPortable, ZEPH_PortableMath
//   algorithms/permutation.h      CZEPHPermutation: every ordering of a short sequence, a line each
//   algorithms/integral_search.h  CZEPHIntegralSearch: sequential and binary searches
//   algorithms/selection_sort.h   CZEPHSelectionSort of int and double blocks; CZEPHSortTester:
//                                 random fill, and a sorting demonstration by method number
//   algorithms/stopwatch.h        CZEPHDSTimer: a stopwatch in milliseconds of the wall clock
//
// Nothing here checks or rejects an input unless it says so. Functions are safe to call from
// several threads at once, except those that draw random numbers: they share one generator, the
// C runtime's unless ZEPH_PORTABLE_MATH gives the library its own.
#ifndef ZEPH_ALGORITHMS_H
#define ZEPH_ALGORITHMS_H

#include "algorithms/integral_search.h"
#include "algorithms/mathematics.h"
#include "algorithms/permutation.h"
#include "algorithms/random_numbers.h"
#include "algorithms/selection_sort.h"
#include "algorithms/stopwatch.h"

#endif  // ZEPH_ALGORITHMS_H
