// SPDX-License-Identifier: MIT
//
// Numbers on a std::ostream: as the stream's own inserter writes them, or with ZEPH_PORTABLE_MATH in
// the same bytes on every system.
#ifndef ZEPH_SRC_PLATFORM_STREAM_NUMBER_H
#define ZEPH_SRC_PLATFORM_STREAM_NUMBER_H

#include <cstddef>
#include <ostream>
#include <string_view>

#include "platform/functions.h"

namespace zeph::platform {

/// `os << Number{x}` in place of `os << x`.
struct Number {
  double value;
};

/// Writes what the inserter of glibc and libstdc++ writes, by the stream's flags, precision, width
/// and fill, on every system. Leaves to the stream's own inserter: locales other than the classic
/// one, and more than kMostStreamDecimals decimals, of which the last are zeros. Where glibc loses zeros of
/// "%#g" (99.6 with two digits is "1.e+02"), they are kept.
std::ostream& WritePortably(std::ostream& os, double x);
constexpr int kMostStreamDecimals = 1100;

inline std::ostream& operator<<(std::ostream& os, Number number) {
  return kPortableMath ? WritePortably(os, number.value) : os << number.value;
}

/// Writes numbers and the texts between them to a stream, with the same bytes and stream states as
/// single insertions. Where a number's text does not depend on the stream's locale, the bytes are
/// written in blocks; call Flush after the last one. The stream's settings must not change in
/// between.
class StreamWriter {
 public:
  explicit StreamWriter(std::ostream& os);
  StreamWriter(const StreamWriter&) = delete;
  StreamWriter& operator=(const StreamWriter&) = delete;

  void Text(std::string_view text);
  void Real(double x);
  void EndLine();  ///< std::endl
  void Flush();

 private:
  bool Gathers(std::size_t room);

  static constexpr std::size_t kLongestReal = 512;
  std::ostream& os_;
  const bool known_;      // whether texts are known
  std::size_t size_ = 0;  // gathered bytes
  std::size_t last_ = 0;  // where the last item of them begins
  char block_[4096];
};

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_STREAM_NUMBER_H
