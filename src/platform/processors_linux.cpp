// SPDX-License-Identifier: MIT
//
// Uses neither the heap nor streams: it may be called before anything is initialised.
#ifdef __linux__

#include <fcntl.h>
#include <sched.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>

#include "platform/processors.h"

namespace zeph::platform {
namespace {

constexpr std::size_t kRoom = 4096;

/// A text of bounded size; appending what does not fit makes it empty.
class Path {
 public:
  Path& operator<<(const char* part) {
    const std::size_t length = std::strlen(part);
    if (length_ + length >= kRoom) fits_ = false;
    if (fits_) {
      std::memcpy(text_ + length_, part, length + 1);
      length_ += length;
    }
    return *this;
  }
  const char* Text() const { return fits_ ? text_ : ""; }

 private:
  char text_[kRoom] = "";
  std::size_t length_ = 0;
  bool fits_ = true;
};

/// The beginning of a file as a text, "" if there is no file.
class Content {
 public:
  explicit Content(const char* path) {
    const int file = open(path, O_RDONLY | O_CLOEXEC);
    if (file < 0) return;
    std::size_t length = 0;
    for (;;) {
      const ssize_t got = read(file, text_ + length, kRoom - 1 - length);
      if (got <= 0) break;
      length += static_cast<std::size_t>(got);
    }
    text_[length] = '\0';
    close(file);
  }
  char* Text() { return text_; }

 private:
  char text_[kRoom] = "";
};

/// The number of processors for `quota` in each `period`, rounded up; 0 where either is no limit.
long Quotient(long quota, long period) {
  return quota > 0 && period > 0 ? (quota - 1) / period + 1 : 0;
}

/// The limit of one group in either version's files; 0 without one.
long LimitOf(const char* folder) {
  Path path;
  Content both((path << folder << "/cpu.max").Text());
  char* end = both.Text();
  if (*end) {
    const long quota = std::strtol(end, &end, 10);  // 0 for "max"
    return Quotient(quota, std::strtol(end, nullptr, 10));
  }
  Path quota, period;
  quota << folder << "/cpu.cfs_quota_us";
  period << folder << "/cpu.cfs_period_us";
  return Quotient(std::strtol(Content(quota.Text()).Text(), nullptr, 10),
                  std::strtol(Content(period.Text()).Text(), nullptr, 10));
}

long Stricter(long a, long b) {
  return a == 0 ? b : b == 0 ? a : std::min(a, b);
}

/// The strictest limit of the group `name` ("/a/b") and of its parents. In a container the name may
/// be one from outside: then only the root, which is the container's own group, exists.
long StrictestLimit(const char* root, char* name) {
  long strictest = 0;
  for (;;) {
    Path folder;
    strictest = Stricter(strictest, LimitOf((folder << root << name).Text()));
    char* const last = std::strrchr(name, '/');
    if (!last) return strictest;
    *last = '\0';
  }
}

/// Whether a version 1 line's list of controllers contains "cpu".
bool HasCpu(const char* list) {
  for (; *list; list += *list == ',') {
    const std::size_t length = std::strcspn(list, ",");
    if (length == 3 && std::memcmp(list, "cpu", 3) == 0) return true;
    list += length;
  }
  return false;
}

}  // namespace

int ProcessorsPaidFor(const char* root, const char* membership) {
  long strictest = 0;
  Content lines(membership);
  for (char* line = lines.Text(); *line;) {  // "number:controllers:/name"
    char* const end = line + std::strcspn(line, "\n");
    char* const next = *end ? end + 1 : end;
    *end = '\0';
    char* const list = std::strchr(line, ':');
    char* const name = list ? std::strchr(list + 1, ':') : nullptr;
    if (name) {
      *name = '\0';
      Path folder;
      folder << root << (list[1] ? "/" : "") << list + 1;  // no controllers: version 2
      if (!list[1] || HasCpu(list + 1)) {
        strictest = Stricter(strictest, StrictestLimit(folder.Text(), name + 1));
      }
    }
    line = next;
  }
  return static_cast<int>(std::min(strictest, 1L << 20));
}

bool Spread::Take() {
  const int processor = sched_getcpu();
  const auto word = static_cast<std::size_t>(processor) / 64;
  if (processor < 0 || word >= kWords) return true;
  const std::uint64_t bit = std::uint64_t{1} << processor % 64;
  return (taken_[word].fetch_or(bit, std::memory_order_relaxed) & bit) == 0;
}

void Spread::LetOthersRun() {
  sched_yield();
}

void Spread::Settle() {
  if (Take()) return;
  cpu_set_t all;
  if (sched_getaffinity(0, sizeof all, &all) != 0) return;
  cpu_set_t others = all;
  for (std::size_t k = 0; k < kWords * 64; ++k)
    if (taken_[k / 64].load(std::memory_order_relaxed) >> k % 64 & 1) CPU_CLR(k, &others);
  if (CPU_COUNT(&others) == 0 || sched_setaffinity(0, sizeof others, &others) != 0) return;
  Take();
  sched_setaffinity(0, sizeof all, &all);
}

int UsableProcessors() {
  // Room for more processors than any system has; the system refuses a set smaller than its own.
  cpu_set_t sets[8192 / CPU_SETSIZE];
  int processors = 1;
  if (sched_getaffinity(0, sizeof sets, sets) == 0) processors = CPU_COUNT_S(sizeof sets, sets);
  const int paid = ProcessorsPaidFor("/sys/fs/cgroup", "/proc/self/cgroup");
  return std::max(1, paid ? std::min(paid, processors) : processors);
}

}  // namespace zeph::platform

#endif  // __linux__
