// SPDX-License-Identifier: MIT
//
// Selects the form of the inner loops: one table of them is in use at a time. Only this file
// queries the processor.
#ifndef ZEPH_SRC_KERNELS_TABLE_H
#define ZEPH_SRC_KERNELS_TABLE_H

#include <atomic>
#include <vector>

namespace zeph::kernels {

// The families, each described in the header beside it.
struct Sorting;      // sort.h
struct Partitions;   // partition.h
struct Chains;       // chains.h
struct Searching;    // search.h
struct Elementwise;  // elementwise.h
struct Magnitudes;   // largest_magnitude.h
struct RowSums;      // row_sums.h
struct Products;     // dense_product.h
struct Batch;        // batch.h
struct BatchProducts;

/// The kernels of one level: for each family the level's own form, or the best one below it.
struct Table {
  const char* name;  // "portable", "avx2", "avx512" (F, DQ, BW and VL together) or "neon"
  const Sorting* sorting;
  const Partitions* partitions;
  const Chains* chains;
  const Searching* searching;
  const Elementwise* elementwise;
  const Magnitudes* magnitudes;
  const RowSums* row_sums;
  const Products* products;
  const Batch* batch;
  const BatchProducts* batch_products;
};

/// What the levels require of a processor and its system. Every 64-bit ARM processor meets the
/// requirements.
struct Processor {
  bool avx2 = false;
  bool avx512f = false, avx512dq = false, avx512bw = false, avx512vl = false;
};
Processor ThisProcessor();

/// The best table that `processor` can run. Allocates nothing: the first choice is made while the
/// library is loaded.
const Table& BestTable(const Processor& processor);

/// All tables that it can run, worst to best; the portable one always.
std::vector<const Table*> RunnableTables(const Processor& processor);
/// Those of this machine.
std::vector<const Table*> RunnableTables();

namespace detail {
extern std::atomic<const Table*> active;  // here so that Active() is one load
}

/// The table in use: the best runnable one, unless a test chose another.
inline const Table& Active() {
  return *detail::active.load(std::memory_order_relaxed);
}

/// Makes `table`, one of RunnableTables(), the one in use: for tests and benchmarks.
void Force(const Table& table);

/// The same by its name; false (and no change) where no table of that name can run.
bool Force(const char* name);

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_TABLE_H
