// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstdio>
#include <iterator>

#include "algorithms.h"
#include "platform/exactness.h"
#include "platform/format_number.h"

namespace {

using zeph::platform::RealFormat;

constexpr int kSizes[] = {0,   10,  20,  30,  40,  50,  60,  70,  80,  90,
                          100, 200, 300, 400, 500, 600, 700, 800, 900, 1000};
constexpr int kRepetitions[] = {300000, 300000, 200000, 200000, 100000, 100000, 100000,
                                80000,  80000,  50000,  50000,  25000,  15000,  15000,
                                10000,  7500,   7000,   6000,   5000,   5000};
constexpr int kWanted = 25;

// The label "Find 6 " precedes the result for the key 7; the report has always said so.
constexpr struct {
  const char* line;
  int key;
} kFinds[] = {
    {"Find 2  at : %d (0)\n", 2},  {"Find 4  at : %d (1)\n", 4},   {"Find 5  at : %d (2)\n", 5},
    {"Find 6  at : %d (3)\n", 7},  {"Find 10 at : %d (4)\n", 10},  {"Find 12 at : %d (5)\n", 12},
    {"Find 14 at : %d (6)\n", 14}, {"Find 15 at : %d (7)\n", 15},  {"Find 17 at : %d (8)\n", 17},
    {"Find 25 at : %d (9)\n", 25}, {"Find -1 at : %d (-1)\n", -1}, {"Find 9  at : %d (-1)\n", 9},
    {"Find 27 at : %d (-1)\n", 27}};

void ReportFewElements(FILE* f) {
  // Ten elements, searched with a count of 11: the report asks for indices up to 11, so the array
  // has two more elements, with a value that is not searched for.
  int few[12] = {-1, 2, 4, 5, 7, 10, 12, 14, 15, 17};
  std::fprintf(f, "\n..Sequential Search TEST1\n");
  for (const int key : {14, 20})
    std::fprintf(f, "Find %d at [%d]\n", key, CZEPHIntegralSearch::SequentialSearch(few, 11, key));
}

void ReportSingleSearches(FILE* f, int* many) {
  std::fprintf(f, "\n..Sequential Search TEST2: search for %d in an increasig size array\n",
               kWanted);
  std::fprintf(f, "n\tRunTime\tFindID\n");
  for (const int n : kSizes) {
    CZEPHDSTimer watch;
    watch.Start();
    const int found = CZEPHIntegralSearch::SequentialSearch(many, n, kWanted);
    const long elapsed = watch.Stop();
    std::fprintf(f, "%d\t%ld\t%d\n", n, elapsed, found);
  }
}

void ReportRepeatedSearches(FILE* f, int* many) {
  std::fprintf(f, "\n..Sequential Search TEST3: search for %d in an increasig size array\n",
               kWanted);
  std::fprintf(f, "n\tTotal\tRunTime\tFindID\n");
  for (std::size_t row = 0; row < std::size(kSizes); ++row) {
    const int n = kSizes[row];
    const int count = kRepetitions[row];
    int found = 0;
    CZEPHDSTimer watch;
    watch.Start();
    for (int i = 0; i < count; ++i) found = CZEPHIntegralSearch::SequentialSearch(many, n, kWanted);
    const float each = static_cast<float>(watch.Stop()) / static_cast<float>(count);
    const long total = watch.Stop();
    char text[RealFormat::kRoom];
    *RealFormat("%f", RealFormat::Notation::kFixed, 6).Write(text, each) = '\0';
    std::fprintf(f, "%d\t%ld\t%s\t%d\n", n, total, text, found);
  }
}

template <class Search>
void ReportFinds(FILE* f, Search search) {
  for (const auto& find : kFinds) std::fprintf(f, find.line, search(find.key));
}

}  // namespace

int CZEPHIntegralSearch::Test1(FILE* f) {
  if (!f) return 0;
  std::fprintf(f, "\n@@@( CZEPHIntegralSearch::Test1()...BEGIN\n");
  std::fprintf(f, "\n@@@( Sequential Search Test...\n");
  ReportFewElements(f);
  int many[1001];
  for (int i = 0; i < 1001; ++i) many[i] = i;
  ReportSingleSearches(f, many);
  ReportRepeatedSearches(f, many);

  std::fprintf(f, "\n@@@( Binary Search Test...\n");
  int sorted[] = {2, 4, 5, 7, 10, 12, 14, 15, 17, 25};
  std::fprintf(f, "@@@( Binary Search by Recursive Implementation...\n");
  ReportFinds(f, [&](int key) { return BinarySearch(sorted, 0, 9, key); });
  std::fprintf(f, "\n@@@( Binary Search by Basic Implementation...\n");
  ReportFinds(f, [&](int key) { return BinarySearch(sorted, 10, key); });
  std::fprintf(f, "\n@@@( CZEPHIntegralSearch::Test1()...END\n");
  return 1;
}
