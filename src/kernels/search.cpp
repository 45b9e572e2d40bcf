// SPDX-License-Identifier: MIT
#include "kernels/search.h"

#include "kernels/search_forms.h"

namespace zeph::kernels {

const SearchForms& SearchForms::For(Level level) {
#if ZEPH_X64
  static const SearchForms* const kForms[kLevels] = {&portable::kSearch, &avx2::kSearch,
                                                     &avx512::kSearch};
#else
  static const SearchForms* const kForms[kLevels] = {&portable::kSearch, &portable::kSearch,
                                                     &portable::kSearch};
#endif
  return *kForms[static_cast<int>(level)];
}

}  // namespace zeph::kernels
