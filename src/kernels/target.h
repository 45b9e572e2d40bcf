// SPDX-License-Identifier: MIT
//
// Which wide forms this build holds, and how a function is compiled for one of them.
#ifndef ZEPH_SRC_KERNELS_TARGET_H
#define ZEPH_SRC_KERNELS_TARGET_H

// AVX2 and AVX-512: 64-bit x86 outside Windows, where the stack alignment of 32-byte spills is not
// proven.
#if defined(__x86_64__) && !defined(_WIN32) && (defined(__GNUC__) || defined(__clang__))
#define ZEPH_X64 1
#define ZEPH_TARGET(features) __attribute__((target(features)))
#else
#define ZEPH_X64 0
#endif

#endif  // ZEPH_SRC_KERNELS_TARGET_H
