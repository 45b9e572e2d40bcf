// Every operation on arrays against the single call in a loop: the same bits, in place and out of
// place, at every size, in every floating-point mode, without an exception of its own.
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>

#include "batch/inputs.h"
#include "support/modes.h"
#include "support/scale.h"

namespace zeph::test {
namespace {

/// An operation from arrays of `In` to one of `Out`.
template <class In, class Out = In>
struct Operation {
  std::function<void(const In* a, const In* b, Out* out, int n)> batch;
  std::function<Out(const In& a, const In& b)> single;
};

template <class Out>
std::vector<Component<Out>> Flat(std::vector<Out> objects) {
  return Values<Out>(std::move(objects));
}
std::vector<float> Flat(std::vector<float> numbers) {
  return numbers;
}
std::vector<double> Flat(std::vector<double> numbers) {
  return numbers;
}

template <class In, class Out>
auto OneByOne(const Operation<In, Out>& operation, const std::vector<In>& a,
              const std::vector<In>& b) {
  std::vector<Out> out(a.size());
  for (std::size_t i = 0; i < a.size(); ++i) out[i] = operation.single(a[i], b[i]);
  return Flat(out);
}
template <class In, class Out>
auto AtOnce(const Operation<In, Out>& operation, const std::vector<In>& a,
            const std::vector<In>& b) {
  std::vector<Out> out(a.size());
  operation.batch(a.data(), b.data(), out.data(), static_cast<int>(a.size()));
  return Flat(out);
}

/// The results over the first operand, over the second, and with one array for all three.
template <class Object>
void CheckInPlace(const Operation<Object>& operation, const std::vector<Object>& a,
                  const std::vector<Object>& b) {
  const auto want = OneByOne(operation, a, b);
  const int n = static_cast<int>(a.size());
  auto over = a;
  operation.batch(over.data(), b.data(), over.data(), n);
  ASSERT_TRUE(SameValues(Flat(over), want)) << "over the first operand";
  over = b;
  operation.batch(a.data(), over.data(), over.data(), n);
  ASSERT_TRUE(SameValues(Flat(over), want)) << "over the second operand";
  over = a;
  operation.batch(over.data(), over.data(), over.data(), n);
  ASSERT_TRUE(SameValues(Flat(over), OneByOne(operation, a, a))) << "one array for all three";
}
template <class In, class Out>
void CheckInPlace(const Operation<In, Out>&, const std::vector<In>&, const std::vector<In>&) {}

template <class In, class Out>
void Check(const std::string& name, const Operation<In, Out>& operation, bool unary = false) {
  SCOPED_TRACE(name);
  ForEachForm([&](const std::string& form) {
    SCOPED_TRACE(form);
    for (const Kind kind : kKinds)
      for (const int n : AllSizes()) {
        SCOPED_TRACE(::testing::Message() << kKindNames[static_cast<int>(kind)] << ", n " << n);
        const auto size = static_cast<std::size_t>(n);
        const auto a = Generated<In>(kind, size, 1 + size);
        const auto b = unary ? a : Generated<In>(kind, size, 1000 + size);
        ASSERT_TRUE(SameValues(AtOnce(operation, a, b), OneByOne(operation, a, b)));
        CheckInPlace(operation, a, b);
      }
  });
  for (const Kind kind : kKinds)
    for (const int n : kSomeSizes) {
      SCOPED_TRACE(::testing::Message() << kKindNames[static_cast<int>(kind)] << ", n " << n);
      const auto size = static_cast<std::size_t>(n);
      const auto a = Generated<In>(kind, size, 2000 + size);
      const auto b = Generated<In>(kind, size, 3000 + size);
      ASSERT_TRUE(ComputesInEveryMode([&] { return AtOnce(operation, a, b); },
                                      [&] { return OneByOne(operation, a, b); }));
    }
}

/// Matrices whose bottom rows choose every path: affine, nearly affine, any.
std::vector<CZEPHMatrix4x4> SomeMatrices() {
  std::vector<CZEPHMatrix4x4> matrices = Generated<CZEPHMatrix4x4>(Kind::kModerate, 2, 50);
  matrices.push_back(Generated<CZEPHMatrix4x4>(Kind::kAwkward, 1, 51)[0]);
  for (const Kind kind : {Kind::kModerate, Kind::kAwkward, Kind::kDenormal}) {
    CZEPHMatrix4x4 affine = Generated<CZEPHMatrix4x4>(kind, 1, 52)[0];
    affine.entries[3] = affine.entries[7] = 0.0f;
    affine.entries[11] = -0.0f;
    affine.entries[15] = 1.0f;
    matrices.push_back(affine);
  }
  CZEPHMatrix4x4 projection;
  projection.SetPerspective(-1.0f, 1.0f, -1.0f, 1.0f, 1.0f, 10.0f);
  matrices.push_back(projection);
  CZEPHMatrix4x4 nearly;
  nearly.entries[7] = std::numeric_limits<float>::denorm_min();
  matrices.push_back(nearly);
  for (const float corner :
       {1.5f, -3.0f}) {  // w is denormal, by the corner alone or by every entry
    matrices.push_back(Generated<CZEPHMatrix4x4>(Kind::kDenormal, 1, 53)[0]);
    matrices.back().entries[15] = corner * std::numeric_limits<float>::min() / 4;
    CZEPHMatrix4x4 small;
    small.entries[15] = corner * std::numeric_limits<float>::min() / 4;
    matrices.push_back(small);
  }
  return matrices;
}

template <class Object, class Batch, class Single>
void CheckByMatrix(Batch batch, Single single) {
  int k = 0;
  for (const CZEPHMatrix4x4& m : SomeMatrices())
    Check("matrix " + std::to_string(k++),
          Operation<Object>{
              [&](const Object* a, const Object*, Object* out, int n) { batch(m, a, out, n); },
              [&](const Object& a, const Object&) { return single(m, a); }},
          true);
}

TEST(Batch, TransformsPointsAsProductsWithAFourthComponentOfOne) {
  CheckByMatrix<CZEPHVector3D>(ZEPH_BatchTransformPoints,
                               [](const CZEPHMatrix4x4& m, const CZEPHVector3D& v) {
                                 return CZEPHVector3D(m * CZEPHVector4D(v));
                               });
}

TEST(Batch, TransformsDirectionsAsGetRotatedVector3D) {
  CheckByMatrix<CZEPHVector3D>(
      ZEPH_BatchTransformDirections,
      [](const CZEPHMatrix4x4& m, const CZEPHVector3D& v) { return m.GetRotatedVector3D(v); });
}

TEST(Batch, TransformsVectorsAsTheOperatorDoes) {
  CheckByMatrix<CZEPHVector4D>(
      ZEPH_BatchTransformVectors,
      [](const CZEPHMatrix4x4& m, const CZEPHVector4D& v) { return m * v; });
}

TEST(Batch, MultipliesMatricesAsTheOperatorDoes) {
  // Runs of affine matrices and of others, in the array too.
  const auto batch = [](const CZEPHMatrix4x4& m, const CZEPHMatrix4x4* a, CZEPHMatrix4x4* out,
                        int n) { ZEPH_BatchMultiply(m, a, out, n); };
  CheckByMatrix<CZEPHMatrix4x4>(
      batch, [](const CZEPHMatrix4x4& m, const CZEPHMatrix4x4& a) { return m * a; });
  const auto paths = SomeMatrices();
  Random random(7);
  for (const CZEPHMatrix4x4& m : paths)
    for (const int n : {1, 2, 5, 63, 64, 65, 200}) {
      std::vector<CZEPHMatrix4x4> mixed;
      while (mixed.size() < static_cast<std::size_t>(n)) {
        const std::size_t alike = 1 + random.Below(9), which = random.Below(paths.size());
        for (std::size_t i = 0; i < alike && mixed.size() < static_cast<std::size_t>(n); ++i)
          mixed.push_back(paths[which]);
      }
      std::vector<CZEPHMatrix4x4> want, got = mixed;
      for (const CZEPHMatrix4x4& a : mixed) want.push_back(m * a);
      ZEPH_BatchMultiply(m, got.data(), got.data(), n);
      ASSERT_TRUE(SameValues(Values(got), Values(want))) << n;
    }
}

/// Special entries one at a time in every place of either factor, with bottom rows of every kind.
TEST(Batch, MeetsSpecialEntriesInAnyPlaceAsTheOperatorsDo) {
  const float specials[] = {kNaNF,
                            kInfinityF,
                            -kInfinityF,
                            -0.0f,
                            std::numeric_limits<float>::denorm_min(),
                            std::numeric_limits<float>::max()};
  CZEPHMatrix4x4 affine, projection;
  affine.SetRotationAxis(30, CZEPHVector3D(1, 2, 3));
  affine.SetTranslationPart(CZEPHVector3D(4, -5, 6));
  projection.SetPerspective(-1, 2, -3, 1, 1, 10);
  std::vector<CZEPHMatrix4x4> factors;
  for (const CZEPHMatrix4x4& m : {affine, projection}) {
    factors.push_back(m);
    for (int at = 0; at < 16; ++at)
      for (const float special : specials) {
        factors.push_back(m);
        factors.back().entries[at] = special;
      }
  }
  std::vector<CZEPHMatrix4x4> others;
  for (std::size_t k = 0; k < factors.size(); k += Scaled<std::size_t>(1, 9))
    others.push_back(factors[k]);
  const auto points = Objects<CZEPHVector3D>(Awkward<float>(3 * 20, 70));
  const auto vectors = Objects<CZEPHVector4D>(Awkward<float>(4 * 20, 71));
  ForEachForm([&](const std::string& form) {
    for (const CZEPHMatrix4x4& m : factors) {
      std::vector<CZEPHMatrix4x4> got(others.size()), want;
      ZEPH_BatchMultiply(m, others.data(), got.data(), static_cast<int>(others.size()));
      for (const CZEPHMatrix4x4& a : others) want.push_back(m * a);
      ASSERT_TRUE(SameValues(Values(got), Values(want))) << form;
      std::vector<CZEPHVector3D> moved(20), wantMoved, turned(20), wantTurned;
      std::vector<CZEPHVector4D> product(20), wantProduct;
      ZEPH_BatchTransformPoints(m, points.data(), moved.data(), 20);
      ZEPH_BatchTransformDirections(m, points.data(), turned.data(), 20);
      ZEPH_BatchTransformVectors(m, vectors.data(), product.data(), 20);
      for (std::size_t i = 0; i < 20; ++i) {
        wantMoved.push_back(CZEPHVector3D(m * CZEPHVector4D(points[i])));
        wantTurned.push_back(m.GetRotatedVector3D(points[i]));
        wantProduct.push_back(m * vectors[i]);
      }
      ASSERT_TRUE(SameValues(Values(moved), Values(wantMoved))) << form;
      ASSERT_TRUE(SameValues(Values(turned), Values(wantTurned))) << form;
      ASSERT_TRUE(SameValues(Values(product), Values(wantProduct))) << form;
    }
  });
}

TEST(Batch, MultipliesDoubleMatricesAsTheOperatorDoes) {
  for (const Kind kind : kKinds) {
    const CZEPHMatrix4 m = Generated<CZEPHMatrix4>(kind, 1, 60)[0];
    Check(
        "matrix of kind " + std::to_string(static_cast<int>(kind)),
        Operation<CZEPHMatrix4>{[&](const CZEPHMatrix4* a, const CZEPHMatrix4*, CZEPHMatrix4* out,
                                    int n) { ZEPH_BatchMultiply(m, a, out, n); },
                                [&](const CZEPHMatrix4& a, const CZEPHMatrix4&) { return m * a; }},
        true);
  }
}

TEST(Batch, RotatesAboutAnAxisAsGetRotatedAxis) {
  const CZEPHVector3D axes[] = {CZEPHVector3D(1, 2, 3), CZEPHVector3D(0, 0, 0),
                                CZEPHVector3D(0, 1, 0)};
  for (const CZEPHVector3D& axis : axes)
    for (const double angle : {0.0, -0.0, 30.0, -725.5})
      Check("angle " + std::to_string(angle),
            Operation<CZEPHVector3D>{
                [&](const CZEPHVector3D* a, const CZEPHVector3D*, CZEPHVector3D* out, int n) {
                  ZEPH_BatchRotateAxis(angle, axis, a, out, n);
                },
                [&](const CZEPHVector3D& a, const CZEPHVector3D&) {
                  return a.GetRotatedAxis(angle, axis);
                }},
            true);
}

TEST(Batch, RotatesByTinyAnglesAsTheClassDoes) {
  const auto in = Objects<CZEPHVector3D>(Awkward<float>(3 * 67, 9));
  const CZEPHVector3D axis(1, -2, 3);
  for (const double angle : {5e-324, -5e-324, 1e-310, 1e-200, -1e-31, 1e-30, 1e-20, -1e-9, 1e-5,
                             360.0, 1e300, std::numeric_limits<double>::infinity()}) {
    std::vector<CZEPHVector3D> got(in.size()), want;
    for (const CZEPHVector3D& v : in) want.push_back(v.GetRotatedAxis(angle, axis));
    ZEPH_BatchRotateAxis(angle, axis, in.data(), got.data(), 67);
    EXPECT_TRUE(SameValues(Values(got), Values(want))) << angle;
  }
}

TEST(Batch, RotatesByAnglesThatCountAsZeroAsTheClassDoes) {
  const CZEPHVector3D axis(1, -2, 3);
  const auto in = Generated<CZEPHVector3D>(Kind::kDenormal, 19, 3);
  for (const double angle : {5e-324, -1e-310, 0.0})
    EXPECT_TRUE(ComputesInEveryMode(
        [&] {
          std::vector<CZEPHVector3D> out(in.size());
          ZEPH_BatchRotateAxis(angle, axis, in.data(), out.data(), static_cast<int>(in.size()));
          return Values(out);
        },
        [&] {
          std::vector<CZEPHVector3D> out;
          for (const CZEPHVector3D& v : in) out.push_back(v.GetRotatedAxis(angle, axis));
          return Values(out);
        }))
        << angle;
}

TEST(Batch, AnAngleOfZeroCopiesEveryBit) {
  const auto values = Awkward<float>(3 * 67, 8);
  const auto in = Objects<CZEPHVector3D>(values);
  std::vector<CZEPHVector3D> out(in.size());
  ZEPH_BatchRotateAxis(0.0, CZEPHVector3D(1, 2, 3), in.data(), out.data(), 67);
  EXPECT_TRUE(SameBits(Values(out), values));
}

TEST(Batch, NormalisesAsTheClassDoes) {
  Check("floats",
        Operation<CZEPHVector3D>{
            [](const CZEPHVector3D* a, const CZEPHVector3D*, CZEPHVector3D* out, int n) {
              ZEPH_BatchNormalize(a, out, n);
            },
            [](const CZEPHVector3D& a, const CZEPHVector3D&) { return a.GetNormalized(); }},
        true);
  Check("doubles",
        Operation<CZEPHVector3>{
            [](const CZEPHVector3* a, const CZEPHVector3*, CZEPHVector3* out, int n) {
              ZEPH_BatchNormalize(a, out, n);
            },
            [](const CZEPHVector3& a, const CZEPHVector3&) { return a.Normalized(); }},
        true);
}

TEST(Batch, TakesDotProductsAsTheClassDoes) {
  Check("floats",
        Operation<CZEPHVector3D, float>{
            [](const CZEPHVector3D* a, const CZEPHVector3D* b, float* out, int n) {
              ZEPH_BatchDot(a, b, out, n);
            },
            [](const CZEPHVector3D& a, const CZEPHVector3D& b) { return a.DotProduct(b); }});
  Check("doubles", Operation<CZEPHVector3, double>{
                       [](const CZEPHVector3* a, const CZEPHVector3* b, double* out, int n) {
                         ZEPH_BatchDot(a, b, out, n);
                       },
                       [](const CZEPHVector3& a, const CZEPHVector3& b) { return a * b; }});
}

TEST(Batch, TakesCrossProductsAsTheClassDoes) {
  Check("floats",
        Operation<CZEPHVector3D>{
            [](const CZEPHVector3D* a, const CZEPHVector3D* b, CZEPHVector3D* out, int n) {
              ZEPH_BatchCross(a, b, out, n);
            },
            [](const CZEPHVector3D& a, const CZEPHVector3D& b) { return a.CrossProduct(b); }});
  Check("doubles", Operation<CZEPHVector3>{
                       [](const CZEPHVector3* a, const CZEPHVector3* b, CZEPHVector3* out, int n) {
                         ZEPH_BatchCross(a, b, out, n);
                       },
                       [](const CZEPHVector3& a, const CZEPHVector3& b) { return a ^ b; }});
}

/// Of far more objects than a cache or a part holds.
TEST(Batch, WorksOnThousandsOfObjects) {
  constexpr std::size_t kCount = 3001;
  constexpr int kObjects = static_cast<int>(kCount);
  CZEPHMatrix4x4 affine, projection;
  affine.SetRotationAxis(30, CZEPHVector3D(1, 2, 3));
  affine.SetTranslationPart(CZEPHVector3D(4, -5, 6));
  projection.SetPerspective(-1, 2, -3, 1, 1, 10);
  const CZEPHVector3D axis(3, -2, 1);
  const auto v = Generated<CZEPHVector3D>(Kind::kModerate, kCount, 1);
  const auto w = Generated<CZEPHVector3D>(Kind::kModerate, kCount, 2);
  const auto four = Generated<CZEPHVector4D>(Kind::kModerate, kCount, 3);
  const auto matrices = Generated<CZEPHMatrix4x4>(Kind::kModerate, kCount, 4);
  const auto d = Generated<CZEPHVector3>(Kind::kModerate, kCount, 5);
  const auto e = Generated<CZEPHVector3>(Kind::kModerate, kCount, 6);
  const auto doubles = Generated<CZEPHMatrix4>(Kind::kModerate, kCount, 7);
  const auto check = [](const char* what, const auto& in, auto batch, auto single) {
    using Out = decltype(single(std::size_t{0}));
    std::vector<Out> got(in.size()), want;
    batch(got.data());
    for (std::size_t i = 0; i < in.size(); ++i) want.push_back(single(i));
    EXPECT_TRUE(SameValues(Flat(got), Flat(want))) << what;
  };
  for (const CZEPHMatrix4x4& m : {affine, projection}) {
    check(
        "points", v,
        [&](CZEPHVector3D* out) { ZEPH_BatchTransformPoints(m, v.data(), out, kObjects); },
        [&](std::size_t i) { return CZEPHVector3D(m * CZEPHVector4D(v[i])); });
    check(
        "directions", v,
        [&](CZEPHVector3D* out) { ZEPH_BatchTransformDirections(m, v.data(), out, kObjects); },
        [&](std::size_t i) { return m.GetRotatedVector3D(v[i]); });
    check(
        "vectors", four,
        [&](CZEPHVector4D* out) { ZEPH_BatchTransformVectors(m, four.data(), out, kObjects); },
        [&](std::size_t i) { return m * four[i]; });
    check(
        "matrices", matrices,
        [&](CZEPHMatrix4x4* out) { ZEPH_BatchMultiply(m, matrices.data(), out, kObjects); },
        [&](std::size_t i) { return m * matrices[i]; });
  }
  check(
      "double matrices", doubles,
      [&](CZEPHMatrix4* out) { ZEPH_BatchMultiply(doubles[5], doubles.data(), out, kObjects); },
      [&](std::size_t i) { return doubles[5] * doubles[i]; });
  for (const double angle : {0.0, 30.0})
    check(
        "rotations", v,
        [&](CZEPHVector3D* out) { ZEPH_BatchRotateAxis(angle, axis, v.data(), out, kObjects); },
        [&](std::size_t i) { return v[i].GetRotatedAxis(angle, axis); });
  check(
      "unit vectors", v, [&](CZEPHVector3D* out) { ZEPH_BatchNormalize(v.data(), out, kObjects); },
      [&](std::size_t i) { return v[i].GetNormalized(); });
  check(
      "unit vectors of doubles", d,
      [&](CZEPHVector3* out) { ZEPH_BatchNormalize(d.data(), out, kObjects); },
      [&](std::size_t i) { return d[i].Normalized(); });
  check(
      "dot products", v, [&](float* out) { ZEPH_BatchDot(v.data(), w.data(), out, kObjects); },
      [&](std::size_t i) { return v[i].DotProduct(w[i]); });
  check(
      "dot products of doubles", d,
      [&](double* out) { ZEPH_BatchDot(d.data(), e.data(), out, kObjects); },
      [&](std::size_t i) { return d[i] * e[i]; });
  check(
      "cross products", v,
      [&](CZEPHVector3D* out) { ZEPH_BatchCross(v.data(), w.data(), out, kObjects); },
      [&](std::size_t i) { return v[i].CrossProduct(w[i]); });
  check(
      "cross products of doubles", d,
      [&](CZEPHVector3* out) { ZEPH_BatchCross(d.data(), e.data(), out, kObjects); },
      [&](std::size_t i) { return d[i] ^ e[i]; });
  for (const std::size_t at : {std::size_t{0}, std::size_t{1500}, kCount - 1}) {
    auto points = v;
    auto doublePoints = d;
    points[at] = CZEPHVector3D(-9, 9, -9), doublePoints[at] = CZEPHVector3(-9, 9, -9);
    CZEPHVector3D low, high;
    CZEPHVector3 lowD, highD;
    EXPECT_EQ(ZEPH_BatchBounds(points.data(), kObjects, low, high), 1);
    EXPECT_EQ(ZEPH_BatchBounds(doublePoints.data(), kObjects, lowD, highD), 1);
    EXPECT_TRUE(low.x == -9 && high.y == 9 && low.z == -9) << at;
    EXPECT_TRUE(lowD.m_x == -9 && highD.m_y == 9 && lowD.m_z == -9) << at;
  }
}

}  // namespace
}  // namespace zeph::test
