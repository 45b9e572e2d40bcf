#include <gtest/gtest.h>

#include <climits>
#include <stdexcept>
#include <string>
#include <type_traits>

#include "containers.h"

namespace {

template <class Array>
struct Shown : Array {
  using Array::m_nGrowBy;
  using Array::m_nMaxSize;
  using Array::m_pData;
};

template <class Array>
class GrowthArray : public ::testing::Test {};
using Kinds = ::testing::Types<Shown<CZEPHUIntArray>, Shown<CZEPHWordArray>>;
struct KindName {
  template <class S>
  static std::string GetName(int) {
    return std::is_base_of_v<CUIntArray, S> ? "CZEPHUIntArray" : "CZEPHWordArray";
  }
};
TYPED_TEST_SUITE(GrowthArray, Kinds, KindName);

}  // namespace

TYPED_TEST(GrowthArray, StartsEmptyWithGrowthSizeMinusOne) {
  TypeParam array;
  EXPECT_EQ(array.m_nGrowthSize, -1);
  EXPECT_TRUE(array.IsEmpty());
}

TYPED_TEST(GrowthArray, KeepsTheBaseClassesSettingUntilAGrowthSizeIsSet) {
  TypeParam array;
  array.SetSize(10);
  EXPECT_EQ(array.m_nGrowBy, 0);
  EXPECT_EQ(array.m_nMaxSize, 10);
  EXPECT_EQ(array.GetSize(), 10);
  EXPECT_EQ(array[9], 0u);
}

TYPED_TEST(GrowthArray, PassesTheGrowthSizeToTheBaseInSetSize) {
  TypeParam array;
  array.SetGrowthSize(64);
  EXPECT_EQ(array.m_nGrowthSize, 64);
  EXPECT_EQ(array.m_nGrowBy, 0);  // the array itself is not touched
  EXPECT_EQ(array.m_nMaxSize, 0);
  array.SetSize(10);
  EXPECT_EQ(array.m_nGrowBy, 64);
  EXPECT_EQ(array.m_nMaxSize, 64);
  array.SetSize(65);
  EXPECT_EQ(array.m_nMaxSize, 128);
}

TYPED_TEST(GrowthArray, AGrowthSizeBelowZeroKeepsTheSettingAndZeroResetsIt) {
  TypeParam array;
  array.SetGrowthSize(64);
  array.SetSize(1);
  for (int n : {-1, -7, INT_MIN}) {
    array.SetGrowthSize(n);
    EXPECT_EQ(array.m_nGrowthSize, n) << "n " << n;
    array.SetSize(2);
    EXPECT_EQ(array.m_nGrowBy, 64) << "n " << n;
  }
  array.SetGrowthSize(0);
  array.SetSize(3);
  EXPECT_EQ(array.m_nGrowBy, 0);
}

TYPED_TEST(GrowthArray, KeepsElementsWhileGrowingAndReleasesStorageAtSizeZero) {
  TypeParam array;
  array.SetGrowthSize(4);
  array.SetSize(3);
  array[0] = 65535;
  array[2] = 7;
  array.SetSize(100);
  EXPECT_EQ(array[0], 65535u);
  EXPECT_EQ(array[2], 7u);
  EXPECT_EQ(array[99], 0u);
  array.SetSize(0);
  EXPECT_EQ(array.m_pData, nullptr);
}

TYPED_TEST(GrowthArray, RefusesANegativeSize) {
  TypeParam array;
  array.SetSize(3);
  EXPECT_THROW(array.SetSize(-1), std::out_of_range);
  EXPECT_EQ(array.GetSize(), 3);
}

TYPED_TEST(GrowthArray, TheBaseGrowsByTheGrowthSizePassedBefore) {
  TypeParam array;
  array.SetGrowthSize(16);
  array.SetSize(16);
  array.Add(1);
  EXPECT_EQ(array.m_nMaxSize, 32);
}

TYPED_TEST(GrowthArray, PassesTheGrowthSizeForSmallerAndEqualSizesToo) {
  TypeParam array;
  array.SetSize(10);
  array.SetGrowthSize(5);
  array.SetSize(10);
  EXPECT_EQ(array.m_nGrowBy, 5);
  array.SetGrowthSize(7);
  array.SetSize(3);
  EXPECT_EQ(array.m_nGrowBy, 7);
  array.SetGrowthSize(9);
  array.SetSize(0);
  EXPECT_EQ(array.m_nGrowBy, 9);
}

TYPED_TEST(GrowthArray, KeepsItsGrowthSizeInEverySetSize) {
  for (const int growth : {-1, 0, 5, 64, 1000}) {
    TypeParam array;
    array.SetGrowthSize(growth);
    for (const int size : {0, 3, 3, 70, 2, 0}) {
      array.SetSize(size);
      EXPECT_EQ(array.m_nGrowthSize, growth) << "size " << size;
      if (growth >= 0) {
        EXPECT_EQ(array.m_nGrowBy, growth) << "size " << size;
      }
    }
    EXPECT_THROW(array.SetSize(-1), std::out_of_range);
    EXPECT_EQ(array.m_nGrowthSize, growth);
  }
}
