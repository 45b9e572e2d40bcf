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

/// What the wide forms need, bit by bit; AVX-512 needs the first five too.
struct Need {
  std::uint32_t ProcessorAnswers::*word;
  std::uint32_t bit;
  std::uint64_t saved;
};
constexpr std::uint32_t ProcessorAnswers::*kLeaf1 = &ProcessorAnswers::leaf_1_ecx;
constexpr std::uint32_t ProcessorAnswers::*kLeaf7 = &ProcessorAnswers::leaf_7_ebx;
constexpr Need kNeeds[] = {{kLeaf1, 1u << 27, 0}, {kLeaf1, 1u << 28, 0}, {kLeaf7, 1u << 5, 0},
                           {nullptr, 0, 0x02},    {nullptr, 0, 0x04},    {kLeaf7, 1u << 16, 0},
                           {kLeaf7, 1u << 17, 0}, {kLeaf7, 1u << 30, 0}, {kLeaf7, 1u << 31, 0},
                           {nullptr, 0, 0x20},    {nullptr, 0, 0x40},    {nullptr, 0, 0x80}};

/// Every set of the bits, among others that do not matter.
TEST(Processor, RunsAFormWithAllThatItNeedsAndNotWithLess) {
  constexpr unsigned kAll = 0xFFF, kOfAvx2 = 0x1F;
  for (unsigned has = 0; has <= kAll; ++has)
    for (const bool others : {false, true}) {
      ProcessorAnswers answers = {7, 0, 0, 0};
      if (others) answers = {31, ~0u, ~0u, ~std::uint64_t{0}};
      for (unsigned k = 0; k < 12; ++k) {
        const Need& need = kNeeds[k];
        if (need.word)
          answers.*need.word = (answers.*need.word & ~need.bit) | (has >> k & 1 ? need.bit : 0);
        else
          answers.saved_by_system =
              (answers.saved_by_system & ~need.saved) | (has >> k & 1 ? need.saved : 0);
      }
      ASSERT_EQ(RunsAvx2(answers), (has & kOfAvx2) == kOfAvx2) << has;
      ASSERT_EQ(RunsAvx512(answers), has == kAll) << has;
    }
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
