// Algorithms: rounding, scientific notation, permutations and integer searches.
#include <cstdio>

#include <ZEPHDataStructureEngine/algorithms.h>

int main() {
  std::printf("%g %g\n", ZEPH_MathRoundOff(2.3456, 2), ZEPH_MathRoundOff(1234.0, -2));

  int exponent;
  double mantissa;
  const CString text = ZEPH_MathToScientificNotation(12345.678, exponent, mantissa, 2, 3);
  std::printf("%s, exponent %d\n", text.GetString(), exponent);

  char word[] = {'a', 'b', 'c'};
  CZEPHPermutation::Run(word, 0, 3, stdout);

  int a[] = {2, 4, 5, 7, 10};
  std::printf("7 at %d, 6 at %d\n", CZEPHIntegralSearch::BinarySearch(a, 5, 7),
              CZEPHIntegralSearch::BinarySearch(a, 5, 6));
  int b[] = {3, 1, 2};
  CZEPHSelectionSort::Run(b, 3);
  std::printf("%d %d %d\n", b[0], b[1], b[2]);
  return 0;
}
