// SPDX-License-Identifier: MIT
//
/// @file
/// The growable arrays of the framework.
//
// CObArray    growable array of object pointers
// CUIntArray  growable array of unsigned 32-bit values
// CWordArray  growable array of unsigned 16-bit values
#ifndef ZEPH_PLATFORM_ARRAYS_H
#define ZEPH_PLATFORM_ARRAYS_H

#include <cstddef>

#include "macros.h"
#include "object.h"

#ifndef ZEPH_USE_MFC

/// A growable array of pointers to objects, which it never owns, copies or follows.
///
///     CObArray shapes;
///     shapes.SetSize(0, 256);  // grow by 256 at a time
///     shapes.Add(&circle);
///     shapes[0];               // &circle
///     shapes.GetCount();       // 1
class ZEPH_API CObArray : public CObject {
 public:
  CObArray();
  ~CObArray() override;

  /// The number of elements, by both names.
  std::ptrdiff_t GetSize() const;
  std::ptrdiff_t GetCount() const;
  /// Whether there is no element.
  bool IsEmpty() const;
  /// The last index; -1 when empty.
  std::ptrdiff_t GetUpperBound() const;

  /// Sets the number of elements to `size`; new ones are null, surplus ones are dropped.
  ///
  /// `growBy` >= 0 becomes the growth setting: the least number of elements by which storage grows;
  /// 0 doubles it (by 3 at least). A negative `growBy` keeps the setting. Size 0 releases the
  /// storage; a smaller size keeps it. Throws std::out_of_range when `size` is negative.
  ///
  ///     CObArray a;
  ///     a.SetSize(3);
  ///     a.GetSize();            // 3
  ///     a.GetUpperBound();      // 2
  ///     a.FreeExtra();          // what is in it stays
  ///     a.RemoveAll();
  ///     a.IsEmpty();            // 1
  ///     a.GetData() == nullptr; // 1
  void SetSize(std::ptrdiff_t size, std::ptrdiff_t growBy = -1);
  /// Cuts the storage down to the elements.
  void FreeExtra();
  /// Forgets all elements and releases the storage.
  void RemoveAll();

  /// Access to one element; throws std::out_of_range outside 0..GetUpperBound().
  ///
  ///     CObArray a;
  ///     a.SetSize(2);
  ///     a.SetAt(1, &circle);
  ///     a.GetAt(1) == &circle;  // 1
  ///     a.ElementAt(1) = nullptr;
  ///     a[1] == nullptr;        // 1
  CObject* GetAt(std::ptrdiff_t index) const;
  void SetAt(std::ptrdiff_t index, CObject* element);
  CObject*& ElementAt(std::ptrdiff_t index);
  CObject* operator[](std::ptrdiff_t index) const;
  CObject*& operator[](std::ptrdiff_t index);
  /// The elements in a row, null while there is no storage; valid until the size next changes.
  CObject* const* GetData() const;
  CObject** GetData();

  /// Sets one element, growing the array to hold it; throws when `index` is negative.
  void SetAtGrow(std::ptrdiff_t index, CObject* element);
  /// Appends one element and returns its index. Takes constant time unless the storage grows.
  ZEPH_EMIT std::ptrdiff_t Add(CObject* element) {
    if (m_nSize < m_nMaxSize)
      m_pData[m_nSize++] = element;
    else
      SetAtGrow(m_nSize, element);
    return m_nSize - 1;
  }
  /// Inserts `count` copies before `index`; beyond the end, the gap is filled with nulls.
  ///
  /// Throws std::out_of_range when `index` is negative or `count` below 1.
  ///
  ///     CObArray a;
  ///     a.InsertAt(2, &circle);  // null, null, circle
  ///     a.RemoveAt(0, 2);
  ///     a[0] == &circle;         // 1
  void InsertAt(std::ptrdiff_t index, CObject* element, std::ptrdiff_t count = 1);
  /// Takes `count` elements out from `index` on, keeping the storage.
  ///
  /// Throws std::out_of_range unless they all lie inside the array.
  void RemoveAt(std::ptrdiff_t index, std::ptrdiff_t count = 1);

 protected:
  CObject** m_pData;          ///< The storage, null while there is none.
  std::ptrdiff_t m_nSize;     ///< Elements in use.
  std::ptrdiff_t m_nMaxSize;  ///< Elements that the storage holds.
  std::ptrdiff_t m_nGrowBy;   ///< Growth setting.
};

/// A growable array of unsigned 32-bit values; every member as in CObArray, with 0 for null.
///
///     CUIntArray a;
///     for (int i = 0; i < 4; ++i) a.Add(static_cast<unsigned int>(10 * i));
///     a.InsertAt(1, 7, 2);
///     a.GetData();        // (0, 7, 7, 10, 20, 30)
///     a.RemoveAt(1, 2);
///     a.SetAtGrow(5, 50);
///     a.SetAt(0, 1);
///     a.ElementAt(1) = 2;
///     a.GetData();        // (1, 2, 20, 30, 0, 50)
///     a[5] - a.GetAt(2);  // 30
///     a.SetSize(3);
///     a.FreeExtra();      // what is in it stays
///     a.GetSize();        // 3
///     a.GetCount();       // 3
///     a.GetUpperBound();  // 2
///     a.RemoveAll();
///     a.IsEmpty();        // 1
class ZEPH_API CUIntArray : public CObject {
 public:
  CUIntArray();
  ~CUIntArray() override;

  /// The number of elements, by both names.
  std::ptrdiff_t GetSize() const;
  std::ptrdiff_t GetCount() const;
  /// Whether there is no element.
  bool IsEmpty() const;
  /// As CObArray::GetUpperBound.
  std::ptrdiff_t GetUpperBound() const;
  /// As CObArray::SetSize; new elements are 0.
  void SetSize(std::ptrdiff_t size, std::ptrdiff_t growBy = -1);
  /// As CObArray::FreeExtra.
  void FreeExtra();
  /// As CObArray::RemoveAll.
  void RemoveAll();
  /// Access to one element; throws std::out_of_range outside 0..GetUpperBound().
  unsigned int GetAt(std::ptrdiff_t index) const;
  void SetAt(std::ptrdiff_t index, unsigned int element);
  unsigned int& ElementAt(std::ptrdiff_t index);
  unsigned int operator[](std::ptrdiff_t index) const;
  unsigned int& operator[](std::ptrdiff_t index);
  /// As CObArray::GetData.
  const unsigned int* GetData() const;
  unsigned int* GetData();
  /// As CObArray::SetAtGrow.
  void SetAtGrow(std::ptrdiff_t index, unsigned int element);
  /// As CObArray::Add.
  ZEPH_EMIT std::ptrdiff_t Add(unsigned int element) {
    if (m_nSize < m_nMaxSize)
      m_pData[m_nSize++] = element;
    else
      SetAtGrow(m_nSize, element);
    return m_nSize - 1;
  }
  /// As CObArray::InsertAt; a gap is filled with 0.
  void InsertAt(std::ptrdiff_t index, unsigned int element, std::ptrdiff_t count = 1);
  /// As CObArray::RemoveAt.
  void RemoveAt(std::ptrdiff_t index, std::ptrdiff_t count = 1);

 protected:
  unsigned int* m_pData;      ///< The storage, null while there is none.
  std::ptrdiff_t m_nSize;     ///< Elements in use.
  std::ptrdiff_t m_nMaxSize;  ///< Elements that the storage holds.
  std::ptrdiff_t m_nGrowBy;   ///< The growth setting.
};

/// A growable array of unsigned 16-bit values; every member as in CObArray, with 0 for null.
///
///     CWordArray a;
///     for (int i = 0; i < 4; ++i) a.Add(static_cast<unsigned short>(10 * i));
///     a.InsertAt(1, 7, 2);
///     a.GetData();        // (0, 7, 7, 10, 20, 30)
///     a.RemoveAt(1, 2);
///     a.SetAtGrow(5, 50);
///     a.SetAt(0, 1);
///     a.ElementAt(1) = 2;
///     a.GetData();        // (1, 2, 20, 30, 0, 50)
///     a[5] - a.GetAt(2);  // 30
///     a.SetSize(3);
///     a.FreeExtra();      // what is in it stays
///     a.GetSize();        // 3
///     a.GetCount();       // 3
///     a.GetUpperBound();  // 2
///     a.RemoveAll();
///     a.IsEmpty();        // 1
class ZEPH_API CWordArray : public CObject {
 public:
  CWordArray();
  ~CWordArray() override;

  /// The number of elements, by both names.
  std::ptrdiff_t GetSize() const;
  std::ptrdiff_t GetCount() const;
  /// Whether there is no element.
  bool IsEmpty() const;
  /// As CObArray::GetUpperBound.
  std::ptrdiff_t GetUpperBound() const;
  /// As CObArray::SetSize; new elements are 0.
  void SetSize(std::ptrdiff_t size, std::ptrdiff_t growBy = -1);
  /// As CObArray::FreeExtra.
  void FreeExtra();
  /// As CObArray::RemoveAll.
  void RemoveAll();
  /// Access to one element; throws std::out_of_range outside 0..GetUpperBound().
  unsigned short GetAt(std::ptrdiff_t index) const;
  void SetAt(std::ptrdiff_t index, unsigned short element);
  unsigned short& ElementAt(std::ptrdiff_t index);
  unsigned short operator[](std::ptrdiff_t index) const;
  unsigned short& operator[](std::ptrdiff_t index);
  /// As CObArray::GetData.
  const unsigned short* GetData() const;
  unsigned short* GetData();
  /// As CObArray::SetAtGrow.
  void SetAtGrow(std::ptrdiff_t index, unsigned short element);
  /// As CObArray::Add.
  ZEPH_EMIT std::ptrdiff_t Add(unsigned short element) {
    if (m_nSize < m_nMaxSize)
      m_pData[m_nSize++] = element;
    else
      SetAtGrow(m_nSize, element);
    return m_nSize - 1;
  }
  /// As CObArray::InsertAt; a gap is filled with 0.
  void InsertAt(std::ptrdiff_t index, unsigned short element, std::ptrdiff_t count = 1);
  /// As CObArray::RemoveAt.
  void RemoveAt(std::ptrdiff_t index, std::ptrdiff_t count = 1);

 protected:
  unsigned short* m_pData;    ///< The storage, null while there is none.
  std::ptrdiff_t m_nSize;     ///< Elements in use.
  std::ptrdiff_t m_nMaxSize;  ///< Elements that the storage holds.
  std::ptrdiff_t m_nGrowBy;   ///< The growth setting.
};

#endif  // ZEPH_USE_MFC

#endif  // ZEPH_PLATFORM_ARRAYS_H
