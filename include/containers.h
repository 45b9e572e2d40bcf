// SPDX-License-Identifier: MIT
//
/// @file
/// Linked lists, pointer stacks, self-sorting collections, growth-size arrays.
//
//   containers/linked_list.h    CZEPHLink, CZEPHLinkList: nodes in ascending order of their values;
//                               CZEPHLinkData, CZEPHSortedLinkList: of an int key
//   containers/stack.h          CZEPHStack, CZEPHPointerStack: last in, first out, of untyped
//                               pointers
//   containers/sortable.h       CZEPHSortableObArray, CZEPHSortableObList: the framework's object
//                               collections, sorted by a compare function
//   containers/growth_arrays.h  CZEPHUIntArray, CZEPHWordArray: number arrays with a remembered
//                               growth size
#ifndef ZEPH_CONTAINERS_H
#define ZEPH_CONTAINERS_H

#include "containers/growth_arrays.h"
#include "containers/linked_list.h"
#include "containers/sortable.h"
#include "containers/stack.h"

#endif  // ZEPH_CONTAINERS_H
