// SPDX-License-Identifier: MIT
#include "kernels/sort.h"

#include "kernels/sort_forms.h"

namespace zeph::kernels {

const SortForms& SortForms::For(Level) {
  return portable::kSort;
}

}  // namespace zeph::kernels
