// See afx.h.
#ifndef ZEPH_TESTS_MSVC_FRAMEWORK_AFXCOLL_H
#define ZEPH_TESTS_MSVC_FRAMEWORK_AFXCOLL_H

#include "afx.h"

struct __POSITION;
using POSITION = __POSITION*;

/// An array of the framework, which has one class for each element type.
#define ZEPH_FRAMEWORK_ARRAY(Array, Element, Given)                 \
  class Array : public CObject {                                    \
   public:                                                          \
    Array();                                                        \
    ~Array() override;                                              \
    INT_PTR GetSize() const;                                        \
    INT_PTR GetCount() const;                                       \
    BOOL IsEmpty() const;                                           \
    INT_PTR GetUpperBound() const;                                  \
    void SetSize(INT_PTR size, INT_PTR growBy = -1);                \
    void FreeExtra();                                               \
    void RemoveAll();                                               \
    Element GetAt(INT_PTR index) const;                             \
    void SetAt(INT_PTR index, Given element);                       \
    Element& ElementAt(INT_PTR index);                              \
    const Element* GetData() const;                                 \
    Element* GetData();                                             \
    void SetAtGrow(INT_PTR index, Given element);                   \
    INT_PTR Add(Given element);                                     \
    void InsertAt(INT_PTR index, Given element, INT_PTR count = 1); \
    void RemoveAt(INT_PTR index, INT_PTR count = 1);                \
    Element operator[](INT_PTR index) const;                        \
    Element& operator[](INT_PTR index);                             \
                                                                    \
   protected:                                                       \
    Element* m_pData;                                               \
    INT_PTR m_nSize;                                                \
    INT_PTR m_nMaxSize;                                             \
    INT_PTR m_nGrowBy;                                              \
  };
using ObjectPointer = CObject*;
ZEPH_FRAMEWORK_ARRAY(CObArray, ObjectPointer, CObject*)
ZEPH_FRAMEWORK_ARRAY(CUIntArray, UINT, UINT)
ZEPH_FRAMEWORK_ARRAY(CWordArray, WORD, WORD)
#undef ZEPH_FRAMEWORK_ARRAY

class CObList : public CObject {
 protected:
  struct CNode {
    CNode* pNext;
    CNode* pPrev;
    CObject* data;
  };

 public:
  explicit CObList(INT_PTR blockSize = 10);
  ~CObList() override;
  INT_PTR GetCount() const;
  INT_PTR GetSize() const;
  BOOL IsEmpty() const;
  CObject*& GetHead();
  const CObject* GetHead() const;
  CObject*& GetTail();
  const CObject* GetTail() const;
  POSITION AddHead(CObject* object);
  POSITION AddTail(CObject* object);
  CObject* RemoveHead();
  CObject* RemoveTail();
  void RemoveAll();
  POSITION GetHeadPosition() const;
  POSITION GetTailPosition() const;
  CObject*& GetNext(POSITION& position);
  const CObject* GetNext(POSITION& position) const;
  CObject*& GetPrev(POSITION& position);
  const CObject* GetPrev(POSITION& position) const;
  CObject*& GetAt(POSITION position);
  const CObject* GetAt(POSITION position) const;
  void SetAt(POSITION position, CObject* object);
  void RemoveAt(POSITION position);
  POSITION InsertBefore(POSITION position, CObject* object);
  POSITION InsertAfter(POSITION position, CObject* object);
  POSITION Find(CObject* object, POSITION startAfter = nullptr) const;
  POSITION FindIndex(INT_PTR index) const;

 protected:
  CNode* m_pNodeHead;
  CNode* m_pNodeTail;
  INT_PTR m_nCount;
  CNode* m_pNodeFree;
  INT_PTR m_nBlockSize;
};

#endif  // ZEPH_TESTS_MSVC_FRAMEWORK_AFXCOLL_H
