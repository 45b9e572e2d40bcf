// SPDX-License-Identifier: MIT
//
// Numbers from a std::istream: with the values, the states and the position that the stream's own
// extractor leaves, at a fraction of its cost.
#ifndef ZEPH_SRC_PLATFORM_STREAM_READER_H
#define ZEPH_SRC_PLATFORM_STREAM_READER_H

#include <istream>

namespace zeph::platform {

/// Many numbers from one stream.
///
/// A number that lies whole in the stream's buffer, white space behind it, is converted there. Whatever else
/// comes is left to the stream's own `>>`, which finds it untouched: a number cut by the end of the buffer or
/// followed by anything else, overflow, underflow, errors, and streams of another locale than the classic one.
/// The stream's locale and the direction of rounding stay as they are meanwhile.
class StreamReader {
 public:
  explicit StreamReader(std::istream& is);
  StreamReader(const StreamReader&) = delete;
  StreamReader& operator=(const StreamReader&) = delete;

  /// `is >> x`; returns what the stream then says of itself.
  bool Read(double& x) { return (known_ && TakeFromBuffer(x)) || (is_ >> x); }

 private:
  bool TakeFromBuffer(double& x);

  std::istream& is_;
  const bool known_;  // whether values are known
};

}  // namespace zeph::platform

#endif  // ZEPH_SRC_PLATFORM_STREAM_READER_H
