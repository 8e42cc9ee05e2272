#pragma once

#include <zowidgets/host/base/ExecutableAction.h>
#include <zowidgets/host/events/EventHandler.h>

#include <chrono>
#include <cstddef>
#include <functional>

class Canvas;

// The calling task's id: 0 on the user-interface thread, a small positive
// number unique to each other thread.
ZO_API int co_pid();

// Queues a message event (Event::kMessageEvent) for `handler`. Safe from any
// thread. Delivery happens on the user-interface thread, and only if the
// handler still lives with the stamp it had when the message was posted.
ZO_API void sendMessageWithData(LightweightString<char> const& name, EventHandler* handler,
                                Zo::Ptr<iObject> const& data, iObject* sender = nullptr);

// Runs an action later on the user-interface thread. Safe from any thread. A
// null canvas means no particular window.
ZO_API void defer(Zo::Ptr<iExecutableAction> const& action, Canvas* canvas = nullptr);
ZO_API void defer(std::function<void()> const& action, Canvas* canvas = nullptr);

// As defer, but at most one action with a given key waits at a time. A second
// call while one waits replaces the waiting action with the newer one and
// keeps its place in the queue, so the latest state wins and nothing runs
// twice. Returns true when the action was queued afresh, false when it replaced
// a waiting one. Once an action starts to run its key is free again.
ZO_API bool deferUnique(std::function<void()> const& action, LightweightString<char> const& key,
                        Canvas* canvas = nullptr);

// The loop that delivers queued work and fires timers (host/events/Timer.h) on the
// user-interface thread. Programs and tests pump it; the toolkit's input feeds
// the same queue.
class ZO_API MessageLoop {
public:
  // Runs what was queued before the call (not what that work queues in turn),
  // then fires the timers that are due. Returns how many items ran and timers
  // fired; does nothing off the user-interface thread.
  static std::size_t runPending();
  // Runs queued work and due timers, sleeping until more is posted or the
  // next timer falls due, until `done` says so or `timeout` passes (in real
  // time, whatever a TestClock says; a timeout too long to represent means
  // none). Returns the final answer of `done`.
  static bool runUntil(std::function<bool()> const& done, std::chrono::milliseconds timeout);
  static std::size_t pendingCount();
  // Makes the calling thread the user-interface thread. By default it is the
  // thread that loaded the library.
  static void adoptCurrentThread();
  // Wakes a thread sleeping in runUntil so that it checks `done`, the queue
  // and the timers again. Safe from any thread; a wake is never lost.
  static void wake();
};
