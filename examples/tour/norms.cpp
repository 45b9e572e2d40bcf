// Arithmetic on whole arrays, norms and the dot product.
#include <cstdio>

#include "tour.h"

namespace tour {

void ShowNorms(const Context& context) {
  const CZEPHDoubleArray& numbers = context.numbers;
  const int n = numbers.GetSize();
  const CZEPHDoubleArray ones(n, 1.0);
  const double mean = ZEPH_ArrayDotProduct(numbers, ones) / n;
  const CZEPHDoubleArray deviations = numbers - mean * ones;

  std::printf("%-12s %16s %20s\n", "", "the numbers", "less their mean");
  std::printf("%-12s %16.6g %20.6g\n", "OneNorm", numbers.OneNorm(), deviations.OneNorm());
  std::printf("%-12s %16.6g %20.6g\n", "TwoNorm", numbers.TwoNorm(), deviations.TwoNorm());
  std::printf("%-12s %16.6g %20.6g\n", "MaxNorm", numbers.MaxNorm(), deviations.MaxNorm());
  std::printf("\nMean %.6g; mean square deviation %.6g\n", mean,
              ZEPH_ArrayDotProduct(deviations, deviations) / n);
}

}  // namespace tour
