// SPDX-License-Identifier: MIT
//
// Which wide forms this build holds, and how a function is compiled for one of them.
#ifndef ZEPH_SRC_KERNELS_TARGET_H
#define ZEPH_SRC_KERNELS_TARGET_H

// AVX2 and AVX-512: 64-bit x86. On Windows the stack is aligned to 16 bytes only, and g++ may spill wide
// registers to it by aligned moves (its bug 54412), so there the assembler must write them as unaligned
// ones, which the build says by ZEPH_UNALIGNED_SPILLS; clang aligns the stack of such a function itself.
#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__)) && \
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

#if defined(__GNUC__) || defined(__clang__)
#define ZEPH_NOINLINE __attribute__((noinline))
#else
#define ZEPH_NOINLINE
#endif

#endif  // ZEPH_SRC_KERNELS_TARGET_H
