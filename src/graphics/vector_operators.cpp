// SPDX-License-Identifier: MIT
//
// The operators that the three vector classes share, and the constructor from an array that differs
// between them.
#include "graphics/components.h"

using namespace zeph::graphics;

#define ZEPH_DEFINE(V)                      \
  V V::operator+(const V& other) const {    \
    return Plus(*this, other);              \
  }                                         \
  V V::operator-(const V& other) const {    \
    return Minus(*this, other);             \
  }                                         \
  V V::operator*(float s) const {           \
    return Times(*this, s);                 \
  }                                         \
  V V::operator/(float s) const {           \
    return Quotient(*this, s);              \
  }                                         \
  V V::operator-() const {                  \
    return Negated(*this);                  \
  }                                         \
  V V::operator+() const {                  \
    return *this;                           \
  }                                         \
  void V::operator+=(const V& other) {      \
    *this = Plus(*this, other);             \
  }                                         \
  void V::operator-=(const V& other) {      \
    *this = Minus(*this, other);            \
  }                                         \
  void V::operator*=(float s) {             \
    *this = Times(*this, s);                \
  }                                         \
  void V::operator/=(float s) {             \
    Divide(*this, s);                       \
  }                                         \
  int V::operator==(const V& other) const { \
    return Equal(*this, other);             \
  }                                         \
  int V::operator!=(const V& other) const { \
    return !Equal(*this, other);            \
  }                                         \
  V operator*(float s, const V& v) {        \
    return Times(v, s);                     \
  }

ZEPH_DEFINE(CZEPHVector2D)
ZEPH_DEFINE(CZEPHVector3D)
ZEPH_DEFINE(CZEPHVector4D)
#undef ZEPH_DEFINE

CZEPHVector2D::CZEPHVector2D(const float* p)
    : x((ZEPH_REQUIRE_POINTER("CZEPHVector2D::CZEPHVector2D", p), p[0])), y(p[0] + 1.0f) {}
