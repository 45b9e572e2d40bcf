// SPDX-License-Identifier: MIT
//
// The random source: the C runtime's generator, which the application shares, or with
// ZEPH_PORTABLE_MATH one of our own.
#ifndef ZEPH_SRC_PLATFORM_RANDOM_H
#define ZEPH_SRC_PLATFORM_RANDOM_H

namespace zeph::platform {

/// The largest number that NextRandom gives.
constexpr int kRandomMax = 32767;

/// The next number of the source, 0..32767: the high 15 bits of `rand` where the runtime's range is
/// larger.
int NextRandom();

/// Seeds the source.
void SeedRandom(unsigned seed);

/// Seeds it with the current time in seconds: two calls within a second give the same sequence.
void SeedRandomFromTime();

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_RANDOM_H
