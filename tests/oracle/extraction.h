// Arrays and matrices from a stream, a number at a time by the stream's own extractor.
#ifndef ZEPH_TESTS_ORACLE_EXTRACTION_H
#define ZEPH_TESTS_ORACLE_EXTRACTION_H

#include <istream>
#include <vector>

namespace oracle {

/// Reads a count and that many numbers into `data`; `size` is the count then, 0 after a failure.
inline void ReadArray(std::istream& is, int& size, std::vector<double>& data) {
  size = 0;
  int count = 0;
  is >> count;
  if (is.fail()) return;
  for (int i = 0; i < count; ++i) {
    is >> data[static_cast<std::size_t>(i)];
    if (is.fail()) return;
  }
  size = count;
}

/// Reads two counts and the elements row by row into `data`, whose rows have `stride` elements.
inline void ReadMatrix(std::istream& is, int& rows, int& columns, std::vector<double>& data,
                       int stride) {
  is >> rows >> columns;
  for (int i = 0; i < rows && !is.fail(); ++i)
    for (int j = 0; j < columns && !is.fail(); ++j)
      is >> data[static_cast<std::size_t>(i * stride + j)];
  if (is.fail()) rows = columns = 0;
}

}  // namespace oracle

#endif  // ZEPH_TESTS_ORACLE_EXTRACTION_H
