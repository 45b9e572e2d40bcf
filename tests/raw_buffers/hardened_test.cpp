#include "support/hardened.h"

using zeph::test::ExpectPasses;
using zeph::test::ExpectStops;

namespace {

const char kChild[] = "zeph_raw_buffers_hardened_child";

}  // namespace

TEST(HardenedRawBuffers, StopAtNullArrays) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {
                          {"norm", "ZEPH_ArrayTwoNorm2: a is null"},
                          {"norm of none", "ZEPH_ArrayMaxNorm: a is null"},
                          {"listing", "ZEPH_ArrayDisplay: a is null"},
                          {"stream", "ZEPH_ArrayDisplay: stream is null"},
                          {"merge", "ZEPH_ArrayMergeSorted: b is null"},
                          {"flat transpose", "ZEPH_MatrixTranspose: b is null"},
                      });
}

TEST(HardenedRawBuffers, StopAtNullMatricesAndRows) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {
                          {"matrix", "ZEPH_MatrixOneNorm: m is null"},
                          {"row", "ZEPH_MatrixFrobNorm2: m[1] is null"},
                          {"first row", "ZEPH_MatrixMaxNorm: m[1] is null"},
                          {"transpose", "ZEPH_MatrixTranspose: a[1] is null"},
                          {"identity", "ZEPH_MatrixSetIdentity: m[1] is null"},
                          {"product", "ZEPH_MatrixMult: a[1] is null"},
                          {"print", "ZEPH_MatrixPrint: m[1] is null"},
                      });
}

TEST(HardenedRawBuffers, StopAtNullGeometry) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {
                          {"cross", "ZEPH_VectorCrossProduct3: b is null"},
                          {"assign", "ZEPH_VectorAssign3: v is null"},
                          {"transform", "ZEPH_MatrixTransform3: y is null"},
                          {"rotate", "ZEPH_MatrixRotate3X: m is null"},
                          {"product 4", "ZEPH_MatrixMult4: out is null"},
                      });
}

TEST(HardenedRawBuffers, StopAtAReleaseThatIsNotTheBlocks) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild,
              {
                  {"free another low", "ZEPH_ArrayFree: lo is 0, outside 1..1"},
                  {"free twice", "ZEPH_ArrayFree: the block was released before"},
                  {"free foreign", "ZEPH_ArrayFree: the block is none that this library gave"},
                  {"free more rows", "ZEPH_MatrixFree: nrh is 2, outside -1..1"},
                  {"free another row low", "ZEPH_MatrixFree: nrl is 0, outside 1..1"},
                  {"free another column low", "ZEPH_MatrixFree: ncl is 0, outside 1..1"},
                  {"free a matrix twice", "ZEPH_MatrixFree: the block was released before"},
                  {"free after resize", "ZEPH_MatrixFree: the block was released before"},
              });
}

TEST(HardenedRawBuffers, StopAtAnOldSizeThatTheBlockDoesNotHave) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild,
              {
                  {"realloc", "ZEPH_ArrayRealloc: oldN is 5, outside 0..4"},
                  {"realloc ints", "ZEPH_ArrayRealloc: oldN is 6, outside 0..5"},
                  {"realloc twice", "ZEPH_ArrayRealloc: the old block was released before"},
                  {"resize", "ZEPH_ArrayResize: oldCount is 6, outside 0..5"},
                  {"matrix resize rows", "ZEPH_MatrixResize: oldRowHi is 2, outside -1..1"},
                  {"matrix resize columns", "ZEPH_MatrixResize: oldColHi is 2, outside -1..1"},
              });
}

TEST(HardenedRawBuffers, StopAtAMergeIntoItsOwnInput) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {
                          {"merge into a", "ZEPH_ArrayMergeSorted: out overlaps a"},
                          {"merge into b", "ZEPH_ArrayMergeSorted: out overlaps b"},
                      });
}

TEST(HardenedRawBuffers, LetEverythingDocumentedPass) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectPasses(kChild, {"no elements", "null results", "offset array", "missing rows",
                        "merge beside", "another high", "own block", "many blocks"});
}
