// Raw buffers: an index range of one's own over a plain block, listed and released.
#include <cstdio>

#include <ZEPHDataStructureEngine/raw_buffers.h>

int main() {
  double* year = ZEPH_ArrayAllocDouble("year", 1871, 1874);  // zeros at 1871 to 1874
  if (!year) return 1;
  for (int i = 1871; i <= 1874; ++i) year[i] = 1000.0 + 10 * (i - 1871);
  double sum = 0;
  for (int i = 1871; i <= 1874; ++i) sum += year[i];
  std::printf("mean flow %g\n", sum / 4);
  ZEPH_ArrayFree(year, 1871, 1874);

  double v[] = {3, 0, -4}, w[] = {1, 2, 2};
  std::printf("dot %g, norm %g\n", ZEPH_VectorDotProduct3(v, w), ZEPH_ArrayOneNorm(v, 3, 0));
  return 0;
}
