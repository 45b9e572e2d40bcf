// SPDX-License-Identifier: MIT
#include "linalg/kept_results.h"

#include <atomic>
#include <cstdint>
#include <new>
#include <utility>

#include "platform/allocation.h"
#include "platform/thread_data.h"

namespace zeph::linalg {
namespace {

/// The last 16 results and one more: the operand of the call that needs the next place may itself
/// be the oldest result, and must survive that call.
constexpr unsigned kPlaces = 17;

struct Kept : platform::ThreadData {
  CZEPHDoubleMatrix results[kPlaces];
  std::atomic<std::uint64_t> count{0};
};

platform::ThreadData* MakeKept() {
  return platform::OnExhaustion<Kept*>(nullptr, [] { return platform::NewObject<Kept>(); });
}

/// For threads that cannot have their own set. Never destroyed: threads may outlive static objects.
Kept& SharedKept() {
  alignas(Kept) static unsigned char place[sizeof(Kept)];
  static Kept& shared = *new (place) Kept;
  return shared;
}

Kept& MyKept() {
  platform::ThreadData* const mine = platform::MyThreadData(MakeKept);
  return mine ? static_cast<Kept&>(*mine) : SharedKept();
}

}  // namespace

CZEPHDoubleMatrix& Keep(CZEPHDoubleMatrix&& result) {
  Kept& kept = MyKept();
  CZEPHDoubleMatrix& place = kept.results[kept.count++ % kPlaces];
  // The old content is released with `result`.
  std::swap(place.m_nRows, result.m_nRows);
  std::swap(place.m_nColumns, result.m_nColumns);
  std::swap(place.m_ppData, result.m_ppData);
  return place;
}

}  // namespace zeph::linalg
