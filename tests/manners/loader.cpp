// loader PLUGIN LIBRARY CASE: loads and unloads the plug-in, which brings the library along.
//
// This program is not linked to the library. It prints its findings, one a line.
#include "manners/loader.h"

#include <cfenv>
#include <chrono>
#include <clocale>
#include <condition_variable>
#include <mutex>
#include <thread>

#ifdef __GLIBC__
#include <malloc.h>
#endif
#if defined(__SSE2__)
#include <xmmintrin.h>
#endif

using namespace zeph::test;

namespace {

constexpr int kTimes = 200;
constexpr int kFirst = 20;  // after these the loader has allocated what it keeps

/// Bytes in use on the heap; 0 where the runtime does not say.
std::size_t HeapInUse() {
#ifdef __GLIBC__
#if __GLIBC_PREREQ(2, 33)
  return mallinfo2().uordblks;
#endif
#endif
  return 0;
}

/// Whether the library is still loaded, after the time that Windows needs to end its threads.
bool Stays(const char* library) {
#ifdef _WIN32
  for (int tries = 0; tries < 50 && IsLoaded(library); ++tries)
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
#endif
  return IsLoaded(library);
}

int Repeat(const char* plugin, const char* library, const char* function, int times = kTimes) {
  std::size_t before = 0;
  int stayed = 0, wrong = 0;
  for (int i = 0; i < kFirst + times; ++i) {
    if (i == kFirst) before = HeapInUse();
    {
      const Plugin loaded(plugin);
      if (!loaded.Loaded() || !IsLoaded(library)) return 2;
      if (function && loaded.Call(function) != 1) ++wrong;
    }
    stayed += Stays(library);
  }
  std::printf("stayed %d, wrong %d, grew %ld\n", stayed, wrong,
              static_cast<long>(HeapInUse()) - static_cast<long>(before));
  return 0;
}

/// A thread that has used the library outlives it.
int OutlivedByAThread(const char* plugin, const char* library) {
  std::mutex mutex;
  std::condition_variable changed;
  bool used = false, gone = false;
  std::thread other;
  {
    const Plugin loaded(plugin);
    other = std::thread([&] {
      if (loaded.Call("UseThreadData") != 1) std::printf("wrong\n");
      std::unique_lock<std::mutex> lock(mutex);
      used = true;
      changed.notify_all();
      changed.wait(lock, [&] { return gone; });
    });
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [&] { return used; });
  }
  std::printf("stayed %d\n", IsLoaded(library));
  {
    const std::lock_guard<std::mutex> lock(mutex);
    gone = true;
  }
  changed.notify_all();
  other.join();
  std::printf("the thread has ended\n");
  return 0;
}

/// The rounding direction, the control registers, and the locale. Of the exception flags only those
/// of errors: results may be inexact, denormal or underflow.
std::string Environment() {
  unsigned sse = 0, x87 = 0;
#if defined(__SSE2__)
  sse = _mm_getcsr() & ~0x32u;
#endif
#if defined(__i386__) || defined(__x86_64__)
  unsigned short control = 0;
  __asm__ volatile("fnstcw %0" : "=m"(control));
  x87 = control;
#endif
  return std::to_string(std::fegetround()) + " " +
         std::to_string(std::fetestexcept(FE_INVALID | FE_DIVBYZERO | FE_OVERFLOW)) + " " +
         std::to_string(sse) + " " + std::to_string(x87) + " " + std::setlocale(LC_ALL, nullptr);
}

int KeepsTheEnvironment(const char* plugin, int rounding) {
  std::setlocale(LC_ALL, "");
  std::fesetround(rounding);
  const std::string before = Environment();
  std::string loading, using_, unloading;
  {
    const Plugin loaded(plugin);
    loading = Environment();
    loaded.Call("Use");
    using_ = Environment();
  }
  unloading = Environment();
  std::printf("loading %d, using %d, unloading %d\n", loading != before, using_ != before,
              unloading != before);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const std::string wanted = argv[3];
  if (wanted == "unused") return Repeat(argv[1], argv[2], nullptr);
  if (wanted == "used") return Repeat(argv[1], argv[2], "Use");
  if (wanted == "thread data") return Repeat(argv[1], argv[2], "UseThreadData");
  if (wanted == "threads") return Repeat(argv[1], argv[2], "UseThreads", 20);
  if (wanted == "outlived") return OutlivedByAThread(argv[1], argv[2]);
  if (wanted == "nearest") return KeepsTheEnvironment(argv[1], FE_TONEAREST);
  if (wanted == "upward") return KeepsTheEnvironment(argv[1], FE_UPWARD);
  return 2;
}
