// Which forms an x86 processor's cpuid values allow.
#include "kernels/processor_x64.h"

#include <gtest/gtest.h>

#include "kernels/target.h"

#if ZEPH_X64 && !defined(_MSC_VER)
#include <cpuid.h>
#include <immintrin.h>
#endif

namespace zeph::kernels {
namespace {

constexpr std::uint32_t kSavesAndAvx = 1u << 27 | 1u << 28;
constexpr std::uint32_t kAvx2 = 1u << 5;
constexpr std::uint32_t kAvx512 = 1u << 16 | 1u << 17 | 1u << 30 | 1u << 31;
constexpr ProcessorAnswers kServer = {31, kSavesAndAvx, kAvx2 | kAvx512, 0xE7};

TEST(Processor, WithAllFeaturesRunsBothWideForms) {
  EXPECT_TRUE(RunsAvx2(kServer));
  EXPECT_TRUE(RunsAvx512(kServer));
}

TEST(Processor, WithoutAvx512RunsAvx2) {
  EXPECT_TRUE(RunsAvx2({13, kSavesAndAvx, kAvx2, 0x07}));
  EXPECT_FALSE(RunsAvx512({13, kSavesAndAvx, kAvx2, 0x07}));
}

TEST(Processor, NeedsEveryPartOfAvx512) {
  for (const std::uint32_t part : {1u << 16, 1u << 17, 1u << 30, 1u << 31}) {
    ProcessorAnswers answers = kServer;
    answers.leaf_7_ebx &= ~part;
    EXPECT_TRUE(RunsAvx2(answers)) << part;
    EXPECT_FALSE(RunsAvx512(answers)) << part;
  }
}

TEST(Processor, NeedsAnOperatingSystemThatSavesTheRegisters) {
  for (const std::uint64_t lost : {0x02u, 0x04u}) {
    ProcessorAnswers answers = kServer;
    answers.saved_by_system &= ~lost;
    EXPECT_FALSE(RunsAvx2(answers)) << lost;
    EXPECT_FALSE(RunsAvx512(answers)) << lost;
  }
  for (const std::uint64_t lost : {0x20u, 0x40u, 0x80u}) {
    ProcessorAnswers answers = kServer;
    answers.saved_by_system &= ~lost;
    EXPECT_TRUE(RunsAvx2(answers)) << lost;
    EXPECT_FALSE(RunsAvx512(answers)) << lost;
  }
}

TEST(Processor, WithoutAvx2RunsNeitherWideForm) {
  EXPECT_FALSE(RunsAvx2({13, kSavesAndAvx, 0, 0x07}));
  EXPECT_FALSE(RunsAvx2({6, kSavesAndAvx, kAvx2,
                         0x07}));  // the leaf does not exist, so these are another one's values
  EXPECT_FALSE(RunsAvx2({13, 1u << 28, kAvx2, 0x07}));  // xgetbv is not available
  EXPECT_FALSE(RunsAvx2({13, 1u << 27, kAvx2, 0x07}));
}

#if ZEPH_X64 && !defined(_MSC_VER)
ZEPH_TARGET("xsave") std::uint64_t SavedBySystem() {
  return _xgetbv(0);
}

TEST(Processor, AgreesWithTheCompilersBuiltin) {
  ProcessorAnswers answers = {};
  unsigned a = 0, b = 0, c = 0, d = 0;
  __cpuid(0, answers.highest_leaf, b, c, d);
  __cpuid(1, a, b, answers.leaf_1_ecx, d);
  if (answers.highest_leaf >= 7) __cpuid_count(7, 0, a, answers.leaf_7_ebx, c, d);
  if (HasSavedStates(answers.leaf_1_ecx)) answers.saved_by_system = SavedBySystem();
  EXPECT_EQ(RunsAvx2(answers), __builtin_cpu_supports("avx2") != 0);
  EXPECT_EQ(RunsAvx512(answers),
            __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
                __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl"));
}
#endif

}  // namespace
}  // namespace zeph::kernels
