// SPDX-License-Identifier: MIT
//
// Text collected in a block of fixed size and handed on a block at a time: a listing of millions of
// short pieces costs as many stores, not as many calls.
#ifndef ZEPH_SRC_ALGORITHMS_BLOCKED_TEXT_H
#define ZEPH_SRC_ALGORITHMS_BLOCKED_TEXT_H

#include <cstddef>
#include <cstdio>
#include <string_view>

#include "platform.h"

namespace zeph::algorithms {

/// A block of text on its way to `Sink`, a `FILE` or a `CString`. Hands on what it holds when the
/// block is full and when Flush is called; the destructor does not, as it may not throw.
template <class Sink>
class BlockedText {
 public:
  explicit BlockedText(Sink& sink) : m_sink(sink) {}

  /// Where the next `bytes` (at most kBlock) characters go; Wrote() tells where they ended.
  char* Room(std::size_t bytes) {
    if (kBlock - m_used < bytes) Flush();
    return m_block + m_used;
  }
  void Wrote(const char* end) { m_used = static_cast<std::size_t>(end - m_block); }

  void Flush() {
    const std::string_view text(m_block, m_used);
    m_used = 0;
    HandOn(m_sink, text);
  }

  static constexpr std::size_t kBlock = 65536;

 private:
  static void HandOn(FILE& f, std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), &f);  // a stream keeps its own error flag
  }
  static void HandOn(CString& out, std::string_view text) {
    out.Append(text.data(), static_cast<int>(text.size()));
  }

  Sink& m_sink;
  std::size_t m_used = 0;
  char m_block[kBlock];
};

}  // namespace zeph::algorithms

#endif  // ZEPH_SRC_ALGORITHMS_BLOCKED_TEXT_H
