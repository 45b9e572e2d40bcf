// SPDX-License-Identifier: MIT
#include <cstdint>
#include <cstdio>

#include "algorithms.h"
#include "platform/clock.h"
#include "platform/sleep.h"
#include "platform/wrap.h"

namespace {

constexpr int kNeverStarted = -1000;

int LowBits(std::int64_t seconds) {
  return zeph::platform::Wrap(static_cast<std::uint32_t>(seconds));
}

int Milliseconds(const ZEPH_TimeOfDay& from, const ZEPH_TimeOfDay& to) {
  using namespace zeph::platform;
  const int seconds = WrapSub(LowBits(to.time), LowBits(from.time));
  return WrapAdd(WrapSub(WrapMul(seconds, 1000), from.millitm), to.millitm);
}

}  // namespace

CZEPHDSTimer::CZEPHDSTimer() : elapsed(kNeverStarted) {}
CZEPHDSTimer::CZEPHDSTimer(const CZEPHDSTimer& other) = default;
CZEPHDSTimer::~CZEPHDSTimer() {}
CZEPHDSTimer& CZEPHDSTimer::operator=(const CZEPHDSTimer& other) = default;

void CZEPHDSTimer::Start() {
  elapsed = 0;
  start = zeph::platform::ReadClock();
}

long CZEPHDSTimer::Stop() {
  if (elapsed < 0) return elapsed;
  stop = zeph::platform::ReadClock();
  elapsed = Milliseconds(start, stop);
  return elapsed;
}

long CZEPHDSTimer::GetProcessTime() {
  return elapsed < 1 ? Stop() : elapsed;
}

void CZEPHDSTimer::Begin() {
  Start();
}

long CZEPHDSTimer::End() {
  return Stop();
}

int CZEPHDSTimer::Test1(long ms, FILE* f) {
  if (!f) return 0;
  std::fprintf(f, "@@@( CZEPHDSTimer::Test1()...BEGIN\n");
  CZEPHDSTimer watch;
  watch.Start();
  zeph::platform::SleepMilliseconds(static_cast<std::uint32_t>(ms));
  const long reading = watch.Stop();
  std::fprintf(f, "...Processing time = %ld msec\n", reading);
  std::fprintf(f, "@@@( CZEPHDSTimer::Test1()...END\n");
  return 1;
}
