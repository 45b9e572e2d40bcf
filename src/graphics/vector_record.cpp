// SPDX-License-Identifier: MIT
//
// The free functions on records. Each component is stored before the next is computed: outputs may
// alias inputs, and programs depend on it.
#include "graphics.h"
#include "platform/exactness.h"

void ZEPH_AddVectors(CZEPHVector3S* a, CZEPHVector3S* b, CZEPHVector3S* out) {
  ZEPH_REQUIRE_POINTER(__func__, a);
  ZEPH_REQUIRE_POINTER(__func__, b);
  ZEPH_REQUIRE_POINTER(__func__, out);
  out->x = a->x + b->x;
  out->y = a->y + b->y;
  out->z = a->z + b->z;
}

void ZEPH_CopyVector(CZEPHVector3S* destination, CZEPHVector3S* source) {
  ZEPH_REQUIRE_POINTER(__func__, destination);
  ZEPH_REQUIRE_POINTER(__func__, source);
  destination->x = source->x;
  destination->y = source->y;
  destination->z = source->z;
}

void ZEPH_CrossVectors(CZEPHVector3S* a, CZEPHVector3S* b, CZEPHVector3S* out) {
  ZEPH_REQUIRE_POINTER(__func__, a);
  ZEPH_REQUIRE_POINTER(__func__, b);
  ZEPH_REQUIRE_POINTER(__func__, out);
  out->x = a->y * b->z - a->z * b->y;
  out->y = a->z * b->x - a->x * b->z;
  out->z = a->x * b->y - a->y * b->x;
}

float ZEPH_DotVectors(CZEPHVector3S* a, CZEPHVector3S* b) {
  ZEPH_REQUIRE_POINTER(__func__, a);
  ZEPH_REQUIRE_POINTER(__func__, b);
  return a->x * b->x + a->y * b->y + a->z * b->z;
}

void ZEPH_ScaleVector(CZEPHVector3S* v, float s) {
  ZEPH_REQUIRE_POINTER(__func__, v);
  v->x *= s;
  v->y *= s;
  v->z *= s;
}
