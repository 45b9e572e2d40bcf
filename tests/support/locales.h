// Locales with other number formats, where the system has them.
#ifndef ZEPH_TESTS_SUPPORT_LOCALES_H
#define ZEPH_TESTS_SUPPORT_LOCALES_H

namespace zeph::test {

/// Systems' names of locales with a decimal comma, and of those whose point has two bytes.
constexpr const char* kCommaLocales[] = {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "German",
                                         "de-DE"};
constexpr const char* kWidePointLocales[] = {"ps_AF.UTF-8", "ps_AF.utf8", "ps_AF"};

/// During its lifetime the first of `names` that the system has is the process's locale for
/// numbers.
class ProcessLocale {
 public:
  template <class Names>
  explicit ProcessLocale(const Names& names) {
    for (const char* name : names)
      if (!found_) found_ = Choose(name);
  }
  ~ProcessLocale() { Choose("C"); }
  ProcessLocale(const ProcessLocale&) = delete;
  ProcessLocale& operator=(const ProcessLocale&) = delete;

  bool Found() const { return found_; }

 private:
  static bool Choose(const char* name);
  bool found_ = false;
};

#ifndef _WIN32  // whose threads have locales by another function, which Wine lacks
/// The same for the numbers of the calling thread alone.
class ThreadLocale {
 public:
  template <class Names>
  explicit ThreadLocale(const Names& names) {
    for (const char* name : names)
      if (!locale_) locale_ = Choose(name);
  }
  ~ThreadLocale() { Leave(locale_); }
  ThreadLocale(const ThreadLocale&) = delete;
  ThreadLocale& operator=(const ThreadLocale&) = delete;

  bool Found() const { return locale_ != nullptr; }

 private:
  static void* Choose(const char* name);
  static void Leave(void* locale);
  void* locale_ = nullptr;
};
#endif

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_LOCALES_H
