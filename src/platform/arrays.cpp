// SPDX-License-Identifier: MIT
//
// CObArray, CUIntArray, CWordArray: one body, three element types.
#include "platform.h"

#ifndef ZEPH_USE_MFC

#include "platform/array_storage.h"

using zeph::platform::ArrayStorage;
using zeph::platform::RefuseIndex;

namespace {

void CheckIndex(const char* operation, std::ptrdiff_t index, std::ptrdiff_t size) {
  if (index < 0 || index >= size) RefuseIndex(operation, index, size - 1);
}

}  // namespace

#define ZEPH_STORAGE(T) (ArrayStorage<T>{m_pData, m_nSize, m_nMaxSize, m_nGrowBy})
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
    ZEPH_STORAGE(T).SetSize(#Array "::SetSize", size, growBy);                  \
  }                                                                             \
  void Array::FreeExtra() {                                                     \
    ZEPH_STORAGE(T).FreeExtra();                                                \
  }                                                                             \
  void Array::RemoveAll() {                                                     \
    ZEPH_STORAGE(T).Release();                                                  \
  }                                                                             \
  T Array::GetAt(std::ptrdiff_t index) const {                                  \
    CheckIndex(#Array "::GetAt", index, m_nSize);                               \
    return m_pData[index];                                                      \
  }                                                                             \
  void Array::SetAt(std::ptrdiff_t index, T element) {                          \
    CheckIndex(#Array "::SetAt", index, m_nSize);                               \
    m_pData[index] = element;                                                   \
  }                                                                             \
  T& Array::ElementAt(std::ptrdiff_t index) {                                   \
    CheckIndex(#Array "::ElementAt", index, m_nSize);                           \
    return m_pData[index];                                                      \
  }                                                                             \
  T Array::operator[](std::ptrdiff_t index) const {                             \
    CheckIndex(#Array "::operator[]", index, m_nSize);                          \
    return m_pData[index];                                                      \
  }                                                                             \
  T& Array::operator[](std::ptrdiff_t index) {                                  \
    CheckIndex(#Array "::operator[]", index, m_nSize);                          \
    return m_pData[index];                                                      \
  }                                                                             \
  T const* Array::GetData() const {                                             \
    return m_pData;                                                             \
  }                                                                             \
  T* Array::GetData() {                                                         \
    return m_pData;                                                             \
  }                                                                             \
  void Array::SetAtGrow(std::ptrdiff_t index, T element) {                      \
    ZEPH_STORAGE(T).SetAtGrow(#Array "::SetAtGrow", index, element);            \
  }                                                                             \
  std::ptrdiff_t Array::Add(T element) {                                        \
    if (m_nSize == m_nMaxSize)                                                  \
      ZEPH_STORAGE(T).SetAtGrow(#Array "::Add", m_nSize, element);              \
    else                                                                        \
      m_pData[m_nSize++] = element;                                             \
    return m_nSize - 1;                                                         \
  }                                                                             \
  void Array::InsertAt(std::ptrdiff_t index, T element, std::ptrdiff_t count) { \
    ZEPH_STORAGE(T).InsertAt(#Array "::InsertAt", index, element, count);       \
  }                                                                             \
  void Array::RemoveAt(std::ptrdiff_t index, std::ptrdiff_t count) {            \
    ZEPH_STORAGE(T).RemoveAt(#Array "::RemoveAt", index, count);                \
  }

ZEPH_DEFINE_ARRAY(CObArray, CObject*)
ZEPH_DEFINE_ARRAY(CUIntArray, unsigned int)
ZEPH_DEFINE_ARRAY(CWordArray, unsigned short)
#undef ZEPH_DEFINE_ARRAY
#undef ZEPH_STORAGE

#endif  // ZEPH_USE_MFC
