#pragma once

#include <zowidgets/host/base/Export.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

class EventHandler;

// A callback that the user-interface loop (MessageLoop) calls when its time,
// in msecsNow() milliseconds, comes. The object is the registration: moving
// it moves the registration, and destroying or cancelling it ends it. Timers
// may be made and cancelled on any thread; the callback always runs on the
// user-interface thread. Cancelling there guarantees no further call.
//
// Due timers fire in deadline order, ties in the order they were made. A
// repeating timer keeps its phase (the next deadline is a whole number of
// intervals after the first) and fires at most once per pass of the loop: a
// late loop skips the ticks it missed rather than delivering them in a burst.
class ZO_API Timer {
public:
  using Callback = std::function<void()>;

  Timer() noexcept = default;
  Timer(Timer&& other) noexcept;
  Timer& operator=(Timer&& other) noexcept;
  Timer(Timer const&) = delete;
  Timer& operator=(Timer const&) = delete;
  ~Timer();

  // Every `intervalMs` from now (an interval below 1 ms counts as 1 ms).
  static Timer repeating(double intervalMs, Callback callback);
  // Once, `delayMs` from now; a delay of 0 or less fires on the next pass.
  static Timer oneShot(double delayMs, Callback callback);

  void cancel() noexcept;
  // False once cancelled, and for a one-shot timer once it has fired.
  bool isActive() const;

  // For MessageLoop: fires the timers due now, on the user-interface thread
  // (elsewhere it does nothing), and returns how many fired. Timers made by
  // a callback wait for the next pass.
  static std::size_t fireDue();
  // The earliest deadline of all active timers, if there is one.
  static std::optional<double> nextDeadline();

private:
  explicit Timer(std::uint64_t id) noexcept : id_(id) {}

  std::uint64_t id_ = 0;
};

// Periodic ticks for event handlers (widgets) that set the timer interest
// flag 4096: Glob::setInterest(kInterest) calls addInterest, and
// clearInterest removeInterest. A handler with the interest gets an Event of
// type Event::kTimer through handleEvent on the user-interface thread every
// kIntervalMs; a widget's react() turns it into handleTimerEvent(). One
// shared Timer runs while any handler has the interest. A handler that dies
// loses its interest by itself; one that gains it during a tick hears the
// next tick. Safe from any thread.
namespace TimerTicks {

inline constexpr unsigned kInterest = 4096;
inline constexpr double kIntervalMs = 40.0;

ZO_API void addInterest(EventHandler* handler);
ZO_API void removeInterest(EventHandler const* handler);
ZO_API bool hasInterest(EventHandler const* handler);

} // namespace TimerTicks
