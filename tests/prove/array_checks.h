// Every operation of the double array that reads or orders elements, against the literal steps.
#ifndef ZEPH_TESTS_PROVE_ARRAY_CHECKS_H
#define ZEPH_TESTS_PROVE_ARRAY_CHECKS_H

#include <vector>

#include "prove/proof.h"

namespace zeph::prove {

using Values = std::vector<double>;

void CheckSorts(const Values& v, Case& seen);
void CheckPartitions(const Values& v, double pivot, Case& seen);
void CheckSearches(const Values& v, double key, Case& seen);
/// The first `split` values merged with the others, by the array's and the raw function.
void CheckMerge(const Values& v, std::size_t split, Case& seen);
void CheckNorms(const Values& v, Case& seen);
void CheckArithmetic(const Values& v, const Values& other, Case& seen);

}  // namespace zeph::prove

#endif  // ZEPH_TESTS_PROVE_ARRAY_CHECKS_H
