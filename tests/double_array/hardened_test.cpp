#include "support/hardened.h"

using zeph::test::ExpectPasses;
using zeph::test::ExpectStops;

namespace {

const char kChild[] = "zeph_double_array_hardened_child";

}  // namespace

TEST(HardenedDoubleArray, StopsAtAnIndexOutsideTheArray) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {
                          {"below", "CZEPHDoubleArray::operator[]: i is -1, outside 0..4"},
                          {"behind", "CZEPHDoubleArray::operator[]: i is 5, outside 0..4"},
                          {"const behind", "CZEPHDoubleArray::operator[]: i is 5, outside 0..4"},
                          {"behind nothing",
                           "CZEPHDoubleArray::operator[]: i is 3, but the array is empty"},
                          {"swap", "CZEPHDoubleArray::Swap: j is 5, outside 0..4"},
                          {"display", "CZEPHDoubleArray::Display: to is 5, outside 3..4"},
                      });
}

TEST(HardenedDoubleArray, StopsAtAStreamThatAnnouncesMoreThanTheStorageHolds) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {{"read more", "operator>>(CZEPHDoubleArray): count is 6, outside 0..5"}});
}

TEST(HardenedDoubleArray, StopsWithoutStorage) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {
                          {"no storage", "CZEPHDoubleArray::operator[]: data is null"},
                          {"sort nothing", "CZEPHDoubleArray::recQuickSort: array.data is null"},
                          {"swap nothing", "CZEPHDoubleArray::Swap: data is null"},
                      });
}

TEST(HardenedDoubleArray, StopsAtARangeOutsideTheArray) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild,
              {
                  {"insertion", "CZEPHDoubleArray::InsertionSort: right is 5, outside 0..4"},
                  {"quick", "CZEPHDoubleArray::recQuickSort: left is -1, outside 0..4"},
                  {"manual", "CZEPHDoubleArray::ManualSort: right is 5, outside 3..4"},
                  {"median", "CZEPHDoubleArray::MedianOf3: right is 0, outside 1..4"},
                  {"partition", "CZEPHDoubleArray::Partition: right is 5, outside 0..4"},
                  {"quick partition", "CZEPHDoubleArray::QuickPartition: right is 3, outside 4..4"},
              });
}

TEST(HardenedDoubleArray, StopsAtAPartitionWhoseScansHaveNoEnd) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {
                          {"left above",
                           "CZEPHDoubleArray::QuickPartition: element left is above pivot, so "
                           "nothing ends the scan"},
                          {"right below",
                           "CZEPHDoubleArray::QuickPartition: element right - 1 is below pivot, so "
                           "nothing ends the scan"},
                      });
}

TEST(HardenedDoubleArray, StopsAtARightOperandThatIsTooShort) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(
      kChild,
      {
          {"product",
           "operator*(CZEPHDoubleArray, CZEPHDoubleArray): b.size is 3, outside 5..2147483647"},
          {"dot product", "ZEPH_ArrayDotProduct: b.size is 3, outside 5..2147483647"},
      });
}

TEST(HardenedDoubleArray, StopsAtNullBlocksAndMessages) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectStops(kChild, {
                          {"merge", "CZEPHDoubleArray::MergeSortedArray: b is null"},
                          {"message", "CZEPHDoubleArray::ErrorMessage: message is null"},
                      });
}

TEST(HardenedDoubleArray, LetsEverythingDocumentedPass) {
  ZEPH_SKIP_UNLESS_HARDENED();
  ExpectPasses(kChild, {"read as many", "whole array", "count itself", "empty ranges",
                        "longer right", "right without storage", "merge nothing", "parted piece"});
}
