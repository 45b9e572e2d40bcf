// SPDX-License-Identifier: MIT
//
/// @file
/// How the added extractors give way to a program's own.
#ifndef ZEPH_LINALG_READ_INTO_H
#define ZEPH_LINALG_READ_INTO_H

#include "../platform/macros.h"

/// What an added `operator>>` reads into. It is reached by a conversion from the object, so any
/// operator of the program that takes the object itself is the better match, wherever it is
/// declared.
template <class T>
struct ZEPH_ReadInto {
  T& target;  ///< The object to be read.
  /// Refers to `object`; does nothing else.
  ZEPH_ADDED ZEPH_ReadInto(T& object) : target(object) {}  // NOLINT: implicit on purpose
};

#endif  // ZEPH_LINALG_READ_INTO_H
