// SPDX-License-Identifier: MIT
//
// Alone in its file: where exported classes are seen, MinGW's compiler would export the standard library's
// type information with them.
#include <new>

namespace zeph::platform {

[[noreturn]] void ThrowBadAlloc();
void ThrowBadAlloc() {
  throw std::bad_alloc();
}

}  // namespace zeph::platform
