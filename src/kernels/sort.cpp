// SPDX-License-Identifier: MIT
#include "kernels/sort.h"

#include "kernels/sort_forms.h"

namespace zeph::kernels {

const SortForms& SortForms::For(Level level) {
#if ZEPH_X64
  static const SortForms* const kForms[kLevels] = {&portable::kSort, &avx2::kSort, &avx512::kSort};
#else
  static const SortForms* const kForms[kLevels] = {&portable::kSort, &portable::kSort,
                                                   &portable::kSort};
#endif
  return *kForms[static_cast<int>(level)];
}

}  // namespace zeph::kernels
