// Loads, inspects and unloads a shared library, on every system.
#ifndef ZEPH_TESTS_MANNERS_LOADER_H
#define ZEPH_TESTS_MANNERS_LOADER_H

#include <cstdio>
#include <cstring>
#include <string>

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace zeph::test {

class Plugin {
 public:
#ifdef _WIN32
  explicit Plugin(const char* path) : handle_(LoadLibraryA(path)) {}
  ~Plugin() {
    if (handle_) FreeLibrary(handle_);
  }
#else
  explicit Plugin(const char* path) : handle_(dlopen(path, RTLD_NOW | RTLD_LOCAL)) {
    if (!handle_) std::fprintf(stderr, "%s\n", dlerror());
  }
  ~Plugin() {
    if (handle_) dlclose(handle_);
  }
#endif
  Plugin(const Plugin&) = delete;
  Plugin& operator=(const Plugin&) = delete;

  bool Loaded() const {
    return handle_ != nullptr;
  }
  /// Calls the function `name`; returns its result, or -1 if it does not exist.
  int Call(const char* name) const {
    int (*function)() = nullptr;
#ifdef _WIN32
    const auto found = GetProcAddress(handle_, name);
#else
    void* const found = dlsym(handle_, name);
#endif
    std::memcpy(&function, &found, sizeof function);
    return function ? function() : -1;
  }

 private:
#ifdef _WIN32
  HMODULE handle_;
#else
  void* handle_;
#endif
};

/// Whether this process has the library `path` loaded, according to the loader and to the process's
/// memory maps.
inline bool IsLoaded(const char* path) {
#ifdef _WIN32
  return GetModuleHandleA(path) != nullptr;
#else
  if (void* const handle = dlopen(path, RTLD_NOW | RTLD_NOLOAD)) {
    dlclose(handle);
    return true;
  }
  const std::string whole(path);
  const std::string name = whole.substr(whole.find_last_of('/') + 1);
  std::FILE* const maps = std::fopen("/proc/self/maps", "r");
  char line[4096];
  bool found = false;
  while (maps && std::fgets(line, sizeof line, maps))
    found |= std::strstr(line, name.c_str()) != nullptr;
  if (maps) std::fclose(maps);
  return found;
#endif
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_MANNERS_LOADER_H
