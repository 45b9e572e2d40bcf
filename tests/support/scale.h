// The scale of long, exhaustive tests: all cases in an optimised build, unless the environment
// variable ZEPH_TEST_SAMPLE is set (valgrind, emulated processors).
#ifndef ZEPH_TESTS_SUPPORT_SCALE_H
#define ZEPH_TESTS_SUPPORT_SCALE_H

#include <cstddef>
#include <cstdlib>

namespace zeph::test {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define ZEPH_TEST_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define ZEPH_TEST_SANITIZED 1
#endif
#endif

/// True where everything runs: optimised, no sanitizer, and no sample asked for.
inline const bool kFullScale =
#if !defined(ZEPH_TEST_SANITIZED) && (defined(__OPTIMIZE__) || defined(_MSC_VER))
    std::getenv("ZEPH_TEST_SAMPLE") == nullptr;
#else
    false;
#endif

/// `full` at full scale, else a twentieth of it (but all of less than 20).
inline std::size_t Scaled(std::size_t full) {
  return kFullScale || full < 20 ? full : full / 20;
}

/// `full` at full scale, else `sample`.
template <class T>
T Scaled(T full, T sample) {
  return kFullScale ? full : sample;
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_SCALE_H
