// The fuzz bodies by name.
#ifndef ZEPH_TESTS_FUZZ_BODIES_H
#define ZEPH_TESTS_FUZZ_BODIES_H

#include <cstddef>

extern "C" {
int ZephFuzz_containers(const unsigned char* data, std::size_t size);
int ZephFuzz_double_array(const unsigned char* data, std::size_t size);
int ZephFuzz_extractors(const unsigned char* data, std::size_t size);
int ZephFuzz_forms(const unsigned char* data, std::size_t size);
int ZephFuzz_graphics(const unsigned char* data, std::size_t size);
int ZephFuzz_matrices(const unsigned char* data, std::size_t size);
int ZephFuzz_raw_buffers(const unsigned char* data, std::size_t size);
int ZephFuzz_sorts(const unsigned char* data, std::size_t size);
int ZephFuzz_texts(const unsigned char* data, std::size_t size);
}

namespace zeph::test {

using FuzzBody = int(const unsigned char*, std::size_t);

/// Those that several threads may run at once. ZephFuzz_forms is none of them: it changes the
/// kernels for all.
constexpr FuzzBody* kFuzzBodies[] = {
    ZephFuzz_containers, ZephFuzz_double_array, ZephFuzz_extractors, ZephFuzz_graphics,
    ZephFuzz_matrices,   ZephFuzz_raw_buffers,  ZephFuzz_sorts,      ZephFuzz_texts};

}  // namespace zeph::test

#endif  // ZEPH_TESTS_FUZZ_BODIES_H
