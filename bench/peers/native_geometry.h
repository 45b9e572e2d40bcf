// SPDX-License-Identifier: MIT
//
// Loops over arrays of small objects as a user writes them with GLM or Eigen, compiled at -O3 for the
// processor at hand.
#ifndef ZEPH_BENCH_PEERS_NATIVE_GEOMETRY_H
#define ZEPH_BENCH_PEERS_NATIVE_GEOMETRY_H

#include <cstddef>

namespace zeph::native_geometry {

/// Contiguous objects: 3, 4 or 16 numbers each, matrices by columns.
void Points(float* out, const float* v, const float* m, std::size_t n);
void Directions(float* out, const float* v, const float* m, std::size_t n);
void Vectors(float* out, const float* v, const float* m, std::size_t n);
void Products(float* out, const float* a, const float* m, std::size_t n);
void Normalise(float* out, const float* v, std::size_t n);
void Dot(float* out, const float* a, const float* b, std::size_t n);
void Cross(float* out, const float* a, const float* b, std::size_t n);
void Rotate(float* out, const float* v, float degrees, const float* axis, std::size_t n);
void Bounds(float* box, const float* v, std::size_t n);

/// The same in double, by Eigen.
void Products(double* out, const double* a, const double* m, std::size_t n);
void Normalise(double* out, const double* v, std::size_t n);
void Dot(double* out, const double* a, const double* b, std::size_t n);
void Cross(double* out, const double* a, const double* b, std::size_t n);
void Bounds(double* box, const double* v, std::size_t n);

}  // namespace zeph::native_geometry

#endif  // ZEPH_BENCH_PEERS_NATIVE_GEOMETRY_H
