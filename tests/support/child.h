// Runs a program to its end with both output streams captured separately. GoogleTest's EXPECT_EXIT cannot take its
// place for fatal reports: they go to the standard output, of which it sees nothing; under Wine it starts the whole
// test program once more for each, and under QEMU it forks the emulator. Stops of hardened builds, which write to
// the standard error, are death tests: hardened.h.
#ifndef ZEPH_TESTS_SUPPORT_CHILD_H
#define ZEPH_TESTS_SUPPORT_CHILD_H

#include <cstdio>
#include <string>
#include <vector>

#include "support/temporary_file.h"

namespace zeph::test {

struct ChildResult {
  int status;       // exit status; -1 when it did not end by itself
  std::string out;  // standard output, line ends as written
  std::string err;  // standard error
};

/// Whether child programs run on an emulated processor. The emulator's threads are the process's too,
/// and a fork copies it in whatever state it is.
bool ChildrenAreEmulated();

/// Runs the child program `name` (without ".exe") from the folder of the test programs.
ChildResult RunChild(const std::string& name, const std::vector<std::string>& arguments);

/// What is written to one of the C standard streams (and std::cout), which is flushed before and after.
/// Restores the stream.
class CaptureStream {
 public:
  explicit CaptureStream(std::FILE* stream);
  ~CaptureStream();
  CaptureStream(const CaptureStream&) = delete;
  CaptureStream& operator=(const CaptureStream&) = delete;
  /// Ends the capture and returns the bytes.
  std::string Text();

 private:
  TemporaryFile file_;
  std::FILE* const stream_;
  int saved_;
};
struct CaptureStdout : CaptureStream {
  CaptureStdout() : CaptureStream(stdout) {}
};
struct CaptureStderr : CaptureStream {
  CaptureStderr() : CaptureStream(stderr) {}
};

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_CHILD_H
