// SPDX-License-Identifier: MIT
//
// Allocation by the library's rules: the size for a count, and the handling of exhaustion.
#ifndef ZEPH_SRC_PLATFORM_ALLOCATION_H
#define ZEPH_SRC_PLATFORM_ALLOCATION_H

#include <cstddef>
#include <cstdint>
#include <new>
#include <type_traits>
#include <utility>

#include "platform.h"

namespace zeph::platform {

/// Bytes of `count` elements; the largest possible size when the count is negative or the product
/// overflows, so that the allocation fails instead of wrapping.
constexpr std::size_t RequestBytes(std::int64_t count, std::size_t elementSize) {
  if (count < 0) return SIZE_MAX;
  const auto n = static_cast<std::uint64_t>(count);
  return n > SIZE_MAX / elementSize ? SIZE_MAX : static_cast<std::size_t>(n) * elementSize;
}

/// `value`, of which the compiler knows nothing from here on. Where the compiler allows it, it stays in a
/// register: storing and loading it takes longer than filling a small block.
template <class T>
T Opaque(T value) {
#if (defined(__GNUC__) || defined(__clang__)) && !defined(__clang_analyzer__)  // a leak to it
  __asm__("" : "+r"(value));
  return value;
#else
  T volatile kept = value;
  return kept;
#endif
}

/// The pointer that an allocation operator returned, null included. An application's own operator
/// may return null, as old ones do; compilers assume that none does, and would remove the tests.
inline void* PerhapsNull(void* block) {
  return Opaque(block);
}

/// A block for `count` elements, uninitialised, to be released with `delete[]`; null where the
/// application's operator returns null. Its exceptions pass to the caller. The count is hidden from
/// the compiler: where it saw an impossible one it would warn, in every program that is linked with
/// -flto.
template <class T>
T* NewArrayOrNull(std::int64_t count) {
  static_assert(std::is_trivially_destructible_v<T>, "released without destructor calls");
  return static_cast<T*>(PerhapsNull(::operator new[](Opaque(RequestBytes(count, sizeof(T))))));
}

/// Throws std::bad_alloc.
[[noreturn]] void ThrowBadAlloc();

/// The same as NewArrayOrNull, but never null: on exhaustion the allocation operator's exception
/// passes to the caller, or std::bad_alloc where it returns null.
template <class T>
T* NewArray(std::int64_t count) {
  T* const block = NewArrayOrNull<T>(count);
  if (!block) ThrowBadAlloc();
  return block;
}

/// A new object, or null where the application's operator returns null; its exceptions pass to the
/// caller. Released with `delete`.
template <class T, class... Arguments>
T* NewObject(Arguments&&... arguments) {
  void* const block = PerhapsNull(::operator new(sizeof(T)));
  if (!block) return nullptr;
  try {
    return new (block) T{std::forward<Arguments>(arguments)...};
  } catch (...) {  // no constructor in use throws (short texts, plain records)
    ::operator delete(block);
    throw;
  }
}

/// The handler's part of the allocation-failure rule: the text is fetched and discarded, the
/// exception released, nothing is printed.
void DiscardMemoryException(CMemoryException* exception);

/// Runs `body` and returns its result, or `failed` when memory runs out inside it. Both
/// `CMemoryException*` and `std::bad_alloc` count as exhaustion; anything else passes.
template <class Result, class Body>
Result OnExhaustion(Result failed, Body body) {
  try {
    return body();
  } catch (CMemoryException* exception) {
    DiscardMemoryException(exception);
  } catch (const std::bad_alloc&) {
  }
  return failed;
}

/// As NewArray, but null when memory runs out.
template <class T>
T* TryNewArray(std::int64_t count) {
  return OnExhaustion<T*>(nullptr, [count] { return NewArray<T>(count); });
}

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_ALLOCATION_H
