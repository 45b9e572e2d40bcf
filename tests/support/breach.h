// Breaks a precondition in a child program, with the result expected in hardened builds.
#ifndef ZEPH_TESTS_SUPPORT_BREACH_H
#define ZEPH_TESTS_SUPPORT_BREACH_H

#include <cstdint>
#include <cstring>

namespace zeph::test {

/// A named call; a `*_child.cpp` makes the one that its argument names.
struct Breach {
  const char* name;
  void (*make)();
};

/// The child's main: 0 when the call returned, 2 for an unknown name.
template <int N>
int MakeBreach(int argc, char** argv, const Breach (&breaches)[N]) {
  for (const Breach& breach : breaches) {
    if (argc < 2 || std::strcmp(argv[1], breach.name) != 0) continue;
    breach.make();
    return 0;
  }
  return 2;
}

/// Keeps a value that is computed only for its breach.
template <class T>
void Use(const T& value) {
  static volatile std::uintptr_t kept;
  kept = reinterpret_cast<std::uintptr_t>(&value);
  (void)kept;
}

/// A null and a number that the compiler does not see through, so that it does not warn.
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

#endif  // ZEPH_TESTS_SUPPORT_BREACH_H
