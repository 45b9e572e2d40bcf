// Linear algebra: dense matrices, their products and rows; the small double 3-vector.
#include <cstdio>
#include <iostream>

#include <ZEPHDataStructureEngine/linalg.h>

int main() {
  CZEPHDoubleMatrix a(2, 2, 1.0), b(2, 2, 3.0);
  a[0][1] = 5;
  a *= b;  // in place; b must be square
  std::printf("%g %g / %g %g\n", a[0][0], a[0][1], a[1][0], a[1][1]);

  CZEPHDoubleArray rowSums = a * CZEPHDoubleArray(2, 1.0);
  std::cout << rowSums << "\n";

  CZEPHVector3 east(1, 0, 0), north(0, 1, 0);
  CZEPHVector3 between = Bisect(east, north);
  std::printf("%.4f %.4f %.4f\n", between.x(), between.y(), between.z());
  return 0;
}
