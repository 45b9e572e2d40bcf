// Ends while another thread is running: that thread's negations must stay valid until the process
// is gone.
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "linalg.h"

namespace {

std::atomic<CZEPHDoubleMatrix*> kept{nullptr};
std::atomic<bool> again{false}, done{false};
std::atomic<int> wrong{0};

void Work() {
  CZEPHDoubleMatrix b(3, 3, 2.0);
  CZEPHDoubleMatrix& first = -b;
  kept = &first;
  while (!again) std::this_thread::yield();
  if (!first.m_ppData || first.m_nRows != 3 || first[2][0] != -2.0) ++wrong;
  for (int i = 0; i < 100; ++i)
    if ((-b)[1][1] != -2.0) ++wrong;
  done = true;
  for (;;) std::this_thread::yield();
}

/// Constructed before the library's first negation, so destroyed after what that registers with
/// exit().
struct Late {
  ~Late() {
    again = true;
    while (!done) std::this_thread::yield();
    std::printf("%d wrong\n", wrong.load());
    std::fflush(stdout);
  }
} late;

}  // namespace

int main() {
  std::thread(Work).detach();
  while (!kept) std::this_thread::yield();
  CZEPHDoubleMatrix mine(2, 2, 1.0);
  -mine;
  std::exit(0);
}
