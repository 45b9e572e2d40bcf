// Included before every source of the mutated tree: which mutant runs, and which sites were
// reached.
#ifndef ZEPH_TOOLS_MUTANTS_CHOSEN_H
#define ZEPH_TOOLS_MUTANTS_CHOSEN_H

#ifdef __cplusplus
namespace zeph_mutants {

extern int chosen;     // 0: none
extern bool* reached;  // by the number of a site's first form

[[gnu::always_inline]] inline bool At(int first, int count) {
  reached[first] = true;
  return static_cast<unsigned>(chosen - first) < static_cast<unsigned>(count);
}

}  // namespace zeph_mutants

#define ZEPH_AT(first, count) ::zeph_mutants::At(first, count)
#define ZEPH_IS(number) (::zeph_mutants::chosen == (number))
#endif

#endif  // ZEPH_TOOLS_MUTANTS_CHOSEN_H
