// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstring>

#include "platform/allocation.h"
#include "platform/wrap.h"
#include "raw_buffers.h"
#include "raw_buffers/offset.h"
#include "raw_buffers/precondition.h"

namespace zeph::raw_buffers {
namespace {

/// `bytes` may be null; otherwise it receives the wrapped size of the block, on success only.
template <class T>
T* AllocArray(int lo, int hi, long int* bytes) {
  const int count = RangeCount(lo, hi);
  if (count < 1) return nullptr;
  T* block = platform::TryNewArray<T>(count);
  if (!block) return nullptr;
  if (bytes) *bytes = platform::WrapMul(count, int{sizeof(T)});
  std::memset(static_cast<void*>(block), 0, static_cast<std::size_t>(count) * sizeof(T));
  RememberArray(block, lo, count);
  return Offset(block, lo);
}

template <class T>
void FreeArray(T* p, int lo) {
  RequireArray("ZEPH_ArrayFree", p, lo);
  T* const block = Block(p, lo);
  platform::ForgetBlock(block);
  delete[] block;
}

}  // namespace
}  // namespace zeph::raw_buffers

using namespace zeph::raw_buffers;

#define ZEPH_DEFINE(T, Alloc)                        \
  T* Alloc(char*, int lo, int hi) {                  \
    return AllocArray<T>(lo, hi, nullptr);           \
  }                                                  \
  T* Alloc(char*, int lo, int hi, long int& bytes) { \
    return AllocArray<T>(lo, hi, &bytes);            \
  }                                                  \
  void ZEPH_ArrayFree(T* p, int lo, int /*hi*/) {    \
    FreeArray(p, lo);                                \
  }
ZEPH_DEFINE(double, ZEPH_ArrayAllocDouble)
ZEPH_DEFINE(float, ZEPH_ArrayAllocFloat)
ZEPH_DEFINE(int, ZEPH_ArrayAllocInt)
ZEPH_DEFINE(ZEPH_Long, ZEPH_ArrayAllocLong)
#undef ZEPH_DEFINE
