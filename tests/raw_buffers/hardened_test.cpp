#include <algorithm>
#include <atomic>
#include <climits>
#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <string>
#include <thread>
#include <utility>

#ifdef __linux__
#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include "containers.h"
#include "raw_buffers.h"
#include "support/hardened.h"
#include "support/scale.h"
#include "support/stream.h"

namespace {

using zeph::test::Null;
using zeph::test::Use;
using zeph::test::Written;

double kNine[3][3] = {};

/// A block of the program's own, at an address that the library cannot have released: it was
/// allocated first.
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

TEST(HardenedRawBuffers, StopAtAReleaseThatDoesNotMatchTheBlock) {
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
  EXPECT_STOP("ZEPH_ArrayFree: the block was not allocated by this library", {
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

TEST(HardenedRawBuffers, StopAtAnOldSizeThatIsNotTheBlocks) {
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

/// Norms of a block of a matrix whose other rows are missing: each has the bits of the whole matrix's norm.
TEST(HardenedRawBuffers, AllowMissingRowsBesideThoseInUse) {
  ZEPH_SKIP_UNLESS_HARDENED();
  double cells[5][5];
  for (int i = 0; i < 25; ++i) cells[i / 5][i % 5] = i * 7 % 11 - 4.5;
  double* whole[5];
  for (int i = 0; i < 5; ++i) whole[i] = cells[i];
  for (int start = 0; start < 5; ++start)
    for (int n = 1; n <= 5 - start; ++n) {
      double* rows[5] = {};
      std::copy_n(whole + start, n, rows + start);
      for (auto* norm : {ZEPH_MatrixOneNorm, ZEPH_MatrixMaxNorm, ZEPH_MatrixFrobNorm,
                         ZEPH_MatrixFrobNorm2, ZEPH_MatrixFrobNorm3})
        EXPECT_EQ(norm(rows, n, start), norm(whole, n, start)) << n << " from " << start;
    }
}

TEST(HardenedRawBuffers, AllowEverythingDocumented) {
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
    ZEPH_ArrayMergeSorted(block, 2, block + 5, 0, block + 4);  // empty, inside the result
    ZEPH_ArrayMergeSorted(block + 5, -1, block, 2, block + 4);
    ZEPH_ArrayMergeSorted(block + 2, 2, block + 5, 0, block);  // up to where the other one begins
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

namespace {

double some[16] = {};
int ints[16] = {};
char* const none = nullptr;
double* whole[] = {some, some + 4, some + 8, some + 12};

}  // namespace

TEST(HardenedRawBuffers, StopAtEachNullArray) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_VectorAdd3: a is null", ZEPH_VectorAdd3(Null<double>(), some, some));
  EXPECT_STOP("ZEPH_VectorAdd3: b is null", ZEPH_VectorAdd3(some, Null<double>(), some));
  EXPECT_STOP("ZEPH_VectorAdd3: out is null", ZEPH_VectorAdd3(some, some, Null<double>()));
  EXPECT_STOP("ZEPH_VectorSub3: a is null", ZEPH_VectorSub3(Null<double>(), some, some));
  EXPECT_STOP("ZEPH_VectorSub3: b is null", ZEPH_VectorSub3(some, Null<double>(), some));
  EXPECT_STOP("ZEPH_VectorSub3: out is null", ZEPH_VectorSub3(some, some, Null<double>()));
  EXPECT_STOP("ZEPH_VectorScale3: a is null", ZEPH_VectorScale3(Null<double>(), 2.0, some));
  EXPECT_STOP("ZEPH_VectorScale3: out is null", ZEPH_VectorScale3(some, 2.0, Null<double>()));
  EXPECT_STOP("ZEPH_VectorAssign3: src is null", ZEPH_VectorAssign3(Null<double>(), some));
  EXPECT_STOP("ZEPH_VectorAssign3: dst is null", ZEPH_VectorAssign3(some, Null<double>()));
  EXPECT_STOP("ZEPH_VectorAssign3: v is null", ZEPH_VectorAssign3(Null<double>(), 1.0, 2.0, 3.0));
  EXPECT_STOP("ZEPH_VectorCrossProduct3: a is null",
              ZEPH_VectorCrossProduct3(Null<double>(), some, some));
  EXPECT_STOP("ZEPH_VectorCrossProduct3: b is null",
              ZEPH_VectorCrossProduct3(some, Null<double>(), some));
  EXPECT_STOP("ZEPH_VectorCrossProduct3: out is null",
              ZEPH_VectorCrossProduct3(some, some, Null<double>()));
  EXPECT_STOP("ZEPH_VectorDotProduct3: a is null", ZEPH_VectorDotProduct3(Null<double>(), some));
  EXPECT_STOP("ZEPH_VectorDotProduct3: b is null", ZEPH_VectorDotProduct3(some, Null<double>()));
  EXPECT_STOP("ZEPH_VectorGetLength3: v is null", ZEPH_VectorGetLength3(Null<double>()));
  EXPECT_STOP("ZEPH_VectorNormalize3: v is null", ZEPH_VectorNormalize3(Null<double>()));
  EXPECT_STOP("ZEPH_MatrixMult4: a is null", ZEPH_MatrixMult4(Null<double>(), some, some));
  EXPECT_STOP("ZEPH_MatrixMult4: b is null", ZEPH_MatrixMult4(some, Null<double>(), some));
  EXPECT_STOP("ZEPH_MatrixMult4: out is null", ZEPH_MatrixMult4(some, some, Null<double>()));
  EXPECT_STOP("ZEPH_MatrixSetIdentity: m is null", ZEPH_MatrixSetIdentity(Null<double>()));
  EXPECT_STOP("ZEPH_MatrixTranspose: a is null", ZEPH_MatrixTranspose(2, Null<double>(), some));
  EXPECT_STOP("ZEPH_MatrixTranspose: b is null", ZEPH_MatrixTranspose(2, some, Null<double>()));
  EXPECT_STOP("ZEPH_ArrayOneNorm: a is null", ZEPH_ArrayOneNorm(Null<double>(), 3, 0));
  EXPECT_STOP("ZEPH_ArrayTwoNorm: a is null", ZEPH_ArrayTwoNorm(Null<double>(), 3, 0));
  EXPECT_STOP("ZEPH_ArrayTwoNorm2: a is null", ZEPH_ArrayTwoNorm2(Null<double>(), 3, 0));
  EXPECT_STOP("ZEPH_ArrayMaxNorm: a is null", ZEPH_ArrayMaxNorm(Null<double>(), 3, 0));
}

TEST(HardenedRawBuffers, StopAtEachNullThreeByThreeMatrix) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_MatrixSet3: m is null",
              ZEPH_MatrixSet3(Null<double[3]>(), 1, 2, 3, 4, 5, 6, 7, 8, 9));
  EXPECT_STOP("ZEPH_MatrixMultiply3: a is null",
              ZEPH_MatrixMultiply3(Null<double[3]>(), kNine, kNine));
  EXPECT_STOP("ZEPH_MatrixMultiply3: b is null",
              ZEPH_MatrixMultiply3(kNine, Null<double[3]>(), kNine));
  EXPECT_STOP("ZEPH_MatrixMultiply3: out is null",
              ZEPH_MatrixMultiply3(kNine, kNine, Null<double[3]>()));
  EXPECT_STOP("ZEPH_MatrixMult3: a is null", ZEPH_MatrixMult3(Null<double[3]>(), kNine, kNine));
  EXPECT_STOP("ZEPH_MatrixMult3: b is null", ZEPH_MatrixMult3(kNine, Null<double[3]>(), kNine));
  EXPECT_STOP("ZEPH_MatrixMult3: out is null", ZEPH_MatrixMult3(kNine, kNine, Null<double[3]>()));
  EXPECT_STOP("ZEPH_MatrixRotate3X: m is null", ZEPH_MatrixRotate3X(Null<double[3]>(), 90.0));
  EXPECT_STOP("ZEPH_MatrixRotate3Y: m is null", ZEPH_MatrixRotate3Y(Null<double[3]>(), 90.0));
  EXPECT_STOP("ZEPH_MatrixRotate3Z: m is null", ZEPH_MatrixRotate3Z(Null<double[3]>(), 90.0));
  EXPECT_STOP("ZEPH_MatrixRotate3: m is null",
              ZEPH_MatrixRotate3(Null<double[3]>(), 1.0, 2.0, 3.0));
  EXPECT_STOP("ZEPH_MatrixTranspose3: m is null", ZEPH_MatrixTranspose3(Null<double[3]>()));
  EXPECT_STOP("ZEPH_MatrixTransform3: m is null",
              ZEPH_MatrixTransform3(Null<double[3]>(), some, some, some));
  EXPECT_STOP("ZEPH_MatrixTransform3: x is null",
              ZEPH_MatrixTransform3(kNine, Null<double>(), some, some));
  EXPECT_STOP("ZEPH_MatrixTransform3: y is null",
              ZEPH_MatrixTransform3(kNine, some, Null<double>(), some));
  EXPECT_STOP("ZEPH_MatrixTransform3: z is null",
              ZEPH_MatrixTransform3(kNine, some, some, Null<double>()));
}

TEST(HardenedRawBuffers, StopAtEachNullRowAndStream) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_MatrixOneNorm: m[1] is null", ZEPH_MatrixOneNorm(HalfMatrix(), 2, 0));
  EXPECT_STOP("ZEPH_MatrixMaxNorm: m[1] is null", ZEPH_MatrixMaxNorm(HalfMatrix(), 2, 0));
  EXPECT_STOP("ZEPH_MatrixFrobNorm: m[1] is null", ZEPH_MatrixFrobNorm(HalfMatrix(), 2, 0));
  EXPECT_STOP("ZEPH_MatrixFrobNorm2: m[1] is null", ZEPH_MatrixFrobNorm2(HalfMatrix(), 2, 0));
  EXPECT_STOP("ZEPH_MatrixFrobNorm3: m[1] is null", ZEPH_MatrixFrobNorm3(HalfMatrix(), 2, 0));
  EXPECT_STOP("ZEPH_MatrixTranspose: a[1] is null", ZEPH_MatrixTranspose(2, HalfMatrix(), whole));
  EXPECT_STOP("ZEPH_MatrixTranspose: b[1] is null", ZEPH_MatrixTranspose(2, whole, HalfMatrix()));
  EXPECT_STOP("ZEPH_MatrixMult: a[1] is null",
              ZEPH_MatrixMult(2, 2, HalfMatrix(), 2, 2, whole, whole));
  EXPECT_STOP("ZEPH_MatrixMult: b[1] is null",
              ZEPH_MatrixMult(2, 2, whole, 2, 2, HalfMatrix(), whole));
  EXPECT_STOP("ZEPH_MatrixMult: out[1] is null",
              ZEPH_MatrixMult(2, 2, whole, 2, 2, whole, HalfMatrix()));
  EXPECT_STOP("ZEPH_MatrixPrint: m[1] is null", ZEPH_MatrixPrint(stdout, 2, 1, HalfMatrix(), none));
  EXPECT_STOP("ZEPH_MatrixPrint: m[1] is null", ZEPH_MatrixPrint(stdout, 2, HalfMatrix(), none));
  EXPECT_STOP("ZEPH_MatrixPrint3: m[1] is null", ZEPH_MatrixPrint3(stdout, HalfMatrix(), none));
  EXPECT_STOP("ZEPH_MatrixPrint4: m[1] is null", ZEPH_MatrixPrint4(stdout, HalfMatrix(), none));
  EXPECT_STOP("ZEPH_MatrixPrint4: m is null", ZEPH_MatrixPrint4(stdout, Null<double>(), none));
  EXPECT_STOP("ZEPH_VectorPrint3: v is null", ZEPH_VectorPrint3(stdout, Null<double>(), none));
  EXPECT_STOP("ZEPH_MatrixPrint: stream is null",
              ZEPH_MatrixPrint(Null<FILE>(), 2, 2, whole, none));
  EXPECT_STOP("ZEPH_MatrixPrint: stream is null", ZEPH_MatrixPrint(Null<FILE>(), 2, whole, none));
  EXPECT_STOP("ZEPH_MatrixPrint3: stream is null", ZEPH_MatrixPrint3(Null<FILE>(), whole, none));
  EXPECT_STOP("ZEPH_MatrixPrint4: stream is null", ZEPH_MatrixPrint4(Null<FILE>(), whole, none));
  EXPECT_STOP("ZEPH_MatrixPrint4: stream is null", ZEPH_MatrixPrint4(Null<FILE>(), some, none));
  EXPECT_STOP("ZEPH_VectorPrint3: stream is null", ZEPH_VectorPrint3(Null<FILE>(), some, none));
  EXPECT_STOP("ZEPH_ArrayMergeSorted: a is null",
              ZEPH_ArrayMergeSorted(Null<double>(), 1, some, 1, some + 4));
  EXPECT_STOP("ZEPH_ArrayMergeSorted: b is null",
              ZEPH_ArrayMergeSorted(some, 1, Null<double>(), 1, some + 4));
  EXPECT_STOP("ZEPH_ArrayMergeSorted: out is null",
              ZEPH_ArrayMergeSorted(some, 1, some + 1, 1, Null<double>()));
  EXPECT_STOP("ZEPH_ArrayMergeSorted: a is null",
              ZEPH_ArrayMergeSorted(Null<int>(), 1, ints, 1, ints + 4));
  EXPECT_STOP("ZEPH_ArrayMergeSorted: b is null",
              ZEPH_ArrayMergeSorted(ints, 1, Null<int>(), 1, ints + 4));
  EXPECT_STOP("ZEPH_ArrayMergeSorted: out is null",
              ZEPH_ArrayMergeSorted(ints, 1, ints + 1, 1, Null<int>()));
}

TEST(HardenedRawBuffers, StopWhereAMergeOverwritesAnyInput) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_ArrayMergeSorted: out overlaps a",
              ZEPH_ArrayMergeSorted(some, 2, some + 2, 2, some));
  EXPECT_STOP("ZEPH_ArrayMergeSorted: out overlaps a",
              ZEPH_ArrayMergeSorted(some + 3, 2, some + 8, 2, some));
  EXPECT_STOP("ZEPH_ArrayMergeSorted: out overlaps b",
              ZEPH_ArrayMergeSorted(some + 8, 2, some + 3, 2, some));
  EXPECT_STOP("ZEPH_ArrayMergeSorted: out overlaps b",
              ZEPH_ArrayMergeSorted(ints + 8, 2, ints, 2, ints + 1));
  EXPECT_STOP("ZEPH_ArrayMergeSorted: out overlaps a",
              ZEPH_ArrayMergeSorted(ints, 2, ints + 8, 2, ints + 1));
  ZEPH_ArrayMergeSorted(some, 2, some + 8, 2, some + 2);  // side by side
  ZEPH_ArrayMergeSorted(some + 4, 2, some + 6, 2, some);
  ZEPH_ArrayMergeSorted(ints + 4, 2, ints + 6, 2, ints);
}

/// The pointer of a released array says nothing about another lower bound.
TEST(HardenedRawBuffers, StopAtASecondReleaseWithAnotherBound) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_ArrayFree: the block was not allocated by this library", {
    double* p = ZEPH_ArrayAllocDouble(nullptr, 1, 10);
    ZEPH_ArrayFree(p, 1, 10);
    ZEPH_ArrayFree(p, 0, 10);
  });
}

/// By its pointer alone, among blocks at any place.
TEST(HardenedRawBuffers, FindTheBlockOfEveryPointer) {
  ZEPH_SKIP_UNLESS_HARDENED();
  static double* blocks[24];
  static std::size_t k;
  for (double*& block : blocks) block = ZEPH_ArrayAllocDouble(nullptr, 3, 10);
  for (k = 0; k < std::size(blocks); ++k)
    EXPECT_STOP("ZEPH_ArrayFree: lo is 5, outside 3..3", ZEPH_ArrayFree(blocks[k], 5, 10));
  for (double* block : blocks) ZEPH_ArrayFree(block, 3, 10);
}

/// The latest of many blocks that were handed out and released.
TEST(HardenedRawBuffers, StopAtASecondReleaseAmongThousandsOfBlocks) {
  ZEPH_SKIP_UNLESS_HARDENED();
  EXPECT_STOP("ZEPH_ArrayFree: the block was released before", {
    static double* blocks[3000];
    for (double*& block : blocks) block = ZEPH_ArrayAllocDouble(nullptr, 0, 3);
    for (double* block : blocks) ZEPH_ArrayFree(block, 0, 3);
    ZEPH_ArrayFree(blocks[2999], 0, 3);
  });
  EXPECT_STOP("ZEPH_ArrayFree: the block was not allocated by this library", {
    static double*
        blocks[70000];  // whatever room the library has for them, it is filled to its end
    static double foreign[4];
    static CZEPHLink<double> link(1.0);  // where no block has been
    CZEPHLinkList<double> list;
    for (double*& block : blocks) {
      block = ZEPH_ArrayAllocDouble(nullptr, 0, 3);
      list.m_pHead = &link;
      Use(list.GetFirstLink());  // is looked up, and not found
    }
    ZEPH_ArrayFree(foreign, 0, 3);
  });
}

/// However many blocks come and go, one at a time: what is known of them takes no more and more memory.
TEST(HardenedRawBuffers, ForgetBlocksReleasedLongAgo) {
  ZEPH_SKIP_UNLESS_HARDENED();
#if defined(__GLIBC__) && !defined(ZEPH_TEST_SANITIZED)
#if __GLIBC_PREREQ(2, 33)
  const auto held = [] { return mallinfo2().uordblks + mallinfo2().hblkhd; };
  const std::size_t before = held();
  static double* blocks[64];
  for (int round = 0; round < 8000; ++round) {
    for (double*& block : blocks) block = ZEPH_ArrayAllocDouble(nullptr, 0, round % 7);
    for (double* block : blocks) ZEPH_ArrayFree(block, 0, 0);
  }
  static double* many[20000];  // room for them is asked for, not for all that have been
  for (double*& block : many) block = ZEPH_ArrayAllocDouble(nullptr, 0, 3);
  for (double* block : many) ZEPH_ArrayFree(block, 0, 3);
  EXPECT_LT(held(), before + (std::size_t{32} << 20));
#endif
#endif
}

/// A block of the program's own, longer than the library's that was at its address before much else.
TEST(HardenedRawBuffers, DoNotMistakeAnArrayForOneReleasedLongAgo) {
  ZEPH_SKIP_UNLESS_HARDENED();
  static void* places[300];
  for (void*& place : places) place = ZEPH_ArrayAllocDouble(nullptr, 0, 3);
  for (void* place : places) ZEPH_ArrayFree(static_cast<double*>(place), 0, 3);
  static double* others[70000];  // more than the library has kept room for
  for (double*& other : others) other = ZEPH_ArrayAllocDouble(nullptr, 0, 30);
  bool met = false;
  static double* blocks[300];
  for (double*& block : blocks) {
    block = new double[5]();
    met = met || std::find(places, places + 300, block) != places + 300;
  }
  for (double*& block : blocks) block = ZEPH_ArrayRealloc(block, 4, 9, nullptr);
  for (double* block : blocks) {
    EXPECT_EQ(block[4], 0.0);
    ZEPH_ArrayFree(block, 0, 9);
  }
  for (double* other : others) ZEPH_ArrayFree(other, 0, 30);
#if defined(__GLIBC__) && !defined(ZEPH_TEST_SANITIZED)
  EXPECT_TRUE(met) << "no array was where one had been";
#endif
}

/// A node of the program's own at the address of an array that was released.
TEST(HardenedRawBuffers, DoNotMistakeANodeForAReleasedArray) {
  ZEPH_SKIP_UNLESS_HARDENED();
  bool met = false;
  for (int n = 0; n < 16; ++n) {
    const void* const address = ZEPH_ArrayAllocDouble(nullptr, 0, n);
    ZEPH_ArrayFree(static_cast<double*>(const_cast<void*>(address)), 0, n);
    CZEPHLinkList<double> list;
    auto* const link = new CZEPHLink<double>(1.0);
    met = met || link == address;
    list.m_pHead = link;
    EXPECT_EQ(link, list.GetFirstLink());
    list.RemoveAll();
  }
#if defined(__GLIBC__) && !defined(ZEPH_TEST_SANITIZED)
  EXPECT_TRUE(met) << "no node was where an array had been";
#endif
}

#if defined(__linux__) && !defined(ZEPH_TEST_SANITIZED)
/// What is known of blocks is whole in the child of a fork, whatever other threads were about.
TEST(HardenedRawBuffers, ForkWhileOtherThreadsAllocate) {
  ZEPH_SKIP_UNLESS_HARDENED();
  if (zeph::test::ChildrenAreEmulated())
    GTEST_SKIP() << "the emulator has threads of its own, which a fork disturbs";
  std::atomic<bool> stop{false};
  std::thread other([&stop] {
    while (!stop) ZEPH_ArrayFree(ZEPH_ArrayAllocDouble(nullptr, 0, 3), 0, 3);
  });
  int unharmed = 0;
  for (int k = 0; k < 60; ++k) {
    const pid_t child = fork();
    if (child == 0) {
      alarm(20);
      ZEPH_ArrayFree(ZEPH_ArrayAllocDouble(nullptr, 0, 3), 0, 3);
      _exit(0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    unharmed += status == 0;
    if (status != 0) break;
  }
  stop = true;
  other.join();
  EXPECT_EQ(60, unharmed);
}
#endif

// Each row or array in turn is missing: an operation stops where it would read or write it, and nowhere else.

namespace {

/// Four rows, of which one may be missing.
struct FourRows {
  explicit FourRows(int missing = -1) {
    for (int i = 0; i < 4; ++i) rows[i] = i == missing ? nullptr : cells[i];
  }
  double cells[4][4] = {};
  double* rows[4];
};

template <class Call>
void ExpectStopIf(bool breached, const std::string& line, Call call) {
  if (!breached) return call();
  EXPECT_STOP_OF(line, call);
}

std::string RowIsNull(const char* argument, int row) {
  return std::string(argument) + "[" + std::to_string(row) + "] is null";
}

template <class T>
void ExpectStopsOfMerges() {
  static T in[2][2] = {}, out[4];
  for (const int na : {-1, 0, 1})
    for (const int nb : {0, 2})
      for (int missing = 0; missing < 3; ++missing) {
        T* const a = missing == 0 ? Null<T>() : in[0];
        T* const b = missing == 1 ? Null<T>() : in[1];
        T* const to = missing == 2 ? Null<T>() : out;
        const bool used[] = {na > 0, nb > 0, na > 0 || nb > 0};
        const char* const names[] = {"a", "b", "out"};
        ExpectStopIf(used[missing],
                     std::string("ZEPH_ArrayMergeSorted: ") + names[missing] + " is null",
                     [&] { ZEPH_ArrayMergeSorted(a, na, b, nb, to); });
      }
}

/// Listings of no element and of one, to every destination that doubles and ints share.
template <class T>
void ExpectStopsOfListings() {
  for (const int n : {0, 1}) {
    const auto list = [n](auto call) { ExpectStopIf(n > 0, "ZEPH_ArrayDisplay: a is null", call); };
    CString out;
    list([&] { ZEPH_ArrayDisplay(out, Null<T>(), n, nullptr); });
    list([&] { ZEPH_ArrayDisplay(out, Null<T>(), 5, 4 + n, nullptr); });
    Written([&](FILE* f) {
      list([&] { ZEPH_ArrayDisplay(f, Null<T>(), n, nullptr); });
      list([&] { ZEPH_ArrayDisplay(f, Null<T>(), -5, -6 + n, nullptr); });
    });
  }
}

}  // namespace

TEST(HardenedRawBuffers, StopAtEachRowThatANormReads) {
  ZEPH_SKIP_UNLESS_HARDENED();
  const struct {
    const char* name;
    double (*of)(double**, int, int);
    int least;  // rows that it reads for any count
  } norms[] = {{"ZEPH_MatrixOneNorm", ZEPH_MatrixOneNorm, 0},
               {"ZEPH_MatrixMaxNorm", ZEPH_MatrixMaxNorm, 1},
               {"ZEPH_MatrixFrobNorm", ZEPH_MatrixFrobNorm, 1},
               {"ZEPH_MatrixFrobNorm2", ZEPH_MatrixFrobNorm2, 0},
               {"ZEPH_MatrixFrobNorm3", ZEPH_MatrixFrobNorm3, 0}};
  for (const auto& norm : norms)
    for (const int start : {0, 2})
      for (const int n : {-1, 0, 1, 2})
        for (int missing = 0; missing < 4; ++missing) {
          FourRows m(missing);
          const int end = start + std::max(n, norm.least);
          ExpectStopIf(start <= missing && missing < end,
                       std::string(norm.name) + ": " + RowIsNull("m", missing),
                       [&] { Use(norm.of(m.rows, n, start)); });
        }
}

/// Of factors of different heights.
TEST(HardenedRawBuffers, StopAtEachRowThatAProductUses) {
  ZEPH_SKIP_UNLESS_HARDENED();
  for (const auto& [rows, inner] : {std::pair(1, 3), std::pair(3, 1)})
    for (int operand = 0; operand < 3; ++operand)
      for (int missing = 0; missing < 4; ++missing) {
        const int height = operand == 1 ? inner : rows;
        const char* const names[] = {"a", "b", "out"};
        FourRows a(operand == 0 ? missing : -1), b(operand == 1 ? missing : -1),
            out(operand == 2 ? missing : -1);
        const int m = rows, k = inner;
        ExpectStopIf(missing < height, "ZEPH_MatrixMult: " + RowIsNull(names[operand], missing),
                     [&] { ZEPH_MatrixMult(m, k, a.rows, k, 2, b.rows, out.rows); });
      }
}

TEST(HardenedRawBuffers, StopAtEachRowThatAPrintReads) {
  ZEPH_SKIP_UNLESS_HARDENED();
  for (const int rows : {0, 1, 3})
    for (const int cols : {-1, 0, 2})
      Written([&](FILE* f) {
        for (int missing = 0; missing < 4; ++missing) {
          FourRows m(missing);
          ExpectStopIf(cols > 0 && missing < rows, "ZEPH_MatrixPrint: " + RowIsNull("m", missing),
                       [&] { ZEPH_MatrixPrint(f, rows, cols, m.rows, none); });
        }
        ExpectStopIf(cols > 0 && rows > 0, "ZEPH_MatrixPrint: m is null",
                     [&] { ZEPH_MatrixPrint(f, rows, cols, nullptr, none); });
      });
}

TEST(HardenedRawBuffers, StopAtEachArrayThatAMergeUses) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStopsOfMerges<int>();
  ExpectStopsOfMerges<double>();
}

TEST(HardenedRawBuffers, StopAtAListingOfOneMissingElement) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStopsOfListings<int>();
  ExpectStopsOfListings<double>();
  EXPECT_STOP("ZEPH_ArrayDisplay: a is null", ZEPH_ArrayDisplay(Null<int>(), 1, none));
  EXPECT_STOP("ZEPH_ArrayDisplay: a is null", ZEPH_ArrayDisplay(Null<int>(), 3, 3, none));
  EXPECT_STOP("ZEPH_ArrayDisplay: a is null", ZEPH_ArrayDisplay(Null<double>(), 3, 3, none));
}

/// Each row of a matrix is an array of as many elements as the matrix has columns.
TEST(HardenedRawBuffers, KnowTheLengthOfEachRowOfAMatrix) {
  ZEPH_SKIP_UNLESS_HARDENED();
  for (const int cols : {2, 5}) {
    double** const m = ZEPH_MatrixAllocDouble(nullptr, 3, cols);
    for (int i = 0; i < 3; ++i) {
      EXPECT_STOP_OF("ZEPH_ArrayResize: oldCount is " + std::to_string(cols + 1) + ", outside 0.." +
                         std::to_string(cols),
                     [&] { Use(ZEPH_ArrayResize(m[i], cols + 1, 9)); });
      m[i] = ZEPH_ArrayResize(m[i], cols, 9);
    }
    ZEPH_MatrixFree(m, 3, cols);
  }
}

/// An upper bound below the lower one means no rows, however far below.
TEST(HardenedRawBuffers, AllowAReleaseWithoutRowsByAnyUpperBound) {
  ZEPH_SKIP_UNLESS_HARDENED();
  for (const int nrh : {4, 3, -5, INT_MIN}) {
    double** const m = ZEPH_MatrixAllocDouble(nullptr, 5, 5, 1, 2);
    ZEPH_ArrayFree(m[5], 1, 2);
    ZEPH_MatrixFree(m, 5, nrh, 1, 2);
  }
}

namespace {

/// A block of five elements, with `beyond` more than the number that an old size is.
template <class T>
void ExpectBoundsOfOldSizes(T* (*alloc)(char*, int, int), int beyond) {
  for (const int oldN : {4, 5, 6, 9})
    for (const int newN : {2, 4, 5, 9}) {
      T* block = alloc(nullptr, 0, 4);
      const std::string line = "ZEPH_ArrayRealloc: oldN is " + std::to_string(oldN) +
                               ", outside 0.." + std::to_string(5 - beyond);
      ExpectStopIf(std::min(oldN, newN) + beyond > 5, line,
                   [&] { block = ZEPH_ArrayRealloc(block, oldN, newN, nullptr); });
      ZEPH_ArrayFree(block, 0, 0);
    }
}

}  // namespace

TEST(HardenedRawBuffers, NameTheGreatestOldSizeWhateverTheNewOne) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectBoundsOfOldSizes<int>(ZEPH_ArrayAllocInt, 0);
  ExpectBoundsOfOldSizes<ZEPH_Long>(ZEPH_ArrayAllocLong, 1);
  ExpectBoundsOfOldSizes<float>(ZEPH_ArrayAllocFloat, 1);
  ExpectBoundsOfOldSizes<double>(ZEPH_ArrayAllocDouble, 1);
}
