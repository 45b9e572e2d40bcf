// SPDX-License-Identifier: MIT
#include "graphics.h"
#include "graphics/inverse.h"
#include "graphics/matrix_of.h"

using namespace zeph::graphics;

#define ZEPH_DEFINE(Name, InPlace, Inverse, kForm)         \
  CZEPHMatrix4x4 CZEPHMatrix4x4::Name() const {            \
    return MatrixOf(Inverse<Lanes, Form::kForm>(entries)); \
  }                                                        \
  void CZEPHMatrix4x4::InPlace() {                         \
    Inverse<Lanes, Form::kForm>(entries).Store(entries);   \
  }

ZEPH_DEFINE(GetInverse, Invert, GeneralInverse, kInverse)
ZEPH_DEFINE(GetInverseTranspose, InvertTranspose, GeneralInverse, kInverseTranspose)
ZEPH_DEFINE(GetAffineInverse, AffineInvert, RigidInverse, kInverse)
ZEPH_DEFINE(GetAffineInverseTranspose, AffineInvertTranspose, RigidInverse, kInverseTranspose)
#undef ZEPH_DEFINE
