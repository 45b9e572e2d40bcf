// The float matrix's products and inverses, and the fixed-size geometry in both precisions.
#include "graphics/values.h"
#include "oracle/fixed_geometry.h"
#include "prove/proof.h"
#include "raw_buffers.h"

namespace zeph::prove {
namespace {

using test::DrawnOperands;
using test::Random;
using test::Same;

void Describe(Case& seen) {
  if (seen.Failed()) seen.Describe(DrawnOperands::OfThisCase().Text());
}

void CheckInverse(std::uint64_t k, Case& seen) {
  DrawnOperands::OfThisCase().Clear();
  Random random(k * 8 + 7);
  const CZEPHMatrix4x4 m = test::AnyMatrix(random), other = test::AnyMatrix(random);
  const auto array = test::Array(m);
  const ::oracle::Matrix inverse = ::oracle::InverseTranspose(array);
  const ::oracle::Matrix rigid = ::oracle::AffineInverse(array);
  seen.Expect(Same(m.GetInverseTranspose(), inverse), "GetInverseTranspose");
  seen.Expect(Same(m.GetInverse(), ::oracle::Transposed(inverse)), "GetInverse");
  seen.Expect(Same(m.GetAffineInverse(), rigid), "GetAffineInverse");
  seen.Expect(Same(m.GetAffineInverseTranspose(), ::oracle::Transposed(rigid)),
              "GetAffineInverseTranspose");
  seen.Expect(Same(m * other, ::oracle::Product(array, test::Array(other))), "product");
  const auto v = test::AnyVector<CZEPHVector4D>(random);
  seen.Expect(Same(m * v, ::oracle::Product(array, test::Array(v))), "matrix times vector");
  seen.Expect(Same(m.GetTranspose(), ::oracle::Transposed(array)), "GetTranspose");
  Describe(seen);
}

/// The same values twice, for the library and for the literal steps.
struct Twice {
  double got[3][3], want[3][3];
};

void CheckRaw3(Random& random, Case& seen) {
  const bool awkward = random.Below(4) == 0;
  const auto any = [&] {
    return awkward ? test::AwkwardValue<double>(random) : random.Real(-10, 10);
  };
  double a[3][3], b[3][3], c[16], d[16], u[3], v[3];
  for (auto* m : {a, b})
    for (int i = 0; i < 9; ++i) m[i / 3][i % 3] = any();
  for (auto* m : {c, d})
    for (int i = 0; i < 16; ++i) m[i] = any();
  for (auto* w : {u, v})
    for (int i = 0; i < 3; ++i) w[i] = any();
  DrawnOperands& drawn = DrawnOperands::OfThisCase();
  drawn.Note("a", a[0], 9);
  drawn.Note("b", b[0], 9);
  drawn.Note("c", c, 16);
  drawn.Note("d", d, 16);
  drawn.Note("u", u, 3);
  drawn.Note("v", v, 3);

  const auto same = [](const double* got, const double* want, std::size_t n) {
    return test::SameValues(got, want, n);
  };
  Twice product;
  ZEPH_MatrixMultiply3(a, b, product.got);
  oracle::Multiply3(a, b, product.want);
  seen.Expect(same(product.got[0], product.want[0], 9), "ZEPH_MatrixMultiply3");
  double got4[16], want4[16];
  ZEPH_MatrixMult4(c, d, got4);
  oracle::Mult4(c, d, want4);
  seen.Expect(same(got4, want4, 16), "ZEPH_MatrixMult4");
  double got[3], want[3];
  ZEPH_VectorCrossProduct3(u, v, got);
  oracle::Cross3(u, v, want);
  seen.Expect(same(got, want, 3), "ZEPH_VectorCrossProduct3");
  seen.ExpectValue(ZEPH_VectorDotProduct3(u, v), oracle::Dot3(u, v), "ZEPH_VectorDotProduct3");
  std::copy(u, u + 3, got);
  std::copy(u, u + 3, want);
  ZEPH_MatrixTransform3(a, got, got + 1, got + 2);
  oracle::Transform3(a, want, want + 1, want + 2);
  seen.Expect(same(got, want, 3), "ZEPH_MatrixTransform3");
  std::copy(u, u + 3, got);
  std::copy(u, u + 3, want);
  ZEPH_VectorNormalize3(got);
  oracle::Normalize3(want);
  seen.Expect(same(got, want, 3), "ZEPH_VectorNormalize3");
}

void CheckVectors(Random& random, Case& seen) {
  const auto a = test::AnyVector<CZEPHVector3D>(random), b = test::AnyVector<CZEPHVector3D>(random);
  const auto x = test::Array(a), y = test::Array(b);
  const double angle = test::AnyAngle(random);
  seen.Expect(Same(a.CrossProduct(b), ::oracle::Cross(x, y)), "CrossProduct");
  seen.ExpectValue(a.DotProduct(b), ::oracle::Dot(x, y), "DotProduct");
  seen.ExpectValue(a.GetLength(), ::oracle::Length(x), "GetLength");
  seen.Expect(Same(a.GetNormalized(), ::oracle::Normalized(x)), "GetNormalized");
  seen.Expect(Same(a.GetRotatedX(angle), ::oracle::RotatedX(x, angle)), "GetRotatedX");
  seen.Expect(Same(a.GetRotatedY(angle), ::oracle::RotatedY(x, angle)), "GetRotatedY");
  seen.Expect(Same(a.GetRotatedZ(angle), ::oracle::RotatedZ(x, angle)), "GetRotatedZ");
  seen.Expect(Same(a.GetRotatedAxis(angle, b), ::oracle::RotatedAxis(x, angle, y)),
              "GetRotatedAxis");
}

void CheckGeometry(std::uint64_t k, Case& seen) {
  Random random(k * 8 + 8);
  DrawnOperands::OfThisCase().Clear();
  CheckRaw3(random, seen);
  CheckVectors(random, seen);
  Describe(seen);
}

TEST(Proof, InversesAndProductsOfTheFloatMatrixMatchTheirOracles) {
  Prove(kRandomCases, CheckInverse);
}
TEST(Proof, VectorsRotationsAndSmallMatricesMatchTheirOracles) {
  Prove(kRandomCases, CheckGeometry);
}

}  // namespace
}  // namespace zeph::prove
