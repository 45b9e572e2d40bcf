// SPDX-License-Identifier: MIT
//
// CObArray, CUIntArray, CWordArray: one body, three element types.
#include "platform.h"

#ifndef ZEPH_USE_MFC

#include "platform/array_storage.h"

using namespace zeph::platform;

// Each member of a class is one call of the body that all three share.
#define ZEPH_STORAGE (ArrayStorage{m_pData, m_nSize, m_nMaxSize, m_nGrowBy})
#define ZEPH_DEFINE_ARRAY(Array, T)                                             \
  Array::Array() : m_pData(nullptr), m_nSize(0), m_nMaxSize(0), m_nGrowBy(0) {} \
  Array::~Array() {                                                             \
    delete[] m_pData;                                                           \
  }                                                                             \
  std::ptrdiff_t Array::GetSize() const {                                       \
    return m_nSize;                                                             \
  }                                                                             \
  std::ptrdiff_t Array::GetCount() const {                                      \
    return m_nSize;                                                             \
  }                                                                             \
  bool Array::IsEmpty() const {                                                 \
    return m_nSize == 0;                                                        \
  }                                                                             \
  std::ptrdiff_t Array::GetUpperBound() const {                                 \
    return m_nSize - 1;                                                         \
  }                                                                             \
  void Array::SetSize(std::ptrdiff_t size, std::ptrdiff_t growBy) {             \
    ZEPH_STORAGE.SetSize(#Array "::SetSize", size, growBy);                     \
  }                                                                             \
  void Array::FreeExtra() {                                                     \
    ZEPH_STORAGE.FreeExtra();                                                   \
  }                                                                             \
  void Array::RemoveAll() {                                                     \
    ZEPH_STORAGE.Release();                                                     \
  }                                                                             \
  T Array::GetAt(std::ptrdiff_t index) const {                                  \
    return ElementOf(#Array "::GetAt", m_pData, m_nSize, index);                \
  }                                                                             \
  void Array::SetAt(std::ptrdiff_t index, T element) {                          \
    ElementOf(#Array "::SetAt", m_pData, m_nSize, index) = element;             \
  }                                                                             \
  T& Array::ElementAt(std::ptrdiff_t index) {                                   \
    return ElementOf(#Array "::ElementAt", m_pData, m_nSize, index);            \
  }                                                                             \
  T Array::operator[](std::ptrdiff_t index) const {                             \
    return ElementOf(#Array "::operator[]", m_pData, m_nSize, index);           \
  }                                                                             \
  T& Array::operator[](std::ptrdiff_t index) {                                  \
    return ElementOf(#Array "::operator[]", m_pData, m_nSize, index);           \
  }                                                                             \
  T const* Array::GetData() const {                                             \
    return m_pData;                                                             \
  }                                                                             \
  T* Array::GetData() {                                                         \
    return m_pData;                                                             \
  }                                                                             \
  void Array::SetAtGrow(std::ptrdiff_t index, T element) {                      \
    ZEPH_STORAGE.SetAtGrow(#Array "::SetAtGrow", index, element);               \
  }                                                                             \
  void Array::InsertAt(std::ptrdiff_t index, T element, std::ptrdiff_t count) { \
    ZEPH_STORAGE.InsertAt(#Array "::InsertAt", index, element, count);          \
  }                                                                             \
  void Array::RemoveAt(std::ptrdiff_t index, std::ptrdiff_t count) {            \
    ZEPH_STORAGE.RemoveAt(#Array "::RemoveAt", index, count);                   \
  }

ZEPH_DEFINE_ARRAY(CObArray, CObject*)
ZEPH_DEFINE_ARRAY(CUIntArray, unsigned int)
ZEPH_DEFINE_ARRAY(CWordArray, unsigned short)
#undef ZEPH_DEFINE_ARRAY
#undef ZEPH_STORAGE

#endif  // ZEPH_USE_MFC
