// SPDX-License-Identifier: MIT
#include "platform/stream_reader.h"

#include <cfenv>
#include <charconv>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <locale>
#include <streambuf>
#include <system_error>

namespace zeph::platform {
namespace {

/// Whether the extractor rounds correctly, as std::from_chars does, and the latter is fast. The
/// underlying runtimes are glibc's strtod and MinGW's own.
#if defined(__GLIBCXX__) && defined(__cpp_lib_to_chars) && _GLIBCXX_RELEASE >= 12 && \
    (defined(__GLIBC__) || defined(__MINGW32__))
constexpr bool kKnown = true;
#else
constexpr bool kKnown = false;
#endif

/// The extractor uses the process's rounding direction, std::from_chars rounds to nearest.
bool ValuesAreKnown(const std::istream& is) {
  return kKnown && is.getloc() == std::locale::classic() && std::fegetround() == FE_TONEAREST;
}

/// The part of a stream's buffer that can be read without its source. The members are protected, so
/// a derived class accesses them.
struct Buffered : std::streambuf {
  static const char* Begin(const std::streambuf& buffer) { return (buffer.*&Buffered::gptr)(); }
  static const char* End(const std::streambuf& buffer) { return (buffer.*&Buffered::egptr)(); }
  static void Skip(std::streambuf& buffer, std::ptrdiff_t count) {
    (buffer.*&Buffered::gbump)(static_cast<int>(count));
  }
};

/// White space of the classic locale.
bool IsSpace(char c) {
  return c == ' ' || ('\t' <= c && c <= '\r');
}

[[maybe_unused]] bool IsDigit(char c) {
  return '0' <= c && c <= '9';
}

/// Whether the runtime may set ERANGE when it converts this number: always where it is denormal, and
/// on some processors (ARM) also where it was rounded up to the least normal number. Tested on the
/// bits, since the process may treat denormals as zeros.
[[maybe_unused]] bool MayUnderflow(double x) {
  constexpr std::uint64_t kLeastNormal = std::uint64_t{1} << 52;
  std::uint64_t bits;
  std::memcpy(&bits, &x, sizeof bits);
  const std::uint64_t magnitude = bits & ~(std::uint64_t{1} << 63);
  return magnitude != 0 && magnitude <= kLeastNormal;
}

#if defined(__cpp_lib_to_chars)
/// Converts the number in [first, last) to `x` and returns its end; null where it is left to the
/// stream.
const char* Convert(const char* first, const char* last, double& x) {
  const char* digits = first;
  if (digits < last && (*digits == '-' || *digits == '+')) ++digits;
  if (last - digits < 2 || !(IsDigit(*digits) || *digits == '.')) return nullptr;
  const auto [end, error] = std::from_chars(*first == '+' ? digits : first, last, x);
  return error == std::errc{} && end < last && IsSpace(*end) && !MayUnderflow(x) ? end : nullptr;
}
#else
const char* Convert(const char*, const char*, double&) {
  return nullptr;
}
#endif

}  // namespace

StreamReader::StreamReader(std::istream& is) : is_(is), known_(ValuesAreKnown(is)) {}

/// Reads `x` if the buffer alone suffices; otherwise does nothing.
bool StreamReader::TakeFromBuffer(double& x) {
  // A tied stream is flushed by each extraction.
  if (!is_.good() || is_.tie()) return false;
  std::streambuf& buffer = *is_.rdbuf();
  const char* const begin = Buffered::Begin(buffer);
  const char* const last = Buffered::End(buffer);
  const char* first = begin;
  if (is_.flags() & std::ios_base::skipws)
    while (first < last && IsSpace(*first)) ++first;
  double value;
  const char* const end = Convert(first, last, value);
  if (!end || end - begin > INT_MAX) return false;
  Buffered::Skip(buffer, end - begin);
  x = value;
  return true;
}

}  // namespace zeph::platform
