#include <string>
#include <vector>

#include "batch.h"
#include "support/hardened.h"

namespace {

using zeph::test::Null;

std::vector<CZEPHVector3D> Points() {
  return std::vector<CZEPHVector3D>(20, CZEPHVector3D(1, 2, 3));
}

}  // namespace

TEST(HardenedBatch, StopsAtNullArrays) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_BatchTransformPoints: points is null", {
    auto out = Points();
    ZEPH_BatchTransformPoints(CZEPHMatrix4x4(), Null<CZEPHVector3D>(), out.data(), 20);
  });
  EXPECT_STOP("ZEPH_BatchNormalize: out is null", {
    auto in = Points();
    ZEPH_BatchNormalize(in.data(), Null<CZEPHVector3D>(), 20);
  });
  EXPECT_STOP("ZEPH_BatchBounds: points is null", {
    CZEPHVector3D low, high;
    ZEPH_BatchBounds(Null<CZEPHVector3D>(), 1, low, high);
  });
}

TEST(HardenedBatch, StopsWhereResultsOverlapInputs) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_BatchTransformDirections: out overlaps an input", {
    auto in = Points();
    ZEPH_BatchTransformDirections(CZEPHMatrix4x4(), in.data(), in.data() + 1, 19);
  });
  EXPECT_STOP("ZEPH_BatchRotateAxis: out overlaps an input", {
    auto in = Points();
    ZEPH_BatchRotateAxis(0.0, in[0], in.data() + 19, in.data(), 20);
  });
  EXPECT_STOP("ZEPH_BatchCross: out overlaps an input", {
    auto a = Points(), b = Points();
    ZEPH_BatchCross(a.data(), b.data() + 2, b.data(), 18);
  });
  EXPECT_STOP("ZEPH_BatchDot: out overlaps an input", {
    auto a = Points(), b = Points();
    ZEPH_BatchDot(a.data(), b.data(), &b[3].x, 20);
  });
}

TEST(HardenedBatch, StopsAtEveryNullArrayOfEveryOperation) {
  ZEPH_SKIP_UNLESS_HARDENED();
  using V = CZEPHVector3D;
  using D = CZEPHVector3;
  const CZEPHMatrix4x4 m;
  const CZEPHMatrix4 doubles(1.0);
  std::vector<V> v = Points();
  std::vector<D> d(20);
  std::vector<CZEPHVector4D> fours(20);
  std::vector<CZEPHMatrix4x4> matrices(20);
  std::vector<CZEPHMatrix4> doubleMatrices(20);
  float dots[20];
  double doubleDots[20];
  EXPECT_STOP_OF("ZEPH_BatchTransformPoints: out is null",
                 [&] { ZEPH_BatchTransformPoints(m, v.data(), Null<V>(), 1); });
  EXPECT_STOP_OF("ZEPH_BatchTransformDirections: directions is null",
                 [&] { ZEPH_BatchTransformDirections(m, Null<V>(), v.data(), 1); });
  EXPECT_STOP_OF("ZEPH_BatchTransformDirections: out is null",
                 [&] { ZEPH_BatchTransformDirections(m, v.data(), Null<V>(), 1); });
  EXPECT_STOP_OF("ZEPH_BatchTransformVectors: vectors is null",
                 [&] { ZEPH_BatchTransformVectors(m, Null<CZEPHVector4D>(), fours.data(), 1); });
  EXPECT_STOP_OF("ZEPH_BatchTransformVectors: out is null",
                 [&] { ZEPH_BatchTransformVectors(m, fours.data(), Null<CZEPHVector4D>(), 1); });
  EXPECT_STOP_OF("ZEPH_BatchMultiply: matrices is null",
                 [&] { ZEPH_BatchMultiply(m, Null<CZEPHMatrix4x4>(), matrices.data(), 1); });
  EXPECT_STOP_OF("ZEPH_BatchMultiply: out is null",
                 [&] { ZEPH_BatchMultiply(m, matrices.data(), Null<CZEPHMatrix4x4>(), 1); });
  EXPECT_STOP_OF("ZEPH_BatchMultiply: matrices is null", [&] {
    ZEPH_BatchMultiply(doubles, Null<CZEPHMatrix4>(), doubleMatrices.data(), 1);
  });
  EXPECT_STOP_OF("ZEPH_BatchMultiply: out is null", [&] {
    ZEPH_BatchMultiply(doubles, doubleMatrices.data(), Null<CZEPHMatrix4>(), 1);
  });
  EXPECT_STOP_OF("ZEPH_BatchRotateAxis: vectors is null",
                 [&] { ZEPH_BatchRotateAxis(0.0, v[0], Null<V>(), v.data(), 1); });
  EXPECT_STOP_OF("ZEPH_BatchRotateAxis: out is null",
                 [&] { ZEPH_BatchRotateAxis(0.0, v[0], v.data(), Null<V>(), 1); });
  EXPECT_STOP_OF("ZEPH_BatchNormalize: vectors is null",
                 [&] { ZEPH_BatchNormalize(Null<V>(), v.data(), 1); });
  EXPECT_STOP_OF("ZEPH_BatchNormalize: vectors is null",
                 [&] { ZEPH_BatchNormalize(Null<D>(), d.data(), 1); });
  EXPECT_STOP_OF("ZEPH_BatchNormalize: out is null",
                 [&] { ZEPH_BatchNormalize(d.data(), Null<D>(), 1); });
  EXPECT_STOP_OF("ZEPH_BatchDot: a is null", [&] { ZEPH_BatchDot(Null<V>(), v.data(), dots, 1); });
  EXPECT_STOP_OF("ZEPH_BatchDot: b is null", [&] { ZEPH_BatchDot(v.data(), Null<V>(), dots, 1); });
  EXPECT_STOP_OF("ZEPH_BatchDot: out is null",
                 [&] { ZEPH_BatchDot(v.data(), v.data(), Null<float>(), 1); });
  EXPECT_STOP_OF("ZEPH_BatchDot: a is null",
                 [&] { ZEPH_BatchDot(Null<D>(), d.data(), doubleDots, 1); });
  EXPECT_STOP_OF("ZEPH_BatchCross: a is null",
                 [&] { ZEPH_BatchCross(Null<V>(), v.data(), v.data(), 1); });
  EXPECT_STOP_OF("ZEPH_BatchCross: b is null",
                 [&] { ZEPH_BatchCross(v.data(), Null<V>(), v.data(), 1); });
  EXPECT_STOP_OF("ZEPH_BatchCross: out is null",
                 [&] { ZEPH_BatchCross(v.data(), v.data(), Null<V>(), 1); });
  EXPECT_STOP_OF("ZEPH_BatchBounds: points is null", [&] {
    D low, high;
    ZEPH_BatchBounds(Null<D>(), 1, low, high);
  });
}

TEST(HardenedBatch, StopsWhereAnyOperationsResultsOverlapByOneObject) {
  ZEPH_SKIP_UNLESS_HARDENED();
  const CZEPHMatrix4x4 m;
  const CZEPHMatrix4 doubles(1.0);
  std::vector<CZEPHVector3D> v = Points(), other = Points();
  std::vector<CZEPHVector3> d(20);
  std::vector<CZEPHVector4D> fours(20);
  std::vector<CZEPHMatrix4x4> matrices(20);
  std::vector<CZEPHMatrix4> doubleMatrices(20);
  const std::string overlaps = ": out overlaps an input";
  // Overlaps of one object, the last or the first of the input.
  EXPECT_STOP_OF("ZEPH_BatchTransformPoints" + overlaps,
                 [&] { ZEPH_BatchTransformPoints(m, v.data(), v.data() + 9, 10); });
  EXPECT_STOP_OF("ZEPH_BatchTransformPoints" + overlaps,
                 [&] { ZEPH_BatchTransformPoints(m, v.data() + 9, v.data(), 10); });
  EXPECT_STOP_OF("ZEPH_BatchTransformVectors" + overlaps,
                 [&] { ZEPH_BatchTransformVectors(m, fours.data(), fours.data() + 9, 10); });
  EXPECT_STOP_OF("ZEPH_BatchMultiply" + overlaps,
                 [&] { ZEPH_BatchMultiply(m, matrices.data() + 9, matrices.data(), 10); });
  EXPECT_STOP_OF("ZEPH_BatchMultiply" + overlaps, [&] {
    ZEPH_BatchMultiply(doubles, doubleMatrices.data(), doubleMatrices.data() + 9, 10);
  });
  EXPECT_STOP_OF("ZEPH_BatchNormalize" + overlaps,
                 [&] { ZEPH_BatchNormalize(v.data(), v.data() + 9, 10); });
  EXPECT_STOP_OF("ZEPH_BatchNormalize" + overlaps,
                 [&] { ZEPH_BatchNormalize(d.data() + 9, d.data(), 10); });
  EXPECT_STOP_OF("ZEPH_BatchCross" + overlaps,
                 [&] { ZEPH_BatchCross(v.data(), other.data(), v.data() + 9, 10); });
  EXPECT_STOP_OF("ZEPH_BatchCross" + overlaps,
                 [&] { ZEPH_BatchCross(other.data(), v.data() + 9, v.data(), 10); });
  EXPECT_STOP_OF("ZEPH_BatchDot" + overlaps,
                 [&] { ZEPH_BatchDot(v.data(), other.data(), &v[9].z, 10); });
  EXPECT_STOP_OF("ZEPH_BatchDot" + overlaps,
                 [&] { ZEPH_BatchDot(d.data(), d.data(), &d[0].m_x, 1); });
}

TEST(HardenedBatch, AllowsInPlaceAndAdjacentArrays) {
  ZEPH_SKIP_UNLESS_HARDENED();
  {  // side by side
    auto in = Points();
    ZEPH_BatchNormalize(in.data(), in.data() + 10, 10);
    ZEPH_BatchNormalize(in.data() + 10, in.data(), 10);
  }
  {  // in place
    auto in = Points();
    ZEPH_BatchNormalize(in.data(), in.data(), 20);
    ZEPH_BatchCross(in.data(), in.data() + 1, in.data() + 1, 1);
    ZEPH_BatchNormalize(Null<CZEPHVector3D>(), Null<CZEPHVector3D>(), 0);
  }
}

namespace {

CZEPHVector3D floats[8];
CZEPHVector4D fours[8];
CZEPHVector3 doubles[8];
CZEPHMatrix4x4 matrices[8];
CZEPHMatrix4 doubleMatrices[8];
float floatSums[8];
double doubleSums[8];

}  // namespace

TEST(HardenedBatch, StopsAtEachNullArray) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_BatchTransformPoints: points is null",
              ZEPH_BatchTransformPoints(CZEPHMatrix4x4(), Null<CZEPHVector3D>(), floats, 4));
  EXPECT_STOP("ZEPH_BatchTransformPoints: out is null",
              ZEPH_BatchTransformPoints(CZEPHMatrix4x4(), floats, Null<CZEPHVector3D>(), 4));
  EXPECT_STOP("ZEPH_BatchTransformDirections: directions is null",
              ZEPH_BatchTransformDirections(CZEPHMatrix4x4(), Null<CZEPHVector3D>(), floats, 4));
  EXPECT_STOP("ZEPH_BatchTransformDirections: out is null",
              ZEPH_BatchTransformDirections(CZEPHMatrix4x4(), floats, Null<CZEPHVector3D>(), 4));
  EXPECT_STOP("ZEPH_BatchTransformVectors: vectors is null",
              ZEPH_BatchTransformVectors(CZEPHMatrix4x4(), Null<CZEPHVector4D>(), fours, 4));
  EXPECT_STOP("ZEPH_BatchTransformVectors: out is null",
              ZEPH_BatchTransformVectors(CZEPHMatrix4x4(), fours, Null<CZEPHVector4D>(), 4));
  EXPECT_STOP("ZEPH_BatchMultiply: matrices is null",
              ZEPH_BatchMultiply(CZEPHMatrix4x4(), Null<CZEPHMatrix4x4>(), matrices, 4));
  EXPECT_STOP("ZEPH_BatchMultiply: out is null",
              ZEPH_BatchMultiply(CZEPHMatrix4x4(), matrices, Null<CZEPHMatrix4x4>(), 4));
  EXPECT_STOP("ZEPH_BatchMultiply: matrices is null",
              ZEPH_BatchMultiply(CZEPHMatrix4(0.0), Null<CZEPHMatrix4>(), doubleMatrices, 4));
  EXPECT_STOP("ZEPH_BatchMultiply: out is null",
              ZEPH_BatchMultiply(CZEPHMatrix4(0.0), doubleMatrices, Null<CZEPHMatrix4>(), 4));
  EXPECT_STOP("ZEPH_BatchRotateAxis: vectors is null",
              ZEPH_BatchRotateAxis(1.0, floats[0], Null<CZEPHVector3D>(), floats, 4));
  EXPECT_STOP("ZEPH_BatchRotateAxis: out is null",
              ZEPH_BatchRotateAxis(1.0, floats[0], floats, Null<CZEPHVector3D>(), 4));
  EXPECT_STOP("ZEPH_BatchNormalize: vectors is null",
              ZEPH_BatchNormalize(Null<CZEPHVector3D>(), floats, 4));
  EXPECT_STOP("ZEPH_BatchNormalize: out is null",
              ZEPH_BatchNormalize(floats, Null<CZEPHVector3D>(), 4));
  EXPECT_STOP("ZEPH_BatchNormalize: vectors is null",
              ZEPH_BatchNormalize(Null<CZEPHVector3>(), doubles, 4));
  EXPECT_STOP("ZEPH_BatchNormalize: out is null",
              ZEPH_BatchNormalize(doubles, Null<CZEPHVector3>(), 4));
  EXPECT_STOP("ZEPH_BatchDot: a is null",
              ZEPH_BatchDot(Null<CZEPHVector3D>(), floats, floatSums, 4));
  EXPECT_STOP("ZEPH_BatchDot: b is null",
              ZEPH_BatchDot(floats, Null<CZEPHVector3D>(), floatSums, 4));
  EXPECT_STOP("ZEPH_BatchDot: out is null", ZEPH_BatchDot(floats, floats, Null<float>(), 4));
  EXPECT_STOP("ZEPH_BatchCross: a is null",
              ZEPH_BatchCross(Null<CZEPHVector3D>(), floats, floats + 4, 4));
  EXPECT_STOP("ZEPH_BatchCross: b is null",
              ZEPH_BatchCross(floats, Null<CZEPHVector3D>(), floats + 4, 4));
  EXPECT_STOP("ZEPH_BatchCross: out is null",
              ZEPH_BatchCross(floats, floats, Null<CZEPHVector3D>(), 4));
  EXPECT_STOP("ZEPH_BatchBounds: points is null", {
    CZEPHVector3D low, high;
    ZEPH_BatchBounds(Null<CZEPHVector3D>(), 1, low, high);
  });
  EXPECT_STOP("ZEPH_BatchDot: a is null",
              ZEPH_BatchDot(Null<CZEPHVector3>(), doubles, doubleSums, 4));
  EXPECT_STOP("ZEPH_BatchDot: b is null",
              ZEPH_BatchDot(doubles, Null<CZEPHVector3>(), doubleSums, 4));
  EXPECT_STOP("ZEPH_BatchDot: out is null", ZEPH_BatchDot(doubles, doubles, Null<double>(), 4));
  EXPECT_STOP("ZEPH_BatchCross: a is null",
              ZEPH_BatchCross(Null<CZEPHVector3>(), doubles, doubles + 4, 4));
  EXPECT_STOP("ZEPH_BatchCross: b is null",
              ZEPH_BatchCross(doubles, Null<CZEPHVector3>(), doubles + 4, 4));
  EXPECT_STOP("ZEPH_BatchCross: out is null",
              ZEPH_BatchCross(doubles, doubles, Null<CZEPHVector3>(), 4));
  EXPECT_STOP("ZEPH_BatchBounds: points is null", {
    CZEPHVector3 low, high;
    ZEPH_BatchBounds(Null<CZEPHVector3>(), 1, low, high);
  });
}

TEST(HardenedBatch, StopsWhereAnyResultsOverlapAnInput) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_BatchTransformPoints: out overlaps an input",
              ZEPH_BatchTransformPoints(CZEPHMatrix4x4(), floats, floats + 1, 4));
  EXPECT_STOP("ZEPH_BatchTransformPoints: out overlaps an input",
              ZEPH_BatchTransformPoints(CZEPHMatrix4x4(), floats + 3, floats, 4));
  EXPECT_STOP("ZEPH_BatchTransformDirections: out overlaps an input",
              ZEPH_BatchTransformDirections(CZEPHMatrix4x4(), floats, floats + 1, 4));
  EXPECT_STOP("ZEPH_BatchTransformDirections: out overlaps an input",
              ZEPH_BatchTransformDirections(CZEPHMatrix4x4(), floats + 3, floats, 4));
  EXPECT_STOP("ZEPH_BatchTransformVectors: out overlaps an input",
              ZEPH_BatchTransformVectors(CZEPHMatrix4x4(), fours, fours + 1, 4));
  EXPECT_STOP("ZEPH_BatchTransformVectors: out overlaps an input",
              ZEPH_BatchTransformVectors(CZEPHMatrix4x4(), fours + 3, fours, 4));
  EXPECT_STOP("ZEPH_BatchMultiply: out overlaps an input",
              ZEPH_BatchMultiply(CZEPHMatrix4x4(), matrices, matrices + 1, 4));
  EXPECT_STOP("ZEPH_BatchMultiply: out overlaps an input",
              ZEPH_BatchMultiply(CZEPHMatrix4x4(), matrices + 3, matrices, 4));
  EXPECT_STOP("ZEPH_BatchMultiply: out overlaps an input",
              ZEPH_BatchMultiply(CZEPHMatrix4(0.0), doubleMatrices, doubleMatrices + 1, 4));
  EXPECT_STOP("ZEPH_BatchMultiply: out overlaps an input",
              ZEPH_BatchMultiply(CZEPHMatrix4(0.0), doubleMatrices + 3, doubleMatrices, 4));
  EXPECT_STOP("ZEPH_BatchRotateAxis: out overlaps an input",
              ZEPH_BatchRotateAxis(1.0, floats[0], floats, floats + 1, 4));
  EXPECT_STOP("ZEPH_BatchRotateAxis: out overlaps an input",
              ZEPH_BatchRotateAxis(1.0, floats[0], floats + 3, floats, 4));
  EXPECT_STOP("ZEPH_BatchNormalize: out overlaps an input",
              ZEPH_BatchNormalize(floats, floats + 1, 4));
  EXPECT_STOP("ZEPH_BatchNormalize: out overlaps an input",
              ZEPH_BatchNormalize(floats + 3, floats, 4));
  EXPECT_STOP("ZEPH_BatchNormalize: out overlaps an input",
              ZEPH_BatchNormalize(doubles, doubles + 1, 4));
  EXPECT_STOP("ZEPH_BatchNormalize: out overlaps an input",
              ZEPH_BatchNormalize(doubles + 3, doubles, 4));
  EXPECT_STOP("ZEPH_BatchDot: out overlaps an input",
              ZEPH_BatchDot(floats, floats + 4, &floats[1].x, 4));
  EXPECT_STOP("ZEPH_BatchDot: out overlaps an input",
              ZEPH_BatchDot(floats + 4, floats, &floats[1].x, 4));
  EXPECT_STOP("ZEPH_BatchCross: out overlaps an input",
              ZEPH_BatchCross(floats, floats + 4, floats + 1, 3));
  EXPECT_STOP("ZEPH_BatchCross: out overlaps an input",
              ZEPH_BatchCross(floats + 4, floats, floats + 1, 3));
  EXPECT_STOP("ZEPH_BatchDot: out overlaps an input",
              ZEPH_BatchDot(doubles, doubles + 4, &doubles[1].m_x, 4));
  EXPECT_STOP("ZEPH_BatchDot: out overlaps an input",
              ZEPH_BatchDot(doubles + 4, doubles, &doubles[1].m_x, 4));
  EXPECT_STOP("ZEPH_BatchCross: out overlaps an input",
              ZEPH_BatchCross(doubles, doubles + 4, doubles + 1, 3));
  EXPECT_STOP("ZEPH_BatchCross: out overlaps an input",
              ZEPH_BatchCross(doubles + 4, doubles, doubles + 1, 3));
  ZEPH_BatchDot(floats, floats + 2, &floats[4].x, 2);  // side by side
  ZEPH_BatchDot(floats + 6, floats + 4, &floats[0].x, 2);
}
