// SPDX-License-Identifier: MIT
#include "kernels/sort.h"

#include "kernels/sort_forms.h"

namespace zeph::kernels {

#if ZEPH_X64
const SortForms* const SortForms::kForms[kLevels] = {&portable::kSort, &avx2::kSort,
                                                     &avx512::kSort};
#else
const SortForms* const SortForms::kForms[kLevels] = {&portable::kSort, &portable::kSort,
                                                     &portable::kSort};
#endif

}  // namespace zeph::kernels
