// SPDX-License-Identifier: MIT
//
// The digests that every supported machine gives.
//
// Changing one is right in two cases only: the workload itself changed (an operation or inputs were
// added), or a documented result changed with a new version and its changelog names it. A digest
// that one compiler, processor or kernel form gives differently is a defect of the library: run
// zeph-selftest --operations on both and compare. The lines behind a colon are those of glibc 2.36
// on x86-64 and never decide.
#ifndef ZEPH_TOOLS_SELFTEST_EXPECTED_H
#define ZEPH_TOOLS_SELFTEST_EXPECTED_H

#include <cstdint>

namespace zeph::selftest {

struct Expected {
  const char* line;
  std::uint64_t digest;
};

constexpr Expected kExpected[] = {
    {"double_array", 0xa07d8d2fc037a127u},
    {"double_array: texts", 0x8b8ac2efeedb56adu},
    {"raw_buffers", 0x709157e7991532f0u},
    {"raw_buffers: sine, logarithm", 0xc2628528bbe117d5u},
    {"raw_buffers: texts", 0x645096cfd03ad88cu},
    {"linalg", 0xe4351467b4ff2541u},
    {"linalg: texts", 0x62873240ac7c736au},
    {"graphics", 0x5ab3686e48be219bu},
    {"graphics: sine, logarithm", 0xe0c81fe96f573409u},
    {"containers", 0x24373a65b4b1e795u},
    {"algorithms", 0xce632ce9adb905dau},
    {"algorithms: sine, logarithm", 0x238e87fc0245595eu},
    {"algorithms: texts", 0xe1cf59f87cabc5c1u},
    {"algorithms: random numbers", 0x3d16651c4435ed8bu},
};

}  // namespace zeph::selftest

#endif  // ZEPH_TOOLS_SELFTEST_EXPECTED_H
