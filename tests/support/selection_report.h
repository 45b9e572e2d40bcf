// The selection sort's report, computed from the random values that it shows before sorting.
#ifndef ZEPH_TESTS_SUPPORT_SELECTION_REPORT_H
#define ZEPH_TESTS_SUPPORT_SELECTION_REPORT_H

#include <cstdio>
#include <string>
#include <vector>

#include "oracle/selection_sort.h"

namespace zeph::test {

namespace detail {

inline std::string ArrayLine(int index, int value) {
  char line[64];
  std::snprintf(line, sizeof line, "Array[%2d]= %d\n", index, value);
  return line;
}
inline std::string ArrayLine(int index, double value) {
  char line[64];
  std::snprintf(line, sizeof line, "Array[%2d]= %12.4f\n", index, value);
  return line;
}

template <class T>
std::string Listing(const std::vector<T>& values) {
  std::string lines;
  int index = 0;
  for (const T value : values) lines += ArrayLine(index++, value);
  return lines;
}

/// The first `n` values listed in `report` after `heading`: the generator's draws.
template <class T>
std::vector<T> ValuesBehind(const std::string& report, const std::string& heading, int n) {
  std::size_t at = report.find("===Before Sorting===", report.find(heading));
  std::vector<T> values;
  for (int i = 0; i < n; ++i) {
    if (at != std::string::npos) at = report.find("]= ", at + 1);
    const bool listed = at != std::string::npos;  // if not, the report is not the expected one
    values.push_back(listed ? static_cast<T>(std::strtod(report.c_str() + at + 3, nullptr)) : T{});
  }
  return values;
}

template <class T>
std::string Sorting(std::vector<T> values) {
  std::string lines = "===Before Sorting===\n" + Listing(values);
  oracle::SelectionSort(values);
  return lines + "===After Sorting===\n" + Listing(values);
}

}  // namespace detail

/// The expected report of `n` values, given those that `report` shows as unsorted.
inline std::string ExpectedSelectionReport(const std::string& report, int n) {
  return "\n@@@( CZEPHSelectionSort::Test1()...BEGIN\n@@@( Interger array sorting...\n" +
         detail::Sorting(detail::ValuesBehind<int>(report, "Interger", n)) +
         "\n@@@( Double array sorting...\n" +
         detail::Sorting(detail::ValuesBehind<double>(report, "Double", n)) +
         "\n@@@( CZEPHSelectionSort::Test1()...END\n";
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_SELECTION_REPORT_H
