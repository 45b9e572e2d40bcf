// SPDX-License-Identifier: MIT
#include "report.h"

namespace zeph::selftest {

Digest& Report::operator()(const char* name, Rests rests) {
  for (Operation& operation : m_operations)
    if (operation.rests == rests && operation.name == name) return operation.digest;
  return m_operations.emplace_back(Operation{name, rests, {}}).digest;
}

Digest Report::Total(Rests rests) const {
  Digest total;
  for (const Operation& operation : m_operations)
    if (operation.rests == rests) total.Fold(operation.digest);
  return total;
}

}  // namespace zeph::selftest
