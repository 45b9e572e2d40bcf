// SPDX-License-Identifier: MIT
//
// A random generator of fifteen bits with the same numbers on every system.
#ifndef ZEPH_SRC_PORTABLE_MATH_RANDOM_H
#define ZEPH_SRC_PORTABLE_MATH_RANDOM_H

namespace zeph::portable_math {

/// The next number, 0..32767, of the linear congruential generator that the C standard shows as an
/// example (ISO/IEC 9899:1999, 7.20.2.2): next = next * 1103515245 + 12345, the number next / 65536
/// modulo
/// 32768. One sequence for the process, from seed 1; threads may draw at once, but two of them may then
/// get the same number.
int DrawFifteenBits();

/// Starts the sequence for `seed`.
void SeedFifteenBits(unsigned seed);

}  // namespace zeph::portable_math

#endif  // ZEPH_SRC_PORTABLE_MATH_RANDOM_H
