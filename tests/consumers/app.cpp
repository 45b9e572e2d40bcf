// The program that every consumer project builds: both header spellings, and a line to compare.
#include <ZEPHDataStructureEngine/double_array.h>
#include <raw_buffers.h>

#include <cstdio>

int main() {
  double values[] = {3, 1, 2};
  CZEPHDoubleArray array(3, values);
  array.QuickSort(3);
  std::printf("%g %g %g\n", array[0], array[1], array[2]);
  return 0;
}
