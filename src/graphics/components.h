// SPDX-License-Identifier: MIT
//
// The building blocks of the operations on vectors, for all three classes at once.
#ifndef ZEPH_SRC_GRAPHICS_COMPONENTS_H
#define ZEPH_SRC_GRAPHICS_COMPONENTS_H

#include <cmath>

#include "graphics.h"
#include "platform/exactness.h"

namespace zeph::graphics {

/// The vector of f(a.x, more.x...), f(a.y, more.y...) and so on.
template <class F, class... More>
inline CZEPHVector2D Each(F f, const CZEPHVector2D& a, const More&... more) {
  return CZEPHVector2D(f(a.x, more.x...), f(a.y, more.y...));
}
template <class F, class... More>
inline CZEPHVector3D Each(F f, const CZEPHVector3D& a, const More&... more) {
  return CZEPHVector3D(f(a.x, more.x...), f(a.y, more.y...), f(a.z, more.z...));
}
template <class F, class... More>
inline CZEPHVector4D Each(F f, const CZEPHVector4D& a, const More&... more) {
  return CZEPHVector4D(f(a.x, more.x...), f(a.y, more.y...), f(a.z, more.z...), f(a.w, more.w...));
}

inline float Dot(const CZEPHVector2D& a, const CZEPHVector2D& b) {
  return a.x * b.x + a.y * b.y;
}
inline float Dot(const CZEPHVector3D& a, const CZEPHVector3D& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline float Dot(const CZEPHVector4D& a, const CZEPHVector4D& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z + a.w * b.w;
}

inline bool Equal(const CZEPHVector2D& a, const CZEPHVector2D& b) {
  return a.x == b.x && a.y == b.y;
}
inline bool Equal(const CZEPHVector3D& a, const CZEPHVector3D& b) {
  return a.x == b.x && a.y == b.y && a.z == b.z;
}
inline bool Equal(const CZEPHVector4D& a, const CZEPHVector4D& b) {
  return a.x == b.x && a.y == b.y && a.z == b.z && a.w == b.w;
}

template <class V>
inline V Plus(const V& a, const V& b) {
  return Each([](float p, float q) { return p + q; }, a, b);
}
template <class V>
inline V Minus(const V& a, const V& b) {
  return Each([](float p, float q) { return p - q; }, a, b);
}
template <class V>
inline V Times(const V& v, float s) {
  return Each([s](float p) { return p * s; }, v);
}
template <class V>
inline V Over(const V& v, float s) {
  return Each([s](float p) { return p / s; }, v);
}
/// The zero vector where `s` is zero.
template <class V>
inline V Quotient(const V& v, float s) {
  return s == 0.0f ? V() : Over(v, s);
}
/// The same, leaving `v` alone where `s` is zero.
template <class V>
inline void Divide(V& v, float s) {
  if (s != 0.0f) v = Over(v, s);
}
template <class V>
inline V Negated(const V& v) {
  return Each([](float p) { return -p; }, v);
}

template <class V>
inline float Length(const V& v) {
  return std::sqrt(Dot(v, v));
}
template <class V>
inline V Normalized(const V& v) {
  const float length = Length(v);
  if (length == 1.0f || length == 0.0f) return v;
  return Times(v, 1.0f / length);
}

template <class V>
inline V Linear(const V& start, const V& end, float t) {
  const float u = 1.0f - t;
  return Each([t, u](float a, float b) { return a * u + b * t; }, start, end);
}
template <class V>
inline V Quadratic(const V& start, const V& middle, const V& end, float t) {
  const float u = 1.0f - t;
  return Each(
      [t, u](float a, float b, float c) { return a * u * u + 2.0f * b * t * u + c * t * t; }, start,
      middle, end);
}

}  // namespace zeph::graphics

#endif  // ZEPH_SRC_GRAPHICS_COMPONENTS_H
