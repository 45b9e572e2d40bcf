// The single-precision vectors and the 4x4 matrix in every floating-point mode of the host.
#include "graphics/values.h"
#include "modes/inputs.h"
#include "support/modes.h"
#include "support/not_finite.h"

using namespace zeph::test;

namespace {

using Floats = std::vector<float>;

Floats List(const oracle::Matrix& m) {
  return {m.begin(), m.end()};
}
Floats List(const oracle::Vector& v) {
  return v;
}
Floats List(const CZEPHMatrix4x4& m) {
  return List(Array(m));
}
template <class V>
Floats List(const V& v) {
  return Array(v);
}

/// Both return a matrix or a vector.
template <class Operation, class Steps>
void Check(const char* what, Operation operation, Steps steps) {
  SCOPED_TRACE(what);
  EXPECT_TRUE(
      ComputesInEveryMode([&] { return List(operation()); }, [&] { return List(steps()); }));
}

void CheckRotations(const CZEPHVector3D& v, double angle, const CZEPHVector3D& axis) {
  Check(
      "about X", [&] { return v.GetRotatedX(angle); },
      [&] { return oracle::RotatedX(Array(v), angle); });
  Check(
      "about Y", [&] { return v.GetRotatedY(angle); },
      [&] { return oracle::RotatedY(Array(v), angle); });
  Check(
      "about Z", [&] { return v.GetRotatedZ(angle); },
      [&] { return oracle::RotatedZ(Array(v), angle); });
  Check(
      "about an axis", [&] { return v.GetRotatedAxis(angle, axis); },
      [&] { return oracle::RotatedAxis(Array(v), angle, Array(axis)); });
}

/// Some have denormals among their entries: in some modes those in the bottom row count as zeros.
CZEPHMatrix4x4 AnyModeMatrix(Random& random) {
  CZEPHMatrix4x4 m = AnyMatrix(random);
  if (random.Below(3) == 0)
    for (int i = 0; i < 15; ++i)
      if (random.Below(3) == 0) m.entries[i] = Denormal<float>(random.Int(-9, 9));
  return m;
}

/// Its last row is (0, 0, 0, 1); the other entries are small whole numbers.
CZEPHMatrix4x4 AnAffineMatrix() {
  CZEPHMatrix4x4 m;
  for (int i = 0; i < 15; ++i)
    if (i % 4 != 3) m.entries[i] = static_cast<float>(i + 1);
  return m;
}

const std::size_t kCases = Scaled<std::size_t>(3000, 100);

}  // namespace

TEST(GraphicsModes, ProductsMatchTheirOracles) {
  ForEachCase(kCases, 61, [](Random& random) {
    const CZEPHMatrix4x4 a = AnyModeMatrix(random), b = AnyModeMatrix(random);
    const CZEPHVector4D v = AnyVector<CZEPHVector4D>(random);
    Check(
        "matrices", [&] { return a * b; }, [&] { return oracle::Product(Array(a), Array(b)); });
    Check(
        "vector", [&] { return a * v; }, [&] { return oracle::Product(Array(a), Array(v)); });
  });
}

TEST(GraphicsModes, ProductsOfAffineMatricesWithInfinityMatchTheirOracle) {
  const CZEPHMatrix4x4 affine = AnAffineMatrix();
  CZEPHMatrix4x4 infinite;
  infinite.entries[1] = infinite.entries[15] = kInfinityF;
  const CZEPHVector4D v(kInfinityF, 1, 2, 3);
  Check(
      "matrices", [&] { return affine * infinite; },
      [&] { return oracle::Product(Array(affine), Array(infinite)); });
  Check(
      "vector", [&] { return affine * v; },
      [&] { return oracle::Product(Array(affine), Array(v)); });
}

TEST(GraphicsModes, ProductsOfAffineMatricesMeetAnInfinityInAnyPlace) {
  const CZEPHMatrix4x4 affine = AnAffineMatrix();
  for (int at = 0; at < 16; ++at) {
    CZEPHMatrix4x4 infinite = affine;
    infinite.entries[at] = kInfinityF;
    Check(
        "matrices", [&] { return affine * infinite; },
        [&] { return oracle::Product(Array(affine), Array(infinite)); });
  }
  for (int at = 0; at < 4; ++at) {
    CZEPHVector4D v(1, 2, 3, 4);
    (&v.x)[at] = kInfinityF;
    Check(
        "vector", [&] { return affine * v; },
        [&] { return oracle::Product(Array(affine), Array(v)); });
  }
}

TEST(GraphicsModes, ProductsOfMatricesThatDenormalsMakeAffineMatchTheirOracle) {
  constexpr float kGreatest = 0x1.fffffcp-127f, kLeast = 0x1p-149f;  // of the denormals
  for (const float denormal : {kGreatest, -kGreatest, kLeast})
    for (const int at : {3, 7, 11}) {
      CZEPHMatrix4x4 affine = AnAffineMatrix(), infinite;
      affine.entries[at] = denormal;
      infinite.entries[at - 3] = kInfinityF;
      SCOPED_TRACE("entry " + std::to_string(at) + " is " + std::to_string(denormal));
      Check(
          "matrices", [&] { return affine * infinite; },
          [&] { return oracle::Product(Array(affine), Array(infinite)); });
      Check(
          "matrices, the other way", [&] { return infinite * affine; },
          [&] { return oracle::Product(Array(infinite), Array(affine)); });
    }
}

TEST(GraphicsModes, InversesMatchTheirOracles) {
  ForEachCase(kCases, 62, [](Random& random) {
    const CZEPHMatrix4x4 m = AnyModeMatrix(random);
    const oracle::Matrix e = Array(m);
    Check(
        "inverse", [&] { return m.GetInverse(); },
        [&] { return oracle::Transposed(oracle::InverseTranspose(e)); });
    Check(
        "inverse transpose", [&] { return m.GetInverseTranspose(); },
        [&] { return oracle::InverseTranspose(e); });
    Check(
        "rigid", [&] { return m.GetAffineInverse(); }, [&] { return oracle::AffineInverse(e); });
    Check(
        "rigid transpose", [&] { return m.GetAffineInverseTranspose(); },
        [&] { return oracle::Transposed(oracle::AffineInverse(e)); });
  });
}

TEST(GraphicsModes, RigidInversesDoNotReadTheBottomRow) {
  for (const int bottom : {3, 7, 11, 15})
    for (const float x : {kInfinityF, -kInfinityF, 3e38f, FromBits<float>(0x7F812345u)}) {
      CZEPHMatrix4x4 m, read;
      m.SetTranslationPart(CZEPHVector3D(1, 2, 3));
      read = m;
      m.entries[bottom] = x;
      Check(
          "rigid", [&] { return m.GetAffineInverse(); },
          [&] { return oracle::AffineInverse(Array(read)); });
      Check(
          "rigid transpose", [&] { return m.GetAffineInverseTranspose(); },
          [&] { return oracle::Transposed(oracle::AffineInverse(Array(read))); });
    }
}

TEST(GraphicsModes, DivisorsOfZeroAndOneLeaveDenormalsUnchanged) {
  CZEPHMatrix4x4 m;
  for (int i = 0; i < 16; ++i) m.entries[i] = Denormal<float>(i % 2 ? -i - 1 : i + 1);
  for (const float s : {1.0f, 0.0f, -0.0f})
    Check(
        "share", [&] { return m / s; }, [&] { return Array(m); });
  CZEPHVector4D point(Denormal<float>(3), Denormal<float>(-5), 2, 1), direction = point;
  direction.w = -0.0f;
  for (CZEPHVector4D* v : {&point, &direction})
    Check(
        "projected", [v] { return CZEPHVector3D(*v); },
        [v] {
          return oracle::Vector{v->x, v->y, v->z};
        });
}

TEST(GraphicsModes, InversesRaiseNoExceptionOfTheirOwn) {
  CZEPHMatrix4x4 rigid;
  rigid.entries[12] = kInfinityF;
  Check(
      "rigid", [&] { return rigid.GetAffineInverse(); },
      [&] { return oracle::AffineInverse(Array(rigid)); });
  // The terms of the determinant are -2e38, 2e38, 0 and 1: no partial sum in the documented order
  // overflows.
  CZEPHMatrix4x4 large;
  for (int i = 0; i < 16; ++i) large.entries[i] = i % 5 == 0 ? 1.0f : 0.0f;
  large.entries[0] = -2e19f, large.entries[5] = 1e19f;
  large.entries[1] = 2e19f, large.entries[4] = -1e19f;
  Check(
      "inverse", [&] { return large.GetInverse(); },
      [&] { return oracle::Transposed(oracle::InverseTranspose(Array(large))); });
}

// Without a zero among the entries no documented step makes a NaN of an infinity, and lanes whose
// results are dropped must not either.
TEST(GraphicsModes, MatricesWithoutZerosMeetAnInfinityInAnyPlace) {
  for (const bool affine : {false, true})
    for (const float x : {kInfinityF, -kInfinityF, 3e38f})
      for (int at = 0; at < 16; ++at) {
        if (affine && at % 4 == 3) continue;
        CZEPHMatrix4x4 m, ones;
        for (int i = 0; i < 16; ++i) {
          m.entries[i] = affine && i % 4 == 3 ? (i == 15 ? 1.0f : 0.0f) : 0.25f;
          ones.entries[i] = 0.5f;
        }
        m.entries[at] = x;
        SCOPED_TRACE(std::string(affine ? "affine, " : "") + Show(x) + " in entry " +
                     std::to_string(at));
        const oracle::Matrix e = Array(m), o = Array(ones);
        const CZEPHVector4D v(0.5f, 0.25f, 2.0f, 1.0f);
        Check(
            "rigid", [&] { return m.GetAffineInverse(); },
            [&] { return oracle::AffineInverse(e); });
        Check(
            "rigid transpose", [&] { return m.GetAffineInverseTranspose(); },
            [&] { return oracle::Transposed(oracle::AffineInverse(e)); });
        Check(
            "inverse", [&] { return m.GetInverse(); },
            [&] { return oracle::Transposed(oracle::InverseTranspose(e)); });
        Check(
            "product", [&] { return m * ones; }, [&] { return oracle::Product(e, o); });
        Check(
            "product, the other way", [&] { return ones * m; },
            [&] { return oracle::Product(o, e); });
        Check(
            "vector", [&] { return m * v; }, [&] { return oracle::Product(e, Array(v)); });
        Check(
            "share", [&] { return m / 4.0f; }, [&] { return oracle::Over(e, 4.0f); });
      }
}

// A determinant of 1 leaves the cofactors as they are, denormal ones too.
TEST(GraphicsModes, InverseWithADeterminantOfOneIsNotScaled) {
  CZEPHMatrix4x4 m;
  m.entries[4] = std::numeric_limits<float>::min() * 1.5f;
  m.entries[8] = -std::numeric_limits<float>::min();
  m.entries[9] = 1.0f;
  Check(
      "inverse", [&] { return m.GetInverse(); },
      [&] { return oracle::Transposed(oracle::InverseTranspose(Array(m))); });
}

TEST(GraphicsModes, ScaledMatricesAndTransformedVectorsMatchTheirOracles) {
  ForEachCase(kCases, 63, [](Random& random) {
    const CZEPHMatrix4x4 m = AnyModeMatrix(random);
    const CZEPHVector3D v = AnyVector<CZEPHVector3D>(random);
    const oracle::Matrix e = Array(m);
    const float s = AnyFloat(random, random.Below(2) == 0);
    Check(
        "share", [&] { return m / s; }, [&] { return oracle::Over(e, s); });
    Check(
        "rotated", [&] { return m.GetRotatedVector3D(v); },
        [&] { return oracle::Rotated(e, Array(v)); });
    Check(
        "rotated back", [&] { return m.GetInverseRotatedVector3D(v); },
        [&] { return oracle::InverseRotated(e, Array(v)); });
  });
}

TEST(GraphicsModes, BuildersMatchTheirOracles) {
  ForEachCase(kCases / 3, 64, [](Random& random) {
    const double angle = AnyAngle(random), second = AnyAngle(random), third = AnyAngle(random);
    const CZEPHVector3D axis = AnyVector<CZEPHVector3D>(random);
    float p[6];
    for (float& x : p) x = AnyFloat(random, random.Below(4) == 0);
    const auto built = [](auto build) {
      CZEPHMatrix4x4 m;
      build(m);
      return m;
    };
    Check(
        "axis", [&] { return built([&](auto& m) { m.SetRotationAxis(angle, axis); }); },
        [&] { return oracle::RotationAxis(angle, Array(axis)); });
    Check(
        "Euler", [&] { return built([&](auto& m) { m.SetRotationEuler(angle, second, third); }); },
        [&] { return oracle::WithEuler(oracle::Identity(), angle, second, third); });
    Check(
        "frustum",
        [&] {
          return built([&](auto& m) { m.SetPerspective(p[0], p[1], p[2], p[3], p[4], p[5]); });
        },
        [&] { return oracle::Frustum(p[0], p[1], p[2], p[3], p[4], p[5]); });
    Check(
        "perspective",
        [&] { return built([&](auto& m) { m.SetPerspective(p[0], p[1], p[2], p[3]); }); },
        [&] { return oracle::Perspective(p[0], p[1], p[2], p[3]); });
    Check(
        "ortho",
        [&] { return built([&](auto& m) { m.SetOrtho(p[0], p[1], p[2], p[3], p[4], p[5]); }); },
        [&] { return oracle::Ortho(p[0], p[1], p[2], p[3], p[4], p[5]); });
  });
}

TEST(GraphicsModes, VectorsMatchTheirOracles) {
  ForEachCase(kCases / 3, 65, [](Random& random) {
    const CZEPHVector3D a = AnyVector<CZEPHVector3D>(random), b = AnyVector<CZEPHVector3D>(random);
    const CZEPHVector3D c = AnyVector<CZEPHVector3D>(random);
    CZEPHVector4D p = AnyVector<CZEPHVector4D>(random);  // only a non-const one converts by its w
    const oracle::Vector x = Array(a), y = Array(b), z = Array(c);
    const float s = AnyFloat(random, random.Below(3) == 0);
    const double angle = AnyAngle(random);
    Check(
        "sum", [&] { return a + b; },
        [&] {
          return oracle::Vector{oracle::Add(a.x, b.x), oracle::Add(a.y, b.y),
                                oracle::Add(a.z, b.z)};
        });
    Check(
        "multiple", [&] { return a * s; },
        [&] {
          return oracle::Vector{oracle::Mul(a.x, s), oracle::Mul(a.y, s), oracle::Mul(a.z, s)};
        });
    Check(
        "share of two", [&] { return CZEPHVector2D(a.x, a.y) / s; },
        [&] {
          return oracle::Divided({a.x, a.y}, s);
        });
    Check(
        "normalized of two", [&] { return CZEPHVector2D(a.x, a.y).GetNormalized(); },
        [&] {
          return oracle::Normalized({a.x, a.y});
        });
    Check(
        "linear of two",
        [&] { return CZEPHVector2D(a.x, a.y).LinearInterpolate(CZEPHVector2D(b.x, b.y), s); },
        [&] {
          return oracle::Linear({a.x, a.y}, {b.x, b.y}, s);
        });
    Check(
        "quadratic of four", [&] { return p.QuadraticInterpolate(p, p, s); },
        [&] { return oracle::Quadratic(Array(p), Array(p), Array(p), s); });
    Check(
        "share of four", [&] { return p / s; }, [&] { return oracle::Divided(Array(p), s); });
    Check(
        "cross", [&] { return a.CrossProduct(b); }, [&] { return oracle::Cross(x, y); });
    Check(
        "share", [&] { return a / s; }, [&] { return oracle::Divided(x, s); });
    Check(
        "normalized", [&] { return a.GetNormalized(); }, [&] { return oracle::Normalized(x); });
    Check(
        "length",
        [&] {
          return oracle::Vector{a.GetLength(), a.DotProduct(b)};
        },
        [&] {
          return oracle::Vector{oracle::Length(x), oracle::Dot(x, y)};
        });
    Check(
        "linear", [&] { return a.LinearInterpolate(b, s); },
        [&] { return oracle::Linear(x, y, s); });
    Check(
        "quadratic", [&] { return a.QuadraticInterpolate(b, c, s); },
        [&] { return oracle::Quadratic(x, y, z, s); });
    Check(
        "packed", [&] { return a.GetPackedTo01(); }, [&] { return oracle::Packed(x); });
    Check(
        "projected", [&] { return CZEPHVector3D(p); }, [&] { return oracle::Projected(Array(p)); });
    CheckRotations(a, angle, b);
  });
}

namespace {

/// `change(object)` on a copy.
template <class Object, class Change>
Object Changed(Object object, Change change) {
  change(object);
  return object;
}

template <class V>
void CheckInPlace(const V& a, float s) {
  const oracle::Vector x = Array(a);
  Check(
      "share", [&] { return Changed(a, [s](V& v) { v /= s; }); },
      [&] { return s == 0.0f ? x : oracle::Divided(x, s); });
  Check(
      "multiple", [&] { return Changed(a, [s](V& v) { v *= s; }); },
      [&] {
        oracle::Vector product = x;
        for (float& p : product) p = oracle::Mul(p, s);
        return product;
      });
}

}  // namespace

TEST(GraphicsModes, FormsInPlaceMatchTheirOracles) {
  ForEachCase(kCases / 6, 66, [](Random& random) {
    const CZEPHVector3D a = AnyVector<CZEPHVector3D>(random);
    const CZEPHMatrix4x4 m = AnyModeMatrix(random);
    const oracle::Vector x = Array(a);
    const oracle::Matrix e = Array(m);
    for (const float s : {AnyFloat(random, random.Below(3) == 0), random.Below(2) ? 0.0f : -0.0f}) {
      CheckInPlace(AnyVector<CZEPHVector2D>(random), s);
      CheckInPlace(a, s);
      CheckInPlace(AnyVector<CZEPHVector4D>(random), s);
      Check(
          "share of a matrix", [&] { return Changed(m, [s](auto& v) { v /= s; }); },
          [&] { return oracle::Over(e, s); });
    }
    Check(
        "normalized", [&] { return Changed(a, [](auto& v) { v.Normalize(); }); },
        [&] { return oracle::Normalized(x); });
    Check(
        "packed", [&] { return Changed(a, [](auto& v) { v.PackTo01(); }); },
        [&] { return oracle::Packed(x); });
    Check(
        "inverse", [&] { return Changed(m, [](auto& v) { v.Invert(); }); },
        [&] { return oracle::Transposed(oracle::InverseTranspose(e)); });
    Check(
        "inverse transpose", [&] { return Changed(m, [](auto& v) { v.InvertTranspose(); }); },
        [&] { return oracle::InverseTranspose(e); });
    Check(
        "square", [&] { return Changed(m, [](auto& v) { v *= v; }); },
        [&] { return oracle::Product(e, e); });
  });
}

namespace {

/// Factors, divisors and parameters that leave numbers as they are, but for denormals in some modes.
template <class V>
void CheckNeutralNumbers(const V& small, const V& other) {
  const oracle::Vector x = Array(small), y = Array(other);
  for (const float s : {1.0f, -1.0f}) {
    oracle::Vector product = x;
    const auto multiply = [&] {
      for (std::size_t i = 0; i < x.size(); ++i) product[i] = oracle::Mul(x[i], s);
      return product;
    };
    Check(
        "multiple", [&] { return small * s; }, multiply);
    Check(
        "multiple, the other way", [&] { return s * small; }, multiply);
    Check(
        "multiple in place", [&] { return Changed(small, [s](V& v) { v *= s; }); }, multiply);
    Check(
        "share", [&] { return small / s; }, [&] { return oracle::Divided(x, s); });
    Check(
        "share in place", [&] { return Changed(small, [s](V& v) { v /= s; }); },
        [&] { return oracle::Divided(x, s); });
  }
  for (const float t : {0.0f, -0.0f, 0.5f, 1.0f}) {
    Check(
        "linear", [&] { return small.LinearInterpolate(other, t); },
        [&] { return oracle::Linear(x, y, t); });
    Check(
        "linear, the other way", [&] { return other.LinearInterpolate(small, t); },
        [&] { return oracle::Linear(y, x, t); });
    Check(
        "quadratic", [&] { return small.QuadraticInterpolate(other, small, t); },
        [&] { return oracle::Quadratic(x, y, x, t); });
    Check(
        "quadratic, the other way", [&] { return other.QuadraticInterpolate(small, other, t); },
        [&] { return oracle::Quadratic(y, x, y, t); });
  }
}

}  // namespace

TEST(GraphicsModes, NeutralNumbersMeetDenormals) {
  const float p[] = {Denormal<float>(5), Denormal<float>(-7), Denormal<float>(9),
                     Denormal<float>(-3)};
  for (const float infinite : {1.0f, kInfinityF}) {
    CheckNeutralNumbers(CZEPHVector2D(p[0], p[1]), CZEPHVector2D(2, infinite));
    CheckNeutralNumbers(CZEPHVector3D(p), CZEPHVector3D(2, infinite, -3));
    CheckNeutralNumbers(CZEPHVector4D(p), CZEPHVector4D(2, infinite, -3, 4));
  }
  CZEPHMatrix4x4 m;
  for (int i = 0; i < 16; ++i) m.entries[i] = Denormal<float>(i % 2 ? -i - 1 : i + 1);
  for (const float s : {1.0f, -1.0f}) {
    const auto multiply = [&] {
      oracle::Matrix product = Array(m);
      for (float& x : product) x = oracle::Mul(x, s);
      return product;
    };
    Check(
        "multiple", [&] { return m * s; }, multiply);
    Check(
        "multiple in place", [&] { return Changed(m, [s](auto& v) { v *= s; }); }, multiply);
    Check(
        "share", [&] { return m / s; }, [&] { return oracle::Over(Array(m), s); });
  }
}

namespace {

/// Divisors and components that count as zero in some modes.
template <class V>
void CheckAlmostZero(const V& v, const V& small) {
  const oracle::Vector x = Array(v), y = Array(small), z = Array(V());
  for (const float s : {Denormal<float>(3), Denormal<float>(-1), 0x1.fffffcp-127f, 0.0f}) {
    Check(
        "share", [&] { return v / s; }, [&] { return oracle::Divided(x, s); });
    Check(
        "share in place", [&] { return Changed(v, [s](V& w) { w /= s; }); },
        [&] { return s == 0.0f ? x : oracle::Divided(x, s); });
  }
  for (const V& other : {small, v, V()}) {
    const oracle::Vector o = Array(other);
    const auto equal = [&](const oracle::Vector& p) {
      bool same = true;
      for (std::size_t i = 0; i < p.size(); ++i) same = same && p[i] == o[i];
      return oracle::Vector{same ? 1.0f : 0.0f, same ? 0.0f : 1.0f};
    };
    const auto compared = [&](const V& a) {
      return oracle::Vector{static_cast<float>(a == other), static_cast<float>(a != other)};
    };
    Check(
        "equal to zero", [&] { return compared(V()); }, [&] { return equal(z); });
    Check(
        "equal", [&] { return compared(small); }, [&] { return equal(y); });
  }
}

}  // namespace

TEST(GraphicsModes, WhatCountsAsZeroIsZero) {
  const float p[] = {Denormal<float>(5), 0.0f, -0.0f, Denormal<float>(-3)};
  CheckAlmostZero(CZEPHVector2D(2, -3), CZEPHVector2D(p[0], p[1]));
  CheckAlmostZero(CZEPHVector3D(2, -3, 4), CZEPHVector3D(p));
  CheckAlmostZero(CZEPHVector3D(2, -3, 4), CZEPHVector3D(p + 1));
  CheckAlmostZero(CZEPHVector4D(2, -3, 4, -5), CZEPHVector4D(p));
  CZEPHMatrix4x4 m, small, flat;
  for (int i = 0; i < 16; ++i) m.entries[i] = static_cast<float>(i - 7);
  small.LoadZero();
  small.entries[9] = p[0];
  flat.SetScale(CZEPHVector3D(1e-20f, 1e-20f, 1));  // whose determinant is denormal
  for (const float s : {Denormal<float>(3), Denormal<float>(-1), 0.0f})
    Check(
        "share", [&] { return m / s; }, [&] { return oracle::Over(Array(m), s); });
  Check(
      "inverse", [&] { return flat.GetInverse(); },
      [&] { return oracle::Transposed(oracle::InverseTranspose(Array(flat))); });
  CZEPHMatrix4x4 zero;
  zero.LoadZero();
  Check(
      "equal", [&] { return oracle::Vector{static_cast<float>(small == zero)}; },
      [&] { return oracle::Vector{small.entries[9] == zero.entries[9] ? 1.0f : 0.0f}; });
  for (const float w : {Denormal<float>(3), Denormal<float>(-1), 0x1.fffffcp-127f}) {
    CZEPHVector4D point(1, -2, 3, w);
    Check(
        "projected", [&] { return CZEPHVector3D(point); },
        [&] { return oracle::Projected(Array(point)); });
  }
  using Planes = std::pair<float, float>;
  for (const Planes& planes :
       {Planes(0.0f, p[0]), Planes(p[0], p[3]), Planes(0.0f, -0.0f), Planes(p[3], -0.0f)}) {
    const float left = planes.first, right = planes.second;
    const auto built = [](auto build) {
      CZEPHMatrix4x4 frustum;
      build(frustum);
      return frustum;
    };
    Check(
        "width",
        [&] { return built([&](auto& f) { f.SetPerspective(left, right, -1, 2, 1, 10); }); },
        [&] { return oracle::Frustum(left, right, -1, 2, 1, 10); });
    Check(
        "height",
        [&] { return built([&](auto& f) { f.SetPerspective(-1, 2, left, right, 1, 10); }); },
        [&] { return oracle::Frustum(-1, 2, left, right, 1, 10); });
    Check(
        "depth",
        [&] { return built([&](auto& f) { f.SetPerspective(-1, 2, -1, 3, left, right); }); },
        [&] { return oracle::Frustum(-1, 2, -1, 3, left, right); });
  }
  const CZEPHVector3D v(p[0], -0.0f, p[3]), axis(1, -2, 3);
  for (const double angle : {5e-324, -1e-310, 0.0}) CheckRotations(v, angle, axis);
}
