// SPDX-License-Identifier: MIT
//
// The digests that every supported machine gives.
//
// Changing one is right in two cases only: the workload itself changed (an operation or inputs were
// added), or a documented result changed with a new version and its changelog names it. A digest
// that one compiler, processor or kernel form gives differently is a defect of the library: run
// zeph-selftest --operations on both and compare. The lines with a colon are those of glibc 2.36 on
// x86-64 and never decide, unless the library is built with ZEPH_PORTABLE_MATH: then every line
// does, by the second column.
#ifndef ZEPH_TOOLS_SELFTEST_EXPECTED_H
#define ZEPH_TOOLS_SELFTEST_EXPECTED_H

#include <cstdint>

namespace zeph::selftest {

struct Expected {
  const char* line;
  std::uint64_t digest;
  std::uint64_t portable;  ///< with ZEPH_PORTABLE_MATH
};

constexpr Expected kExpected[] = {
    {"double_array", 0xa07d8d2fc037a127u, 0xa07d8d2fc037a127u},
    {"double_array: texts", 0x8b8ac2efeedb56adu, 0x8b8ac2efeedb56adu},
    {"raw_buffers", 0x709157e7991532f0u, 0x709157e7991532f0u},
    {"raw_buffers: sine, logarithm", 0xc2628528bbe117d5u, 0x2a5a0780e0411063u},
    {"raw_buffers: texts", 0x645096cfd03ad88cu, 0x645096cfd03ad88cu},
    {"linalg", 0xe4351467b4ff2541u, 0xe4351467b4ff2541u},
    {"linalg: texts", 0x62873240ac7c736au, 0x62873240ac7c736au},
    {"graphics", 0x5ab3686e48be219bu, 0x5ab3686e48be219bu},
    {"graphics: sine, logarithm", 0xe0c81fe96f573409u, 0x949a26a9f47b91c3u},
    {"containers", 0x24373a65b4b1e795u, 0x24373a65b4b1e795u},
    {"algorithms", 0xce632ce9adb905dau, 0xce632ce9adb905dau},
    {"algorithms: sine, logarithm", 0x238e87fc0245595eu, 0x238e87fc0245595eu},
    {"algorithms: texts", 0xe1cf59f87cabc5c1u, 0xe1cf59f87cabc5c1u},
    {"algorithms: random numbers", 0x3d16651c4435ed8bu, 0x316bdedb4978953du},
    {"large", 0x77c6dbff65507c9cu, 0x77c6dbff65507c9cu},
};

}  // namespace zeph::selftest

#endif  // ZEPH_TOOLS_SELFTEST_EXPECTED_H
