// SPDX-License-Identifier: MIT
#include "kernels/table.h"

#include <cstring>

#include "kernels/forms.h"

namespace zeph::kernels {
namespace {

struct Level {
  Table table;
  bool (*runs)();
};

constexpr Table kPortable = {"portable",
                             &portable::kSorting,
                             &portable::kPartitions,
                             &portable::kSearching,
                             &portable::kElementwise,
                             &portable::kMagnitudes,
                             &portable::kRowSums,
                             &portable::kProducts,
                             &portable::kBatch,
                             &portable::kBatchProducts};
bool Always() {
  return true;
}

// GCOVR_EXCL_START: one processor takes one way through here
#if ZEPH_X64
constexpr Table UseAvx2(Table table) {
  table.name = "avx2";
  table.sorting = &avx2::kSorting;
  table.partitions = &avx2::kPartitions;
  table.searching = &avx2::kSearching;
  table.elementwise = &avx2::kElementwise;
  table.magnitudes = &avx2::kMagnitudes;
  table.row_sums = &avx2::kRowSums;
  table.products = &avx2::kProducts;
  table.batch = &avx2::kBatch;
  table.batch_products = &avx2::kBatchProducts;
  return table;
}
// The builtins also ask whether the system saves the wide registers.
bool HasAvx2() {
  __builtin_cpu_init();
  return __builtin_cpu_supports("avx2");
}

constexpr Table UseAvx512(Table table) {
  table.name = "avx512";
  table.sorting = &avx512::kSorting;
  table.partitions = &avx512::kPartitions;
  table.searching = &avx512::kSearching;
  table.elementwise = &avx512::kElementwise;
  table.magnitudes = &avx512::kMagnitudes;
  table.products = &avx512::kProducts;
  table.batch = &avx512::kBatch;
  table.batch_products = &avx512::kBatchProducts;
  return table;
}
bool HasAvx512() {
  return HasAvx2() && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
         __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl");
}
#endif
// GCOVR_EXCL_STOP

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

// Worst to best: each level puts its own forms over those of the level below, and can run only where
// that one can.
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

const Table& Best() {
  const Table* best = &kLevels[0].table;  // the portable one
  for (const Level& level : kLevels)
    if (level.runs()) best = &level.table;
  return *best;
}

}  // namespace

// Portable until the initialiser has run: a static object of the application may call us first.
std::atomic<const Table*> detail::active{&kLevels[0].table};

namespace {
[[maybe_unused]] const bool chosen = (Force(Best()), true);
}

std::vector<const Table*> RunnableTables() {
  std::vector<const Table*> tables;
  for (const Level& level : kLevels)
    if (level.runs()) tables.push_back(&level.table);
  return tables;
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
