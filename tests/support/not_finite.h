// NaN and infinity in both precisions.
#ifndef ZEPH_TESTS_SUPPORT_NOT_FINITE_H
#define ZEPH_TESTS_SUPPORT_NOT_FINITE_H

#include <limits>

namespace zeph::test {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr float kNaNF = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinityF = std::numeric_limits<float>::infinity();

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_NOT_FINITE_H
