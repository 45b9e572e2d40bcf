// SPDX-License-Identifier: MIT
//
// The number of the running mutant, from ZEPH_MUTANT, and the table of reached sites: the file
// named by ZEPH_MUTANT_REACHED is shared with the programs that a test starts.
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>

namespace zeph_mutants {

constexpr int kMost = 1 << 16;
static bool unread[kMost];
int chosen = 0;
bool* reached = unread;

// Before every other initialisation: the library's own may hold mutants.
[[gnu::constructor(101)]] static void Start() {
  if (const char* number = std::getenv("ZEPH_MUTANT")) chosen = std::atoi(number);
  const char* path = std::getenv("ZEPH_MUTANT_REACHED");
  if (!path) return;
  const int file = open(path, O_RDWR);
  void* table = mmap(nullptr, kMost, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
  if (table == MAP_FAILED) std::abort();
  reached = static_cast<bool*>(table);
  close(file);
}

}  // namespace zeph_mutants
