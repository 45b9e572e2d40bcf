// SPDX-License-Identifier: MIT
//
// The results of the workloads: a digest per operation, combined into the printed lines.
#ifndef ZEPH_TOOLS_SELFTEST_REPORT_H
#define ZEPH_TOOLS_SELFTEST_REPORT_H

#include <cstdint>
#include <deque>
#include <string>

#include "digest.h"

namespace zeph::selftest {

/// What an operation's bits depend on.
enum class Rests {
  kExact,      ///< only on IEEE arithmetic: the same everywhere
  kFunctions,  ///< on the C runtime's sine, cosine, tangent or logarithm
  kTexts,      ///< on the C runtime's number formatting
  kRandom      ///< on the C runtime's random numbers
};

/// The digests of one subsystem.
class Report {
 public:
  struct Operation {
    std::string name;
    Rests rests;
    Digest digest;
  };

  explicit Report(std::string subsystem) : m_subsystem(std::move(subsystem)) {}

  /// The digest of an operation, made on its first mention; stays where it is.
  Digest& operator()(const char* name, Rests rests = Rests::kExact);

  /// The operations of one kind as one digest.
  Digest Total(Rests rests) const;

  const std::string& Subsystem() const { return m_subsystem; }
  const std::deque<Operation>& Operations() const { return m_operations; }

 private:
  std::string m_subsystem;
  std::deque<Operation> m_operations;
};

void RunDoubleArray(Report& report);
void RunRawBuffers(Report& report);
void RunLinalg(Report& report);
void RunGraphics(Report& report);
void RunContainers(Report& report);
void RunAlgorithms(Report& report);
void RunLarge(Report& report);

}  // namespace zeph::selftest

#endif  // ZEPH_TOOLS_SELFTEST_REPORT_H
