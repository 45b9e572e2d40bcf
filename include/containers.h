// SPDX-License-Identifier: MIT
//
// containers.h -- linked lists, pointer stacks, self-sorting collections, growth-size arrays.
#ifndef ZEPH_CONTAINERS_H
#define ZEPH_CONTAINERS_H

#include "platform.h"

#endif  // ZEPH_CONTAINERS_H
