// SPDX-License-Identifier: MIT
//
// Where timed listings are written to.
#ifndef ZEPH_BENCH_SHEET_H
#define ZEPH_BENCH_SHEET_H

#include <cstdio>

#include "bench.h"

namespace zeph::bench {

/// A temporary file written from its start each time; its bytes are the result.
class Sheet {
 public:
  Sheet() : file_(std::tmpfile()) {}
  ~Sheet() { std::fclose(file_); }
  Sheet(const Sheet&) = delete;
  Sheet& operator=(const Sheet&) = delete;
  std::FILE* Rewound() {
    std::rewind(file_);
    return file_;
  }
  /// Length and a checksum of what the last listing wrote.
  Numbers Content() {
    std::fflush(file_);
    const long size = std::ftell(file_);
    std::rewind(file_);
    unsigned sum = 0;
    for (long i = 0; i < size; ++i) sum = sum * 31 + static_cast<unsigned>(std::fgetc(file_));
    return {static_cast<double>(size), static_cast<double>(sum)};
  }

 private:
  std::FILE* file_;
};

}  // namespace zeph::bench

#endif  // ZEPH_BENCH_SHEET_H
