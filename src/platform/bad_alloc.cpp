// SPDX-License-Identifier: MIT
//
// In a file of its own: where exported classes are visible, g++ for MinGW would export the standard
// library's type information with them.
#include <new>

namespace zeph::platform {

[[noreturn]] void ThrowBadAlloc();
void ThrowBadAlloc() {
  throw std::bad_alloc();
}

}  // namespace zeph::platform
