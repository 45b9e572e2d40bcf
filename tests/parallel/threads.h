// Runs under every number of threads.
#ifndef ZEPH_TESTS_PARALLEL_THREADS_H
#define ZEPH_TESTS_PARALLEL_THREADS_H

#include <functional>

#include "parallel.h"
#include "parallel/settings.h"
#include "support/modes.h"
#include "support/scale.h"

namespace zeph::test {

/// Threads for the library and, where it hides its own, for the copy in this program.
class ThreeThreads {
 public:
  ThreeThreads() { parallel::SetEverybodys(3); }
  ~ThreeThreads() { parallel::SetEverybodys(1); }
  ThreeThreads(const ThreeThreads&) = delete;
  ThreeThreads& operator=(const ThreeThreads&) = delete;

 private:
  ZEPH_ThreadScope library_{3};
};

/// Calls `visit(threads)` with 1 to 8 threads allowed (some of them where a sample is asked for), in each form
/// of the kernels that can be chosen here; afterwards there is one.
inline void ForEachNumberOfThreads(const std::function<void(int threads)>& visit) {
  ForEachForm([&visit](const std::string&) {
    for (int threads = 1; threads <= 8; ++threads) {
      if (!kFullScale && threads > 3 && threads < 8) continue;
      ZEPH_SetThreads(threads);
      visit(threads);
    }
  });
  ZEPH_SetThreads(1);
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_PARALLEL_THREADS_H
