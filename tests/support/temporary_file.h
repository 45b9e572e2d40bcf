// Files that a test writes and reads.
#ifndef ZEPH_TESTS_SUPPORT_TEMPORARY_FILE_H
#define ZEPH_TESTS_SUPPORT_TEMPORARY_FILE_H

#include <string>

namespace zeph::test {

/// Where the tests write: the folder that TMPDIR (on Windows TEMP) names, else that of the test programs.
std::string TemporaryFolder();

/// A new empty file of the test's own in TemporaryFolder(). Where nothing can be written, the program says
/// so and ends.
///
/// The file is gone with the object. On Linux it has no name from the beginning, so that a test that dies
/// leaves nothing; `Path()` is then the descriptor's, good in this process and in those that it starts.
class TemporaryFile {
 public:
  TemporaryFile();
  ~TemporaryFile();
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
  int descriptor_;
};

/// The whole content of a file, byte for byte.
std::string ReadFile(const std::string& path);

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_TEMPORARY_FILE_H
