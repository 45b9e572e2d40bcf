// Address space of any size that takes little memory: the same pages again and again. What is written to one place
// stands in every other of the same offset.
#ifndef ZEPH_TESTS_SUPPORT_REPEATED_PAGES_H
#define ZEPH_TESTS_SUPPORT_REPEATED_PAGES_H

#if defined(__linux__) && defined(__GLIBC__) && defined(__LP64__)
#define ZEPH_TEST_REPEATED_PAGES 1

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>

namespace zeph::test {

class RepeatedPages {
 public:
  explicit RepeatedPages(std::size_t bytes) : bytes_((bytes + kPiece - 1) / kPiece * kPiece) {
    void* const all =
        mmap(nullptr, bytes_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (all == MAP_FAILED) return;
    first_ = static_cast<char*>(all);
    const int file = memfd_create("repeated", 0);
    good_ = file >= 0 && ftruncate(file, kPiece) == 0;
    for (std::size_t at = 0; at < bytes_ && good_; at += kPiece)
      good_ = mmap(first_ + at, kPiece, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, file, 0) !=
              MAP_FAILED;
    if (file >= 0) close(file);
  }
  ~RepeatedPages() {
    if (first_) munmap(first_, bytes_);
  }
  RepeatedPages(const RepeatedPages&) = delete;
  RepeatedPages& operator=(const RepeatedPages&) = delete;
  /// Null where the system grants none.
  void* Begin() const { return good_ ? first_ : nullptr; }

 private:
  static constexpr std::size_t kPiece = std::size_t{1} << 21;
  std::size_t bytes_;
  char* first_ = nullptr;
  bool good_ = false;
};

}  // namespace zeph::test

#endif
#endif  // ZEPH_TESTS_SUPPORT_REPEATED_PAGES_H
