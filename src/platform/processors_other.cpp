// SPDX-License-Identifier: MIT
#ifndef __linux__

#include "platform/processors.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace zeph::platform {

int ProcessorsPaidFor(const char*, const char*) {
  return 0;
}

bool Spread::Take() {
  return true;
}
void Spread::LetOthersRun() {}
void Spread::Settle() {}

int UsableProcessors() {
#ifdef _WIN32
  DWORD_PTR process = 0, system = 0;
  int processors = 0;
  GetProcessAffinityMask(GetCurrentProcess(), &process, &system);
  for (; process; process &= process - 1) ++processors;
  if (processors) return processors;
  SYSTEM_INFO info;  // the process has threads in several processor groups
  GetSystemInfo(&info);
  return static_cast<int>(info.dwNumberOfProcessors);
#else
  const long processors = sysconf(_SC_NPROCESSORS_ONLN);
  return processors > 1 ? static_cast<int>(processors) : 1;
#endif
}

}  // namespace zeph::platform

#endif  // __linux__
