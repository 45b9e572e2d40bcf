// SPDX-License-Identifier: MIT
#include "parallel.h"
#include "parallel/settings.h"

using namespace zeph::parallel;

int ZEPH_SetThreads(int n) {
  if (const int threads = Resolve(n)) SetEverybodys(threads);
  return Everybodys();
}

int ZEPH_GetThreads() {
  return ThreadsAsked();
}

int ZEPH_BeginThreadScope(int n) {
  const int threads = Resolve(n);
  if (threads > 1) Ask();
  return threads ? SetOwn(threads) : -1;
}

void ZEPH_EndThreadScope(int before) {
  if (before >= 0) SetOwn(before);
}
