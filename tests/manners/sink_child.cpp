// Writes where nothing can be written: its first argument says what happens to the standard output,
// the second what writes. A report that ends the process ends it as elsewhere; for listings the
// status is the state of the caller's stream: 3 for an error, 4 for none.
#include <cstdio>
#include <cstring>

#include "ZEPHDataStructureEngine.h"

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const bool closed = std::strcmp(argv[1], "closed") == 0;
  if (!closed && !std::freopen("/dev/full", "w", stdout)) return 2;
  if (closed) std::fclose(stdout);
  const auto is = [argv](const char* name) { return std::strcmp(argv[2], name) == 0; };
  CZEPHDoubleArray three(3, 1.0), four(4, 1.0);
  if (is("array")) three += four;
  if (is("bound")) three.GetEntry(-1);
  if (is("matrix")) CZEPHDoubleMatrix(2, 2, 1.0).CheckBound(5, 5);
  if (is("check")) CZEPHVector(2) + CZEPHVector(3);
  if (is("stack")) CZEPHSortedLinkList().DisplayList();
  std::FILE* const sink = std::fopen("/dev/full", "w");
  if (!sink) return 2;
  char name[] = "a";
  CZEPHDoubleArray many(5000, 1.5);
  if (is("listing")) ZEPH_ArrayDisplay(sink, many.data, 0, 4999, name);
  char letters[] = "abcdefg";
  if (is("orderings")) CZEPHPermutation::Run(letters, 0, 7, sink);
  if (is("report")) CZEPHIntegralSearch::Test1(sink);
  std::fflush(sink);
  return std::ferror(sink) ? 3 : 4;
}
