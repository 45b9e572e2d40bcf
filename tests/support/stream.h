// The output written to a FILE*.
#ifndef ZEPH_TESTS_SUPPORT_STREAM_H
#define ZEPH_TESTS_SUPPORT_STREAM_H

#include <cstdio>
#include <string>

#include "support/temporary_file.h"

namespace zeph::test {

/// The bytes that `body(FILE*)` writes to a stream of its own, opened without translation.
template <class Body>
std::string Written(Body body) {
  static const TemporaryFile file;
  FILE* f = std::fopen(file.Path().c_str(), "wb");
  body(f);
  std::fclose(f);
  return ReadFile(file.Path());
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_STREAM_H
