// The program that every consumer project builds; prints one line to compare.
#include <ZEPHDataStructureEngine/double_array.h>
#include <ZEPHDataStructureEngine/raw_buffers.h>

#include <cstdio>

#if __has_include(<platform.h>) || __has_include(<linalg.h>)
#error "the library's inner folder is searched: its headers would hide another library's"
#endif

int main() {
  double values[] = {3, 1, 2};
  CZEPHDoubleArray array(3, values);
  array.QuickSort(3);
  std::printf("%g %g %g\n", array[0], array[1], array[2]);
  return 0;
}
