// SPDX-License-Identifier: MIT
//
// The library's one thread key: a pointer per thread, null until the thread sets it.
#ifndef ZEPH_SRC_PLATFORM_THREAD_KEY_H
#define ZEPH_SRC_PLATFORM_THREAD_KEY_H

namespace zeph::platform {

/// Creates the key; false if the system has none left. While it exists, `atThreadEnd` is called
/// with the pointer of each thread that ends, unless it is null.
bool OpenThreadKey(void (*atThreadEnd)(void*));

/// Releases the key. On some systems that calls `atThreadEnd` with the pointers of all threads.
void CloseThreadKey();

void* ThreadValue();

/// False if the system has no memory for it.
bool SetThreadValue(void* value);

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_THREAD_KEY_H
