#include "support/child.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>
#else
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace zeph::test {
namespace {

std::string Quote(const std::string& text) {
#ifdef _WIN32
  return '"' + text + '"';
#else
  std::string quoted = "'";
  for (char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
#endif
}

std::string ProgramPath(const std::string& name) {
#ifdef _WIN32
  // The folder of this program: a configured path would be that of the build system in cross
  // builds.
  char self[MAX_PATH];
  const std::string path(self, GetModuleFileNameA(nullptr, self, MAX_PATH));
  return path.substr(0, path.find_last_of('\\') + 1) + name + ".exe";
#else
  return std::string(ZEPH_TEST_BIN) + "/" + name;
#endif
}

/// The standard streams of a Windows program are in text mode: the program wrote it before
/// translation.
std::string AsWritten(const std::string& text) {
#ifdef _WIN32
  std::string written;
  for (std::size_t i = 0; i < text.size(); ++i)
    if (text[i] != '\r' || i + 1 == text.size() || text[i + 1] != '\n') written += text[i];
  return written;
#else
  return text;
#endif
}

int ExitStatus(int raw) {
#ifdef _WIN32
  return raw;
#else
  return WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
#endif
}

}  // namespace

bool ChildrenAreEmulated() {
#ifdef ZEPH_TEST_EMULATOR
  return true;
#else
  return false;
#endif
}

ChildResult RunChild(const std::string& name, const std::vector<std::string>& arguments) {
  const TemporaryFile out, err;
  std::string command;
#ifdef ZEPH_TEST_EMULATOR
  command += ZEPH_TEST_EMULATOR " ";
#endif
  command += Quote(ProgramPath(name));
  for (const auto& argument : arguments) command += ' ' + Quote(argument);
  command += " >" + Quote(out.Path()) + " 2>" + Quote(err.Path());
#ifdef _WIN32
  command = '"' + command + '"';  // the command processor strips the outer pair
#endif
  // -1 is no child's status: the runtime could not start one, which rarely happens under Wine.
  constexpr int kNotStarted = -1, kAttempts = 3;
  int status = kNotStarted;
  for (int attempt = 0; attempt < kAttempts && status == kNotStarted; ++attempt)
    status = ExitStatus(std::system(command.c_str()));
  return {status, AsWritten(ReadFile(out.Path())), AsWritten(ReadFile(err.Path()))};
}

#ifdef _WIN32
#define ZEPH_FD(name) _##name
#else
#define ZEPH_FD(name) name
#endif

CaptureStream::CaptureStream(std::FILE* stream) : stream_(stream) {
  std::cout.flush();
  std::fflush(stream_);
  saved_ = ZEPH_FD(dup)(ZEPH_FD(fileno)(stream_));
  std::FILE* file = std::fopen(file_.Path().c_str(), "wb");
  ZEPH_FD(dup2)(ZEPH_FD(fileno)(file), ZEPH_FD(fileno)(stream_));
  std::fclose(file);
}
CaptureStream::~CaptureStream() {
  if (saved_ >= 0) Text();
}
std::string CaptureStream::Text() {
  std::cout.flush();
  std::fflush(stream_);
  ZEPH_FD(dup2)(saved_, ZEPH_FD(fileno)(stream_));
  ZEPH_FD(close)(saved_);
  saved_ = -1;
  return ReadFile(file_.Path());
}

}  // namespace zeph::test
