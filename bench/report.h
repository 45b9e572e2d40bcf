// SPDX-License-Identifier: MIT
//
// Writes the measurements as text, as a page and as plots.
#ifndef ZEPH_BENCH_REPORT_H
#define ZEPH_BENCH_REPORT_H

#include <ostream>
#include <string>
#include <vector>

#include "bench.h"

namespace zeph::bench {

/// "12.3 us", three digits.
std::string Duration(double seconds);

/// The table of ratios peer / ours, lost rows and missed targets marked; true when nothing was
/// missed and every result agreed.
bool PrintTable(std::ostream& out, const std::vector<Row>& rows);

/// Writes `folder`/performance.md and `folder`/plots/*.svg; false when that fails.
bool WritePage(const std::string& folder, const std::vector<Row>& rows);

/// A log-log plot of seconds against n, a line per contender, for the rows of one family and name.
std::string Plot(const std::string& title, const std::vector<const Row*>& rows);

}  // namespace zeph::bench

#endif  // ZEPH_BENCH_REPORT_H
