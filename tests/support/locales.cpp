#include "support/locales.h"

#include <locale.h>

#include <clocale>

// glibc 2.36 keeps the path of a locale that newlocale has looked for under LOCPATH. g++'s sanitizers are a shared
// library, which a hidden function does not reach.
#if defined(__ELF__)
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions();
#else
extern "C" const char* __lsan_default_suppressions();
#endif
extern "C" const char* __lsan_default_suppressions() {
  return "leak:argz_add_sep\n";
}

namespace zeph::test {

bool ProcessLocale::Choose(const char* name) {
  return std::setlocale(LC_NUMERIC, name) != nullptr;
}

#ifndef _WIN32

void* ThreadLocale::Choose(const char* name) {
  const locale_t chosen = newlocale(LC_NUMERIC_MASK, name, nullptr);
  if (chosen) uselocale(chosen);
  return chosen;
}

void ThreadLocale::Leave(void* locale) {
  uselocale(LC_GLOBAL_LOCALE);
  if (locale) freelocale(static_cast<locale_t>(locale));
}

#endif

}  // namespace zeph::test
