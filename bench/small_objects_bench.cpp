// SPDX-License-Identifier: MIT
//
// Objects of a few elements, where calls and blocks cost more than arithmetic.
//
// "limit" does only what the documented behaviour requires (peers/small_limits.h); the target is at
// most 1.3 times its time. Eigen and GLM are inlined into the loop.
#include "bench.h"

#include <stack>
#include <type_traits>

#include "containers.h"
#include "double_array.h"
#include "graphics.h"
#include "linalg.h"
#include "peers/small_limits.h"

#ifdef ZEPH_HAVE_EIGEN
#include <Eigen/Dense>
#endif
#ifdef ZEPH_HAVE_GLM
#include <glm/glm.hpp>
#endif

namespace zeph::bench {
namespace {

constexpr double kLimit = 1 / 1.3;
constexpr double kRounding = 1e-5;  // of peers that add in another order
const std::vector<std::size_t> kSizes = {1, 3, 4, 8, 16};

// --- what an object holds ---

Numbers Content(double x) {
  return {x};
}
Numbers Content(float x) {
  return {x};
}
Numbers Content(CZEPHDoubleArray& a) {
  return Numbers(a.begin(), a.end());
}
Numbers Content(CZEPHVector& v) {
  return Numbers(v.begin(), v.end());
}
Numbers Content(CZEPHMatrix& m) {
  Numbers all;
  for (int i = 0; i < m.GetNoRow(); ++i) all.insert(all.end(), m[i], m[i] + m.GetNoColumn());
  return all;
}
Numbers Content(CZEPHMatrix4& m) {
  return Values(m.m_data, 16);
}
Numbers Content(CZEPHVector3& v) {
  return {v.m_x, v.m_y, v.m_z};
}
Numbers Content(CZEPHMatrix4x4& m) {
  return Values(m.entries, 16);
}
Numbers Content(CZEPHVector4D& v) {
  return Values(&v.x, 4);
}
Numbers Content(CZEPHVector3D& v) {
  return Values(&v.x, 3);
}
Numbers Content(limit::Array& a) {
  return Values(a.data, static_cast<std::size_t>(a.size));
}
Numbers Content(limit::Matrix& m) {
  Numbers all;
  for (int i = 0; i < m.size; ++i) all.insert(all.end(), m.rows[i], m.rows[i] + m.size);
  return all;
}
Numbers Content(limit::Matrix4& m) {
  return Values(m.e, 16);
}
Numbers Content(limit::Vector3& v) {
  return {v.x, v.y, v.z};
}
Numbers Content(limit::Float3& v) {
  return Values(&v.x, 3);
}
Numbers Content(limit::Float4& v) {
  return Values(&v.x, 4);
}
Numbers Content(limit::Float4x4& m) {
  return Values(m.e, 16);
}
#ifdef ZEPH_HAVE_EIGEN
using EigenRows = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;
template <class T>
Numbers Content(Eigen::PlainObjectBase<T>& x) {
  return Numbers(x.data(), x.data() + x.size());
}
#endif
#ifdef ZEPH_HAVE_GLM
Numbers Content(glm::mat4& m) {
  return Values(&m[0][0], 16);
}
Numbers Content(glm::vec4& v) {
  return Values(&v.x, 4);
}
Numbers Content(glm::vec3& v) {
  return Values(&v.x, 3);
}
#endif

// --- how a row is written ---

/// Times `object = f(a, b)` with a new object each time, which is destroyed at once.
template <class A, class B, class F>
Row::Options Makes(Row& row, const char* who, A a, B b, F f) {
  row.Items(1);
  auto& left = row.Keep<A>(std::move(a));
  auto& right = row.Keep<B>(std::move(b));
  return row
      .Peer(who,
            [&left, &right, f] {
              auto made = f(left, right);
              bench::Keep(made);
            })
      .Result([&left, &right, f] {
        auto made = f(left, right);
        return Content(made);
      });
}

/// Times f(a, b), which changes `a`.
template <class A, class B, class F>
Row::Options Changes(Row& row, const char* who, A a, B b, F f) {
  row.Items(1);
  auto& left = row.Keep<A>(std::move(a));
  auto& right = row.Keep<B>(std::move(b));
  return row.Peer(who, [&left, &right, f] { f(left, right); }).Result([&left] {
    return Content(left);
  });
}

const auto plus = [](auto& a, auto& b) { return a + b; };
const auto times = [](auto& a, auto& b) { return a * b; };
const auto copied = [](auto& a, auto&) { return a; };
const auto add = [](auto& a, auto& b) { a += b; };
const auto assign = [](auto& a, auto& b) { a = b; };

// --- arrays and vectors of n elements ---

struct Operands {
  explicit Operands(const Row& row, bool square = false)
      : n(static_cast<int>(row.n())),
        a(RandomDoubles(square ? row.n() * row.n() : row.n(), 1)),
        b(RandomDoubles(a.size(), 2)) {}
  int n;
  std::vector<double> a, b;

  template <class T>
  T A() {
    return Make<T>(a);
  }
  template <class T>
  T B() {
    return Make<T>(b);
  }

 private:
  template <class T>
  T Make(std::vector<double>& from) {
    if constexpr (std::is_same_v<T, CZEPHMatrix>) return T(n, n, from.data());
#ifdef ZEPH_HAVE_EIGEN
    else if constexpr (std::is_same_v<T, Eigen::VectorXd>)
      return Eigen::Map<T>(from.data(), n);
    else if constexpr (std::is_same_v<T, EigenRows>)
      return Eigen::Map<T>(from.data(), n, n);
#endif
    else
      return T(n, from.data());
  }
};

/// Rows of arrays: `Ours` against the limit and Eigen, which do the same by the same operators.
template <class Ours, class How, class F>
void Arrays(Row& row, How how, F f) {
  Operands o(row);
  how(row, "ours", o.A<Ours>(), o.B<Ours>(), f);
  how(row, "limit", o.A<limit::Array>(), o.B<limit::Array>(), f).Target(kLimit);
#ifdef ZEPH_HAVE_EIGEN
  how(row, "Eigen", o.A<Eigen::VectorXd>(), o.B<Eigen::VectorXd>(), f);
#endif
}
template <class How, class F>
void Matrices(Row& row, How how, F f) {
  Operands o(row, true);
  how(row, "ours", o.A<CZEPHMatrix>(), o.B<CZEPHMatrix>(), f);
  how(row, "limit", o.A<limit::Matrix>(), o.B<limit::Matrix>(), f).Target(kLimit);
#ifdef ZEPH_HAVE_EIGEN
  how(row, "Eigen", o.A<EigenRows>(), o.B<EigenRows>(), f).Near(kRounding);
#endif
}
const auto makes = [](Row& row, const char* who, auto a, auto b, auto f) {
  return Makes(row, who, std::move(a), std::move(b), f);
};
const auto changes = [](Row& row, const char* who, auto a, auto b, auto f) {
  return Changes(row, who, std::move(a), std::move(b), f);
};

[[maybe_unused]] const bool arrays =
    Add("small objects", "array made", kSizes,
        [](Row& row) {
          const auto n = static_cast<int>(row.n());
          Makes(row, "ours", n, 1.5, [](int m, double x) { return CZEPHDoubleArray(m, x); });
          Makes(row, "limit", n, 1.5, [](int m, double x) {
            return limit::Array(m, x);
          }).Target(kLimit);
#ifdef ZEPH_HAVE_EIGEN
          Makes(row, "Eigen", n, 1.5,
                [](int m, double x) -> Eigen::VectorXd { return Eigen::VectorXd::Constant(m, x); });
#endif
        }) &&
    Add("small objects", "array c = a + b", kSizes,
        [](Row& row) {
          Arrays<CZEPHDoubleArray>(row, makes, [](auto& a, auto& b) {
            std::decay_t<decltype(a)> sum = a + b;
            return sum;
          });
        }) &&
    Add("small objects", "array a += b", kSizes,
        [](Row& row) { Arrays<CZEPHDoubleArray>(row, changes, add); }) &&
    Add("small objects", "vector c = a + b", kSizes,
        [](Row& row) {
          Arrays<CZEPHVector>(row, makes, [](auto& a, auto& b) {
            std::decay_t<decltype(a)> sum = a + b;
            return sum;
          });
        }) &&
    Add("small objects", "vector a = b", kSizes,
        [](Row& row) { Arrays<CZEPHVector>(row, changes, assign); });

#ifdef ZEPH_HAVE_EIGEN
#define ZEPH_EIGEN_ROW(how, f) how(row, "Eigen", o.A<Eigen::VectorXd>(), o.B<Eigen::VectorXd>(), f)
#else
#define ZEPH_EIGEN_ROW(how, f) Row::Options(row.contenders.back())
#endif

[[maybe_unused]] const bool measures =
    Add("small objects", "MaxNorm", kSizes,
        [](Row& row) {
          const auto norm = [](auto& a, auto&) { return a.MaxNorm(); };
          Operands o(row);
          makes(row, "ours", o.A<CZEPHDoubleArray>(), 0, norm);
          makes(row, "limit", o.A<limit::Array>(), 0, norm).Target(kLimit);
          ZEPH_EIGEN_ROW(makes, [](auto& a, auto&) {
            return double(a.template lpNorm<Eigen::Infinity>());
          }).Near(kRounding);
        }) &&
    Add("small objects", "OneNorm", kSizes,
        [](Row& row) {
          const auto norm = [](auto& a, auto&) { return a.OneNorm(); };
          Operands o(row);
          makes(row, "ours", o.A<CZEPHDoubleArray>(), 0, norm);
          makes(row, "limit", o.A<limit::Array>(), 0, norm).Target(kLimit);
          ZEPH_EIGEN_ROW(makes, [](auto& a, auto&) {
            return double(a.template lpNorm<1>());
          }).Near(kRounding);
        }) &&
    Add("small objects", "dot product", kSizes, [](Row& row) {
      Operands o(row);
      makes(row, "ours", o.A<CZEPHDoubleArray>(), o.B<CZEPHDoubleArray>(),
            [](auto& a, auto& b) { return ZEPH_ArrayDotProduct(a, b); });
      makes(row, "limit", o.A<limit::Array>(), o.B<limit::Array>(), [](auto& a, auto& b) {
        return a.Dot(b);
      }).Target(kLimit);
      ZEPH_EIGEN_ROW(makes, [](auto& a, auto& b) { return double(a.dot(b)); }).Near(kRounding);
    });

// --- matrices of n x n elements ---

[[maybe_unused]] const bool matrices =
    Add("small objects", "matrix c = a * b", kSizes,
        [](Row& row) {
          Matrices(row, makes, [](auto& a, auto& b) {
            std::decay_t<decltype(a)> product = a * b;
            return product;
          });
        }) &&
    Add("small objects", "matrix r = a * b", kSizes,
        [](Row& row) {
          // The product of b with itself, so that `a` does not grow.
          Matrices(row, changes, [](auto& a, auto& b) { a = b * b; });
        }) &&
    Add("small objects", "matrix r = a", kSizes, [](Row& row) { Matrices(row, changes, assign); });

// --- classes of fixed size ---

std::vector<float> Floats(std::size_t n, unsigned long long seed) {
  const auto numbers = RandomDoubles(n, seed);
  return std::vector<float>(numbers.begin(), numbers.end());
}

[[maybe_unused]] const bool double_4x4 =
    Add("small objects", "double 4x4 c = a * b", {4},
        [](Row& row) {
          const auto a = RandomDoubles(16, 3), b = RandomDoubles(16, 4);
          const auto mode = CZEPHMatrix4::ColumnMajor;
          Makes(row, "ours", CZEPHMatrix4(a.data(), mode), CZEPHMatrix4(b.data(), mode), times);
          Makes(row, "limit", limit::Matrix4(a.data()), limit::Matrix4(b.data()), times)
              .Target(kLimit);
#ifdef ZEPH_HAVE_EIGEN
          using Matrix = Eigen::Matrix4d;
          Makes(row, "Eigen", Matrix(Eigen::Map<const Matrix>(a.data())),
                Matrix(Eigen::Map<const Matrix>(b.data())),
                [](Matrix& p, Matrix& q) -> Matrix { return p * q; })
              .Near(kRounding);
#endif
        }) &&
    Add("small objects", "double 4x4 copied", {4},
        [](Row& row) {
          const auto a = RandomDoubles(16, 3);
          Makes(row, "ours", CZEPHMatrix4(a.data(), CZEPHMatrix4::ColumnMajor), 0, copied);
          Makes(row, "limit", limit::Matrix4(a.data()), 0, copied).Target(kLimit);
#ifdef ZEPH_HAVE_EIGEN
          Makes(row, "Eigen", Eigen::Matrix4d(Eigen::Map<const Eigen::Matrix4d>(a.data())), 0,
                copied);
#endif
        }) &&
    Add("small objects", "double 3-vector c = a + b * s", {3}, [](Row& row) {
      const auto sum = [](auto& p, auto& q) {
        std::decay_t<decltype(p)> c = p + q * 0.75;
        return c;
      };
      Makes(row, "ours", CZEPHVector3(1, 2, 3), CZEPHVector3(3, -2, 1), sum);
      Makes(row, "limit", limit::Vector3(1, 2, 3), limit::Vector3(3, -2, 1), sum).Target(kLimit);
#ifdef ZEPH_HAVE_EIGEN
      Makes(row, "Eigen", Eigen::Vector3d(1, 2, 3), Eigen::Vector3d(3, -2, 1), sum);
#endif
    });

#ifdef ZEPH_HAVE_GLM
glm::mat4 GlmMatrix(const std::vector<float>& p) {
  glm::mat4 m(1.0f);
  for (int i = 0; i < 16; ++i) m[i / 4][i % 4] = p[static_cast<std::size_t>(i)];
  return m;
}
#define ZEPH_GLM_ROW(a, b, f) Makes(row, "GLM", a, b, f).Near(kRounding)
#else
#define ZEPH_GLM_ROW(a, b, f) static_cast<void>(0)
#endif

[[maybe_unused]] const bool floats =
    Add("small objects", "float 4x4 c = a * b", {4},
        [](Row& row) {
          const auto a = Floats(16, 5), b = Floats(16, 6);
          Makes(row, "ours", CZEPHMatrix4x4(a.data()), CZEPHMatrix4x4(b.data()), times);
          Makes(row, "limit", limit::Float4x4(a.data()), limit::Float4x4(b.data()), times)
              .Target(kLimit);
          ZEPH_GLM_ROW(GlmMatrix(a), GlmMatrix(b), times);
        }) &&
    Add("small objects", "float 4x4 times vector", {4},
        [](Row& row) {
          const auto a = Floats(16, 5);
          Makes(row, "ours", CZEPHMatrix4x4(a.data()), CZEPHVector4D(1, 2, 3, 4), times);
          Makes(row, "limit", limit::Float4x4(a.data()), limit::Float4(1, 2, 3, 4), times)
              .Target(kLimit);
          ZEPH_GLM_ROW(GlmMatrix(a), glm::vec4(1, 2, 3, 4), times);
        }) &&
    Add("small objects", "float 3-vector cross", {3},
        [](Row& row) {
          const auto cross = [](auto& p, auto& q) { return p.CrossProduct(q); };
          Makes(row, "ours", CZEPHVector3D(1, 2, 3), CZEPHVector3D(3, -2, 1), cross);
          Makes(row, "limit", limit::Float3(1, 2, 3), limit::Float3(3, -2, 1), cross)
              .Target(kLimit);
          ZEPH_GLM_ROW(glm::vec3(1, 2, 3), glm::vec3(3, -2, 1),
                       [](auto& p, auto& q) { return glm::cross(p, q); });
        }) &&
    Add("small objects", "float 3-vector dot", {3},
        [](Row& row) {
          const auto dot = [](auto& p, auto& q) { return p.DotProduct(q); };
          Makes(row, "ours", CZEPHVector3D(1, 2, 3), CZEPHVector3D(3, -2, 1), dot);
          Makes(row, "limit", limit::Float3(1, 2, 3), limit::Float3(3, -2, 1), dot).Target(kLimit);
          ZEPH_GLM_ROW(glm::vec3(1, 2, 3), glm::vec3(3, -2, 1),
                       [](auto& p, auto& q) { return glm::dot(p, q); });
        }) &&
    Add("small objects", "float 3-vector normalised", {3}, [](Row& row) {
      const auto normalised = [](auto& p, auto&) { return p.GetNormalized(); };
      Makes(row, "ours", CZEPHVector3D(1, 2, 3), 0, normalised);
      Makes(row, "limit", limit::Float3(1, 2, 3), 0, normalised).Target(kLimit);
      ZEPH_GLM_ROW(glm::vec3(1, 2, 3), 0, [](auto& p, auto&) { return glm::normalize(p); });
    });

[[maybe_unused]] const bool stacks = Add("small objects", "stack push and pop", {1}, [](Row& row) {
  const auto pair = [](auto& stack, auto& p) {
    stack.Push(&p);
    return stack.Pop() == &p ? 1.0 : 0.0;
  };
  Makes(row, "ours", CZEPHStack(), 0, pair);
  Makes(row, "limit", limit::Stack(), 0, pair).Target(kLimit);
  Makes(row, "std::stack", std::stack<void*>(), 0, [](auto& stack, auto& p) {
    stack.push(&p);
    const bool same = stack.top() == &p;
    stack.pop();
    return same ? 1.0 : 0.0;
  });
});

}  // namespace
}  // namespace zeph::bench
