// Makes the library's objects a DLL that runs on the form of the kernels named in ZEPH_TEST_KERNELS, so that any
// program can be run on any form. Without a name, or with one that the processor cannot run, the program ends.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <cstdio>
#include <cstdlib>

#include "kernels/table.h"

/// Runs after every initialiser of the DLL, so after the library's own choice.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID) {
  if (reason != DLL_PROCESS_ATTACH) return TRUE;
  const char* wanted = std::getenv("ZEPH_TEST_KERNELS");
  if (wanted && zeph::kernels::Force(wanted)) return TRUE;
  std::fprintf(stderr, "this machine cannot run the kernels \"%s\"\n", wanted ? wanted : "");
  ExitProcess(77);
}
