// SPDX-License-Identifier: MIT
//
// Data that a thread owns inside the library.
//
// A `thread_local` object with a destructor would keep the library from being unloaded as long as
// its thread lives. These objects do not: each is destroyed when its thread ends or when the
// library is unloaded, whichever comes first.
#ifndef ZEPH_SRC_PLATFORM_THREAD_DATA_H
#define ZEPH_SRC_PLATFORM_THREAD_DATA_H

namespace zeph::platform {

struct ThreadData {
  virtual ~ThreadData() = default;
  ThreadData* next = nullptr;  // for the list of all threads' data
};

/// The calling thread's object; `make` creates it at the thread's first call and may return null.
///
/// Returns null when `make` returned null, the system is out of thread keys, or the library has
/// been shut down. All calls pass the same `make`.
ThreadData* MyThreadData(ThreadData* (*make)());

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_THREAD_DATA_H
