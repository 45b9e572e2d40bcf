// SPDX-License-Identifier: MIT
//
// Text composed in a local block and handed on a block at a time.
#ifndef ZEPH_SRC_PLATFORM_BLOCK_WRITER_H
#define ZEPH_SRC_PLATFORM_BLOCK_WRITER_H

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstring>

#include "platform.h"
#include "platform/format_number.h"

namespace zeph::platform {

/// Writes to a C stream; its errors are the stream's.
struct StreamSink {
  std::FILE* stream;
  void operator()(const char* text, std::size_t size) const { std::fwrite(text, 1, size, stream); }
};

/// Appends to a string; an exception of its growth passes.
struct StringSink {
  CString& text;
  void operator()(const char* block, std::size_t) const { text += block; }
};

/// What printf's %s prints.
inline const char* TextOrNull(const char* text) {
  return text ? text : "(null)";
}

/// Collects text and gives it to `sink(text, size)` in blocks, each closed by a zero. The caller
/// ends with Flush.
template <class Sink>
class BlockWriter {
 public:
  explicit BlockWriter(Sink sink) : sink_(sink) {}

  void Text(const char* text, std::size_t size) {
    while (size > 0) {
      const std::size_t piece = std::min(size, Room(1));
      std::memcpy(block_ + used_, text, piece);
      used_ += piece;
      text += piece;
      size -= piece;
    }
  }
  void Text(const char* text) { Text(text, std::strlen(text)); }
  void Blanks(int count) {
    for (int i = 0; i < count; ++i) Text(" ", 1);
  }
  void Int(int value, int width = 0) {
    Room(kIntRoom);
    used_ = At(WriteInt(block_ + used_, value, width));
  }
  void Real(const RealFormat& format, double x) {
    Room(RealFormat::kRoom);
    used_ = At(format.Write(block_ + used_, x));
  }
  /// Right-aligned in at least `width` characters.
  void Real(const RealFormat& format, double x, std::size_t width) {
    Room(std::max(RealFormat::kRoom, width));
    char* const text = block_ + used_;
    const auto size = static_cast<std::size_t>(format.Write(text, x) - text);
    const std::size_t blanks = width > size ? width - size : 0;
    std::memmove(text + blanks, text, size);
    std::memset(text, ' ', blanks);
    used_ += blanks + size;
  }
  void Flush() {
    block_[used_] = '\0';
    if (used_ > 0) sink_(block_, used_);
    used_ = 0;
  }

 private:
  static constexpr std::size_t kBlock = 8192;

  std::size_t At(const char* p) const { return static_cast<std::size_t>(p - block_); }

  /// Room for at least `wanted` characters, flushing if need be; gives how many there are.
  std::size_t Room(std::size_t wanted) {
    if (kBlock - used_ < wanted) Flush();
    return kBlock - used_;
  }

  Sink sink_;
  std::size_t used_ = 0;
  char block_[kBlock + 1];
};

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_BLOCK_WRITER_H
