// SPDX-License-Identifier: MIT
//
// The float 4x4 matrix and vectors, on arrays of objects that fit the first-level cache and that do
// not.
//
// "scalar library" is the same classes as scalar code in a shared library, "plain library" the same
// source with vectorisation; GLM and Eigen are inlined into the loop, "GLM library" is called
// across a library boundary as we are.
#include "bench.h"

#include <type_traits>

#include "graphics.h"
#include "peers/graphics_plain.h"

#ifdef ZEPH_HAVE_GLM
#include "peers/graphics_glm.h"
#endif
#ifdef ZEPH_HAVE_EIGEN
#include <Eigen/Dense>
#endif

namespace zeph::bench {
namespace {

const std::vector<std::size_t> kSizes = {64, 100'000};
constexpr double kRounding = 1e-2;  // near-singular matrices lose digits; peers round differently

enum class Kind { kGeneral, kAffine, kRigid };

// `n` matrices, sixteen floats each.
std::vector<float> Matrices(std::size_t n, Kind kind, unsigned long long seed) {
  const auto numbers = RandomDoubles(16 * n, seed);
  std::vector<float> floats(16 * n);
  for (std::size_t k = 0; k < n; ++k) {
    CZEPHMatrix4x4 m;
    for (int i = 0; i < 16; ++i)
      m.entries[i] = static_cast<float>(numbers[16 * k + std::size_t(i)]);
    const CZEPHVector3D offset(m.entries[12], m.entries[13], m.entries[14]);
    if (kind == Kind::kRigid) {
      m.SetRotationAxis(180.0 * numbers[16 * k], CZEPHVector3D(m.entries + 1));
      m.SetTranslationPart(offset);
    }
    if (kind == Kind::kGeneral)
      for (int i = 0; i < 16; i += 5) m.entries[i] += 4;  // far from singular
    if (kind == Kind::kAffine) m.entries[3] = m.entries[7] = m.entries[11] = 0, m.entries[15] = 1;
    for (std::size_t i = 0; i < 16; ++i) floats[16 * k + i] = m.entries[i];
  }
  return floats;
}

// What every row uses of a library's types.
struct Zeph {
  using Matrix = CZEPHMatrix4x4;
  using Vector3 = CZEPHVector3D;
  using Vector4 = CZEPHVector4D;
  static Matrix Make(const float* p, const Matrix*) { return Matrix(p); }
  static Vector3 Make(const float* p, const Vector3*) { return Vector3(p); }
  static Vector4 Make(const float* p, const Vector4*) { return Vector4(p); }
  static const float* First(const Matrix& m) { return m.entries; }
  static const float* First(const Vector3& v) { return &v.x; }
  static const float* First(const Vector4& v) { return &v.x; }
};
#define ZEPH_PLAIN_TYPES(Name, space)                                                         \
  struct Name {                                                                               \
    using Matrix = space::Matrix;                                                             \
    using Vector3 = space::Vector3;                                                           \
    using Vector4 = space::Vector4;                                                           \
    static Matrix Make(const float* p, const Matrix*) { return Matrix(p); }                   \
    static Vector3 Make(const float* p, const Vector3*) { return Vector3(p[0], p[1], p[2]); } \
    static Vector4 Make(const float* p, const Vector4*) {                                     \
      return Vector4(p[0], p[1], p[2], p[3]);                                                 \
    }                                                                                         \
    static const float* First(const Matrix& m) { return m.e; }                                \
    static const float* First(const Vector3& v) { return &v.x; }                              \
    static const float* First(const Vector4& v) { return &v.x; }                              \
  };
ZEPH_PLAIN_TYPES(PlainFast, plain_fast)
ZEPH_PLAIN_TYPES(PlainScalar, plain_scalar)
#ifdef ZEPH_HAVE_GLM
struct Glm {
  using Matrix = glm::mat4;
  using Vector3 = glm::vec3;
  using Vector4 = glm::vec4;
  static Matrix Make(const float* p, const Matrix*) {
    Matrix m(1.0f);
    for (int i = 0; i < 16; ++i) m[i / 4][i % 4] = p[i];
    return m;
  }
  static Vector3 Make(const float* p, const Vector3*) { return {p[0], p[1], p[2]}; }
  static Vector4 Make(const float* p, const Vector4*) { return {p[0], p[1], p[2], p[3]}; }
  static const float* First(const Matrix& m) { return &m[0][0]; }
  static const float* First(const Vector3& v) { return &v.x; }
  static const float* First(const Vector4& v) { return &v.x; }
};
#endif
#ifdef ZEPH_HAVE_EIGEN
struct Eigen3 {
  using Matrix = Eigen::Matrix4f;
  using Vector3 = Eigen::Vector3f;
  using Vector4 = Eigen::Vector4f;
  static Matrix Make(const float* p, const Matrix*) { return Eigen::Map<const Matrix>(p); }
  static Vector3 Make(const float* p, const Vector3*) { return Eigen::Map<const Vector3>(p); }
  static Vector4 Make(const float* p, const Vector4*) { return Eigen::Map<const Vector4>(p); }
  static const float* First(const Matrix& m) { return m.data(); }
  static const float* First(const Vector3& v) { return v.data(); }
  static const float* First(const Vector4& v) { return v.data(); }
};
#endif

// The number of floats in an object, and their offsets.
template <class T, class Object>
constexpr std::size_t kWidth = std::is_same_v<Object, typename T::Matrix>    ? 16
                               : std::is_same_v<Object, typename T::Vector4> ? 4
                               : std::is_same_v<Object, typename T::Vector3> ? 3
                                                                             : 1;
template <class T, class Object>
const float* First(const Object& object) {
  if constexpr (std::is_same_v<Object, float>)
    return &object;
  else
    return T::First(object);
}

template <class T, class Object>
std::vector<Object> From(const std::vector<float>& floats) {
  std::vector<Object> objects;
  objects.reserve(floats.size() / kWidth<T, Object>);
  for (std::size_t i = 0; i < floats.size(); i += kWidth<T, Object>)
    objects.push_back(T::Make(&floats[i], static_cast<const Object*>(nullptr)));
  return objects;
}

template <class A, class B, class R>
struct Operands {
  std::vector<A> a;
  std::vector<B> b;
  std::vector<R> out;
};

// Times out[i] = f(a[i], b[i]) on the objects of library `T`.
template <class T, class A, class B, class R, class F>
Row::Options Pairs(Row& row, const char* who, const std::vector<float>& a,
                   const std::vector<float>& b, F f) {
  const std::vector<float> zeros(kWidth<T, R>, 0.0f);
  auto& o = row.Keep<Operands<A, B, R>>();
  o.a = From<T, A>(a);
  o.b = From<T, B>(b);
  if constexpr (std::is_same_v<R, float>)
    o.out.resize(o.a.size());
  else
    o.out.assign(o.a.size(), T::Make(zeros.data(), static_cast<const R*>(nullptr)));
  return row
      .Peer(who,
            [&o, f] {
              for (std::size_t i = 0; i < o.a.size(); ++i) o.out[i] = f(o.a[i], o.b[i]);
            })
      .Result([&o] {
        Numbers numbers;
        for (const R& object : o.out) {
          const float* p = First<T>(object);
          numbers.insert(numbers.end(), p, p + kWidth<T, R>);
        }
        return numbers;
      });
}

#define ZEPH_PAIRS(Name, A, B, R)                                           \
  template <class T, class F>                                               \
  Row::Options Name(Row& row, const char* who, const std::vector<float>& a, \
                    const std::vector<float>& b, F f) {                     \
    return Pairs<T, A, B, R>(row, who, a, b, f);                            \
  }
ZEPH_PAIRS(TwoMatrices, typename T::Matrix, typename T::Matrix, typename T::Matrix)
ZEPH_PAIRS(MatrixAndVector, typename T::Matrix, typename T::Vector4, typename T::Vector4)
ZEPH_PAIRS(TwoVectors, typename T::Vector3, typename T::Vector3, typename T::Vector3)
ZEPH_PAIRS(VectorsToNumber, typename T::Vector3, typename T::Vector3, float)
#undef ZEPH_PAIRS

// Targets hold where arithmetic counts; memory sets the pace of the large arrays.
double InCache(const Row& row, double target) {
  return row.n() < 1000 ? target : 0;
}

std::vector<float> Floats(std::size_t n, unsigned long long seed) {
  const auto numbers = RandomDoubles(n, seed);
  return std::vector<float>(numbers.begin(), numbers.end());
}

const auto product = [](const auto& a, const auto& b) { return a * b; };

void Products(Row& row, Kind kind, double target) {
  const auto a = Matrices(row.n(), kind, 1), b = Matrices(row.n(), kind, 2);
  TwoMatrices<Zeph>(row, "ours", a, b, product);
  TwoMatrices<PlainScalar>(row, "scalar library", a, b, product).Target(InCache(row, target));
  TwoMatrices<PlainFast>(row, "plain library", a, b, product);
#ifdef ZEPH_HAVE_GLM
  TwoMatrices<Glm>(row, "GLM", a, b, product).Near(kRounding).Target(InCache(row, 0.4));
  TwoMatrices<Glm>(row, "GLM library", a, b, [](const glm::mat4& p, const glm::mat4& q) {
    return glm_library::Product(p, q);
  }).Near(kRounding);
#endif
#ifdef ZEPH_HAVE_EIGEN
  TwoMatrices<Eigen3>(row, "Eigen", a, b, product).Near(kRounding);
#endif
}

[[maybe_unused]] const bool products =
    Add("graphics", "4x4 product", kSizes, [](Row& row) { Products(row, Kind::kGeneral, 4); }) &&
    Add("graphics", "4x4 product, affine", kSizes,
        [](Row& row) { Products(row, Kind::kAffine, 2.5); }) &&
    Add("graphics", "matrix times vector", kSizes, [](Row& row) {
      const auto a = Matrices(row.n(), Kind::kGeneral, 3), b = Floats(4 * row.n(), 4);
      MatrixAndVector<Zeph>(row, "ours", a, b, product);
      MatrixAndVector<PlainScalar>(row, "scalar library", a, b, product).Target(InCache(row, 3.5));
      MatrixAndVector<PlainFast>(row, "plain library", a, b, product);
#ifdef ZEPH_HAVE_GLM
      MatrixAndVector<Glm>(row, "GLM", a, b, product).Near(kRounding);
      MatrixAndVector<Glm>(row, "GLM library", a, b, [](const glm::mat4& p, const glm::vec4& q) {
        return glm_library::Product(p, q);
      }).Near(kRounding);
#endif
#ifdef ZEPH_HAVE_EIGEN
      MatrixAndVector<Eigen3>(row, "Eigen", a, b, product).Near(kRounding);
#endif
    });

[[maybe_unused]] const bool inverses =
    Add("graphics", "general inverse", kSizes,
        [](Row& row) {
          const auto a = Matrices(row.n(), Kind::kGeneral, 5);
          const auto plain = [](const auto& m, const auto&) { return m.Inverse(); };
          TwoMatrices<Zeph>(row, "ours", a, a, [](const CZEPHMatrix4x4& m, const CZEPHMatrix4x4&) {
            return m.GetInverse();
          });
          TwoMatrices<PlainScalar>(row, "scalar library", a, a, plain).Target(InCache(row, 1.8));
          TwoMatrices<PlainFast>(row, "plain library", a, a, plain);
#ifdef ZEPH_HAVE_GLM
          TwoMatrices<Glm>(row, "GLM", a, a, [](const glm::mat4& m, const glm::mat4&) {
            return glm::inverse(m);
          }).Near(kRounding);
          TwoMatrices<Glm>(
              row, "GLM library", a, a,
              [](const glm::mat4& m, const glm::mat4&) { return glm_library::Inverse(m); })
              .Near(kRounding)
              .Target(InCache(row, 1));
#endif
#ifdef ZEPH_HAVE_EIGEN
          TwoMatrices<Eigen3>(row, "Eigen", a, a,
                              [](const Eigen::Matrix4f& m, const Eigen::Matrix4f&) {
                                return Eigen::Matrix4f(m.inverse());
                              })
              .Near(kRounding);
#endif
        }) &&
    Add("graphics", "rigid inverse", kSizes, [](Row& row) {
      const auto a = Matrices(row.n(), Kind::kRigid, 6);
      const auto plain = [](const auto& m, const auto&) { return m.RigidInverse(); };
      TwoMatrices<Zeph>(row, "ours", a, a, [](const CZEPHMatrix4x4& m, const CZEPHMatrix4x4&) {
        return m.GetAffineInverse();
      });
      TwoMatrices<PlainScalar>(row, "scalar library", a, a, plain).Target(InCache(row, 2.3));
      TwoMatrices<PlainFast>(row, "plain library", a, a, plain);
    });

[[maybe_unused]] const bool vectors =
    Add("graphics", "normalise", kSizes,
        [](Row& row) {
          const auto a = Floats(3 * row.n(), 7);
          const auto plain = [](const auto& v, const auto&) { return v.Normalized(); };
          TwoVectors<Zeph>(row, "ours", a, a, [](const CZEPHVector3D& v, const CZEPHVector3D&) {
            return v.GetNormalized();
          });
          TwoVectors<PlainScalar>(row, "scalar library", a, a, plain);
#ifdef ZEPH_HAVE_GLM
          TwoVectors<Glm>(row, "GLM", a, a,
                          [](const glm::vec3& v, const glm::vec3&) { return glm::normalize(v); })
              .Near(kRounding)
              .Target(InCache(row, 1.0 / 3));
          TwoVectors<Glm>(row, "GLM library", a, a, [](const glm::vec3& v, const glm::vec3&) {
            return glm_library::Normalized(v);
          }).Near(kRounding);
#endif
        }) &&
    Add("graphics", "cross product", kSizes,
        [](Row& row) {
          const auto a = Floats(3 * row.n(), 8), b = Floats(3 * row.n(), 9);
          TwoVectors<Zeph>(row, "ours", a, b, [](const CZEPHVector3D& p, const CZEPHVector3D& q) {
            return p.CrossProduct(q);
          });
          TwoVectors<PlainScalar>(row, "scalar library", a, b,
                                  [](const auto& p, const auto& q) { return p.Cross(q); });
#ifdef ZEPH_HAVE_GLM
          TwoVectors<Glm>(row, "GLM", a, b,
                          [](const glm::vec3& p, const glm::vec3& q) { return glm::cross(p, q); })
              .Near(kRounding)
              .Target(InCache(row, 1.0 / 3));
          TwoVectors<Glm>(row, "GLM library", a, b, [](const glm::vec3& p, const glm::vec3& q) {
            return glm_library::Cross(p, q);
          }).Near(kRounding);
#endif
        }) &&
    Add("graphics", "dot product", kSizes, [](Row& row) {
      const auto a = Floats(3 * row.n(), 10), b = Floats(3 * row.n(), 11);
      VectorsToNumber<Zeph>(row, "ours", a, b, [](const CZEPHVector3D& p, const CZEPHVector3D& q) {
        return p.DotProduct(q);
      });
      VectorsToNumber<PlainScalar>(row, "scalar library", a, b,
                                   [](const auto& p, const auto& q) { return p.Dot(q); });
#ifdef ZEPH_HAVE_GLM
      VectorsToNumber<Glm>(row, "GLM", a, b,
                           [](const glm::vec3& p, const glm::vec3& q) { return glm::dot(p, q); })
          .Near(kRounding)
          .Target(InCache(row, 1.0 / 4));
      VectorsToNumber<Glm>(row, "GLM library", a, b, [](const glm::vec3& p, const glm::vec3& q) {
        return glm_library::Dot(p, q);
      }).Near(kRounding);
#endif
    });

}  // namespace
}  // namespace zeph::bench
