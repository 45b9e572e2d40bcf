// Work for programs that use threads: large enough to run in parallel, with a known result.
#ifndef ZEPH_TESTS_PARALLEL_WORK_H
#define ZEPH_TESTS_PARALLEL_WORK_H

#include <cstdio>
#include <cstring>
#include <vector>

#include "linalg.h"
#include "parallel.h"

#ifdef __linux__
#include <dirent.h>
#endif

namespace zeph::test {

/// The threads of this process, or -1 where the system does not say.
inline int ThreadsOfTheProcess() {
  int threads = -1;
#ifdef __linux__
  if (DIR* const folder = opendir("/proc/self/task")) {
    threads = -2;  // "." and ".."
    while (readdir(folder)) ++threads;
    closedir(folder);
  }
#endif
  return threads;
}

/// A product that runs in parallel where threads are allowed.
class Work {
 public:
  Work() : a_(kSize, kSize), b_(kSize, kSize) {
    for (int i = 0; i < kSize; ++i)
      for (int j = 0; j < kSize; ++j) {
        a_.m_ppData[i][j] = 1.0 / (1 + i + j);
        b_.m_ppData[i][j] = 1.0 / (3 + i * j);
      }
    const ZEPH_ThreadScope alone(1);
    want_ = Product();
  }
  /// Computes it and returns whether its bits are those of one thread.
  bool Right() {
    const std::vector<double> got = Product();
    return std::memcmp(got.data(), want_.data(), got.size() * sizeof(double)) == 0;
  }

 private:
  static constexpr int kSize = 210;
  std::vector<double> Product() {
    const CZEPHMatrix product = a_ * b_;
    std::vector<double> all;
    for (int i = 0; i < kSize; ++i)
      all.insert(all.end(), product.m_ppData[i], product.m_ppData[i] + kSize);
    return all;
  }
  CZEPHMatrix a_, b_;
  std::vector<double> want_;
};

/// Prints "ok" or what is wrong.
inline void Say(bool good, const char* what) {
  std::printf("%s%s\n", good ? "ok: " : "NOT: ", what);
  std::fflush(stdout);
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_PARALLEL_WORK_H
