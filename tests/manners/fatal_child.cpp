// Buffers output in three ways, then ends at the fatal error that its argument names.
#include <cstdio>
#include <cstring>
#include <iostream>

#include "ZEPHDataStructureEngine.h"

int main(int argc, char** argv) {
  const char* site = argc > 1 ? argv[1] : "";
  const auto is = [site](const char* name) { return std::strcmp(site, name) == 0; };
  std::FILE* const file = argc > 2 ? std::fopen(argv[2], "wb") : nullptr;
  if (file) std::fputs("in a file", file);
  std::printf("printed, ");
  std::cout << "streamed, ";
  CZEPHDoubleArray three(3, 1.0), four(4, 1.0);
  CZEPHDoubleMatrix small(2, 2, 1.0), large(3, 3, 1.0);
  if (is("array")) three += four;
  if (is("matrix")) small += large;
  if (is("check")) CZEPHVector(2) + CZEPHVector(3);
  if (is("check elsewhere")) {
    std::cerr.rdbuf(std::cout.rdbuf());
    CZEPHVector(2) + CZEPHVector(3);
  }
  if (is("report elsewhere")) {
    std::cout.rdbuf(std::cerr.rdbuf());
    three += four;
  }
  std::printf("after");
  return 0;
}
