// SPDX-License-Identifier: MIT
//
// Which wide forms an x86 processor and its system can run, decoded from cpuid and xgetbv: for
// compilers without a builtin for it.
#ifndef ZEPH_SRC_KERNELS_PROCESSOR_X64_H
#define ZEPH_SRC_KERNELS_PROCESSOR_X64_H

#include <cstdint>

namespace zeph::kernels {

/// The processor's answers, by the instructions' and registers' names.
struct ProcessorAnswers {
  std::uint32_t highest_leaf;     // cpuid 0, eax
  std::uint32_t leaf_1_ecx;       // cpuid 1, ecx
  std::uint32_t leaf_7_ebx;       // cpuid 7:0, ebx; 0 where there is no such leaf
  std::uint64_t saved_by_system;  // xgetbv 0; 0 where the system has not enabled it
};

/// Whether, by `answers`, the instruction xgetbv can be used.
constexpr bool HasSavedStates(std::uint32_t leaf_1_ecx) {
  return leaf_1_ecx >> 27 & 1;
}

/// AVX2, with registers that the system saves at a context switch.
constexpr bool RunsAvx2(const ProcessorAnswers& answers) {
  constexpr std::uint64_t kXmmAndYmm = 0x06;
  const bool avx = HasSavedStates(answers.leaf_1_ecx) && answers.leaf_1_ecx >> 28 & 1;
  return avx && (answers.saved_by_system & kXmmAndYmm) == kXmmAndYmm && answers.highest_leaf >= 7 &&
         answers.leaf_7_ebx >> 5 & 1;
}

/// F, DQ, BW and VL of AVX-512, with registers that the system saves.
constexpr bool RunsAvx512(const ProcessorAnswers& answers) {
  constexpr std::uint64_t kAll = 0xE6;
  constexpr std::uint32_t kParts = 1u << 16 | 1u << 17 | 1u << 30 | 1u << 31;
  return RunsAvx2(answers) && (answers.saved_by_system & kAll) == kAll &&
         (answers.leaf_7_ebx & kParts) == kParts;
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_PROCESSOR_X64_H
