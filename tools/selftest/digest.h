// SPDX-License-Identifier: MIT
//
// The running digest of one operation's results.
#ifndef ZEPH_TOOLS_SELFTEST_DIGEST_H
#define ZEPH_TOOLS_SELFTEST_DIGEST_H

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace zeph::selftest {

/// Takes results in their order and mixes them into 64 bits.
///
/// In computed values all NaNs count as equal: the processor chooses their sign and payload. Moved
/// values (sorts, copies, stated sign flips) count with their bits.
class Digest {
 public:
  void Computed(double x) { Add(x == x ? Bits(x) : 0x7ff8000000000000u); }
  void Computed(float x) { Add(x == x ? Bits(x) : 0x7fc00000u); }
  void Moved(double x) { Add(Bits(x)); }
  void Moved(float x) { Add(Bits(x)); }
  void Integer(std::int64_t x) { Add(static_cast<std::uint64_t>(x)); }
  void Text(const char* text, std::size_t length) {
    Add(length);
    for (std::size_t i = 0; i < length; ++i) Mix(static_cast<unsigned char>(text[i]));
  }

  template <class T>
  void Computed(const T* values, int n) {
    for (int i = 0; i < n; ++i) Computed(values[i]);
  }
  template <class T>
  void Moved(const T* values, int n) {
    for (int i = 0; i < n; ++i) Moved(values[i]);
  }
  void Integers(const int* values, int n) {
    for (int i = 0; i < n; ++i) Integer(values[i]);
  }

  /// Another digest as one more result; its results count.
  void Fold(const Digest& other) {
    Mix(other.m_state);
    m_results += other.m_results;
  }

  std::uint64_t Value() const { return m_state; }
  std::uint64_t Results() const { return m_results; }

 private:
  void Add(std::uint64_t word) {
    Mix(word);
    ++m_results;
  }
  void Mix(std::uint64_t word) {  // one round of a multiply-and-fold hash
    m_state = (m_state ^ word) * 0x9fb21c651e98df25u;
    m_state ^= m_state >> 29;
  }
  static std::uint64_t Bits(double x) {
    std::uint64_t bits;
    std::memcpy(&bits, &x, sizeof bits);
    return bits;
  }
  static std::uint32_t Bits(float x) {
    std::uint32_t bits;
    std::memcpy(&bits, &x, sizeof bits);
    return bits;
  }

  std::uint64_t m_state = 0x243f6a8885a308d3u;
  std::uint64_t m_results = 0;
};

}  // namespace zeph::selftest

#endif  // ZEPH_TOOLS_SELFTEST_DIGEST_H
