// How often a listing calls snprintf after the process's first listing was made while rounding
// upward.
#include <cfenv>
#include <cstdarg>
#include <cstdio>

#include "raw_buffers.h"

namespace {
int calls = 0;
}

/// Replaces the runtime's, for the library too.
extern "C" __attribute__((visibility("default"))) int snprintf(char* text, std::size_t room,
                                                               const char* format, ...) {
  ++calls;
  std::va_list arguments;
  va_start(arguments, format);
  const int length = std::vsnprintf(text, room, format, arguments);
  va_end(arguments);
  return length;
}

int main() {
  double values[] = {1.25, -0.5, 1e300};
  char name[] = "x";
  CString listing;
  std::fesetround(FE_UPWARD);
  ZEPH_ArrayDisplay(listing, values, 3, name);
  std::fesetround(FE_TONEAREST);
  ZEPH_ArrayDisplay(listing, values, 3, name);  // may still test how the runtime rounds
  calls = 0;
  ZEPH_ArrayDisplay(listing, values, 3, name);
  std::printf("%d", calls);
  return 0;
}
