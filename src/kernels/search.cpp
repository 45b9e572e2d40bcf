// SPDX-License-Identifier: MIT
#include "kernels/search.h"

#include "kernels/search_forms.h"

namespace zeph::kernels {

#if ZEPH_X64
const SearchForms* const SearchForms::kForms[kLevels] = {&portable::kSearch, &avx2::kSearch,
                                                         &avx512::kSearch};
#else
const SearchForms* const SearchForms::kForms[kLevels] = {&portable::kSearch, &portable::kSearch,
                                                         &portable::kSearch};
#endif

}  // namespace zeph::kernels
