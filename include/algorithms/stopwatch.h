// SPDX-License-Identifier: MIT
//
/// @file
/// CZEPHDSTimer: a stopwatch in milliseconds of the wall clock.
#ifndef ZEPH_ALGORITHMS_STOPWATCH_H
#define ZEPH_ALGORITHMS_STOPWATCH_H

#include <cstdio>

#include "../platform.h"

/// A stopwatch: whole milliseconds of the wall clock between a start and a stop.
///
/// Follows the wall clock where it is set or stepped, so a reading can be too long, or negative. A
/// negative reading counts as "never started" until the next Start: Stop then returns it again
/// without looking at the clock. Seconds are taken modulo 2^32 and times computed in 32 bits, so
/// readings wrap after 24 days. For intervals that must not step use std::chrono::steady_clock.
///
///     CZEPHDSTimer watch;
///     watch.Start();
///     Work();
///     std::printf("%ld ms\n", watch.Stop());
///     watch.GetProcessTime();    // the same reading, if it is 1 ms or more
///     CZEPHDSTimer other(watch), third;
///     third = other;             // copies hold the reading
///     third.Begin();             // other names of Start
///     third.End();               // and Stop
class ZEPH_API CZEPHDSTimer {
 public:
  /// A watch that was never started: `elapsed` is -1000, the records are not set.
  CZEPHDSTimer();
  CZEPHDSTimer(const CZEPHDSTimer& other);
  virtual ~CZEPHDSTimer();
  /// Copies the reading and both records.
  CZEPHDSTimer& operator=(const CZEPHDSTimer& other);

  /// Starts, or starts again: `elapsed` is 0, `start` is now.
  void Start();

  /// The milliseconds since Start, kept in `elapsed`; `stop` is now. May be called again: each call
  /// measures from the same start. -1000 from a watch never started.
  long Stop();

  /// The last reading if it is 1 ms or more, without looking at the clock; otherwise the same as
  /// Stop().
  long GetProcessTime();

  /// The same as Start.
  void Begin();

  /// The same as Stop.
  long End();

  /// Writes a report of the reading around a sleep of `ms` milliseconds to `f` and returns 1;
  /// returns 0 without sleeping when `f` is null. A negative `ms` is read as an unsigned 32-bit
  /// number.
  ///
  ///     CZEPHDSTimer::Test1(5, stdout);  // prints "@@@( CZEPHDSTimer::Test1()...BEGIN\n..."
  static int Test1(long ms, FILE* f);

  ZEPH_TimeOfDay start;  ///< taken by Start
  ZEPH_TimeOfDay stop;   ///< taken by Stop
  int elapsed;           ///< -1000 never started, 0 running, else the last reading
};

#endif  // ZEPH_ALGORITHMS_STOPWATCH_H
