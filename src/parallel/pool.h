// SPDX-License-Identifier: MIT
//
// Work divided among threads.
//
// The caller's thread always takes part, and waits only for pieces that others have already taken:
// so a call ends whether or not another thread is available, and calls from several threads share
// the workers without waiting for one another. Workers are started when work is first shared, and
// kept.
#ifndef ZEPH_SRC_PARALLEL_POOL_H
#define ZEPH_SRC_PARALLEL_POOL_H

#include <cstddef>

namespace zeph::parallel {

namespace detail {
void ShareByPointer(int threads, std::size_t pieces, void (*run)(void*, std::size_t), void* work);
}

/// Calls work(k) once for each k below `pieces`, in any order, on up to `threads` threads, the
/// calling one among them; returns when all are done. `work` must not throw. Each piece runs in the
/// floating-point modes of the caller, for whom the exceptions of all pieces are raised afterwards.
template <class Work>
void Share(int threads, std::size_t pieces, Work work) {
  if (threads > 1 && pieces > 1) {
    detail::ShareByPointer(
        threads, pieces, [](void* all, std::size_t k) noexcept { (*static_cast<Work*>(all))(k); },
        &work);
  } else {
    for (std::size_t k = 0; k < pieces; ++k) work(k);
  }
}

/// Must be called before any sharing. After the system has refused a thread, it is not asked again
/// until this call.
void AllowWorkers();

/// Ends all workers, after they have finished the pieces they have begun.
void EndWorkers();

/// The number of workers.
int Workers();

}  // namespace zeph::parallel

#endif  // ZEPH_SRC_PARALLEL_POOL_H
