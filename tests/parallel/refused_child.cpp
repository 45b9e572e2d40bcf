// A process that cannot create threads: the function that creates one is replaced here and always
// fails.
#include "parallel/work.h"

#ifndef _WIN32
#include <errno.h>
#include <pthread.h>

static int asked = 0;

extern "C" int pthread_create(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*) noexcept {
  ++asked;
  return EAGAIN;
}
#endif

using namespace zeph::test;

int main() {
  Work work;
#ifndef _WIN32
  ZEPH_SetThreads(4);
  Say(work.Right() && asked == 1, "the caller does the work");
  Say(work.Right() && asked == 1, "the system is not pestered");
  ZEPH_SetThreads(3);
  Say(work.Right() && asked == 2, "but asked again by a new request");
  Say(ThreadsOfTheProcess() <= 1, "there is no thread");
#endif
  return 0;
}
