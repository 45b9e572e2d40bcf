// Compares the examples of the headers with the results stated in their comments: to the last bit,
// except decimal fractions, which are rounded to the type.
#ifndef ZEPH_TOOLS_DOCS_HEADER_SETUP_H
#define ZEPH_TOOLS_DOCS_HEADER_SETUP_H

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <initializer_list>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "ZEPHDataStructureEngine.h"

using Stated = std::initializer_list<double>;

// From here to the next mark the standard output belongs to the line with this number.
inline void Mark(int line) {
  std::cout << '\x01' << line << '\n' << std::flush;
}

template <class Number>
bool IsShown(Number value, double stated) {
  return value == static_cast<Number>(stated) || (value != value && stated != stated);
}
template <class Element>
bool ShowsElements(const Element& element, int count, Stated stated) {
  if (stated.size() != static_cast<std::size_t>(count)) return false;
  for (int i = 0; i < count; ++i)
    if (!IsShown(element(i), stated.begin()[i])) return false;
  return true;
}

template <class Number, std::enable_if_t<std::is_arithmetic_v<Number>, int> = 0>
bool Shows(Number value, Stated stated) {
  return stated.size() == 1 && IsShown(value, *stated.begin());
}
inline bool Shows(ZEPH_Long value, Stated stated) {
  return Shows(int{value}, stated);
}
// As many as are stated, of a pointer.
template <class Number, std::enable_if_t<std::is_arithmetic_v<Number>, int> = 0>
bool Shows(const Number* values, Stated stated) {
  return ShowsElements([&](int i) { return values[i]; }, static_cast<int>(stated.size()), stated);
}
template <class Number>
bool Shows(const std::vector<Number>& values, Stated stated) {
  return ShowsElements([&](int i) { return values[static_cast<std::size_t>(i)]; },
                       static_cast<int>(values.size()), stated);
}
inline bool Shows(const CZEPHVector2D& v, Stated stated) {
  return ShowsElements([&](int i) { return (&v.x)[i]; }, 2, stated);
}
inline bool Shows(const CZEPHVector3D& v, Stated stated) {
  return ShowsElements([&](int i) { return (&v.x)[i]; }, 3, stated);
}
inline bool Shows(const CZEPHVector4D& v, Stated stated) {
  return ShowsElements([&](int i) { return (&v.x)[i]; }, 4, stated);
}
inline bool Shows(const CZEPHVector3S& v, Stated stated) {
  return ShowsElements([&](int i) { return (&v.x)[i]; }, 3, stated);
}
inline bool Shows(const CZEPHMatrix4x4& m, Stated stated) {
  return ShowsElements([&](int i) { return m.entries[i / 4 + 4 * (i % 4)]; }, 16, stated);
}
inline bool Shows(const CZEPHVector3& v, Stated stated) {
  return ShowsElements([&](int i) { return (&v.m_x)[i]; }, 3, stated);
}
inline bool Shows(const CZEPHMatrix4& m, Stated stated) {
  return ShowsElements([&](int i) { return m.m_data[i / 4 + 4 * (i % 4)]; }, 16, stated);
}
inline bool Shows(const CZEPHVector& v, Stated stated) {
  return ShowsElements([&](int i) { return v.m_pData[i]; }, v.m_nSize, stated);
}
inline bool Shows(const CZEPHDoubleArray& a, Stated stated) {
  return ShowsElements([&](int i) { return a.data[i]; }, a.size, stated);
}

// Row by row.
template <class Matrix,
          std::enable_if_t<std::is_same_v<decltype(Matrix::m_ppData), double**>, int> = 0>
bool Shows(const Matrix& m, Stated stated) {
  return ShowsElements([&](int i) { return m.m_ppData[i / m.m_nColumns][i % m.m_nColumns]; },
                       m.m_nRows * m.m_nColumns, stated);
}

inline bool ShowsText(const char* text, const char* stated) {
  return std::strcmp(text, stated) == 0;
}
inline bool ShowsText(const std::string& text, const char* stated) {
  return text == stated;
}
inline bool ShowsText(char c, const char* stated) {
  return stated[0] == c && stated[1] == 0;
}

#endif  // ZEPH_TOOLS_DOCS_HEADER_SETUP_H
