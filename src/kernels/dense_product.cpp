// SPDX-License-Identifier: MIT
#include "kernels/dense_product.h"

#include <cstdlib>

namespace zeph::kernels {

std::atomic<void* (*)(std::size_t)> detail::borrow{std::malloc};

}  // namespace zeph::kernels
