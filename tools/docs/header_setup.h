// How the examples of the headers are compared with what their comments state: to the last bit, but for
// decimal fractions, which are rounded to the type at hand.
#ifndef ZEPH_TOOLS_DOCS_HEADER_SETUP_H
#define ZEPH_TOOLS_DOCS_HEADER_SETUP_H

#include <initializer_list>

#include "ZEPHDataStructureEngine.h"

using Stated = std::initializer_list<double>;

template <class Number, std::enable_if_t<std::is_arithmetic_v<Number>, int> = 0>
bool Shows(Number value, Stated stated) {
  return stated.size() == 1 && value == static_cast<Number>(*stated.begin());
}
inline bool ShowsFloats(const float* values, Stated stated) {
  for (const double x : stated)
    if (*values++ != static_cast<float>(x)) return false;
  return true;
}
inline bool Shows(const CZEPHVector2D& v, Stated stated) {
  return stated.size() == 2 && ShowsFloats(&v.x, stated);
}
inline bool Shows(const CZEPHVector3D& v, Stated stated) {
  return stated.size() == 3 && ShowsFloats(&v.x, stated);
}
inline bool Shows(const CZEPHVector4D& v, Stated stated) {
  return stated.size() == 4 && ShowsFloats(&v.x, stated);
}
inline bool Shows(const CZEPHVector3S& v, Stated stated) {
  return stated.size() == 3 && ShowsFloats(&v.x, stated);
}

#endif  // ZEPH_TOOLS_DOCS_HEADER_SETUP_H
