// SPDX-License-Identifier: MIT
//
// The conversions to float pointers: all give the object's own address.
#include "graphics.h"

template <class T>
static float* OwnAddress(const T* object) {
  return reinterpret_cast<float*>(const_cast<T*>(object));
}

#define ZEPH_DEFINE(T)               \
  T::operator float*() const {       \
    return OwnAddress(this);         \
  }                                  \
  T::operator const float*() const { \
    return OwnAddress(this);         \
  }
ZEPH_DEFINE(CZEPHVector2D)
ZEPH_DEFINE(CZEPHVector3D)
ZEPH_DEFINE(CZEPHVector4D)
ZEPH_DEFINE(CZEPHMatrix4x4)
#undef ZEPH_DEFINE
