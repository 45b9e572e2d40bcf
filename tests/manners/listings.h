// Every operation that writes numbers or lines to a C stream, with something to write.
#ifndef ZEPH_TESTS_MANNERS_LISTINGS_H
#define ZEPH_TESTS_MANNERS_LISTINGS_H

#include <cstdio>

#include "ZEPHDataStructureEngine.h"

namespace zeph::test {

/// Whether a listing has numbers with a decimal point: the same each time, or times and random ones.
enum class Decimals { kNone, kSame, kVarying };

struct Listing {
  const char* name;
  Decimals decimals;
  void (*write)(std::FILE* f);
};

inline char listed_name[] = "x";
inline double listed_values[16] = {1.5,  -0.25, 1e10,  1e-10, 12345.678, 2, 0.5, -7.75,
                                   1.25, 3.5,   -1e99, 0.125, 9.5,       6, 8.5, 4.25};
inline double* listed_rows[4] = {listed_values, listed_values + 4, listed_values + 8,
                                 listed_values + 12};
inline int listed_numbers[] = {1, -2, 3, 40000};
inline char listed_letters[] = {'a', 'b', 'c', 'd'};

inline const Listing kListings[] = {
    {"array of doubles", Decimals::kSame,
     [](std::FILE* f) { ZEPH_ArrayDisplay(f, listed_values, 16, listed_name); }},
    {"range of doubles", Decimals::kSame,
     [](std::FILE* f) { ZEPH_ArrayDisplay(f, listed_values, 2, 9, listed_name); }},
    {"array of ints", Decimals::kNone,
     [](std::FILE* f) { ZEPH_ArrayDisplay(f, listed_numbers, 4, listed_name); }},
    {"range of ints", Decimals::kNone,
     [](std::FILE* f) { ZEPH_ArrayDisplay(f, listed_numbers, 0, 2, listed_name); }},
    {"matrix", Decimals::kSame,
     [](std::FILE* f) { ZEPH_MatrixPrint(f, 4, 3, listed_rows, listed_name); }},
    {"square", Decimals::kSame,
     [](std::FILE* f) { ZEPH_MatrixPrint(f, 4, listed_rows, listed_name); }},
    {"3 x 3", Decimals::kSame,
     [](std::FILE* f) { ZEPH_MatrixPrint3(f, listed_rows, listed_name); }},
    {"4 x 4", Decimals::kSame,
     [](std::FILE* f) { ZEPH_MatrixPrint4(f, listed_rows, listed_name); }},
    {"flat 4 x 4", Decimals::kSame,
     [](std::FILE* f) { ZEPH_MatrixPrint4(f, listed_values, listed_name); }},
    {"vector of 3", Decimals::kSame,
     [](std::FILE* f) { ZEPH_VectorPrint3(f, listed_values, listed_name); }},
    {"CZEPHVector", Decimals::kSame,
     [](std::FILE* f) { CZEPHVector(5, listed_values).Display(f, ';'); }},
    {"CZEPHMatrix", Decimals::kSame,
     [](std::FILE* f) {
       CZEPHMatrix m(2, 2);
       for (int i = 0; i < 4; ++i) m[i / 2][i % 2] = listed_values[i];
       m.Display(f, ',');
     }},
    {"orderings of letters", Decimals::kNone,
     [](std::FILE* f) { CZEPHPermutation::Run(listed_letters, 0, 4, f); }},
    {"orderings of ints", Decimals::kNone,
     [](std::FILE* f) { CZEPHPermutation::Run(listed_numbers, 0, 4, f); }},
    {"report of orderings", Decimals::kNone, [](std::FILE* f) { CZEPHPermutation::Test1(f); }},
    {"report of searches", Decimals::kVarying, [](std::FILE* f) { CZEPHIntegralSearch::Test1(f); }},
    {"announced sort", Decimals::kNone,
     [](std::FILE* f) { const CZEPHSelectionSort announced(f); }},
    {"report of sorts", Decimals::kVarying, [](std::FILE* f) { CZEPHSelectionSort::Test1(3, f); }},
    {"report of no sort", Decimals::kNone,
     [](std::FILE* f) {
       CZEPHSortTester::Run(static_cast<CZEPHSortTester::SORT_METHOD_TYPE>(7), 3, f);
     }},
    {"report of a stopwatch", Decimals::kNone, [](std::FILE* f) { CZEPHDSTimer::Test1(0, f); }},
    {"report of stacks", Decimals::kNone, [](std::FILE* f) { CZEPHPointerStack::Test1(3, f); }},
};

}  // namespace zeph::test

#endif  // ZEPH_TESTS_MANNERS_LISTINGS_H
