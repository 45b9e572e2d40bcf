// SPDX-License-Identifier: MIT
#include "kernels/table.h"

#include <cstring>

#include "kernels/forms.h"

#if ZEPH_X64 && defined(_MSC_VER)
#include <intrin.h>

#include "kernels/processor_x64.h"
#endif

namespace zeph::kernels {
namespace {

struct Level {
  Table table;
  bool (*runs)(const Processor& processor);
};

constexpr Table kPortable = {"portable",
                             &portable::kSorting,
                             &portable::kPartitions,
                             &portable::kChains,
                             &portable::kSearching,
                             &portable::kElementwise,
                             &portable::kMagnitudes,
                             &portable::kRowSums,
                             &portable::kProducts,
                             &portable::kBatch,
                             &portable::kBatchProducts};
bool Always(const Processor&) {
  return true;
}

#if ZEPH_X64
constexpr Table UseAvx2(Table table) {
  table.name = "avx2";
  table.sorting = &avx2::kSorting;
  table.partitions = &avx2::kPartitions;
  table.chains = &avx2::kChains;
  table.searching = &avx2::kSearching;
  table.elementwise = &avx2::kElementwise;
  table.magnitudes = &avx2::kMagnitudes;
  table.row_sums = &avx2::kRowSums;
  table.products = &avx2::kProducts;
  table.batch = &avx2::kBatch;
  table.batch_products = &avx2::kBatchProducts;
  return table;
}
#ifdef _MSC_VER  // where the builtins, or the library behind them, are missing
ProcessorAnswers AskProcessor() {
  ProcessorAnswers answers = {};
  int registers[4];
  __cpuidex(registers, 0, 0);
  answers.highest_leaf = static_cast<std::uint32_t>(registers[0]);
  __cpuidex(registers, 1, 0);
  answers.leaf_1_ecx = static_cast<std::uint32_t>(registers[2]);
  if (answers.highest_leaf >= 7) {
    __cpuidex(registers, 7, 0);
    answers.leaf_7_ebx = static_cast<std::uint32_t>(registers[1]);
  }
  if (HasSavedStates(answers.leaf_1_ecx)) answers.saved_by_system = _xgetbv(0);
  return answers;
}
#endif
bool HasAvx2(const Processor& processor) {
  return processor.avx2;
}

constexpr Table UseAvx512(Table table) {
  table.name = "avx512";
  table.sorting = &avx512::kSorting;
  table.partitions = &avx512::kPartitions;
  table.chains = &avx512::kChains;
  table.searching = &avx512::kSearching;
  table.elementwise = &avx512::kElementwise;
  table.magnitudes = &avx512::kMagnitudes;
  table.products = &avx512::kProducts;
  table.batch = &avx512::kBatch;
  table.batch_products = &avx512::kBatchProducts;
  return table;
}
bool HasAvx512(const Processor& p) {
  return p.avx2 && p.avx512f && p.avx512dq && p.avx512bw && p.avx512vl;
}
#endif

#if ZEPH_NEON
constexpr Table UseNeon(Table table) {
  table.name = "neon";
  table.sorting = &neon::kSorting;
  table.partitions = &neon::kPartitions;
  table.searching = &neon::kSearching;
  table.elementwise = &neon::kElementwise;
  table.magnitudes = &neon::kMagnitudes;
  table.row_sums = &neon::kRowSums;
  table.products = &neon::kProducts;
  table.batch = &neon::kBatch;
  table.batch_products = &neon::kBatchProducts;
  return table;
}
#endif

// Worst to best: each level overrides the forms of the level below, and can run only where that one
// can.
constexpr Level kLevels[] = {
    {kPortable, Always},
#if ZEPH_X64
    {UseAvx2(kPortable), HasAvx2},
    {UseAvx512(UseAvx2(kPortable)), HasAvx512},
#endif
#if ZEPH_NEON
    {UseNeon(kPortable), Always},
#endif
};

}  // namespace

// Portable until the initialiser has run: a static object of the application may call us first.
std::atomic<const Table*> detail::active{&kLevels[0].table};

namespace {
[[maybe_unused]] const bool chosen = (Force(BestTable(ThisProcessor())), true);
}

Processor ThisProcessor() {
  Processor processor;
#if ZEPH_X64 && defined(_MSC_VER)
  const ProcessorAnswers answers = AskProcessor();
  processor.avx2 = RunsAvx2(answers);
  processor.avx512f = processor.avx512dq = processor.avx512bw = processor.avx512vl =
      RunsAvx512(answers);
#elif ZEPH_X64
  // The builtins also check that the system saves the wide registers.
  __builtin_cpu_init();
  processor.avx2 = __builtin_cpu_supports("avx2") != 0;
  processor.avx512f = __builtin_cpu_supports("avx512f") != 0;
  processor.avx512dq = __builtin_cpu_supports("avx512dq") != 0;
  processor.avx512bw = __builtin_cpu_supports("avx512bw") != 0;
  processor.avx512vl = __builtin_cpu_supports("avx512vl") != 0;
#endif
  return processor;
}

const Table& BestTable(const Processor& processor) {
  const Table* best = &kLevels[0].table;  // the portable one
  for (const Level& level : kLevels)
    if (level.runs(processor)) best = &level.table;
  return *best;
}

std::vector<const Table*> RunnableTables(const Processor& processor) {
  std::vector<const Table*> tables;
  for (const Level& level : kLevels)
    if (level.runs(processor)) tables.push_back(&level.table);
  return tables;
}
std::vector<const Table*> RunnableTables() {
  return RunnableTables(ThisProcessor());
}

void Force(const Table& table) {
  detail::active = &table;
}

bool Force(const char* name) {
  for (const Table* table : RunnableTables())
    if (std::strcmp(table->name, name) == 0) return Force(*table), true;
  return false;
}

}  // namespace zeph::kernels
