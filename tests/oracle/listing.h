// The listings of raw arrays and matrices, an item at a time through the runtime's printf.
#ifndef ZEPH_TESTS_ORACLE_LISTING_H
#define ZEPH_TESTS_ORACLE_LISTING_H

#include <cstdio>
#include <string>

namespace oracle {

template <class... Args>
std::string Printed(const char* format, Args... args) {
  const int size = std::snprintf(nullptr, 0, format, args...);
  std::string text(static_cast<std::size_t>(size) + 1, '\0');
  std::snprintf(text.data(), text.size(), format, args...);
  text.pop_back();
  return text;
}

/// `item` prints label, index and value.
template <class T>
std::string Listing(const char* item, const char* lineEnd, const T* a, int lo, int hi,
                    const char* label) {
  std::string text;
  for (long long i = lo; i <= hi; ++i) {
    text += Printed(item, label, static_cast<int>(i), a[i]);
    if (i != 0 && i % 5 == 0) text += lineEnd;
  }
  text += lineEnd;
  return text;
}

/// `cell(i, j)` gives the value.
template <class Cell>
std::string MatrixListing(int rows, int cols, Cell cell, const char* label) {
  std::string text = Printed("%s = \n", label);
  for (int i = 0; i < rows; ++i) {
    for (int j = 0; j < cols; ++j) text += Printed("\t%3.5f", cell(i, j));
    text += "\n";
  }
  return text;
}

inline std::string VectorLine(const double* v, const char* label) {
  return Printed("%s = (%3.5f %3.5f %3.5f)\n", label, v[0], v[1], v[2]);
}

}  // namespace oracle

#endif  // ZEPH_TESTS_ORACLE_LISTING_H
