// The behaviour of hardened builds at a broken precondition: expectations for each
// `hardened_test.cpp`.
#ifndef ZEPH_TESTS_SUPPORT_HARDENED_H
#define ZEPH_TESTS_SUPPORT_HARDENED_H

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/child.h"

#ifdef ZEPH_HARDENED
#define ZEPH_SKIP_UNLESS_HARDENED() static_cast<void>(0)
#else
#define ZEPH_SKIP_UNLESS_HARDENED() GTEST_SKIP() << "not a build with ZEPH_HARDENED"
#endif

namespace zeph::test {

struct Stop {
  std::string site;  // the child's argument
  std::string line;  // the line that it leaves on standard error
};

/// Each site ends the child with its line alone.
inline void ExpectStops(const std::string& child, const std::vector<Stop>& stops) {
  for (const Stop& stop : stops) {
    const ChildResult result = RunChild(child, {stop.site});
    EXPECT_NE(result.status, 0) << stop.site;
    EXPECT_NE(result.status, 2) << stop.site << " is unknown to the child";
    EXPECT_EQ(result.out, "") << stop.site;
    EXPECT_EQ(result.err.substr(0, result.err.find_first_of("\r\n")), stop.line) << stop.site;
  }
}

/// Each site is accepted.
inline void ExpectPasses(const std::string& child, const std::vector<std::string>& sites) {
  for (const std::string& site : sites) {
    const ChildResult result = RunChild(child, {site});
    EXPECT_EQ(result.status, 0) << site << ": " << result.err;
    EXPECT_EQ(result.err, "") << site;
  }
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_HARDENED_H
