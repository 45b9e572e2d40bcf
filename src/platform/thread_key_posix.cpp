// SPDX-License-Identifier: MIT
#ifndef _WIN32

#include <pthread.h>

#include "platform/thread_key.h"

namespace zeph::platform {
namespace {
pthread_key_t key;
}

bool OpenThreadKey(void (*atThreadEnd)(void*)) {
  return pthread_key_create(&key, atThreadEnd) == 0;
}

void CloseThreadKey() {
  pthread_key_delete(key);
}

void* ThreadValue() {
  return pthread_getspecific(key);
}

bool SetThreadValue(void* value) {
  return pthread_setspecific(key, value) == 0;
}

}  // namespace zeph::platform

#endif  // _WIN32
