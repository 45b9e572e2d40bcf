// SPDX-License-Identifier: MIT
//
// The intrinsics of the wide forms.
#ifndef ZEPH_SRC_KERNELS_INTRINSICS_X64_H
#define ZEPH_SRC_KERNELS_INTRINSICS_X64_H

#include "kernels/target.h"

#if ZEPH_X64
#include <immintrin.h>

// clang in Visual C++ mode leaves out the headers of instruction sets that its options do not
// enable, although single functions may enable them. Each header needs those before it.
#if defined(__clang__) && defined(_MSC_VER)
// clang-format off
#include <smmintrin.h>
#include <popcntintrin.h>
#include <avxintrin.h>
#include <avx2intrin.h>
#include <avx512fintrin.h>
#include <avx512bwintrin.h>
#include <avx512dqintrin.h>
#include <avx512vlintrin.h>
#include <avx512vlbwintrin.h>
#include <avx512vldqintrin.h>
// clang-format on
#endif
#endif  // ZEPH_X64

#endif  // ZEPH_SRC_KERNELS_INTRINSICS_X64_H
