// The layout of every public class: size, place and order of the fields, and whether it has virtual
// functions. Programs built against an earlier release keep running only while these hold. Nothing
// here runs: a change of layout does not compile.
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "ZEPHDataStructureEngine.h"

#if defined(__GNUC__) || defined(__clang__)
// Every compiler that we support accepts offsetof in classes with virtual functions too.
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
#endif

namespace {

constexpr std::size_t P = sizeof(void*);
// The 32-bit Linux ABI aligns 8-byte members at 4; Windows and 64-bit systems at 8.
struct WideMember {
  char first;
  double second;
};
constexpr std::size_t kWide = offsetof(WideMember, second);

constexpr std::size_t RoundUp(std::size_t n, std::size_t step) {
  return (n + step - 1) / step * step;
}

template <class T>
constexpr bool kPlain = std::is_standard_layout_v<T> && !std::is_polymorphic_v<T>;
template <class T>
constexpr bool kVirtual = std::is_polymorphic_v<T>&& std::has_virtual_destructor_v<T>;

#define ZEPH_AT(type, field, place) static_assert(offsetof(type, field) == (place))
#define ZEPH_SIZE(type, bytes) static_assert(sizeof(type) == (bytes))

// --- platform.h ---------------------------------------------------------------------------------

ZEPH_SIZE(ZEPH_Long, 4);
static_assert(std::is_trivially_copyable_v<ZEPH_Long> && std::is_standard_layout_v<ZEPH_Long>);
static_assert(alignof(ZEPH_Long) == alignof(int) && !std::is_same_v<ZEPH_Long, int>);

ZEPH_AT(ZEPH_TimeOfDay, time, 0);
ZEPH_AT(ZEPH_TimeOfDay, millitm, 8);
ZEPH_AT(ZEPH_TimeOfDay, timezone, 10);
ZEPH_AT(ZEPH_TimeOfDay, dstflag, 12);
ZEPH_SIZE(ZEPH_TimeOfDay, 16);

#ifndef ZEPH_USE_MFC
ZEPH_SIZE(CObject, P);
static_assert(kVirtual<CObject> && kVirtual<CMemoryException> && kVirtual<CWinApp>);
ZEPH_SIZE(CMemoryException, P);
ZEPH_AT(CWinApp, m_pszAppName, P);
ZEPH_SIZE(CWinApp, 2 * P);
ZEPH_SIZE(CString, P + 24);
static_assert(!std::is_polymorphic_v<CString>);

// The offsets of the collections' protected fields.
template <class Base>
struct Opened : Base {
  static constexpr bool IsArray() {
    return offsetof(Opened, m_pData) == P && offsetof(Opened, m_nSize) == 2 * P &&
           offsetof(Opened, m_nMaxSize) == 3 * P && offsetof(Opened, m_nGrowBy) == 4 * P;
  }
  static constexpr bool IsList() {
    return offsetof(Opened, m_pNodeHead) == P && offsetof(Opened, m_pNodeTail) == 2 * P &&
           offsetof(Opened, m_nCount) == 3 * P && offsetof(Opened, m_pNodeFree) == 4 * P &&
           offsetof(Opened, m_pBlocks) == 5 * P && offsetof(Opened, m_nBlockSize) == 6 * P;
  }
};
static_assert(Opened<CObArray>::IsArray() && kVirtual<CObArray>);
static_assert(Opened<CUIntArray>::IsArray() && kVirtual<CUIntArray>);
static_assert(Opened<CWordArray>::IsArray() && kVirtual<CWordArray>);
static_assert(Opened<CObList>::IsList() && kVirtual<CObList>);
ZEPH_SIZE(CObArray, 5 * P);
ZEPH_SIZE(CUIntArray, 5 * P);
ZEPH_SIZE(CWordArray, 5 * P);
ZEPH_SIZE(CObList, 7 * P);
#endif

// --- frame.h ------------------------------------------------------------------------------------

ZEPH_SIZE(CZEPHDataStructureEngineApp, sizeof(CWinApp));
static_assert(kVirtual<CZEPHDataStructureEngineApp>);

// --- containers.h -------------------------------------------------------------------------------

ZEPH_AT(CZEPHLink<double>, m_value, 0);
ZEPH_AT(CZEPHLink<double>, m_pNext, 8);
ZEPH_SIZE(CZEPHLink<double>, RoundUp(8 + P, kWide));
ZEPH_AT(CZEPHLinkList<double>, m_pHead, 0);
ZEPH_SIZE(CZEPHLinkList<double>, P);
static_assert(kPlain<CZEPHLink<double>> && kPlain<CZEPHLinkList<double>>);

ZEPH_AT(CZEPHLinkData, m_nKey, 0);
ZEPH_AT(CZEPHLinkData, m_pNext, P);
ZEPH_SIZE(CZEPHLinkData, 2 * P);
ZEPH_AT(CZEPHSortedLinkList, m_pHead, 0);
ZEPH_SIZE(CZEPHSortedLinkList, P);
static_assert(kPlain<CZEPHLinkData> && kPlain<CZEPHSortedLinkList>);

ZEPH_AT(ZEPH_StackNode, m_pData, 0);
ZEPH_AT(ZEPH_StackNode, m_pNextNode, P);
ZEPH_SIZE(ZEPH_StackNode, 2 * P);
ZEPH_AT(CZEPHStack, m_pTop, 0);
ZEPH_SIZE(CZEPHStack, P);
ZEPH_AT(CZEPHPointerStack, m_pTop, 0);
ZEPH_SIZE(CZEPHPointerStack, P);
static_assert(kPlain<ZEPH_StackNode> && kPlain<CZEPHStack> && kPlain<CZEPHPointerStack>);

ZEPH_SIZE(CZEPHSortableObArray, sizeof(CObArray));
ZEPH_SIZE(CZEPHSortableObList, sizeof(CObList));
static_assert(kVirtual<CZEPHSortableObArray> && kVirtual<CZEPHSortableObList>);
ZEPH_AT(CZEPHUIntArray, m_nGrowthSize, sizeof(CUIntArray));
ZEPH_SIZE(CZEPHUIntArray, sizeof(CUIntArray) + P);
ZEPH_AT(CZEPHWordArray, m_nGrowthSize, sizeof(CWordArray));
ZEPH_SIZE(CZEPHWordArray, sizeof(CWordArray) + P);
static_assert(kVirtual<CZEPHUIntArray> && kVirtual<CZEPHWordArray>);

// --- double_array.h -----------------------------------------------------------------------------

ZEPH_AT(CZEPHDoubleArray, sorted, P);
ZEPH_AT(CZEPHDoubleArray, size, P + 4);
ZEPH_AT(CZEPHDoubleArray, data, P + 8);
ZEPH_SIZE(CZEPHDoubleArray, 2 * P + 8);
static_assert(kVirtual<CZEPHDoubleArray>);

// --- linalg.h -----------------------------------------------------------------------------------

ZEPH_AT(CZEPHDoubleMatrix, m_nRows, 0);
ZEPH_AT(CZEPHDoubleMatrix, m_nColumns, 4);
ZEPH_AT(CZEPHDoubleMatrix, m_ppData, 8);
ZEPH_SIZE(CZEPHDoubleMatrix, 8 + P);
ZEPH_AT(CZEPHMatrix, m_nRows, 0);
ZEPH_AT(CZEPHMatrix, m_nColumns, 4);
ZEPH_AT(CZEPHMatrix, m_ppData, 8);
ZEPH_SIZE(CZEPHMatrix, 8 + P);
ZEPH_AT(CZEPHVector, m_nSize, 0);
ZEPH_AT(CZEPHVector, m_pData, P);
ZEPH_SIZE(CZEPHVector, 2 * P);
static_assert(kPlain<CZEPHDoubleMatrix> && kPlain<CZEPHMatrix> && kPlain<CZEPHVector>);

ZEPH_AT(CZEPHMatrix4, m_data, 0);
ZEPH_SIZE(CZEPHMatrix4, 16 * 8);
ZEPH_SIZE(CZEPHMatrix4::ordermode, sizeof(int));
ZEPH_AT(CZEPHVector3, m_x, 0);
ZEPH_AT(CZEPHVector3, m_y, 8);
ZEPH_AT(CZEPHVector3, m_z, 16);
ZEPH_SIZE(CZEPHVector3, 24);
static_assert(kPlain<CZEPHMatrix4> && kPlain<CZEPHVector3>);

// --- graphics.h ---------------------------------------------------------------------------------

ZEPH_AT(CZEPHVector2D, x, P);
ZEPH_AT(CZEPHVector2D, y, P + 4);
ZEPH_SIZE(CZEPHVector2D, P + 8);
ZEPH_AT(CZEPHVector3D, x, P);
ZEPH_AT(CZEPHVector3D, y, P + 4);
ZEPH_AT(CZEPHVector3D, z, P + 8);
ZEPH_SIZE(CZEPHVector3D, RoundUp(P + 12, P));
ZEPH_AT(CZEPHVector4D, x, P);
ZEPH_AT(CZEPHVector4D, y, P + 4);
ZEPH_AT(CZEPHVector4D, z, P + 8);
ZEPH_AT(CZEPHVector4D, w, P + 12);
ZEPH_SIZE(CZEPHVector4D, P + 16);
ZEPH_AT(CZEPHMatrix4x4, entries, P);
ZEPH_SIZE(CZEPHMatrix4x4, P + 64);
static_assert(kVirtual<CZEPHVector2D> && kVirtual<CZEPHVector3D> && kVirtual<CZEPHVector4D> &&
              kVirtual<CZEPHMatrix4x4>);
ZEPH_AT(CZEPHVector3S, x, 0);
ZEPH_AT(CZEPHVector3S, y, 4);
ZEPH_AT(CZEPHVector3S, z, 8);
ZEPH_SIZE(CZEPHVector3S, 12);
static_assert(kPlain<CZEPHVector3S>);

// --- algorithms.h -------------------------------------------------------------------------------

ZEPH_SIZE(CZEPHPermutation, P);
ZEPH_SIZE(CZEPHIntegralSearch, P);
ZEPH_SIZE(CZEPHSelectionSort, P);
ZEPH_SIZE(CZEPHSortTester, P);
ZEPH_SIZE(CZEPHSortTester::SORT_METHOD_TYPE, sizeof(int));
static_assert(kVirtual<CZEPHPermutation> && kVirtual<CZEPHIntegralSearch> &&
              kVirtual<CZEPHSelectionSort> && kVirtual<CZEPHSortTester> && kVirtual<CZEPHDSTimer>);
ZEPH_AT(CZEPHDSTimer, start, RoundUp(P, kWide));
ZEPH_AT(CZEPHDSTimer, stop, RoundUp(P, kWide) + 16);
ZEPH_AT(CZEPHDSTimer, elapsed, RoundUp(P, kWide) + 32);
ZEPH_SIZE(CZEPHDSTimer, RoundUp(RoundUp(P, kWide) + 36, kWide));

}  // namespace
