// life_child CASE: a process in which the library has threads ends, forks and so on.
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <thread>

#include "parallel/work.h"
#include "support/scale.h"

#ifndef _WIN32
#include <pthread.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

using namespace zeph::test;

namespace {

/// Whether the process has `threads` threads, or the system does not say. It may list a thread for
/// a moment after it was joined.
bool IsOrUnknown(int threads) {
  int there = ThreadsOfTheProcess();
  for (int tries = 0; there > threads && tries < 1000; ++tries) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    there = ThreadsOfTheProcess();
  }
  return there == threads || there < 0;
}

void Counts() {
  Work work;
  Say(work.Right() && IsOrUnknown(1), "nobody has asked, and there is no thread");
  ZEPH_SetThreads(4);
  Say(IsOrUnknown(1), "asking starts nothing");
  Say(work.Right() && IsOrUnknown(4), "work starts what was asked for");
  ZEPH_SetThreads(2);
  Say(work.Right() && IsOrUnknown(4), "they are kept");
  ZEPH_SetThreads(1);
  Say(work.Right() && IsOrUnknown(1), "one ends them");
  {
    const ZEPH_ThreadScope scope(3);
    Say(work.Right() && IsOrUnknown(3), "a scope has its own");
  }
  ZEPH_SetThreads(1);
  Say(IsOrUnknown(1), "and they end too");
}

/// The first request of the process is a scope's.
void ScopeFirst() {
  Work work;
  {
    const ZEPH_ThreadScope one(1);
    Say(work.Right() && ZEPH_GetThreads() == 1 && IsOrUnknown(1), "a scope of one thread");
  }
  {
    const ZEPH_ThreadScope scope(3);
    Say(ZEPH_GetThreads() == 3, "a scope's number");
    Say(work.Right() && IsOrUnknown(3), "a scope's work starts what it asked for");
    int elsewhere = 0;
    std::thread([&elsewhere] { elsewhere = ZEPH_GetThreads(); }).join();
    Say(elsewhere == 1, "other threads' number");
  }
  Say(work.Right() && ZEPH_GetThreads() == 1, "after the scope");
}

#ifdef __linux__
/// The address space of the process in MiB, 0 where the system does not say.
long AddressSpace() {
  long pages = 0;
  if (std::FILE* const file = std::fopen("/proc/self/statm", "r")) {
    if (std::fscanf(file, "%ld", &pages) != 1) pages = 0;
    std::fclose(file);
  }
  return pages / 1024 * (sysconf(_SC_PAGESIZE) / 1024);
}

/// A thread that has ended and was not joined keeps its stack, 8 MiB as a rule.
void StartAndEndOften() {
  Work work;
  const auto round = [&work] {
    ZEPH_SetThreads(4);
    const bool right = work.Right();
    ZEPH_SetThreads(1);
    return right;
  };
  bool right = round();
  const long before = AddressSpace();
  for (int k = 0; k < Scaled(100, 60); ++k) right = round() && right;
  Say(right && AddressSpace() - before < 300, "nothing is left of threads that have ended");
}
#endif

/// The processor time of the process, of all its threads, in seconds.
double ProcessorTime() {
  return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// A thread that looked out for work instead of sleeping would take all of the processor time that there is. On a busy
/// machine a call may be over before any has woken; so there are several.
void Idle() {
  Work work;
  ZEPH_SetThreads(4);
  bool right = true;
  double taken = 0;
  for (int k = 0; k < 10; ++k) {
    for (int times = 0; times < 20; ++times) right = work.Right() && right;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const double before = ProcessorTime();
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    taken += ProcessorTime() - before;
  }
  Say(right && taken < 0.1, "threads without work sleep");
}

/// The process ends with sleeping threads, or with threads at work for another thread.
void EndLive() {
  ZEPH_SetThreads(4);
  static Work work;
  Say(work.Right(), "live");
}

void EndElsewhere() {
  ZEPH_SetThreads(4);
  static Work& work = *new Work;  // outlives the static objects
  Say(work.Right(), "exit on another thread");
  std::thread([] { std::exit(0); }).detach();
  for (;;)
    if (!work.Right()) std::abort();
}

/// Destroyed after main, before or after the library's own objects.
struct Late {
  explicit Late(const char* name) : name_(name) {}
  ~Late() {
    if (used) Say(work_.Right(), name_);
  }
  static bool used;
  const char* name_;
  Work work_;
};
bool Late::used = false;

int threadsBefore = -1;  // or not to be asked about
#ifdef __ELF__
/// Runs when all static objects of the program are gone.
Work* last = nullptr;
__attribute__((destructor)) void AtTheVeryEnd() {
  if (!last) return;
  const bool right = last->Right();
  Say(right && (threadsBefore < 0 || IsOrUnknown(threadsBefore)), "the program's end");
}
#endif

void StaticObjects() {
  Late::used = true;
#ifdef __ELF__
  last = new Work;
#endif
  ZEPH_SetThreads(3);
  static Late after("an object that was made before the threads");
  Say(Work().Right(), "main");
  static Late before("an object that was made behind them");
}

/// Where the library is part of the program, its threads are gone before the program's end.
void StaticLibrary() {
  threadsBefore = ThreadsOfTheProcess();
  StaticObjects();
}

#ifndef _WIN32
int ChildStatus(pid_t child) {
  int status = -1;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// What the child of a fork observes and does; its findings are the bits of its status.
int InChild(Work& work, bool ask) {
  int wrong = ZEPH_GetThreads() == 1 ? 0 : 1;
  if (!work.Right() || !IsOrUnknown(1)) wrong |= 2;
  if (!ask) return wrong;
  { const ZEPH_ThreadScope scope(3); }
  if (ZEPH_GetThreads() != 1) wrong |= 32;
  ZEPH_SetThreads(3);
  if (!work.Right() || !IsOrUnknown(3)) wrong |= 4;
  ZEPH_SetThreads(1);
  if (!IsOrUnknown(1)) wrong |= 8;
  ZEPH_SetThreads(2);  // and leaves them running
  if (!work.Right()) wrong |= 16;
  return wrong;
}

void Fork() {
  Work work;
  ZEPH_SetThreads(4);
  const pid_t early = fork();
  if (early == 0) _exit(InChild(work, false));
  Say(ChildStatus(early) == 0, "child before there was work");
  Say(work.Right(), "parent before");
  for (const bool ask : {false, true}) {
    const pid_t child = fork();
    if (child == 0) std::exit(InChild(work, ask));
    Say(ChildStatus(child) == 0, ask ? "child that asks again" : "child");
  }
  {
    const ZEPH_ThreadScope scope(3);
    const pid_t child = fork();
    if (child == 0) _exit(InChild(work, false));
    Say(ChildStatus(child) == 0, "child of a scope");
  }
  Say(work.Right() && ZEPH_GetThreads() == 4, "parent after");
}

void ForkAtWork() {
  ZEPH_SetThreads(4);
  std::atomic<bool> stop{false}, good{true};
  std::thread others[2];
  for (auto& other : others)
    other = std::thread([&] {
      Work mine;
      while (!stop)
        if (!mine.Right()) good = false;
    });
  Work work;
  bool children = true;
  for (int k = 0; k < 40; ++k) {
    const pid_t child = fork();
    if (child == 0) std::exit(InChild(work, k % 2 == 1));
    children = ChildStatus(child) == 0 && children;
  }
  stop = true;
  for (auto& other : others) other.join();
  Say(children, "children");
  Say(good, "the parent's calls");
}

/// Forks while another thread ends the library's threads and starts new ones.
void ForkAtEnds() {
  std::atomic<bool> stop{false}, good{true};
  std::thread other([&] {
    Work mine;
    while (!stop) {
      ZEPH_SetThreads(8);
      if (!mine.Right()) good = false;
      ZEPH_SetThreads(1);
    }
  });
  Work work;
  bool children = true;
  for (int k = 0; k < 60 && children; ++k) {
    const pid_t child = fork();
    if (child == 0) {
      alarm(20);
      std::exit(InChild(work, true) & ~1);
    }
    children = ChildStatus(child) == 0;
  }
  stop = true;
  other.join();
  Say(children, "children");
  Say(good, "the parent's calls");
}

/// Forks while another thread asks for threads for the first time in the process.
void ForkAtFirst() {
  std::atomic<bool> ready{false}, go{false};
  std::thread other([&] {
    ready = true;
    while (!go) {
    }
    ZEPH_SetThreads(8);
  });
  while (!ready) std::this_thread::yield();
  go = true;
  const std::chrono::steady_clock::time_point now = std::chrono::steady_clock::now();
  const std::chrono::microseconds some(getpid() % 8);
  while (std::chrono::steady_clock::now() - now < some) {
  }
  const pid_t child = fork();
  if (child == 0) {
    alarm(20);
    ZEPH_SetThreads(4);
    _exit(0);
  }
  const bool usable = ChildStatus(child) == 0;
  other.join();
  Say(usable, "child of the first request");
}

pthread_t handler;
volatile sig_atomic_t handled = 0;

void Signals() {
  Work work;
  sigset_t set, before;
  sigemptyset(&set);
  sigaddset(&set, SIGUSR1);
  struct sigaction action {};
  action.sa_handler = [](int) { handler = pthread_self(), handled = 1; };
  sigaction(SIGUSR1, &action, nullptr);
  ZEPH_SetThreads(4);
  Say(work.Right(), "signals");
  pthread_sigmask(SIG_BLOCK, &set, &before);
  kill(getpid(), SIGUSR1);
  Say(work.Right() && !handled, "none of the library's threads takes one");
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  Say(handled && pthread_equal(handler, pthread_self()), "the program's own does");
}

/// A cancelled thread reaches this point when its call is over.
void Cancel() {
  ZEPH_SetThreads(4);
  for (int k = 0; k < 50; ++k) {
    std::atomic<bool> begun{false};
    std::thread other([&begun] {
      Work work;
      begun = true;
      for (int times = 0; times < 1000; ++times) {
        if (!work.Right()) std::abort();
        pthread_testcancel();
      }
    });
    while (!begun) std::this_thread::yield();
    pthread_cancel(other.native_handle());
    other.join();
  }
  Say(Work().Right(), "cancelled between calls");
}

/// A thread that is to be cancelled ends the workers first: half an end would leave all later calls without any.
void CancelAtEnds() {
  for (int k = 0; k < 20; ++k) {
    ZEPH_SetThreads(4);
    if (!Work().Right()) std::abort();
    std::atomic<bool> ended{false};
    std::thread other([&ended] {
      pthread_cancel(pthread_self());
      ZEPH_SetThreads(1);
      ended = true;
      pthread_testcancel();
    });
    other.join();
    if (!ended) std::_Exit(3);  // before the program's end would wait for what is left of it
  }
  Say(Work().Right(), "cancelled at ends");
}
#endif

struct Case {
  const char* name;
  void (*run)();
};
const Case kCases[] = {
    {"counts", Counts},
    {"scope first", ScopeFirst},
#ifdef __linux__
    {"often", StartAndEndOften},
#endif
    {"idle", Idle},
    {"live", EndLive},
    {"elsewhere", EndElsewhere},
    {"static", StaticObjects},
    {"static library", StaticLibrary},
#ifndef _WIN32
    {"fork", Fork},
    {"fork at work", ForkAtWork},
    {"fork at ends", ForkAtEnds},
    {"fork at first", ForkAtFirst},
    {"signals", Signals},
    {"cancel", Cancel},
    {"cancel at ends", CancelAtEnds},
#endif
};

Late early("an object of the program, the first of all");

}  // namespace

int main(int argc, char** argv) {
  for (const Case& one : kCases)
    if (argc == 2 && std::strcmp(argv[1], one.name) == 0) return one.run(), 0;
  return 2;
}
