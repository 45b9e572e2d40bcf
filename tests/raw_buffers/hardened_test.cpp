#include <utility>

#include "raw_buffers.h"
#include "support/hardened.h"

namespace {

using zeph::test::Null;
using zeph::test::Use;

double kNine[3][3] = {};

/// A block of the program's own, at an address that the library cannot have released: it was taken before.
double* own = new double[3];

/// A 2 x 2 matrix whose second row is missing.
double** HalfMatrix() {
  static double row[2] = {};
  static double* rows[] = {row, nullptr};
  return rows;
}

}  // namespace

TEST(HardenedRawBuffers, StopAtNullArrays) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_ArrayTwoNorm2: a is null", ZEPH_ArrayTwoNorm2(Null<double>(), 3, 0));
  EXPECT_STOP("ZEPH_ArrayMaxNorm: a is null", ZEPH_ArrayMaxNorm(Null<double>(), 0, 0));
  EXPECT_STOP("ZEPH_ArrayDisplay: a is null", {
    CString out;
    ZEPH_ArrayDisplay(out, Null<double>(), 1, 2, nullptr);
  });
  EXPECT_STOP("ZEPH_ArrayDisplay: stream is null", {
    double a = 1;
    ZEPH_ArrayDisplay(Null<FILE>(), &a, 1, nullptr);
  });
  EXPECT_STOP("ZEPH_ArrayMergeSorted: b is null", {
    double a = 1;
    ZEPH_ArrayMergeSorted(&a, 1, Null<double>(), 1, &a);
  });
  EXPECT_STOP("ZEPH_MatrixTranspose: b is null", {
    double a[4] = {};
    ZEPH_MatrixTranspose(2, a, Null<double>());
  });
}

TEST(HardenedRawBuffers, StopAtNullMatricesAndRows) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_MatrixOneNorm: m is null", ZEPH_MatrixOneNorm(nullptr, 2, 0));
  EXPECT_STOP("ZEPH_MatrixFrobNorm2: m[1] is null", ZEPH_MatrixFrobNorm2(HalfMatrix(), 2, 0));
  EXPECT_STOP("ZEPH_MatrixMaxNorm: m[1] is null", ZEPH_MatrixMaxNorm(HalfMatrix(), 0, 1));
  EXPECT_STOP("ZEPH_MatrixTranspose: a[1] is null",
              ZEPH_MatrixTranspose(2, HalfMatrix(), HalfMatrix()));
  EXPECT_STOP("ZEPH_MatrixSetIdentity: m[1] is null", ZEPH_MatrixSetIdentity(2, HalfMatrix()));
  EXPECT_STOP("ZEPH_MatrixMult: a[1] is null",
              ZEPH_MatrixMult(2, 2, HalfMatrix(), 2, 2, HalfMatrix(), HalfMatrix()));
  EXPECT_STOP("ZEPH_MatrixPrint: m[1] is null",
              ZEPH_MatrixPrint(stdout, 2, HalfMatrix(), static_cast<char*>(nullptr)));
}

TEST(HardenedRawBuffers, StopAtNullGeometry) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_VectorCrossProduct3: b is null", {
    double v[3] = {};
    ZEPH_VectorCrossProduct3(v, Null<double>(), v);
  });
  EXPECT_STOP("ZEPH_VectorAssign3: v is null", ZEPH_VectorAssign3(Null<double>(), 1.0));
  EXPECT_STOP("ZEPH_MatrixTransform3: y is null", {
    double x = 0;
    ZEPH_MatrixTransform3(kNine, &x, Null<double>(), &x);
  });
  EXPECT_STOP("ZEPH_MatrixRotate3X: m is null", ZEPH_MatrixRotate3X(Null<double[3]>(), 90.0));
  EXPECT_STOP("ZEPH_MatrixMult4: out is null", {
    double m[16] = {};
    ZEPH_MatrixMult4(m, m, Null<double>());
  });
}

TEST(HardenedRawBuffers, StopAtAReleaseThatIsNotTheBlocks) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_ArrayFree: lo is 0, outside 1..1", {
    double* p = ZEPH_ArrayAllocDouble(nullptr, 1, 10);
    ZEPH_ArrayFree(p, 0, 10);
  });
  EXPECT_STOP("ZEPH_ArrayFree: the block was released before", {
    int* p = ZEPH_ArrayAllocInt(nullptr, 1, 10);
    ZEPH_ArrayFree(p, 1, 10);
    ZEPH_ArrayFree(p, 1, 10);
  });
  EXPECT_STOP("ZEPH_ArrayFree: the block is none that this library gave", {
    static float a[3];
    ZEPH_ArrayFree(a, 0, 2);
  });
  EXPECT_STOP("ZEPH_MatrixFree: nrh is 2, outside -1..1", {
    double** m = ZEPH_MatrixAllocDouble(nullptr, 2, 3);
    ZEPH_MatrixFree(m, 3, 3);
  });
  EXPECT_STOP("ZEPH_MatrixFree: nrl is 0, outside 1..1", {
    float** m = ZEPH_MatrixAllocFloat(nullptr, 1, 2, 1, 3);
    ZEPH_MatrixFree(m, 0, 2, 1, 3);
  });
  EXPECT_STOP("ZEPH_MatrixFree: ncl is 0, outside 1..1", {
    int** m = ZEPH_MatrixAllocInt(nullptr, 1, 2, 1, 3);
    ZEPH_MatrixFree(m, 1, 2, 0, 3);
  });
  EXPECT_STOP("ZEPH_MatrixFree: the block was released before", {
    double** m = ZEPH_MatrixAllocDouble(nullptr, 2, 3);
    ZEPH_MatrixFree(m, 2, 3);
    ZEPH_MatrixFree(m, 2, 3);
  });
  EXPECT_STOP("ZEPH_MatrixFree: the block was released before", {
    double** m = ZEPH_MatrixAllocDouble(nullptr, 2, 2);
    Use(ZEPH_MatrixResize(m, 1, 1, 2, 2));
    ZEPH_MatrixFree(m, 2, 2);
  });
}

TEST(HardenedRawBuffers, StopAtAnOldSizeThatTheBlockDoesNotHave) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_ArrayRealloc: oldN is 5, outside 0..4",
              Use(ZEPH_ArrayRealloc(ZEPH_ArrayAllocDouble(nullptr, 0, 4), 5, 9, nullptr)));
  EXPECT_STOP("ZEPH_ArrayRealloc: oldN is 6, outside 0..5",
              Use(ZEPH_ArrayRealloc(ZEPH_ArrayAllocInt(nullptr, 0, 4), 6, 9, nullptr)));
  EXPECT_STOP("ZEPH_ArrayRealloc: the old block was released before", {
    float* p = ZEPH_ArrayAllocFloat(nullptr, 0, 4);
    Use(ZEPH_ArrayRealloc(p, 4, 9, nullptr));
    Use(ZEPH_ArrayRealloc(p, 4, 9, nullptr));
  });
  EXPECT_STOP("ZEPH_ArrayResize: oldCount is 6, outside 0..5",
              Use(ZEPH_ArrayResize(ZEPH_ArrayAllocInt(nullptr, 0, 4), 6, 9)));
  EXPECT_STOP("ZEPH_MatrixResize: oldRowHi is 2, outside -1..1",
              Use(ZEPH_MatrixResize(ZEPH_MatrixAllocDouble(nullptr, 2, 2), 2, 1, 3, 3)));
  EXPECT_STOP("ZEPH_MatrixResize: oldColHi is 2, outside -1..1",
              Use(ZEPH_MatrixResize(ZEPH_MatrixAllocDouble(nullptr, 2, 2), 1, 2, 3, 3)));
}

TEST(HardenedRawBuffers, StopAtAMergeIntoItsOwnInput) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_ArrayMergeSorted: out overlaps a", {
    int a[4] = {1, 2};
    int b[2] = {1, 3};
    ZEPH_ArrayMergeSorted(a, 2, b, 2, a);
  });
  EXPECT_STOP("ZEPH_ArrayMergeSorted: out overlaps b", {
    double a[2] = {1, 2};
    double b[6] = {0, 0, 0, 1, 3};
    ZEPH_ArrayMergeSorted(a, 2, b + 3, 2, b);
  });
}

TEST(HardenedRawBuffers, LetEverythingDocumentedPass) {
  ZEPH_SKIP_UNLESS_HARDENED();
  {  // no elements
    CString out;
    ZEPH_ArrayDisplay(out, Null<double>(), 0, nullptr);
    ZEPH_ArrayMergeSorted(Null<double>(), 0, Null<double>(), -1, Null<double>());
    ZEPH_MatrixOneNorm(nullptr, 0, 0);
    ZEPH_MatrixFrobNorm3(nullptr, -1, 0);
    ZEPH_MatrixTranspose(0, Null<double>(), Null<double>());
  }
  {  // null results
    ZEPH_ArrayFree(Null<double>(), 1, 2);
    ZEPH_MatrixFree(static_cast<double**>(nullptr), 1, 2);
    ZEPH_MatrixMult(1, 1, nullptr, 1, 1, nullptr, nullptr);
    delete[] ZEPH_ArrayResize(Null<double>(), 3, 4);
  }
  {  // offset array
    double* p = ZEPH_ArrayAllocDouble(nullptr, -2, 2);
    ZEPH_ArrayOneNorm(p, 5, -2);
    ZEPH_ArrayFree(p, -2, 2);
  }
  {  // missing rows
    ZEPH_MatrixFrobNorm(HalfMatrix(), 1, 0);
    ZEPH_MatrixOneNorm(HalfMatrix(), 1, 0);
  }
  {  // merge beside
    double block[8] = {1, 2, 1, 3};
    ZEPH_ArrayMergeSorted(block, 2, block + 2, 2, block + 4);
    ZEPH_ArrayMergeSorted(block, 0, block + 2, 2, block);
  }
  {  // another high
    double* p = ZEPH_ArrayAllocDouble(nullptr, 1, 10);
    ZEPH_ArrayFree(p, 1, -5);
    double** m = ZEPH_MatrixAllocDouble(nullptr, 1, 2, 1, 3);
    ZEPH_ArrayFree(m[2], 1, 3);
    m[2] = nullptr;
    ZEPH_MatrixFree(m, 1, 2, 1, -3);
  }
  if (own) {  // once
    double* p = ZEPH_ArrayResize(std::exchange(own, nullptr), 3, 4);
    p = ZEPH_ArrayRealloc(p, 3, 1, nullptr);
    p = ZEPH_ArrayRealloc(p, 1, 8, nullptr);
    ZEPH_ArrayFree(p, 0, 8);
  }
  {  // many blocks
    static int* blocks[5000];
    for (int round = 0; round < 3; ++round) {
      for (int i = 0; i < 5000; ++i) blocks[i] = ZEPH_ArrayAllocInt(nullptr, i, i + round);
      for (int i = 0; i < 5000; ++i) ZEPH_ArrayFree(blocks[i], i, i + round);
    }
  }
}
