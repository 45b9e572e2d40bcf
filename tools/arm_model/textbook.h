// SPDX-License-Identifier: MIT
//
// The kernels as in a textbook, for comparison.
#ifndef ZEPH_TOOLS_ARM_MODEL_TEXTBOOK_H
#define ZEPH_TOOLS_ARM_MODEL_TEXTBOOK_H

#include "kernels/table.h"

namespace zeph::arm_model {

extern const kernels::Table kTextbook;

}  // namespace zeph::arm_model

#endif  // ZEPH_TOOLS_ARM_MODEL_TEXTBOOK_H
