// SPDX-License-Identifier: MIT
//
// Walks through a chain of nodes to the place of another one. Nodes have m_pNext and a KeyOf.
#ifndef ZEPH_SRC_CONTAINERS_ORDERED_WALK_H
#define ZEPH_SRC_CONTAINERS_ORDERED_WALK_H

#include "containers.h"

namespace zeph::containers {

template <class T>
const T& KeyOf(const CZEPHLink<T>& node) {
  return node.m_value;
}
inline int KeyOf(const CZEPHLinkData& node) {
  return node.m_nKey;
}

/// The link (the head pointer or a node's next pointer) at which the ordered walk for `node` stops,
/// starting from `*link`.
template <class Node>
Node** StopOf(const Node& node, Node** link) {
  while (*link && KeyOf(node) > KeyOf(**link)) link = &(*link)->m_pNext;
  return link;
}

/// Merges the ascending chain `fresh` into the list at `head` and returns the new head. Every node
/// of `fresh` goes where its ordered walk stops. Each walk starts where the one before stopped: its
/// node is not smaller, so it would pass all the nodes that were passed before.
template <class Node>
Node* Merge(Node* fresh, Node* head) {
  if (!head) return fresh;
  Node** link = &head;
  while (fresh) {
    Node* node = fresh;
    fresh = node->m_pNext;
    link = StopOf(*node, link);
    node->m_pNext = *link;
    *link = node;
    link = &node->m_pNext;
  }
  return head;
}

}  // namespace zeph::containers

#endif  // ZEPH_SRC_CONTAINERS_ORDERED_WALK_H
