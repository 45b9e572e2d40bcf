// SPDX-License-Identifier: MIT
//
// Arrays of small objects, against loops that GLM (floats) and Eigen (doubles) inline, compiled at
// -O3 for this processor. GLM's vectors take 12 bytes where ours take 24, and its matrices 64 where ours
// take 72. "Moves alone" assigns our objects without arithmetic: the speed of reading and writing
// them. At a million objects, which fit no cache, that is the memory's speed.
#include "batch.h"

#include <cstring>
#include <type_traits>

#include "bench.h"
#include "peers/native_geometry.h"

namespace zeph::bench {
namespace {

const std::vector<std::size_t> kSizes = {1000, 1'000'000};
constexpr double kRounding = 1e-3;  // fused operations round differently

template <class Object>
constexpr std::size_t kWidth = 3;
template <>
constexpr std::size_t kWidth<CZEPHVector4D> = 4;
template <>
constexpr std::size_t kWidth<CZEPHMatrix4x4> = 16;
template <>
constexpr std::size_t kWidth<CZEPHMatrix4> = 16;
template <>
constexpr std::size_t kWidth<float> = 1;
template <>
constexpr std::size_t kWidth<double> = 1;

float* First(CZEPHVector3D& v) {
  return &v.x;
}
float* First(CZEPHVector4D& v) {
  return &v.x;
}
float* First(CZEPHMatrix4x4& m) {
  return m.entries;
}
double* First(CZEPHVector3& v) {
  return &v.m_x;
}
double* First(CZEPHMatrix4& m) {
  return m.m_data;
}
float* First(float& x) {
  return &x;
}
double* First(double& x) {
  return &x;
}
template <class Object>
using Number = std::remove_pointer_t<decltype(First(std::declval<Object&>()))>;

/// The numbers of `n` objects, moderate and far from zero, so that differences in rounding stay
/// small.
template <class T>
std::vector<T> Components(std::size_t n, unsigned long long seed) {
  const auto numbers = RandomDoubles(n, seed, 0.5, 2);
  return std::vector<T>(numbers.begin(), numbers.end());
}
template <class Object>
std::vector<Object> Objects(const std::vector<Number<Object>>& numbers) {
  std::vector<Object> objects(numbers.size() / kWidth<Object>);
  for (std::size_t i = 0; i < objects.size(); ++i)
    std::copy_n(&numbers[i * kWidth<Object>], kWidth<Object>, First(objects[i]));
  return objects;
}

/// Copies an object, or its first component where the result is a number.
template <class Object>
void Move(Object& from, Object& to) {
  to = from;
}
template <class Object>
void Move(Object& from, Number<Object>& to) {
  to = *First(from);
}

template <class Object, class Out>
struct Arrays {
  std::vector<Object> a, b;
  std::vector<Out> out;
  std::vector<Number<Object>> plainA, plainB;
  std::vector<Number<Out>> plainOut;
};

/// Times ours(a, b, out, n) and the peer on contiguous numbers. `read` arrays are read.
template <class Object, class Out, class Ours, class Peer>
void Compare(Row& row, const char* who, int read, Ours ours, Peer peer) {
  const std::size_t n = row.n();
  auto& o = row.Keep<Arrays<Object, Out>>();
  o.plainA = Components<Number<Object>>(n * kWidth<Object>, 1);
  o.plainB = Components<Number<Object>>(n * kWidth<Object>, 2);
  o.a = Objects<Object>(o.plainA);
  o.b = Objects<Object>(o.plainB);
  o.out.resize(n);
  o.plainOut.resize(n * kWidth<Out>);
  row.Ours([&o, ours, n] { ours(o.a.data(), o.b.data(), o.out.data(), static_cast<int>(n)); })
      .Result([&o] {
        Numbers numbers;
        for (Out& object : o.out)
          numbers.insert(numbers.end(), First(object), First(object) + kWidth<Out>);
        return numbers;
      });
  row.Peer(who, [&o, peer, n] { peer(o.plainOut.data(), o.plainA.data(), o.plainB.data(), n); })
      .Near(kRounding)
      .Target(n <= 1000 ? 1.5 : 0)
      .Result([&o] { return Values(o.plainOut.data(), o.plainOut.size()); });
  auto& moved = row.Keep<std::vector<Out>>(n);
  const auto result = [&o] {
    Numbers numbers;
    for (Out& object : o.out)
      numbers.insert(numbers.end(), First(object), First(object) + kWidth<Out>);
    return numbers;
  };
  row.Peer("moves alone",
           [&o, &moved, read, n] {
             for (std::size_t i = 0; i < n; ++i) {
               Move(o.a[i], moved[i]);
               if (read > 1) *First(moved[i]) = *First(o.b[i]);
             }
           })
      .Result(result);  // not what the operation computes: only its time is compared
}

const CZEPHMatrix4x4& Affine() {
  static const CZEPHMatrix4x4 m = [] {
    CZEPHMatrix4x4 made;
    made.SetRotationAxis(30, CZEPHVector3D(1, 2, 3));
    made.SetTranslationPart(CZEPHVector3D(3, 2, 1));
    return made;
  }();
  return m;
}
const CZEPHMatrix4& Doubles() {
  static const CZEPHMatrix4 m(RandomDoubles(16, 5, 0.5, 2).data(), CZEPHMatrix4::ColumnMajor);
  return m;
}

namespace peer = native_geometry;
using Point = CZEPHVector3D;

#ifdef ZEPH_HAVE_NATIVE_GLM
[[maybe_unused]] const bool floats =
    Add("batch", "points by a matrix", kSizes,
        [](Row& row) {
          Compare<Point, Point>(
              row, "GLM, native", 1,
              [](const Point* a, const Point*, Point* out, int n) {
                ZEPH_BatchTransformPoints(Affine(), a, out, n);
              },
              [](float* out, const float* a, const float*, std::size_t n) {
                peer::Points(out, a, Affine().entries, n);
              });
        }) &&
    Add("batch", "directions by a matrix", kSizes,
        [](Row& row) {
          Compare<Point, Point>(
              row, "GLM, native", 1,
              [](const Point* a, const Point*, Point* out, int n) {
                ZEPH_BatchTransformDirections(Affine(), a, out, n);
              },
              [](float* out, const float* a, const float*, std::size_t n) {
                peer::Directions(out, a, Affine().entries, n);
              });
        }) &&
    Add("batch", "4-vectors by a matrix", kSizes,
        [](Row& row) {
          using V = CZEPHVector4D;
          Compare<V, V>(
              row, "GLM, native", 1,
              [](const V* a, const V*, V* out, int n) {
                ZEPH_BatchTransformVectors(Affine(), a, out, n);
              },
              [](float* out, const float* a, const float*, std::size_t n) {
                peer::Vectors(out, a, Affine().entries, n);
              });
        }) &&
    Add("batch", "4x4 products", kSizes,
        [](Row& row) {
          using M = CZEPHMatrix4x4;
          Compare<M, M>(
              row, "GLM, native", 1,
              [](const M* a, const M*, M* out, int n) { ZEPH_BatchMultiply(Affine(), a, out, n); },
              [](float* out, const float* a, const float*, std::size_t n) {
                peer::Products(out, a, Affine().entries, n);
              });
        }) &&
    Add("batch", "normalise", kSizes,
        [](Row& row) {
          Compare<Point, Point>(
              row, "GLM, native", 1,
              [](const Point* a, const Point*, Point* out, int n) {
                ZEPH_BatchNormalize(a, out, n);
              },
              [](float* out, const float* a, const float*, std::size_t n) {
                peer::Normalise(out, a, n);
              });
        }) &&
    Add("batch", "dot products", kSizes,
        [](Row& row) {
          Compare<Point, float>(
              row, "GLM, native", 2,
              [](const Point* a, const Point* b, float* out, int n) {
                ZEPH_BatchDot(a, b, out, n);
              },
              [](float* out, const float* a, const float* b, std::size_t n) {
                peer::Dot(out, a, b, n);
              });
        }) &&
    Add("batch", "cross products", kSizes,
        [](Row& row) {
          Compare<Point, Point>(
              row, "GLM, native", 2,
              [](const Point* a, const Point* b, Point* out, int n) {
                ZEPH_BatchCross(a, b, out, n);
              },
              [](float* out, const float* a, const float* b, std::size_t n) {
                peer::Cross(out, a, b, n);
              });
        }) &&
    Add("batch", "rotate about an axis", kSizes, [](Row& row) {
      Compare<Point, Point>(
          row, "GLM, native", 1,
          [](const Point* a, const Point*, Point* out, int n) {
            ZEPH_BatchRotateAxis(30, CZEPHVector3D(1, 2, 3), a, out, n);
          },
          [](float* out, const float* a, const float*, std::size_t n) {
            const float axis[] = {1, 2, 3};
            peer::Rotate(out, a, 30, axis, n);
          });
    });
#endif

/// A box is two points, whatever n.
template <class V, class Box>
void Boxes(Row& row, const char* who, Box box) {
  const std::size_t n = row.n();
  auto& plain = row.Keep<std::vector<Number<V>>>(Components<Number<V>>(3 * n, 1));
  auto& points = row.Keep<std::vector<V>>(Objects<V>(plain));
  auto& corners = row.Keep<std::vector<V>>(2);
  auto& plainCorners = row.Keep<std::vector<Number<V>>>(6);
  row.Ours([&] {
       ZEPH_BatchBounds(points.data(), static_cast<int>(points.size()), corners[0], corners[1]);
     })
      .Result([&] {
        Numbers numbers;
        for (V& v : corners) numbers.insert(numbers.end(), First(v), First(v) + 3);
        return numbers;
      });
  row.Peer(who, [&, box] { box(plainCorners.data(), plain.data(), plain.size() / 3); })
      .Target(n <= 1000 ? 1.5 : 0)
      .Result([&] { return Values(plainCorners.data(), 6); });
}

#ifdef ZEPH_HAVE_NATIVE_GLM
[[maybe_unused]] const bool boxes = Add("batch", "bounding box", kSizes, [](Row& row) {
  Boxes<Point>(row, "GLM, native",
               [](float* box, const float* v, std::size_t n) { peer::Bounds(box, v, n); });
});
#endif

#ifdef ZEPH_HAVE_NATIVE_EIGEN
using Vector = CZEPHVector3;
[[maybe_unused]] const bool doubles =
    Add("batch", "double 4x4 products", kSizes,
        [](Row& row) {
          using M = CZEPHMatrix4;
          Compare<M, M>(
              row, "Eigen, native", 1,
              [](const M* a, const M*, M* out, int n) { ZEPH_BatchMultiply(Doubles(), a, out, n); },
              [](double* out, const double* a, const double*, std::size_t n) {
                peer::Products(out, a, Doubles().m_data, n);
              });
        }) &&
    Add("batch", "normalise, double", kSizes,
        [](Row& row) {
          Compare<Vector, Vector>(
              row, "Eigen, native", 1,
              [](const Vector* a, const Vector*, Vector* out, int n) {
                ZEPH_BatchNormalize(a, out, n);
              },
              [](double* out, const double* a, const double*, std::size_t n) {
                peer::Normalise(out, a, n);
              });
        }) &&
    Add("batch", "dot products, double", kSizes,
        [](Row& row) {
          Compare<Vector, double>(
              row, "Eigen, native", 2,
              [](const Vector* a, const Vector* b, double* out, int n) {
                ZEPH_BatchDot(a, b, out, n);
              },
              [](double* out, const double* a, const double* b, std::size_t n) {
                peer::Dot(out, a, b, n);
              });
        }) &&
    Add("batch", "cross products, double", kSizes,
        [](Row& row) {
          Compare<Vector, Vector>(
              row, "Eigen, native", 2,
              [](const Vector* a, const Vector* b, Vector* out, int n) {
                ZEPH_BatchCross(a, b, out, n);
              },
              [](double* out, const double* a, const double* b, std::size_t n) {
                peer::Cross(out, a, b, n);
              });
        }) &&
    Add("batch", "bounding box, double", kSizes, [](Row& row) {
      Boxes<Vector>(row, "Eigen, native",
                    [](double* box, const double* v, std::size_t n) { peer::Bounds(box, v, n); });
    });
#endif

}  // namespace
}  // namespace zeph::bench
