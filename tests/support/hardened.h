// The behaviour of hardened builds at a broken precondition: for each `hardened_test.cpp`.
#ifndef ZEPH_TESTS_SUPPORT_HARDENED_H
#define ZEPH_TESTS_SUPPORT_HARDENED_H

#include <gtest/gtest.h>

#include <csignal>
#include <cstdint>
#include <ostream>
#include <string>
#include <utility>

#include "support/child.h"

#if defined(ZEPH_TEST_HARDENED) && !defined(ZEPH_HARDENED)
#error "The build is hardened, but its tests are not: they would all be left out."
#endif

// EXPECT_STOP(line, statement): the statement aborts its process with the line alone, on the standard error.
// EXPECT_STOP_OF(line, body): the same of a function without parameters, which may use its surroundings.
#ifdef ZEPH_HARDENED
#define ZEPH_SKIP_UNLESS_HARDENED() static_cast<void>(0)
#define EXPECT_STOP(line, ...)                 \
  do {                                         \
    ::zeph::test::CaptureStdout printed;       \
    EXPECT_STOP_OF(line, [] { __VA_ARGS__; }); \
    EXPECT_EQ(printed.Text(), "");             \
  } while (false)
#define EXPECT_STOP_OF(line, ...) \
  EXPECT_EXIT((__VA_ARGS__)(), ::zeph::test::Aborted, ::zeph::test::FirstLineIs(line))
#else
#define ZEPH_SKIP_UNLESS_HARDENED() GTEST_SKIP() << "not a build with ZEPH_HARDENED"
#define EXPECT_STOP(line, ...) static_cast<void>([] { __VA_ARGS__; })
#define EXPECT_STOP_OF(line, ...) static_cast<void>(line), static_cast<void>(__VA_ARGS__)
#endif

namespace zeph::test {

#ifdef ZEPH_HARDENED
/// Whether a program ended by std::abort, from the status that EXPECT_EXIT has of it.
inline bool Aborted(int status) {
#ifdef _WIN32
  return status == 3;  // as the C runtime documents it
#else
  return testing::KilledBySignal(SIGABRT)(status);
#endif
}
#endif

/// A matcher; what follows the line is the system's report of the abort.
class FirstLineIs {
 public:
  using is_gtest_matcher = void;
  explicit FirstLineIs(std::string line) : line_(std::move(line)) {}
  bool MatchAndExplain(const std::string& text, std::ostream*) const {
    return text.substr(0, text.find_first_of("\r\n")) == line_;
  }
  void DescribeTo(std::ostream* os) const { *os << "begins with the line \"" << line_ << "\""; }
  void DescribeNegationTo(std::ostream* os) const {
    *os << "does not begin with the line \"" << line_ << "\"";
  }

 private:
  std::string line_;
};

/// Uses a value that is computed only to break a precondition.
template <class T>
void Use(const T& value) {
  static volatile std::uintptr_t kept;
  kept = reinterpret_cast<std::uintptr_t>(&value);
  (void)kept;
}

/// A null and a number whose values the compiler does not know, so that it does not warn.
template <class T>
T* Null() {
  static T* volatile null = nullptr;
  return null;
}
inline int Hidden(int value) {
  static volatile int hidden;
  hidden = value;
  return hidden;
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_HARDENED_H
