// SPDX-License-Identifier: MIT
//
// Results returned by reference, which the library keeps alive for a while.
#ifndef ZEPH_SRC_LINALG_KEPT_RESULTS_H
#define ZEPH_SRC_LINALG_KEPT_RESULTS_H

#include "linalg.h"

namespace zeph::linalg {

/// Takes ownership of `result` and returns a reference that is valid until the calling thread has
/// kept 16 more results, or ends. Where memory runs out, threads share one set of 16.
CZEPHDoubleMatrix& Keep(CZEPHDoubleMatrix&& result);

}  // namespace zeph::linalg

#endif  // ZEPH_SRC_LINALG_KEPT_RESULTS_H
