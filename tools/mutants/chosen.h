// Included before every mutated text: which mutant runs, and which sites were reached.
#ifndef ZEPH_TOOLS_MUTANTS_CHOSEN_H
#define ZEPH_TOOLS_MUTANTS_CHOSEN_H

namespace zeph_mutants {

extern int chosen;     // 0: none
extern bool* reached;  // by the number of a site's first form

[[gnu::always_inline]] inline bool At(int first, int count) {
  reached[first] = true;
  return static_cast<unsigned>(chosen - first) < static_cast<unsigned>(count);
}

/// In constexpr functions, which have no mistakes where their values are needed while compiling. Apart from the
/// other, by which no `const int` is known while compiling.
[[gnu::always_inline]] constexpr bool AtRunTime(int first, int count) {
  if (__builtin_is_constant_evaluated()) return false;
  return At(first, count);
}

}  // namespace zeph_mutants

#endif  // ZEPH_TOOLS_MUTANTS_CHOSEN_H
