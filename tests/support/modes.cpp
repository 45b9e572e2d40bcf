#include "support/modes.h"

#include <cfenv>
#include <cstdint>

#ifndef ZEPH_TEST_SHARED
#include "kernels/table.h"
#endif

#if defined(__SSE2__)
#include <xmmintrin.h>
#endif

namespace zeph::test {
namespace {

// Exceptions that WebAssembly does not have can be neither raised nor tested.
#if defined(FE_INVALID)
constexpr int kInvalid = FE_INVALID, kByZero = FE_DIVBYZERO, kOverflow = FE_OVERFLOW;
#else
constexpr int kInvalid = 0, kByZero = 0, kOverflow = 0;
#endif
constexpr int kExceptions = kInvalid | kByZero | kOverflow;

// <cfenv> has no switches for denormals.
#if defined(__SSE2__)
constexpr bool kTwoSwitches = true;
void SetDenormals(bool zerosForInputs, bool zerosForResults) {
  constexpr unsigned kInputs = 0x0040, kResults = 0x8000;
  _mm_setcsr((_mm_getcsr() & ~(kInputs | kResults)) | (zerosForInputs ? kInputs : 0) |
             (zerosForResults ? kResults : 0));
}
#elif defined(__aarch64__)
constexpr bool kTwoSwitches = false;
void SetDenormals(bool zerosForInputs, bool) {
  constexpr std::uint64_t kFlushToZero = std::uint64_t{1} << 24;
  std::uint64_t control;
  __asm__ volatile("mrs %0, fpcr" : "=r"(control));
  control = zerosForInputs ? control | kFlushToZero : control & ~kFlushToZero;
  __asm__ volatile("msr fpcr, %0" : : "r"(control));
}
#endif

#if defined(__SSE2__) || defined(__aarch64__)
std::vector<std::pair<bool, bool>> DenormalModes() {
  if (kTwoSwitches) return {{false, false}, {true, false}, {false, true}, {true, true}};
  return {{false, false}, {true, true}};
}
#else
void SetDenormals(bool, bool) {}
std::vector<std::pair<bool, bool>> DenormalModes() {
  return {{false, false}};
}
#endif

/// Sets a mode with no exception raised and restores everything afterwards.
class InMode {
 public:
  InMode(const Mode& mode, bool trapping) {
    rounding_ = std::fegetround();
    std::feholdexcept(&before_);        // disables traps
    std::feclearexcept(FE_ALL_EXCEPT);  // and clears flags: some runtimes do that for the x87 only
    std::fesetround(mode.rounding);
    SetDenormals(mode.zerosForInputs, mode.zerosForResults);
#if defined(__GLIBC__)
    if (trapping) feenableexcept(kExceptions);
#else
    static_cast<void>(trapping);
#endif
  }
  ~InMode() {
    SetDenormals(false, false);
    std::fesetenv(&before_);
    std::fesetround(rounding_);  // MinGW's environment is that of the x87 only
  }
  InMode(const InMode&) = delete;
  InMode& operator=(const InMode&) = delete;
  int Raised() const {
    return std::fetestexcept(kExceptions);
  }

 private:
  std::fenv_t before_;
  int rounding_;
};

}  // namespace

bool HasFloatingPointEnvironment() {
#ifdef FE_DIVBYZERO
  std::feclearexcept(FE_ALL_EXCEPT);
  volatile double x = 0;
  x = 1 / x;
  const bool raised = std::fetestexcept(FE_DIVBYZERO) != 0;
  std::feclearexcept(FE_ALL_EXCEPT);
  return raised;
#else
  return false;
#endif
}

const std::vector<Mode>& Modes() {
  static const std::vector<Mode> modes = [] {
    const std::pair<int, const char*> kDirections[] = {{FE_TONEAREST, "to nearest"},
                                                       {FE_UPWARD, "upward"},
                                                       {FE_DOWNWARD, "downward"},
                                                       {FE_TOWARDZERO, "toward zero"}};
    std::vector<Mode> all;
    for (const auto& [inputs, results] : DenormalModes())
      for (const auto& [rounding, name] : kDirections)
        all.push_back({rounding, inputs, results,
                       std::string(name) + (inputs ? ", denormals are zero" : "") +
                           (results ? ", flushed to zero" : "")});
    return all;
  }();
  return modes;
}

int RaisedBy(const Mode& mode, const std::function<void()>& steps, bool trapping) {
  const InMode inMode(mode, trapping);
  steps();
  return inMode.Raised();
}

std::string ExceptionNames(int raised) {
  std::string names;
  for (const auto& [exception, name] :
       {std::pair{kInvalid, "invalid "}, std::pair{kByZero, "division by zero "},
        std::pair{kOverflow, "overflow "}})
    if (raised & exception) names += name;
  return names;
}

void ForEachForm(const std::function<void(const std::string& name)>& visit) {
#ifdef ZEPH_TEST_SHARED  // where the kernels are hidden
  visit("the form in use");
#else
  const kernels::Table& before = kernels::Active();
  for (const kernels::Table* table : kernels::RunnableTables()) {
    SCOPED_TRACE(table->name);
    kernels::Force(*table);
    visit(table->name);
  }
  kernels::Force(before);
#endif
}

}  // namespace zeph::test
