// Memory that ends or begins at a page boundary beside inaccessible pages: an access outside ends
// the program. Only where mmap exists: ZEPH_TEST_GUARDED.
#ifndef ZEPH_TESTS_SUPPORT_GUARDED_H
#define ZEPH_TESTS_SUPPORT_GUARDED_H

#if defined(__unix__) && !defined(__EMSCRIPTEN__)
#define ZEPH_TEST_GUARDED 1

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <new>
#include <vector>

namespace zeph::test {

/// Some pages with a forbidden one on either side.
class Guarded {
 public:
  explicit Guarded(std::size_t bytes = 16384) {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    bytes_ = (bytes + page - 1) / page * page;
    all_ = bytes_ + 2 * page;
    void* at = mmap(nullptr, all_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (at == MAP_FAILED) throw std::bad_alloc();
    base_ = static_cast<char*>(at);
    first_ = base_ + page;
    if (mprotect(first_, bytes_, PROT_READ | PROT_WRITE) != 0) throw std::bad_alloc();
  }
  ~Guarded() { munmap(base_, all_); }
  Guarded(const Guarded&) = delete;
  Guarded& operator=(const Guarded&) = delete;

  /// Space for `n` elements adjacent to the inaccessible page after it, or the one before it.
  template <class T>
  T* Room(std::size_t n, bool atEnd) const {
    return reinterpret_cast<T*>(atEnd ? first_ + bytes_ - n * sizeof(T) : first_);
  }
  template <class T>
  T* Copy(const std::vector<T>& v, bool atEnd) const {
    T* to = Room<T>(v.size(), atEnd);
    std::copy(v.begin(), v.end(), to);
    return to;
  }

 private:
  std::size_t bytes_, all_;
  char *base_, *first_;
};

}  // namespace zeph::test

#endif
#endif  // ZEPH_TESTS_SUPPORT_GUARDED_H
