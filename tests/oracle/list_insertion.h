// Ordered insertion into a linked list, step by step as documented.
#ifndef ZEPH_TESTS_ORACLE_LIST_INSERTION_H
#define ZEPH_TESTS_ORACLE_LIST_INSERTION_H

namespace oracle {

/// `greater` tells whether the new node goes after the current one.
template <class Node, class Greater>
void InsertOrdered(Node*& head, Node* node, Greater greater) {
  if (!head) {
    head = node;
    node->m_pNext = nullptr;
    return;
  }
  Node* previous = nullptr;
  Node* current = head;
  while (current) {
    if (!greater(*node, *current)) break;
    previous = current;
    current = current->m_pNext;
  }
  if (!previous) {
    head = node;
  } else {
    previous->m_pNext = node;
  }
  node->m_pNext = current;
}

}  // namespace oracle

#endif  // ZEPH_TESTS_ORACLE_LIST_INSERTION_H
