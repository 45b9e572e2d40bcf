// SPDX-License-Identifier: MIT
//
// Included by every source with floating-point arithmetic: rejects compiler modes that could change
// the documented bits.
#ifndef ZEPH_SRC_PLATFORM_EXACTNESS_H
#define ZEPH_SRC_PLATFORM_EXACTNESS_H

#include <cfloat>
#include <limits>

#ifdef __FAST_MATH__
#error "ZEPHDataStructureEngine cannot be built with fast-math: its results are exact to the bit."
#endif
#if defined(__FINITE_MATH_ONLY__) && __FINITE_MATH_ONLY__
#error "ZEPHDataStructureEngine cannot be built with -ffinite-math-only."
#endif
#if defined(__NO_SIGNED_ZEROS__) || defined(__RECIPROCAL_MATH__) || defined(__ASSOCIATIVE_MATH__)
#error "ZEPHDataStructureEngine cannot be built with parts of fast-math."
#endif
#if FLT_EVAL_METHOD != 0
#error "ZEPHDataStructureEngine needs arithmetic in the operands' own precision (SSE2 on x86)."
#endif
#if defined(_MSC_VER) && !defined(__clang__)
#pragma fp_contract(off)  // before 2022 it fused products and sums under /arch:AVX2
#endif
// g++ fuses alternating sums and differences although contraction is off, where the target allows
// it.
#if defined(__GNUC__) && !defined(__clang__) && (defined(__FMA__) || defined(__AVX512F__))
#error \
    "ZEPHDataStructureEngine needs -mno-fma -mno-avx512f: g++ would round products and sums at once."
#endif

static_assert(std::numeric_limits<double>::is_iec559 && std::numeric_limits<float>::is_iec559,
              "IEEE 754 arithmetic is required");

#endif  // ZEPH_SRC_PLATFORM_EXACTNESS_H
