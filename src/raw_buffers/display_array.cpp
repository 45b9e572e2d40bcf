// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "platform/block_writer.h"
#include "platform/format_number.h"
#include "raw_buffers.h"
#include "raw_buffers/precondition.h"

namespace zeph::raw_buffers {
namespace {

using platform::BlockWriter;
using platform::RealFormat;
using platform::StreamSink;
using platform::StringSink;

/// Blanks after an item, by destination: they differ on purpose.
template <class T>
struct Trailing;
template <>
struct Trailing<int> {
  static constexpr int kString = 3, kStandardOutput = 2, kStream = 2;
};
template <>
struct Trailing<double> {
  static constexpr int kString = 4, kStandardOutput = 2, kStream = 3;
};

/// The value's conversion: "%-5d" or "%-5.4le".
template <class T>
struct ValueFormat;
template <>
struct ValueFormat<int> {
  char* Write(char* out, int value) const { return platform::WriteInt(out, value, 5); }
};
template <>
struct ValueFormat<double> {
  RealFormat format{"%-5.4le", RealFormat::Notation::kScientific, 4};
  char* Write(char* out, double value) const { return format.Write(out, value); }
};

struct Layout {
  int blanks;
  const char* lineEnd;
};

/// A line ends after index 5, 10, ... and -5, -10, ...: the index decides, not the number of items
/// on the line.
bool EndsLine(std::int64_t i) {
  return i != 0 && i % 5 == 0;
}

/// The most characters that an item needs after its label.
constexpr std::size_t kItemRoom = RealFormat::kRoom + platform::kIntRoom + 16;

/// Writes items "label[index]=value" for lo..hi, and the line end that closes every listing.
/// (64-bit indices: `hi` may be the greatest int.)
template <class Sink, class T>
void List(Sink sink, const T* a, std::int64_t lo, std::int64_t hi, const char* name,
          Layout layout) {
  RequireBlock("ZEPH_ArrayDisplay", "a", a, lo <= hi);
  const char* label = platform::TextOrNull(name);
  const std::size_t labelSize = std::strlen(label), lineEndSize = std::strlen(layout.lineEnd);
  const ValueFormat<T> value;
  BlockWriter<Sink> writer(sink);
  for (std::int64_t i = lo; i <= hi; ++i) {
    writer.Text(label, labelSize);
    char* out = writer.Room(kItemRoom);
    *out++ = '[';
    out = platform::WriteInt(out, static_cast<int>(i));
    *out++ = ']';
    *out++ = '=';
    out = std::fill_n(value.Write(out, a[i]), layout.blanks, ' ');
    if (EndsLine(i)) out = std::copy_n(layout.lineEnd, lineEndSize, out);
    writer.Wrote(out);
  }
  writer.Text(layout.lineEnd);
  writer.Flush();
}

template <class T>
void ListToStream(std::FILE* stream, const T* a, std::int64_t lo, std::int64_t hi,
                  const char* name) {
  ZEPH_REQUIRE_POINTER("ZEPH_ArrayDisplay", stream);
  List(StreamSink{stream}, a, lo, hi, name, {Trailing<T>::kStream, "\n"});
}

template <class T>
void ListToStandardOutput(const T* a, std::int64_t lo, std::int64_t hi, const char* name) {
  List(StreamSink{stdout}, a, lo, hi, name, {Trailing<T>::kStandardOutput, "\n"});
}

/// Uses a separate string, so that the label may be inside `out` and a failed allocation leaves
/// `out` unchanged.
template <class T>
void ListToString(CString& out, const T* a, std::int64_t lo, std::int64_t hi, const char* name) {
  CString text;
  List(StringSink{text}, a, lo, hi, name, {Trailing<T>::kString, "\r\n"});
  out += text;
}

/// The highest index of a count form, for any count.
std::int64_t Last(int n) {
  return std::int64_t{n} - 1;
}

}  // namespace
}  // namespace zeph::raw_buffers

using namespace zeph::raw_buffers;

#define ZEPH_DEFINE(T)                                                     \
  void ZEPH_ArrayDisplay(CString& out, T* a, int lo, int hi, char* name) { \
    ListToString(out, a, lo, hi, name);                                    \
  }                                                                        \
  void ZEPH_ArrayDisplay(CString& out, T* a, int n, char* name) {          \
    ListToString(out, a, 0, Last(n), name);                                \
  }                                                                        \
  void ZEPH_ArrayDisplay(T* a, int lo, int hi, char* name) {               \
    ListToStandardOutput(a, lo, hi, name);                                 \
  }                                                                        \
  void ZEPH_ArrayDisplay(FILE* stream, T* a, int lo, int hi, char* name) { \
    ListToStream(stream, a, lo, hi, name);                                 \
  }                                                                        \
  void ZEPH_ArrayDisplay(FILE* stream, T* a, int n, char* name) {          \
    ListToStream(stream, a, 0, Last(n), name);                             \
  }
ZEPH_DEFINE(int)
ZEPH_DEFINE(double)
#undef ZEPH_DEFINE

// The count form to the standard output exists for ints only.
void ZEPH_ArrayDisplay(int* a, int n, char* name) {
  ListToStandardOutput(a, 0, Last(n), name);
}
