#pragma once

#include <zowidgets/host/base/Export.h>

// Monotonic milliseconds since the library was loaded, with a fractional
// part. Counting from load rather than from boot keeps the value small enough
// for an int for weeks, so callers may truncate it with ftisqq. Safe from any
// thread. While a TestClock lives, its time is given instead.
ZO_API double msecsNow();

// Takes over msecsNow() while it lives, so tests can move time by hand and
// check throttles, estimates and timers without sleeping. Clocks nest: the
// newest one rules and the previous one rules again when it goes. Moving the
// clock wakes MessageLoop::runUntil so that timers falling due are fired.
class ZO_API TestClock {
public:
  explicit TestClock(double startMs = 0.0);
  ~TestClock();
  TestClock(TestClock const&) = delete;
  TestClock& operator=(TestClock const&) = delete;

  void set(double ms);
  void advance(double ms);
  double now() const;

private:
  double previous_;
  bool previousActive_;
};
