// The families of raw_buffers.h by element type, so that a test can cover all four.
#ifndef ZEPH_TESTS_RAW_BUFFERS_FAMILIES_H
#define ZEPH_TESTS_RAW_BUFFERS_FAMILIES_H

#include <gtest/gtest.h>

#include <vector>

#include "raw_buffers.h"
#include "support/allocation.h"

namespace zeph::test {

template <class T>
struct Family;

#define ZEPH_FAMILY(T, Suffix)                                                           \
  template <>                                                                            \
  struct Family<T> {                                                                     \
    static constexpr const char* kName = #Suffix;                                        \
    static T* Alloc(int lo, int hi) { return ZEPH_ArrayAlloc##Suffix(nullptr, lo, hi); } \
    static T* Alloc(int lo, int hi, long& bytes) {                                       \
      return ZEPH_ArrayAlloc##Suffix(nullptr, lo, hi, bytes);                            \
    }                                                                                    \
    static T** Matrix(int rows, int cols) {                                              \
      return ZEPH_MatrixAlloc##Suffix(nullptr, rows, cols);                              \
    }                                                                                    \
    static T** Matrix(int rows, int cols, long& bytes) {                                 \
      return ZEPH_MatrixAlloc##Suffix(nullptr, rows, cols, bytes);                       \
    }                                                                                    \
    static T** Matrix(int nrl, int nrh, int ncl, int nch) {                              \
      return ZEPH_MatrixAlloc##Suffix(nullptr, nrl, nrh, ncl, nch);                      \
    }                                                                                    \
    static T** Matrix(int nrl, int nrh, int ncl, int nch, long& bytes) {                 \
      return ZEPH_MatrixAlloc##Suffix(nullptr, nrl, nrh, ncl, nch, bytes);               \
    }                                                                                    \
  };
ZEPH_FAMILY(double, Double)
ZEPH_FAMILY(float, Float)
ZEPH_FAMILY(int, Int)
ZEPH_FAMILY(ZEPH_Long, Long)
#undef ZEPH_FAMILY

/// Calls `visit(T{})` for double, float, int and ZEPH_Long; a failed test names the type.
template <class Visit>
void ForEachElementType(Visit visit) {
  const auto named = [&visit](auto zero) {
    SCOPED_TRACE(Family<decltype(zero)>::kName);
    visit(zero);
  };
  named(double{});
  named(float{});
  named(int{});
  named(ZEPH_Long{0});
}

inline std::vector<AllocationEvent> OfKind(const std::vector<AllocationEvent>& events,
                                           AllocationEvent::Kind kind) {
  std::vector<AllocationEvent> chosen;
  for (const auto& event : events)
    if (event.kind == kind) chosen.push_back(event);
  return chosen;
}

/// Releases blocks that an operation leaks on purpose, so that leak checkers stay quiet.
inline void ReleaseLost(const std::vector<AllocationEvent>& events) {
  for (const auto& event : OfKind(events, AllocationEvent::kNewArray))
    ::operator delete[](event.block);
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_RAW_BUFFERS_FAMILIES_H
