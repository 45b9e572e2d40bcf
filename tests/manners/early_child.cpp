// Ends at the fatal error that its argument names, before the static objects of any library. It includes no standard
// stream, whose header would prepare them.
#include <cstring>

#include "ZEPHDataStructureEngine.h"

#ifdef __GLIBC__
[[gnu::constructor]] static void Early(int argc, char** argv) {
  if (argc != 2) return;
  if (std::strcmp(argv[1], "report") == 0) CZEPHDoubleArray(3, 1.0).GetEntry(-1);
  if (std::strcmp(argv[1], "check") == 0) CZEPHVector(2) + CZEPHVector(3);
}
#endif

int main() {
  return 7;
}
