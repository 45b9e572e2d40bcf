// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <cstring>
#include <type_traits>

#include "platform/allocation.h"
#include "platform/wrap.h"
#include "raw_buffers.h"
#include "raw_buffers/precondition.h"

namespace zeph::raw_buffers {
namespace {

/// The one difference within the family, kept on purpose: how ZEPH_ArrayRealloc derives the number
/// of copied elements from its sizes.
enum class Sizes { kCounts, kHighestIndices };
template <class T>
constexpr Sizes kReallocSizes = std::is_same_v<T, int> ? Sizes::kCounts : Sizes::kHighestIndices;

/// Elements copied between blocks of the given sizes, never more than the new block has: newN + 1.
template <class T>
constexpr int CopiedByRealloc(int oldN, int newN) {
  const int smaller = std::max(std::min(oldN, newN), -1);
  return kReallocSizes<T> == Sizes::kCounts ? std::max(smaller, 0) : platform::WrapAdd(smaller, 1);
}

/// A new block of `count` elements: `kept` from `old`, the rest zero. `old` is released, unless
/// memory runs out.
template <class T>
T* Replace(T* old, int kept, int count) {
  T* fresh = platform::TryNewArray<T>(count);
  if (!fresh) return nullptr;
  const std::size_t keptBytes = old ? static_cast<std::size_t>(kept) * sizeof(T) : 0;
  auto* bytes = reinterpret_cast<unsigned char*>(fresh);
  if (keptBytes > 0) std::memcpy(bytes, static_cast<const void*>(old), keptBytes);
  std::memset(bytes + keptBytes, 0, static_cast<std::size_t>(count) * sizeof(T) - keptBytes);
  platform::ForgetBlock(old);
  delete[] old;
  RememberArray(fresh, 0, count);
  return fresh;
}

template <class T>
T* Realloc(T* old, int oldN, int newN) {
  const int copied = CopiedByRealloc<T>(oldN, newN);
  const int count = platform::WrapAdd(newN, 1);
  if (count >= 0)
    RequireOldSize("ZEPH_ArrayRealloc", "oldN", old, oldN,
                   kReallocSizes<T> == Sizes::kHighestIndices, copied);
  return Replace(old, copied, count);
}

template <class T>
T* Resize(T* old, int oldCount, int newCount) {
  if (newCount < oldCount) return nullptr;
  RequireOldSize("ZEPH_ArrayResize", "oldCount", old, oldCount, false, oldCount);
  return Replace(old, std::max(oldCount, 0), newCount);
}

}  // namespace
}  // namespace zeph::raw_buffers

using namespace zeph::raw_buffers;

#define ZEPH_DEFINE(T)                                      \
  T* ZEPH_ArrayRealloc(T* old, int oldN, int newN, char*) { \
    return Realloc(old, oldN, newN);                        \
  }                                                         \
  T* ZEPH_ArrayResize(T* old, int oldCount, int newCount) { \
    return Resize(old, oldCount, newCount);                 \
  }
ZEPH_DEFINE(int)
ZEPH_DEFINE(ZEPH_Long)
ZEPH_DEFINE(float)
ZEPH_DEFINE(double)
#undef ZEPH_DEFINE
