// A second that does not end soon.
#ifndef ZEPH_TESTS_SUPPORT_SECOND_H
#define ZEPH_TESTS_SUPPORT_SECOND_H

#include <chrono>
#include <ctime>
#include <thread>

namespace zeph::test {

/// The current second. A system's clocks change it some milliseconds apart: waits until none can
/// change soon.
inline std::time_t SecondAwayFromItsTurn() {
  using namespace std::chrono;
  for (;;) {
    const auto now = system_clock::now();
    const auto into = duration_cast<milliseconds>(now.time_since_epoch()) % seconds(1);
    if (into > milliseconds(50) && into < milliseconds(900)) return system_clock::to_time_t(now);
    std::this_thread::sleep_for(milliseconds(20));
  }
}

}  // namespace zeph::test

#endif  // ZEPH_TESTS_SUPPORT_SECOND_H
