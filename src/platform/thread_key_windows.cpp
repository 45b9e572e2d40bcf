// SPDX-License-Identifier: MIT
#ifdef _WIN32

#ifndef NOMINMAX
#ifndef NOMINMAX
#define NOMINMAX
#endif
#endif
#include <windows.h>

#include "platform/thread_key.h"

namespace zeph::platform {
namespace {

// Fiber-local storage is thread-local storage with a call at the end of the thread.
DWORD key = FLS_OUT_OF_INDEXES;
void (*end)(void*) = nullptr;

void NTAPI AtEnd(void* value) {
  if (value) end(value);
}

}  // namespace

bool OpenThreadKey(void (*atThreadEnd)(void*)) {
  end = atThreadEnd;
  key = FlsAlloc(AtEnd);
  return key != FLS_OUT_OF_INDEXES;
}

void CloseThreadKey() {
  FlsFree(key);
}

void* ThreadValue() {
  return FlsGetValue(key);
}

bool SetThreadValue(void* value) {
  return FlsSetValue(key, value) != 0;
}

}  // namespace zeph::platform

#endif  // _WIN32
