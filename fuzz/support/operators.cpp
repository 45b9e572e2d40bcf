// Allocation operators for the fuzz programs. The sanitizer's own end the program where a request
// cannot be met; these throw, as the standard's do, and use malloc and free, which the sanitizer
// tracks.
#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

void* Allocate(std::size_t bytes) {
  constexpr std::size_t kMost = std::size_t{1} << 28;
  void* block = bytes <= kMost ? std::malloc(bytes ? bytes : 1) : nullptr;
  if (!block) throw std::bad_alloc();
  return block;
}

}  // namespace

void* operator new(std::size_t bytes) {
  return Allocate(bytes);
}
void* operator new[](std::size_t bytes) {
  return Allocate(bytes);
}
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
  return std::malloc(bytes ? bytes : 1);
}
void* operator new[](std::size_t bytes, const std::nothrow_t&) noexcept {
  return std::malloc(bytes ? bytes : 1);
}
void operator delete(void* block) noexcept {
  std::free(block);
}
void operator delete[](void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  std::free(block);
}
