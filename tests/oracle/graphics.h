// The single-precision vectors and the 4x4 matrix on plain arrays, every operation rounded
// separately. Matrices are column-major: entry 4 * column + row.
#ifndef ZEPH_TESTS_ORACLE_GRAPHICS_H
#define ZEPH_TESTS_ORACLE_GRAPHICS_H

#include <array>
#include <cmath>
#include <vector>

#include "oracle/functions.h"

namespace oracle {

using Vector = std::vector<float>;  // two to four components
using Matrix = std::array<float, 16>;

// One rounding to float per call, whatever the compiler does.
inline float Add(float a, float b) {
  volatile float r = a + b;
  return r;
}
inline float Sub(float a, float b) {
  volatile float r = a - b;
  return r;
}
inline float Mul(float a, float b) {
  volatile float r = a * b;
  return r;
}
inline float Div(float a, float b) {
  volatile float r = a / b;
  return r;
}
inline float Sum(const std::vector<float>& terms) {
  float sum = terms[0];
  for (std::size_t i = 1; i < terms.size(); ++i) sum = Add(sum, terms[i]);
  return sum;
}

inline float Dot(const Vector& a, const Vector& b) {
  std::vector<float> terms;
  for (std::size_t i = 0; i < a.size(); ++i) terms.push_back(Mul(a[i], b[i]));
  return Sum(terms);
}

inline Vector Divided(const Vector& v, float s) {
  Vector r(v.size(), 0.0f);
  if (s == 0.0f) return r;
  for (std::size_t i = 0; i < v.size(); ++i) r[i] = Div(v[i], s);
  return r;
}

inline float Length(const Vector& v) {
  volatile float r = std::sqrt(Dot(v, v));
  return r;
}

inline Vector Normalized(Vector v) {
  const float length = Length(v);
  if (length == 1.0f) return v;
  if (length == 0.0f) return v;
  const float scale = Div(1.0f, length);
  for (float& x : v) x = Mul(x, scale);
  return v;
}

inline Vector Linear(const Vector& start, const Vector& other, float factor) {
  Vector r;
  for (std::size_t i = 0; i < start.size(); ++i) {
    const float second = Mul(other[i], factor);
    const float first = Mul(start[i], Sub(1.0f, factor));
    r.push_back(Add(first, second));
  }
  return r;
}

inline Vector Quadratic(const Vector& start, const Vector& middle, const Vector& end, float t) {
  const float u = Sub(1.0f, t);
  Vector r;
  for (std::size_t i = 0; i < start.size(); ++i) {
    const float last = Mul(Mul(end[i], t), t);
    const float control = Mul(Mul(Mul(2.0f, middle[i]), t), u);
    const float first = Mul(Mul(start[i], u), u);
    r.push_back(Add(Add(first, control), last));
  }
  return r;
}

inline Vector Cross(const Vector& a, const Vector& b) {
  return {Sub(Mul(a[1], b[2]), Mul(a[2], b[1])), Sub(Mul(a[2], b[0]), Mul(a[0], b[2])),
          Sub(Mul(a[0], b[1]), Mul(a[1], b[0]))};
}

inline Vector Packed(const Vector& v) {
  Vector r = Normalized(v);
  for (float& x : r) x = Add(Mul(x, 0.5f), 0.5f);
  return r;
}

inline Vector Projected(const Vector& v) {
  if (v[3] == 0.0f || v[3] == 1.0f) return {v[0], v[1], v[2]};
  return {Div(v[0], v[3]), Div(v[1], v[3]), Div(v[2], v[3])};
}

// Sine and cosine computed at run time, never folded by the compiler.
inline double Radians(double degrees) {
  volatile double product = degrees * 3.141592653589793;
  volatile double radians = product / 180.0;
  return radians;
}
inline double SineInDouble(double degrees) {
  volatile double radians = Radians(degrees);
  volatile double r = Sin(radians);
  return r;
}
inline double CosineInDouble(double degrees) {
  volatile double radians = Radians(degrees);
  volatile double r = Cos(radians);
  return r;
}
inline float Sine(double degrees) {
  volatile float r = static_cast<float>(SineInDouble(degrees));
  return r;
}
inline float Cosine(double degrees) {
  volatile float r = static_cast<float>(CosineInDouble(degrees));
  return r;
}

inline Vector RotatedX(const Vector& v, double angle) {
  if (angle == 0.0) return v;
  const float s = Sine(angle), c = Cosine(angle);
  return {v[0], Sub(Mul(v[1], c), Mul(v[2], s)), Add(Mul(v[2], c), Mul(v[1], s))};
}
inline Vector RotatedY(const Vector& v, double angle) {
  if (angle == 0.0) return v;
  const float s = Sine(angle), c = Cosine(angle);
  return {Add(Mul(v[0], c), Mul(v[2], s)), v[1], Sub(Mul(v[2], c), Mul(v[0], s))};
}
inline Vector RotatedZ(const Vector& v, double angle) {
  if (angle == 0.0) return v;
  const float s = Sine(angle), c = Cosine(angle);
  return {Sub(Mul(v[0], c), Mul(v[1], s)), Add(Mul(v[1], c), Mul(v[0], s)), v[2]};
}

// Rows of the rotation about an axis.
inline std::array<Vector, 3> AxisRows(double angle, const Vector& axis) {
  const Vector n = Normalized(axis);
  const float a = n[0], b = n[1], d = n[2];
  const float s = Sine(angle), c = Cosine(angle), k = Sub(1.0f, c);
  const auto diagonal = [c](float q) { return Add(Mul(Sub(1.0f, Mul(q, q)), c), Mul(q, q)); };
  return {
      Vector{diagonal(a), Sub(Mul(Mul(b, a), k), Mul(d, s)), Add(Mul(Mul(d, a), k), Mul(b, s))},
      Vector{Add(Mul(Mul(b, a), k), Mul(d, s)), diagonal(b), Sub(Mul(Mul(d, b), k), Mul(a, s))},
      Vector{Sub(Mul(Mul(d, a), k), Mul(b, s)), Add(Mul(Mul(d, b), k), Mul(a, s)), diagonal(d)}};
}
inline Vector RotatedAxis(const Vector& v, double angle, const Vector& axis) {
  if (angle == 0.0) return v;
  const auto rows = AxisRows(angle, axis);
  return {Dot(rows[0], v), Dot(rows[1], v), Dot(rows[2], v)};
}

inline Matrix Identity() {
  Matrix m{};
  m[0] = m[5] = m[10] = m[15] = 1.0f;
  return m;
}

inline bool IsAffine(const Matrix& m) {
  return m[3] == 0.0f && m[7] == 0.0f && m[11] == 0.0f && m[15] == 1.0f;
}

inline Matrix Product(const Matrix& a, const Matrix& b) {
  const bool first = IsAffine(a), second = IsAffine(b);
  Matrix r{};
  const auto terms = [&](std::size_t i, std::size_t j, std::size_t count) {
    std::vector<float> t;
    for (std::size_t k = 0; k < count; ++k) t.push_back(Mul(a[4 * k + i], b[4 * j + k]));
    return t;
  };
  const std::size_t rows = first ? 3 : 4;
  for (std::size_t i = 0; i < rows; ++i)
    for (std::size_t j = 0; j < 4; ++j) {
      if (second) {
        std::vector<float> t = terms(i, j, 3);
        if (j == 3) t.push_back(a[12 + i]);
        r[4 * j + i] = Sum(t);
      } else {
        r[4 * j + i] = Sum(terms(i, j, 4));
      }
    }
  if (first && second) {
    r[3] = r[7] = r[11] = 0.0f;
    r[15] = 1.0f;
  } else if (first) {
    for (std::size_t j = 0; j < 4; ++j) r[4 * j + 3] = b[4 * j + 3];
  }
  return r;
}

inline Vector Product(const Matrix& m, const Vector& v) {
  Vector r = v;
  for (std::size_t i = 0; i < 4; ++i) {
    if (i == 3 && IsAffine(m)) continue;
    r[i] = Sum({Mul(m[i], v[0]), Mul(m[4 + i], v[1]), Mul(m[8 + i], v[2]), Mul(m[12 + i], v[3])});
  }
  return r;
}

inline Vector Rotated(const Matrix& m, const Vector& v) {
  Vector r;
  for (std::size_t i = 0; i < 3; ++i) r.push_back(Dot({m[i], m[4 + i], m[8 + i]}, v));
  return r;
}
inline Vector InverseRotated(const Matrix& m, const Vector& v) {
  Vector r;
  for (std::size_t i = 0; i < 3; ++i) r.push_back(Dot({m[4 * i], m[4 * i + 1], m[4 * i + 2]}, v));
  return r;
}

inline Matrix Transposed(const Matrix& m) {
  Matrix r{};
  for (std::size_t i = 0; i < 4; ++i)
    for (std::size_t j = 0; j < 4; ++j) r[4 * j + i] = m[4 * i + j];
  return r;
}

inline Matrix Over(const Matrix& m, float s) {
  if (s == 0.0f || s == 1.0f) return m;
  const float scale = Div(1.0f, s);
  Matrix r{};
  for (std::size_t i = 0; i < 16; ++i) r[i] = Mul(m[i], scale);
  return r;
}

// Three products added, three subtracted, left to right.
inline float SixTerms(const Matrix& m, const float* t, const std::array<int, 12>& at) {
  float sum = Mul(t[at[0]], m[static_cast<std::size_t>(at[1])]);
  for (std::size_t k = 1; k < 6; ++k) {
    const float term = Mul(t[at[2 * k]], m[static_cast<std::size_t>(at[2 * k + 1])]);
    sum = k < 3 ? Add(sum, term) : Sub(sum, term);
  }
  return sum;
}

inline Matrix InverseTranspose(const Matrix& m) {
  const float t[] = {Mul(m[10], m[15]), Mul(m[11], m[14]), Mul(m[9], m[15]), Mul(m[11], m[13]),
                     Mul(m[9], m[14]),  Mul(m[10], m[13]), Mul(m[8], m[15]), Mul(m[11], m[12]),
                     Mul(m[8], m[14]),  Mul(m[10], m[12]), Mul(m[8], m[13]), Mul(m[9], m[12])};
  const float u[] = {Mul(m[2], m[7]), Mul(m[3], m[6]), Mul(m[1], m[7]), Mul(m[3], m[5]),
                     Mul(m[1], m[6]), Mul(m[2], m[5]), Mul(m[0], m[7]), Mul(m[3], m[4]),
                     Mul(m[0], m[6]), Mul(m[2], m[4]), Mul(m[0], m[5]), Mul(m[1], m[4])};
  // Pairs (index of the pair product, index of the entry).
  static const std::array<int, 12> kTerms[] = {
      {0, 5, 3, 6, 4, 7, 1, 5, 2, 6, 5, 7},         {1, 4, 6, 6, 9, 7, 0, 4, 7, 6, 8, 7},
      {2, 4, 7, 5, 10, 7, 3, 4, 6, 5, 11, 7},       {5, 4, 8, 5, 11, 6, 4, 4, 9, 5, 10, 6},
      {1, 1, 2, 2, 5, 3, 0, 1, 3, 2, 4, 3},         {0, 0, 7, 2, 8, 3, 1, 0, 6, 2, 9, 3},
      {3, 0, 6, 1, 11, 3, 2, 0, 7, 1, 10, 3},       {4, 0, 9, 1, 10, 2, 5, 0, 8, 1, 11, 2},
      {0, 13, 3, 14, 4, 15, 1, 13, 2, 14, 5, 15},   {1, 12, 6, 14, 9, 15, 0, 12, 7, 14, 8, 15},
      {2, 12, 7, 13, 10, 15, 3, 12, 6, 13, 11, 15}, {5, 12, 8, 13, 11, 14, 4, 12, 9, 13, 10, 14},
      {2, 10, 5, 11, 1, 9, 4, 11, 0, 9, 3, 10},     {8, 11, 0, 8, 7, 10, 6, 10, 9, 11, 1, 8},
      {6, 9, 11, 11, 3, 8, 10, 11, 2, 8, 7, 9},     {10, 10, 4, 8, 9, 9, 8, 9, 11, 10, 5, 8}};
  Matrix r{};
  for (std::size_t i = 0; i < 16; ++i) r[i] = SixTerms(m, i < 8 ? t : u, kTerms[i]);
  const float determinant =
      Sum({Mul(r[0], m[0]), Mul(r[1], m[1]), Mul(r[2], m[2]), Mul(r[3], m[3])});
  if (determinant == 0.0f) return Identity();
  return Over(r, determinant);
}

inline Matrix AffineInverse(const Matrix& m) {
  Matrix r = Identity();
  for (std::size_t i = 0; i < 3; ++i) {
    for (std::size_t j = 0; j < 3; ++j) r[4 * i + j] = m[4 * j + i];
    r[12 + i] = -Dot({m[4 * i], m[4 * i + 1], m[4 * i + 2]}, {m[12], m[13], m[14]});
  }
  return r;
}

inline Matrix RotationAxis(double angle, const Vector& axis) {
  const auto rows = AxisRows(angle, axis);
  Matrix r = Identity();
  for (std::size_t i = 0; i < 3; ++i)
    for (std::size_t j = 0; j < 3; ++j) r[4 * j + i] = rows[i][j];
  return r;
}

inline Matrix WithEuler(Matrix m, double ax, double ay, double az) {
  const double cx = CosineInDouble(ax), sx = SineInDouble(ax);
  const double cy = CosineInDouble(ay), sy = SineInDouble(ay);
  const double cz = CosineInDouble(az), sz = SineInDouble(az);
  const auto set = [&m](std::size_t i, double x) {
    volatile float rounded = static_cast<float>(x);
    m[i] = rounded;
  };
  set(0, cz * cy);
  set(1, sz * cy);
  set(2, -sy);
  set(4, (sy * sx) * cz - sz * cx);
  set(5, (sy * sx) * sz + cz * cx);
  set(6, cy * sx);
  set(8, (sy * cx) * cz + sz * sx);
  set(9, (sy * cx) * sz - cz * sx);
  set(10, cy * cx);
  return m;
}

inline Matrix Frustum(float l, float r, float b, float t, float n, float f) {
  Matrix m{};
  if (l == r || t == b || n == f) return m;
  const float twoNear = Mul(n, 2.0f);
  m[0] = Div(twoNear, Sub(r, l));
  m[5] = Div(twoNear, Sub(t, b));
  m[8] = Div(Add(l, r), Sub(r, l));
  m[9] = Div(Add(b, t), Sub(t, b));
  if (f == -1.0f) {
    m[10] = -0.999f;
    m[14] = Mul(Mul(n, -2.0f), 0.999f);
  } else {
    m[10] = -Div(Add(n, f), Sub(f, n));
    m[14] = -Div(Mul(Mul(f, 2.0f), n), Sub(f, n));
  }
  m[11] = -1.0f;
  return m;
}

inline Matrix Perspective(float fovy, float aspect, float n, float f) {
  volatile float half = Mul(Mul(fovy, 0.017453292f), 0.5f);
  volatile float tangent = Tan(half);
  const float t = Mul(tangent, n);
  return Frustum(Mul(-t, aspect), Mul(t, aspect), -t, t, n, f);
}

inline Matrix Ortho(float l, float r, float b, float t, float n, float f) {
  Matrix m = Identity();
  m[0] = Div(2.0f, Sub(r, l));
  m[5] = Div(2.0f, Sub(t, b));
  m[10] = Div(-2.0f, Sub(f, n));
  m[12] = -Div(Add(l, r), Sub(r, l));
  m[13] = -Div(Add(b, t), Sub(t, b));
  m[14] = -Div(Add(n, f), Sub(f, n));
  return m;
}

}  // namespace oracle

#endif  // ZEPH_TESTS_ORACLE_GRAPHICS_H
