// SPDX-License-Identifier: MIT
//
// Lines of elements as the formatted prints of the general matrix and vector write them.
#ifndef ZEPH_SRC_LINALG_CELL_WRITER_H
#define ZEPH_SRC_LINALG_CELL_WRITER_H

#include <cstdio>

#include "platform/block_writer.h"
#include "platform/format_number.h"

namespace zeph::linalg {

class CellWriter {
 public:
  /// `stream` is not null; the caller ends with Flush.
  CellWriter(std::FILE* stream, char separator)
      : tail_{separator, ' '}, writer_(platform::StreamSink{stream}) {}

  /// Each element as "%12.4lf%c " writes it, then a line feed.
  void Line(const double* elements, int count) {
    for (int j = 0; j < count; ++j) {
      writer_.Real(format_, elements[j], 12);
      writer_.Text(tail_, sizeof tail_);
    }
    writer_.Text("\n", 1);
  }

  void Flush() { writer_.Flush(); }

 private:
  const char tail_[2];
  const platform::RealFormat format_{"%.4lf", platform::RealFormat::Notation::kFixed, 4};
  platform::BlockWriter<platform::StreamSink> writer_;
};

}  // namespace zeph::linalg

#endif  // ZEPH_SRC_LINALG_CELL_WRITER_H
