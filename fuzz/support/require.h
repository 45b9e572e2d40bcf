// How a fuzz body handles a failed check: it reports it and aborts.
#ifndef ZEPH_FUZZ_SUPPORT_REQUIRE_H
#define ZEPH_FUZZ_SUPPORT_REQUIRE_H

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "support/bits.h"

namespace zeph::fuzz {

/// The current input, where the caller names it.
inline std::string& CurrentInput() {
  static std::string name;
  return name;
}

[[noreturn]] inline void Broken(const char* promise, const std::string& how = "") {
  std::fprintf(stderr, "broken promise: %s%s%s\n", promise, how.empty() ? "" : ": ", how.c_str());
  if (!CurrentInput().empty()) std::fprintf(stderr, "input: %s\n", CurrentInput().c_str());
  std::fflush(stderr);
  std::abort();
}

inline void Require(bool kept, const char* promise) {
  if (!kept) Broken(promise);
}

inline void RequireText(const std::string& got, const std::string& want, const char* promise) {
  if (got != want) Broken(promise, "got \"" + got + "\", want \"" + want + "\"");
}

/// Almost every comparison ends here; the sanitizer sees both ranges.
template <class T>
bool Identical(const T* got, const T* want, std::size_t n) {
  return n == 0 || std::memcmp(got, want, n * sizeof *got) == 0;
}

/// For computed numbers: the same bits, where all NaNs are equal.
template <class T>
void RequireValue(T got, T want, const char* promise) {
  if (const auto same = test::SameValue(got, want); !same) Broken(promise, same.message());
}
template <class T>
void RequireValues(const T* got, const T* want, std::size_t n, const char* promise) {
  if (Identical(got, want, n)) return;
  if (const auto same = test::SameValues(got, want, n); !same) Broken(promise, same.message());
}
/// For moved numbers: the same bits, a NaN's included.
template <class T>
void RequireBits(const T* got, const T* want, std::size_t n, const char* promise) {
  if (Identical(got, want, n)) return;
  if (const auto same = test::SameBits(got, want, n); !same) Broken(promise, same.message());
}

}  // namespace zeph::fuzz

/// The one function of a fuzz body; the replaying test program gives each a name of its own.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size);

#endif  // ZEPH_FUZZ_SUPPORT_REQUIRE_H
