// SPDX-License-Identifier: MIT
//
/// @file
/// CZEPHUIntArray, CZEPHWordArray: number arrays with a remembered growth size.
#ifndef ZEPH_CONTAINERS_GROWTH_ARRAYS_H
#define ZEPH_CONTAINERS_GROWTH_ARRAYS_H

#include "../platform.h"

/// An array of unsigned 32-bit values that remembers by how much its storage grows.
///
///     CZEPHUIntArray values;
///     values.SetGrowthSize(64);
///     values.SetSize(10);  // room for 64, and for 64 more whenever it grows
///     values.m_nGrowthSize;      // 64
///     values.GetSize();          // 10
class ZEPH_API CZEPHUIntArray : public CUIntArray {
 public:
  /// An empty array with growth size -1.
  CZEPHUIntArray();
  ~CZEPHUIntArray() override;

  /// Remembers `n` for the next SetSize; the array itself is not touched.
  void SetGrowthSize(int n);

  /// As the base's SetSize(n, growth size); a growth size below 0 keeps the base's setting.
  void SetSize(int n);

  int m_nGrowthSize;  ///< What SetSize passes on; -1 at first.
};

/// An array of unsigned 16-bit values; otherwise as CZEPHUIntArray.
///
///     CZEPHWordArray values;
///     values.SetGrowthSize(64);
///     values.SetSize(10);
///     values.GetSize();  // 10
class ZEPH_API CZEPHWordArray : public CWordArray {
 public:
  /// An empty array with growth size -1.
  CZEPHWordArray();
  ~CZEPHWordArray() override;

  /// As CZEPHUIntArray::SetGrowthSize.
  void SetGrowthSize(int n);
  /// As CZEPHUIntArray::SetSize.
  void SetSize(int n);

  int m_nGrowthSize;  ///< What SetSize passes on; -1 at first.
};

#endif  // ZEPH_CONTAINERS_GROWTH_ARRAYS_H
