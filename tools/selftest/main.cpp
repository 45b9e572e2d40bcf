// SPDX-License-Identifier: MIT
//
// zeph-selftest: a fixed workload over every numeric operation, one digest per subsystem, compared
// with the digests that every supported machine gives.
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "algorithms.h"
#include "expected.h"
#include "parallel.h"
#include "platform.h"
#include "report.h"

#ifdef ZEPH_STATIC
#include "kernels/table.h"
#endif

namespace zeph::selftest {
namespace {

struct Subsystem {
  const char* name;
  void (*run)(Report&);
};
constexpr Subsystem kSubsystems[] = {
    {"double_array", RunDoubleArray},
    {"raw_buffers", RunRawBuffers},
    {"linalg", RunLinalg},
    {"graphics", RunGraphics},
    {"containers", RunContainers},
    {"algorithms", RunAlgorithms},
    {"large", RunLarge},
};

struct Line {
  Rests rests;
  const char* suffix;
};
constexpr Line kLines[] = {{Rests::kExact, ""},
                           {Rests::kFunctions, ": sine, logarithm"},
                           {Rests::kTexts, ": texts"},
                           {Rests::kRandom, ": random numbers"}};

std::uint64_t ExpectedOf(const std::string& name) {
  for (const Expected& expected : kExpected)
    if (name == expected.line) return ZEPH_MathIsPortable() ? expected.portable : expected.digest;
  return 0;
}

/// Whether the line must match on every machine.
bool Decides(Rests rests) {
  return rests == Rests::kExact || ZEPH_MathIsPortable();
}

const char* Verdict(Rests rests, bool matches) {
  if (Decides(rests)) return matches ? "ok" : "DIFFERS";
  return matches ? "runtime-dependent, the same" : "runtime-dependent, another";
}

/// The number of lines that differ from the published ones.
struct Outcome {
  int wrong = 0;  // where they must not
  int other = 0;  // where they depend on the runtime
};

/// Prints the report's lines.
void Print(const Report& report, Outcome& outcome) {
  for (const Line& line : kLines) {
    const Digest total = report.Total(line.rests);
    if (total.Results() == 0) continue;
    const std::string name = report.Subsystem() + line.suffix;
    const bool matches = total.Value() == ExpectedOf(name);
    if (!matches) ++(Decides(line.rests) ? outcome.wrong : outcome.other);
    std::printf("%-32s %9" PRIu64 " results  %016" PRIx64 "  %s\n", name.c_str(), total.Results(),
                total.Value(), Verdict(line.rests, matches));
  }
}

void PrintConclusion(const Outcome& outcome) {
  if (outcome.wrong > 0) {
    std::puts("Results DIFFER from the published ones; please report this machine.");
  } else if (outcome.other > 0) {
    std::printf(
        "Every result of the library's own is the published one, to the last bit. Lines that rest "
        "on\n"
        "your C runtime and give others: %d. Built with ZEPH_PORTABLE_MATH, no line rests on it.\n",
        outcome.other);
  } else {
    std::puts("Every result is the published one, to the last bit.");
  }
}

void PrintOperations(const Report& report) {
  for (const Report::Operation& operation : report.Operations())
    std::printf("  %-40s %9" PRIu64 " results  %016" PRIx64 "\n", operation.name.c_str(),
                operation.digest.Results(), operation.digest.Value());
}

bool ChooseKernels([[maybe_unused]] const char* form) {
#ifdef ZEPH_STATIC
  if (kernels::Force(form)) return true;
#endif
  std::fprintf(stderr, "zeph-selftest: this build cannot run the kernels \"%s\"\n", form);
  return false;
}

int Run(int argc, char** argv) {
  bool operations = false;
  const char* only = nullptr;
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--operations") == 0) {
      operations = true;
    } else if (std::strcmp(argv[i], "--only") == 0 && i + 1 < argc) {
      only = argv[++i];
    } else if (std::strcmp(argv[i], "--kernels") == 0 && i + 1 < argc) {
      if (!ChooseKernels(argv[++i])) return 2;
    } else if (std::strcmp(argv[i], "--threads") == 0 && i + 1 < argc) {
      ZEPH_SetThreads(std::atoi(argv[++i]));
    } else {
      std::fprintf(stderr,
                   "usage: zeph-selftest [--operations] [--only SUBSYSTEM] [--threads N] "
                   "[--kernels portable|avx2|avx512|neon]\n"
                   "  --operations  also prints a digest per operation\n"
                   "  --only        runs one subsystem, such as linalg\n"
                   "  --threads     lets large operations use N threads, 0 for all processors\n"
                   "  --kernels     runs on one form of the inner loops (static builds only)\n"
                   "Status 0: every digest that must match does; 1: one differs; 2: misuse.\n");
      return 2;
    }
  }
  std::printf("ZEPH_PORTABLE_MATH is %s: sine, logarithm, random numbers and texts are %s.\n",
              ZEPH_MathIsPortable() ? "on" : "off",
              ZEPH_MathIsPortable() ? "the library's own" : "the C runtime's");
  if (ZEPH_GetThreads() > 1) std::printf("Up to %d threads.\n", ZEPH_GetThreads());
  Outcome outcome;
  bool ran = false;
  for (const Subsystem& subsystem : kSubsystems) {
    if (only && std::strcmp(only, subsystem.name) != 0) continue;
    ran = true;
    Report report(subsystem.name);
    subsystem.run(report);
    Print(report, outcome);
    if (operations) PrintOperations(report);
  }
  if (!ran) {
    std::fprintf(stderr, "zeph-selftest: there is no subsystem \"%s\"\n", only);
    return 2;
  }
  PrintConclusion(outcome);
  return outcome.wrong == 0 ? 0 : 1;
}

}  // namespace
}  // namespace zeph::selftest

int main(int argc, char** argv) {
  return zeph::selftest::Run(argc, argv);
}
