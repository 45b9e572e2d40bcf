// The library has one module object, constructed when it is loaded.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

#include "frame.h"
#include "support/scale.h"

#if defined(__linux__)
#include <link.h>
#include <sys/uio.h>
#include <unistd.h>
#endif

#if defined(__linux__)

namespace {

struct Search {
  std::uintptr_t virtualTable;
  int found;
};

/// A word of this program's memory, which may hold what nobody wrote: memcheck counts what the system
/// reads as written.
std::uintptr_t WordAt(std::uintptr_t at) {
  std::uintptr_t word = 0;
  const iovec to = {&word, sizeof word}, from = {reinterpret_cast<void*>(at), sizeof word};
  if (process_vm_readv(getpid(), &to, 1, &from, 1, 0) != static_cast<ssize_t>(sizeof word))
    std::memcpy(&word, reinterpret_cast<const void*>(at), sizeof word);
  return word;
}

/// Counts the words of a module's writable data that are the virtual table's address.
int CountIn(dl_phdr_info* module, std::size_t, void* argument) {
  auto& search = *static_cast<Search*>(argument);
  for (int i = 0; i < module->dlpi_phnum; ++i) {
    const auto& part = module->dlpi_phdr[i];
    if (part.p_type != PT_LOAD || !(part.p_flags & PF_W)) continue;
    const std::uintptr_t first = module->dlpi_addr + part.p_vaddr;
    for (std::uintptr_t at = (first + sizeof(void*) - 1) / sizeof(void*) * sizeof(void*);
         at + sizeof(void*) <= first + part.p_memsz; at += sizeof(void*)) {
      const std::uintptr_t word = WordAt(at);
      search.found += word == search.virtualTable;
    }
  }
  return 0;
}

}  // namespace

TEST(ModuleObject, ExistsExactlyOnce) {
#ifdef ZEPH_TEST_SANITIZED
  GTEST_SKIP() << "the search would read the sanitizer's guard zones";
#endif
  const CZEPHDataStructureEngineApp sample;  // on the stack, outside the modules' data
  Search search{0, 0};
  std::memcpy(&search.virtualTable, static_cast<const void*>(&sample), sizeof(void*));
  dl_iterate_phdr(CountIn, &search);
  EXPECT_EQ(search.found, 1);
}

#else

TEST(ModuleObject, ExistsExactlyOnce) {
  GTEST_SKIP() << "the modules' data is not walked on this system";
}

#endif
