#include "support/temporary_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>

#ifdef _WIN32
#include <io.h>
#include <process.h>
#else
#include <unistd.h>
#endif

namespace zeph::test {
namespace {

#ifdef _WIN32
constexpr char kVariable[] = "TEMP", kOtherwise[] = ".";
#else
constexpr char kVariable[] = "TMPDIR", kOtherwise[] = ZEPH_TEST_BIN;
#endif

[[noreturn]] void RefuseToGoOn() {
  std::fprintf(stderr,
               "The tests cannot write files in %s: %s.\n"
               "Set %s to a folder that can be written.\n",
               TemporaryFolder().c_str(), std::strerror(errno), kVariable);
  std::exit(1);
}

#ifdef _WIN32

constexpr int kNone = -1;

void Close(int) {}

/// Creates the file without keeping a descriptor: the command processor cannot send a child's
/// output to a file that is open for writing elsewhere.
int Create(std::string& path) {
  static int counter = 0;
  path =
      TemporaryFolder() + "\\zeph_" + std::to_string(_getpid()) + "_" + std::to_string(counter++);
  const int descriptor = _open(path.c_str(), _O_CREAT | _O_TRUNC | _O_RDWR, _S_IREAD | _S_IWRITE);
  if (descriptor < 0) RefuseToGoOn();
  _close(descriptor);
  return kNone;
}

#else

int Close(int descriptor) {
  return close(descriptor);
}

bool IsFile(const std::string& path, int descriptor) {
  struct stat named, opened;
  return stat(path.c_str(), &named) == 0 && fstat(descriptor, &opened) == 0 &&
         named.st_dev == opened.st_dev && named.st_ino == opened.st_ino;
}

/// Creates the file and returns its descriptor.
int Create(std::string& path) {
  path = TemporaryFolder() + "/zeph_XXXXXX";
  const int descriptor = mkstemp(path.data());
  if (descriptor < 0) RefuseToGoOn();
  const std::string unnamed = "/proc/self/fd/" + std::to_string(descriptor);
  if (IsFile(unnamed, descriptor)) {
    unlink(path.c_str());
    path = unnamed;
  }
  return descriptor;
}

#endif

}  // namespace

std::string TemporaryFolder() {
  const char* named = std::getenv(kVariable);
  return named && *named ? named : kOtherwise;
}

TemporaryFile::TemporaryFile() : descriptor_(Create(path_)) {}

TemporaryFile::~TemporaryFile() {
  Close(descriptor_);
  std::remove(path_.c_str());  // a file without a name has no path any more
}

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

}  // namespace zeph::test
