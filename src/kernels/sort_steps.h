// SPDX-License-Identifier: MIT
//
// Marks the steps of the sort whose number is bounded: a test that includes the forms counts them;
// elsewhere a mark expands to nothing.
#ifndef ZEPH_SRC_KERNELS_SORT_STEPS_H
#define ZEPH_SRC_KERNELS_SORT_STEPS_H

#ifndef ZEPH_SORT_STEP
#define ZEPH_SORT_STEP(kind, elements) static_cast<void>(0)
#endif

#endif  // ZEPH_SRC_KERNELS_SORT_STEPS_H
