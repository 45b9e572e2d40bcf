// SPDX-License-Identifier: MIT
//
// Which wide forms this build holds, and how a function is compiled for one of them.
#ifndef ZEPH_SRC_KERNELS_TARGET_H
#define ZEPH_SRC_KERNELS_TARGET_H

// Visual C++ itself: no attributes, and every intrinsic in every function. With ZEPH_LIKE_CL clang
// compiles the code meant for Visual C++, as a check.
#if defined(_MSC_VER) && (!defined(__clang__) || defined(ZEPH_LIKE_CL))
#define ZEPH_CL 1
#else
#define ZEPH_CL 0
#endif

// AVX2 and AVX-512: 64-bit x86. On Windows the stack is aligned to 16 bytes only, and g++ may spill wide
// registers to it by aligned moves (its bug 54412), so there the assembler must write them as unaligned
// ones, which the build says by ZEPH_UNALIGNED_SPILLS; clang and Visual C++ align the stack of such a
// function themselves.
#if ZEPH_CL && defined(_M_X64) && !defined(_M_ARM64EC)
#define ZEPH_X64 1
#define ZEPH_TARGET(features)
#elif !ZEPH_CL && defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__)) && \
    (!defined(_WIN32) || defined(__clang__) || defined(ZEPH_UNALIGNED_SPILLS))
#define ZEPH_X64 1
#define ZEPH_TARGET(features) __attribute__((target(features)))
#else
#define ZEPH_X64 0
#endif

// NEON, which every 64-bit ARM processor has.
#if defined(__aarch64__) && !defined(__AARCH64EB__) && (defined(__GNUC__) || defined(__clang__))
#define ZEPH_NEON 1
#else
#define ZEPH_NEON 0
#endif

#if ZEPH_CL
#define ZEPH_NOINLINE __declspec(noinline)
#define ZEPH_ALWAYS_INLINE __forceinline
#elif defined(__GNUC__) || defined(__clang__)
#define ZEPH_NOINLINE __attribute__((noinline))
#define ZEPH_ALWAYS_INLINE inline __attribute__((always_inline))
#else
#define ZEPH_NOINLINE
#define ZEPH_ALWAYS_INLINE inline
#endif

#endif  // ZEPH_SRC_KERNELS_TARGET_H
