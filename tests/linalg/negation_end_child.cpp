// Negates where the results that threads keep are just being released or held: after the static objects of the
// library, and between the handlers of a fork.
#include <atomic>
#include <cstdio>
#include <cstring>

#include "linalg.h"

#ifdef __linux__
#include <pthread.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <thread>
#endif

namespace {

bool NegatesRight(int times) {
  for (int k = 1; k <= times; ++k) {
    CZEPHDoubleMatrix a(2, 2, k);
    if ((-a)[1][1] != -k) return false;
  }
  return true;
}

/// Made before the library keeps anything, hence destroyed after that was released.
struct Last {
  bool used = false;
  ~Last() {
    if (used) std::puts(NegatesRight(40) ? "ok: at the end" : "NOT right at the end");
  }
} last;

void AtTheEnd() {
  last.used = NegatesRight(20);
}

#ifdef __linux__
std::atomic<bool> watched{false}, forking{false}, negated{false};

/// Runs last of the handlers before a fork, being the first that was registered.
void BeforeFork() {
  if (!watched) return;
  forking = true;
  const timespec while_others_run = {0, 1'000'000};
  for (int k = 0; k < 100 && !negated; ++k) nanosleep(&while_others_run, nullptr);
  std::puts(negated ? "NOT waited for" : "ok: nobody begins to keep results during a fork");
  std::fflush(stdout);
}

/// Before the library's own are registered, when it is loaded.
void RegisterFirst() {
  pthread_atfork(BeforeFork, nullptr, nullptr);
}
__attribute__((section(".preinit_array"), used)) void (*const first)() = RegisterFirst;

void DuringAFork() {
  watched = true;
  NegatesRight(1);
  std::thread other([] {
    while (!forking) std::this_thread::yield();
    NegatesRight(1);
    negated = true;
  });
  const pid_t child = fork();
  if (child == 0) _exit(0);
  int status = -1;
  waitpid(child, &status, 0);
  other.join();
}
/// Forks while another thread makes the first negation of the process.
void DuringTheFirst() {
  std::atomic<bool> ready{false}, go{false};
  std::thread other([&] {
    CZEPHDoubleMatrix a(1, 1, 2.0);
    ready = true;
    while (!go) {
    }
    static_cast<void>(-a);
  });
  CZEPHDoubleMatrix b(1, 1, 3.0);
  while (!ready) std::this_thread::yield();
  go = true;
  for (std::atomic<int> some{getpid() % 64 * 4}; some > 0;) --some;
  const pid_t child = fork();
  if (child == 0) {
    alarm(20);
    _exit((-b)[0][0] == -3.0 ? 0 : 1);
  }
  int status = -1;
  waitpid(child, &status, 0);
  other.join();
  std::puts(status == 0 ? "ok: child of the first negation" : "NOT usable");
}
#endif

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && std::strcmp(argv[1], "end") == 0) return AtTheEnd(), 0;
#ifdef __linux__
  if (argc == 2 && std::strcmp(argv[1], "fork") == 0) return DuringAFork(), 0;
  if (argc == 2 && std::strcmp(argv[1], "first") == 0) return DuringTheFirst(), 0;
#endif
  return 2;
}
