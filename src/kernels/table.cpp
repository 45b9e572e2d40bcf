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
constexpr Table kAvx2 = {"avx2",
                         &avx2::kSorting,
                         &avx2::kPartitions,
                         &avx2::kSearching,
                         &avx2::kElementwise,
                         &avx2::kMagnitudes,
                         &avx2::kRowSums,
                         &avx2::kProducts,
                         &avx2::kBatch,
                         &avx2::kBatchProducts};
// The builtins also ask whether the system saves the wide registers.
bool HasAvx2() {
  __builtin_cpu_init();
  return __builtin_cpu_supports("avx2");
}

constexpr Table kAvx512 = {"avx512",
                           &avx512::kSorting,
                           &avx512::kPartitions,
                           &avx512::kSearching,
                           &avx512::kElementwise,
                           &avx512::kMagnitudes,
                           kAvx2.row_sums,
                           &avx512::kProducts,
                           &avx512::kBatch,
                           &avx512::kBatchProducts};
bool HasAvx512() {
  return HasAvx2() && __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
         __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl");
}
#endif
// GCOVR_EXCL_STOP

// Worst to best: a level can run only where those before it can.
constexpr Level kLevels[] = {
    {kPortable, Always},
#if ZEPH_X64
    {kAvx2, HasAvx2},
    {kAvx512, HasAvx512},
#endif
};

const Table& Best() {
  const Table* best = nullptr;
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
