// SPDX-License-Identifier: MIT
//
// The intrinsics of the AVX-512 forms, and which of the instruction sets these use.
#ifndef ZEPH_SRC_KERNELS_AVX512_H
#define ZEPH_SRC_KERNELS_AVX512_H

#include "kernels/intrinsics_x64.h"

#if ZEPH_X64

// g++ 12 warns of the deliberately undefined operands inside its own intrinsics at the place where
// they are inlined: so the warning is off for the whole of each file that includes this.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#pragma GCC diagnostic ignored "-Wuninitialized"
#endif

#define ZEPH_AVX512 ZEPH_TARGET("avx512f,avx512dq,avx512bw,avx512vl,popcnt")

#endif  // ZEPH_X64

#endif  // ZEPH_SRC_KERNELS_AVX512_H
