// Files that a test writes and reads.
#ifndef ZEPH_TESTS_SUPPORT_TEMPORARY_FILE_H
#define ZEPH_TESTS_SUPPORT_TEMPORARY_FILE_H

#include <string>

namespace zeph::test {

/// Where the tests write: the folder that TMPDIR (on Windows TEMP) names, else that of the test programs.
std::string TemporaryFolder();

/// A new empty file of the test's own in TemporaryFolder(). If none can be created, the program
/// reports it and ends.
///
/// The file is deleted with the object. On Linux it never has a name, so that a crashed test leaves
/// nothing; `Path()` is then the descriptor's, valid in this process and its children.
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
