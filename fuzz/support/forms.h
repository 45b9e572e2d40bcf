// What the programs of operations in forms.cpp compute.
#ifndef ZEPH_FUZZ_SUPPORT_FORMS_H
#define ZEPH_FUZZ_SUPPORT_FORMS_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zeph::fuzz {

/// The bits of every result of the input's program, in the form of the kernels in use; NaNs are all alike.
std::vector<std::uint64_t> ResultsOf(const unsigned char* data, std::size_t size);

}  // namespace zeph::fuzz

#endif  // ZEPH_FUZZ_SUPPORT_FORMS_H
