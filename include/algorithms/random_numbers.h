// SPDX-License-Identifier: MIT
//
/// @file
/// ZEPH_MathRandom*: random numbers; whether the mathematics is portable.
//
// Draws come from the C runtime's generator, which the application shares: a seed set by either
// serves both. (With ZEPH_PORTABLE_MATH from the library's own: see ZEPH_MathRandomSeed.) They are
// 0..32767 on every system. Until a seed is set, sequences repeat from run to run.
#ifndef ZEPH_ALGORITHMS_RANDOM_NUMBERS_H
#define ZEPH_ALGORITHMS_RANDOM_NUMBERS_H

#include "../platform.h"

/// Seeds the generator with the current time in seconds; twice in a second gives the same sequence.
///
///     ZEPH_MathRandomInit();
///     const int die = 1 + ZEPH_MathRandom(6);  // 1 to 6
ZEPH_API void ZEPH_MathRandomInit();

/// A draw in 0..n-1 (the remainder of a raw draw by `n`); a raw draw, 0..32767, where `n <= 0`.
ZEPH_API int ZEPH_MathRandom(int n);

/// A draw between `lo` and `hi`, in either order: draw * (hi - lo) / 32767.0 + lo. The draw 0 gives
/// `lo` itself; 32767 gives `hi` as far as the three roundings of the formula do.
///
///     const double x = ZEPH_MathRandom(-1.0, 1.0);
///     x >= -1.0 && x <= 1.0;  // 1
ZEPH_API double ZEPH_MathRandom(double lo, double hi);

// ---- Additions: portable mathematics ------------------------------------------------------------

/// Seeds the generator of all the random numbers here.
///
/// That is the C runtime's, seeded as by its `srand`; with ZEPH_PORTABLE_MATH it is one of the
/// library's own, which only the library's functions draw from and seed, and a seed gives the same
/// numbers on every system: the linear congruential generator that the C standard shows as an
/// example, with 32 bits of state and 15 bits a draw, seeded with 1.
///
///     ZEPH_MathRandomSeed(7);
///     const int first = ZEPH_MathRandom(1000);
///     ZEPH_MathRandomSeed(7);
///     ZEPH_MathRandom(1000) == first;  // 1
ZEPH_API void ZEPH_MathRandomSeed(unsigned seed);

/// 1 if the loaded library was built with ZEPH_PORTABLE_MATH, else 0.
///
/// With that option sine, cosine, tangent, decimal logarithm, random numbers and the texts of numbers
/// are the library's own, the same on every system, instead of the C runtime's.
///
///     ZEPH_MathIsPortable() == int(ZEPH_PortableMath);  // 1: the library is the one compiled for
ZEPH_API int ZEPH_MathIsPortable();

/// The same, as known when this program was compiled: what the package it was built with says.
#ifdef ZEPH_PORTABLE_MATH
ZEPH_ADDED inline constexpr bool ZEPH_PortableMath = true;
#else
ZEPH_ADDED inline constexpr bool ZEPH_PortableMath = false;
#endif

#endif  // ZEPH_ALGORITHMS_RANDOM_NUMBERS_H
