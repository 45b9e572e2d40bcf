// SPDX-License-Identifier: MIT
//
// zeph_bench: times the library against its peers. `zeph_bench --help` lists the options.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include "kernels/table.h"
#include "report.h"
#include "runner.h"

#ifdef ZEPH_HAVE_OPENBLAS
extern "C" void openblas_set_num_threads(int);
extern "C" char* openblas_get_corename(void);
#ifdef __unix__
#include <unistd.h>
#endif
#endif

namespace {

const char kUsage[] =
    "usage: zeph_bench [--filter TEXT] [--list] [--rounds N] [--seconds S] [--kernels LEVEL]\n"
    "                  [--write FOLDER]\n"
    "  --filter TEXT    only rows whose label family/case/n contains TEXT\n"
    "  --list           print the labels and stop\n"
    "  --rounds N       N repetitions of each contender (7)\n"
    "  --seconds S      about S seconds a row (0.4)\n"
    "  --kernels LEVEL  portable, avx2, avx512 or neon (static library only)\n"
    "  --write FOLDER   also write FOLDER/performance.md and its plots\n"
    "Status 1 when a target was missed or a result differed.\n";

[[noreturn]] void Stop(const char* message, int status) {
  std::fputs(message, status ? stderr : stdout);
  std::exit(status);
}

void ChooseKernels(const char* name) {
#ifdef ZEPH_STATIC
  if (!zeph::kernels::Force(name)) Stop("zeph_bench: this machine has no such kernels\n", 2);
#else
  (void)name;
  Stop("zeph_bench: --kernels needs the static library (-DZEPH_SHARED=OFF)\n", 2);
#endif
}

/// Our AVX2 form is compared with OpenBLAS's. OpenBLAS chooses its form when it is loaded, so the
/// program restarts itself.
void ChooseOpenBlasCore([[maybe_unused]] char** argv) {
#if defined(ZEPH_HAVE_OPENBLAS) && defined(__unix__)
  if (std::strcmp(zeph::kernels::Active().name, "avx2") != 0 || std::getenv("OPENBLAS_CORETYPE"))
    return;
  setenv("OPENBLAS_CORETYPE", "Haswell", 1);
  execv("/proc/self/exe", argv);  // if this fails, the default core is used
#endif
}

void Progress(std::size_t done, std::size_t all, const std::string& label) {
  std::fprintf(stderr, "[%zu/%zu] %s\n", done + 1, all, label.c_str());
}

}  // namespace

int main(int argc, char** argv) {
  zeph::bench::Plan plan;
  std::string folder;
  bool list = false;
  for (int i = 1; i < argc; ++i) {
    const std::string option = argv[i];
    if (option == "--help") Stop(kUsage, 0);
    if (option == "--list") {
      list = true;
      continue;
    }
    if (++i == argc) Stop(kUsage, 2);
    if (option == "--filter")
      plan.filter = argv[i];
    else if (option == "--rounds")
      plan.rounds = std::atoi(argv[i]);
    else if (option == "--seconds")
      plan.seconds = std::atof(argv[i]);
    else if (option == "--kernels")
      ChooseKernels(argv[i]);
    else if (option == "--write")
      folder = argv[i];
    else
      Stop(kUsage, 2);
  }
  ChooseOpenBlasCore(argv);
  if (list) {
    for (const auto& label : zeph::bench::Labels(plan.filter)) std::cout << label << "\n";
    return 0;
  }
  std::cout << "kernels: " << zeph::kernels::Active().name;
#ifdef ZEPH_HAVE_OPENBLAS
  openblas_set_num_threads(1);
  std::cout << ", OpenBLAS: " << openblas_get_corename();
#endif
  std::cout << std::endl;
  const auto rows = zeph::bench::Run(plan, Progress);
  const bool good = zeph::bench::PrintTable(std::cout, rows);
  if (!folder.empty() && !zeph::bench::WritePage(folder, rows))
    Stop("zeph_bench: cannot write the page\n", 2);
  return good ? 0 : 1;
}
