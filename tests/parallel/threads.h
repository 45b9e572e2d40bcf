// Runs under every number of threads.
#ifndef ZEPH_TESTS_PARALLEL_THREADS_H
#define ZEPH_TESTS_PARALLEL_THREADS_H

#include <functional>

#include "parallel.h"
#include "support/modes.h"

namespace zeph::test {

/// Calls `visit(threads)` with 1 to 8 threads allowed, in each form of the kernels that can be
/// chosen here; afterwards there is one.
inline void ForEachNumberOfThreads(const std::function<void(int threads)>& visit) {
  ForEachForm([&visit](const std::string&) {
    for (int threads = 1; threads <= 8; ++threads) {
      ZEPH_SetThreads(threads);
      visit(threads);
    }
  });
  ZEPH_SetThreads(1);
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_PARALLEL_THREADS_H
