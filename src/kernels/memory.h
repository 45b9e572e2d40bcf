// SPDX-License-Identifier: MIT
//
// Optional memory: it makes an operation faster, but the operation can do without.
#ifndef ZEPH_SRC_KERNELS_MEMORY_H
#define ZEPH_SRC_KERNELS_MEMORY_H

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <memory>

namespace zeph::kernels {

namespace detail {
/// std::malloc, unless a test has replaced it. Not the allocation operators: their handlers need
/// not know about optional memory.
extern std::atomic<void* (*)(std::size_t)> borrow;
}  // namespace detail

/// A block that releases itself.
template <class T>
using Borrowed = std::unique_ptr<T[], decltype(&std::free)>;

/// Uninitialised space for `n` objects of a trivial type; null if there is none.
template <class T>
Borrowed<T> Borrow(std::size_t n) {
  return {static_cast<T*>(detail::borrow.load(std::memory_order_relaxed)(n * sizeof(T))),
          std::free};
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_MEMORY_H
