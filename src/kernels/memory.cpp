// SPDX-License-Identifier: MIT
#include "kernels/memory.h"

#include <cstdlib>

namespace zeph::kernels {

std::atomic<void* (*)(std::size_t)> detail::borrow{std::malloc};
std::atomic<void (*)(void*)> detail::give_back{std::free};

}  // namespace zeph::kernels
