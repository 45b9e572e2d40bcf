// A process that cannot create threads, or only the first two: the function that creates one is replaced here.
#include "parallel/work.h"

#ifndef _WIN32
#include <dlfcn.h>
#include <errno.h>
#include <pthread.h>

static int asked = 0, granted = 0;

extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                              void* (*run)(void*), void* argument) noexcept {
  if (++asked > granted) return EAGAIN;
  const auto create =
      reinterpret_cast<decltype(&pthread_create)>(dlsym(RTLD_NEXT, "pthread_create"));
  return create(thread, attributes, run, argument);
}

#ifdef __GLIBC__
static bool handlersRefused = true;  // when the library is loaded, too

/// What pthread_atfork calls.
extern "C" __attribute__((visibility("default"))) int __register_atfork(void (*before)(),
                                                                        void (*parent)(),
                                                                        void (*child)(),
                                                                        void* module) {
  if (handlersRefused) return ENOMEM;
  using Register = int(void (*)(), void (*)(), void (*)(), void*);
  return reinterpret_cast<Register*>(dlsym(RTLD_NEXT, "__register_atfork"))(before, parent, child,
                                                                            module);
}
#endif
#endif

using namespace zeph::test;

int main() {
  Work work;
#ifdef __GLIBC__
  ZEPH_SetThreads(4);
  Say(work.Right() && asked == 0, "a fork that cannot be prepared for leaves the caller alone");
  handlersRefused = false;
#endif
#ifndef _WIN32
  ZEPH_SetThreads(4);
  Say(work.Right() && asked == 1, "the caller does the work");
  Say(work.Right() && asked == 1, "the system is not pestered");
  ZEPH_SetThreads(3);
  Say(work.Right() && asked == 2, "but asked again by a new request");
  Say(ThreadsOfTheProcess() <= 1, "there is no thread");
  granted = 4;
  ZEPH_SetThreads(9);
  Say(work.Right() && asked == 5, "those that there are do the work with it");
  Say(ThreadsOfTheProcess() == 3 || ThreadsOfTheProcess() < 0, "there are two");
  Say(work.Right() && asked == 5, "and the system is not pestered");
  ZEPH_SetThreads(1);
  granted = 100;
  ZEPH_SetThreads(4);
  Say(work.Right() && asked == 8, "after their end all can be had");
#endif
  return 0;
}
