// SPDX-License-Identifier: MIT
//
// Operations on arrays of small objects of floats or doubles.
#ifndef ZEPH_SRC_KERNELS_BATCH_H
#define ZEPH_SRC_KERNELS_BATCH_H

#include <cstddef>
#include <type_traits>

#include "kernels/table.h"

namespace zeph::kernels {

/// The first component of object `i`; objects are `stride` bytes apart.
template <class T>
T* At(T* first, std::size_t stride, std::size_t i) {
  using Byte = std::conditional_t<std::is_const_v<T>, const char, char>;
  return reinterpret_cast<T*>(reinterpret_cast<Byte*>(first) + i * stride);
}

/// The operations on vectors of three components, in both precisions. Pointers are to the first
/// component of the first object; objects are `stride` bytes apart, 24 where there are wide forms,
/// and at least four floats or three doubles of each can be read, of which three are used. `out` is
/// one of the operands or overlaps none.
template <class T>
struct Vectors {
  /// The documented normalisation of the class.
  void (*normalise)(T* out, const T* v, std::size_t stride, std::size_t n);
  /// out[i], contiguous, is the documented dot product of the class.
  void (*dot)(T* out, const T* a, const T* b, std::size_t stride, std::size_t n);
  void (*cross)(T* out, const T* a, const T* b, std::size_t stride, std::size_t n);
  /// low[c] and high[c] hold component c of the first object and become the least and the greatest
  /// of all: by value, so a zero may have either sign.
  void (*bounds)(T* low, T* high, const T* v, std::size_t stride, std::size_t n);
};

/// The operations on vectors of one form; Active().batch is the one in use. Matrices have 16
/// elements, by columns.
struct Batch {
  Vectors<float> floats;
  Vectors<double> doubles;
  /// Multiplies vectors of three by the upper left 3 x 3 of `e`; a row's terms are added in order.
  void (*directions)(float* out, const float* v, std::size_t stride, const float* e, std::size_t n);
  /// The same plus the fourth column, which already holds the products with w; with `divide`,
  /// divided by the fourth row's sum unless that is exactly 0 or 1.
  void (*points)(float* out, const float* v, std::size_t stride, const float* e, bool divide,
                 std::size_t n);
  /// Vectors of four. With `copyLast` the last component is copied instead.
  void (*vectors)(float* out, const float* v, std::size_t stride, const float* e, bool copyLast,
                  std::size_t n);
};

/// Products with one matrix, of one form; Active().batch_products is the one in use.
struct BatchProducts {
  /// out[i] = e * m[i] by the paths of affine factors: whether `e` is affine, and all of `m` are.
  void (*floats)(float* out, const float* m, std::size_t stride, const float* e, bool firstAffine,
                 bool secondAffine, std::size_t n);
  /// out[i] = e * m[i].
  void (*doubles)(double* out, const double* m, std::size_t stride, const double* e, std::size_t n);
};

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_BATCH_H
