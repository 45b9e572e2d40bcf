// SPDX-License-Identifier: MIT
#ifndef ZEPH_SRC_KERNELS_SEARCH_FORMS_H
#define ZEPH_SRC_KERNELS_SEARCH_FORMS_H

#include "kernels/search.h"

namespace zeph::kernels {

namespace portable {
extern const SearchForms kSearch;
}
namespace avx2 {
extern const SearchForms kSearch;
}
namespace avx512 {
extern const SearchForms kSearch;
}

}  // namespace zeph::kernels

#endif  // ZEPH_SRC_KERNELS_SEARCH_FORMS_H
