// Objects constructed over other bytes, so that a field that a constructor does not set shows.
#ifndef ZEPH_TESTS_SUPPORT_OTHER_BYTES_H
#define ZEPH_TESTS_SUPPORT_OTHER_BYTES_H

#include <cstddef>
#include <cstring>
#include <new>

namespace zeph::test {

/// A `T` made by `make(place)`, with placement new, over bytes of 0x5A.
template <class T>
class OverOtherBytes {
 public:
  template <class Make>
  explicit OverOtherBytes(Make make) {
    // Both called through variables, so that no compiler sees that the old bytes may not be read.
    void* (*volatile fill)(void*, int, std::size_t) = std::memset;
    T* (*volatile call)(void*) = make;
    fill(place_, 0x5A, sizeof place_);
    object_ = call(place_);
  }
  OverOtherBytes() : OverOtherBytes(+[](void* place) { return new (place) T(); }) {}
  OverOtherBytes(const OverOtherBytes&) = delete;
  OverOtherBytes& operator=(const OverOtherBytes&) = delete;
  ~OverOtherBytes() { object_->~T(); }

  T& operator*() { return *object_; }
  T* operator->() { return object_; }

 private:
  alignas(T) unsigned char place_[sizeof(T)];
  T* object_;
};

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_OTHER_BYTES_H
