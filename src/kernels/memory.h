// SPDX-License-Identifier: MIT
//
// Optional memory: it makes an operation faster, but the operation can do without.
#ifndef ZEPH_SRC_KERNELS_MEMORY_H
#define ZEPH_SRC_KERNELS_MEMORY_H

#include <atomic>
#include <cstddef>
#include <memory>

namespace zeph::kernels {

namespace detail {
/// std::malloc, unless a test has replaced it. Not the allocation operators: their handlers need
/// not know about optional memory.
extern std::atomic<void* (*)(std::size_t)> borrow;
/// std::free, unless a test that lends its own blocks takes them back.
extern std::atomic<void (*)(void*)> give_back;

struct GiveBack {
  void operator()(void* block) const { give_back.load(std::memory_order_relaxed)(block); }
};
}  // namespace detail

/// A block that releases itself.
template <class T>
using Borrowed = std::unique_ptr<T[], detail::GiveBack>;

/// Uninitialised space for `n` objects of a trivial type; null if there is none.
template <class T>
Borrowed<T> Borrow(std::size_t n) {
  const auto borrow = detail::borrow.load(std::memory_order_relaxed);
  return Borrowed<T>(static_cast<T*>(borrow(n * sizeof(T))));
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_MEMORY_H
