#include "support/watched_call.h"

#include <cstdint>
#include <cstring>

#if defined(__x86_64__) || defined(__i386__)
#include <xmmintrin.h>
#endif

#if defined(_WIN64) && defined(__x86_64__) && defined(__GNUC__)
#define ZEPH_WATCH_REGISTERS 1
// (work, argument, values of xmm6 to xmm15 before, the same after, shift)
extern "C" void zeph_watched_call(void (*)(const void*), const void*, const void*, void*,
                                  std::size_t);
asm(R"(
  .text
  .globl zeph_watched_call
zeph_watched_call:
  pushq %rbp
  movq %rsp, %rbp
  pushq %rbx
  pushq %rsi
  pushq %rdi
  subq $168, %rsp
  movups %xmm6, (%rsp)
  movups %xmm7, 16(%rsp)
  movups %xmm8, 32(%rsp)
  movups %xmm9, 48(%rsp)
  movups %xmm10, 64(%rsp)
  movups %xmm11, 80(%rsp)
  movups %xmm12, 96(%rsp)
  movups %xmm13, 112(%rsp)
  movups %xmm14, 128(%rsp)
  movups %xmm15, 144(%rsp)
  movq %r9, %rbx
  movq %rsp, %rdi
  movups (%r8), %xmm6
  movups 16(%r8), %xmm7
  movups 32(%r8), %xmm8
  movups 48(%r8), %xmm9
  movups 64(%r8), %xmm10
  movups 80(%r8), %xmm11
  movups 96(%r8), %xmm12
  movups 112(%r8), %xmm13
  movups 128(%r8), %xmm14
  movups 144(%r8), %xmm15
  movq %rcx, %rax
  movq %rdx, %rcx
  subq 48(%rbp), %rsp
  subq $32, %rsp
  call *%rax
  movq %rdi, %rsp
  movups %xmm6, (%rbx)
  movups %xmm7, 16(%rbx)
  movups %xmm8, 32(%rbx)
  movups %xmm9, 48(%rbx)
  movups %xmm10, 64(%rbx)
  movups %xmm11, 80(%rbx)
  movups %xmm12, 96(%rbx)
  movups %xmm13, 112(%rbx)
  movups %xmm14, 128(%rbx)
  movups %xmm15, 144(%rbx)
  movups (%rsp), %xmm6
  movups 16(%rsp), %xmm7
  movups 32(%rsp), %xmm8
  movups 48(%rsp), %xmm9
  movups 64(%rsp), %xmm10
  movups 80(%rsp), %xmm11
  movups 96(%rsp), %xmm12
  movups 112(%rsp), %xmm13
  movups 128(%rsp), %xmm14
  movups 144(%rsp), %xmm15
  leaq -24(%rbp), %rsp
  popq %rdi
  popq %rsi
  popq %rbx
  popq %rbp
  ret
)");
#else
#define ZEPH_WATCH_REGISTERS 0
#endif

namespace zeph::test {
namespace {

/// Rounding, masks, flush to zero and denormals as zero of both units; no status flags.
std::uint32_t ControlBits() {
#if defined(__x86_64__) || defined(__i386__)
  std::uint16_t x87 = 0;
  asm volatile("fnstcw %0" : "=m"(x87));
  return (static_cast<std::uint32_t>(x87) << 16) | (_mm_getcsr() & 0xffc0u);
#else
  return 0;
#endif
}

void Run(const void* work) {
  (*static_cast<const std::function<void()>*>(work))();
}

#if ZEPH_WATCH_REGISTERS
bool RegistersKept(const std::function<void()>& work, std::size_t shift) {
  double before[20], after[20];
  for (int i = 0; i < 20; ++i) before[i] = 1000.5 + i;
  zeph_watched_call(Run, &work, before, after, shift);
  return std::memcmp(before, after, sizeof before) == 0;
}
#else
bool RegistersKept(const std::function<void()>& work, std::size_t shift) {
  volatile char* below = static_cast<volatile char*>(__builtin_alloca(shift + 1));
  below[0] = 0;
  Run(&work);
  return true;
}
#endif

}  // namespace

const char* WatchedCall(const std::function<void()>& work, std::size_t shift) {
  const std::uint32_t before = ControlBits();
  if (!RegistersKept(work, shift)) return "xmm6 to xmm15 are not as they were";
  return ControlBits() == before ? "" : "a floating-point control word is not as it was";
}

}  // namespace zeph::test
