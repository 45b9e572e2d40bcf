// SPDX-License-Identifier: MIT
//
// Text composed in a local block and passed on a block at a time: a listing of millions of short
// pieces costs as many stores, not as many calls.
#ifndef ZEPH_SRC_PLATFORM_BLOCK_WRITER_H
#define ZEPH_SRC_PLATFORM_BLOCK_WRITER_H

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <utility>

#include "platform.h"
#include "platform/format_number.h"

namespace zeph::platform {

/// Writes to a C stream; its errors are the stream's.
struct StreamSink {
  std::FILE* stream;
  void operator()(const char* text, std::size_t size) const { std::fwrite(text, 1, size, stream); }
};

/// Appends to a string; an exception from its growth passes to the caller.
struct StringSink {
  CString& out;
  void operator()(const char* text, std::size_t size) const {
    out.Append(text, static_cast<int>(size));
  }
};

/// The text that printf's %s prints.
inline const char* TextOrNull(const char* text) {
  return text ? text : "(null)";
}

/// Collects text and passes it to `sink(text, size)` in blocks. The caller must call Flush at the
/// end; the destructor does not, as it must not throw.
template <class Sink, std::size_t kBlock = 8192>
class BlockWriter {
 public:
  explicit BlockWriter(Sink sink) : sink_(sink) {}

  /// Space for the next `size` (at most kBlock) characters; Wrote() must be told where they end.
  char* Room(std::size_t size) {
    if (kBlock - used_ < size) Flush();
    return block_ + used_;
  }
  void Wrote(const char* end) { used_ = static_cast<std::size_t>(end - block_); }

  void Text(const char* text, std::size_t size) {
    while (size > 0) {
      char* const room = Room(1);
      const std::size_t piece = std::min(size, kBlock - used_);
      std::memcpy(room, text, piece);
      used_ += piece;
      text += piece;
      size -= piece;
    }
  }
  void Text(const char* text) { Text(text, std::strlen(text)); }
  void Blanks(int count) {
    for (int i = 0; i < count; ++i) Text(" ", 1);
  }
  void Int(int value, int width = 0) { Wrote(WriteInt(Room(kIntRoom), value, width)); }
  void Real(const RealFormat& format, double x) { Wrote(format.Write(Room(RealFormat::kRoom), x)); }
  /// Right-aligned in at least `width` characters.
  void Real(const RealFormat& format, double x, std::size_t width) {
    char* const text = Room(std::max(RealFormat::kRoom, width));
    const auto size = static_cast<std::size_t>(format.Write(text, x) - text);
    const std::size_t columns = format.Columns(x, size);
    const std::size_t blanks = width > columns ? width - columns : 0;
    std::memmove(text + blanks, text, size);
    std::memset(text, ' ', blanks);
    Wrote(text + blanks + size);
  }
  void Flush() {
    const std::size_t size = std::exchange(used_, 0);
    if (size > 0) sink_(block_, size);
  }

 private:
  Sink sink_;
  std::size_t used_ = 0;
  char block_[kBlock];
};

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_BLOCK_WRITER_H
