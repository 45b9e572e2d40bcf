// SPDX-License-Identifier: MIT
//
// Times rows: the contenders of a row take turns, and the best of many rounds counts, so that a
// noisy machine disturbs all of them equally and their ratio least.
#ifndef ZEPH_BENCH_RUNNER_H
#define ZEPH_BENCH_RUNNER_H

#include <functional>
#include <string>
#include <vector>

#include "bench.h"

namespace zeph::bench {

struct Plan {
  std::string filter;    // rows whose label contains it; empty: all
  int rounds = 7;        // repetitions per contender, shuffled among them
  double seconds = 0.4;  // approximate time per row
};

/// Labels of the rows that `filter` selects, in the order they run.
std::vector<std::string> Labels(const std::string& filter);

/// Runs the selected rows; calls `progress` before each.
std::vector<Row> Run(const Plan& plan,
                     const std::function<void(std::size_t done, std::size_t all,
                                              const std::string& label)>& progress);

}  // namespace zeph::bench

#endif  // ZEPH_BENCH_RUNNER_H
