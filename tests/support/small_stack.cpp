#include "support/small_stack.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <pthread.h>
#endif

namespace zeph::test {
namespace {

#ifdef _WIN32
DWORD WINAPI Call(void* body) {
  (*static_cast<const std::function<void()>*>(body))();
  return 0;
}
#else
void* Call(void* body) {
  (*static_cast<const std::function<void()>*>(body))();
  return nullptr;
}
#endif

}  // namespace

bool RunOnSmallStack(std::size_t bytes, const std::function<void()>& body) {
  void* argument = const_cast<std::function<void()>*>(&body);
#ifdef _WIN32
  HANDLE thread =
      CreateThread(nullptr, bytes, Call, argument, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
  if (!thread) return false;
  WaitForSingleObject(thread, INFINITE);
  CloseHandle(thread);
  return true;
#else
  pthread_attr_t attributes;
  if (pthread_attr_init(&attributes) != 0) return false;
  pthread_t thread;
  const bool runs = pthread_attr_setstacksize(&attributes, bytes) == 0 &&
                    pthread_create(&thread, &attributes, Call, argument) == 0;
  pthread_attr_destroy(&attributes);
  return runs && pthread_join(thread, nullptr) == 0;
#endif
}

}  // namespace zeph::test
